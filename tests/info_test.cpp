// The information model: values, records, collections, and the change scripts of tables, columns
// and constraints.
#include <gtest/gtest.h>

#include <qarvelt/clauses/constraint.h>
#include <qarvelt/info/columns.h>
#include <qarvelt/info/constraints.h>
#include <qarvelt/info/table.h>
#include <qarvelt/statements/alter_table.h>
#include <qarvelt/util/util.h>

#include <array>

#include "support.h"

namespace qarvelt::testing {
namespace {

using Texts = std::vector<std::string>;

TEST(Values, LoadingAndChanges) {
  CSQLInfoTable t;
  t.SetSQLValue("PCTFREE", "20", "10");
  EXPECT_EQ(t.GetSQLValue("PCTFREE").GetInit(), "10");
  EXPECT_TRUE(t.IsModified("PCTFREE"));
  EXPECT_EQ(*t.GetSQLValue("PCTFREE"), "20");
  for (const char* unchanged : {"", static_cast<const char*>(nullptr)}) {
    t.SetSQLValue("PCTUSED", unchanged, "40");  // an empty new text loads an unchanged value
    EXPECT_FALSE(t.IsModified("PCTUSED"));
    EXPECT_EQ(*t.GetSQLValue("PCTUSED"), "");
  }
  t.SetSQLValue("PCTUSED", "");  // the two-argument form can clear
  EXPECT_TRUE(t.IsModified("PCTUSED"));
  t.SetSQLValue("LOGGING", "logging", "LOGGING");  // case counts
  EXPECT_TRUE(t.IsModified("LOGGING"));
  t.SetSQLValue("NO_SUCH", "x", "y");
  EXPECT_FALSE(t.IsModified("NO_SUCH"));
  EXPECT_EQ(t.GetSQLValue("NO_SUCH").GetType(), "");
  t.Reset();
  EXPECT_FALSE(t.IsModified(nullptr));
  EXPECT_EQ(t.GetSQLValue("PCTFREE").GetValue(), "10");

  CSQLValues list("COLUMNS");
  EXPECT_FALSE(list.IsModified());
  list.AddValue("A", "1", "1");
  list.AddValue("A", "2", "2");  // the first entry stays
  EXPECT_EQ(list.GetCount(), 1);
  EXPECT_EQ(list.GetValue(0), "1");
  EXPECT_EQ(list.GetValue(5), "");
  EXPECT_TRUE(list.IsModified());  // holding entries is a change
  EXPECT_TRUE(list == "COLUMNS");
  list.Reset();
  EXPECT_EQ(list.GetCount(), 0);

  CSQLInfoColumns::CColumn column("C");
  column.SetSQLValue("LOB;CHUNK", "16384", "8192");
  EXPECT_FALSE(column.IsModifiedExcept("LOB"));
  column.SetSQLValue("DEFAULT", "1", "0");
  EXPECT_TRUE(column.IsModifiedExcept("LOB"));
}

TEST(Collections, MarksAndCodes) {
  CSQLInfoColumns columns;
  EXPECT_EQ(columns.AddColumn("A", true), 0);
  EXPECT_EQ(columns.AddColumn("A", false), 7);
  EXPECT_EQ(columns.AddColumn("B", false), 0);
  EXPECT_EQ(columns.AddColumn("C", true), 0);
  EXPECT_TRUE(columns.IsAdd("B"));
  EXPECT_EQ(columns.DropColumn("X", false, false), 4);
  EXPECT_EQ(columns.DropColumn("A", false, false), 0);
  EXPECT_EQ(columns.DropColumn("C", false, true), 0);
  EXPECT_TRUE(columns.IsDrop(0));
  EXPECT_TRUE(columns.IsUnused("C"));
  EXPECT_EQ(columns.UnDropColumn("C"), 0);
  EXPECT_FALSE(columns.IsUnused("C"));
  EXPECT_EQ(columns.UnDropColumn("X"), 4);
  EXPECT_FALSE(columns.IsAdd(99));
  // Removing outright leaves the marks where they were: C now reads B's mark.
  EXPECT_EQ(columns.DropColumn("B", true, false), 0);
  EXPECT_EQ(columns.GetCount(), 2);
  EXPECT_TRUE(columns.IsAdd("C"));
  EXPECT_EQ(columns.GetNewAttrStr(), "0");
  EXPECT_EQ(columns.GetNewAttr(), 1);
  EXPECT_EQ(columns.GetLastAttr(), 2);
  columns.Reset();
  EXPECT_EQ(columns.GetCount(), 0);
  EXPECT_EQ(columns.GetLastAttr(), 0);

  CSQLInfoConstraints constraints;
  EXPECT_EQ(constraints.AddConstraint("PK", true), 0);
  EXPECT_EQ(constraints.UnDropConstraint("PK"), 0);  // not dropped: nothing changes
  EXPECT_FALSE(constraints.IsDrop("PK"));
  EXPECT_EQ(constraints.DropConstraint("NOPE", false), 4);
}

// Loads a table record SCOTT.EMP; `values` are (name, new, old) triples.
void load(CSQLInfoBase& record, std::vector<std::array<const char*, 3>> values) {
  for (const auto& [name, value, init] : values)
    record.SetSQLValue(name, value, init);
}

std::string written(CSQLAlterTable& statement) {
  return trimmed(write(statement).text);
}

TEST(TableScript, PropertiesIntoTheStatement) {
  struct {
    const char* name;
    std::vector<std::array<const char*, 3>> values;
    const char* text;
  } const cases[] = {
      {"rename", {{"TABLE", "T2", "T1"}}, "ALTER TABLE S.T1 RENAME TO T2"},
      {"parallel restates an unchanged degree",
       {{"PARALLEL", "PARALLEL", "NOPARALLEL"}, {"PARALLEL;VALUE", "", "4"}},
       "ALTER TABLE S.T1 PARALLEL 4"},
      {"a changed degree alone is not scripted", {{"PARALLEL;VALUE", "8", "4"}}, ""},
      {"deallocate from a changed keep",
       {{"DEALLOCATE;KEEP", "10K", ""}},
       "ALTER TABLE S.T1 DEALLOCATE UNUSED KEEP 10K"},
      {"extent parameters need the extent", {{"EXTENT;SIZE", "1M", ""}}, ""},
      {"allocate extent",
       {{"EXTENT", "EXTENT", ""}, {"EXTENT;SIZE", "1M", ""}},
       "ALTER TABLE S.T1 ALLOCATE EXTENT (SIZE 1M)"},
      {"physical attributes and storage",
       {{"PCTFREE", "20", "10"}, {"NEXT", "1M", "64K"}, {"CACHE", "CACHE", "NOCACHE"}},
       "ALTER TABLE S.T1 PCTFREE 20 STORAGE (NEXT 1M) CACHE"},
      {"comments are not scripted", {{"COMMENTS", "new", "old"}}, ""},
      {"table lock", {{"ENABLE;LOCK", "DISABLE", "ENABLE"}}, "ALTER TABLE S.T1 DISABLE TABLE LOCK"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CSQLInfoTable table;
    load(table, {{"SCHEMA", "", "S"}, {"TABLE", "", "T1"}});
    load(table, c.values);
    CSQLAlterTable statement;
    Texts out;
    EXPECT_EQ(CSQLUtil::GenAltTableProperty(&statement, &out, &table), 0);
    EXPECT_EQ(written(statement), c.text);
    EXPECT_TRUE(out.empty());
  }
}

TEST(TableScript, MissingRecords) {
  CSQLAlterTable statement;
  Texts out;
  CSQLInfoTable table;
  CSQLInfoColumns columns;
  CSQLInfoConstraints constraints;
  EXPECT_EQ(CSQLUtil::GenAltColumn(&statement, &out, nullptr, &columns), SQL_RECORD_MISSING);
  EXPECT_EQ(CSQLUtil::GenAltColumn(&statement, &out, &table, nullptr), SQL_RECORD_MISSING);
  EXPECT_EQ(CSQLUtil::GenAltConstraint(&statement, &out, &table, nullptr), SQL_RECORD_MISSING);
  EXPECT_EQ(CSQLUtil::GenAltTable(nullptr, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(CSQLUtil::GenAltTableProperty(&statement, &out, nullptr), 0);
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(written(statement), "");
}

// SCOTT.EMP with: two renames, an added LOB column, a changed default, two dropped columns and one
// set unused.
TEST(ColumnScript, FullRun) {
  CSQLInfoTable table;
  load(table, {{"SCHEMA", "", "SCOTT"}, {"TABLE", "", "EMP"}});
  CSQLInfoColumns columns;
  columns.SetSQLValue("DROP;CASCADE", "CASCADE", "");
  for (const char* name : {"A", "B", "SAL", "X", "Y", "Z"}) {
    ASSERT_EQ(columns.AddColumn(name, true), 0);
    columns.GetColumn(name)->SetSQLValue("NAME", "", name);
    columns.GetColumn(name)->SetSQLValue("DATATYPE", "", "NUMBER");
  }
  columns.GetColumn("A")->SetSQLValue("NAME", "A2");
  columns.GetColumn("B")->SetSQLValue("NAME", "B2");
  columns.GetColumn("B")->SetSQLValue("DEFAULT", "7");  // renamed: scripted as a rename only
  columns.GetColumn("SAL")->SetSQLValue("DEFAULT", "1", "0");
  ASSERT_EQ(columns.AddColumn("DOC", false), 0);
  load(*columns.GetColumn("DOC"), {{"NAME", "DOC", ""},
                                   {"DATATYPE", "CLOB", ""},
                                   {"LOB;TABLESPACE", "LOBS", ""},
                                   {"LOB;CHUNK", "8192", ""}});
  columns.DropColumn("X", false, false);
  columns.DropColumn("Y", false, false);
  columns.DropColumn("Z", false, true);

  CSQLAlterTable statement;
  Texts out;
  ASSERT_EQ(CSQLUtil::GenAltColumn(&statement, &out, &table, &columns), 0);
  EXPECT_EQ(out, (Texts{"ALTER TABLE SCOTT.EMP RENAME COLUMN A TO A2",
                        "ALTER TABLE SCOTT.EMP RENAME COLUMN B TO B2",
                        "ALTER TABLE SCOTT.EMP DROP (X,Y) CASCADE CONSTRAINTS",
                        "ALTER TABLE SCOTT.EMP SET UNUSED (Z) CASCADE CONSTRAINTS"}));
  EXPECT_EQ(written(statement),
            "ALTER TABLE SCOTT.EMP ADD ( DOC CLOB) LOB (DOC) STORE AS (TABLESPACE LOBS CHUNK 8192) "
            "MODIFY ( SAL DEFAULT 1)");

  // The selectors: DROP does nothing, RENAME renames only, nothing without an output array.
  CSQLAlterTable again;
  Texts more;
  EXPECT_EQ(columns.BuildSQL("DROP", again.GetClause("C_COLUMN"), &again, &more, nullptr), 0);
  EXPECT_TRUE(more.empty());
  EXPECT_EQ(columns.BuildSQL("RENAME", again.GetClause("C_COLUMN"), &again, nullptr, nullptr), 0);
  EXPECT_EQ(columns.BuildSQL("RENAME", again.GetClause("C_COLUMN"), &again, &more, nullptr), 0);
  EXPECT_EQ(more.size(), 2u);
}

TEST(ColumnScript, ModificationsOfKeptColumns) {
  struct {
    const char* name;
    std::vector<std::array<const char*, 3>> values;
    const char* text;
  } const cases[] = {
      {"a wider type is restated whole",
       {{"DATATYPE", "NUMBER", "NUMBER"}, {"LENGTH", "12", "10"}, {"SCALE", "", "2"}},
       "ALTER TABLE S.T MODIFY ( C NUMBER (12 ,2))"},
      {"a default taken away", {{"DEFAULT", "", "0"}}, "ALTER TABLE S.T MODIFY ( C DEFAULT NULL)"},
      {"comments change nothing", {{"COMMENTS", "x", "y"}}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CSQLInfoTable table;
    load(table, {{"SCHEMA", "", "S"}, {"TABLE", "", "T"}});
    CSQLInfoColumns columns;
    columns.AddColumn("C", true);
    load(*columns.GetColumn("C"), {{"NAME", "", "C"}, {"DATATYPE", "", "NUMBER"}});
    load(*columns.GetColumn("C"), c.values);
    if (std::string(c.name) == "a default taken away") columns.GetColumn("C")->SetSQLValue("DEFAULT", "");
    CSQLAlterTable statement;
    Texts out;
    ASSERT_EQ(CSQLUtil::GenAltColumn(&statement, &out, &table, &columns), 0);
    EXPECT_EQ(written(statement), c.text);
    EXPECT_TRUE(out.empty());
  }

  // NOT NULL added to a kept column; LOB storage changed in place and moved.
  CSQLInfoTable table;
  load(table, {{"SCHEMA", "", "S"}, {"TABLE", "", "T"}});
  CSQLInfoColumns columns;
  columns.AddColumn("N", true);
  columns.GetColumn("N")->CONSTRAINT()->SetSQLValue("NULL", "NOT NULL", "");
  columns.AddColumn("DOC", true);
  load(*columns.GetColumn("DOC"),
       {{"DATATYPE", "", "CLOB"}, {"LOB;CACHE", "CACHE", "NOCACHE"}, {"LOB;TABLESPACE", "LOBS2", "LOBS"}});
  CSQLAlterTable statement;
  Texts out;
  ASSERT_EQ(CSQLUtil::GenAltColumn(&statement, &out, &table, &columns), 0);
  Texts passes;
  do {
    passes.push_back(written(statement));
    statement.RefreshUsed();
  } while (statement.hasUnused() && passes.size() < 5);
  EXPECT_EQ(passes, (Texts{"ALTER TABLE S.T MODIFY ( N NOT NULL)", "ALTER TABLE S.T MODIFY LOB (DOC) (CACHE)",
                           "ALTER TABLE S.T MOVE LOB (DOC) STORE AS (TABLESPACE LOBS2)"}));

  // A new chunk size and in-row storage need a new segment too: MODIFY LOB cannot change them.
  CSQLInfoColumns moved;
  moved.AddColumn("DOC", true);
  load(*moved.GetColumn("DOC"),
       {{"DATATYPE", "", "CLOB"}, {"LOB;CHUNK", "16384", "8192"}, {"LOB;ENABLE", "DISABLE", "ENABLE"}});
  CSQLAlterTable move;
  ASSERT_EQ(CSQLUtil::GenAltColumn(&move, &out, &table, &moved), 0);
  EXPECT_EQ(written(move), "ALTER TABLE S.T MOVE LOB (DOC) STORE AS (DISABLE STORAGE IN ROW CHUNK 16384)");
}

TEST(ConstraintScript, OneRun) {
  CSQLInfoTable table;
  load(table, {{"SCHEMA", "", "S"}, {"TABLE", "", "T"}});
  CSQLInfoConstraints constraints;
  for (const char* name : {"C1", "C2", "C3", "C5"}) {
    constraints.AddConstraint(name, true);
    constraints.GetConstraint(name)->SetSQLValue("NAME", "", name);
  }
  constraints.GetConstraint("C1")->SetSQLValue("CASCADE", "CASCADE", "");
  constraints.DropConstraint("C1", false);
  constraints.GetConstraint("C2")->STATE()->SetSQLValue("ENABLE", "DISABLE", "ENABLE");
  constraints.GetConstraint("C3")->SetSQLValue("NAME", "C3N");
  constraints.GetConstraint("C5")->SetSQLValue("NAME", "C5N");  // renamed and disabled: a rename only
  constraints.GetConstraint("C5")->STATE()->SetSQLValue("ENABLE", "DISABLE", "ENABLE");
  constraints.AddConstraint("FK", false);
  auto* fk = constraints.GetConstraint("FK");
  load(*fk, {{"NAME", "FK", ""},
             {"TYPE", "foreign key", ""},
             {"REF_SCHEMA", "S", ""},
             {"REF_TABLE", "DEPT", ""},
             {"REF_COLUMNS", "ID", ""},
             {"REF_DELETE", "set null", ""}});
  fk->SetColumnsString("DEPT_ID");
  EXPECT_EQ(fk->GetColumnsString(), "DEPT_ID");

  CSQLAlterTable statement;
  Texts out;
  ASSERT_EQ(CSQLUtil::GenAltConstraint(&statement, &out, &table, &constraints), 0);
  EXPECT_EQ(
      out,
      (Texts{"ALTER TABLE S.T DROP CONSTRAINT C1 CASCADE", "ALTER TABLE S.T MODIFY CONSTRAINT C2 DISABLE",
             "ALTER TABLE S.T RENAME CONSTRAINT C3 TO C3N", "ALTER TABLE S.T RENAME CONSTRAINT C5 TO C5N"}));
  EXPECT_EQ(
      written(statement),
      "ALTER TABLE S.T ADD CONSTRAINT FK FOREIGN KEY (DEPT_ID) REFERENCES S.DEPT (ID) ON DELETE SET NULL");
}

TEST(ConstraintScript, KindsAndState) {
  struct {
    const char* type;
    ConstraintKind kind;
  } const kinds[] = {{"PRIMARY KEY", ConstraintKind::PrimaryKey}, {"p", ConstraintKind::PrimaryKey},
                     {"Unique", ConstraintKind::Unique},          {"R", ConstraintKind::ForeignKey},
                     {" check ", ConstraintKind::Check},          {"NOT NULL", ConstraintKind::None}};
  for (const auto& k : kinds)
    EXPECT_EQ(ConstraintKindOf(k.type), k.kind) << k.type;

  CSQLPUBLIC::CConstraintState state;
  CSQLClauseConstraintState clause;
  EXPECT_EQ(state.BuildSQL("", &clause, nullptr, nullptr, nullptr), SQL_NOTHING);
  state.SetSQLValue("RELY", "RELY", "NORELY");
  state.SetSQLValue("CASCADE", "CASCADE", "");  // registered, never written by the state
  EXPECT_EQ(state.BuildSQL("", &clause, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(trimmed(write(clause).text), "RELY");
}

}  // namespace
}  // namespace qarvelt::testing
