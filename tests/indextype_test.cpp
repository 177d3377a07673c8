// CREATE OPERATOR, CREATE INDEXTYPE and ALTER INDEXTYPE: bindings, index types over them, the
// alterations of an index type, and the release gates.
#include <gtest/gtest.h>

#include "qarvelt/statements/indextype.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Op = CSQLCreateOperator;
using Create = CSQLCreateIndexType;
using Alter = CSQLAlterIndexType;

// An item appended under a list path before the values are set.
struct Append {
  std::string list;
  std::function<std::unique_ptr<CSQLClause>()> item;
};

// A plain leaf holding a type name; two arguments of one type are two leaves of one name.
Append type(const std::string& list, const char* value) {
  return {list, [=] { return make_unique<CSQLAttr>(value, "", value); }};
}

template <class Item, class... Release>
Append item(const char* list, const char* itemName, Release... release) {
  return {list, [=] { return make_unique<Item>(itemName, release...); }};
}

template <class T>
std::function<std::unique_ptr<CSQLClause>()> statement(int release, std::vector<Append> appends) {
  return [=] {
    auto s = make_unique<T>(true, release);
    for (const Append& a : appends)
      EXPECT_EQ(s->AddAttr(a.list.c_str(), a.item()), SQL_OK) << a.list;
    return s;
  };
}

// A text search operator, CONTAINS (VARCHAR2,VARCHAR2) or (CLOB,VARCHAR2), as FOR, ADD or DROP name it.
std::vector<Append> containsBinding(const char* list, const char* itemName, const char* firstType) {
  const std::string types = std::string(list) + ";" + itemName + ";LIST";
  std::vector<Append> out = {type(types, firstType), type(types, "VARCHAR2")};
  if (std::string(list) == "LIST_ADD_DROP") {
    out.insert(out.begin(), item<Alter::CSubSQLItemOperator>(list, itemName));
  } else {
    out.insert(out.begin(), item<Create::CSubSQLItemOperator>(list, itemName));
  }
  return out;
}

class CreateOperator : public ::testing::TestWithParam<TreeCase> {};
TEST_P(CreateOperator, WriteExactText) {
  checkTreeCase(GetParam());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, CreateOperator, ::testing::Values(
    // A primary operator evaluated through an index: two bindings, the second a package function.
    TreeCase{"primary with index context 8i",
             statement<Op>(2, {item<Op::CSubSQLItemBinding>("LIST_BINDING", "B1", 2),
                               type("LIST_BINDING;B1;LIST", "VARCHAR2"), type("LIST_BINDING;B1;LIST", "VARCHAR2"),
                               item<Op::CSubSQLItemBinding>("LIST_BINDING", "B2", 2),
                               type("LIST_BINDING;B2;LIST", "CLOB"), type("LIST_BINDING;B2;LIST", "VARCHAR2")}),
             {{"SCHEMA", "CTX"}, {"OPERATOR", "CONTAINS"},
              {"LIST_BINDING;B1;RETURN", "NUMBER"},
              {"LIST_BINDING;B1;C_CONTEXT;SCAN", "CTX.TEXTINDEXMETHODS"},
              {"LIST_BINDING;B1;C_CONTEXT;SCAN;COMPUTE", "COMPUTE"},
              {"LIST_BINDING;B1;SCHEMA", "CTX"}, {"LIST_BINDING;B1;FUNCTION", "TEXTCONTAINS"},
              {"LIST_BINDING;B2;RETURN", "NUMBER"},
              {"LIST_BINDING;B2;C_CONTEXT;SCAN", "CTX.TEXTINDEXMETHODS"},
              {"LIST_BINDING;B2;SCHEMA", "CTX"}, {"LIST_BINDING;B2;PACKAGE", "TEXTPKG"},
              {"LIST_BINDING;B2;FUNCTION", "CONTAINS_CLOB"}},
             "CREATE OPERATOR CTX.CONTAINS BINDING (VARCHAR2,VARCHAR2) RETURN NUMBER "
             "WITH INDEX CONTEXT, SCAN CONTEXT CTX.TEXTINDEXMETHODS COMPUTE ANCILLARY DATA "
             "USING CTX.TEXTCONTAINS, (CLOB,VARCHAR2) RETURN NUMBER "
             "WITH INDEX CONTEXT, SCAN CONTEXT CTX.TEXTINDEXMETHODS USING CTX.TEXTPKG.CONTAINS_CLOB"},
    // An ancillary operator serving two bindings of its primary operator.
    TreeCase{"ancillary to two primaries",
             statement<Op>(2, {item<Op::CSubSQLItemBinding>("LIST_BINDING", "B", 2),
                               type("LIST_BINDING;B;LIST", "NUMBER"),
                               item<Op::CSubSQLItemAncillary>("LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY", "P1"),
                               type("LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P1;LIST", "VARCHAR2"),
                               type("LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P1;LIST", "VARCHAR2"),
                               item<Op::CSubSQLItemAncillary>("LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY", "P2"),
                               type("LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P2;LIST", "CLOB"),
                               type("LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P2;LIST", "VARCHAR2")}),
             {{"REPLACE", "REPLACE"}, {"SCHEMA", "CTX"}, {"OPERATOR", "SCORE"},
              {"LIST_BINDING;B;RETURN", "NUMBER"},
              {"LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P1;SCHEMA", "CTX"},
              {"LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P1;OPERATOR", "CONTAINS"},
              {"LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P2;OPERATOR", "CONTAINS"},
              {"LIST_BINDING;B;FUNCTION", "TEXTSCORE"}},
             "CREATE OR REPLACE OPERATOR CTX.SCORE BINDING (NUMBER) RETURN NUMBER "
             "ANCILLARY TO CTX.CONTAINS (VARCHAR2,VARCHAR2), CONTAINS (CLOB,VARCHAR2) USING TEXTSCORE"},
    // Oracle Database 10g: the function gets the column's context.
    TreeCase{"column context 10g",
             statement<Op>(5, {item<Op::CSubSQLItemBinding>("LIST_BINDING", "B", 5),
                               type("LIST_BINDING;B;LIST", "SDO_GEOMETRY"),
                               type("LIST_BINDING;B;LIST", "SDO_GEOMETRY")}),
             {{"OPERATOR", "GEO_EQUAL"}, {"LIST_BINDING;B;RETURN", "VARCHAR2"},
              {"LIST_BINDING;B;C_CONTEXT;COLUMN", "COLUMN"}, {"LIST_BINDING;B;FUNCTION", "GEO_EQUAL_F"}},
             "CREATE OPERATOR GEO_EQUAL BINDING (SDO_GEOMETRY,SDO_GEOMETRY) RETURN VARCHAR2 "
             "WITH COLUMN CONTEXT USING GEO_EQUAL_F"}),
    caseName);

