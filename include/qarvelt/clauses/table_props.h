// Table physical properties and the table-level ALTER clauses: organization (heap, index-organized,
// external, cluster), the table properties that follow the columns of CREATE TABLE, and the ALTER
// TABLE pieces for index-organized tables, external tables, supplemental logging and MOVE.
//
//   C_PHYSICAL_PROP         TABLESPACE T PCTFREE 5 COMPRESS, ORGANIZATION INDEX PCTTHRESHOLD 20 ...,
//                           ORGANIZATION EXTERNAL (TYPE ORACLE_LOADER ...) REJECT LIMIT 10, CLUSTER C (A)
//   C_TABLE_PROP            CACHE MONITORING PARALLEL 4 ENABLE ROW MOVEMENT AS SELECT ...
//   C_IDX_ORG_TABLE         PCTTHRESHOLD 20 COMPRESS 1 MAPPING TABLE INCLUDING C OVERFLOW TABLESPACE T
//   C_EXT_DATA_PROP         (TYPE ... DEFAULT DIRECTORY D ACCESS PARAMETERS (...) LOCATION (D:'f.csv'))
//   C_ALTER_IOT             PCTTHRESHOLD 30, COALESCE, or one of the three clauses below
//   C_ALTER_OVERFLOW        OVERFLOW PCTFREE 10 ALLOCATE EXTENT
//   C_ADD_OVERFLOW          ADD OVERFLOW TABLESPACE T
//   C_ALTER_MAPPING_TABLE   MAPPING TABLE UPDATE BLOCK REFERENCES
//   C_ALT_EXT_TAB           DEFAULT DIRECTORY D LOCATION ('g.csv') PROJECT COLUMN REFERENCED
//   C_SUPPLEMENTAL_LG_GRP   ADD SUPPLEMENTAL LOG GROUP G (A,B) ALWAYS
//   C_SUPPLEMENTAL_LG_PROP  SUPPLEMENTAL LOG DATA (PRIMARY KEY) COLUMNS
//   C_MOVE_TABLE            MOVE ONLINE TABLESPACE T COMPRESS PARALLEL 2
//
// Leaves are named by their Oracle keywords. A leaf with no prefix is a bare keyword: the host gives
// the whole keyword (CACHE or NOCACHE, LOGGING or NOLOGGING, MAPPING TABLE or NOMAPPING, ...). Column
// lists are "LIST" nodes written (A,B) whose items are leaves holding the column names. Nested
// clauses are built with the clause's own release code; what Oracle added in later releases is gated
// by release code (see the release table in the README), so its paths are missing below that code.
#ifndef QARVELT_CLAUSES_TABLE_PROPS_H
#define QARVELT_CLAUSES_TABLE_PROPS_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// The physical properties of a table ("C_PHYSICAL_PROP"), one of:
//   "C_SEG_ATTRIBUTE" and, from release code 4, table compression "COMPRESS";
//   ORGANIZATION with one of the bare-keyword leaves (from release code 1):
//     "HEAP" with "HEAP;C_SEG_ATTRIBUTE" and, from 4, "HEAP;COMPRESS";
//     "INDEX" with "INDEX;C_SEG_ATTRIBUTE" and "INDEX;C_IDX_ORG_TABLE";
//     "EXTERNAL" with "EXTERNAL;C_EXT_DATA_PROP" (from 3);
//   "CLUSTER" (the cluster's name) with its columns "CLUSTER;LIST".
// The forms are alternatives: the first that has text is written, so the segment attributes of an
// organized table go under its "HEAP" or "INDEX" leaf, not under the clause itself.
class CSQLClausePhysicalProp : public Cloneable<CSQLClausePhysicalProp> {
 public:
  explicit CSQLClausePhysicalProp(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// The table properties after the physical ones ("C_TABLE_PROP"), in Oracle's order: column properties
// "C_COLUMN_PROP", partitioning "C_TABLE_PART" (from release code 1), "CACHE", "MONITORING" (from 2),
// "C_PARALLEL", "ROWDEPENDENCIES" (from 5), the list "LIST" of CSQLClauseEnableDisable items (one
// ENABLE or DISABLE constraint clause each, separated by blanks), "MOVEMENT" (ENABLE or DISABLE,
// written with ROW MOVEMENT; from 2) and "AS" (the subquery).
class CSQLClauseTableProp : public Cloneable<CSQLClauseTableProp> {
 public:
  explicit CSQLClauseTableProp(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// The index-organized table clause ("C_IDX_ORG_TABLE"): "PCTTHRESHOLD", "C_KEY_COMPRESSION" (from
// release code 2), "MAPPING" (MAPPING TABLE or NOMAPPING; from 3), "INCLUDING" (the column), and the
// bare keyword "OVERFLOW" with the overflow segment's "OVERFLOW;C_SEG_ATTRIBUTE".
class CSQLClauseIdxOrgTable : public Cloneable<CSQLClauseIdxOrgTable> {
 public:
  explicit CSQLClauseIdxOrgTable(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ALTER TABLE of an index-organized table ("C_ALTER_IOT"); nothing below release code 1. One of:
// "PCTTHRESHOLD" with "C_KEY_COMPRESSION" (from 2), "C_ALTER_OVERFLOW", "C_ADD_OVERFLOW",
// "C_ALTER_MAPPING_TABLE" (from 3), "COALESCE" (the bare keyword; from 2).
class CSQLClauseAlterIOT : public Cloneable<CSQLClauseAlterIOT> {
 public:
  explicit CSQLClauseAlterIOT(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// OVERFLOW with changed attributes of the overflow segment ("C_ALTER_OVERFLOW"):
// "C_PHYSICAL_ATTRIBUTES", "LOGGING" (from release code 2), "C_ALLOCATE_EXTENT",
// "C_DEALLOCATE_UNUSED". OVERFLOW is written whenever one of them is, and only then.
class CSQLClauseAlterOverflow : public Cloneable<CSQLClauseAlterOverflow> {
 public:
  explicit CSQLClauseAlterOverflow(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// MAPPING TABLE followed by one of "UPDATE" (holding UPDATE, written UPDATE BLOCK REFERENCES),
// "C_ALLOCATE_EXTENT", "C_DEALLOCATE_UNUSED" ("C_ALTER_MAPPING_TABLE"). MAPPING TABLE is written
// whenever one of them is.
class CSQLClauseAlterMappingTable : public Cloneable<CSQLClauseAlterMappingTable> {
 public:
  explicit CSQLClauseAlterMappingTable(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ADD OVERFLOW ("C_ADD_OVERFLOW"): "OVERFLOW" holds OVERFLOW and is written ADD OVERFLOW; the segment
// attributes of the new overflow segment are "OVERFLOW;C_SEG_ATTRIBUTE".
class CSQLClauseAddOverflow : public Cloneable<CSQLClauseAddOverflow> {
 public:
  explicit CSQLClauseAddOverflow(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// The external data properties of ORGANIZATION EXTERNAL ("C_EXT_DATA_PROP"); nothing below release
// code 3. In brackets: "TYPE" (the access driver), "DIRECTORY" (written DEFAULT DIRECTORY), ACCESS
// PARAMETERS with one of "PARAMETERS" (the driver's parameters, bracketed by the leaf) or, from 4,
// "CLOB" (written USING CLOB before the subquery), and the list "LOCATION" of CSubSQLItem; then
// "REJECT" (written REJECT LIMIT, a number or UNLIMITED).
class CSQLClauseExtDataProp : public Cloneable<CSQLClauseExtDataProp> {
 public:
  explicit CSQLClauseExtDataProp(bool bInit = true, int nOraVersion = 7);

  // One data file of LOCATION ( ... ): "DIRECTORY" (optional) and "FILE", quoted by the leaf itself,
  // written as D: 'f.csv' or 'f.csv'.
  class CSubSQLItem : public Cloneable<CSubSQLItem> {
   public:
    explicit CSubSQLItem(const char* name);
    // The clone shell (bInit false); with bInit true, an unnamed item.
    explicit CSubSQLItem(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// ALTER TABLE of an external table ("C_ALT_EXT_TAB"); nothing below release code 3. "DIRECTORY"
// (DEFAULT DIRECTORY), ACCESS PARAMETERS "PARAMETERS" or (from 4) "CLOB", the list "LOCATION" of
// CSQLClauseExtDataProp::CSubSQLItem, "REJECT" (REJECT LIMIT) and, from 5, "PROJECT" (ALL or
// REFERENCED, written PROJECT COLUMN). Every changed property is written.
class CSQLClauseAlterExtTable : public Cloneable<CSQLClauseAlterExtTable> {
 public:
  explicit CSQLClauseAlterExtTable(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// Supplemental logging of ALTER TABLE ("C_SUPPLEMENTAL_LG_GRP"); nothing below release code 3. "ADD"
// (the bare keyword ADD or DROP), then SUPPLEMENTAL LOG with one of: "GROUP" (the group's name) with
// its columns "GROUP;LIST" and the bare keyword "GROUP;ALWAYS"; or, from 5, "DATA" (holding DATA,
// written DATA (...) COLUMNS) with the list "DATA;LIST" of leaves holding ALL, PRIMARY KEY, UNIQUE or
// FOREIGN KEY. A dropped group takes no columns.
class CSQLClauseSuppLgGrp : public Cloneable<CSQLClauseSuppLgGrp> {
 public:
  explicit CSQLClauseSuppLgGrp(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// The supplemental logging property of CREATE TABLE, an entry of the column list
// ("C_SUPPLEMENTAL_LG_PROP"); nothing below release code 3. SUPPLEMENTAL LOG with "GROUP", "GROUP;LIST",
// "GROUP;ALWAYS", or (from 5) "DATA" and "DATA;LIST", as in CSQLClauseSuppLgGrp.
class CSQLClauseSuppLgProp : public Cloneable<CSQLClauseSuppLgProp> {
 public:
  explicit CSQLClauseSuppLgProp(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// MOVE ("C_MOVE_TABLE"); nothing below release code 2. "MOVE", "ONLINE" (both bare keywords),
// "C_SEG_ATTRIBUTE", "C_KEY_COMPRESSION" (COMPRESS n of an index-organized table, or the table
// compression COMPRESS / NOCOMPRESS of a heap table), "C_IDX_ORG_TABLE", the list "LIST" of LOB
// storage items (CSQLClauseLOBStorage, CSQLClauseLOBItem, ... built by the host, separated by blanks)
// and "C_PARALLEL". The clause writes MOVE in front whenever anything in it is written; the "MOVE"
// leaf is only needed for a bare MOVE.
class CSQLClauseMoveTable : public Cloneable<CSQLClauseMoveTable> {
 public:
  explicit CSQLClauseMoveTable(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CLAUSES_TABLE_PROPS_H
