// Statements in the form Oracle accepts: keywords where the grammar puts them, LOB items in the form
// of the list that holds them, templates opened by their keywords, and no text for an ALTER that
// alters nothing. Each case is checked at every release code from the first one whose Oracle has that
// syntax to the latest.
#include <gtest/gtest.h>

#include <vector>

#include <qarvelt/qarvelt.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Part = CSQLClauseTablePartition;
using Item = std::unique_ptr<CSQLClause> (*)(const char* name);

template <class T>
std::unique_ptr<CSQLClause> at(int v) {
  return make_unique<T>(true, v);
}

// ALTER TABLE S.T, the head every ALTER TABLE case shares.
std::unique_ptr<CSQLClause> alterTable(int v) {
  auto a = make_unique<CSQLAlterTable>(true, v);
  a->SetValue("SCHEMA", "S");
  a->SetValue("TABLE", "T");
  return a;
}

template <class T>
std::unique_ptr<CSQLClause> named(const char* name) {
  return make_unique<T>(name);
}

// A host leaf holding its own name: a key column, a bound, a value.
std::unique_ptr<CSQLClause> text(const char* name) {
  return make_unique<CSQLAttr>(name, "", name);
}

struct Append {
  const char* list;
  Item make;
  const char* name;
};

struct OracleCase {
  const char* name;
  std::unique_ptr<CSQLClause> (*make)(int);
  int from;  // the first release code the case is checked at
  std::vector<Append> items;
  std::vector<Set> values;
  const char* text;
};

void PrintTo(const OracleCase& c, std::ostream* os) {
  *os << c.name;
}

class OracleTexts : public ::testing::TestWithParam<OracleCase> {};

TEST_P(OracleTexts, WritesTheValidForm) {
  const OracleCase& c = GetParam();
  for (int v = c.from; v <= kLatestRelease; ++v) {
    SCOPED_TRACE("release code " + std::to_string(v));
    auto tree = c.make(v);
    for (const Append& a : c.items)
      ASSERT_EQ(tree->AddAttr(a.list, a.make(a.name)), SQL_OK) << a.list;
    for (const Set& s : c.values)
      ASSERT_EQ(tree->SetValue(s.path, s.value), SQL_OK) << s.path;
    auto clone = tree->Clone();
    EXPECT_EQ(trimmed(write(*tree).text), c.text);
    EXPECT_EQ(trimmed(write(*clone).text), c.text) << "through a clone";
  }
}

constexpr const char* kModPart = "C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION";
constexpr const char* kPartAttrs =
    "C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;C_PARTITION_ATTRIBUTE;LIST";
constexpr const char* kSubpartLOBs =
    "C_ALTER_TAB_PART;C_MOD_TAB_SUBPART;SUBPARTITION;C_MOD_HASH_SUBPART;LIST";
constexpr const char* kModColLOBs = "C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LISTLOB";

