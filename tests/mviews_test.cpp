// Materialized views and their logs: CREATE and ALTER, snapshots before Oracle8i.
#include <gtest/gtest.h>

#include "qarvelt/clauses/lob.h"
#include "qarvelt/statements/mviews.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using Maker = std::function<std::unique_ptr<CSQLClause>()>;

// An item appended to the list at `list`: a leaf holding `name`, or a LOB storage clause so named.
struct Item {
  const char* list;
  const char* name;
};

std::unique_ptr<CSQLClause> itemFor(const Item& item) {
  const std::string list = item.list;
  if (list == "C_MV_LOB;LIST") return std::make_unique<CSQLClauseLOBStorage>(item.name);
  if (list == "C_MV_MOD_LOB;LIST") return std::make_unique<CSQLClauseModifyLOBStorage>(item.name);
  return valued(item.name, item.name);
}

// A statement of class T at release code v on the object S.<name> ("MVIEW" or the log's "TABLE").
template <class T>
Maker on(int v, const char* nameLeaf, const char* name, std::vector<Item> items = {}) {
  return [=] {
    auto tree = std::make_unique<T>(true, v);
    EXPECT_EQ(tree->SetValue("SCHEMA", "S"), SQL_OK);
    EXPECT_EQ(tree->SetValue(nameLeaf, name), SQL_OK);
    for (const Item& item : items)
      EXPECT_EQ(tree->AddAttr(item.list, itemFor(item)), SQL_OK) << item.list;
    return tree;
  };
}

Maker createMV(int v, std::vector<Item> items = {}) {
  return on<CSQLCreateMaterializedView>(v, "MVIEW", "MV", items);
}
Maker createLog(int v, std::vector<Item> items = {}) {
  return on<CSQLCreateMaterializedViewLog>(v, "TABLE", "T", items);
}
Maker alterMV(int v, std::vector<Item> items = {}) {
  return on<CSQLAlterMaterializedView>(v, "MVIEW", "MV", items);
}
Maker alterLog(int v, std::vector<Item> items = {}) {
  return on<CSQLAlterMViewLog>(v, "TABLE", "T", items);
}

constexpr const char* kAs = "SELECT * FROM S.T@R";