class CreateIndexType : public ::testing::TestWithParam<TreeCase> {};
TEST_P(CreateIndexType, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Cases, CreateIndexType, ::testing::Values(
    TreeCase{"two operators 8i",
             statement<Create>(2, [] {
               auto a = containsBinding("LIST_FOR", "O1", "VARCHAR2");
               auto b = containsBinding("LIST_FOR", "O2", "CLOB");
               a.insert(a.end(), b.begin(), b.end());
               return a;
             }()),
             {{"SCHEMA", "CTX"}, {"INDEXTYPE", "CONTEXT"},
              {"LIST_FOR;O1;SCHEMA", "CTX"}, {"LIST_FOR;O1;OPERATOR", "CONTAINS"},
              {"LIST_FOR;O2;SCHEMA", "CTX"}, {"LIST_FOR;O2;OPERATOR", "CONTAINS"},
              {"C_USING_TYPE;SCHEMA", "CTX"}, {"C_USING_TYPE;TYPE", "TEXTINDEXMETHODS"}},
             "CREATE INDEXTYPE CTX.CONTEXT FOR CTX.CONTAINS (VARCHAR2,VARCHAR2), CTX.CONTAINS (CLOB,VARCHAR2) "
             "USING CTX.TEXTINDEXMETHODS"},
    TreeCase{"local range partition 9i",
             statement<Create>(3, containsBinding("LIST_FOR", "O", "VARCHAR2")),
             {{"INDEXTYPE", "TEXTINDEX"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"},
              {"C_USING_TYPE;TYPE", "TEXTMETHODS"}, {"LOCAL", "LOCAL"}},
             "CREATE INDEXTYPE TEXTINDEX FOR CONTAINS (VARCHAR2,VARCHAR2) USING TEXTMETHODS "
             "WITH LOCAL RANGE PARTITION"},
    TreeCase{"or replace with array dml 10g",
             statement<Create>(5, [] {
               auto a = containsBinding("LIST_FOR", "O", "VARCHAR2");
               a.push_back(item<Create::CSubSQLItemArrayDML>("C_USING_TYPE;DML;LIST", "T1"));
               a.push_back(item<Create::CSubSQLItemArrayDML>("C_USING_TYPE;DML;LIST", "T2"));
               return a;
             }()),
             {{"REPLACE", "REPLACE"}, {"INDEXTYPE", "TEXTINDEX"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"},
              {"C_USING_TYPE;TYPE", "TEXTMETHODS"}, {"C_USING_TYPE;DML", "WITH"},
              {"C_USING_TYPE;DML;LIST;T1;SCHEMA", "S"}, {"C_USING_TYPE;DML;LIST;T1;TYPE", "DOC_T"},
              {"C_USING_TYPE;DML;LIST;T1;SCHEMA2", "S"}, {"C_USING_TYPE;DML;LIST;T1;VARRAY", "DOC_VA"},
              {"C_USING_TYPE;DML;LIST;T2;TYPE", "NUM_T"}, {"LOCAL", "LOCAL"}},
             "CREATE OR REPLACE INDEXTYPE TEXTINDEX FOR CONTAINS (VARCHAR2,VARCHAR2) USING TEXTMETHODS "
             "WITH ARRAY DML (S.DOC_T , S.DOC_VA),(NUM_T) WITH LOCAL RANGE PARTITION"},
    TreeCase{"without array dml 10g",
             statement<Create>(6, containsBinding("LIST_FOR", "O", "VARCHAR2")),
             {{"INDEXTYPE", "TEXTINDEX"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"},
              {"C_USING_TYPE;TYPE", "TEXTMETHODS"}, {"C_USING_TYPE;DML", "WITHOUT"}},
             "CREATE INDEXTYPE TEXTINDEX FOR CONTAINS (VARCHAR2,VARCHAR2) USING TEXTMETHODS "
             "WITHOUT ARRAY DML"},
    // Oracle Database 11g: system-managed domain indexes on any partitioning method.
    TreeCase{"local partition and storage tables 11g",
             statement<Create>(7, containsBinding("LIST_FOR", "O", "VARCHAR2")),
             {{"INDEXTYPE", "TEXTINDEX"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"},
              {"C_USING_TYPE;TYPE", "TEXTMETHODS"}, {"LOCAL", "LOCAL"}, {"MANAGED", "SYSTEM"}},
             "CREATE INDEXTYPE TEXTINDEX FOR CONTAINS (VARCHAR2,VARCHAR2) USING TEXTMETHODS "
             "WITH LOCAL PARTITION WITH SYSTEM MANAGED STORAGE TABLES"},
    TreeCase{"local range partition 11g",
             statement<Create>(7, containsBinding("LIST_FOR", "O", "VARCHAR2")),
             {{"INDEXTYPE", "TEXTINDEX"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"},
              {"C_USING_TYPE;TYPE", "TEXTMETHODS"}, {"LOCAL", "LOCAL"}, {"LOCAL;RANGE", "RANGE"},
              {"MANAGED", "USER"}},
             "CREATE INDEXTYPE TEXTINDEX FOR CONTAINS (VARCHAR2,VARCHAR2) USING TEXTMETHODS "
             "WITH LOCAL RANGE PARTITION WITH USER MANAGED STORAGE TABLES"}),
    caseName);

class AlterIndexType : public ::testing::TestWithParam<TreeCase> {};
TEST_P(AlterIndexType, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Cases, AlterIndexType, ::testing::Values(
    TreeCase{"add with using 9i",
             statement<Alter>(3, containsBinding("LIST_ADD_DROP", "O", "CLOB")),
             {{"SCHEMA", "CTX"}, {"INDEXTYPE", "CONTEXT"}, {"LIST_ADD_DROP;O;ADD", "ADD"},
              {"LIST_ADD_DROP;O;SCHEMA", "CTX"}, {"LIST_ADD_DROP;O;OPERATOR", "CONTAINS"},
              {"C_USING_TYPE;SCHEMA", "CTX"}, {"C_USING_TYPE;TYPE", "TEXTINDEXMETHODS"}},
             "ALTER INDEXTYPE CTX.CONTEXT ADD CTX.CONTAINS (CLOB,VARCHAR2) USING CTX.TEXTINDEXMETHODS"},
    TreeCase{"add and drop",
             statement<Alter>(4, [] {
               auto a = containsBinding("LIST_ADD_DROP", "NEW", "CLOB");
               auto b = containsBinding("LIST_ADD_DROP", "OLD", "VARCHAR2");
               a.insert(a.end(), b.begin(), b.end());
               return a;
             }()),
             {{"INDEXTYPE", "TEXTINDEX"}, {"LIST_ADD_DROP;NEW;ADD", "ADD"},
              {"LIST_ADD_DROP;NEW;OPERATOR", "CONTAINS"}, {"LIST_ADD_DROP;OLD;DROP", "DROP"},
              {"LIST_ADD_DROP;OLD;OPERATOR", "CONTAINS"}},
             "ALTER INDEXTYPE TEXTINDEX ADD CONTAINS (CLOB,VARCHAR2), DROP CONTAINS (VARCHAR2,VARCHAR2)"},
    TreeCase{"array dml 10g",
             statement<Alter>(5, containsBinding("LIST_ADD_DROP", "O", "CLOB")),
             {{"INDEXTYPE", "TEXTINDEX"}, {"LIST_ADD_DROP;O;ADD", "ADD"}, {"LIST_ADD_DROP;O;OPERATOR", "CONTAINS"},
              {"C_USING_TYPE;TYPE", "TEXTMETHODS"}, {"C_USING_TYPE;DML", "WITH"}},
             "ALTER INDEXTYPE TEXTINDEX ADD CONTAINS (CLOB,VARCHAR2) USING TEXTMETHODS WITH ARRAY DML"},
    TreeCase{"compile", statement<Alter>(7, {}),
             {{"SCHEMA", "CTX"}, {"INDEXTYPE", "CONTEXT"}, {"COMPILE", "COMPILE"}},
             "ALTER INDEXTYPE CTX.CONTEXT COMPILE"},
    // The index type as it stands: nothing to alter, nothing written.
    TreeCase{"unchanged", statement<Alter>(7, {}),
             {{"SCHEMA", "CTX"}, {"INDEXTYPE", "CONTEXT"}, {"COMPILE", "COMPILE", "COMPILE"}}, ""}),
    caseName);
// clang-format on

// Each piece of syntax is refused below the release that brought it.
TEST(IndexTypeReleases, PathsRefusedBeforeTheirRelease) {
  struct Gate {
    std::function<std::unique_ptr<CSQLClause>(int)> make;
    const char* path;
    int release;  // the first release that has the path
  };
  const auto op = [](int v) -> std::unique_ptr<CSQLClause> { return make_unique<Op>(true, v); };
  const auto binding = [](int v) -> std::unique_ptr<CSQLClause> {
    return make_unique<Op::CSubSQLItemBinding>("B", v);
  };
  const auto create = [](int v) -> std::unique_ptr<CSQLClause> { return make_unique<Create>(true, v); };
  const auto alter = [](int v) -> std::unique_ptr<CSQLClause> { return make_unique<Alter>(true, v); };
  const Gate gates[] = {
      {op, "OPERATOR", 2},        {binding, "C_CONTEXT;COLUMN", 5}, {create, "INDEXTYPE", 2},
      {create, "LOCAL", 3},       {create, "REPLACE", 5},           {create, "C_USING_TYPE;DML", 5},
      {create, "LOCAL;RANGE", 7}, {create, "MANAGED", 7},           {alter, "INDEXTYPE", 3},
      {alter, "COMPILE", 3},      {alter, "C_USING_TYPE;DML", 5},
  };
  for (const Gate& g : gates) {
    for (int v = 0; v <= 7; ++v) {
      auto tree = g.make(v);
      EXPECT_EQ(tree->SetValue(g.path, "X"), v >= g.release ? SQL_OK : SQL_NOT_FOUND)
          << g.path << " at " << v;
    }
  }
}

// Before its release a statement writes no more than its head: CREATE alone, and for ALTER nothing.
TEST(IndexTypeReleases, EmptyBeforeTheStatementExists) {
  Op op(true, 1);
  Create create(true, 1);
  Alter alter(true, 2);
  EXPECT_EQ(trimmed(write(op).text), "CREATE");
  EXPECT_EQ(trimmed(write(create).text), "CREATE");
  const Written altered = write(alter);
  EXPECT_EQ(altered.text, "");
  EXPECT_EQ(altered.code, SQL_NOTHING);
}

// An ALTER that both changes the operators and asks for COMPILE gives two statements, one per pass.
TEST(AlterIndexType, TwoAlterationsTwoPasses) {
  auto alter = statement<Alter>(7, containsBinding("LIST_ADD_DROP", "O", "CLOB"))();
  for (const Set& s : std::vector<Set>{{"INDEXTYPE", "T"},
                                       {"LIST_ADD_DROP;O;DROP", "DROP"},
                                       {"LIST_ADD_DROP;O;OPERATOR", "OP"},
                                       {"COMPILE", "COMPILE"}})
    ASSERT_EQ(alter->SetValue(s.path, s.value), SQL_OK) << s.path;
  std::vector<std::string> texts;
  for (int pass = 0; pass < 5 && alter->hasUnused(); ++pass) {
    texts.push_back(trimmed(write(*alter).text));
    alter->RefreshUsed();
  }
  EXPECT_EQ(texts, (std::vector<std::string>{"ALTER INDEXTYPE T DROP OP (CLOB,VARCHAR2)",
                                             "ALTER INDEXTYPE T COMPILE"}));
}

}  // namespace
}  // namespace qarvelt::testing
