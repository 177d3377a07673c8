#include "qarvelt/statements/alter_table_props.h"

#include "qarvelt/clauses/column.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/clauses/table_props.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// UPGRADE [NOT] INCLUDING DATA followed by the column properties of the upgraded object columns.
// "INCLUDING" holds INCLUDING or NOT INCLUDING; its suffix ends in a blank for the clause after it.
Node upgradeTable() {
  return named(
      "C_UPGRADE_TABLE",
      leaf("UPGRADE").with(leaf("INCLUDING", "", " DATA "), clause<CSQLClauseColumnProp>(kLatestRelease)));
}

// MINIMIZE or NOMINIMIZE RECORDS_PER_BLOCK.
Node recordsPerBlock() {
  return named("C_RECORDS_PER_BLK", leaf("MINIMIZE", "", " RECORDS_PER_BLOCK"));
}

// ENABLE or DISABLE ROW MOVEMENT.
Node rowMovement() {
  return named("C_ROW_MOVEMENT", leaf("ENABLE", "", " ROW MOVEMENT"));
}

// SHRINK SPACE [COMPACT] [CASCADE]: the host gives "SHRINK" the words SHRINK SPACE.
Node shrink() {
  return named("C_SHRINK", leaf("SHRINK"), leaf("COMPACT"), leaf("CASCADE"));
}

}  // namespace

CSQLClauseAltTableProp::CSQLClauseAltTableProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ALT_TABLE_PROPERTY", bInit);
}

// The property changes share one AND container, so a single ALTER TABLE carries all of them; SHRINK
// and RENAME cannot be combined with anything and are the other alternatives. The index-organized
// table changes may follow any of the three.
void CSQLClauseAltTableProp::init() {
  attach(this,
         Or(And(clause<CSQLClausePhysicalAttr>(GetOraVersion()),
                leaf("LOGGING"),
                leaf("COMPRESS"),
                clause<CSQLClauseSuppLgGrp>(kLatestRelease),
                clause<CSQLClauseAllocateExtent>(kLatestRelease),
                clause<CSQLClauseDeallocateUnused>(kLatestRelease),
                leaf("CACHE"),
                leaf("MONITORING"),
                upgradeTable(),
                recordsPerBlock(),
                clause<CSQLClauseParallel>(kLatestRelease),
                rowMovement()),
            shrink(),
            leaf("RENAME", "RENAME TO ")),
         clause<CSQLClauseAlterIOT>(kLatestRelease));
}

}  // namespace qarvelt
