// LOB storage, LOB parameters, LOB and varray items, MODIFY LOB.
#include <gtest/gtest.h>

#include "qarvelt/clauses/lob.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Maker = std::function<std::unique_ptr<CSQLClause>()>;

// A LOB storage clause whose list form holds one column leaf per name.
Maker lobList(std::vector<const char*> columns) {
  return [columns] {
    auto lob = make_unique<CSQLClauseLOBStorage>();
    for (const char* c : columns)
      EXPECT_EQ(lob->AddAttr("LIST", valued(c, c)), SQL_OK);
    return lob;
  };
}

template <class T>
std::unique_ptr<CSQLClause> at(int nOraVersion) {
  return make_unique<T>(true, nOraVersion);
}

class LOBClauses : public ::testing::TestWithParam<TreeCase> {};
TEST_P(LOBClauses, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    LOBClauses,
    ::testing::Values(
        TreeCase{"segment and parameters",
                 make<CSQLClauseLOBStorage>(7),
                 {{"LOBITEM;LOBSEG;C_LOB_PARAMETER;CHUNK", "8192"},
                  {"LOBITEM;LOBSEG;C_LOB_PARAMETER;TABLESPACE", "X"},
                  {"LOBITEM;LOBSEG", "SEG"},
                  {"LOBITEM", "C"}},
                 "LOB (C) STORE AS SEG (TABLESPACE X CHUNK 8192)"},
        TreeCase{"no segment name",
                 make<CSQLClauseLOBStorage>(7),
                 {{"LOBITEM", "C"}, {"LOBITEM;C_LOB_PARAMETER;TABLESPACE", "X"}},
                 "LOB (C) STORE AS (TABLESPACE X)"},
        TreeCase{"several columns share the parameters",
                 lobList({"C1", "C2"}),
                 {{"C_LOB_PARAMETER;C_STORAGE;INITIAL", "1M"}, {"C_LOB_PARAMETER;ENABLE", "DISABLE"}},
                 "LOB (C1,C2) STORE AS (DISABLE STORAGE IN ROW STORAGE (INITIAL 1M))"},
        TreeCase{"list form is the first alternative",
                 lobList({"C1"}),
                 {{"LOBITEM", "C"}, {"LOBITEM;C_LOB_PARAMETER;CHUNK", "1"}, {"C_LOB_PARAMETER;CHUNK", "2"}},
                 "LOB (C1) STORE AS (CHUNK 2)"},
        TreeCase{"parameters in tree order",
                 make<CSQLClauseLOBParameter>(7),
                 {{"CACHE;LOGGING", "LOGGING"},
                  {"CACHE;READS", "READS"},
                  {"CACHE", "CACHE"},
                  {"FREEPOOLS", "2"},
                  {"RETENTION", "RETENTION"},
                  {"PCTVERSION", "10"},
                  {"CHUNK", "8192"},
                  {"C_STORAGE;NEXT", "1M"},
                  {"ENABLE", "ENABLE"},
                  {"TABLESPACE", "X"}},
                 "TABLESPACE X ENABLE STORAGE IN ROW STORAGE (NEXT 1M) CHUNK 8192 PCTVERSION 10 RETENTION "
                 "FREEPOOLS 2 CACHE READS LOGGING"},
        TreeCase{"nocache nologging",
                 make<CSQLClauseLOBParameter>(7),
                 {{"CACHE", "NOCACHE"}, {"CACHE;LOGGING", "NOLOGGING"}},
                 "NOCACHE NOLOGGING"},
        TreeCase{"modify lob",
                 make<CSQLClauseModifyLOBStorage>(7),
                 {{"LOBITEM", "C"},
                  {"C_MOD_LOB_PARAMETER;CACHE", "CACHE"},
                  {"C_MOD_LOB_PARAMETER;PCTVERSION", "10"}},
                 "MODIFY LOB (C) (PCTVERSION 10 CACHE)"},
        TreeCase{
            "modifiable parameters in tree order",
            make<CSQLClauseModifyLOBParameter>(7),
            {{"C_DEALLOCATE_UNUSED;UNUSED", "UNUSED"},
             {"CACHE;LOGGING", "NOLOGGING"},
             {"CACHE", "NOCACHE"},
             {"REBUILD", "REBUILD"},
             {"FREEPOOLS", "4"},
             {"RETENTION", "RETENTION"},
             {"PCTVERSION", "5"},
             {"C_STORAGE;MAXEXTENTS", "9"}},
            "STORAGE (MAXEXTENTS 9) PCTVERSION 5 RETENTION FREEPOOLS 4 REBUILD FREEPOOLS NOCACHE NOLOGGING "
            "DEALLOCATE UNUSED"}),
    caseName);

