// Storage and physical attributes: the segment clauses that tables, indexes, clusters, partitions
// and LOB segments share.
//
//   C_STORAGE              STORAGE (INITIAL 64K NEXT 64K MAXEXTENTS UNLIMITED ...)
//   C_PHYSICAL_ATTRIBUTES  PCTFREE, PCTUSED, INITRANS, MAXTRANS and a C_STORAGE
//   C_SEG_ATTRIBUTE        TABLESPACE, C_PHYSICAL_ATTRIBUTES, LOGGING / NOLOGGING
//   C_PARALLEL             PARALLEL 4, NOPARALLEL; PARALLEL (DEGREE 4 INSTANCES 2) below release code 3
//   C_ALLOCATE_EXTENT      ALLOCATE EXTENT (SIZE 10M DATAFILE 'x.dbf' INSTANCE 2)
//   C_DEALLOCATE_UNUSED    DEALLOCATE UNUSED KEEP 10K
//   C_KEY_COMPRESSION      COMPRESS 2, NOCOMPRESS
//   C_EXCEPTIONS           EXCEPTIONS INTO S.T
//
// Storage and physical attributes default to release code 0, where the storage clause has no
// BUFFER_POOL: a host that wants it constructs them with a later code.
#ifndef QARVELT_CLAUSES_STORAGE_H
#define QARVELT_CLAUSES_STORAGE_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// Leaves: INITIAL, NEXT, MINEXTENTS, MAXEXTENTS, PCTINCREASE, FREELISTS, FREELIST (written FREELIST
// GROUPS), OPTIMAL, and BUFFER_POOL from release code 2. Values are written as given (64K, UNLIMITED).
class CSQLClauseStorage : public Cloneable<CSQLClauseStorage> {
 public:
  explicit CSQLClauseStorage(bool bInit = true, int nOraVersion = 0);

 protected:
  void init() override;
  // "STORAGE (" when anything below is modified ...
  int preModifiedSQL(const char* path, std::string& text) override;
  // ... and ")" after it; a storage clause with nothing modified writes nothing.
  int postModifiedSQL(const char* path, std::string& text) override;
};

class CSQLClausePhysicalAttr : public Cloneable<CSQLClausePhysicalAttr> {
 public:
  explicit CSQLClausePhysicalAttr(bool bInit = true, int nOraVersion = 0);

 protected:
  void init() override;
};

// LOGGING is a bare keyword: the host sets LOGGING or NOLOGGING.
class CSQLClauseSegmentAttribute : public Cloneable<CSQLClauseSegmentAttribute> {
 public:
  explicit CSQLClauseSegmentAttribute(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// From release code 3: "PARALLEL" (PARALLEL or NOPARALLEL) and "PARALLEL;VALUE", an integer degree.
// Below 3: "PARALLEL" and the list "PARALLEL;LIST" of CSubSQLItem, written in brackets.
class CSQLClauseParallel : public Cloneable<CSQLClauseParallel> {
 public:
  explicit CSQLClauseParallel(bool bInit = true, int nOraVersion = 7);

  // One keyword of the old form: "DEGREE" holds the keyword (DEGREE or INSTANCES), "DEGREE;VALUE"
  // its integer.
  class CSubSQLItem : public Cloneable<CSubSQLItem> {
   public:
    explicit CSubSQLItem(const char* name);
    explicit CSubSQLItem(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// "EXTENT" holds EXTENT; "EXTENT;DATAFILE" is quoted by the leaf itself.
class CSQLClauseAllocateExtent : public Cloneable<CSQLClauseAllocateExtent> {
 public:
  explicit CSQLClauseAllocateExtent(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// "UNUSED" holds UNUSED; "KEEP" an optional size.
class CSQLClauseDeallocateUnused : public Cloneable<CSQLClauseDeallocateUnused> {
 public:
  explicit CSQLClauseDeallocateUnused(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// "COMPRESS" holds COMPRESS or NOCOMPRESS, "COMPRESS;VALUE" the prefix length, which NOCOMPRESS drops.
class CSQLClauseKeyCompression : public Cloneable<CSQLClauseKeyCompression> {
 public:
  explicit CSQLClauseKeyCompression(bool bInit = true, int nOraVersion = 7);

  // After-prefix callback of the "COMPRESS" leaf: ends the leaf (returns 1) when its text is exactly
  // NOCOMPRESS, so that no prefix length follows.
  static int CbAfterPrefix(std::string& text, std::string& value, std::string& initial, CSQLClause* node);

 protected:
  void init() override;
};

// "SCHEMA" and "TABLE" of the exceptions table.
class CSQLClauseExceptions : public Cloneable<CSQLClauseExceptions> {
 public:
  explicit CSQLClauseExceptions(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CLAUSES_STORAGE_H
