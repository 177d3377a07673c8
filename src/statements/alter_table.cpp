#include "qarvelt/statements/alter_table.h"

#include <algorithm>

#include "qarvelt/clauses/column.h"
#include "qarvelt/clauses/constraint.h"
#include "qarvelt/clauses/table_props.h"
#include "qarvelt/core/builder.h"
#include "qarvelt/statements/alter_table_partition.h"
#include "qarvelt/statements/alter_table_props.h"

namespace qarvelt {

using namespace build;

CSQLAlterTable::CSQLAlterTable(bool bInit, int nOraVersion) : AlterStatement(nOraVersion) {
  setup("C_ALTER_TABLE", bInit);
}

void CSQLAlterTable::init() {
  // Every nested clause is built in the shape of Oracle 11g up to that release, and for the
  // statement's own release from Oracle 12c on.
  const int v = std::max(GetOraVersion(), kLatestRelease);
  attach(
      this,
      leaf("SCHEMA", "", "", "."),
      leaf("TABLE"),
      Or(clause<CSQLClauseColumn>(v),
         clause<CSQLClauseConstraint>(v),
         clause<CSQLClauseAlterTablePartition>(v),
         clause<CSQLClauseAlterExtTable>(v),
         clause<CSQLClauseMoveTable>(v),
         named(
             "C_ALT_LOC_TAB", leaf("LOCK", "", "", " TABLE LOCK"), leaf("TRIGGERS", "", "", " ALL TRIGGERS")),
         clause<CSQLClauseAltTableProp>(v)),
      And(clause<CSQLClauseEnableDisable>(v)));
}

}  // namespace qarvelt
