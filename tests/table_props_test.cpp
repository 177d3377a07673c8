// Table physical and table properties, index-organized and external tables, supplemental logging,
// MOVE.
#include <gtest/gtest.h>

#include "qarvelt/clauses/constraint.h"
#include "qarvelt/clauses/lob.h"
#include "qarvelt/clauses/table_props.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Maker = std::function<std::unique_ptr<CSQLClause>()>;
using Location = CSQLClauseExtDataProp::CSubSQLItem;

// List items as a host builds them: column leaves hold their own name.
template <class Item>
std::unique_ptr<CSQLClause> item(const char* name) {
  return make_unique<Item>(name);
}
template <>
std::unique_ptr<CSQLClause> item<CSQLAttr>(const char* name) {
  return valued(name, name);
}
template <>
std::unique_ptr<CSQLClause> item<CSQLClauseEnableDisable>(const char* name) {
  return make_unique<CSQLClauseEnableDisable>(name, 7);
}

// A clause of class T with one Item per name appended to the list at `path`.
template <class T, class Item>
Maker withItems(int nOraVersion, const char* path, std::vector<const char*> names) {
  return [=] {
    auto tree = make_unique<T>(true, nOraVersion);
    for (const char* name : names)
      EXPECT_EQ(tree->AddAttr(path, item<Item>(name)), SQL_OK) << path;
    return tree;
  };
}

