// CREATE DIMENSION: levels, hierarchies with their joins, attributes, and the release gates.
#include <gtest/gtest.h>

#include "qarvelt/statements/dimension.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Dim = CSQLCreateDimension;

// An item appended under a list path before the values are set.
struct Append {
  std::string list;
  std::function<std::unique_ptr<CSQLClause>()> item;
};

// A plain leaf holding its own name: a column or a level of a list.
Append name(const char* list, const char* value) {
  return {list, [=] { return make_unique<CSQLAttr>(value, "", value); }};
}

template <class Item>
Append item(const char* list, const char* itemName) {
  return {list, [=] { return make_unique<Item>(itemName); }};
}

template <class Item>
Append item(const char* list, const char* itemName, int release) {
  return {list, [=] { return make_unique<Item>(itemName, release); }};
}

std::function<std::unique_ptr<CSQLClause>()> dimension(int release, std::vector<Append> appends) {
  return [=] {
    auto d = make_unique<Dim>(true, release);
    for (const Append& a : appends)
      EXPECT_EQ(d->AddAttr(a.list.c_str(), a.item()), SQL_OK) << a.list;
    return d;
  };
}

// The customers dimension of a sales schema: three levels, one of them over two columns.
std::vector<Append> customerLevels(int release) {
  return {item<Dim::CSubSQLItemLevel>("LIST_LEVEL", "CUSTOMER", release),
          name("LIST_LEVEL;CUSTOMER;LIST", "CUSTOMERS.CUST_ID"),
          item<Dim::CSubSQLItemLevel>("LIST_LEVEL", "CITY", release),
          name("LIST_LEVEL;CITY;LIST", "CUSTOMERS.CUST_CITY"),
          name("LIST_LEVEL;CITY;LIST", "CUSTOMERS.CUST_STATE"),
          item<Dim::CSubSQLItemLevel>("LIST_LEVEL", "STATE", release),
          name("LIST_LEVEL;STATE;LIST", "CUSTOMERS.CUST_STATE")};
}

const std::vector<Set> kCustomerLevelNames = {{"DIMENSION", "CUSTOMERS_DIM"},
                                              {"SCHEMA", "SH"},
                                              {"LIST_LEVEL;CUSTOMER;LEVEL", "CUSTOMER"},
                                              {"LIST_LEVEL;CITY;LEVEL", "CITY"},
                                              {"LIST_LEVEL;STATE;LEVEL", "STATE"}};

