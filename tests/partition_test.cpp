// Partitioning clauses: table partitioning kinds, partition items, bounds, storage, global index
// partitioning and ADD SUBPARTITION.
#include <gtest/gtest.h>

#include <initializer_list>

#include "qarvelt/clauses/partition.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Part = CSQLClauseTablePartition;

// Appends host leaves named after their text (a key column, a bound, a tablespace) to a list.
void texts(CSQLClause& tree, const char* path, std::initializer_list<const char*> items) {
  for (const char* t : items)
    ASSERT_EQ(tree.AddAttr(path, make_unique<CSQLAttr>(t, "", t)), SQL_OK) << path;
}

template <class Item>
void item(CSQLClause& tree, const char* path, const char* name) {
  ASSERT_EQ(tree.AddAttr(path, make_unique<Item>(name)), SQL_OK) << path;
}

std::unique_ptr<CSQLClause> rangeTable() {
  auto t = make_unique<Part>(true, 7);
  texts(*t, "C_RANGE_PART;LIST", {"A"});
  item<Part::CSubSQLItemRange>(*t, "C_RANGE_PART;LISTSUB", "P1");
  item<Part::CSubSQLItemRange>(*t, "C_RANGE_PART;LISTSUB", "P2");
  texts(*t, "C_RANGE_PART;LISTSUB;P1;C_RANGEVALUES;LIST", {"10"});
  texts(*t, "C_RANGE_PART;LISTSUB;P2;C_RANGEVALUES;LIST", {"MAXVALUE"});
  return t;
}

std::unique_ptr<CSQLClause> hashTable() {
  auto t = make_unique<Part>(true, 7);
  texts(*t, "C_HASH_PART;LIST", {"A"});
  texts(*t, "C_HASH_PART;C_BY_QUANTITY;LIST", {"T1", "T2"});
  texts(*t, "C_HASH_PART;C_BY_QUANTITY;LISTOVERFLOW", {"T3"});
  return t;
}

std::unique_ptr<CSQLClause> listTable() {
  auto t = make_unique<Part>(true, 6);
  item<Part::CSubSQLItemList>(*t, "C_LIST_PART;LIST", "P1");
  item<Part::CSubSQLItemList>(*t, "C_LIST_PART;LIST", "P2");
  texts(*t, "C_LIST_PART;LIST;P1;C_LISTVALUES;LIST", {"'A'", "'B'"});
  return t;
}

std::unique_ptr<CSQLClause> compositeTable() {
  auto t = make_unique<Part>(true, 7);
  texts(*t, "C_COMPOSITE_PART;LIST", {"A"});
  texts(*t, "C_COMPOSITE_PART;C_SUBPART_BY_HASH;LIST", {"B"});
  texts(*t, "C_COMPOSITE_PART;C_SUBPART_BY_HASH;QUANTITY;LIST", {"T1"});
  item<Part::CSubSQLItemRange>(*t, "C_COMPOSITE_PART;LISTSUB", "P1");
  texts(*t, "C_COMPOSITE_PART;LISTSUB;P1;C_RANGEVALUES;LIST", {"10"});
  return t;
}

std::unique_ptr<CSQLClause> listTemplateTable() {
  auto t = make_unique<Part>(true, 7);
  texts(*t, "C_COMPOSITE_PART;LIST", {"A"});
  const char* tmpl = "C_COMPOSITE_PART;C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;LIST";
  item<Part::CSubSQLItemTemplate>(*t, tmpl, "S1");
  item<Part::CSubSQLItemTemplate>(*t, tmpl, "S2");
  texts(*t, "C_COMPOSITE_PART;C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;LIST;S1;C_LISTVALUES;LIST", {"'X'"});
  item<Part::CSubSQLItemRange>(*t, "C_COMPOSITE_PART;LISTSUB", "P1");
  texts(*t, "C_COMPOSITE_PART;LISTSUB;P1;C_RANGEVALUES;LIST", {"MAXVALUE"});
  return t;
}

