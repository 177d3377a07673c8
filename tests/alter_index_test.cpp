// ALTER INDEX: the statement head, its alterations and the index partition operations.
#include <gtest/gtest.h>

#include <qarvelt/statements/alter_index.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

class AlterIndex : public ::testing::TestWithParam<TreeCase> {};
TEST_P(AlterIndex, WritesExactText) {
  checkTreeCase(GetParam());
}

// An index S.I. For a split, the bound values (list items always write, so only splits get them).
std::function<std::unique_ptr<CSQLClause>()> index(std::vector<const char*> bounds = {}) {
  return [bounds] {
    auto tree = std::make_unique<CSQLAlterIndex>();
    tree->SetValue("SCHEMA", "S");
    tree->SetValue("INDEX", "I");
    for (const char* bound : bounds)
      tree->AddAttr("C_ALT_IDX_PART;C_SPLIT_IDX_PART;LIST", valued(bound, bound));
    return tree;
  };
}

constexpr const char* kSplit = "C_ALT_IDX_PART;C_SPLIT_IDX_PART;PARTITION";
constexpr const char* kDesc1 = "C_ALT_IDX_PART;C_SPLIT_IDX_PART;DESC1;PARTITION";
constexpr const char* kModPart = "C_ALT_IDX_PART;C_MOD_IDX_PART;PARTITION";
constexpr const char* kModSub = "C_ALT_IDX_PART;C_MOD_IDX_SUBPART;SUBPARTITION";

INSTANTIATE_TEST_SUITE_P(
    Cases,
    AlterIndex,
    ::testing::Values(
        TreeCase{"rebuild",
                 index(),
                 {{"C_REBUILD;ONLINE", "ONLINE"}, {"C_REBUILD;TABLESPACE", "T"}},
                 "ALTER INDEX S.I REBUILD TABLESPACE T ONLINE"},
        TreeCase{
            "rename", index(), {{"RENAME", "RENAME"}, {"RENAME;TO", "J"}}, "ALTER INDEX S.I RENAME TO J"},
        TreeCase{"monitoring", index(), {{"MONITORING", "MONITORING"}}, "ALTER INDEX S.I MONITORING USAGE"},
        TreeCase{"update", index(), {{"UPDATE", "UPDATE"}}, "ALTER INDEX S.I UPDATE BLOCK REFERENCES"},
        TreeCase{"parameters", index(), {{"PARAMETERS", "sync"}}, "ALTER INDEX S.I PARAMETERS ('sync')"},
        TreeCase{"physical changes together, one extent clause",
                 index(),
                 {{"LOGGING", "NOLOGGING"},
                  {"C_PHYSICAL_ATTRIBUTES;INITRANS", "4"},
                  {"C_ALLOCATE_EXTENT;EXTENT", "EXTENT"},
                  {"C_DEALLOCATE_UNUSED;UNUSED", "UNUSED"}},
                 "ALTER INDEX S.I DEALLOCATE UNUSED INITRANS 4 NOLOGGING"},
        TreeCase{
            "split into two",
            index({"100", "200"}),
            {{kSplit, "P"},
             {"C_ALT_IDX_PART;C_SPLIT_IDX_PART;DESC2;PARTITION", "B"},
             {kDesc1, "A"},
             {"C_ALT_IDX_PART;C_SPLIT_IDX_PART;DESC1;PARTITION;C_SEG_ATTRIBUTE;TABLESPACE", "T1"},
             {"C_ALT_IDX_PART;C_SPLIT_IDX_PART;C_PARALLEL;PARALLEL", "NOPARALLEL"}},
            "ALTER INDEX S.I SPLIT PARTITION P AT (100,200) INTO (PARTITION A TABLESPACE T1 , PARTITION B) "
            "NOPARALLEL"},
        TreeCase{"split with the first description only",
                 index({"100"}),
                 {{kSplit, "P"}, {kDesc1, "A"}},
                 "ALTER INDEX S.I SPLIT PARTITION P AT (100) INTO (PARTITION A)"},
        TreeCase{"modify partition writes its storage changes together",
                 index(),
                 {{kModPart, "P"},
                  {"C_ALT_IDX_PART;C_MOD_IDX_PART;PARTITION;UNUSABLE", "UNUSABLE"},
                  {"C_ALT_IDX_PART;C_MOD_IDX_PART;PARTITION;C_ALLOCATE_EXTENT;EXTENT", "EXTENT"},
                  {"C_ALT_IDX_PART;C_MOD_IDX_PART;PARTITION;C_PHYSICAL_ATTRIBUTES;MAXTRANS", "8"}},
                 "ALTER INDEX S.I MODIFY PARTITION P MAXTRANS 8 ALLOCATE EXTENT"},
        TreeCase{"modify subpartition",
                 index(),
                 {{kModSub, "SP"}, {"C_ALT_IDX_PART;C_MOD_IDX_SUBPART;SUBPARTITION;UNUSABLE", "UNUSABLE"}},
                 "ALTER INDEX S.I MODIFY SUBPARTITION SP UNUSABLE"},
        TreeCase{"drop partition",
                 index(),
                 {{"C_ALT_IDX_PART;C_DROP_IDX_PART;PARTITION", "P"}},
                 "ALTER INDEX S.I DROP PARTITION P"},
        TreeCase{"rename partition",
                 index(),
                 {{"C_ALT_IDX_PART;C_RENAME_IDX_PART;TO", "Q"},
                  {"C_ALT_IDX_PART;C_RENAME_IDX_PART;PARTITION", "P"}},
                 "ALTER INDEX S.I RENAME PARTITION P TO Q"},
        TreeCase{"only the names", index(), {}, ""},
        TreeCase{"nothing set", make<CSQLAlterIndex>(7), {}, ""}),
    caseName);

// Physical attributes follow the release code of the clause that holds them; nested clauses are
// built for the latest release whatever the statement's code.
TEST(AlterIndex, ReleaseCodesOfNestedClauses) {
  CSQLAlterIndex old(true, 1);
  EXPECT_EQ(old.GetClause("C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL"), nullptr);
  EXPECT_NE(old.GetClause("C_REBUILD;C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL"), nullptr);
  EXPECT_NE(old.GetClause("C_ALT_IDX_PART;C_SPLIT_IDX_PART;DESC2;PARTITION;C_SEG_ATTRIBUTE;LOGGING"),
            nullptr);
}

}  // namespace
}  // namespace qarvelt::testing