class TablePropClauses : public ::testing::TestWithParam<TreeCase> {};
TEST_P(TablePropClauses, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Physical,
    TablePropClauses,
    ::testing::Values(
        TreeCase{"organization heap",
                 make<CSQLClausePhysicalProp>(7),
                 {{"HEAP", "HEAP"},
                  {"HEAP;COMPRESS", "NOCOMPRESS"},
                  {"HEAP;C_SEG_ATTRIBUTE;LOGGING", "NOLOGGING"}},
                 "ORGANIZATION HEAP NOLOGGING NOCOMPRESS"},
        TreeCase{"organization index",
                 make<CSQLClausePhysicalProp>(7),
                 {{"INDEX", "INDEX"},
                  {"INDEX;C_IDX_ORG_TABLE;OVERFLOW", "OVERFLOW"},
                  {"INDEX;C_IDX_ORG_TABLE;OVERFLOW;C_SEG_ATTRIBUTE;TABLESPACE", "T"},
                  {"INDEX;C_IDX_ORG_TABLE;INCLUDING", "C"},
                  {"INDEX;C_IDX_ORG_TABLE;C_KEY_COMPRESSION;COMPRESS", "COMPRESS"},
                  {"INDEX;C_IDX_ORG_TABLE;C_KEY_COMPRESSION;COMPRESS;VALUE", "1"},
                  {"INDEX;C_IDX_ORG_TABLE;PCTTHRESHOLD", "20"}},
                 "ORGANIZATION INDEX PCTTHRESHOLD 20 COMPRESS 1 INCLUDING C OVERFLOW TABLESPACE T"},
        TreeCase{"organization external",
                 withItems<CSQLClausePhysicalProp, Location>(7, "EXTERNAL;C_EXT_DATA_PROP;LOCATION", {"F1"}),
                 {{"EXTERNAL", "EXTERNAL"},
                  {"EXTERNAL;C_EXT_DATA_PROP;REJECT", "UNLIMITED"},
                  {"EXTERNAL;C_EXT_DATA_PROP;LOCATION;F1;FILE", "f.csv"},
                  {"EXTERNAL;C_EXT_DATA_PROP;LOCATION;F1;DIRECTORY", "D"},
                  {"EXTERNAL;C_EXT_DATA_PROP;PARAMETERS", "RECORDS DELIMITED BY NEWLINE"},
                  {"EXTERNAL;C_EXT_DATA_PROP;DIRECTORY", "D"},
                  {"EXTERNAL;C_EXT_DATA_PROP;TYPE", "ORACLE_LOADER"}},
                 "ORGANIZATION EXTERNAL (TYPE ORACLE_LOADER DEFAULT DIRECTORY D ACCESS PARAMETERS (RECORDS "
                 "DELIMITED BY NEWLINE) LOCATION ( D: 'f.csv')) REJECT LIMIT UNLIMITED"},
        TreeCase{"cluster in Oracle 7",
                 withItems<CSQLClausePhysicalProp, CSQLAttr>(0, "CLUSTER;LIST", {"A", "B"}),
                 {{"CLUSTER", "C1"}},
                 "CLUSTER C1 (A,B)"},
        TreeCase{"cache monitoring parallel row movement",
                 make<CSQLClauseTableProp>(7),
                 {{"MOVEMENT", "ENABLE"},
                  {"C_PARALLEL;PARALLEL", "PARALLEL"},
                  {"C_PARALLEL;PARALLEL;VALUE", "4"},
                  {"MONITORING", "MONITORING"},
                  {"CACHE", "CACHE"}},
                 "CACHE MONITORING PARALLEL 4 ENABLE ROW MOVEMENT"},
        TreeCase{"constraint states and subquery",
                 withItems<CSQLClauseTableProp, CSQLClauseEnableDisable>(7, "LIST", {"E1", "E2"}),
                 {{"AS", "SELECT * FROM T"},
                  {"LIST;E2;ENABLE", "DISABLE"},
                  {"LIST;E2;CONSTRAINT", "C1"},
                  {"LIST;E1;ENABLE", "ENABLE"},
                  {"LIST;E1;PRIMARY", "PRIMARY"},
                  {"ROWDEPENDENCIES", "ROWDEPENDENCIES"},
                  {"CACHE", "NOCACHE"}},
                 "NOCACHE ROWDEPENDENCIES ENABLE PRIMARY KEY DISABLE CONSTRAINT C1 AS SELECT * FROM T"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Alter,
    TablePropClauses,
    ::testing::Values(
        TreeCase{"threshold and compression",
                 make<CSQLClauseAlterIOT>(7),
                 {{"C_KEY_COMPRESSION;COMPRESS", "NOCOMPRESS"}, {"PCTTHRESHOLD", "30", "20"}},
                 "PCTTHRESHOLD 30 NOCOMPRESS"},
        TreeCase{"alter overflow",
                 make<CSQLClauseAlterIOT>(7),
                 {{"C_ALTER_OVERFLOW;C_ALLOCATE_EXTENT;EXTENT", "EXTENT"},
                  {"C_ALTER_OVERFLOW;C_PHYSICAL_ATTRIBUTES;PCTFREE", "10", "5"}},
                 "OVERFLOW PCTFREE 10 ALLOCATE EXTENT"},
        TreeCase{"add overflow",
                 make<CSQLClauseAlterIOT>(1),
                 {{"C_ADD_OVERFLOW;OVERFLOW;C_SEG_ATTRIBUTE;TABLESPACE", "T"},
                  {"C_ADD_OVERFLOW;OVERFLOW", "OVERFLOW"}},
                 "ADD OVERFLOW TABLESPACE T"},
        TreeCase{"mapping table block references",
                 make<CSQLClauseAlterIOT>(3),
                 {{"C_ALTER_MAPPING_TABLE;UPDATE", "UPDATE"}},
                 "MAPPING TABLE UPDATE BLOCK REFERENCES"},
        TreeCase{"external directory and files",
                 withItems<CSQLClauseAlterExtTable, Location>(7, "LOCATION", {"F1", "F2"}),
                 {{"LOCATION;F2;FILE", "b.csv"},
                  {"LOCATION;F2;DIRECTORY", "D3"},
                  {"LOCATION;F1;FILE", "a.csv"},
                  {"PROJECT", "REFERENCED", "ALL"},
                  {"DIRECTORY", "D2", "D1"}},
                 "DEFAULT DIRECTORY D2 LOCATION ( 'a.csv',D3: 'b.csv') PROJECT COLUMN REFERENCED"},
        TreeCase{"add log group",
                 withItems<CSQLClauseSuppLgGrp, CSQLAttr>(3, "GROUP;LIST", {"A", "B"}),
                 {{"GROUP;ALWAYS", "ALWAYS"}, {"GROUP", "G"}, {"ADD", "ADD"}},
                 "ADD SUPPLEMENTAL LOG GROUP G (A,B) ALWAYS"},
        TreeCase{"add log data",
                 withItems<CSQLClauseSuppLgGrp, CSQLAttr>(5, "DATA;LIST", {"PRIMARY KEY", "UNIQUE"}),
                 {{"DATA", "DATA"}, {"ADD", "ADD"}},
                 "ADD SUPPLEMENTAL LOG DATA (PRIMARY KEY,UNIQUE) COLUMNS"},
        TreeCase{"move online",
                 make<CSQLClauseMoveTable>(7),
                 {{"C_KEY_COMPRESSION;COMPRESS", "COMPRESS"},
                  {"C_SEG_ATTRIBUTE;TABLESPACE", "T"},
                  {"ONLINE", "ONLINE"}},
                 "MOVE ONLINE TABLESPACE T COMPRESS"},
        TreeCase{"move opens by itself",
                 make<CSQLClauseMoveTable>(7),
                 {{"C_SEG_ATTRIBUTE;TABLESPACE", "DATA", "USERS"}},
                 "MOVE TABLESPACE DATA"},
        TreeCase{"bare move", make<CSQLClauseMoveTable>(2), {{"MOVE", "MOVE"}}, "MOVE"},
        TreeCase{"unchanged move writes nothing",
                 make<CSQLClauseMoveTable>(7),
                 {{"C_SEG_ATTRIBUTE;TABLESPACE", "USERS", "USERS"}},
                 ""},
        TreeCase{"move with lob storage",
                 withItems<CSQLClauseMoveTable, CSQLClauseLOBStorage>(7, "LIST", {"L1"}),
                 {{"C_PARALLEL;PARALLEL", "NOPARALLEL"},
                  {"LIST;L1;LOBITEM;C_LOB_PARAMETER;TABLESPACE", "L"},
                  {"LIST;L1;LOBITEM", "C"},
                  {"C_IDX_ORG_TABLE;MAPPING", "NOMAPPING"},
                  {"MOVE", "MOVE"}},
                 "MOVE NOMAPPING LOB (C) STORE AS (TABLESPACE L) NOPARALLEL"}),
    caseName);

// Paths that must exist at a release code, and paths that its gates remove.
TEST(TablePropClauses, ReleaseGates) {
  struct {
    Maker make;
    std::vector<const char*> present, absent;
  } const cases[] = {
      {make<CSQLClausePhysicalProp>(0), {"CLUSTER;LIST", "C_SEG_ATTRIBUTE"}, {"INDEX", "COMPRESS"}},
      {make<CSQLClausePhysicalProp>(1),
       {"INDEX;C_IDX_ORG_TABLE;INCLUDING"},
       {"EXTERNAL", "INDEX;C_IDX_ORG_TABLE;MAPPING"}},
      {make<CSQLClausePhysicalProp>(3), {"EXTERNAL;C_EXT_DATA_PROP;LOCATION"}, {"HEAP;COMPRESS"}},
      {make<CSQLClausePhysicalProp>(4), {"HEAP;COMPRESS", "EXTERNAL;C_EXT_DATA_PROP;CLOB"}, {}},
      {make<CSQLClauseIdxOrgTable>(2), {"C_KEY_COMPRESSION"}, {"MAPPING"}},
      {make<CSQLClauseTableProp>(0), {"C_PARALLEL;PARALLEL;LIST", "CACHE"}, {"C_TABLE_PART"}},
      {make<CSQLClauseTableProp>(1), {"C_TABLE_PART"}, {"MONITORING", "MOVEMENT"}},
      {make<CSQLClauseTableProp>(4), {"MOVEMENT", "C_PARALLEL;PARALLEL;VALUE"}, {"ROWDEPENDENCIES"}},
      {make<CSQLClauseAlterIOT>(0), {}, {"PCTTHRESHOLD", "C_ADD_OVERFLOW"}},
      {make<CSQLClauseAlterIOT>(1), {"C_ADD_OVERFLOW;OVERFLOW"}, {"COALESCE", "C_ALTER_OVERFLOW;LOGGING"}},
      {make<CSQLClauseAlterIOT>(2), {"COALESCE", "C_KEY_COMPRESSION"}, {"C_ALTER_MAPPING_TABLE"}},
      {make<CSQLClauseAlterIOT>(3), {"C_ALTER_MAPPING_TABLE;C_DEALLOCATE_UNUSED"}, {}},
      {make<CSQLClauseAlterExtTable>(2), {}, {"DIRECTORY"}},
      {make<CSQLClauseAlterExtTable>(4), {"LOCATION", "CLOB"}, {"PROJECT"}},
      {make<CSQLClauseSuppLgGrp>(2), {}, {"ADD", "GROUP"}},
      {make<CSQLClauseSuppLgGrp>(4), {"GROUP;ALWAYS"}, {"DATA"}},
      {make<CSQLClauseSuppLgProp>(5), {"DATA;LIST"}, {}},
      {make<CSQLClauseMoveTable>(1), {}, {"MOVE", "C_SEG_ATTRIBUTE"}},
      {make<CSQLClauseMoveTable>(2), {"ONLINE", "C_PARALLEL;PARALLEL;LIST"}, {"C_IDX_ORG_TABLE;MAPPING"}},
  };
  for (const auto& c : cases) {
    auto tree = c.make();
    for (const char* path : c.present)
      EXPECT_NE(tree->GetClause(path), nullptr) << tree->GetOraVersion() << " " << path;
    for (const char* path : c.absent)
      EXPECT_EQ(tree->GetClause(path), nullptr) << tree->GetOraVersion() << " " << path;
  }
}

// The node names and paths by which the statements and the change scripts reach these clauses.
TEST(TablePropClauses, PathsFromTheStatements) {
  Named root("ROOT");
  for (const Maker& clause :
       {make<CSQLClausePhysicalProp>(7), make<CSQLClauseTableProp>(7), make<CSQLClauseSuppLgProp>(7),
        make<CSQLClauseSuppLgGrp>(7), make<CSQLClauseAlterIOT>(7), make<CSQLClauseAlterExtTable>(7),
        make<CSQLClauseMoveTable>(7)})
    root.AddAttr(nullptr, clause());
  for (const char* path : {"C_PHYSICAL_PROP;EXTERNAL;C_EXT_DATA_PROP", "C_TABLE_PROP",
                           "C_SUPPLEMENTAL_LG_PROP", "C_SUPPLEMENTAL_LG_GRP", "C_ALTER_IOT;C_ALTER_OVERFLOW",
                           "C_ALT_EXT_TAB", "C_MOVE_TABLE;C_SEG_ATTRIBUTE;TABLESPACE", "C_MOVE_TABLE;LIST"})
    EXPECT_NE(root.GetClause(path), nullptr) << path;
}

}  // namespace
}  // namespace qarvelt::testing
