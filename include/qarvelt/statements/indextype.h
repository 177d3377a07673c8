// CREATE OPERATOR ("C_CREATE_OPERATOR"), CREATE INDEXTYPE ("C_CREATE_INDEXTYPE") and ALTER INDEXTYPE
// ("C_ALTER_INDEXTYPE"): the operators and index types of domain indexes.
//
//   CREATE OR REPLACE OPERATOR CTX.CONTAINS BINDING (VARCHAR2,VARCHAR2) RETURN NUMBER
//     WITH INDEX CONTEXT, SCAN CONTEXT CTX.TEXTINDEXMETHODS USING CTX.TEXTCONTAINS
//   CREATE INDEXTYPE CTX.CONTEXT FOR CTX.CONTAINS (VARCHAR2,VARCHAR2) USING CTX.TEXTINDEXMETHODS
//     WITH LOCAL RANGE PARTITION
//   ALTER INDEXTYPE CTX.CONTEXT ADD CTX.CONTAINS (CLOB,VARCHAR2) USING CTX.TEXTINDEXMETHODS
//   ALTER INDEXTYPE CTX.CONTEXT COMPILE
//
// Release gates (the release code against the Oracle release):
//   below 2  (Oracle 7, 8.0): operators and index types do not exist; CREATE OPERATOR and CREATE
//            INDEXTYPE have an empty tree and write their head CREATE alone.
//   2        (Oracle 8i): CREATE OPERATOR whole (but WITH COLUMN CONTEXT); CREATE INDEXTYPE with FOR and
//            USING.
//   3        (Oracle 9i Release 1): ALTER INDEXTYPE (below 3 its tree is empty and it writes nothing);
//            WITH LOCAL RANGE PARTITION.
//   5        (Oracle 10g Release 1): OR REPLACE of CREATE INDEXTYPE; WITH or WITHOUT ARRAY DML after
//            USING; WITH COLUMN CONTEXT of an operator binding.
//   7        (Oracle 11g): WITH LOCAL PARTITION without RANGE; WITH SYSTEM or USER MANAGED STORAGE
//            TABLES.
// Lists of argument types hold plain leaves (the host's CSQLAttr items, one type each), written in
// brackets with "," between them. Nothing is checked: a missing mandatory part is written as it
// stands.
#ifndef QARVELT_STATEMENTS_INDEXTYPE_H
#define QARVELT_STATEMENTS_INDEXTYPE_H

#include <string>

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

// "REPLACE" (the keyword REPLACE, written OR REPLACE), "SCHEMA" and "OPERATOR" after "OPERATOR", then
// the list "LIST_BINDING" of CSubSQLItemBinding, written after BINDING with ", " between bindings.
class CSQLCreateOperator : public CreateStatement<CSQLCreateOperator> {
 public:
  explicit CSQLCreateOperator(bool bInit = true, int nOraVersion = 7);

  // One binding: the list "LIST" of argument types in brackets, "RETURN" (the return type), one
  // implementation of
  //   "C_ANCILLARY": the list "LIST_ANCILLARY" of CSubSQLItemAncillary, written ANCILLARY TO ...;
  //   "C_CONTEXT": "SCAN" (the implementation type, written WITH INDEX CONTEXT, SCAN CONTEXT ...)
  //     with "SCAN;COMPUTE" (the keyword COMPUTE, written COMPUTE ANCILLARY DATA), then from 5
  //     "COLUMN" (the keyword COLUMN, written WITH COLUMN CONTEXT);
  // and the function after USING: "SCHEMA", "PACKAGE" (a package or type) and "FUNCTION".
  class CSubSQLItemBinding : public Cloneable<CSubSQLItemBinding> {
   public:
    // Built for a release code, so that a 10g binding can take WITH COLUMN CONTEXT.
    explicit CSubSQLItemBinding(const char* name, int nOraVersion = 7);
    // The clone shell (bInit false); with bInit true, an unnamed item.
    explicit CSubSQLItemBinding(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // The primary operator of an ancillary binding: "SCHEMA", "OPERATOR" and the list "LIST" of its
  // argument types in brackets.
  class CSubSQLItemAncillary : public Cloneable<CSubSQLItemAncillary> {
   public:
    explicit CSubSQLItemAncillary(const char* name);
    explicit CSubSQLItemAncillary(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// From 5 "REPLACE" (written OR REPLACE), then "SCHEMA" and "INDEXTYPE" after "INDEXTYPE", the list
// "LIST_FOR" of CSubSQLItemOperator (written FOR ..., ", " between operators), the implementation
// type "C_USING_TYPE", from 3 "LOCAL" (the keyword LOCAL, written WITH LOCAL RANGE PARTITION; from 7
// written WITH LOCAL PARTITION, with "LOCAL;RANGE" holding RANGE when wanted), and from 7 "MANAGED"
// (SYSTEM or USER, written WITH ... MANAGED STORAGE TABLES).
//
// "C_USING_TYPE", shared with ALTER INDEXTYPE: "SCHEMA" and "TYPE" after USING, then from 5 "DML"
// (WITH or WITHOUT, written WITH ARRAY DML) with the list "DML;LIST" of CSubSQLItemArrayDML.
class CSQLCreateIndexType : public CreateStatement<CSQLCreateIndexType> {
 public:
  explicit CSQLCreateIndexType(bool bInit = true, int nOraVersion = 7);

  // One operator the index type supports: "SCHEMA", "OPERATOR" and the list "LIST" of its argument
  // types in brackets.
  class CSubSQLItemOperator : public Cloneable<CSubSQLItemOperator> {
   public:
    explicit CSubSQLItemOperator(const char* name);
    explicit CSubSQLItemOperator(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // One pair of an array DML clause, in brackets: "SCHEMA" and "TYPE", then "SCHEMA2" and "VARRAY"
  // (the varray type of that type), written after ",".
  class CSubSQLItemArrayDML : public Cloneable<CSubSQLItemArrayDML> {
   public:
    explicit CSubSQLItemArrayDML(const char* name);
    explicit CSubSQLItemArrayDML(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// "SCHEMA" and "INDEXTYPE", then one alteration of (the first that has text, per pass):
//   the list "LIST_ADD_DROP" of CSubSQLItemOperator (", " between them) with "C_USING_TYPE" (as in
//   CREATE INDEXTYPE);
//   "COMPILE" (the keyword COMPILE).
// A tree with nothing set beyond the index type's names, with or without the schema, writes nothing
// at all.
class CSQLAlterIndexType : public AlterStatement<CSQLAlterIndexType> {
 public:
  static constexpr const char* kVerb = "ALTER INDEXTYPE";
  static constexpr const char* kNameLeaf = "INDEXTYPE";

  explicit CSQLAlterIndexType(bool bInit = true, int nOraVersion = 7);

  // One operator binding added or dropped: one of "ADD" and "DROP" (each holding its keyword), then
  // "SCHEMA", "OPERATOR" and the list "LIST" of argument types in brackets.
  class CSubSQLItemOperator : public Cloneable<CSubSQLItemOperator> {
   public:
    explicit CSubSQLItemOperator(const char* name);
    explicit CSubSQLItemOperator(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_INDEXTYPE_H
