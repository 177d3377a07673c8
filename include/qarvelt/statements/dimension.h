// CREATE DIMENSION ("C_CREATE_DIMENSION"): the dimension's "SCHEMA" and "DIMENSION", then three
// lists of host-appended items, written in this order:
//   "LIST_LEVEL"      of CSubSQLItemLevel      LEVEL CITY IS (CUSTOMERS.CITY) SKIP WHEN NULL
//   "LIST_HIERARCHY"  of CSubSQLItemHierarchy  HIERARCHY GEOG (CITY CHILD OF STATE
//                                                JOIN KEY (CUSTOMERS.STATE) REFERENCES STATE)
//   "LIST_ATTRIBUTE"  of CSubSQLItemAttribute  ATTRIBUTE CITY DETERMINES (CUSTOMERS.CITY_NAME)
//
//   CREATE DIMENSION SH.CUSTOMERS_DIM LEVEL CUSTOMER IS (CUSTOMERS.CUST_ID) LEVEL CITY IS
//   (CUSTOMERS.CUST_CITY) HIERARCHY GEOG_ROLLUP (CUSTOMER CHILD OF CITY) ATTRIBUTE CUSTOMER
//   DETERMINES (CUSTOMERS.CUST_LAST_NAME)
//
// Release gates (the release code against the Oracle release):
//   below 2  (Oracle 7, 8.0): dimensions do not exist; the tree is empty, every path is refused and
//            the statement writes its head CREATE alone.
//   2        (Oracle 8i): levels, hierarchies with join keys, ATTRIBUTE level DETERMINES.
//   5        (Oracle 10g Release 1): SKIP WHEN NULL on a level, and the named attribute
//            ATTRIBUTE attribute LEVEL level DETERMINES (...).
// Column lists hold plain leaves (the host's CSQLAttr items, each holding a table.column or a
// column), written in brackets with "," between them. Nothing is checked: a dimension without a
// level is written as it stands.
#ifndef QARVELT_STATEMENTS_DIMENSION_H
#define QARVELT_STATEMENTS_DIMENSION_H

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

class CSQLCreateDimension : public CreateStatement<CSQLCreateDimension> {
 public:
  explicit CSQLCreateDimension(bool bInit = true, int nOraVersion = 7);

  // One level: "LEVEL" (its name), the list "LIST" of its columns (written IS (...)) and, from 5,
  // "SKIP" (the keyword SKIP, written SKIP WHEN NULL).
  class CSubSQLItemLevel : public Cloneable<CSubSQLItemLevel> {
   public:
    // Built for a release code, so that the level of a 10g dimension can skip nulls.
    explicit CSubSQLItemLevel(const char* name, int nOraVersion = 7);
    // The clone shell (bInit false); with bInit true, an unnamed item.
    explicit CSubSQLItemLevel(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // One hierarchy: "HIERARCHY" (its name), then in brackets the list "LIST" of its levels, child
  // first (written with CHILD OF between them), and the list "LIST_JOIN_KEY" of CSubSQLItemJoinKey.
  class CSubSQLItemHierarchy : public Cloneable<CSubSQLItemHierarchy> {
   public:
    explicit CSubSQLItemHierarchy(const char* name);
    explicit CSubSQLItemHierarchy(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // One join of a hierarchy: the list "LIST" of child key columns (written JOIN KEY (...)) and
  // "REFERENCES" (the parent level).
  class CSubSQLItemJoinKey : public Cloneable<CSubSQLItemJoinKey> {
   public:
    explicit CSubSQLItemJoinKey(const char* name);
    explicit CSubSQLItemJoinKey(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // One attribute: "ATTRIBUTE" (the level, or from 5 the attribute's own name), from 5 "LEVEL" (the
  // level of a named attribute, written LEVEL ...), then the list "LIST" of dependent columns
  // (written DETERMINES (...)).
  class CSubSQLItemAttribute : public Cloneable<CSubSQLItemAttribute> {
   public:
    explicit CSubSQLItemAttribute(const char* name, int nOraVersion = 7);
    explicit CSubSQLItemAttribute(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_DIMENSION_H
