// CREATE DIMENSION, CREATE OPERATOR, CREATE INDEXTYPE and ALTER INDEXTYPE: realistic statements, one
// case per alternative, and the release gates.
#include <gtest/gtest.h>

#include "qarvelt/statements/dimension.h"
#include "qarvelt/statements/indextype.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Dim = CSQLCreateDimension;
using Op = CSQLCreateOperator;
using Create = CSQLCreateIndexType;
using Alter = CSQLAlterIndexType;

std::unique_ptr<CSQLClause> newItem(const std::string& kind, const char* name, int v) {
  if (kind == "level") return make_unique<Dim::CSubSQLItemLevel>(name, v);
  if (kind == "hierarchy") return make_unique<Dim::CSubSQLItemHierarchy>(name);
  if (kind == "join") return make_unique<Dim::CSubSQLItemJoinKey>(name);
  if (kind == "attribute") return make_unique<Dim::CSubSQLItemAttribute>(name, v);
  if (kind == "binding") return make_unique<Op::CSubSQLItemBinding>(name, v);
  if (kind == "ancillary") return make_unique<Op::CSubSQLItemAncillary>(name);
  if (kind == "for") return make_unique<Create::CSubSQLItemOperator>(name);
  if (kind == "array") return make_unique<Create::CSubSQLItemArrayDML>(name);
  if (kind == "alter") return make_unique<Alter::CSubSQLItemOperator>(name);
  return make_unique<CSQLAttr>(name, "", name);  // a column, level or type name
}

// A statement with items appended before its values are set, one string each: "LIST=NAME" appends
// a plain leaf holding NAME, "LIST+kind:NAME" an item of that kind named NAME.
template <class T>
std::function<std::unique_ptr<CSQLClause>()> tree(int v, std::vector<std::string> appends) {
  return [=] {
    auto root = make_unique<T>(true, v);
    for (const std::string& a : appends) {
      const std::size_t cut = a.find_first_of("=+");
      const std::size_t colon = a.find(':');
      const bool plain = a[cut] == '=';
      const std::string kind = plain ? "" : a.substr(cut + 1, colon - cut - 1);
      const std::string name = a.substr(plain ? cut + 1 : colon + 1);
      EXPECT_EQ(root->AddAttr(a.substr(0, cut).c_str(), newItem(kind, name.c_str(), v)), SQL_OK) << a;
    }
    return root;
  };
}

