// LOB storage: how LOB and varray columns are stored, in CREATE TABLE, in table and partition
// clauses and in ALTER TABLE ... MODIFY LOB.
//
//   C_LOB_STORAGE        LOB (C) STORE AS SEG (TABLESPACE X CHUNK 8192), LOB (C1,C2) STORE AS (...)
//   C_LOB_PARAMETER      TABLESPACE, ENABLE / DISABLE STORAGE IN ROW, STORAGE (...), CHUNK, PCTVERSION,
//                        RETENTION, FREEPOOLS, CACHE / NOCACHE / CACHE READS with LOGGING / NOLOGGING
//   C_LOB_ITEM           a LOB column or a varray column with its parameters: LOB (C) (TABLESPACE X)
//   C_LOB_ITEMB          the same, the parameters in a container so that a host can add beside them
//   C_MOD_LOB_STORAGE    MODIFY LOB (C) (PCTVERSION 10 CACHE)
//
// A list of LOB items written where storage is described (a partition's description, MOVE) writes
// its items LOB (C) STORE AS (...) and VARRAY V STORE AS LOB (...); a list where the attributes of a
// partition, a subpartition or a column change writes them LOB (C) (...), without MODIFY or STORE AS.
//   C_MOD_LOB_PARAMETER  the parameters that MODIFY LOB can change, extents included
//
// Both parameter classes build their storage clause at release code 0, whatever their own code, so a
// LOB segment's storage never offers BUFFER_POOL.
#ifndef QARVELT_CLAUSES_LOB_H
#define QARVELT_CLAUSES_LOB_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// One alternative per pass, "LOB " before it: the list form (LIST of column leaves, one parameter set
// for all, no segment name) or the single-item form ("LOBITEM" with "LOBITEM;C_LOB_PARAMETER", or
// "LOBITEM;LOBSEG" with "LOBITEM;LOBSEG;C_LOB_PARAMETER"). The list form comes first.
class CSQLClauseLOBStorage : public Cloneable<CSQLClauseLOBStorage> {
 public:
  explicit CSQLClauseLOBStorage(bool bInit = true, int nOraVersion = 7);
  explicit CSQLClauseLOBStorage(const char* name);

 protected:
  void init() override;
};

// Bare-keyword leaves take the whole keyword as value: "ENABLE" (ENABLE or DISABLE, STORAGE IN ROW
// follows), "RETENTION", "CACHE" (CACHE, NOCACHE, CACHE READS) and its children "READS" and "LOGGING".
class CSQLClauseLOBParameter : public Cloneable<CSQLClauseLOBParameter> {
 public:
  explicit CSQLClauseLOBParameter(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// "LOB" (the column, written LOB (C) (...)) or "VARRAY" (VARRAY V (...)), each with a C_LOB_PARAMETER
// below it, in brackets.
class CSQLClauseLOBItem : public Cloneable<CSQLClauseLOBItem> {
 public:
  explicit CSQLClauseLOBItem(bool bInit = true, int nOraVersion = 7);
  explicit CSQLClauseLOBItem(const char* name);

 protected:
  void init() override;
};

// As CSQLClauseLOBItem, with each C_LOB_PARAMETER inside an unnamed container under its leaf.
class CSQLClauseLOBItemB : public Cloneable<CSQLClauseLOBItemB> {
 public:
  explicit CSQLClauseLOBItemB(bool bInit = true, int nOraVersion = 7);
  explicit CSQLClauseLOBItemB(const char* name);

 protected:
  void init() override;
};

// "LOBITEM" (the column) and, bracketed beside it, a C_MOD_LOB_PARAMETER.
class CSQLClauseModifyLOBStorage : public Cloneable<CSQLClauseModifyLOBStorage> {
 public:
  explicit CSQLClauseModifyLOBStorage(bool bInit = true, int nOraVersion = 7);
  explicit CSQLClauseModifyLOBStorage(const char* name);

 protected:
  void init() override;
};

// "REBUILD" holds REBUILD and is written REBUILD FREEPOOLS.
class CSQLClauseModifyLOBParameter : public Cloneable<CSQLClauseModifyLOBParameter> {
 public:
  explicit CSQLClauseModifyLOBParameter(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CLAUSES_LOB_H