INSTANTIATE_TEST_SUITE_P(
    Statements,
    OracleTexts,
    ::testing::Values(
        // CREATE OUTLINE
        OracleCase{"outline from a private source",
                   &at<CSQLCreateOutline>,
                   3,
                   {},
                   {{"OUTLINE", "O2"}, {"FROM", "O"}},
                   "CREATE OUTLINE O2 FROM O"},
        OracleCase{"outline from a public source in a category",
                   &at<CSQLCreateOutline>,
                   3,
                   {},
                   {{"OUTLINE", "O2"}, {"FROM_PUBLIC", "PUBLIC"}, {"FROM", "O"}, {"CATEGORY", "DEV"}},
                   "CREATE OUTLINE O2 FROM PUBLIC O FOR CATEGORY DEV"},
        // subpartition templates
        OracleCase{"hash subpartition template",
                   &at<Part>,
                   4,
                   {{"C_COMPOSITE_PART;LIST", &text, "A"},
                    {"C_COMPOSITE_PART;C_SUBPART_BY_HASH;LIST", &text, "B"},
                    {"C_COMPOSITE_PART;C_SUBPART_BY_HASH;C_SUBPART_TEMPLATE;LIST",
                     &named<Part::CSubSQLItemTemplate>, "S1"},
                    {"C_COMPOSITE_PART;C_SUBPART_BY_HASH;C_SUBPART_TEMPLATE;LIST",
                     &named<Part::CSubSQLItemTemplate>, "S2"},
                    {"C_COMPOSITE_PART;LISTSUB", &named<Part::CSubSQLItemRange>, "P1"},
                    {"C_COMPOSITE_PART;LISTSUB;P1;C_RANGEVALUES;LIST", &text, "MAXVALUE"}},
                   {{"C_COMPOSITE_PART;C_SUBPART_BY_HASH;C_SUBPART_TEMPLATE;LIST;S1;SUBPARTITION", "S1"},
                    {"C_COMPOSITE_PART;C_SUBPART_BY_HASH;C_SUBPART_TEMPLATE;LIST;S2;SUBPARTITION", "S2"},
                    {"C_COMPOSITE_PART;LISTSUB;P1;PARTITION", "P1"}},
                   "PARTITION BY RANGE (A) SUBPARTITION BY HASH (B) SUBPARTITION TEMPLATE ( SUBPARTITION S1,"
                   "SUBPARTITION S2) ( PARTITION P1 VALUES LESS THAN (MAXVALUE))"},
        OracleCase{"list subpartition template of subpartition specs",
                   &at<Part>,
                   4,
                   {{"C_COMPOSITE_PART;LIST", &text, "A"},
                    {"C_COMPOSITE_PART;C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;C_PART_LEVEL_SUBPART;LIST",
                     &named<CSQLClauseSubPartitionSpec>, "S1"},
                    {"C_COMPOSITE_PART;C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;C_PART_LEVEL_SUBPART;LIST;S1;"
                     "C_LISTVALUES;LIST",
                     &text, "'X'"},
                    {"C_COMPOSITE_PART;LISTSUB", &named<Part::CSubSQLItemRange>, "P1"},
                    {"C_COMPOSITE_PART;LISTSUB;P1;C_RANGEVALUES;LIST", &text, "MAXVALUE"}},
                   {{"C_COMPOSITE_PART;C_SUBPART_BY_LIST;COLUMN", "B"},
                    {"C_COMPOSITE_PART;C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;C_PART_LEVEL_SUBPART;LIST;S1;"
                     "SUBPARTITION",
                     "S1"},
                    {"C_COMPOSITE_PART;LISTSUB;P1;PARTITION", "P1"}},
                   "PARTITION BY RANGE (A) SUBPARTITION BY LIST (B) SUBPARTITION TEMPLATE ( SUBPARTITION S1 "
                   "VALUES ('X')) ( PARTITION P1 VALUES LESS THAN (MAXVALUE))"},
        OracleCase{
            "a partition lists its own subpartitions without the template keywords",
            [](int) -> std::unique_ptr<CSQLClause> { return make_unique<Part::CSubSQLItemRange>("P1"); },
            kLatestRelease,
            {{"C_RANGEVALUES;LIST", &text, "10"},
             {"C_SUBPART_TEMPLATE;LIST", &named<Part::CSubSQLItemTemplate>, "S1"}},
            {{"PARTITION", "P1"}, {"C_SUBPART_TEMPLATE;LIST;S1;SUBPARTITION", "S1"}},
            "PARTITION P1 VALUES LESS THAN (10) ( SUBPARTITION S1)"},
        // LOB items where attributes change: the parameters follow the item
        OracleCase{"default attributes of a LOB",
                   &alterTable,
                   2,
                   {{"C_ALTER_TAB_PART;C_MODIFY_TABLE_DEF_ATTR;LIST", &named<CSQLClauseLOBItem>, "C"}},
                   {{"C_ALTER_TAB_PART;C_MODIFY_TABLE_DEF_ATTR;PARTITION", "P1"},
                    {"C_ALTER_TAB_PART;C_MODIFY_TABLE_DEF_ATTR;LIST;C;LOB", "C"},
                    {"C_ALTER_TAB_PART;C_MODIFY_TABLE_DEF_ATTR;LIST;C;LOB;C_LOB_PARAMETER;TABLESPACE", "X"}},
                   "ALTER TABLE S.T MODIFY DEFAULT ATTRIBUTES FOR PARTITION P1 LOB (C) (TABLESPACE X)"},
        OracleCase{"default attributes of a varray",
                   &alterTable,
                   2,
                   {{"C_ALTER_TAB_PART;C_MODIFY_TABLE_DEF_ATTR;LIST", &named<CSQLClauseLOBItemB>, "V"}},
                   {{"C_ALTER_TAB_PART;C_MODIFY_TABLE_DEF_ATTR;LIST;V;VARRAY", "V"},
                    {"C_ALTER_TAB_PART;C_MODIFY_TABLE_DEF_ATTR;LIST;V;VARRAY;C_LOB_PARAMETER;CHUNK", "8192"}},
                   "ALTER TABLE S.T MODIFY DEFAULT ATTRIBUTES VARRAY V (CHUNK 8192)"},
        OracleCase{
            "modified LOB of a partition",
            &alterTable,
            2,
            {{kPartAttrs, &named<CSQLClauseModifyLOBStorage>, "C"}},
            {{kModPart, "P1"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;C_PARTITION_ATTRIBUTE;LIST;C;"
              "LOBITEM",
              "C"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;C_PARTITION_ATTRIBUTE;LIST;C;"
              "C_MOD_LOB_PARAMETER;CACHE",
              "CACHE"}},
            "ALTER TABLE S.T MODIFY PARTITION P1 LOB (C) (CACHE)"},
        OracleCase{
            "LOB and varray items of a modified partition",
            &alterTable,
            2,
            {{kPartAttrs, &named<CSQLClauseLOBItem>, "C"}, {kPartAttrs, &named<CSQLClauseLOBItem>, "V"}},
            {{kModPart, "P1"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;C_PARTITION_ATTRIBUTE;LIST;C;LOB",
              "C"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;C_PARTITION_ATTRIBUTE;LIST;C;LOB;"
              "C_LOB_PARAMETER;CACHE",
              "NOCACHE"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;C_PARTITION_ATTRIBUTE;LIST;V;"
              "VARRAY",
              "V"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;C_PARTITION_ATTRIBUTE;LIST;V;"
              "VARRAY;C_LOB_PARAMETER;CACHE",
              "CACHE"}},
            "ALTER TABLE S.T MODIFY PARTITION P1 LOB (C) (NOCACHE) VARRAY V (CACHE)"},
        OracleCase{
            "modified LOB of a subpartition, REBUILD FREEPOOLS",
            &alterTable,
            3,
            {{kSubpartLOBs, &named<CSQLClauseModifyLOBStorage>, "C"}},
            {{"C_ALTER_TAB_PART;C_MOD_TAB_SUBPART;SUBPARTITION", "S1"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_SUBPART;SUBPARTITION;C_MOD_HASH_SUBPART;LIST;C;LOBITEM", "C"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_SUBPART;SUBPARTITION;C_MOD_HASH_SUBPART;LIST;C;"
              "C_MOD_LOB_PARAMETER;REBUILD",
              "REBUILD"}},
            "ALTER TABLE S.T MODIFY SUBPARTITION S1 LOB (C) (REBUILD FREEPOOLS)"},
        OracleCase{"LOB storage in the MODIFY of columns",
                   &alterTable,
                   1,
                   {{kModColLOBs, &named<CSQLClauseLOBStorage>, "C"},
                    {kModColLOBs, &named<CSQLClauseColumnProp::CSubSQLItemLOB>, "D"}},
                   {{"C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LISTLOB;C;LOBITEM", "C"},
                    {"C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LISTLOB;C;LOBITEM;C_LOB_PARAMETER;CACHE", "CACHE"},
                    {"C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LISTLOB;D;C_LOB_STORAGE;LOBITEM", "D"},
                    {"C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LISTLOB;D;C_LOB_STORAGE;LOBITEM;C_LOB_PARAMETER;"
                     "PCTVERSION",
                     "10"}},
                   "ALTER TABLE S.T MODIFY LOB (C) (CACHE) MODIFY LOB (D) (PCTVERSION 10)"},
        OracleCase{"MODIFY LOB of a column, REBUILD written with a trailing blank",
                   &alterTable,
                   3,
                   {{"C_COLUMN;LIST_LOB", &named<CSQLClauseModifyLOBStorage>, "C"}},
                   {{"C_COLUMN;LIST_LOB;C;LOBITEM", "C"},
                    {"C_COLUMN;LIST_LOB;C;C_MOD_LOB_PARAMETER;REBUILD", "REBUILD "}},
                   "ALTER TABLE S.T MODIFY LOB (C) (REBUILD FREEPOOLS)"},
        // LOB items where storage is described: STORE AS
        OracleCase{
            "LOB and varray items of an added partition",
            &alterTable,
            2,
            {{"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_RANGE_PART;C_RANGEVALUES;LIST", &text, "40"},
             {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_RANGE_PART;C_TAB_PART_DESC;LIST",
              &named<CSQLClauseLOBItem>, "C"},
             {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_RANGE_PART;C_TAB_PART_DESC;LIST",
              &named<CSQLClauseLOBItemB>, "V"}},
            {{"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_RANGE_PART;PARTITION", "P4"},
             {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_RANGE_PART;C_TAB_PART_DESC;LIST;C;LOB", "C"},
             {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_RANGE_PART;C_TAB_PART_DESC;LIST;C;LOB;C_LOB_PARAMETER;"
              "TABLESPACE",
              "X"},
             {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_RANGE_PART;C_TAB_PART_DESC;LIST;V;VARRAY", "V"},
             {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_RANGE_PART;C_TAB_PART_DESC;LIST;V;VARRAY;"
              "C_LOB_PARAMETER;CHUNK",
              "8192"}},
            "ALTER TABLE S.T ADD PARTITION P4 VALUES LESS THAN (40) LOB (C) STORE AS (TABLESPACE X) "
            "VARRAY V STORE AS LOB (CHUNK 8192)"},
        OracleCase{
            "LOB item of a moved table",
            &alterTable,
            2,
            {{"C_MOVE_TABLE;LIST", &named<CSQLClauseLOBItem>, "C"}},
            {{"C_MOVE_TABLE;LIST;C;LOB", "C"}, {"C_MOVE_TABLE;LIST;C;LOB;C_LOB_PARAMETER;TABLESPACE", "X"}},
            "ALTER TABLE S.T MOVE LOB (C) STORE AS (TABLESPACE X)"},
        OracleCase{"varray of an added hash partition, with its segment after LOB",
                   &alterTable,
                   7,
                   {},
                   {{"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_HASH_PART;PARTITION", "P5"},
                    {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_HASH_PART;C_PARTITION_STORAGE;VARRAY", "V"},
                    {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_HASH_PART;C_PARTITION_STORAGE;VARRAY;SECUREFILE",
                     "SECUREFILE"},
                    {"C_ALTER_TAB_PART;C_ADD_TAB_PART;C_ADD_HASH_PART;C_PARTITION_STORAGE;VARRAY;LOB_SEGNAME",
                     "VSEG"}},
                   "ALTER TABLE S.T ADD PARTITION P5 VARRAY V STORE AS SECUREFILE LOB VSEG"},
        OracleCase{"varray stored with its parameters in brackets",
                   &at<CSQLClauseVarrayColProp>,
                   2,
                   {},
                   {{"VARRAY", "V"}, {"VARRAY;C_LOB_PARAMETER;CHUNK", "8192"}},
                   "VARRAY V STORE AS LOB (CHUNK 8192)"},
        OracleCase{"varray stored as a SecureFiles segment",
                   &at<CSQLClauseVarrayColProp>,
                   7,
                   {},
                   {{"VARRAY", "V"}, {"VARRAY;SECUREFILE", "SECUREFILE"}, {"VARRAY;SEGNAME", "SEG"}},
                   "VARRAY V STORE AS SECUREFILE LOB SEG"},
        // REF scopes
        OracleCase{"out-of-line REF scope",
                   &alterTable,
                   3,
                   {},
                   {{"C_CONSTRAINT;C_OUTLINE_REF_CONSTRAINT;SCOPE", "SCOPE"},
                    {"C_CONSTRAINT;C_OUTLINE_REF_CONSTRAINT;SCOPE;REFVAL", "R"},
                    {"C_CONSTRAINT;C_OUTLINE_REF_CONSTRAINT;SCOPE;TABLE", "T2"}},
                   "ALTER TABLE S.T ADD SCOPE FOR (R) IS T2"},
        OracleCase{"scoped table reference of an object table",
                   &at<CSQLClauseScopedTabRefConstraint>,
                   2,
                   {{"LIST", &named<CSQLClauseScopedTabRefConstraint::CSubSQLItem>, "C"}},
                   {{"LIST;C;REFCOLUMN", "C"}, {"LIST;C;SCHEMA", "S"}, {"LIST;C;TABLE", "T"}},
                   "SCOPE FOR (C) IS S.T"},
        // partition maintenance
        OracleCase{"subpartition merge",
                   &alterTable,
                   4,
                   {},
                   {{"C_ALTER_TAB_PART;C_MERGE_TABLE_SUBPART;PARTITION1", "A,"},
                    {"C_ALTER_TAB_PART;C_MERGE_TABLE_SUBPART;PARTITION2", "B"},
                    {"C_ALTER_TAB_PART;C_MERGE_TABLE_SUBPART;C_SUBPARTITION_SPEC;SUBPARTITION", "C"}},
                   "ALTER TABLE S.T MERGE SUBPARTITIONS A, B INTO SUBPARTITION C"},
        OracleCase{
            "coalesce subpartition with indexes and parallel",
            &alterTable,
            3,
            {},
            {{kModPart, "P1"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;COALESCE", "COALESCE"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;COALESCE;UPDATE", "UPDATE"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;COALESCE;C_PARALLEL;PARALLEL",
              "PARALLEL"},
             {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;COALESCE;C_PARALLEL;PARALLEL;"
              "VALUE",
              "2"}},
            "ALTER TABLE S.T MODIFY PARTITION P1 COALESCE SUBPARTITION UPDATE GLOBAL INDEXES PARALLEL 2"},
        OracleCase{"dropped partition, indexes updated in parallel",
                   &alterTable,
                   3,
                   {},
                   {{"C_ALTER_TAB_PART;C_DROP_TAB_PART;PARTITION", "P1"},
                    {"C_ALTER_TAB_PART;C_DROP_TAB_PART;PARTITION;UPDATE", "UPDATE"},
                    {"C_ALTER_TAB_PART;C_DROP_TAB_PART;PARTITION;UPDATE;C_PARALLEL;PARALLEL", "PARALLEL"},
                    {"C_ALTER_TAB_PART;C_DROP_TAB_PART;PARTITION;UPDATE;C_PARALLEL;PARALLEL;VALUE", "2"}},
                   "ALTER TABLE S.T DROP PARTITION P1 UPDATE GLOBAL INDEXES PARALLEL 2"},
        OracleCase{"exchanged subpartition, indexes updated in parallel",
                   &alterTable,
                   3,
                   {},
                   {{"C_ALTER_TAB_PART;C_EXCHANGE_PART_SUBPART;SUBPARTITION", "S1"},
                    {"C_ALTER_TAB_PART;C_EXCHANGE_PART_SUBPART;TABLE", "WITH TABLE T2 WITHOUT"},
                    {"C_ALTER_TAB_PART;C_EXCHANGE_PART_SUBPART;UPDATE", "UPDATE"},
                    {"C_ALTER_TAB_PART;C_EXCHANGE_PART_SUBPART;UPDATE;C_PARALLEL;PARALLEL", "PARALLEL"}},
                   "ALTER TABLE S.T EXCHANGE SUBPARTITION S1 WITH TABLE T2 WITHOUT VALIDATION "
                   "UPDATE GLOBAL INDEXES PARALLEL"},
        // table and column properties
        OracleCase{"records per block",
                   &alterTable,
                   2,
                   {},
                   {{"C_ALT_TABLE_PROPERTY;C_RECORDS_PER_BLK;MINIMIZE", "NOMINIMIZE"}},
                   "ALTER TABLE S.T NOMINIMIZE RECORDS_PER_BLOCK"},
        OracleCase{"substitutability of a column, forced",
                   &alterTable,
                   3,
                   {},
                   {{"C_COLUMN;C_MOD_COLUMN;C_MOD_COLUMN_SUBS;COLUMN", "C"},
                    {"C_COLUMN;C_MOD_COLUMN;C_MOD_COLUMN_SUBS;NOT", "NOT"},
                    {"C_COLUMN;C_MOD_COLUMN;C_MOD_COLUMN_SUBS;FORCE", "FORCE"}},
                   "ALTER TABLE S.T MODIFY COLUMN C NOT SUBSTITUTABLE AT ALL LEVELS FORCE"},
        OracleCase{"substitutability of a column, NOT written with a trailing blank",
                   &alterTable,
                   3,
                   {},
                   {{"C_COLUMN;C_MOD_COLUMN;C_MOD_COLUMN_SUBS;COLUMN", "C"},
                    {"C_COLUMN;C_MOD_COLUMN;C_MOD_COLUMN_SUBS;NOT", "NOT "}},
                   "ALTER TABLE S.T MODIFY COLUMN C NOT SUBSTITUTABLE AT ALL LEVELS"},
        // an ALTER that alters nothing
        OracleCase{"ALTER TABLE of a table without a schema that alters nothing",
                   &at<CSQLAlterTable>,
                   0,
                   {},
                   {{"TABLE", "EMP"}},
                   ""},
        OracleCase{"ALTER TABLE of a table in a schema that alters nothing", &alterTable, 0, {}, {}, ""},
        OracleCase{"ALTER INDEX without a schema that alters nothing",
                   &at<CSQLAlterIndex>,
                   0,
                   {},
                   {{"INDEX", "I"}},
                   ""},
        OracleCase{"ALTER TABLE without a schema that alters something",
                   &at<CSQLAlterTable>,
                   0,
                   {},
                   {{"TABLE", "EMP"}, {"C_ALT_TABLE_PROPERTY;CACHE", "CACHE"}},
                   "ALTER TABLE EMP CACHE"}),
    [](const ::testing::TestParamInfo<OracleCase>& info) {
      std::string name = info.param.name;
      for (char& ch : name) {
        if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
      }
      return name;
    });

// SECUREFILE and BASICFILE came with Oracle 11g: no earlier tree offers them.
TEST(OracleTexts, SecureFileFromReleaseCode7) {
  for (int v = 0; v <= kLatestRelease; ++v) {
    CSQLClauseVarrayColProp varray(true, v);
    CSQLClausePartitionStorage storage(true, v);
    EXPECT_EQ(varray.GetClause("VARRAY;SECUREFILE") != nullptr, v >= 7) << v;
    EXPECT_EQ(storage.GetClause("VARRAY;SECUREFILE") != nullptr, v >= 7) << v;
  }
}

// Columns and LOB storage cannot share one MODIFY: the LOB items are written in a pass of their own.
TEST(OracleTexts, ColumnsAndLOBStorageInSeparatePasses) {
  CSQLAlterTable alter;
  alter.SetValue("SCHEMA", "S");
  alter.SetValue("TABLE", "T");
  ASSERT_EQ(alter.AddAttr("C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LIST",
                          make_unique<CSQLClauseModifyColProp::CSubSQLClauseColumn>("N")),
            SQL_OK);
  ASSERT_EQ(alter.AddAttr(kModColLOBs, make_unique<CSQLClauseLOBStorage>("C")), SQL_OK);
  alter.SetValue("C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LIST;N;COLUMN", "N");
  alter.SetValue("C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LIST;N;DATATYPE", "DATE");
  alter.SetValue("C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LISTLOB;C;LOBITEM", "C");
  alter.SetValue("C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LISTLOB;C;LOBITEM;C_LOB_PARAMETER;CACHE", "CACHE");
  std::vector<std::string> passes;
  for (int pass = 0; pass < 4 && alter.hasUnused(); ++pass) {
    passes.push_back(trimmed(write(alter).text));
    alter.RefreshUsed();
  }
  EXPECT_EQ(passes, (std::vector<std::string>{"ALTER TABLE S.T MODIFY ( N DATE)",
                                              "ALTER TABLE S.T MODIFY LOB (C) (CACHE)"}));
}

}  // namespace
}  // namespace qarvelt::testing