class MViews : public ::testing::TestWithParam<TreeCase> {};
TEST_P(MViews, WriteExactText) {
  checkTreeCase(GetParam());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Create, MViews, ::testing::Values(
    TreeCase{"view whole", createMV(7, {{"C_MV_ALIASES;LIST", "ID"}, {"C_MV_ALIASES;LIST", "TOTAL"}}),
             {{"AS", "SELECT ID, SUM(AMT) FROM S.T GROUP BY ID"}, {"REWRITE", "ENABLE"}, {"C_REFRESH;WITH", "ROWID"},
              {"C_REFRESH;ON", "COMMIT"}, {"C_REFRESH;FAST", "FAST"}, {"C_USING_INDEX;TABLESPACE", "INDX"},
              {"BUILD", "IMMEDIATE"}, {"C_PARALLEL;PARALLEL", "PARALLEL"}, {"C_PARALLEL;PARALLEL;VALUE", "4"},
              {"CACHE", "NOCACHE"}, {"C_MV_PHYSICAL_PROP;COMPRESS", "COMPRESS"},
              {"C_MV_PHYSICAL_PROP;C_SEG_ATTRIBUTE;C_PHYSICAL_ATTRIBUTES;PCTFREE", "5"},
              {"C_MV_PHYSICAL_PROP;C_SEG_ATTRIBUTE;TABLESPACE", "USERS"}},
             "CREATE MATERIALIZED VIEW S.MV (ID,TOTAL) TABLESPACE USERS PCTFREE 5 COMPRESS NOCACHE PARALLEL 4 "
             "BUILD IMMEDIATE USING INDEX TABLESPACE INDX REFRESH FAST ON COMMIT WITH ROWID ENABLE QUERY REWRITE "
             "AS SELECT ID, SUM(AMT) FROM S.T GROUP BY ID"},
    // The prebuilt table is the first alternative: the physical properties wait for another pass.
    TreeCase{"view on prebuilt table", createMV(2),
             {{"PREBUILT", "PREBUILT"}, {"PREBUILT;REDUCED", "WITH"}, {"C_REFRESH;FAST", "FORCE"},
              {"C_REFRESH;ON", "DEMAND"}, {"C_REFRESH;DEFAULT", "DEFAULT"}, {"C_REFRESH;DEFAULT;MASTER", "LOCAL"},
              {"AS", kAs}},
             "CREATE MATERIALIZED VIEW S.MV ON PREBUILT TABLE WITH REDUCED PRECISION REFRESH FORCE ON DEMAND "
             "USING DEFAULT LOCAL ROLLBACK SEGMENT AS SELECT * FROM S.T@R"},
    TreeCase{"view index organized", createMV(3),
             {{"C_MV_PHYSICAL_PROP;INDEX", "INDEX"}, {"C_MV_PHYSICAL_PROP;INDEX;C_SEG_ATTRIBUTE;TABLESPACE", "T"},
              {"C_MV_PHYSICAL_PROP;INDEX;C_IDX_ORG_TABLE;PCTTHRESHOLD", "20"}, {"AS", kAs}},
             "CREATE MATERIALIZED VIEW S.MV ORGANIZATION INDEX TABLESPACE T PCTTHRESHOLD 20 AS SELECT * FROM S.T@R"},
    TreeCase{"view in cluster, master rollback segment",
             createMV(2, {{"C_MV_PHYSICAL_PROP;CLUSTER;LIST", "DEPTNO"}}),
             {{"C_MV_PHYSICAL_PROP;CLUSTER", "S.C"}, {"C_REFRESH;FAST", "COMPLETE"}, {"C_REFRESH;START", "SYSDATE"},
              {"C_REFRESH;NEXT", "SYSDATE + 1"}, {"C_REFRESH;MASTER", "MASTER"}, {"C_REFRESH;SEGMENT", "RBS1"},
              {"AS", kAs}},
             "CREATE MATERIALIZED VIEW S.MV CLUSTER S.C (DEPTNO) REFRESH COMPLETE START WITH SYSDATE NEXT "
             "SYSDATE + 1 USING MASTER ROLLBACK SEGMENT RBS1 AS SELECT * FROM S.T@R"},
    TreeCase{"view deferred, no index, never refreshed", createMV(4),
             {{"BUILD", "DEFERRED"}, {"C_USING_INDEX;NO", "NO"}, {"C_REFRESH;NEVER", "NEVER"},
              {"REWRITE", "DISABLE"}, {"AS", kAs}},
             "CREATE MATERIALIZED VIEW S.MV BUILD DEFERRED USING NO INDEX NEVER REFRESH DISABLE QUERY REWRITE "
             "AS SELECT * FROM S.T@R"},
    TreeCase{"view with LOB storage and hash partitions",
             createMV(7, {{"C_MV_LOB;LIST", "L1"}, {"C_TABLE_PART;C_HASH_PART;LIST", "ID"}}),
             {{"C_MV_LOB;LIST;L1;LOBITEM", "DOC"}, {"C_MV_LOB;LIST;L1;LOBITEM;C_LOB_PARAMETER;TABLESPACE", "LOBS"},
              {"C_TABLE_PART;C_HASH_PART;C_BY_QUANTITY;QUANTITY", "4"}, {"AS", kAs}},
             "CREATE MATERIALIZED VIEW S.MV LOB (DOC) STORE AS (TABLESPACE LOBS) PARTITION BY HASH (ID) "
             "PARTITIONS 4 AS SELECT * FROM S.T@R"},
    TreeCase{"snapshot of Oracle 7", createMV(0),
             {{"C_MV_PHYSICAL_PROP;C_SEG_ATTRIBUTE;C_PHYSICAL_ATTRIBUTES;PCTFREE", "5"},
              {"C_USING_INDEX;C_PHYSICAL_ATTRIBUTES;PCTFREE", "0"}, {"C_REFRESH;FAST", "FAST"},
              {"C_REFRESH;NEXT", "SYSDATE + 7"}, {"UPDATE", "UPDATE"}, {"AS", kAs}},
             "CREATE SNAPSHOT S.MV PCTFREE 5 USING INDEX PCTFREE 0 REFRESH FAST NEXT SYSDATE + 7 FOR UPDATE "
             "AS SELECT * FROM S.T@R"},
    TreeCase{"primary key snapshot of Oracle 8.0", createMV(1),
             {{"C_REFRESH;FAST", "FAST"}, {"C_REFRESH;WITH", "PRIMARY KEY"}, {"AS", kAs}},
             "CREATE SNAPSHOT S.MV REFRESH FAST WITH PRIMARY KEY AS SELECT * FROM S.T@R"},
    TreeCase{"log whole", createLog(7, {{"C_MV_LOG_WITH;LIST", "ROWID"}, {"C_MV_LOG_WITH;LIST", "SEQUENCE"},
                                        {"C_MV_LOG_WITH;COLUMNS", "AMT"}, {"C_MV_LOG_WITH;COLUMNS", "ID"}}),
             {{"C_PURGE;IMMEDIATE", "IMMEDIATE"}, {"C_PURGE;IMMEDIATE;SYNCHRONOUS", "ASYNCHRONOUS"},
              {"NEW", "INCLUDING"}, {"C_PARALLEL;PARALLEL", "PARALLEL"}, {"C_PARALLEL;PARALLEL;VALUE", "2"},
              {"CACHE", "CACHE"}, {"C_SEG_ATTRIBUTE;LOGGING", "NOLOGGING"}, {"C_SEG_ATTRIBUTE;TABLESPACE", "T"}},
             "CREATE MATERIALIZED VIEW LOG ON S.T TABLESPACE T NOLOGGING CACHE PARALLEL 2 WITH ROWID, SEQUENCE "
             "(AMT,ID) INCLUDING NEW VALUES PURGE IMMEDIATE ASYNCHRONOUS"},
    TreeCase{"log purged on a schedule", createLog(7, {{"C_MV_LOG_WITH;LIST", "PRIMARY KEY"}}),
             {{"C_PURGE;START", "SYSDATE"}, {"C_PURGE;NEXT", "SYSDATE + 1"}},
             "CREATE MATERIALIZED VIEW LOG ON S.T WITH PRIMARY KEY PURGE START WITH SYSDATE NEXT SYSDATE + 1"},
    TreeCase{"log of filter columns", createLog(2, {{"C_MV_LOG_WITH;COLUMNS", "A"}, {"C_MV_LOG_WITH;COLUMNS", "B"}}),
             {{"NEW", "EXCLUDING"}},
             "CREATE MATERIALIZED VIEW LOG ON S.T WITH (A,B) EXCLUDING NEW VALUES"},
    TreeCase{"snapshot log of Oracle 7", createLog(0),
             {{"C_SEG_ATTRIBUTE;TABLESPACE", "T"}, {"C_SEG_ATTRIBUTE;C_PHYSICAL_ATTRIBUTES;C_STORAGE;INITIAL", "64K"}},
             "CREATE SNAPSHOT LOG ON S.T TABLESPACE T STORAGE (INITIAL 64K)"},
    TreeCase{"snapshot log of Oracle 8.0",
             createLog(1, {{"C_MV_LOG_WITH;LIST", "PRIMARY KEY"}, {"C_MV_LOG_WITH;LIST", "ROWID"}}), {},
             "CREATE SNAPSHOT LOG ON S.T WITH PRIMARY KEY, ROWID"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(Alter, MViews, ::testing::Values(
    TreeCase{"view pctfree", alterMV(7), {{"C_PHYSICAL_ATTRIBUTES;PCTFREE", "20", "10"}},
             "ALTER MATERIALIZED VIEW S.MV PCTFREE 20"},
    TreeCase{"view unchanged", alterMV(7), {{"C_PHYSICAL_ATTRIBUTES;PCTFREE", "10", "10"}}, ""},
    TreeCase{"view compress", alterMV(4), {{"COMPRESS", "NOCOMPRESS", "COMPRESS"}},
             "ALTER MATERIALIZED VIEW S.MV NOCOMPRESS"},
    TreeCase{"view LOB storage", alterMV(7, {{"C_MV_LOB;LIST", "L1"}}),
             {{"C_MV_LOB;LIST;L1;LOBITEM", "DOC"}, {"C_MV_LOB;LIST;L1;LOBITEM;C_LOB_PARAMETER;TABLESPACE", "LOBS"}},
             "ALTER MATERIALIZED VIEW S.MV LOB (DOC) STORE AS (TABLESPACE LOBS)"},
    TreeCase{"view modify LOB", alterMV(7, {{"C_MV_MOD_LOB;LIST", "M1"}}),
             {{"C_MV_MOD_LOB;LIST;M1;LOBITEM", "DOC"}, {"C_MV_MOD_LOB;LIST;M1;C_MOD_LOB_PARAMETER;CACHE", "CACHE"}},
             "ALTER MATERIALIZED VIEW S.MV MODIFY LOB (DOC) (CACHE)"},
    TreeCase{"view truncate partition", alterMV(7),
             {{"C_ALTER_TAB_PART;C_TRUNCATE_PART_SUBPART;PARTITION", "P1"},
              {"C_ALTER_TAB_PART;C_TRUNCATE_PART_SUBPART;DROP", "DROP"}},
             "ALTER MATERIALIZED VIEW S.MV TRUNCATE PARTITION P1 DROP STORAGE"},
    TreeCase{"view parallel", alterMV(7), {{"C_PARALLEL;PARALLEL", "NOPARALLEL", "PARALLEL"}},
             "ALTER MATERIALIZED VIEW S.MV NOPARALLEL"},
    TreeCase{"view logging", alterMV(2), {{"LOGGING", "NOLOGGING", "LOGGING"}},
             "ALTER MATERIALIZED VIEW S.MV NOLOGGING"},
    TreeCase{"view allocate", alterMV(7), {{"C_ALLOCATE_EXTENT;EXTENT", "EXTENT"}, {"C_ALLOCATE_EXTENT;EXTENT;SIZE", "1M"}},
             "ALTER MATERIALIZED VIEW S.MV ALLOCATE EXTENT (SIZE 1M)"},
    TreeCase{"view deallocate", alterMV(7), {{"C_DEALLOCATE_UNUSED;UNUSED", "UNUSED"}},
             "ALTER MATERIALIZED VIEW S.MV DEALLOCATE UNUSED"},
    TreeCase{"view shrink", alterMV(5), {{"C_SHRINK;SHRINK", "SHRINK SPACE"}, {"C_SHRINK;COMPACT", "COMPACT"}},
             "ALTER MATERIALIZED VIEW S.MV SHRINK SPACE COMPACT"},
    TreeCase{"view cache", alterMV(7), {{"CACHE", "CACHE", "NOCACHE"}}, "ALTER MATERIALIZED VIEW S.MV CACHE"},
    TreeCase{"view index organized", alterMV(3), {{"C_ALTER_IOT;PCTTHRESHOLD", "30", "20"}},
             "ALTER MATERIALIZED VIEW S.MV PCTTHRESHOLD 30"},
    TreeCase{"view using index", alterMV(7), {{"C_USING_INDEX;C_PHYSICAL_ATTRIBUTES;INITRANS", "4", "2"}},
             "ALTER MATERIALIZED VIEW S.MV USING INDEX INITRANS 4"},
    TreeCase{"view refresh", alterMV(7),
             {{"C_REFRESH;FAST", "COMPLETE", "FAST"}, {"C_REFRESH;ON", "DEMAND", "COMMIT"},
              {"C_REFRESH;DEFAULT", "DEFAULT"}, {"C_REFRESH;DEFAULT;MASTER", "MASTER"}},
             "ALTER MATERIALIZED VIEW S.MV REFRESH COMPLETE ON DEMAND USING DEFAULT MASTER ROLLBACK SEGMENT"},
    TreeCase{"view refresh with primary key", alterMV(2), {{"C_REFRESH;WITH", "PRIMARY KEY"}},
             "ALTER MATERIALIZED VIEW S.MV REFRESH WITH PRIMARY KEY"},
    TreeCase{"view query rewrite", alterMV(2), {{"REWRITE", "ENABLE", "DISABLE"}},
             "ALTER MATERIALIZED VIEW S.MV ENABLE QUERY REWRITE"},
    TreeCase{"view compile", alterMV(2), {{"COMPILE", "COMPILE"}}, "ALTER MATERIALIZED VIEW S.MV COMPILE"},
    TreeCase{"view consider fresh", alterMV(4), {{"CONSIDER", "CONSIDER"}},
             "ALTER MATERIALIZED VIEW S.MV CONSIDER FRESH"},
    TreeCase{"snapshot refresh", alterMV(0), {{"C_REFRESH;FAST", "COMPLETE", "FAST"}, {"C_REFRESH;NEXT", "SYSDATE + 1"}},
             "ALTER SNAPSHOT S.MV REFRESH COMPLETE NEXT SYSDATE + 1"},
    TreeCase{"log pctused", alterLog(7), {{"C_PHYSICAL_ATTRIBUTES;PCTUSED", "60", "40"}},
             "ALTER MATERIALIZED VIEW LOG ON S.T PCTUSED 60"},
    TreeCase{"log drop partition", alterLog(7), {{"C_ALTER_TAB_PART;C_DROP_TAB_PART;PARTITION", "P1"}},
             "ALTER MATERIALIZED VIEW LOG ON S.T DROP PARTITION P1"},
    TreeCase{"log parallel", alterLog(7), {{"C_PARALLEL;PARALLEL", "PARALLEL"}, {"C_PARALLEL;PARALLEL;VALUE", "2"}},
             "ALTER MATERIALIZED VIEW LOG ON S.T PARALLEL 2"},
    TreeCase{"log logging", alterLog(2), {{"LOGGING", "LOGGING", "NOLOGGING"}},
             "ALTER MATERIALIZED VIEW LOG ON S.T LOGGING"},
    TreeCase{"log allocate", alterLog(7), {{"C_ALLOCATE_EXTENT;EXTENT", "EXTENT"}},
             "ALTER MATERIALIZED VIEW LOG ON S.T ALLOCATE EXTENT"},
    TreeCase{"log shrink", alterLog(5), {{"C_SHRINK;SHRINK", "SHRINK SPACE"}, {"C_SHRINK;CASCADE", "CASCADE"}},
             "ALTER MATERIALIZED VIEW LOG ON S.T SHRINK SPACE CASCADE"},
    TreeCase{"log nocache", alterLog(7), {{"CACHE", "NOCACHE", "CACHE"}}, "ALTER MATERIALIZED VIEW LOG ON S.T NOCACHE"},
    TreeCase{"log add with new values, forced",
             alterLog(4, {{"C_MV_LOG_ADD;LIST", "ROWID"}, {"C_MV_LOG_ADD;COLUMNS", "AMT"}}),
             {{"FORCE", "FORCE"}, {"C_MV_LOG_ADD;NEW", "INCLUDING"}},
             "ALTER MATERIALIZED VIEW LOG FORCE ON S.T ADD ROWID (AMT) INCLUDING NEW VALUES"},
    TreeCase{"log forced, nothing altered", alterLog(7), {{"FORCE", "FORCE"}}, ""},
    TreeCase{"log purge", alterLog(7), {{"C_PURGE;START", "SYSDATE"}, {"C_PURGE;REPEAT", "'5' DAY"}},
             "ALTER MATERIALIZED VIEW LOG ON S.T PURGE START WITH SYSDATE REPEAT INTERVAL '5' DAY"},
    TreeCase{"snapshot log add of Oracle 8.0", alterLog(1, {{"C_MV_LOG_ADD;LIST", "PRIMARY KEY"}}), {},
             "ALTER SNAPSHOT LOG ON S.T ADD PRIMARY KEY"}),
    caseName);
// clang-format on

// One alteration per statement: two changes give two statements, one per pass.
TEST(MViewsGates, PathsExistFromTheirRelease) {
  expectGates<CSQLCreateMaterializedView>({{"C_REFRESH;WITH", 1},
                                           {"PREBUILT", 2},
                                           {"C_MV_LOB;LIST", 2},
                                           {"C_TABLE_PART", 2},
                                           {"CACHE", 2},
                                           {"C_PARALLEL", 2},
                                           {"BUILD", 2},
                                           {"C_REFRESH;ON", 2},
                                           {"C_REFRESH;DEFAULT", 2},
                                           {"C_REFRESH;NEVER", 2},
                                           {"REWRITE", 2},
                                           {"C_MV_PHYSICAL_PROP;INDEX", 3},
                                           {"C_MV_PHYSICAL_PROP;COMPRESS", 4},
                                           {"C_USING_INDEX;NO", 4},
                                           {"C_MV_ALIASES;LIST", 6}});
  expectGates<CSQLCreateMaterializedViewLog>({{"C_MV_LOG_WITH;LIST", 1},
                                              {"NEW", 2},
                                              {"CACHE", 2},
                                              {"C_PARALLEL", 2},
                                              {"C_TABLE_PART", 2},
                                              {"C_SEG_ATTRIBUTE;LOGGING", 2},
                                              {"C_PURGE;IMMEDIATE", 7}});
  expectGates<CSQLAlterMaterializedView>({{"C_MV_LOB;LIST", 2},
                                          {"C_MV_MOD_LOB;LIST", 2},
                                          {"C_ALTER_TAB_PART", 2},
                                          {"C_PARALLEL", 2},
                                          {"LOGGING", 2},
                                          {"C_ALLOCATE_EXTENT", 2},
                                          {"C_DEALLOCATE_UNUSED", 2},
                                          {"CACHE", 2},
                                          {"REWRITE", 2},
                                          {"COMPILE", 2},
                                          {"C_REFRESH;ON", 2},
                                          {"C_ALTER_IOT", 3},
                                          {"COMPRESS", 4},
                                          {"CONSIDER", 4},
                                          {"C_SHRINK", 5}});
  expectGates<CSQLAlterMViewLog>(
      {{"C_MV_LOG_ADD;LIST", 1}, {"C_MV_LOG_ADD;NEW", 2}, {"FORCE", 4}, {"C_PURGE;START", 7}});
}

}  // namespace
}  // namespace qarvelt::testing