// Both item classes write the same text; ItemB only adds a container below each leaf.
TEST(LOBClauses, LOBAndVarrayItems) {
  struct {
    const char *leaf, *value, *parameter, *expected;
  } const forms[] = {
      {"LOB", "C", "LOB;C_LOB_PARAMETER;TABLESPACE", "LOB (C) (TABLESPACE X)"},
      {"VARRAY", "V", "VARRAY;C_LOB_PARAMETER;CHUNK", "VARRAY V (CHUNK X)"},
  };
  for (auto make : {&at<CSQLClauseLOBItem>, &at<CSQLClauseLOBItemB>}) {
    for (const auto& f : forms) {
      auto item = make(7);
      ASSERT_EQ(item->SetValue(f.leaf, f.value), SQL_OK);
      ASSERT_EQ(item->SetValue(f.parameter, "X"), SQL_OK);
      EXPECT_EQ(trimmed(write(*item).text), f.expected) << item->GetType();
    }
  }
}

// Every LOB segment's storage clause is built at release code 0: INITIAL is there, BUFFER_POOL never.
// Hosts of the parameter classes hand down their own codes (below), which must not bring it back.
TEST(LOBClauses, NoBufferPoolAtAnyRelease) {
  struct {
    std::unique_ptr<CSQLClause> (*make)(int);
    std::string storage;
  } const cases[] = {
      {&at<CSQLClauseLOBParameter>, "C_STORAGE;"},
      {&at<CSQLClauseLOBStorage>, "C_LOB_PARAMETER;C_STORAGE;"},
      {&at<CSQLClauseModifyLOBParameter>, "C_STORAGE;"},
      {&at<CSQLClauseModifyLOBStorage>, "C_MOD_LOB_PARAMETER;C_STORAGE;"},
  };
  for (const auto& c : cases) {
    for (int v = 0; v <= kLatestRelease; ++v) {
      auto tree = c.make(v);
      EXPECT_NE(tree->GetClause((c.storage + "INITIAL").c_str()), nullptr) << c.storage << v;
      EXPECT_EQ(tree->GetClause((c.storage + "BUFFER_POOL").c_str()), nullptr) << c.storage << v;
    }
  }
}

TEST(LOBClauses, NestedReleaseCodes) {
  struct {
    std::unique_ptr<CSQLClause> (*make)(int);
    const char* path;
    int version;
  } const cases[] = {
      {&at<CSQLClauseLOBStorage>, "C_LOB_PARAMETER", 3},  // the storage clause's own code
      {&at<CSQLClauseLOBStorage>, "LOBITEM;LOBSEG;C_LOB_PARAMETER", 3},
      {&at<CSQLClauseLOBItem>, "LOB;C_LOB_PARAMETER", 7},
      {&at<CSQLClauseLOBItemB>, "VARRAY;C_LOB_PARAMETER", 7},
      {&at<CSQLClauseModifyLOBStorage>, "C_MOD_LOB_PARAMETER", 7},
      {&at<CSQLClauseModifyLOBParameter>, "C_ALLOCATE_EXTENT", 7},
      {&at<CSQLClauseModifyLOBParameter>, "C_DEALLOCATE_UNUSED", 7},
  };
  for (const auto& c : cases) {
    auto tree = c.make(3);
    CSQLClause* nested = tree->GetClause(c.path);
    ASSERT_NE(nested, nullptr) << c.path;
    EXPECT_EQ(nested->GetOraVersion(), c.version) << c.path;
  }
}

// Default constructors name the node after its class; naming constructors name it as told and still
// build the tree, at the latest release.
TEST(LOBClauses, NodeNames) {
  EXPECT_EQ(CSQLClauseLOBStorage().GetType(), "C_LOB_STORAGE");
  EXPECT_EQ(CSQLClauseLOBItem().GetType(), "C_LOB_ITEM");
  EXPECT_EQ(CSQLClauseLOBItemB().GetType(), "C_LOB_ITEMB");
  EXPECT_EQ(CSQLClauseModifyLOBStorage().GetType(), "C_MOD_LOB_STORAGE");

  CSQLClauseLOBStorage storage("S1");
  CSQLClauseLOBItem item("I1");
  CSQLClauseLOBItemB itemB("B1");
  CSQLClauseModifyLOBStorage modify("M1");
  const std::pair<CSQLClause*, const char*> named[] = {
      {&storage, "S1"}, {&item, "I1"}, {&itemB, "B1"}, {&modify, "M1"}};
  for (const auto& [node, name] : named) {
    EXPECT_EQ(node->GetType(), name);
    EXPECT_EQ(node->GetOraVersion(), kLatestRelease) << name;
    EXPECT_GT(node->GetLength(), 0) << name;  // the tree is built
  }
}

}  // namespace
}  // namespace qarvelt::testing
