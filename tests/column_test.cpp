// Column clauses: ADD, MODIFY, SET UNUSED / DROP, RENAME COLUMN and the column properties.
#include <gtest/gtest.h>

#include <qarvelt/clauses/column.h>
#include <qarvelt/clauses/constraint.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;

// A clause with items of type Item appended under `listPath`, one per name.
template <class Clause, class Item>
std::function<std::unique_ptr<CSQLClause>()> withItems(const char* listPath, std::vector<const char*> names) {
  return [=] {
    auto tree = make_unique<Clause>();
    for (const char* name : names)
      tree->AddAttr(listPath, make_unique<Item>(name));
    return tree;
  };
}

std::function<std::unique_ptr<CSQLClause>()> withLeaves(const char* listPath,
                                                        std::vector<const char*> names) {
  return [=] {
    auto tree = make_unique<CSQLClauseColumn>();
    for (const char* name : names)
      tree->AddAttr(listPath, make_unique<CSQLAttr>(name, "", name));
    return tree;
  };
}

using AddedColumn = CSQLClauseAddColumn::CSubSQLClauseColumn;
using ModifiedColumn = CSQLClauseModifyColProp::CSubSQLClauseColumn;

class ColumnClauses : public ::testing::TestWithParam<TreeCase> {};
TEST_P(ColumnClauses, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    ColumnClauses,
    ::testing::Values(
        TreeCase{"add two columns",
                 withItems<CSQLClauseColumn, AddedColumn>("C_ADD_COLUMN;LIST", {"EMPNO", "ENAME"}),
                 {{"C_ADD_COLUMN;LIST;EMPNO;COLUMN", "EMPNO"},
                  {"C_ADD_COLUMN;LIST;EMPNO;DATATYPE", "NUMBER"},
                  {"C_ADD_COLUMN;LIST;EMPNO;DATATYPE;LENGTH", "4"},
                  {"C_ADD_COLUMN;LIST;ENAME;COLUMN", "ENAME"},
                  {"C_ADD_COLUMN;LIST;ENAME;DATATYPE", "VARCHAR2"},
                  {"C_ADD_COLUMN;LIST;ENAME;DATATYPE;LENGTH", "10"}},
                 "ADD ( EMPNO NUMBER (4),ENAME VARCHAR2 (10))"},
        TreeCase{"added column with default and inline constraint",
                 [] {
                   auto tree = withItems<CSQLClauseAddColumn, AddedColumn>("LIST", {"SAL"})();
                   tree->AddAttr("LIST;SAL;LIST", make_unique<CSQLClauseInlineConstraint>("NN"));
                   return tree;
                 },
                 {{"LIST;SAL;COLUMN", "SAL"},
                  {"LIST;SAL;DATATYPE", "NUMBER"},
                  {"LIST;SAL;DATATYPE;LENGTH", "10"},
                  {"LIST;SAL;DATATYPE;SCALE", "2"},
                  {"LIST;SAL;DEFAULT", "0"},
                  {"LIST;SAL;LIST;NN;NULL", "NOT NULL"}},
                 "ADD ( SAL NUMBER (10 ,2) DEFAULT 0 NOT NULL)"},
        TreeCase{"modify column",
                 withItems<CSQLClauseModifyColumn, ModifiedColumn>("C_MOD_COL_PROP;LIST", {"SAL"}),
                 {{"C_MOD_COL_PROP;LIST;SAL;COLUMN", "SAL"}, {"C_MOD_COL_PROP;LIST;SAL;DEFAULT", "1", "0"}},
                 "MODIFY ( SAL DEFAULT 1)"},
        TreeCase{"modify substitutability",
                 make<CSQLClauseModifyColumn>(7),
                 {{"C_MOD_COLUMN_SUBS;COLUMN", "C"}, {"C_MOD_COLUMN_SUBS;NOT", "NOT"}},
                 "MODIFY COLUMN C NOT SUBSTITUTABLE AT ALL LEVELS"},
        TreeCase{"set unused column",
                 make<CSQLClauseColumn>(7),
                 {{"C_DROP_COLUMN;UNUSED", "UNUSED"},
                  {"C_DROP_COLUMN;UNUSED;COLUMN", "C"},
                  {"C_DROP_COLUMN;UNUSED;CASCADE", "CASCADE"},
                  {"C_DROP_COLUMN;UNUSED;INVALIDATE", "INVALIDATE"}},
                 "SET UNUSED COLUMN C CASCADE CONSTRAINTS INVALIDATE"},
        TreeCase{"drop columns with checkpoint",
                 withLeaves("C_DROP_COLUMN;DROP;LIST", {"C1", "C2"}),
                 {{"C_DROP_COLUMN;DROP", "DROP"},
                  {"C_DROP_COLUMN;DROP;CASCADE", "CASCADE"},
                  {"C_DROP_COLUMN;DROP;CHECKPOINT", "100"}},
                 "DROP (C1,C2) CASCADE CONSTRAINTS CHECKPOINT 100"},
        TreeCase{"drop unused columns",
                 make<CSQLClauseDropColumn>(7),
                 {{"DROP", "DROP"}, {"DROP;UNUSED", "UNUSED"}},
                 "DROP UNUSED COLUMNS"},
        TreeCase{"drop columns continue",
                 make<CSQLClauseDropColumn>(7),
                 {{"DROP", "DROP"}, {"DROP;COLUMNS", "COLUMNS"}, {"DROP;CHECKPOINT", "50"}},
                 "DROP COLUMNS CONTINUE CHECKPOINT 50"},
        TreeCase{"rename column",
                 make<CSQLClauseColumn>(7),
                 {{"C_RENAME_COLUMN;OLDNAME", "A"}, {"C_RENAME_COLUMN;NEWNAME", "B"}},
                 "RENAME COLUMN A TO B"},
        TreeCase{"substitutable",
                 make<CSQLClauseSubstitutableColumn>(7),
                 {{"SUBSTITUTABLE", "NOT SUBSTITUTABLE"}},
                 "NOT SUBSTITUTABLE AT ALL LEVELS"},
        TreeCase{"element is of type",
                 make<CSQLClauseSubstitutableColumn>(7),
                 {{"ELEMENT", "ELEMENT"}, {"IS", "IS"}, {"IS;TYPE", "TYPE"}, {"IS;ONLY", "T"}},
                 "ELEMENT IS TYPE ( ONLY T) OF"},
        TreeCase{"object column substitutability",
                 make<CSQLClauseObjTypeColumnProp>(7),
                 {{"COLUMN", "ADDR"}, {"COLUMN;C_SUBSTITUTABLE_COL;SUBSTITUTABLE", "SUBSTITUTABLE"}},
                 "COLUMN ADDR SUBSTITUTABLE AT ALL LEVELS"},
        TreeCase{"nested table",
                 make<CSQLClauseNestTableColumnProp>(7),
                 {{"NEST_ITEM", "PHONES"}, {"STORETAB", "PHONES_NT"}, {"RETURN", "LOCATOR"}},
                 "NESTED TABLE PHONES STORE AS PHONES_NT RETURN AS LOCATOR"},
        TreeCase{"nested table, older shape",
                 make<CSQLClauseNestTableColumnProp>(3),
                 {{"NESTED_TABLE", "PHONES"}, {"NESTED_TABLE;STORETAB", "PHONES_NT"}},
                 "NESTED TABLE PHONES STORE AS PHONES_NT"},
        TreeCase{
            "varray stored as LOB",
            make<CSQLClauseVarrayColProp>(7),
            {{"VARRAY", "V"}, {"VARRAY;SEGNAME", "SEG"}, {"VARRAY;SEGNAME;C_LOB_PARAMETER;CHUNK", "8192"}},
            "VARRAY V STORE AS LOB SEG (CHUNK 8192)"},
        TreeCase{"varray substitutable and stored at release 6",
                 make<CSQLClauseVarrayColProp>(6),
                 {{"VARRAY", "V"},
                  {"VARRAY;C_SUBSTITUTABLE_COL;SUBSTITUTABLE", "SUBSTITUTABLE"},
                  {"VARRAY;C_LOB_PARAMETER;CHUNK", "8192"}},
                 "VARRAY V SUBSTITUTABLE AT ALL LEVELS STORE AS LOB (CHUNK 8192)"}),
    caseName);

