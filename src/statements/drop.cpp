#include "qarvelt/statements/drop.h"

#include "object_name.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// [IF EXISTS] [schema.]name.
Node droppedName(const CSQLClause* statement, const char* name) {
  return GuardedName(statement->GetOraVersion(), "IF_EXISTS", name);
}

}  // namespace

CSQLDropTable::CSQLDropTable(bool bInit, int nOraVersion) : DropStatement(nOraVersion) {
  setup("C_DROP_TABLE", bInit);
}

void CSQLDropTable::init() {
  attach(this, droppedName(this, "TABLE"), leaf("CASCADE"), when(GetOraVersion() >= 5, leaf("PURGE")));
}

CSQLDropIndex::CSQLDropIndex(bool bInit, int nOraVersion) : DropStatement(nOraVersion) {
  setup("C_DROP_INDEX", bInit);
}

void CSQLDropIndex::init() {
  const int v = GetOraVersion();
  attach(this, droppedName(this, "INDEX"), when(v >= 8, leaf("ONLINE")), when(v >= 2, leaf("FORCE")));
}

CSQLDropView::CSQLDropView(bool bInit, int nOraVersion) : DropStatement(nOraVersion) {
  setup("C_DROP_VIEW", bInit);
}

void CSQLDropView::init() {
  attach(this, droppedName(this, "VIEW"), when(GetOraVersion() >= 3, leaf("CASCADE")));
}

CSQLDropSequence::CSQLDropSequence(bool bInit, int nOraVersion) : DropStatement(nOraVersion) {
  setup("C_DROP_SEQUENCE", bInit);
}

void CSQLDropSequence::init() {
  attach(this, droppedName(this, "SEQUENCE"));
}

CSQLDropSynonym::CSQLDropSynonym(bool bInit, int nOraVersion) : DropStatement(nOraVersion) {
  setup("C_DROP_SYNONYM", bInit);
}

void CSQLDropSynonym::init() {
  attach(this,
         leaf("PUBLIC"),
         And({"SYNONYM", ""}, droppedName(this, "SYNONYM")),
         when(GetOraVersion() >= 7, leaf("FORCE")));
}

CSQLDropMaterializedView::CSQLDropMaterializedView(bool bInit, int nOraVersion) : DropStatement(nOraVersion) {
  setup("C_DROP_MVIEW", bInit);
}

const char* CSQLDropMaterializedView::verb() const {
  return GetOraVersion() >= 2 ? "DROP MATERIALIZED VIEW" : "DROP SNAPSHOT";
}

void CSQLDropMaterializedView::init() {
  attach(this, droppedName(this, "VIEW"), when(GetOraVersion() >= 5, leaf("PRESERVE", "", "", " TABLE")));
}

CSQLDropTrigger::CSQLDropTrigger(bool bInit, int nOraVersion) : DropStatement(nOraVersion) {
  setup("C_DROP_TRIGGER", bInit);
}

void CSQLDropTrigger::init() {
  attach(this, droppedName(this, "TRIGGER"));
}

}  // namespace qarvelt
