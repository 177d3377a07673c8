// The part of a column definition that follows its data type, as CREATE TABLE, ALTER TABLE ... ADD
// and ALTER TABLE ... MODIFY write it: [COLLATE c] [INVISIBLE | VISIBLE] [DEFAULT [ON NULL] expr |
// identity clause | GENERATED ALWAYS AS (expr) VIRTUAL], each part from the release that brought it.
// Used inside the library only.
#ifndef QARVELT_SRC_CLAUSES_COLUMN_DEFINITION_H
#define QARVELT_SRC_CLAUSES_COLUMN_DEFINITION_H

#include "qarvelt/core/builder.h"

namespace qarvelt {

// Leaves "COLLATE", "VISIBILITY", "DEFAULT", "DEFAULT_ON_NULL", "VIRTUAL" and the clause
// "C_IDENTITY", for a column item of release code `v`.
build::Node ColumnDefinitionTail(int v);

}  // namespace qarvelt

#endif  // QARVELT_SRC_CLAUSES_COLUMN_DEFINITION_H
