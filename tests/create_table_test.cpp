// CREATE TABLE and CREATE INDEX written whole from paths and list items.
#include <gtest/gtest.h>

#include <qarvelt/clauses/constraint.h>
#include <qarvelt/statements/create_index.h>
#include <qarvelt/statements/create_table.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;

constexpr const char* kColumns = "C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST";

// A relational table with one item per name; items are columns or constraints as their paths make them.
std::function<std::unique_ptr<CSQLClause>()> table(std::vector<const char*> items, int nOraVersion = 7) {
  return [=] {
    auto t = make_unique<CSQLCreateTable>(true, nOraVersion);
    for (const char* name : items)
      t->AddAttr(kColumns, make_unique<CSQLCreateTable::CSubSQLItemProp>(name));
    return t;
  };
}

std::function<std::unique_ptr<CSQLClause>()> tableWithNotNull() {
  return [] {
    auto t = table({"EMPNO", "ENAME", "PK"})();
    t->AddAttr("C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;EMPNO;LIST",
               make_unique<CSQLClauseInlineConstraint>("NN"));
    t->AddAttr("C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;PK;C_OUTLINE_CONSTRAINT;PRIMARY;LIST",
               make_unique<CSQLAttr>("EMPNO", "", "EMPNO"));
    return t;
  };
}

// An index with items appended under list paths: "=" appends a leaf holding the name (column,
// tablespace and value lists), "+" an item of class Item; the indexed column list takes expression items.
template <class Item>
std::function<std::unique_ptr<CSQLClause>()> index(std::vector<std::pair<std::string, const char*>> items) {
  return [=] {
    auto i = make_unique<CSQLCreateIndex>();
    for (const auto& [list, name] : items) {
      const std::string path = list.substr(1);
      if (path == "C_TABLE_INDEX;LIST") {
        i->AddAttr(path.c_str(), make_unique<CSQLCreateIndex::CSubSQLItemIndexExpr>(name));
      } else if (list[0] == '=') {
        i->AddAttr(path.c_str(), make_unique<CSQLAttr>(name, "", name));
      } else {
        i->AddAttr(path.c_str(), make_unique<Item>(name));
      }
    }
    return i;
  };
}

