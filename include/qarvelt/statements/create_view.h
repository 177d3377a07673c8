// CREATE VIEW ("C_CREATE_VIEW"): a relational view with its column aliases, or an object view, over a
// subquery that the host gives as it stands.
//
//   CREATE OR REPLACE FORCE VIEW SCOTT.EMP_V (EMPNO, ENAME) AS SELECT EMPNO, ENAME FROM EMP
//     WITH CHECK OPTION CONSTRAINT EMP_V_CK
//   CREATE VIEW HR.EMP_OV OF HR.EMP_T WITH OBJECT IDENTIFIER (EMPNO) AS SELECT ... WITH READ ONLY
//   CREATE VIEW HR.MGR_OV OF HR.MGR_T UNDER HR.EMP_OV AS SELECT ...
//
// Paths, containers left out:
//   "REPLACE"        REPLACE, written OR REPLACE
//   "FORCE"          FORCE or NOFORCE
//   "IF_NOT_EXISTS"  IF NOT EXISTS (from 12; not with OR REPLACE)
//   "SCHEMA", "VIEW" the view's name, after "VIEW"
//   then one of (the first that has text, per pass):
//   "C_VIEW_ALIAS;LIST"  the column aliases in brackets, items CSubSQLItemAlias
//   "C_OBJECT_VIEW"      OF "TYPE_SCHEMA"."OBJECT_TYPE", "XMLSCHEMA" and "ELEMENT" (both written in
//                        double quotes), then one of
//                          "C_OBJECT_ID": WITH OBJECT IDENTIFIER "DEFAULT" or the attributes "LIST"
//                            (plain leaves, in brackets),
//                          UNDER "SUPERVIEW_SCHEMA"."SUPERVIEW",
//                        then "LIST": the attributes' constraints in brackets, items CSubSQLItemAlias
//   "SUBQUERY"       written after AS, unchanged
//   "READ"           READ, written WITH READ ONLY
//   "CHECK"          CHECK, written WITH CHECK OPTION, with "CHECK;CONSTRAINT" (CONSTRAINT name); the
//                    host fills one of "READ" and "CHECK"
// The aliases and the object clause are the statement's only alternatives: a tree holding both writes
// two whole views, one per pass.
//
// Release gates (release code: Oracle release):
//   1 (Oracle 8.0)       object views, written OF type WITH OBJECT OID; WITH READ ONLY (which not
//                        every Oracle 7 release accepts)
//   2 (Oracle 8i)        WITH OBJECT IDENTIFIER takes the place of WITH OBJECT OID
//   3 (Oracle 9i R1)     view constraints: inline constraints after an alias, out-of-line constraints
//                        among the aliases, constraints on an object view's attributes; UNDER superview
//   4 (Oracle 9i R2)     XMLType views: XMLSCHEMA and ELEMENT
// Nothing is checked: Oracle accepts only UNIQUE, PRIMARY KEY and FOREIGN KEY constraints in DISABLE
// NOVALIDATE state on a view, and that is the host's to give.
#ifndef QARVELT_STATEMENTS_CREATE_VIEW_H
#define QARVELT_STATEMENTS_CREATE_VIEW_H

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

class CSQLCreateView : public CreateStatement<CSQLCreateView> {
 public:
  explicit CSQLCreateView(bool bInit = true, int nOraVersion = 7);

  // One entry of the alias list, or of an object view's attribute constraints: "ALIAS" (the alias or
  // the attribute) with its inline constraints "LIST" (items CSQLClauseInlineConstraint), or one
  // out-of-line constraint "C_OUTLINE_CONSTRAINT". Before release code 3 only "ALIAS" is built.
  class CSubSQLItemAlias : public Cloneable<CSubSQLItemAlias> {
   public:
    explicit CSubSQLItemAlias(const char* name);
    CSubSQLItemAlias(const char* name, int nOraVersion);
    // The clone shell: builds nothing.
    explicit CSubSQLItemAlias(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_CREATE_VIEW_H
