// CREATE TABLE: a relational table (columns and out-of-line constraints as items of the list
// "C_RELATIONAL_PROP;LIST") or an object table (TABLE ... OF type), either of them temporary when
// "TEMPORARY" holds TEMPORARY (GLOBAL TEMPORARY TABLE ... ON COMMIT ... ROWS).
//
//   CREATE GLOBAL TEMPORARY TABLE SCOTT.T (A NUMBER,
//   B DATE) ON COMMIT PRESERVE ROWS
//
// Paths, containers left out: "C_RELATIONAL_TABLE;TEMPORARY", "C_RELATIONAL_TABLE;SCHEMA",
// "C_RELATIONAL_TABLE;TABLE", "C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;<item>;...",
// "C_RELATIONAL_TABLE;COMMIT", "C_RELATIONAL_TABLE;C_PHYSICAL_PROP;...",
// "C_RELATIONAL_TABLE;C_TABLE_PROP;..."; the object table likewise under "C_OBJECT_TABLE" (from release code
// 2), with "OBJECT_TYPE", "TYPE_SCHEMA", "C_OBJECT_PROPERTY", "OID", "OIDIDX".
//
// ON COMMIT is written for a relational table only when it is temporary. The object table carries two
// "COMMIT" leaves: the one that paths reach writes ON COMMIT whenever it is set.
#ifndef QARVELT_STATEMENTS_CREATE_TABLE_H
#define QARVELT_STATEMENTS_CREATE_TABLE_H

#include "qarvelt/statements/statement.h"

namespace qarvelt {

class CSQLCreateTable : public CreateStatement<CSQLCreateTable> {
 public:
  explicit CSQLCreateTable(bool bInit = true, int nOraVersion = 7);

  // One column ("COLUMN", "DATATYPE", "COLLATE" (from 9), "VISIBILITY" (INVISIBLE or VISIBLE, from
  // 8), "DEFAULT" or "DEFAULT_ON_NULL" (from 8), "C_IDENTITY" (from 8), "VIRTUAL" (the expression of a
  // virtual column, from 7), inline constraints "LIST") or one out-of-line
  // constraint ("C_OUTLINE_CONSTRAINT", "C_OUTLINE_REF_CONSTRAINT") or supplemental logging property
  // ("C_SUPPLEMENTAL_LG_PROP") of a relational table.
  class CSubSQLItemProp : public Cloneable<CSubSQLItemProp> {
   public:
    explicit CSubSQLItemProp(const char* name);
    // An item for a statement of release code `nOraVersion`: up to code 7 the item is built for 7,
    // as the named constructor builds it; from 8 on for the code itself, with the column syntax of
    // that release (IDENTITY, DEFAULT ON NULL, INVISIBLE from 8, COLLATE from 9).
    CSubSQLItemProp(const char* name, int nOraVersion);
    explicit CSubSQLItemProp(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // After-prefix callback of the ON COMMIT leaf: ends the leaf with no text unless the linked
  // TEMPORARY leaf holds TEMPORARY. Without a linked leaf the ON COMMIT clause is written as it is.
  static int CbTemporaryOnly(std::string& text, std::string& value, std::string& initial, CSQLClause* linked);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_CREATE_TABLE_H