class PartitionClauses : public ::testing::TestWithParam<TreeCase> {};
TEST_P(PartitionClauses, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    PartitionClauses,
    ::testing::Values(
        TreeCase{"range partitions in one pair of brackets",
                 rangeTable,
                 {{"C_RANGE_PART;LISTSUB;P1;PARTITION", "P1"},
                  {"C_RANGE_PART;LISTSUB;P1;C_TAB_PART_DESC;C_SEG_ATTRIBUTE;TABLESPACE", "TS1"},
                  {"C_RANGE_PART;LISTSUB;P2;PARTITION", "P2"}},
                 "PARTITION BY RANGE (A) ( PARTITION P1 VALUES LESS THAN (10) TABLESPACE TS1,"
                 "PARTITION P2 VALUES LESS THAN (MAXVALUE))"},
        TreeCase{"hash partitions by quantity with overflow tablespaces",
                 hashTable,
                 {{"C_HASH_PART;C_BY_QUANTITY;QUANTITY", "4"}},
                 "PARTITION BY HASH (A) PARTITIONS 4 STORE IN (T1,T2) OVERFLOW STORE IN (T3)"},
        TreeCase{"hash partitions by name come before a quantity",
                 [] {
                   auto t = hashTable();
                   item<Part::CSubSQLItemHash>(*t, "C_HASH_PART;LISTSUB", "P1");
                   return t;
                 },
                 {{"C_HASH_PART;C_BY_QUANTITY;QUANTITY", "4"},
                  {"C_HASH_PART;LISTSUB;P1;PARTITION", "P1"},
                  {"C_HASH_PART;LISTSUB;P1;C_PARTITION_STORAGE;TABLESPACE", "T1"}},
                 "PARTITION BY HASH (A) ( PARTITION P1 TABLESPACE T1)"},
        TreeCase{"list partitions with values and default",
                 listTable,
                 {{"C_LIST_PART;COLUMN", "REGION"},
                  {"C_LIST_PART;LIST;P1;PARTITION", "P1"},
                  {"C_LIST_PART;LIST;P2;PARTITION", "P2"},
                  {"C_LIST_PART;LIST;P2;C_LISTVALUES;DEFAULT", "DEFAULT"}},
                 "PARTITION BY LIST (REGION) ( PARTITION P1 VALUES ('A','B'),PARTITION P2 VALUES (DEFAULT))"},
        TreeCase{"composite range hash with a subpartition count",
                 compositeTable,
                 {{"C_COMPOSITE_PART;C_SUBPART_BY_HASH;QUANTITY", "4"},
                  {"C_COMPOSITE_PART;LISTSUB;P1;PARTITION", "P1"}},
                 "PARTITION BY RANGE (A) SUBPARTITION BY HASH (B) SUBPARTITIONS 4 STORE IN (T1) "
                 "( PARTITION P1 VALUES LESS THAN (10))"},
        TreeCase{"composite range list with a subpartition template",
                 listTemplateTable,
                 {{"C_COMPOSITE_PART;C_SUBPART_BY_LIST;COLUMN", "B"},
                  {"C_COMPOSITE_PART;C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;LIST;S1;SUBPARTITION", "S1"},
                  {"C_COMPOSITE_PART;C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;LIST;S2;SUBPARTITION", "S2"},
                  {"C_COMPOSITE_PART;C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;LIST;S2;C_LISTVALUES;DEFAULT",
                   "DEFAULT"},
                  {"C_COMPOSITE_PART;LISTSUB;P1;PARTITION", "P1"}},
                 "PARTITION BY RANGE (A) SUBPARTITION BY LIST (B) "
                 "SUBPARTITION TEMPLATE ( SUBPARTITION S1 VALUES ('X'),SUBPARTITION S2 VALUES (DEFAULT)) "
                 "( PARTITION P1 VALUES LESS THAN (MAXVALUE))"},
        TreeCase{"range partition with its own subpartitions",
                 [] {
                   auto p = make_unique<Part::CSubSQLItemRange>("P1");
                   texts(*p, "C_RANGEVALUES;LIST", {"10", "'X'"});
                   texts(*p, "QUANTITY;LIST", {"T1", "T2"});
                   return p;
                 },
                 {{"PARTITION", "P1"}, {"QUANTITY", "2"}},
                 "PARTITION P1 VALUES LESS THAN (10,'X') SUBPARTITIONS 2 STORE IN (T1,T2)"},
        TreeCase{"partition storage with lob items and a varray",
                 [] {
                   auto s = make_unique<CSQLClausePartitionStorage>();
                   item<CSQLClausePartitionStorage::CSubSQLItemLOB>(*s, "LIST", "C");
                   item<CSQLClausePartitionStorage::CSubSQLItemLOB>(*s, "LIST", "D");
                   return s;
                 },
                 {{"TABLESPACE", "T"},
                  {"OVERFLOW", "OVERFLOW"},
                  {"OVERFLOW;TABLESPACE", "T2"},
                  {"LIST;C;LOB;LOBITEM", "C"},
                  {"LIST;C;LOB;LOB_SEGNAME", "SEG"},
                  {"LIST;C;LOB;LOB_SEGNAME;TABLESPACE", "T3"},
                  {"LIST;D;LOB;LOBITEM", "D"},
                  {"LIST;D;LOB;TABLESPACE", "T4"},
                  {"VARRAY", "V"},
                  {"VARRAY;LOB_SEGNAME", "VSEG"}},
                 "TABLESPACE T OVERFLOW TABLESPACE T2 LOB (C) STORE AS SEG (TABLESPACE T3) "
                 "LOB (D) STORE AS (TABLESPACE T4) VARRAY V STORE AS LOB VSEG"},
        TreeCase{"partition description with subpartition specs",
                 [] {
                   auto d = make_unique<CSQLClauseTabPartitionDesc>();
                   item<CSQLClauseSubPartitionSpec>(*d, "C_PART_LEVEL_SUBPART;LIST", "S1");
                   texts(*d, "C_PART_LEVEL_SUBPART;LIST;S1;C_LISTVALUES;LIST", {"'A'"});
                   return d;
                 },
                 {{"C_SEG_ATTRIBUTE;TABLESPACE", "T"},
                  {"COMPRESS", "COMPRESS"},
                  {"OVERFLOW", " "},
                  {"OVERFLOW;C_SEG_ATTRIBUTE;TABLESPACE", "T2"},
                  {"C_PART_LEVEL_SUBPART;LIST;S1;SUBPARTITION", "S1"}},
                 "TABLESPACE T COMPRESS OVERFLOW TABLESPACE T2 ( SUBPARTITION S1 VALUES ('A'))"},
        TreeCase{"partition attributes keep the overflow segment apart",
                 make<CSQLClausePartitionAttribute>(7),
                 {{"OVERFLOW;C_PHYSICAL_ATTRIBUTES;PCTFREE", "20"},
                  {"OVERFLOW", "OVERFLOW"},
                  {"C_PHYSICAL_ATTRIBUTES;PCTFREE", "10"},
                  {"LOGGING", "NOLOGGING"},
                  {"C_DEALLOCATE_UNUSED;UNUSED", "UNUSED"},
                  {"COMPRESS", "NOCOMPRESS"}},
                 "PCTFREE 10 NOLOGGING DEALLOCATE UNUSED OVERFLOW PCTFREE 20 NOCOMPRESS"},
        TreeCase{"global range partitioned index",
                 [] {
                   auto g = make_unique<CSQLClauseGlobalPartitionIndex>();
                   texts(*g, "LIST", {"A", "B"});
                   texts(*g, "C_GLOBAL_PARTITIONING;LIST", {"MAXVALUE", "MAXVALUE"});
                   return g;
                 },
                 {{"C_GLOBAL_PARTITIONING;PARTITION", "P1"},
                  {"C_GLOBAL_PARTITIONING;C_SEG_ATTRIBUTE;TABLESPACE", "T"}},
                 "GLOBAL PARTITION BY RANGE (A,B) (PARTITION P1 VALUES LESS THAN (MAXVALUE,MAXVALUE) "
                 "TABLESPACE T)"},
        TreeCase{"add hash subpartition",
                 make<CSQLClauseAddHashSubPartition>(7),
                 {{"C_PARALLEL;PARALLEL", "PARALLEL"},
                  {"C_PARALLEL;PARALLEL;VALUE", "4"},
                  {"UPDATE", "UPDATE"},
                  {"C_SUBPARTITION_SPEC;SUBPARTITION", "S1"},
                  {"C_SUBPARTITION_SPEC;C_PARTITION_STORAGE;TABLESPACE", "T"}},
                 "ADD SUBPARTITION S1 TABLESPACE T UPDATE GLOBAL INDEXES PARALLEL 4"},
        TreeCase{"add list subpartition",
                 [] {
                   auto a = make_unique<CSQLClauseAddListSubPartition>();
                   texts(*a, "C_SUBPARTITION_SPEC;C_LISTVALUES;LIST", {"'X'", "'Y'"});
                   return a;
                 },
                 {{"C_SUBPARTITION_SPEC;SUBPARTITION", "S1"}},
                 "ADD SUBPARTITION S1 VALUES ('X','Y')"},
        TreeCase{"one partitioning kind per pass",
                 [] {
                   auto t = hashTable();
                   texts(*t, "C_RANGE_PART;LIST", {"A"});
                   return t;
                 },
                 {{"C_HASH_PART;C_BY_QUANTITY;QUANTITY", "4"}},
                 "PARTITION BY RANGE (A)"}),
    caseName);

