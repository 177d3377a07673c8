// Integrity constraints: inline and out-of-line constraints, REF column constraints, REFERENCES,
// the constraint state (DEFERRABLE, INITIALLY, ENABLE/VALIDATE, RELY, USING INDEX, EXCEPTIONS),
// ENABLE/DISABLE clauses, and the constraint operations of ALTER TABLE (ADD, MODIFY, RENAME, DROP).
//
// Leaves with no prefix are bare keywords: the host gives the whole keyword or its negative form
// (NOT NULL, NOT DEFERRABLE, DISABLE, NOVALIDATE, NORELY); nothing here composes a NO form.
//
//   CONSTRAINT PK_T PRIMARY KEY (A,B) USING INDEX TABLESPACE X
//   REFERENCES S.T (C1,C2) ON DELETE CASCADE
//   ADD CONSTRAINT C1 UNIQUE (A) ADD CONSTRAINT C2 CHECK (B > 0)
//   DROP PRIMARY KEY CASCADE DROP INDEX
#ifndef QARVELT_CLAUSES_CONSTRAINT_H
#define QARVELT_CLAUSES_CONSTRAINT_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// A column's inline constraint: "CONSTRAINT" name, one of "NULL" (NULL or NOT NULL), "UNIQUE",
// "PRIMARY" (written PRIMARY KEY), "C_REFERENCES", "CHECK" (the condition), then "C_CONSTRAINT_STATE".
class CSQLClauseInlineConstraint : public Cloneable<CSQLClauseInlineConstraint> {
 public:
  explicit CSQLClauseInlineConstraint(bool bInit = true, int nOraVersion = 7);
  // A named list item, built at once.
  explicit CSQLClauseInlineConstraint(const char* name);

 protected:
  void init() override;
};

// A REF column's inline constraint: SCOPE IS [schema.]table, WITH ROWID, or a named REFERENCES.
class CSQLClauseInlineRefConstraint : public Cloneable<CSQLClauseInlineRefConstraint> {
 public:
  explicit CSQLClauseInlineRefConstraint(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// A table's out-of-line constraint: as the inline one, with the column lists "UNIQUE;LIST",
// "PRIMARY;LIST", "FOREIGN;LIST" and "FOREIGN;C_REFERENCES".
class CSQLClauseOutLineConstraint : public Cloneable<CSQLClauseOutLineConstraint> {
 public:
  explicit CSQLClauseOutLineConstraint(bool bInit = true, int nOraVersion = 7);
  explicit CSQLClauseOutLineConstraint(const char* name);

 protected:
  void init() override;
};

// A REF column's out-of-line constraint: SCOPE FOR (ref) IS table, REF (ref) WITH ROWID, or a named
// FOREIGN KEY (ref) REFERENCES; the REF column's leaf is "REFVAL" in all three.
class CSQLClauseOutLineRefConstraint : public Cloneable<CSQLClauseOutLineRefConstraint> {
 public:
  explicit CSQLClauseOutLineRefConstraint(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// REFERENCES [schema.]object (columns) [ON DELETE CASCADE | ON DELETE SET NULL]: "DELETE" holds
// DELETE, then "CASCADE" holds CASCADE or "NULL" holds NULL.
class CSQLClauseReferences : public Cloneable<CSQLClauseReferences> {
 public:
  explicit CSQLClauseReferences(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// SCOPE FOR (ref column or attribute) IS [schema.]table, one item per REF column.
class CSQLClauseScopedTabRefConstraint : public Cloneable<CSQLClauseScopedTabRefConstraint> {
 public:
  explicit CSQLClauseScopedTabRefConstraint(bool bInit = true, int nOraVersion = 7);

  class CSubSQLItem : public Cloneable<CSubSQLItem> {
   public:
    explicit CSubSQLItem(const char* name);
    // The clone shell: builds nothing.
    explicit CSubSQLItem(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

class CSQLClauseConstraintState : public Cloneable<CSQLClauseConstraintState> {
 public:
  explicit CSQLClauseConstraintState(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// USING INDEX with one of: an existing index "SCHEMA"/"INDEX" (from release code 6), or the index's
// attributes (PCTFREE, INITRANS, "MAXTRANS)" -- the node name keeps its parenthesis --, TABLESPACE,
// C_STORAGE, NOSORT and LOGGING from release code 2, LOCAL or C_GLOBAL_PART_IDX from release code 3).
class CSQLClauseUsingIndex : public Cloneable<CSQLClauseUsingIndex> {
 public:
  explicit CSQLClauseUsingIndex(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ENABLE | DISABLE [VALIDATE | NOVALIDATE] UNIQUE (columns) | PRIMARY KEY | CONSTRAINT name
// [USING INDEX ...] [EXCEPTIONS INTO ...] [CASCADE] [KEEP | DROP INDEX, from release code 6].
class CSQLClauseEnableDisable : public Cloneable<CSQLClauseEnableDisable> {
 public:
  explicit CSQLClauseEnableDisable(bool bInit = true, int nOraVersion = 7);
  CSQLClauseEnableDisable(const char* name, int nOraVersion);

 protected:
  void init() override;
};

// The constraint operations of ALTER TABLE, one per statement: ADD (the list "LIST" of out-of-line
// constraints, written ADD c1 ADD c2, or "C_OUTLINE_REF_CONSTRAINT"), "MODIFY" constraint with its
// state, "RENAME" old TO "NEWNAME", or "C_DROP_CONSTRAINT".
class CSQLClauseConstraint : public Cloneable<CSQLClauseConstraint> {
 public:
  explicit CSQLClauseConstraint(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// DROP PRIMARY KEY | UNIQUE (columns) [CASCADE] [KEEP | DROP INDEX], or DROP CONSTRAINT name [CASCADE].
class CSQLClauseDropConstraint : public Cloneable<CSQLClauseDropConstraint> {
 public:
  explicit CSQLClauseDropConstraint(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CLAUSES_CONSTRAINT_H