// An ALTER TABLE column item built for release code `v`, as a change script builds it.
template <class Item>
std::function<std::unique_ptr<CSQLClause>()> item(int v) {
  return [v] { return make_unique<Item>("C", v); };
}

// The column syntax of Oracle 11g to 23ai in ADD and MODIFY items (Oracle takes a column's
// properties, its visibility and its virtual expression as separate MODIFY items).
class ColumnSyntaxItems : public ::testing::TestWithParam<TreeCase> {};
TEST_P(ColumnSyntaxItems, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    ColumnSyntaxItems,
    ::testing::Values(
        TreeCase{"added identity column",
                 item<AddedColumn>(8),
                 {{"COLUMN", "ID"},
                  {"DATATYPE", "NUMBER"},
                  {"C_IDENTITY;GENERATED", "BY DEFAULT ON NULL"},
                  {"C_IDENTITY;GENERATED;START", "100"},
                  {"C_IDENTITY;GENERATED;NOMAXVALUE", "NOMAXVALUE"}},
                 "ID NUMBER GENERATED BY DEFAULT ON NULL AS IDENTITY (START WITH 100 NOMAXVALUE)"},
        TreeCase{"added invisible column with DEFAULT ON NULL",
                 item<AddedColumn>(10),
                 {{"COLUMN", "S"},
                  {"DATATYPE", "VARCHAR2"},
                  {"DATATYPE;LENGTH", "10"},
                  {"COLLATE", "BINARY_CI"},
                  {"VISIBILITY", "INVISIBLE"},
                  {"DEFAULT_ON_NULL", "'N'"}},
                 "S VARCHAR2 (10) COLLATE BINARY_CI INVISIBLE DEFAULT ON NULL 'N'"},
        TreeCase{"added virtual column in 11g",
                 item<AddedColumn>(7),
                 {{"COLUMN", "G"}, {"DATATYPE", "NUMBER"}, {"VIRTUAL", "A + B"}},
                 "G NUMBER GENERATED ALWAYS AS (A + B) VIRTUAL"},
        TreeCase{"identity dropped",
                 item<ModifiedColumn>(8),
                 {{"COLUMN", "ID"}, {"DROP_IDENTITY", "DROP IDENTITY"}},
                 "ID DROP IDENTITY"},
        TreeCase{"identity options changed",
                 item<ModifiedColumn>(12),
                 {{"COLUMN", "ID"},
                  {"C_IDENTITY;GENERATED", "ALWAYS"},
                  {"C_IDENTITY;GENERATED;INCREMENT", "10"},
                  {"C_IDENTITY;GENERATED;NOMINVALUE", "NOMINVALUE"},
                  {"C_IDENTITY;GENERATED;NOCACHE", "NOCACHE"},
                  {"C_IDENTITY;GENERATED;CYCLE", "NOCYCLE"}},
                 "ID GENERATED ALWAYS AS IDENTITY (INCREMENT BY 10 NOMINVALUE NOCACHE NOCYCLE)"},
        TreeCase{
            "visibility", item<ModifiedColumn>(9), {{"COLUMN", "N"}, {"VISIBILITY", "VISIBLE"}}, "N VISIBLE"},
        TreeCase{"virtual expression",
                 item<ModifiedColumn>(7),
                 {{"COLUMN", "G"}, {"VIRTUAL", "A * 2"}},
                 "G GENERATED ALWAYS AS (A * 2) VIRTUAL"},
        TreeCase{"collation",
                 item<ModifiedColumn>(9),
                 {{"COLUMN", "S"}, {"COLLATE", "BINARY_AI"}},
                 "S COLLATE BINARY_AI"}),
    caseName);

