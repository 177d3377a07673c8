// Umbrella header: every public class of the library.
#ifndef QARVELT_QARVELT_H
#define QARVELT_QARVELT_H

#include "qarvelt/version.h"

#include "qarvelt/core/attr.h"
#include "qarvelt/core/builder.h"
#include "qarvelt/core/clause.h"
#include "qarvelt/core/cloneable.h"
#include "qarvelt/core/container.h"
#include "qarvelt/core/list.h"

#include "qarvelt/clauses/column.h"
#include "qarvelt/clauses/constraint.h"
#include "qarvelt/clauses/index_attributes.h"
#include "qarvelt/clauses/lob.h"
#include "qarvelt/clauses/partition.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/clauses/table_props.h"

#include "qarvelt/info/base.h"
#include "qarvelt/info/columns.h"
#include "qarvelt/info/constraints.h"
#include "qarvelt/info/index.h"
#include "qarvelt/info/lob_partitions.h"
#include "qarvelt/info/partitions.h"
#include "qarvelt/info/table.h"
#include "qarvelt/info/value.h"

#include "qarvelt/statements/alter_index.h"
#include "qarvelt/statements/alter_table.h"
#include "qarvelt/statements/alter_table_partition.h"
#include "qarvelt/statements/alter_table_props.h"
#include "qarvelt/statements/create_index.h"
#include "qarvelt/statements/create_simple.h"
#include "qarvelt/statements/create_table.h"
#include "qarvelt/statements/statement.h"
// views and triggers
#include "qarvelt/statements/create_trigger.h"
#include "qarvelt/statements/create_view.h"
#include "qarvelt/util/sqlplus.h"
// materialized views and their logs
#include "qarvelt/statements/mviews.h"
// clusters and tablespaces
#include "qarvelt/clauses/data_file.h"
#include "qarvelt/statements/cluster.h"
#include "qarvelt/statements/create_tablespace.h"
// users, profiles and the database
#include "qarvelt/statements/alter_database.h"
#include "qarvelt/statements/create_user.h"
// dimensions, operators and index types
#include "qarvelt/statements/alter_sequence.h"
#include "qarvelt/statements/dimension.h"
#include "qarvelt/statements/drop.h"
#include "qarvelt/statements/indextype.h"
#include "qarvelt/statements/rename.h"

#include "qarvelt/util/util.h"

#include "qarvelt/ddl/lexer.h"

#include "qarvelt/model/document.h"
#include "qarvelt/model/error.h"
#include "qarvelt/model/expressions.h"
#include "qarvelt/model/script.h"
#include "qarvelt/model/statements.h"

#endif  // QARVELT_QARVELT_H
