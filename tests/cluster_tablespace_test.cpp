// CREATE CLUSTER, ALTER CLUSTER, CREATE TABLESPACE and the datafile and tempfile clause they share.
#include <gtest/gtest.h>

#include "qarvelt/clauses/data_file.h"
#include "qarvelt/statements/cluster.h"
#include "qarvelt/statements/create_tablespace.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using Column = CSQLCreateCluster::CSubSQLItemColumn;

// A cluster whose key is DEPTNO NUMBER (2), then the values of the case.
template <int Release>
std::unique_ptr<CSQLClause> deptCluster() {
  auto cluster = std::make_unique<CSQLCreateCluster>(true, Release);
  cluster->AddAttr("LIST_COLUMN", new Column("DEPTNO"));
  cluster->SetValue("LIST_COLUMN;DEPTNO;COLUMN", "DEPTNO");
  cluster->SetValue("LIST_COLUMN;DEPTNO;DATATYPE", "NUMBER");
  cluster->SetValue("LIST_COLUMN;DEPTNO;DATATYPE;LENGTH", "2");
  return cluster;
}

// A tablespace statement with the given files in its DATAFILE or TEMPFILE list, each named after its
// position: F1, F2.
template <int Release>
std::function<std::unique_ptr<CSQLClause>()> withFiles(const char* list, std::vector<const char*> files) {
  return [list, files] {
    auto tablespace = std::make_unique<CSQLCreateTablespace>(true, Release);
    for (std::size_t i = 0; i < files.size(); ++i) {
      const std::string name = "F" + std::to_string(i + 1);
      tablespace->AddAttr(list, new CSQLClauseDataFile(name.c_str()));
      tablespace->SetValue((std::string(list) + ";" + name + ";FILE").c_str(), files[i]);
    }
    return tablespace;
  };
}

