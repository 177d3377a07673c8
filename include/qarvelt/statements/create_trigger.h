// CREATE TRIGGER ("C_CREATE_TRIGGER"): a DML trigger on a table or view, or a trigger on DDL and
// database events of a schema or the database, with its PL/SQL body as the host gives it.
//
//   CREATE OR REPLACE TRIGGER SCOTT.EMP_BIU BEFORE INSERT OR UPDATE OF SAL, COMM ON SCOTT.EMP
//     REFERENCING OLD AS O NEW AS N FOR EACH ROW WHEN (N.SAL > 0) BEGIN ... END;
//   CREATE TRIGGER SYSTEM.LOGON_AUDIT AFTER LOGON ON DATABASE BEGIN ... END;
//
// Paths, containers left out:
//   "REPLACE"           REPLACE, written OR REPLACE
//   "IF_NOT_EXISTS"     IF NOT EXISTS (from 12; not with OR REPLACE)
//   "SCHEMA", "TRIGGER" the trigger's name, after "TRIGGER"
//   the timing, one of the keyword leaves "BEFORE", "AFTER", "INSTEAD" (written INSTEAD OF), "FOR"
//   (a compound trigger, whose body then begins with COMPOUND TRIGGER); the host fills one
//   then one of (the first that has text, per pass):
//   "C_DML_EVENT"     the events "LIST" joined by OR (items CSubSQLItemEvent, or plain leaves holding
//                     DELETE, INSERT or UPDATE), ON "NESTED" (NESTED TABLE column OF) "SCHEMA"."TABLE"
//                     (a table or a view), REFERENCING "OLD", "NEW", "PARENT" (each written AS name),
//                     "ROW" (ROW, written FOR EACH ROW)
//   "C_SYSTEM_EVENT"  the DDL or database events "LIST" joined by OR (plain leaves holding CREATE,
//                     LOGON, SERVERERROR, ...), ON "OWNER"."SCHEMA" (the keyword SCHEMA) or "DATABASE"
//   "FOLLOWS"           the triggers this one fires after, plain leaves holding [schema.]trigger
//   "ENABLE"            ENABLE or DISABLE
//   "WHEN"              the condition, written in brackets
//   "BODY"              the PL/SQL block (or CALL routine), unchanged, with its own END;
// The two kinds of events are the statement's only alternatives: a tree holding both writes two
// whole triggers, one per pass.
//
// Release gates (release code: Oracle release):
//   1 (Oracle 8.0)   INSTEAD OF
//   2 (Oracle 8i)    DDL and database events ON SCHEMA | DATABASE, NESTED TABLE column OF, PARENT AS
//   7 (Oracle 11g)   FOLLOWS, ENABLE | DISABLE, compound triggers (FOR)
// The event names are the host's: Oracle added DDL and database events release by release.
#ifndef QARVELT_STATEMENTS_CREATE_TRIGGER_H
#define QARVELT_STATEMENTS_CREATE_TRIGGER_H

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

class CSQLCreateTrigger : public CreateStatement<CSQLCreateTrigger> {
 public:
  explicit CSQLCreateTrigger(bool bInit = true, int nOraVersion = 7);

  // One DML event: "EVENT" (DELETE, INSERT or UPDATE) with the columns of UPDATE OF in "EVENT;LIST"
  // (plain leaves).
  class CSubSQLItemEvent : public Cloneable<CSubSQLItemEvent> {
   public:
    explicit CSubSQLItemEvent(const char* name);
    // The clone shell: builds nothing.
    explicit CSubSQLItemEvent(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_CREATE_TRIGGER_H