TEST(PartitionClauses, ReleaseGatesChooseTheKinds) {
  struct {
    int release;
    bool hash, list, composite;
  } const cases[] = {{2, false, false, false}, {5, true, false, true}, {6, true, true, true}};
  for (const auto& c : cases) {
    CSQLClauseTablePartition tree(true, c.release);
    ASSERT_NE(tree.GetClause("C_RANGE_PART"), nullptr) << c.release;
    EXPECT_EQ(tree.GetClause("C_RANGE_PART")->GetOraVersion(), c.release);
    EXPECT_EQ(tree.GetClause("C_HASH_PART") != nullptr, c.hash) << c.release;
    EXPECT_EQ(tree.GetClause("C_LIST_PART") != nullptr, c.list) << c.release;
    EXPECT_EQ(tree.GetClause("C_COMPOSITE_PART") != nullptr, c.composite) << c.release;
    if (c.hash) {
      EXPECT_EQ(tree.GetClause("C_HASH_PART;C_BY_QUANTITY")->GetOraVersion(), 7);
    }
  }
}

TEST(PartitionClauses, NestedReleaseCodesAndNames) {
  CSQLClausePartitionAttribute attr(true, 1);  // its physical attributes follow it, the rest stays at 7
  EXPECT_EQ(attr.GetClause("C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL"), nullptr);
  EXPECT_EQ(attr.GetClause("OVERFLOW;C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL"), nullptr);
  EXPECT_EQ(attr.GetClause("C_ALLOCATE_EXTENT")->GetOraVersion(), 7);
  EXPECT_NE(CSQLClauseTabPartitionDesc(true, 1).GetClause("C_SEG_ATTRIBUTE;LOGGING"), nullptr);

  EXPECT_EQ(CSQLClausePartitionSpec().GetType(), "C_PARTITION_SPEC");
  EXPECT_EQ(CSQLClausePartitionSpec("HALF1").GetType(), "HALF1");
  EXPECT_EQ(CSQLClauseSubPartitionSpec("HALF2").GetType(), "HALF2");
  EXPECT_EQ(CSQLClauseGlobalPartitionIndex().GetType(), "C_GLOBAL_PART_IDX");
}

}  // namespace
}  // namespace qarvelt::testing
