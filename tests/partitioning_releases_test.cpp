// Partitioning of Oracle 11g to 23ai: interval, reference, list composites and range subpartitions,
// automatic list partitioning, INDEXING of partitions. Each form is written at its release and is
// absent below it.
#include <gtest/gtest.h>

#include <initializer_list>

#include <qarvelt/clauses/partition.h>
#include <qarvelt/statements/alter_table.h>
#include <qarvelt/statements/alter_table_partition.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Part = CSQLClauseTablePartition;

void texts(CSQLClause& tree, const char* path, std::initializer_list<const char*> items) {
  for (const char* t : items)
    ASSERT_EQ(tree.AddAttr(path, make_unique<CSQLAttr>(t, "", t)), SQL_OK) << path;
}

void add(CSQLClause& tree, const char* path, std::unique_ptr<CSQLClause> item) {
  ASSERT_EQ(tree.AddAttr(path, std::move(item)), SQL_OK) << path;
}

// PARTITION BY RANGE (DAY) INTERVAL (...) with one range partition, at `release`.
std::unique_ptr<CSQLClause> intervalTable(int release) {
  auto t = make_unique<Part>(true, release);
  texts(*t, "C_RANGE_PART;LIST", {"DAY"});
  add(*t, "C_RANGE_PART;LISTSUB", make_unique<Part::CSubSQLItemRange>("P0", release));
  texts(*t, "C_RANGE_PART;LISTSUB;P0;C_RANGEVALUES;LIST", {"DATE '2024-01-01'"});
  return t;
}

