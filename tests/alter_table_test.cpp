// ALTER TABLE written whole: the head, one alteration per statement, the empty-statement rule.
#include <gtest/gtest.h>

#include <qarvelt/clauses/column.h>
#include <qarvelt/clauses/constraint.h>
#include <qarvelt/statements/alter_table.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;

constexpr const char* kSplit = "C_ALTER_TAB_PART;C_SPLIT_TABLE_PART;PARTITION";

// An ALTER TABLE of SCOTT.EMP, with the given items appended first (list path, item).
std::function<std::unique_ptr<CSQLClause>()> alter(std::function<void(CSQLClause&)> items = [](CSQLClause&) {
}) {
  return [items] {
    auto a = make_unique<CSQLAlterTable>();
    a->SetValue("SCHEMA", "SCOTT");
    a->SetValue("TABLE", "EMP");
    items(*a);
    return a;
  };
}

class AlterTable : public ::testing::TestWithParam<TreeCase> {};
TEST_P(AlterTable, WritesOneStatement) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    AlterTable,
    ::testing::Values(
        TreeCase{"the typical request",
                 alter(),
                 {{"C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE", "20", "10"}},
                 "ALTER TABLE SCOTT.EMP PCTFREE 20"},
        TreeCase{"several properties together",
                 alter(),
                 {{"C_ALT_TABLE_PROPERTY;CACHE", "CACHE", "NOCACHE"},
                  {"C_ALT_TABLE_PROPERTY;LOGGING", "NOLOGGING", "LOGGING"},
                  {"C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;C_STORAGE;NEXT", "1M"},
                  {"C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE", "20", "10"}},
                 "ALTER TABLE SCOTT.EMP PCTFREE 20 STORAGE (NEXT 1M) NOLOGGING CACHE"},
        TreeCase{"rename",
                 alter(),
                 {{"C_ALT_TABLE_PROPERTY;RENAME", "EMP2"}},
                 "ALTER TABLE SCOTT.EMP RENAME TO EMP2"},
        TreeCase{"shrink",
                 alter(),
                 {{"C_ALT_TABLE_PROPERTY;C_SHRINK;SHRINK", "SHRINK SPACE"},
                  {"C_ALT_TABLE_PROPERTY;C_SHRINK;COMPACT", "COMPACT"}},
                 "ALTER TABLE SCOTT.EMP SHRINK SPACE COMPACT"},
        TreeCase{"disable table lock",
                 alter(),
                 {{"C_ALT_LOC_TAB;LOCK", "DISABLE"}},
                 "ALTER TABLE SCOTT.EMP DISABLE TABLE LOCK"},
        TreeCase{"enable all triggers",
                 alter(),
                 {{"C_ALT_LOC_TAB;TRIGGERS", "ENABLE"}},
                 "ALTER TABLE SCOTT.EMP ENABLE ALL TRIGGERS"},
        TreeCase{
            "add a column",
            alter([](CSQLClause& a) {
              a.AddAttr("C_COLUMN;C_ADD_COLUMN;LIST",
                        make_unique<CSQLClauseAddColumn::CSubSQLClauseColumn>("C"));
            }),
            {{"C_COLUMN;C_ADD_COLUMN;LIST;C;COLUMN", "C"}, {"C_COLUMN;C_ADD_COLUMN;LIST;C;DATATYPE", "DATE"}},
            "ALTER TABLE SCOTT.EMP ADD ( C DATE)"},
        TreeCase{"add a constraint, then disable another",
                 alter([](CSQLClause& a) {
                   a.AddAttr("C_CONSTRAINT;LIST", make_unique<CSQLClauseOutLineConstraint>("C1"));
                 }),
                 {{"C_CONSTRAINT;LIST;C1;CONSTRAINT", "C1"},
                  {"C_CONSTRAINT;LIST;C1;CHECK", "SAL > 0"},
                  {"C_ENABLE_DISABLE;ENABLE", "DISABLE"},
                  {"C_ENABLE_DISABLE;CONSTRAINT", "C2"}},
                 "ALTER TABLE SCOTT.EMP ADD CONSTRAINT C1 CHECK (SAL > 0) DISABLE CONSTRAINT C2"},
        TreeCase{"move to another tablespace",
                 alter(),
                 {{"C_MOVE_TABLE;C_SEG_ATTRIBUTE;TABLESPACE", "DATA2"}},
                 "ALTER TABLE SCOTT.EMP MOVE TABLESPACE DATA2"},
        TreeCase{"split into two new partitions",
                 alter([](CSQLClause& a) {
                   a.AddAttr((std::string(kSplit) + ";LIST").c_str(), make_unique<CSQLAttr>("B", "", "10"));
                 }),
                 {{kSplit, "P1"},
                  {"C_ALTER_TAB_PART;C_SPLIT_TABLE_PART;PARTITION;AT", "AT"},
                  {"C_ALTER_TAB_PART;C_SPLIT_TABLE_PART;PARTITION;SPEC1;PARTITION", "P1A"},
                  {"C_ALTER_TAB_PART;C_SPLIT_TABLE_PART;PARTITION;SPEC2;PARTITION", "P1B"},
                  {"C_ALTER_TAB_PART;C_SPLIT_TABLE_PART;PARTITION;UPDATE", "UPDATE"}},
                 "ALTER TABLE SCOTT.EMP SPLIT PARTITION P1 AT (10) INTO (PARTITION P1A , PARTITION P1B) "
                 "UPDATE GLOBAL INDEXES"},
        TreeCase{"split into one new partition",
                 alter(),
                 {{kSplit, "P1"}, {"C_ALTER_TAB_PART;C_SPLIT_TABLE_PART;PARTITION;SPEC1;PARTITION", "P1A"}},
                 "ALTER TABLE SCOTT.EMP SPLIT PARTITION P1 INTO (PARTITION P1A)"},
        TreeCase{"merge partitions",
                 alter(),
                 {{"C_ALTER_TAB_PART;C_MERGE_TABLE_PART;PARTITION1", "P1,"},
                  {"C_ALTER_TAB_PART;C_MERGE_TABLE_PART;PARTITION2", "P2"},
                  {"C_ALTER_TAB_PART;C_MERGE_TABLE_PART;C_PARTITION_SPEC;PARTITION", "P12"}},
                 "ALTER TABLE SCOTT.EMP MERGE PARTITIONS P1, P2 INTO PARTITION P12"},
        TreeCase{
            "exchange partition",
            alter(),
            {{"C_ALTER_TAB_PART;C_EXCHANGE_PART_SUBPART;PARTITION", "P1"},
             {"C_ALTER_TAB_PART;C_EXCHANGE_PART_SUBPART;TABLE", "WITH TABLE T2 INCLUDING INDEXES WITHOUT"}},
            "ALTER TABLE SCOTT.EMP EXCHANGE PARTITION P1 WITH TABLE T2 INCLUDING INDEXES WITHOUT VALIDATION"},
        TreeCase{"truncate partition drop storage",
                 alter(),
                 {{"C_ALTER_TAB_PART;C_TRUNCATE_PART_SUBPART;PARTITION", "P1"},
                  {"C_ALTER_TAB_PART;C_TRUNCATE_PART_SUBPART;DROP", "DROP"}},
                 "ALTER TABLE SCOTT.EMP TRUNCATE PARTITION P1 DROP STORAGE"},
        TreeCase{"drop partition updating global indexes",
                 alter(),
                 {{"C_ALTER_TAB_PART;C_DROP_TAB_PART;PARTITION", "P1"},
                  {"C_ALTER_TAB_PART;C_DROP_TAB_PART;PARTITION;UPDATE", "UPDATE"}},
                 "ALTER TABLE SCOTT.EMP DROP PARTITION P1 UPDATE GLOBAL INDEXES"},
        TreeCase{"names alone alter nothing", alter(), {}, ""},
        TreeCase{"nothing at all", make<CSQLAlterTable>(7), {}, ""}),
    caseName);

TEST(AlterTable, OneAlterationPerPass) {
  auto a = alter()();
  a->SetValue("C_ALT_TABLE_PROPERTY;RENAME", "EMP2");
  a->SetValue("C_ALT_LOC_TAB;LOCK", "DISABLE");
  std::vector<std::string> texts;
  do {
    texts.push_back(trimmed(write(*a).text));
    a->RefreshUsed();
  } while (a->hasUnused() && texts.size() < 5);
  EXPECT_EQ(texts, (std::vector<std::string>{"ALTER TABLE SCOTT.EMP DISABLE TABLE LOCK",
                                             "ALTER TABLE SCOTT.EMP RENAME TO EMP2"}));
}

TEST(AlterTable, NestedClausesAreTheNewest) {
  CSQLAlterTable old(true, 0);
  EXPECT_EQ(old.GetOraVersion(), 0);
  EXPECT_EQ(old.GetClause("C_ALT_TABLE_PROPERTY")->GetOraVersion(), 7);
  EXPECT_NE(old.GetClause("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL"), nullptr);
}

}  // namespace
}  // namespace qarvelt::testing