TEST(ColumnClauses, ColumnSyntaxArrivesWithItsRelease) {
  // Items for the statements of Oracle 11g and older are the 11g shape, whatever code they get.
  struct Gate {
    const char* path;
    int since;
  } const gates[] = {{"VIRTUAL", 7},         {"VISIBILITY", 8},
                     {"DEFAULT_ON_NULL", 8}, {"C_IDENTITY;GENERATED", 8},
                     {"DROP_IDENTITY", 8},   {"COLLATE", 9}};
  for (int v = 0; v <= kNewestRelease; ++v) {
    ModifiedColumn modified("C", v);
    AddedColumn added("C", v);
    EXPECT_EQ(modified.GetOraVersion(), std::max(v, kLatestRelease));
    for (const Gate& g : gates) {
      const bool open = std::max(v, kLatestRelease) >= g.since;
      EXPECT_EQ(modified.SetValue(g.path, "X") == SQL_OK, open) << g.path << " at " << v;
      if (std::string(g.path) != "DROP_IDENTITY") {
        EXPECT_EQ(added.SetValue(g.path, "X") == SQL_OK, open) << g.path << " at " << v;
      }
    }
  }
}

TEST(ColumnClauses, ColumnPropertiesByRelease) {
  // Below 6 nothing at all; at 6 one property; from 7 a list of properties separated by a blank.
  CSQLClauseColumnProp five(true, 5);
  EXPECT_EQ(five.GetLength(), 0);
  EXPECT_EQ(five.SetValue("C_LOB_STORAGE;LOBITEM", "C"), SQL_NOT_FOUND);

  CSQLClauseColumnProp six(true, 6);
  ASSERT_EQ(six.SetValue("C_NEST_TABLE_COLUMN_PROP;NEST_ITEM", "N"), SQL_NOT_FOUND);  // older shape
  ASSERT_EQ(six.SetValue("C_NEST_TABLE_COLUMN_PROP;NESTED_TABLE", "N"), SQL_OK);
  ASSERT_EQ(six.SetValue("C_NEST_TABLE_COLUMN_PROP;NESTED_TABLE;STORETAB", "NT"), SQL_OK);
  EXPECT_EQ(trimmed(write(six).text), "NESTED TABLE N STORE AS NT");

  CSQLClauseColumnProp seven(true, 7);
  for (const char* name : {"P1", "P2"}) {
    ASSERT_EQ(seven.AddAttr("LISTLOB", make_unique<CSQLClauseColumnProp::CSubSQLItem>(name, 7)), SQL_OK);
  }
  seven.SetValue("LISTLOB;P1;C_OBJTYPE_COLUMN_PROP;COLUMN", "A");
  seven.SetValue("LISTLOB;P1;C_OBJTYPE_COLUMN_PROP;COLUMN;C_SUBSTITUTABLE_COL;SUBSTITUTABLE",
                 "SUBSTITUTABLE");
  seven.SetValue("LISTLOB;P2;VARRAY_COL_PROP;VARRAY", "V");
  seven.SetValue("LISTLOB;P2;VARRAY_COL_PROP;VARRAY;C_LOB_PARAMETER;CACHE", "CACHE");
  EXPECT_EQ(trimmed(write(seven).text), "COLUMN A SUBSTITUTABLE AT ALL LEVELS VARRAY V STORE AS LOB (CACHE)");
  EXPECT_EQ(trimmed(write(*seven.Clone()).text), trimmed(write(seven).text));
}

TEST(ColumnClauses, OperationsAreAlwaysTheNewestShape) {
  CSQLClauseColumn old(true, 0);
  EXPECT_EQ(old.GetClause("C_ADD_COLUMN;C_COLUMN_PROP")->GetOraVersion(), 7);
  EXPECT_NE(old.GetClause("C_ADD_COLUMN;C_COLUMN_PROP;LISTLOB"), nullptr);
  EXPECT_NE(old.GetClause("LIST_COL"), nullptr);
  EXPECT_EQ(CSQLClauseNestTableColumnProp(true, 1).GetLength(), 0);
}

}  // namespace
}  // namespace qarvelt::testing
