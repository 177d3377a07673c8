// CREATE CLUSTER ("C_CREATE_CLUSTER") and ALTER CLUSTER ("C_ALTER_CLUSTER").
//
//   CREATE CLUSTER SCOTT.EMP_DEPT (DEPTNO NUMBER (2)) SIZE 600 TABLESPACE USERS STORAGE (INITIAL 64K)
//   CREATE CLUSTER SCOTT.ORDERS (ORDER_ID NUMBER) SINGLE TABLE HASHKEYS 1000 HASH IS ORDER_ID
//   ALTER CLUSTER SCOTT.EMP_DEPT PCTFREE 30 SIZE 1K CACHE
//   ALTER CLUSTER SCOTT.EMP_DEPT DEALLOCATE UNUSED KEEP 1M
//
// Release gates (the release code a piece of syntax needs, and the Oracle release it stands for):
//   0  Oracle 7          everything not listed below
//   1  Oracle 8.0        CACHE / NOCACHE of ALTER CLUSTER
//   2  Oracle 8i         SINGLE TABLE hash clusters
//   5  Oracle 10g R1     ROWDEPENDENCIES / NOROWDEPENDENCIES
// The physical attributes and the parallel clause are built with the statement's own release code
// (BUFFER_POOL in STORAGE from code 2; PARALLEL n from code 3, PARALLEL (DEGREE n) below it).
//
// Keyword leaves take the keyword itself as their value: INDEX, SINGLE, CACHE (CACHE or NOCACHE),
// ROWDEPENDENCIES (ROWDEPENDENCIES or NOROWDEPENDENCIES). Nothing is checked: a statement missing a
// mandatory part is written as it stands.
#ifndef QARVELT_STATEMENTS_CLUSTER_H
#define QARVELT_STATEMENTS_CLUSTER_H

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

// The tree, in Oracle's order:
//   "SCHEMA" and "CLUSTER" after the keyword CLUSTER (CLUSTER S.C);
//   "LIST_COLUMN"               the cluster key, a list of CSubSQLItemColumn, in brackets;
//   "C_PHYSICAL_ATTRIBUTES"     PCTFREE, PCTUSED, INITRANS, MAXTRANS and its "C_STORAGE";
//   "SIZE"                      SIZE n;
//   "TABLESPACE"                TABLESPACE t;
//   one of "INDEX" (the keyword INDEX) and the hash cluster: "SINGLE" (written SINGLE TABLE, from
//     code 2), "HASHKEYS" (HASHKEYS n), "HASH" (HASH IS expr); INDEX wins when both are given;
//   "C_PARALLEL", "ROWDEPENDENCIES" (from code 5), "CACHE".
class CSQLCreateCluster : public CreateStatement<CSQLCreateCluster> {
 public:
  explicit CSQLCreateCluster(bool bInit = true, int nOraVersion = 7);

  // One column of the cluster key: "COLUMN" and its "DATATYPE" (a CSQLAttrDataType with
  // "DATATYPE;LENGTH", "DATATYPE;SCALE", "DATATYPE;UNIT").
  class CSubSQLItemColumn : public Cloneable<CSubSQLItemColumn> {
   public:
    explicit CSubSQLItemColumn(const char* name);
    explicit CSubSQLItemColumn(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// "SCHEMA" and "CLUSTER", then one alteration per pass, the first that has text of:
//   the attributes, written together: "C_PHYSICAL_ATTRIBUTES", "SIZE", "CACHE" (from code 1),
//     "C_PARALLEL";
//   "C_ALLOCATE_EXTENT";
//   "C_DEALLOCATE_UNUSED".
// A tree with nothing set beyond the cluster's names writes nothing at all.
class CSQLAlterCluster : public AlterStatement<CSQLAlterCluster> {
 public:
  static constexpr const char* kVerb = "ALTER CLUSTER";
  static constexpr const char* kNameLeaf = "CLUSTER";

  explicit CSQLAlterCluster(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_CLUSTER_H