class DimensionsIndexTypes : public ::testing::TestWithParam<TreeCase> {};
TEST_P(DimensionsIndexTypes, WriteExactText) {
  checkTreeCase(GetParam());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, DimensionsIndexTypes, ::testing::Values(
    // Oracle8i, a denormalised customers table: levels, a hierarchy and an attribute.
    TreeCase{"dimension 8i", tree<Dim>(2, {"LIST_LEVEL+level:CUSTOMER", "LIST_LEVEL;CUSTOMER;LIST=CUSTOMERS.CUST_ID",
        "LIST_LEVEL+level:CITY", "LIST_LEVEL;CITY;LIST=CUSTOMERS.CUST_CITY", "LIST_LEVEL;CITY;LIST=CUSTOMERS.CUST_STATE",
        "LIST_HIERARCHY+hierarchy:H", "LIST_HIERARCHY;H;LIST=CUSTOMER", "LIST_HIERARCHY;H;LIST=CITY",
        "LIST_ATTRIBUTE+attribute:A", "LIST_ATTRIBUTE;A;LIST=CUST_FIRST_NAME", "LIST_ATTRIBUTE;A;LIST=CUST_LAST_NAME"}),
      {{"SCHEMA", "SH"}, {"DIMENSION", "CUSTOMERS_DIM"}, {"LIST_LEVEL;CUSTOMER;LEVEL", "CUSTOMER"},
       {"LIST_LEVEL;CITY;LEVEL", "CITY"}, {"LIST_HIERARCHY;H;HIERARCHY", "GEOG_ROLLUP"},
       {"LIST_ATTRIBUTE;A;ATTRIBUTE", "CUSTOMER"}},
      "CREATE DIMENSION SH.CUSTOMERS_DIM LEVEL CUSTOMER IS (CUSTOMERS.CUST_ID) "
      "LEVEL CITY IS (CUSTOMERS.CUST_CITY,CUSTOMERS.CUST_STATE) HIERARCHY GEOG_ROLLUP (CUSTOMER CHILD OF CITY) "
      "ATTRIBUTE CUSTOMER DETERMINES (CUST_FIRST_NAME,CUST_LAST_NAME)"},
    // A normalised schema: each step of the hierarchy joins its table to the parent level's key.
    TreeCase{"dimension join keys", tree<Dim>(3, {"LIST_LEVEL+level:CITY", "LIST_LEVEL;CITY;LIST=CITIES.CITY_ID",
        "LIST_LEVEL+level:STATE", "LIST_LEVEL;STATE;LIST=STATES.COUNTRY_ID", "LIST_LEVEL;STATE;LIST=STATES.STATE_CODE",
        "LIST_LEVEL+level:COUNTRY", "LIST_LEVEL;COUNTRY;LIST=COUNTRIES.COUNTRY_ID",
        "LIST_HIERARCHY+hierarchy:H", "LIST_HIERARCHY;H;LIST=CITY", "LIST_HIERARCHY;H;LIST=STATE",
        "LIST_HIERARCHY;H;LIST=COUNTRY", "LIST_HIERARCHY;H;LIST_JOIN_KEY+join:J1",
        "LIST_HIERARCHY;H;LIST_JOIN_KEY;J1;LIST=CITIES.COUNTRY_ID", "LIST_HIERARCHY;H;LIST_JOIN_KEY;J1;LIST=CITIES.STATE_CODE",
        "LIST_HIERARCHY;H;LIST_JOIN_KEY+join:J2", "LIST_HIERARCHY;H;LIST_JOIN_KEY;J2;LIST=STATES.COUNTRY_ID"}),
      {{"DIMENSION", "GEOG_DIM"}, {"LIST_LEVEL;CITY;LEVEL", "CITY"}, {"LIST_LEVEL;STATE;LEVEL", "STATE"},
       {"LIST_LEVEL;COUNTRY;LEVEL", "COUNTRY"}, {"LIST_HIERARCHY;H;HIERARCHY", "GEOG"},
       {"LIST_HIERARCHY;H;LIST_JOIN_KEY;J1;REFERENCES", "STATE"},
       {"LIST_HIERARCHY;H;LIST_JOIN_KEY;J2;REFERENCES", "COUNTRY"}},
      "CREATE DIMENSION GEOG_DIM LEVEL CITY IS (CITIES.CITY_ID) LEVEL STATE IS (STATES.COUNTRY_ID,STATES.STATE_CODE) "
      "LEVEL COUNTRY IS (COUNTRIES.COUNTRY_ID) HIERARCHY GEOG (CITY CHILD OF STATE CHILD OF COUNTRY "
      "JOIN KEY (CITIES.COUNTRY_ID,CITIES.STATE_CODE) REFERENCES STATE JOIN KEY (STATES.COUNTRY_ID) REFERENCES COUNTRY)"},
    // Oracle Database 10g: a level that may be null, and an attribute with a name of its own.
    TreeCase{"dimension 10g", tree<Dim>(5, {"LIST_LEVEL+level:CITY", "LIST_LEVEL;CITY;LIST=CUSTOMERS.CUST_CITY",
        "LIST_ATTRIBUTE+attribute:A", "LIST_ATTRIBUTE;A;LIST=CUST_CITY_NAME"}),
      {{"DIMENSION", "D"}, {"LIST_LEVEL;CITY;LEVEL", "CITY"}, {"LIST_LEVEL;CITY;SKIP", "SKIP"},
       {"LIST_ATTRIBUTE;A;ATTRIBUTE", "CITY_NAME"}, {"LIST_ATTRIBUTE;A;LEVEL", "CITY"}},
      "CREATE DIMENSION D LEVEL CITY IS (CUSTOMERS.CUST_CITY) SKIP WHEN NULL "
      "ATTRIBUTE CITY_NAME LEVEL CITY DETERMINES (CUST_CITY_NAME)"},
    // A primary operator evaluated through an index, two bindings, the second a package function.
    TreeCase{"operator index context 8i", tree<Op>(2, {"LIST_BINDING+binding:B1", "LIST_BINDING;B1;LIST=VARCHAR2",
        "LIST_BINDING;B1;LIST=VARCHAR2", "LIST_BINDING+binding:B2", "LIST_BINDING;B2;LIST=CLOB",
        "LIST_BINDING;B2;LIST=VARCHAR2"}),
      {{"SCHEMA", "CTX"}, {"OPERATOR", "CONTAINS"}, {"LIST_BINDING;B1;RETURN", "NUMBER"},
       {"LIST_BINDING;B1;C_CONTEXT;SCAN", "CTX.TEXTMETHODS"}, {"LIST_BINDING;B1;C_CONTEXT;SCAN;COMPUTE", "COMPUTE"},
       {"LIST_BINDING;B1;FUNCTION", "TEXTCONTAINS"}, {"LIST_BINDING;B2;RETURN", "NUMBER"},
       {"LIST_BINDING;B2;C_CONTEXT;SCAN", "CTX.TEXTMETHODS"}, {"LIST_BINDING;B2;SCHEMA", "CTX"},
       {"LIST_BINDING;B2;PACKAGE", "TEXTPKG"}, {"LIST_BINDING;B2;FUNCTION", "CONTAINS_CLOB"}},
      "CREATE OPERATOR CTX.CONTAINS BINDING (VARCHAR2,VARCHAR2) RETURN NUMBER WITH INDEX CONTEXT, "
      "SCAN CONTEXT CTX.TEXTMETHODS COMPUTE ANCILLARY DATA USING TEXTCONTAINS, (CLOB,VARCHAR2) RETURN NUMBER "
      "WITH INDEX CONTEXT, SCAN CONTEXT CTX.TEXTMETHODS USING CTX.TEXTPKG.CONTAINS_CLOB"},
    TreeCase{"operator ancillary", tree<Op>(2, {"LIST_BINDING+binding:B", "LIST_BINDING;B;LIST=NUMBER",
        "LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY+ancillary:P1", "LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P1;LIST=VARCHAR2",
        "LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY+ancillary:P2", "LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P2;LIST=CLOB"}),
      {{"REPLACE", "REPLACE"}, {"SCHEMA", "CTX"}, {"OPERATOR", "SCORE"}, {"LIST_BINDING;B;RETURN", "NUMBER"},
       {"LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P1;SCHEMA", "CTX"},
       {"LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P1;OPERATOR", "CONTAINS"},
       {"LIST_BINDING;B;C_ANCILLARY;LIST_ANCILLARY;P2;OPERATOR", "CONTAINS"}, {"LIST_BINDING;B;FUNCTION", "TEXTSCORE"}},
      "CREATE OR REPLACE OPERATOR CTX.SCORE BINDING (NUMBER) RETURN NUMBER "
      "ANCILLARY TO CTX.CONTAINS (VARCHAR2), CONTAINS (CLOB) USING TEXTSCORE"},
    TreeCase{"operator column context 10g", tree<Op>(5, {"LIST_BINDING+binding:B", "LIST_BINDING;B;LIST=VARCHAR2"}),
      {{"OPERATOR", "EQ"}, {"LIST_BINDING;B;RETURN", "NUMBER"}, {"LIST_BINDING;B;C_CONTEXT;COLUMN", "COLUMN"},
       {"LIST_BINDING;B;FUNCTION", "EQ_F"}},
      "CREATE OPERATOR EQ BINDING (VARCHAR2) RETURN NUMBER WITH COLUMN CONTEXT USING EQ_F"},
    TreeCase{"indextype 8i", tree<Create>(2, {"LIST_FOR+for:O1", "LIST_FOR;O1;LIST=VARCHAR2", "LIST_FOR;O1;LIST=VARCHAR2",
        "LIST_FOR+for:O2", "LIST_FOR;O2;LIST=CLOB", "LIST_FOR;O2;LIST=VARCHAR2"}),
      {{"SCHEMA", "CTX"}, {"INDEXTYPE", "CONTEXT"}, {"LIST_FOR;O1;SCHEMA", "CTX"}, {"LIST_FOR;O1;OPERATOR", "CONTAINS"},
       {"LIST_FOR;O2;OPERATOR", "CONTAINS"}, {"C_USING_TYPE;SCHEMA", "CTX"}, {"C_USING_TYPE;TYPE", "TEXTMETHODS"}},
      "CREATE INDEXTYPE CTX.CONTEXT FOR CTX.CONTAINS (VARCHAR2,VARCHAR2), CONTAINS (CLOB,VARCHAR2) "
      "USING CTX.TEXTMETHODS"},
    TreeCase{"indextype local range 9i", tree<Create>(3, {"LIST_FOR+for:O", "LIST_FOR;O;LIST=VARCHAR2"}),
      {{"INDEXTYPE", "TI"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"}, {"C_USING_TYPE;TYPE", "TM"}, {"LOCAL", "LOCAL"}},
      "CREATE INDEXTYPE TI FOR CONTAINS (VARCHAR2) USING TM WITH LOCAL RANGE PARTITION"},
    TreeCase{"indextype array dml 10g", tree<Create>(5, {"LIST_FOR+for:O", "LIST_FOR;O;LIST=VARCHAR2",
        "C_USING_TYPE;DML;LIST+array:T1", "C_USING_TYPE;DML;LIST+array:T2"}),
      {{"REPLACE", "REPLACE"}, {"INDEXTYPE", "TI"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"}, {"C_USING_TYPE;TYPE", "TM"},
       {"C_USING_TYPE;DML", "WITH"}, {"C_USING_TYPE;DML;LIST;T1;SCHEMA", "S"}, {"C_USING_TYPE;DML;LIST;T1;TYPE", "DOC_T"},
       {"C_USING_TYPE;DML;LIST;T1;SCHEMA2", "S"}, {"C_USING_TYPE;DML;LIST;T1;VARRAY", "DOC_VA"},
       {"C_USING_TYPE;DML;LIST;T2;TYPE", "NUM_T"}},
      "CREATE OR REPLACE INDEXTYPE TI FOR CONTAINS (VARCHAR2) USING TM WITH ARRAY DML (S.DOC_T , S.DOC_VA),(NUM_T)"},
    TreeCase{"indextype without array dml", tree<Create>(6, {"LIST_FOR+for:O", "LIST_FOR;O;LIST=VARCHAR2"}),
      {{"INDEXTYPE", "TI"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"}, {"C_USING_TYPE;TYPE", "TM"},
       {"C_USING_TYPE;DML", "WITHOUT"}},
      "CREATE INDEXTYPE TI FOR CONTAINS (VARCHAR2) USING TM WITHOUT ARRAY DML"},
    // Oracle Database 11g: RANGE optional, storage tables managed by the system or the user.
    TreeCase{"indextype 11g", tree<Create>(7, {"LIST_FOR+for:O", "LIST_FOR;O;LIST=VARCHAR2"}),
      {{"INDEXTYPE", "TI"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"}, {"C_USING_TYPE;TYPE", "TM"}, {"LOCAL", "LOCAL"},
       {"MANAGED", "SYSTEM"}},
      "CREATE INDEXTYPE TI FOR CONTAINS (VARCHAR2) USING TM WITH LOCAL PARTITION WITH SYSTEM MANAGED STORAGE TABLES"},
    TreeCase{"indextype 11g range", tree<Create>(7, {"LIST_FOR+for:O", "LIST_FOR;O;LIST=VARCHAR2"}),
      {{"INDEXTYPE", "TI"}, {"LIST_FOR;O;OPERATOR", "CONTAINS"}, {"C_USING_TYPE;TYPE", "TM"}, {"LOCAL", "LOCAL"},
       {"LOCAL;RANGE", "RANGE"}, {"MANAGED", "USER"}},
      "CREATE INDEXTYPE TI FOR CONTAINS (VARCHAR2) USING TM WITH LOCAL RANGE PARTITION WITH USER MANAGED STORAGE TABLES"},
    TreeCase{"alter add and drop 9i", tree<Alter>(3, {"LIST_ADD_DROP+alter:NEW", "LIST_ADD_DROP;NEW;LIST=CLOB",
        "LIST_ADD_DROP+alter:OLD", "LIST_ADD_DROP;OLD;LIST=VARCHAR2"}),
      {{"SCHEMA", "CTX"}, {"INDEXTYPE", "CONTEXT"}, {"LIST_ADD_DROP;NEW;ADD", "ADD"},
       {"LIST_ADD_DROP;NEW;SCHEMA", "CTX"}, {"LIST_ADD_DROP;NEW;OPERATOR", "CONTAINS"},
       {"LIST_ADD_DROP;OLD;DROP", "DROP"}, {"LIST_ADD_DROP;OLD;OPERATOR", "CONTAINS"}, {"C_USING_TYPE;TYPE", "TM"}},
      "ALTER INDEXTYPE CTX.CONTEXT ADD CTX.CONTAINS (CLOB), DROP CONTAINS (VARCHAR2) USING TM"},
    TreeCase{"alter array dml 10g", tree<Alter>(5, {"LIST_ADD_DROP+alter:O", "LIST_ADD_DROP;O;LIST=CLOB"}),
      {{"INDEXTYPE", "TI"}, {"LIST_ADD_DROP;O;ADD", "ADD"}, {"LIST_ADD_DROP;O;OPERATOR", "CONTAINS"},
       {"C_USING_TYPE;TYPE", "TM"}, {"C_USING_TYPE;DML", "WITH"}},
      "ALTER INDEXTYPE TI ADD CONTAINS (CLOB) USING TM WITH ARRAY DML"},
    TreeCase{"alter compile", tree<Alter>(7, {}), {{"SCHEMA", "CTX"}, {"INDEXTYPE", "CONTEXT"}, {"COMPILE", "COMPILE"}},
      "ALTER INDEXTYPE CTX.CONTEXT COMPILE"},
    TreeCase{"alter unchanged", tree<Alter>(7, {}), {{"INDEXTYPE", "TI"}, {"COMPILE", "COMPILE", "COMPILE"}}, ""}),
    caseName);
// clang-format on

// Each piece of syntax is refused below the release that brought it; below that of the statement the
// tree is empty, so a CREATE writes its head alone and ALTER INDEXTYPE writes nothing.
TEST(DimensionsIndexTypes, ReleaseGates) {
  struct Gate {
    std::function<std::unique_ptr<CSQLClause>(int)> make;
    const char* path;
    int release;  // the first release code that has the path
  };
  const auto build = [](auto sample) {
    return [](int v) -> std::unique_ptr<CSQLClause> { return make_unique<decltype(sample)>(true, v); };
  };
  const auto item = [](auto sample) {
    return [](int v) -> std::unique_ptr<CSQLClause> { return make_unique<decltype(sample)>("I", v); };
  };
  const Gate gates[] = {
      {build(Dim(false)), "DIMENSION", 2},
      {item(Dim::CSubSQLItemLevel(false)), "SKIP", 5},
      {item(Dim::CSubSQLItemAttribute(false)), "LEVEL", 5},
      {build(Op(false)), "OPERATOR", 2},
      {item(Op::CSubSQLItemBinding(false)), "C_CONTEXT;COLUMN", 5},
      {build(Create(false)), "INDEXTYPE", 2},
      {build(Create(false)), "LOCAL", 3},
      {build(Create(false)), "REPLACE", 5},
      {build(Create(false)), "C_USING_TYPE;DML", 5},
      {build(Create(false)), "LOCAL;RANGE", 7},
      {build(Create(false)), "MANAGED", 7},
      {build(Alter(false)), "COMPILE", 3},
      {build(Alter(false)), "C_USING_TYPE;DML", 5},
  };
  for (const Gate& g : gates) {
    for (int v = 0; v <= kLatestRelease; ++v) {
      EXPECT_EQ(g.make(v)->SetValue(g.path, "X"), v >= g.release ? SQL_OK : SQL_NOT_FOUND)
          << g.path << " at " << v;
    }
  }
  for (auto* create : {static_cast<CSQLClause*>(new Dim(true, 1)), static_cast<CSQLClause*>(new Op(true, 1)),
                       static_cast<CSQLClause*>(new Create(true, 1))}) {
    EXPECT_EQ(trimmed(write(*create).text), "CREATE");
    delete create;
  }
  Alter alter(true, 2);
  EXPECT_EQ(write(alter).code, SQL_NOTHING);
}

}  // namespace
}  // namespace qarvelt::testing