class CreateStatements : public ::testing::TestWithParam<TreeCase> {};
TEST_P(CreateStatements, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Tables,
    CreateStatements,
    ::testing::Values(
        TreeCase{"relational table with an out-of-line constraint",
                 tableWithNotNull(),
                 {{"C_RELATIONAL_TABLE;SCHEMA", "SCOTT"},
                  {"C_RELATIONAL_TABLE;TABLE", "EMP"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;EMPNO;COLUMN", "EMPNO"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;EMPNO;DATATYPE", "NUMBER"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;EMPNO;DATATYPE;LENGTH", "4"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;EMPNO;LIST;NN;NULL", "NOT NULL"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;ENAME;COLUMN", "ENAME"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;ENAME;DATATYPE", "VARCHAR2"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;ENAME;DEFAULT", "'?'"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;PK;C_OUTLINE_CONSTRAINT;CONSTRAINT", "PK"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;PK;C_OUTLINE_CONSTRAINT;PRIMARY", "PRIMARY"},
                  {"C_RELATIONAL_TABLE;C_PHYSICAL_PROP;C_SEG_ATTRIBUTE;TABLESPACE", "USERS"}},
                 "CREATE TABLE SCOTT.EMP (EMPNO NUMBER (4) NOT NULL,\nENAME VARCHAR2 DEFAULT '?',\n"
                 "CONSTRAINT PK PRIMARY KEY (EMPNO)) TABLESPACE USERS"},
        TreeCase{"global temporary table",
                 table({"A"}),
                 {{"C_RELATIONAL_TABLE;TEMPORARY", "TEMPORARY"},
                  {"C_RELATIONAL_TABLE;TABLE", "T"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;A;COLUMN", "A"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;A;DATATYPE", "DATE"},
                  {"C_RELATIONAL_TABLE;COMMIT", "PRESERVE"}},
                 "CREATE GLOBAL TEMPORARY TABLE T (A DATE) ON COMMIT PRESERVE ROWS"},
        TreeCase{"permanent table drops ON COMMIT",
                 table({"A"}),
                 {{"C_RELATIONAL_TABLE;TABLE", "T"},
                  {"C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;A;COLUMN", "A"},
                  {"C_RELATIONAL_TABLE;COMMIT", "DELETE"}},
                 "CREATE TABLE T (A)"},
        TreeCase{"object table",
                 table({}),
                 {{"C_OBJECT_TABLE;SCHEMA", "S"},
                  {"C_OBJECT_TABLE;TABLE", "PEOPLE"},
                  {"C_OBJECT_TABLE;TYPE_SCHEMA", "S"},
                  {"C_OBJECT_TABLE;OBJECT_TYPE", "PERSON_T"},
                  {"C_OBJECT_TABLE;NOT", "NOT"},
                  {"C_OBJECT_TABLE;SUBSTITUTABLE", "SUBSTITUTABLE"},
                  {"C_OBJECT_TABLE;C_OBJECT_PROPERTY;ATTRIBUTE", "ID"},
                  {"C_OBJECT_TABLE;C_OBJECT_PROPERTY;EXPR", "0"},
                  {"C_OBJECT_TABLE;OID", "PRIMARY KEY"}},
                 "CREATE TABLE S.PEOPLE OF S.PERSON_T NOT SUBSTITUTABLE AT ALL LEVELS (ID DEFAULT 0) "
                 "OBJECT IDENTIFIER IS PRIMARY KEY"},
        TreeCase{"object table writes ON COMMIT without TEMPORARY",
                 table({}),
                 {{"C_OBJECT_TABLE;TABLE", "T"},
                  {"C_OBJECT_TABLE;OBJECT_TYPE", "TY"},
                  {"C_OBJECT_TABLE;COMMIT", "DELETE"}},
                 "CREATE TABLE T OF TY ON COMMIT DELETE ROWS"},
        TreeCase{"nothing set writes the head", table({}), {}, "CREATE"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Indexes,
    CreateStatements,
    ::testing::Values(
        TreeCase{"unique index on columns with tablespace",
                 index<CSQLCreateIndex::CSubSQLItemPartition>({{"+C_TABLE_INDEX;LIST", "A"},
                                                               {"+C_TABLE_INDEX;LIST", "B"}}),
                 {{"TYPE", "UNIQUE"},
                  {"SCHEMA", "S"},
                  {"INDEX", "I"},
                  {"C_TABLE_INDEX;SCHEMA", "S"},
                  {"C_TABLE_INDEX;TABLE", "T"},
                  {"C_TABLE_INDEX;LIST;A;COLUMN", "A"},
                  {"C_TABLE_INDEX;LIST;B;COLUMN", "B"},
                  {"C_TABLE_INDEX;LIST;B;ASC", "DESC"},
                  {"C_TABLE_INDEX;C_INDEX_ATTRIBUTES;TABLESPACE", "IDX"},
                  {"C_TABLE_INDEX;C_INDEX_ATTRIBUTES;LOGGING", "NOLOGGING"}},
                 "CREATE UNIQUE INDEX S.I ON S.T ( A,B DESC) NOLOGGING TABLESPACE IDX"},
        TreeCase{"domain index",
                 index<CSQLCreateIndex::CSubSQLItemPartition>({{"+C_TABLE_INDEX;LIST", "DOC"}}),
                 {{"INDEX", "I"},
                  {"C_TABLE_INDEX;TABLE", "T"},
                  {"C_TABLE_INDEX;LIST;DOC;COLUMN", "DOC"},
                  {"C_TABLE_INDEX;C_DOMAIN_INDEX;INDEXTYPE", "CTXSYS.CONTEXT"},
                  {"C_TABLE_INDEX;C_DOMAIN_INDEX;PARAMETERS", "SYNC (ON COMMIT)"}},
                 "CREATE INDEX I ON T ( DOC) INDEXTYPE IS CTXSYS.CONTEXT PARAMETERS ('SYNC (ON COMMIT)')"},
        TreeCase{"cluster index",
                 index<CSQLCreateIndex::CSubSQLItemPartition>({}),
                 {{"INDEX", "I"},
                  {"C_CLUSTER_INDEX;SCHEMA", "S"},
                  {"C_CLUSTER_INDEX;CLUSTER", "C"},
                  {"C_CLUSTER_INDEX;C_INDEX_ATTRIBUTES;REVERSE", "REVERSE"}},
                 "CREATE INDEX I ON CLUSTER S.C REVERSE"},
        TreeCase{"local index on a range table",
                 index<CSQLCreateIndex::CSubSQLItemPartition>(
                     {{"+C_TABLE_INDEX;LIST", "A"},
                      {"+C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL;C_ON_RANGE;LIST", "P1"},
                      {"+C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL;C_ON_RANGE;LIST", "P2"}}),
                 {{"INDEX", "I"},
                  {"C_TABLE_INDEX;TABLE", "T"},
                  {"C_TABLE_INDEX;LIST;A;COLUMN", "A"},
                  {"C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL", "LOCAL"},
                  {"C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL;C_ON_RANGE;LIST;P1;PARTITION", "P1"},
                  {"C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL;C_ON_RANGE;LIST;P1;C_SEG_ATTRIBUTE;TABLESPACE", "T1"},
                  {"C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL;C_ON_RANGE;LIST;P2;PARTITION", "P2"}},
                 "CREATE INDEX I ON T ( A) LOCAL ( PARTITION P1 TABLESPACE T1,PARTITION P2)"},
        TreeCase{
            "local hash index stored in tablespaces",
            index<CSQLCreateIndex::CSubSQLItemPartition>(
                {{"=C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL;C_ON_HASH;LISTTAB", "T1"},
                 {"=C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL;C_ON_HASH;LISTTAB", "T2"}}),
            {{"INDEX", "I"}, {"C_TABLE_INDEX;TABLE", "T"}, {"C_TABLE_INDEX;C_LOCAL_PARTED;LOCAL", "LOCAL"}},
            "CREATE INDEX I ON T LOCAL STORE IN (T1,T2)"},
        TreeCase{"global range partitioned index",
                 index<CSQLCreateIndex::CSubSQLItemGlobalPartitioning>(
                     {{"=C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LIST", "A"},
                      {"+C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LISTPART", "P1"},
                      {"=C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LISTPART;P1;LIST", "10"},
                      {"+C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LISTPART", "P2"},
                      {"=C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LISTPART;P2;LIST", "MAXVALUE"}}),
                 {{"INDEX", "I"},
                  {"C_TABLE_INDEX;TABLE", "T"},
                  {"C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LISTPART;P1;PARTITION", "P1"},
                  {"C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LISTPART;P2;PARTITION", "P2"},
                  {"C_TABLE_INDEX;C_GLOBAL_PARTED;C_RANGE_PART;LISTPART;P2;C_SEG_ATTRIBUTE;TABLESPACE", "X"}},
                 "CREATE INDEX I ON T GLOBAL PARTITION BY RANGE (A) ( PARTITION P1 VALUES LESS THAN (10),"
                 "PARTITION P2 VALUES LESS THAN (MAXVALUE) TABLESPACE X)"}),
    caseName);

TEST(CreateStatements, ReleaseGates) {
  CSQLCreateTable one(true, 1);
  EXPECT_EQ(one.GetClause("C_OBJECT_TABLE"), nullptr);
  EXPECT_EQ(one.SetValue("C_OBJECT_TABLE;TABLE", "T"), SQL_NOT_FOUND);
  CSQLCreateTable two(true, 2);
  EXPECT_NE(two.GetClause("C_OBJECT_TABLE;TEMPORARY"), nullptr);
  EXPECT_EQ(two.GetClause("C_RELATIONAL_TABLE;TEMPORARY"), nullptr);
  EXPECT_EQ(two.GetClause("C_RELATIONAL_TABLE;COMMIT"), nullptr);
  CSQLCreateTable three(true, 3);
  EXPECT_NE(three.GetClause("C_RELATIONAL_TABLE;COMMIT"), nullptr);
  // Nested clauses of a list item are always the latest release's; the properties follow the statement.
  CSQLCreateTable::CSubSQLItemProp item("A");
  EXPECT_EQ(item.GetClause("DATATYPE")->GetOraVersion(), 7);
  EXPECT_EQ(three.GetClause("C_RELATIONAL_TABLE;C_PHYSICAL_PROP")->GetOraVersion(), 3);
}

TEST(CreateStatements, CloneKeepsTheTemporaryRuleWithoutItsSource) {
  auto source = table({"A"})();
  source->SetValue("C_RELATIONAL_TABLE;TABLE", "T");
  source->SetValue("C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;A;COLUMN", "A");
  source->SetValue("C_RELATIONAL_TABLE;COMMIT", "DELETE");
  auto clone = source->Clone();
  source.reset();  // the clone's ON COMMIT leaf must not refer into the deleted source
  EXPECT_EQ(trimmed(write(*clone).text), "CREATE TABLE T (A)");
  clone->SetValue("C_RELATIONAL_TABLE;TEMPORARY", "TEMPORARY");
  EXPECT_EQ(trimmed(write(*clone).text), "CREATE GLOBAL TEMPORARY TABLE T (A) ON COMMIT DELETE ROWS");
}

}  // namespace
}  // namespace qarvelt::testing
