// The table-property alternative of ALTER TABLE.
#include <sstream>

#include <gtest/gtest.h>

#include <qarvelt/statements/alter_table_props.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

class AltTableProp : public ::testing::TestWithParam<TreeCase> {};
TEST_P(AltTableProp, WritesExactText) {
  checkTreeCase(GetParam());
}

const auto props = make<CSQLClauseAltTableProp>(7);

INSTANTIATE_TEST_SUITE_P(
    Cases,
    AltTableProp,
    ::testing::Values(
        TreeCase{"property changes together in table order",
                 props,
                 {{"C_ROW_MOVEMENT;ENABLE", "ENABLE"},
                  {"C_PARALLEL;PARALLEL", "PARALLEL"},
                  {"C_PARALLEL;PARALLEL;VALUE", "4"},
                  {"MONITORING", "MONITORING"},
                  {"CACHE", "CACHE"},
                  {"LOGGING", "LOGGING"},
                  {"C_PHYSICAL_ATTRIBUTES;PCTFREE", "20", "10"}},
                 "PCTFREE 20 LOGGING CACHE MONITORING PARALLEL 4 ENABLE ROW MOVEMENT"},
        TreeCase{"rename stands alone", props, {{"RENAME", "T2"}}, "RENAME TO T2"},
        TreeCase{"shrink stands alone",
                 props,
                 {{"C_SHRINK;CASCADE", "CASCADE"},
                  {"C_SHRINK;SHRINK", "SHRINK SPACE"},
                  {"C_SHRINK;COMPACT", "COMPACT"}},
                 "SHRINK SPACE COMPACT CASCADE"},
        TreeCase{
            "minimize", props, {{"C_RECORDS_PER_BLK;MINIMIZE", "MINIMIZE"}}, "MINIMIZE RECORDS_PER_BLOCK"},
        TreeCase{
            "upgrade",
            props,
            {{"C_UPGRADE_TABLE;UPGRADE", "UPGRADE"}, {"C_UPGRADE_TABLE;UPGRADE;INCLUDING", "NOT INCLUDING"}},
            "UPGRADE NOT INCLUDING DATA"},
        TreeCase{"index-organized change after the property set",
                 props,
                 {{"C_ALTER_IOT;PCTTHRESHOLD", "30"}, {"CACHE", "NOCACHE"}},
                 "NOCACHE PCTTHRESHOLD 30"},
        TreeCase{"index-organized change after shrink",
                 props,
                 {{"C_ALTER_IOT;COALESCE", "COALESCE"}, {"C_SHRINK;SHRINK", "SHRINK SPACE"}},
                 "SHRINK SPACE COALESCE"}),
    caseName);

TEST(AltTableProp, OneAlternativePerPass) {
  CSQLClauseAltTableProp tree;
  ASSERT_EQ(tree.SetValue("RENAME", "T2"), SQL_OK);
  ASSERT_EQ(tree.SetValue("CACHE", "CACHE"), SQL_OK);
  for (const char* expected : {"CACHE", "RENAME TO T2", ""}) {
    EXPECT_EQ(trimmed(write(tree).text), expected);
    tree.RefreshUsed();
  }
}

// Only the physical attributes follow the clause's release code.
TEST(AltTableProp, ReleaseCodesOfNestedClauses) {
  CSQLClauseAltTableProp old(true, 1);
  EXPECT_EQ(old.GetClause("C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL"), nullptr);
  EXPECT_NE(old.GetClause("C_SUPPLEMENTAL_LG_GRP;ADD"), nullptr);
  EXPECT_NE(old.GetClause("C_ALTER_IOT;COALESCE"), nullptr);
  EXPECT_NE(old.GetClause("C_UPGRADE_TABLE;UPGRADE;C_COLUMN_PROP;LISTLOB"), nullptr);
}

// The paths by which the table's information record reaches the clause, from the ALTER TABLE above it.
TEST(AltTableProp, InformationModelPathsReachNodes) {
  auto host = with(std::make_unique<Named>("ALTER"), std::make_unique<CSQLClauseAltTableProp>());
  std::istringstream paths(
      "CACHE COMPRESS LOGGING MONITORING RENAME C_ROW_MOVEMENT;ENABLE "
      "C_SHRINK;SHRINK C_SHRINK;COMPACT C_SHRINK;CASCADE C_PARALLEL;PARALLEL C_PARALLEL;PARALLEL;VALUE "
      "C_ALLOCATE_EXTENT;EXTENT C_ALLOCATE_EXTENT;EXTENT;SIZE C_ALLOCATE_EXTENT;EXTENT;DATAFILE "
      "C_ALLOCATE_EXTENT;EXTENT;INSTANCE C_DEALLOCATE_UNUSED;UNUSED C_DEALLOCATE_UNUSED;KEEP "
      "C_PHYSICAL_ATTRIBUTES;PCTFREE C_PHYSICAL_ATTRIBUTES;PCTUSED "
      "C_PHYSICAL_ATTRIBUTES;INITRANS C_PHYSICAL_ATTRIBUTES;MAXTRANS "
      "C_PHYSICAL_ATTRIBUTES;C_STORAGE;INITIAL C_PHYSICAL_ATTRIBUTES;C_STORAGE;NEXT "
      "C_PHYSICAL_ATTRIBUTES;C_STORAGE;MINEXTENTS C_PHYSICAL_ATTRIBUTES;C_STORAGE;MAXEXTENTS "
      "C_PHYSICAL_ATTRIBUTES;C_STORAGE;PCTINCREASE C_PHYSICAL_ATTRIBUTES;C_STORAGE;FREELISTS "
      "C_PHYSICAL_ATTRIBUTES;C_STORAGE;FREELIST C_PHYSICAL_ATTRIBUTES;C_STORAGE;OPTIMAL "
      "C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL");
  for (std::string path; paths >> path;) {
    EXPECT_NE(host->GetClause(("C_ALT_TABLE_PROPERTY;" + path).c_str()), nullptr) << path;
  }
}

}  // namespace
}  // namespace qarvelt::testing
