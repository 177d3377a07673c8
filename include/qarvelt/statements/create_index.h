// CREATE INDEX: an index on a cluster, a B-tree or bitmap index on table columns or expressions,
// partitioned globally (by range or hash) or locally, or a domain index with its index type.
//
//   CREATE UNIQUE INDEX S.I ON S.T (A,B DESC) TABLESPACE IDX LOCAL ( PARTITION P1 TABLESPACE T1,...)
//   CREATE INDEX I ON T (DOC) INDEXTYPE IS CTXSYS.CONTEXT PARAMETERS ('SYNC (ON COMMIT)')
//
// Paths, containers left out: "TYPE" (UNIQUE, BITMAP), "SCHEMA", "INDEX"; "C_CLUSTER_INDEX;CLUSTER";
// "C_TABLE_INDEX;TABLE", "C_TABLE_INDEX;LIST" (CSubSQLItemIndexExpr items), "C_TABLE_INDEX;
// C_INDEX_ATTRIBUTES;...", "C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LIST" and ";LISTPART"
// (CSubSQLItemGlobalPartitioning items), "C_TABLE_INDEX;C_GLOBAL_PARTED;C_HASH_PART;...",
// "C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL;C_ON_RANGE;LIST" (and C_ON_LIST, C_ON_HASH with LISTTAB,
// C_ON_COMP with CSubSQLItemCompPartition items), "C_TABLE_INDEX;C_DOMAIN_INDEX;INDEXTYPE".
#ifndef QARVELT_STATEMENTS_CREATE_INDEX_H
#define QARVELT_STATEMENTS_CREATE_INDEX_H

#include "qarvelt/statements/statement.h"

namespace qarvelt {

class CSQLCreateIndex : public CreateStatement<CSQLCreateIndex> {
 public:
  explicit CSQLCreateIndex(bool bInit = true, int nOraVersion = 7);

  // One indexed column ("COLUMN") or expression ("EXPR") with its sort keyword ("ASC": ASC or DESC).
  class CSubSQLItemIndexExpr : public Cloneable<CSubSQLItemIndexExpr> {
   public:
    explicit CSubSQLItemIndexExpr(const char* name);
    explicit CSubSQLItemIndexExpr(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // PARTITION name with segment attributes, of a local index.
  class CSubSQLItemPartition : public Cloneable<CSubSQLItemPartition> {
   public:
    explicit CSubSQLItemPartition(const char* name);
    explicit CSubSQLItemPartition(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // SUBPARTITION name with segment attributes, of a composite partition.
  class CSubSQLItemSubPartition : public Cloneable<CSubSQLItemSubPartition> {
   public:
    explicit CSubSQLItemSubPartition(const char* name);
    explicit CSubSQLItemSubPartition(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // PARTITION name with segment attributes and its subpartitions ("C_IDX_SUBPART": "LISTTAB" of
  // tablespaces, "LIST" of CSubSQLItemSubPartition items).
  class CSubSQLItemCompPartition : public Cloneable<CSubSQLItemCompPartition> {
   public:
    explicit CSubSQLItemCompPartition(const char* name);
    explicit CSubSQLItemCompPartition(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // PARTITION name VALUES LESS THAN (values) with segment attributes, of a global range index.
  class CSubSQLItemGlobalPartitioning : public Cloneable<CSubSQLItemGlobalPartitioning> {
   public:
    explicit CSubSQLItemGlobalPartitioning(const char* name);
    explicit CSubSQLItemGlobalPartitioning(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_CREATE_INDEX_H
