#include "qarvelt/statements/create_trigger.h"

#include "object_name.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// Events joined by OR: INSERT OR UPDATE OF SAL. The items are appended by the host.
Node events() {
  return list("LIST", " OR ", "", "");
}

// DELETE, INSERT and UPDATE [OF columns] ON a table or view, and what a row trigger says about rows.
Node dmlEvent(int v) {
  return named("C_DML_EVENT",
               events(),
               And({"ON", ""},
                   when(v >= 2, leaf("NESTED", "NESTED TABLE ", "", " OF")),
                   leaf("SCHEMA", "", "", "."),
                   leaf("TABLE")),
               And({"REFERENCING", ""},
                   leaf("OLD", "OLD AS "),
                   leaf("NEW", "NEW AS "),
                   when(v >= 2, leaf("PARENT", "PARENT AS "))),
               leaf("ROW", "FOR EACH "));
}

// DDL and database events ON [schema.]SCHEMA or ON DATABASE.
Node systemEvent() {
  return named("C_SYSTEM_EVENT",
               events(),
               And({"ON", ""}, Or(And(leaf("OWNER", "", "", "."), leaf("SCHEMA")), leaf("DATABASE"))));
}

}  // namespace

CSQLCreateTrigger::CSQLCreateTrigger(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_TRIGGER", bInit);
}

void CSQLCreateTrigger::init() {
  const int v = GetOraVersion();
  attach(this,
         leaf("REPLACE", "OR "),
         And({"TRIGGER", ""}, GuardedName(v, "IF_NOT_EXISTS", "TRIGGER")),
         // The timing: the host fills one. An AND, not an OR, so that only the events are
         // alternatives taking one pass each, and every pass writes a whole trigger.
         And(leaf("BEFORE"),
             leaf("AFTER"),
             when(v >= 1, leaf("INSTEAD", "", "", " OF")),
             when(v >= 7, leaf("FOR"))),
         Or(dmlEvent(v), when(v >= 2, systemEvent())),
         when(v >= 7, list("FOLLOWS", ", ", "FOLLOWS ", "")),
         when(v >= 7, leaf("ENABLE")),
         leaf("WHEN", "WHEN (", "", ")"),
         leaf("BODY"));
}

CSQLCreateTrigger::CSubSQLItemEvent::CSubSQLItemEvent(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateTrigger::CSubSQLItemEvent::CSubSQLItemEvent(bool /*bInit*/, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", false);
}

void CSQLCreateTrigger::CSubSQLItemEvent::init() {
  attach(this, leaf("EVENT").with(list("LIST", ", ", "OF ", "")));
}

}  // namespace qarvelt