class ClusterTablespace : public ::testing::TestWithParam<TreeCase> {};
TEST_P(ClusterTablespace, WriteExactText) {
  checkTreeCase(GetParam());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cluster, ClusterTablespace, ::testing::Values(
    TreeCase{"index cluster", &deptCluster<7>,
             {{"SCHEMA", "SCOTT"}, {"CLUSTER", "EMP_DEPT"}, {"C_PHYSICAL_ATTRIBUTES;PCTFREE", "10"},
              {"C_PHYSICAL_ATTRIBUTES;C_STORAGE;INITIAL", "64K"}, {"SIZE", "600"}, {"TABLESPACE", "USERS"},
              {"INDEX", "INDEX"}, {"CACHE", "CACHE"}},
             "CREATE CLUSTER SCOTT.EMP_DEPT (DEPTNO NUMBER (2)) PCTFREE 10 STORAGE (INITIAL 64K) SIZE 600 "
             "TABLESPACE USERS INDEX CACHE"},
    // INDEX is the first alternative: a host that gives both gets the index cluster.
    TreeCase{"index wins over hashkeys", &deptCluster<7>,
             {{"CLUSTER", "C"}, {"HASHKEYS", "100"}, {"INDEX", "INDEX"}},
             "CREATE CLUSTER C (DEPTNO NUMBER (2)) INDEX"},
    TreeCase{"single table hash cluster 10g",
             [] {
               auto cluster = deptCluster<5>();
               cluster->AddAttr("LIST_COLUMN", new Column("LOC"));
               cluster->SetValue("LIST_COLUMN;LOC;COLUMN", "LOC");
               cluster->SetValue("LIST_COLUMN;LOC;DATATYPE", "VARCHAR2");
               cluster->SetValue("LIST_COLUMN;LOC;DATATYPE;LENGTH", "13");
               return cluster;
             },
             {{"CLUSTER", "DEPT_HASH"}, {"SINGLE", "SINGLE"}, {"HASHKEYS", "1000"},
              {"HASH", "MOD(DEPTNO, 1000)"}, {"C_PARALLEL;PARALLEL", "PARALLEL"},
              {"C_PARALLEL;PARALLEL;VALUE", "4"}, {"ROWDEPENDENCIES", "ROWDEPENDENCIES"}, {"CACHE", "NOCACHE"}},
             "CREATE CLUSTER DEPT_HASH (DEPTNO NUMBER (2),LOC VARCHAR2 (13)) SINGLE TABLE HASHKEYS 1000 "
             "HASH IS MOD(DEPTNO, 1000) PARALLEL 4 ROWDEPENDENCIES NOCACHE"},
    TreeCase{"single table 8i with buffer pool", &deptCluster<2>,
             {{"CLUSTER", "C"}, {"C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL", "KEEP"}, {"SINGLE", "SINGLE"},
              {"HASHKEYS", "100"}},
             "CREATE CLUSTER C (DEPTNO NUMBER (2)) STORAGE (BUFFER_POOL KEEP) SINGLE TABLE HASHKEYS 100"},
    TreeCase{"hash cluster Oracle 7", &deptCluster<0>,
             {{"SCHEMA", "SCOTT"}, {"CLUSTER", "DEPT_HASH"}, {"C_PHYSICAL_ATTRIBUTES;PCTUSED", "80"},
              {"HASHKEYS", "500"}, {"HASH", "DEPTNO"}, {"C_PARALLEL;PARALLEL", "NOPARALLEL"}},
             "CREATE CLUSTER SCOTT.DEPT_HASH (DEPTNO NUMBER (2)) PCTUSED 80 HASHKEYS 500 HASH IS DEPTNO "
             "NOPARALLEL"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(AlterCluster, ClusterTablespace, ::testing::Values(
    TreeCase{"attributes together", make<CSQLAlterCluster>(7),
             {{"SCHEMA", "SCOTT"}, {"CLUSTER", "EMP_DEPT"},
              {"C_PHYSICAL_ATTRIBUTES;PCTFREE", "30", "10"}, {"C_PHYSICAL_ATTRIBUTES;INITRANS", "2", "2"},
              {"C_PHYSICAL_ATTRIBUTES;C_STORAGE;NEXT", "1M", "64K"}, {"SIZE", "1K", "600"},
              {"CACHE", "CACHE", "NOCACHE"}, {"C_PARALLEL;PARALLEL", "PARALLEL"}, {"C_PARALLEL;PARALLEL;VALUE", "4"}},
             "ALTER CLUSTER SCOTT.EMP_DEPT PCTFREE 30 STORAGE (NEXT 1M) SIZE 1K CACHE PARALLEL 4"},
    TreeCase{"allocate extent", make<CSQLAlterCluster>(7),
             {{"CLUSTER", "EMP_DEPT"}, {"C_ALLOCATE_EXTENT;EXTENT", "EXTENT"},
              {"C_ALLOCATE_EXTENT;EXTENT;SIZE", "10M"}, {"C_ALLOCATE_EXTENT;EXTENT;DATAFILE", "/u01/users02.dbf"}},
             "ALTER CLUSTER EMP_DEPT ALLOCATE EXTENT (SIZE 10M DATAFILE '/u01/users02.dbf')"},
    TreeCase{"deallocate unused Oracle 7", make<CSQLAlterCluster>(0),
             {{"CLUSTER", "EMP_DEPT"}, {"C_DEALLOCATE_UNUSED;UNUSED", "UNUSED"},
              {"C_DEALLOCATE_UNUSED;KEEP", "1M"}},
             "ALTER CLUSTER EMP_DEPT DEALLOCATE UNUSED KEEP 1M"},
    TreeCase{"nothing changed", make<CSQLAlterCluster>(7),
             {{"SCHEMA", "SCOTT"}, {"CLUSTER", "EMP_DEPT"}, {"SIZE", "600", "600"},
              {"CACHE", "CACHE", "CACHE"}},
             ""}),
    caseName);

INSTANTIATE_TEST_SUITE_P(Tablespace, ClusterTablespace, ::testing::Values(
    TreeCase{"Oracle 7 temporary contents", withFiles<0>("LIST_DATAFILE", {"/u01/temp01.dbf"}),
             {{"TABLESPACE", "TEMP"}, {"LIST_DATAFILE;F1;SIZE", "50M"}, {"C_STORAGE;INITIAL", "1M"},
              {"C_STORAGE;NEXT", "1M"}, {"C_STORAGE;PCTINCREASE", "0"}, {"ONLINE", "ONLINE"},
              {"CONTENTS", "TEMPORARY"}},
             "CREATE TABLESPACE TEMP DATAFILE '/u01/temp01.dbf' SIZE 50M DEFAULT STORAGE (INITIAL 1M NEXT 1M "
             "PCTINCREASE 0) ONLINE TEMPORARY"},
    TreeCase{"Oracle 8.0 two files", withFiles<1>("LIST_DATAFILE", {"/u01/data01.dbf", "/u02/data02.dbf"}),
             {{"TABLESPACE", "DATA"}, {"LIST_DATAFILE;F1;SIZE", "200M"}, {"LIST_DATAFILE;F2;SIZE", "200M"},
              {"LIST_DATAFILE;F2;REUSE", "REUSE"}, {"MINIMUM", "64K"}, {"LOGGING", "NOLOGGING"},
              {"ONLINE", "OFFLINE"}, {"CONTENTS", "PERMANENT"}},
             "CREATE TABLESPACE DATA DATAFILE '/u01/data01.dbf' SIZE 200M, '/u02/data02.dbf' SIZE 200M REUSE "
             "MINIMUM EXTENT 64K NOLOGGING OFFLINE PERMANENT"},
    TreeCase{"8i temporary uniform", withFiles<2>("LIST_TEMPFILE", {"/u01/temp01.dbf"}),
             {{"TEMPORARY", "TEMPORARY"}, {"TABLESPACE", "TEMP"}, {"LIST_TEMPFILE;F1;SIZE", "500M"},
              {"LIST_TEMPFILE;F1;REUSE", "REUSE"}, {"C_EXTENT_MANAGEMENT;LOCAL", "LOCAL"},
              {"C_EXTENT_MANAGEMENT;LOCAL;UNIFORM", "UNIFORM"}, {"C_EXTENT_MANAGEMENT;LOCAL;UNIFORM;SIZE", "1M"}},
             "CREATE TEMPORARY TABLESPACE TEMP TEMPFILE '/u01/temp01.dbf' SIZE 500M REUSE EXTENT MANAGEMENT "
             "LOCAL UNIFORM SIZE 1M"},
    // DICTIONARY is the first alternative of the extent management.
    TreeCase{"8i dictionary managed", withFiles<2>("LIST_DATAFILE", {"/u01/users01.dbf"}),
             {{"TABLESPACE", "USERS"}, {"LIST_DATAFILE;F1;SIZE", "10M"}, {"C_EXTENT_MANAGEMENT;LOCAL", "LOCAL"},
              {"C_EXTENT_MANAGEMENT;DICTIONARY", "DICTIONARY"}},
             "CREATE TABLESPACE USERS DATAFILE '/u01/users01.dbf' SIZE 10M EXTENT MANAGEMENT DICTIONARY"},
    TreeCase{"9i block size and manual segments", withFiles<3>("LIST_DATAFILE", {"/u01/ts16k.dbf"}),
             {{"TABLESPACE", "TS16K"}, {"LIST_DATAFILE;F1;SIZE", "100M"}, {"BLOCKSIZE", "16K"},
              {"C_EXTENT_MANAGEMENT;LOCAL", "LOCAL"}, {"C_EXTENT_MANAGEMENT;LOCAL;AUTOALLOCATE", "AUTOALLOCATE"},
              {"SEGMENT", "MANUAL"}},
             "CREATE TABLESPACE TS16K DATAFILE '/u01/ts16k.dbf' SIZE 100M BLOCKSIZE 16K EXTENT MANAGEMENT LOCAL "
             "AUTOALLOCATE SEGMENT SPACE MANAGEMENT MANUAL"},
    // UNDO loses to TEMPORARY when both are given; here only UNDO is.
    TreeCase{"9i undo", withFiles<3>("LIST_DATAFILE", {"/u01/undotbs01.dbf"}),
             {{"UNDO", "UNDO"}, {"TABLESPACE", "UNDOTBS1"}, {"LIST_DATAFILE;F1;SIZE", "200M"},
              {"LIST_DATAFILE;F1;AUTOEXTEND", "ON"}},
             "CREATE UNDO TABLESPACE UNDOTBS1 DATAFILE '/u01/undotbs01.dbf' SIZE 200M AUTOEXTEND ON"},
    TreeCase{"9i R2 force logging, compressed default", withFiles<4>("LIST_DATAFILE", {"/u01/hist01.dbf"}),
             {{"TABLESPACE", "HIST"}, {"LIST_DATAFILE;F1;SIZE", "1G"}, {"FORCE", "FORCE"},
              {"COMPRESS", "COMPRESS"}, {"C_STORAGE;INITIAL", "1M"}, {"C_EXTENT_MANAGEMENT;DICTIONARY", "DICTIONARY"}},
             "CREATE TABLESPACE HIST DATAFILE '/u01/hist01.dbf' SIZE 1G FORCE LOGGING DEFAULT COMPRESS STORAGE "
             "(INITIAL 1M) EXTENT MANAGEMENT DICTIONARY"},
    TreeCase{"10g bigfile", withFiles<5>("LIST_DATAFILE", {"/u02/bigtbs01.dbf"}),
             {{"BIGFILE", "BIGFILE"}, {"TABLESPACE", "BIGTBS"}, {"LIST_DATAFILE;F1;SIZE", "10G"},
              {"LIST_DATAFILE;F1;AUTOEXTEND", "ON"}, {"LIST_DATAFILE;F1;AUTOEXTEND;NEXT", "1G"},
              {"LIST_DATAFILE;F1;AUTOEXTEND;MAXSIZE", "UNLIMITED"}, {"LOGGING", "LOGGING"},
              {"SEGMENT", "AUTO"}, {"FLASHBACK", "OFF"}},
             "CREATE BIGFILE TABLESPACE BIGTBS DATAFILE '/u02/bigtbs01.dbf' SIZE 10G AUTOEXTEND ON NEXT 1G "
             "MAXSIZE UNLIMITED LOGGING SEGMENT SPACE MANAGEMENT AUTO FLASHBACK OFF"},
    TreeCase{"10g undo retention", withFiles<5>("LIST_DATAFILE", {"/u01/undo02.dbf"}),
             {{"BIGFILE", "SMALLFILE"}, {"UNDO", "UNDO"}, {"TABLESPACE", "UNDOTBS2"},
              {"LIST_DATAFILE;F1;SIZE", "2G"}, {"RETENTION", "GUARANTEE"}},
             "CREATE SMALLFILE UNDO TABLESPACE UNDOTBS2 DATAFILE '/u01/undo02.dbf' SIZE 2G RETENTION GUARANTEE"},
    TreeCase{"10g temporary group", withFiles<5>("LIST_TEMPFILE", {"/u01/temp02.dbf"}),
             {{"TEMPORARY", "TEMPORARY"}, {"UNDO", "UNDO"}, {"TABLESPACE", "TEMP2"},
              {"LIST_TEMPFILE;F1;SIZE", "1G"}, {"GROUP", "TEMP_GRP"}, {"C_EXTENT_MANAGEMENT;LOCAL", "LOCAL"},
              {"C_EXTENT_MANAGEMENT;LOCAL;UNIFORM", "UNIFORM"}, {"C_EXTENT_MANAGEMENT;LOCAL;UNIFORM;SIZE", "16M"}},
             "CREATE TEMPORARY TABLESPACE TEMP2 TEMPFILE '/u01/temp02.dbf' SIZE 1G TABLESPACE GROUP TEMP_GRP "
             "EXTENT MANAGEMENT LOCAL UNIFORM SIZE 16M"},
    // Oracle-managed files: DATAFILE with a size and no name.
    TreeCase{"11g managed file", withFiles<7>("LIST_DATAFILE", {""}),
             {{"TABLESPACE", "APP"}, {"LIST_DATAFILE;F1;SIZE", "100M"}, {"LIST_DATAFILE;F1;AUTOEXTEND", "ON"}},
             "CREATE TABLESPACE APP DATAFILE SIZE 100M AUTOEXTEND ON"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(DataFile, ClusterTablespace, ::testing::Values(
    // OFF ends the autoextend clause: what belongs to ON is left out, also through a clone.
    TreeCase{"autoextend off drops next and maxsize", make<CSQLClauseDataFile>(7),
             {{"FILE", "/u01/a.dbf"}, {"AUTOEXTEND", "OFF"}, {"AUTOEXTEND;NEXT", "10M"},
              {"AUTOEXTEND;MAXSIZE", "UNLIMITED"}},
             "'/u01/a.dbf' AUTOEXTEND OFF"}),
    caseName);
// clang-format on

// An empty CREATE writes its head; gated syntax is absent below its release and present from it.
TEST(ClusterTablespace, ReleaseGates) {
  expectGates<CSQLCreateCluster>({{"SINGLE", 2}, {"ROWDEPENDENCIES", 5}});
  expectGate<CSQLAlterCluster>("CACHE", 1);
  expectGates<CSQLCreateTablespace>({{"MINIMUM", 1},
                                     {"LOGGING", 1},
                                     {"TEMPORARY", 2},
                                     {"LIST_TEMPFILE", 2},
                                     {"C_EXTENT_MANAGEMENT;LOCAL;UNIFORM;SIZE", 2},
                                     {"UNDO", 3},
                                     {"BLOCKSIZE", 3},
                                     {"SEGMENT", 3},
                                     {"FORCE", 4},
                                     {"COMPRESS", 4},
                                     {"BIGFILE", 5},
                                     {"GROUP", 5},
                                     {"FLASHBACK", 5},
                                     {"RETENTION", 5}});
  // Dictionary-managed PERMANENT | TEMPORARY contents went away with Oracle 10g.
  EXPECT_NE(CSQLCreateTablespace(true, 4).GetClause("CONTENTS"), nullptr);
  EXPECT_EQ(CSQLCreateTablespace(true, 5).GetClause("CONTENTS"), nullptr);
}

TEST(ClusterTablespace, DataFileAsNamedListItem) {
  CSQLClauseDataFile file("USERS01");
  EXPECT_EQ(file.GetType(), "USERS01");
  ASSERT_EQ(file.SetValue("FILE", "/u01/users01.dbf"), SQL_OK);
  auto clone = file.Clone();
  EXPECT_EQ(clone->GetType(), "USERS01");
  EXPECT_EQ(trimmed(write(*clone).text), "'/u01/users01.dbf'");
}

}  // namespace
}  // namespace qarvelt::testing