std::vector<Append> plus(std::vector<Append> a, const std::vector<Append>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

std::vector<Set> plus(std::vector<Set> a, const std::vector<Set>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

class CreateDimension : public ::testing::TestWithParam<TreeCase> {};
TEST_P(CreateDimension, WriteExactText) {
  checkTreeCase(GetParam());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, CreateDimension, ::testing::Values(
    // Oracle8i: levels, a denormalised hierarchy and an attribute of the lowest level.
    TreeCase{"levels hierarchy attribute 8i",
             dimension(2, plus(customerLevels(2),
                               {item<Dim::CSubSQLItemHierarchy>("LIST_HIERARCHY", "GEOG_ROLLUP"),
                                name("LIST_HIERARCHY;GEOG_ROLLUP;LIST", "CUSTOMER"),
                                name("LIST_HIERARCHY;GEOG_ROLLUP;LIST", "CITY"),
                                name("LIST_HIERARCHY;GEOG_ROLLUP;LIST", "STATE"),
                                item<Dim::CSubSQLItemAttribute>("LIST_ATTRIBUTE", "CUST_INFO", 2),
                                name("LIST_ATTRIBUTE;CUST_INFO;LIST", "CUSTOMERS.CUST_FIRST_NAME"),
                                name("LIST_ATTRIBUTE;CUST_INFO;LIST", "CUSTOMERS.CUST_LAST_NAME")})),
             plus(kCustomerLevelNames, {{"LIST_ATTRIBUTE;CUST_INFO;ATTRIBUTE", "CUSTOMER"},
                                        {"LIST_HIERARCHY;GEOG_ROLLUP;HIERARCHY", "GEOG_ROLLUP"}}),
             "CREATE DIMENSION SH.CUSTOMERS_DIM LEVEL CUSTOMER IS (CUSTOMERS.CUST_ID) LEVEL CITY IS "
             "(CUSTOMERS.CUST_CITY,CUSTOMERS.CUST_STATE) LEVEL STATE IS (CUSTOMERS.CUST_STATE) "
             "HIERARCHY GEOG_ROLLUP (CUSTOMER CHILD OF CITY CHILD OF STATE) "
             "ATTRIBUTE CUSTOMER DETERMINES (CUSTOMERS.CUST_FIRST_NAME,CUSTOMERS.CUST_LAST_NAME)"},
    // A normalised schema: each step of the hierarchy joins its own table to the parent level.
    TreeCase{"hierarchy with join keys",
             dimension(3, {item<Dim::CSubSQLItemLevel>("LIST_LEVEL", "CITY", 3),
                           name("LIST_LEVEL;CITY;LIST", "CITIES.CITY_ID"),
                           item<Dim::CSubSQLItemLevel>("LIST_LEVEL", "STATE", 3),
                           name("LIST_LEVEL;STATE;LIST", "STATES.COUNTRY_ID"),
                           name("LIST_LEVEL;STATE;LIST", "STATES.STATE_CODE"),
                           item<Dim::CSubSQLItemLevel>("LIST_LEVEL", "COUNTRY", 3),
                           name("LIST_LEVEL;COUNTRY;LIST", "COUNTRIES.COUNTRY_ID"),
                           item<Dim::CSubSQLItemHierarchy>("LIST_HIERARCHY", "GEOG"),
                           name("LIST_HIERARCHY;GEOG;LIST", "CITY"),
                           name("LIST_HIERARCHY;GEOG;LIST", "STATE"),
                           name("LIST_HIERARCHY;GEOG;LIST", "COUNTRY"),
                           item<Dim::CSubSQLItemJoinKey>("LIST_HIERARCHY;GEOG;LIST_JOIN_KEY", "TO_STATE"),
                           name("LIST_HIERARCHY;GEOG;LIST_JOIN_KEY;TO_STATE;LIST", "CITIES.COUNTRY_ID"),
                           name("LIST_HIERARCHY;GEOG;LIST_JOIN_KEY;TO_STATE;LIST", "CITIES.STATE_CODE"),
                           item<Dim::CSubSQLItemJoinKey>("LIST_HIERARCHY;GEOG;LIST_JOIN_KEY", "TO_COUNTRY"),
                           name("LIST_HIERARCHY;GEOG;LIST_JOIN_KEY;TO_COUNTRY;LIST", "STATES.COUNTRY_ID")}),
             {{"DIMENSION", "GEOG_DIM"}, {"LIST_LEVEL;CITY;LEVEL", "CITY"}, {"LIST_LEVEL;STATE;LEVEL", "STATE"},
              {"LIST_LEVEL;COUNTRY;LEVEL", "COUNTRY"}, {"LIST_HIERARCHY;GEOG;HIERARCHY", "GEOG"},
              {"LIST_HIERARCHY;GEOG;LIST_JOIN_KEY;TO_STATE;REFERENCES", "STATE"},
              {"LIST_HIERARCHY;GEOG;LIST_JOIN_KEY;TO_COUNTRY;REFERENCES", "COUNTRY"}},
             "CREATE DIMENSION GEOG_DIM LEVEL CITY IS (CITIES.CITY_ID) LEVEL STATE IS (STATES.COUNTRY_ID,STATES.STATE_CODE) "
             "LEVEL COUNTRY IS (COUNTRIES.COUNTRY_ID) HIERARCHY GEOG (CITY CHILD OF STATE CHILD OF COUNTRY "
             "JOIN KEY (CITIES.COUNTRY_ID,CITIES.STATE_CODE) REFERENCES STATE "
             "JOIN KEY (STATES.COUNTRY_ID) REFERENCES COUNTRY)"},
    // Oracle Database 10g: a level that may be null, and an attribute with a name of its own.
    TreeCase{"skip when null and named attribute 10g",
             dimension(5, plus(customerLevels(5),
                               {item<Dim::CSubSQLItemAttribute>("LIST_ATTRIBUTE", "NAME", 5),
                                name("LIST_ATTRIBUTE;NAME;LIST", "CUST_FIRST_NAME"),
 name("LIST_ATTRIBUTE;NAME;LIST", "CUST_LAST_NAME")})),
             plus(kCustomerLevelNames, {{"LIST_LEVEL;CITY;SKIP", "SKIP"},
                                        {"LIST_ATTRIBUTE;NAME;ATTRIBUTE", "CUST_NAME"},
                                        {"LIST_ATTRIBUTE;NAME;LEVEL", "CUSTOMER"}}),
             "CREATE DIMENSION SH.CUSTOMERS_DIM LEVEL CUSTOMER IS (CUSTOMERS.CUST_ID) LEVEL CITY IS "
             "(CUSTOMERS.CUST_CITY,CUSTOMERS.CUST_STATE) SKIP WHEN NULL LEVEL STATE IS (CUSTOMERS.CUST_STATE) "
             "ATTRIBUTE CUST_NAME LEVEL CUSTOMER DETERMINES (CUST_FIRST_NAME,CUST_LAST_NAME)"}),
    caseName);
// clang-format on

// Below Oracle 10g a level cannot skip nulls and an attribute has no LEVEL of its own; below
// Oracle8i there is no dimension at all, so every path is refused and only the head is written.
TEST(CreateDimension, ReleaseGates) {
  Dim::CSubSQLItemLevel level9("CITY", 4);
  EXPECT_EQ(level9.SetValue("SKIP", "SKIP"), SQL_NOT_FOUND);
  Dim::CSubSQLItemAttribute attribute9("CITY", 4);
  EXPECT_EQ(attribute9.SetValue("LEVEL", "CITY"), SQL_NOT_FOUND);
  EXPECT_EQ(attribute9.SetValue("ATTRIBUTE", "CITY"), SQL_OK);

  for (int release : {0, 1}) {
    Dim dim(true, release);
    EXPECT_EQ(dim.SetValue("DIMENSION", "D"), SQL_NOT_FOUND) << release;
    EXPECT_EQ(dim.AddAttr("LIST_LEVEL", make_unique<Dim::CSubSQLItemLevel>("L")), SQL_NOT_FOUND) << release;
    EXPECT_EQ(trimmed(write(dim).text), "CREATE") << release;
  }
}

// Levels written after the name and before the hierarchies whatever order the host appends in,
// and a level's columns kept in the host's order.
TEST(CreateDimension, ListsKeepTheirPlaces) {
  auto d =
      dimension(7, plus({item<Dim::CSubSQLItemHierarchy>("LIST_HIERARCHY", "H"),
                         name("LIST_HIERARCHY;H;LIST", "A"), name("LIST_HIERARCHY;H;LIST", "B")},
                        {item<Dim::CSubSQLItemLevel>("LIST_LEVEL", "B"), name("LIST_LEVEL;B;LIST", "T.B"),
                         item<Dim::CSubSQLItemLevel>("LIST_LEVEL", "A"), name("LIST_LEVEL;A;LIST", "T.A"),
                         name("LIST_LEVEL;A;LIST", "T.A2")}))();
  for (const Set& s : std::vector<Set>{{"DIMENSION", "D"},
                                       {"LIST_LEVEL;A;LEVEL", "A"},
                                       {"LIST_LEVEL;B;LEVEL", "B"},
                                       {"LIST_HIERARCHY;H;HIERARCHY", "H"}})
    ASSERT_EQ(d->SetValue(s.path, s.value), SQL_OK) << s.path;
  EXPECT_EQ(trimmed(write(*d).text),
            "CREATE DIMENSION D LEVEL B IS (T.B) LEVEL A IS (T.A,T.A2) HIERARCHY H (A CHILD OF B)");
}

}  // namespace
}  // namespace qarvelt::testing
