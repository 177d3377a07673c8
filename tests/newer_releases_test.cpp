// Statement syntax of Oracle 11g to 23ai outside the column items: IF NOT EXISTS, index visibility,
// partitions moved ONLINE. Each form is written at its release and absent below it.
#include <gtest/gtest.h>

#include <qarvelt/statements/alter_index.h>
#include <qarvelt/statements/alter_table.h>
#include <qarvelt/statements/create_index.h>
#include <qarvelt/statements/create_table.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

class NewerReleases : public ::testing::TestWithParam<TreeCase> {};
TEST_P(NewerReleases, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    NewerReleases,
    ::testing::Values(
        TreeCase{"create table if not exists",
                 [] {
                   auto tree = make<CSQLCreateTable>(12)();
                   tree->AddAttr("C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST",
                                 std::make_unique<CSQLCreateTable::CSubSQLItemProp>("A", 12));
                   return tree;
                 },
                 {{"C_RELATIONAL_TABLE;IF_NOT_EXISTS", "IF NOT EXISTS"},
                  {"C_RELATIONAL_TABLE;SCHEMA", "APP"},
                  {"C_RELATIONAL_TABLE;TABLE", "T"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;A;COLUMN", "OK"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;A;DATATYPE", "BOOLEAN"}},
                 "CREATE TABLE IF NOT EXISTS APP.T (OK BOOLEAN)"},
        TreeCase{"create index if not exists",
                 [] {
                   auto tree = make<CSQLCreateIndex>(12)();
                   tree->AddAttr("C_TABLE_INDEX;LIST",
                                 std::make_unique<CSQLCreateIndex::CSubSQLItemIndexExpr>("A"));
                   return tree;
                 },
                 {{"IF_NOT_EXISTS", "IF NOT EXISTS"},
                  {"INDEX", "I"},
                  {"C_TABLE_INDEX;TABLE", "T"},
                  {"C_TABLE_INDEX;LIST;A;COLUMN", "A"}},
                 "CREATE INDEX IF NOT EXISTS I ON T ( A)"},
        TreeCase{"index made invisible",
                 make<CSQLAlterIndex>(7),
                 {{"SCHEMA", "S"}, {"INDEX", "I"}, {"VISIBILITY", "INVISIBLE"}},
                 "ALTER INDEX S.I INVISIBLE"},
        TreeCase{
            "partition moved online",
            make<CSQLAlterTable>(8),
            {{"TABLE", "T"},
             {"C_ALTER_TAB_PART;C_MOVE_TAB_PART;PARTITION", "P1"},
             {"C_ALTER_TAB_PART;C_MOVE_TAB_PART;PARTITION;C_TAB_PART_DESC;C_SEG_ATTRIBUTE;TABLESPACE", "D2"},
             {"C_ALTER_TAB_PART;C_MOVE_TAB_PART;PARTITION;ONLINE", "ONLINE"}},
            "ALTER TABLE T MOVE PARTITION P1 TABLESPACE D2 ONLINE"}),
    caseName);

TEST(NewerReleases, AbsentBelowTheirRelease) {
  checkGates(
      {
          {built<CSQLCreateTable>(), "C_RELATIONAL_TABLE;IF_NOT_EXISTS", 12},
          {built<CSQLCreateIndex>(), "IF_NOT_EXISTS", 12},
          {built<CSQLAlterIndex>(), "VISIBILITY", 7},
          {built<CSQLAlterTable>(), "C_ALTER_TAB_PART;C_MOVE_TAB_PART;PARTITION;ONLINE", 8},
      },
      3);
}

}  // namespace
}  // namespace qarvelt::testing