class PartitioningReleases : public ::testing::TestWithParam<TreeCase> {};
TEST_P(PartitioningReleases, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    PartitioningReleases,
    ::testing::Values(
        TreeCase{"interval with store in",
                 [] {
                   auto t = intervalTable(7);
                   texts(*t, "C_RANGE_PART;INTERVAL;LIST", {"TS1", "TS2"});
                   return t;
                 },
                 {{"C_RANGE_PART;INTERVAL", "NUMTOYMINTERVAL(1,'MONTH')"},
                  {"C_RANGE_PART;LISTSUB;P0;PARTITION", "P0"}},
                 "PARTITION BY RANGE (DAY) INTERVAL (NUMTOYMINTERVAL(1,'MONTH')) STORE IN (TS1,TS2) "
                 "( PARTITION P0 VALUES LESS THAN (DATE '2024-01-01'))"},
        TreeCase{"interval range-range with a template",
                 [] {
                   auto t = make_unique<Part>(true, 7);
                   texts(*t, "C_COMPOSITE_PART;LIST", {"ID"});
                   texts(*t, "C_COMPOSITE_PART;C_SUBPART_BY_RANGE;LIST", {"DAY"});
                   const char* tmpl = "C_COMPOSITE_PART;C_SUBPART_BY_RANGE;C_SUBPART_TEMPLATE;LIST";
                   add(*t, tmpl, make_unique<Part::CSubSQLItemTemplate>("S1"));
                   add(*t, tmpl, make_unique<Part::CSubSQLItemTemplate>("S2"));
                   texts(*t,
                         "C_COMPOSITE_PART;C_SUBPART_BY_RANGE;C_SUBPART_TEMPLATE;LIST;S1;C_RANGEVALUES;LIST",
                         {"DATE '2000-01-01'"});
                   texts(*t,
                         "C_COMPOSITE_PART;C_SUBPART_BY_RANGE;C_SUBPART_TEMPLATE;LIST;S2;C_RANGEVALUES;LIST",
                         {"MAXVALUE"});
                   add(*t, "C_COMPOSITE_PART;LISTSUB", make_unique<Part::CSubSQLItemRange>("P1", 7));
                   texts(*t, "C_COMPOSITE_PART;LISTSUB;P1;C_RANGEVALUES;LIST", {"1000"});
                   return t;
                 },
                 {{"C_COMPOSITE_PART;INTERVAL", "1000"},
                  {"C_COMPOSITE_PART;C_SUBPART_BY_RANGE;C_SUBPART_TEMPLATE;LIST;S1;SUBPARTITION", "S1"},
                  {"C_COMPOSITE_PART;C_SUBPART_BY_RANGE;C_SUBPART_TEMPLATE;LIST;S2;SUBPARTITION", "S2"},
                  {"C_COMPOSITE_PART;LISTSUB;P1;PARTITION", "P1"}},
                 "PARTITION BY RANGE (ID) INTERVAL (1000) SUBPARTITION BY RANGE (DAY) SUBPARTITION TEMPLATE "
                 "( SUBPARTITION S1 VALUES LESS THAN (DATE '2000-01-01'),SUBPARTITION S2 VALUES LESS THAN "
                 "(MAXVALUE)) ( PARTITION P1 VALUES LESS THAN (1000))"},
        TreeCase{"list-hash with subpartitions of a partition",
                 [] {
                   auto t = make_unique<Part>(true, 7);
                   texts(*t, "C_COMPOSITE_LIST_PART;C_SUBPART_BY_HASH;LIST", {"ID"});
                   add(*t, "C_COMPOSITE_LIST_PART;LIST", make_unique<Part::CSubSQLItemList>("P1", 7));
                   texts(*t, "C_COMPOSITE_LIST_PART;LIST;P1;C_LISTVALUES;LIST", {"'EU'"});
                   const char* subs =
                       "C_COMPOSITE_LIST_PART;LIST;P1;C_TAB_PART_DESC;C_PART_LEVEL_SUBPART;LIST";
                   add(*t, subs, make_unique<CSQLClauseSubPartitionSpec>("S1"));
                   add(*t, subs, make_unique<CSQLClauseSubPartitionSpec>("S2"));
                   return t;
                 },
                 {{"C_COMPOSITE_LIST_PART;COLUMN", "REGION"},
                  {"C_COMPOSITE_LIST_PART;LIST;P1;PARTITION", "P1"},
                  {"C_COMPOSITE_LIST_PART;LIST;P1;C_TAB_PART_DESC;C_PART_LEVEL_SUBPART;LIST;S1;SUBPARTITION",
                   "S1"},
                  {"C_COMPOSITE_LIST_PART;LIST;P1;C_TAB_PART_DESC;C_PART_LEVEL_SUBPART;LIST;S2;SUBPARTITION",
                   "S2"},
                  {"C_COMPOSITE_LIST_PART;LIST;P1;C_TAB_PART_DESC;C_PART_LEVEL_SUBPART;LIST;S2;C_PARTITION_"
                   "STORAGE;TABLESPACE",
                   "TS2"}},
                 "PARTITION BY LIST (REGION) SUBPARTITION BY HASH (ID) ( PARTITION P1 VALUES ('EU') "
                 "( SUBPARTITION S1,SUBPARTITION S2 TABLESPACE TS2))"},
        TreeCase{"reference partitions",
                 [] {
                   auto t = make_unique<Part>(true, 7);
                   add(*t, "C_REFERENCE_PART;LIST", make_unique<CSQLClausePartitionSpec>("P1", 7));
                   add(*t, "C_REFERENCE_PART;LIST", make_unique<CSQLClausePartitionSpec>("P2", 7));
                   return t;
                 },
                 {{"C_REFERENCE_PART;CONSTRAINT", "FK_ORDER"},
                  {"C_REFERENCE_PART;LIST;P1;PARTITION", "P1"},
                  {"C_REFERENCE_PART;LIST;P1;C_TAB_PART_DESC;C_SEG_ATTRIBUTE;TABLESPACE", "TS1"},
                  {"C_REFERENCE_PART;LIST;P2;PARTITION", "P2"}},
                 "PARTITION BY REFERENCE (FK_ORDER) ( PARTITION P1 TABLESPACE TS1,PARTITION P2)"},
        TreeCase{"automatic list on two columns with a partition indexing off",
                 [] {
                   auto t = make_unique<Part>(true, 10);
                   texts(*t, "C_LIST_PART;COLUMNS", {"REGION", "KIND"});
                   add(*t, "C_LIST_PART;LIST", make_unique<Part::CSubSQLItemList>("P1", 10));
                   texts(*t, "C_LIST_PART;LIST;P1;C_LISTVALUES;LIST", {"('EU', 1)"});
                   return t;
                 },
                 {{"C_LIST_PART;AUTOMATIC", "AUTOMATIC"},
                  {"C_LIST_PART;LIST;P1;PARTITION", "P1"},
                  {"C_LIST_PART;LIST;P1;C_TAB_PART_DESC;INDEXING", "OFF"},
                  {"C_LIST_PART;LIST;P1;C_TAB_PART_DESC;C_SEG_ATTRIBUTE;TABLESPACE", "TS1"}},
                 "PARTITION BY LIST (REGION,KIND) AUTOMATIC ( PARTITION P1 VALUES (('EU', 1)) INDEXING OFF "
                 "TABLESPACE TS1)"},
        TreeCase{"hash partition indexing",
                 [] { return make_unique<Part::CSubSQLItemHash>("P1", 9); },
                 {{"PARTITION", "P1"}, {"INDEXING", "ON"}, {"C_PARTITION_STORAGE;TABLESPACE", "TS1"}},
                 "PARTITION P1 INDEXING ON TABLESPACE TS1"},
        TreeCase{"set interval",
                 make<CSQLAlterTable>(7),
                 {{"TABLE", "T"}, {"C_ALTER_TAB_PART;C_ALTER_INTERVAL_PART;INTERVAL", "7"}},
                 "ALTER TABLE T SET INTERVAL (7)"},
        TreeCase{"set interval back to range",
                 make<CSQLAlterTable>(7),
                 {{"TABLE", "T"}, {"C_ALTER_TAB_PART;C_ALTER_INTERVAL_PART;INTERVAL", "", "7"}},
                 "ALTER TABLE T SET INTERVAL ()"},
        TreeCase{"set store in",
                 [] {
                   auto t = make<CSQLAlterTable>(7)();
                   texts(*t, "C_ALTER_TAB_PART;C_ALTER_INTERVAL_PART;LIST", {"TS1", "TS2"});
                   return t;
                 },
                 {{"TABLE", "T"}},
                 "ALTER TABLE T SET STORE IN (TS1,TS2)"},
        TreeCase{"set partitioning automatic",
                 make<CSQLAlterTable>(9),
                 {{"TABLE", "T"}, {"C_ALTER_TAB_PART;C_ALTER_AUTOMATIC_PART;PARTITIONING", "AUTOMATIC"}},
                 "ALTER TABLE T SET PARTITIONING AUTOMATIC"},
        TreeCase{"modify partition indexing",
                 make<CSQLAlterTable>(8),
                 {{"TABLE", "T"},
                  {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION", "P1"},
                  {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_LIST_PART;INDEXING", "OFF"}},
                 "ALTER TABLE T MODIFY PARTITION P1 INDEXING OFF"},
        TreeCase{"add range subpartition to a list partition",
                 [] {
                   auto t = make<CSQLAlterTable>(7)();
                   texts(*t,
                         "C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_LIST_PART;C_ADD_LIST_SUBPART;C_"
                         "SUBPARTITION_SPEC;C_RANGEVALUES;LIST",
                         {"100"});
                   return t;
                 },
                 {{"TABLE", "T"},
                  {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION", "P1"},
                  {"C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;C_MOD_LIST_PART;C_ADD_LIST_SUBPART;C_"
                   "SUBPARTITION_SPEC;SUBPARTITION",
                   "S9"}},
                 "ALTER TABLE T MODIFY PARTITION P1 ADD SUBPARTITION S9 VALUES LESS THAN (100)"}),
    caseName);

TEST(PartitioningReleases, AbsentBelowTheirRelease) {
  checkGates({
      {built<Part>(), "C_RANGE_PART;INTERVAL", 7},
      {built<Part>(), "C_COMPOSITE_PART;INTERVAL", 7},
      {built<Part>(), "C_COMPOSITE_PART;C_SUBPART_BY_RANGE", 7},
      {built<Part>(), "C_COMPOSITE_LIST_PART", 7},
      {built<Part>(), "C_REFERENCE_PART", 7},
      {built<Part>(), "C_LIST_PART;COLUMNS", 9},
      {built<Part>(), "C_LIST_PART;AUTOMATIC", 9},
      {built<Part>(), "C_COMPOSITE_LIST_PART;AUTOMATIC", 9},
      {built<CSQLClauseTabPartitionDesc>(), "INDEXING", 8},
      {built<CSQLClauseSubPartitionSpec>(), "C_RANGEVALUES", 7},
      {[](int v) { return make_unique<Part::CSubSQLItemRange>("P", v); }, "C_TAB_PART_DESC;INDEXING", 8},
      {[](int v) { return make_unique<Part::CSubSQLItemList>("P", v); }, "C_TAB_PART_DESC;INDEXING", 8},
      {[](int v) { return make_unique<Part::CSubSQLItemHash>("P", v); }, "INDEXING", 9},
      {[](int v) { return make_unique<Part::CSubSQLItemTemplate>("S", v); }, "C_RANGEVALUES", 7},
      {[](int v) { return make_unique<CSQLClausePartitionSpec>("P", v); }, "C_TAB_PART_DESC;INDEXING", 8},
      {built<CSQLClauseAlterTablePartition>(), "C_ALTER_INTERVAL_PART;INTERVAL", 7},
      {built<CSQLClauseAlterTablePartition>(), "C_ALTER_AUTOMATIC_PART;PARTITIONING", 9},
      {built<CSQLClauseAlterTablePartition>(), "C_MOD_TAB_PART;PARTITION;C_MOD_RANGE_PART;INDEXING", 8},
      {built<CSQLClauseAlterTablePartition>(), "C_MOD_TAB_PART;PARTITION;C_MOD_HASH_PART;INDEXING", 8},
      {built<CSQLClauseAlterTablePartition>(), "C_MOD_TAB_PART;PARTITION;C_MOD_LIST_PART;COALESCE", 7},
  });
}

// The name constructors keep building in the shape of Oracle 11g, whatever comes later.
TEST(PartitioningReleases, NamedItemsStayAtTheLatestShape) {
  EXPECT_EQ(Part::CSubSQLItemRange("P").GetClause("C_TAB_PART_DESC;INDEXING"), nullptr);
  EXPECT_NE(Part::CSubSQLItemTemplate("S").GetClause("C_RANGEVALUES"), nullptr);
  // An item for an older release still nests the descriptions of Oracle 11g.
  EXPECT_NE(Part::CSubSQLItemRange("P", 3).GetClause("C_TAB_PART_DESC;C_SEG_ATTRIBUTE;LOGGING"), nullptr);
}

}  // namespace
}  // namespace qarvelt::testing
