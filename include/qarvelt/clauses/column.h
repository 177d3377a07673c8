// Columns and column properties: column definitions with data types, the column operations of ALTER
// TABLE (ADD, MODIFY, DROP / SET UNUSED, RENAME COLUMN) and the properties of object, nested-table,
// varray and LOB columns.
//
//   ADD ( EMPNO NUMBER (4),ENAME VARCHAR2 (10))
//   MODIFY ( SAL NUMBER (9 ,2) DEFAULT 0)
//   SET UNUSED COLUMN C CASCADE CONSTRAINTS
//   DROP (C1,C2) CASCADE CONSTRAINTS CHECKPOINT 100
//   RENAME COLUMN A TO B
//
// The column operations are always built in their newest shape (release code 7), whatever the code
// they are given; the column properties follow their own release code.
#ifndef QARVELT_CLAUSES_COLUMN_H
#define QARVELT_CLAUSES_COLUMN_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// The column operations of ALTER TABLE, one per statement: "C_ADD_COLUMN" with "C_MOD_COLUMN",
// "C_DROP_COLUMN", "C_RENAME_COLUMN", or one of the lists "LIST_COL", "LIST_LOB", "LIST_VAR".
class CSQLClauseColumn : public Cloneable<CSQLClauseColumn> {
 public:
  explicit CSQLClauseColumn(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// The identity clause of a column ("C_IDENTITY", Oracle 12c): "GENERATED" holds ALWAYS, BY DEFAULT
// or BY DEFAULT ON NULL and writes GENERATED ... AS IDENTITY; the options follow in brackets:
// "START" (START WITH n), "INCREMENT" (INCREMENT BY n), "MAXVALUE", "MINVALUE", "CACHE" (CACHE n),
// "NOCACHE", "CYCLE" (CYCLE or NOCYCLE) and "ORDER" (ORDER or NOORDER).
class CSQLClauseIdentity : public Cloneable<CSQLClauseIdentity> {
 public:
  explicit CSQLClauseIdentity(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// RENAME COLUMN "OLDNAME" TO "NEWNAME" ("C_RENAME_COLUMN").
class CSQLClauseRenameColumn : public Cloneable<CSQLClauseRenameColumn> {
 public:
  explicit CSQLClauseRenameColumn(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// Column properties ("C_COLUMN_PROP"): nothing below release code 6; at 6 one of the object type,
// nested table, varray and LOB storage properties; from 7 the list "LISTLOB" of CSubSQLItem or
// CSubSQLItemLOB items, one property each.
class CSQLClauseColumnProp : public Cloneable<CSQLClauseColumnProp> {
 public:
  explicit CSQLClauseColumnProp(bool bInit = true, int nOraVersion = 7);

  // One property: object type, nested table, or varray / LOB storage.
  class CSubSQLItem : public Cloneable<CSubSQLItem> {
   public:
    CSubSQLItem(const char* name, int nOraVersion);
    explicit CSubSQLItem(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // One LOB storage clause ("C_LOB_STORAGE").
  class CSubSQLItemLOB : public Cloneable<CSubSQLItemLOB> {
   public:
    explicit CSubSQLItemLOB(const char* name);
    explicit CSubSQLItemLOB(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// COLUMN name with its substitutability ("C_OBJTYPE_COLUMN_PROP").
class CSQLClauseObjTypeColumnProp : public Cloneable<CSQLClauseObjTypeColumnProp> {
 public:
  explicit CSQLClauseObjTypeColumnProp(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// NESTED TABLE item STORE AS table [( object properties physical properties )] [RETURN AS ...]
// ("C_NEST_TABLE_COLUMN_PROP"); its shape depends on the release code (none below 2).
class CSQLClauseNestTableColumnProp : public Cloneable<CSQLClauseNestTableColumnProp> {
 public:
  explicit CSQLClauseNestTableColumnProp(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ELEMENT IS OF TYPE (ONLY type), or [NOT] SUBSTITUTABLE AT ALL LEVELS ("C_SUBSTITUTABLE_COL").
class CSQLClauseSubstitutableColumn : public Cloneable<CSQLClauseSubstitutableColumn> {
 public:
  explicit CSQLClauseSubstitutableColumn(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// VARRAY item [substitutability] [STORE AS [SECUREFILE | BASICFILE] LOB [segment] [(LOB parameters)]]
// ("VARRAY_COL_PROP"); "VARRAY;SECUREFILE" from release code 7.
class CSQLClauseVarrayColProp : public Cloneable<CSQLClauseVarrayColProp> {
 public:
  explicit CSQLClauseVarrayColProp(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ADD ( column, ... ) with column properties ("C_ADD_COLUMN").
class CSQLClauseAddColumn : public Cloneable<CSQLClauseAddColumn> {
 public:
  explicit CSQLClauseAddColumn(bool bInit = true, int nOraVersion = 7);

  // One added column: "COLUMN", "DATATYPE", "DEFAULT", then inline constraints ("LIST") or one
  // inline REF constraint ("C_INLINE_REF_CONSTRAINT").
  class CSubSQLClauseColumn : public Cloneable<CSubSQLClauseColumn> {
   public:
    explicit CSubSQLClauseColumn(const char* name);
    // An item for a statement of release code `nOraVersion`: built for 7 up to Oracle 11g, and for
    // the statement's own code from Oracle 12c on, with the column syntax of that release.
    CSubSQLClauseColumn(const char* name, int nOraVersion);
    explicit CSubSQLClauseColumn(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// MODIFY with changed column properties or substitutability ("C_MOD_COLUMN").
class CSQLClauseModifyColumn : public Cloneable<CSQLClauseModifyColumn> {
 public:
  explicit CSQLClauseModifyColumn(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// Of MODIFY ("C_MOD_COL_PROP"), one or the other per pass: the columns, ( column, ... ) ("LIST"),
// or LOB storage items ("LISTLOB"), each written LOB (C) (parameters) and joined by MODIFY, so that
// the statement reads MODIFY LOB (C1) (...) MODIFY LOB (C2) (...).
class CSQLClauseModifyColProp : public Cloneable<CSQLClauseModifyColProp> {
 public:
  explicit CSQLClauseModifyColProp(bool bInit = true, int nOraVersion = 7);

  // One modified column: "COLUMN", "DATATYPE", "DEFAULT" and inline constraints ("LIST").
  class CSubSQLClauseColumn : public Cloneable<CSubSQLClauseColumn> {
   public:
    explicit CSubSQLClauseColumn(const char* name);
    // An item for a statement of release code `nOraVersion`: built for 7 up to Oracle 11g, and for
    // the statement's own code from Oracle 12c on, with the column syntax of that release.
    CSubSQLClauseColumn(const char* name, int nOraVersion);
    explicit CSubSQLClauseColumn(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// COLUMN name [NOT] SUBSTITUTABLE AT ALL LEVELS [FORCE] ("C_MOD_COLUMN_SUBS").
class CSQLClauseModifyColSubs : public Cloneable<CSQLClauseModifyColSubs> {
 public:
  explicit CSQLClauseModifyColSubs(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// SET UNUSED COLUMN c | (c1,c2) [CASCADE CONSTRAINTS] [INVALIDATE], or DROP COLUMN c | (c1,c2) |
// UNUSED COLUMNS | COLUMNS CONTINUE [CASCADE CONSTRAINTS] [INVALIDATE] [CHECKPOINT n]
// ("C_DROP_COLUMN").
class CSQLClauseDropColumn : public Cloneable<CSQLClauseDropColumn> {
 public:
  explicit CSQLClauseDropColumn(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CLAUSES_COLUMN_H
