// ALTER TABLE partition maintenance: each operation written from its paths, one operation per pass.
#include <gtest/gtest.h>

#include <deque>
#include <utility>
#include <vector>

#include "qarvelt/statements/alter_table_partition.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;
using Values = std::vector<std::pair<const char*, const char*>>;

// One operation: the path of the node its values hang below, the values (paths relative to it, ""
// for the node itself; a path ending in LIST appends a host leaf holding the value) and the text.
struct Operation {
  const char* base;
  Values values;
  const char* text;
};

void checkOperation(const Operation& op) {
  std::deque<std::string> paths;
  Values items;
  TreeCase c{op.text, nullptr, {}, op.text};
  for (auto [rel, value] : op.values) {
    const std::string& path = paths.emplace_back(*rel ? std::string(op.base) + ";" + rel : op.base);
    if (path.size() >= 4 && path.compare(path.size() - 4, 4, "LIST") == 0)
      items.emplace_back(path.c_str(), value);
    else
      c.values.push_back({path.c_str(), value});
  }
  c.make = [items] {
    auto tree = make_unique<CSQLClauseAlterTablePartition>();
    for (auto [path, text] : items)
      EXPECT_EQ(tree->AddAttr(path, make_unique<CSQLAttr>(text, "", text)), SQL_OK) << path;
    return tree;
  };
  checkTreeCase(c);
}

TEST(AlterTablePartition, WritesEachOperation) {
  const char* const split = "C_SPLIT_TABLE_PART;PARTITION";
  const Operation cases[] = {
      {"C_MODIFY_TABLE_DEF_ATTR",
       {{"C_SEG_ATTRIBUTE;TABLESPACE", "T"}, {"PARTITION", "P1"}, {"PCTTHRESHOLD", "20"}},
       "MODIFY DEFAULT ATTRIBUTES FOR PARTITION P1 TABLESPACE T PCTTHRESHOLD 20"},
      {"C_MOD_TAB_PART;PARTITION",
       {{"", "P1"}, {"C_MOD_RANGE_PART;C_PARTITION_ATTRIBUTE;LOGGING", "NOLOGGING"}},
       "MODIFY PARTITION P1 NOLOGGING"},
      {"C_MOD_TAB_PART;PARTITION",
       {{"", "P1"}, {"C_MOD_RANGE_PART;COALESCE", "COALESCE"}},
       "MODIFY PARTITION P1 COALESCE SUBPARTITION"},
      {"C_MOD_TAB_PART;PARTITION",
       {{"", "P1"}, {"C_MOD_HASH_PART;REBUILD", "REBUILD"}, {"C_MOD_HASH_PART;UNUSABLE", "UNUSABLE"}},
       "MODIFY PARTITION P1 REBUILD UNUSABLE LOCAL INDEXES"},
      {"C_MOD_TAB_PART;PARTITION",
       {{"", "P1"}, {"C_MOD_LIST_PART;ADD", "ADD"}, {"C_MOD_LIST_PART;ADD;LIST", "'C'"}},
       "MODIFY PARTITION P1 ADD VALUES ('C')"},
      {"C_MOD_TAB_SUBPART;SUBPARTITION",
       {{"", "S1"}, {"C_MOD_HASH_SUBPART;C_DEALLOCATE_UNUSED;UNUSED", "UNUSED"}},
       "MODIFY SUBPARTITION S1 DEALLOCATE UNUSED"},
      {"C_MOD_TAB_SUBPART;SUBPARTITION",
       {{"", "S1"}, {"C_MOD_LIST_SUBPART;ADD", "ADD"}, {"C_MOD_LIST_SUBPART;ADD;LIST", "'X'"}},
       "MODIFY SUBPARTITION S1 ADD VALUES ('X')"},
      {"C_MOVE_TAB_PART;PARTITION",
       {{"C_PARALLEL;PARALLEL", "NOPARALLEL"},
        {"C_TAB_PART_DESC;C_SEG_ATTRIBUTE;TABLESPACE", "T"},
        {"MAPPING", "MAPPING"},
        {"", "P1"}},
       "MOVE PARTITION P1 MAPPING TABLE TABLESPACE T NOPARALLEL"},
      {"C_MOVE_TAB_SUBPART",
       {{"C_SUBPARTITION_SPEC;SUBPARTITION", "S1"}, {"UPDATE", "UPDATE"}},
       "MOVE SUBPARTITION S1 UPDATE GLOBAL INDEXES"},
      {"C_ADD_TAB_PART;C_ADD_RANGE_PART",
       {{"PARTITION", "P4"},
        {"C_RANGEVALUES;LIST", "40"},
        {"C_TAB_PART_DESC;C_SEG_ATTRIBUTE;TABLESPACE", "T"}},
       "ADD PARTITION P4 VALUES LESS THAN (40) TABLESPACE T"},
      {"C_ADD_TAB_PART;C_ADD_HASH_PART",
       {{"PARTITION", "P5"}, {"C_PARTITION_STORAGE;TABLESPACE", "T"}, {"UPDATE", "UPDATE"}},
       "ADD PARTITION P5 TABLESPACE T UPDATE GLOBAL INDEXES"},
      {"C_ADD_TAB_PART;C_ADD_LIST_PART",
       {{"PARTITION", "P6"}, {"C_LISTVALUES;LIST", "'E'"}, {"C_LISTVALUES;LIST", "'F'"}},
       "ADD PARTITION P6 VALUES ('E','F')"},
      {"C_COALESCE_TAB_PART",
       {{"UPDATE", "UPDATE"}, {"COALESCE", "COALESCE"}},
       "COALESCE PARTITION UPDATE GLOBAL INDEXES"},
      {"C_COALESCE_TAB_PART",
       {{"C_PARALLEL;PARALLEL", "PARALLEL"}, {"C_PARALLEL;PARALLEL;VALUE", "2"}},
       "PARALLEL 2"},
      {"C_DROP_TAB_PART;PARTITION", {{"", "P1"}}, "DROP PARTITION P1"},
      {"C_DROP_TAB_PART;PARTITION",
       {{"", "P1"}, {"UPDATE", "UPDATE"}},
       "DROP PARTITION P1 UPDATE GLOBAL INDEXES"},
      {"C_DROP_TAB_PART;PARTITION", {{"UPDATE", "UPDATE"}}, "UPDATE GLOBAL INDEXES"},
      // The degree is a child of UPDATE, so it comes before that leaf's postfix.
      {"C_DROP_TAB_SUBPART;SUBPARTITION",
       {{"", "S1"}, {"UPDATE", "UPDATE"}, {"UPDATE;C_PARALLEL;PARALLEL", "NOPARALLEL"}},
       "DROP SUBPARTITION S1 UPDATE GLOBAL INDEXES NOPARALLEL"},
      {"C_RENAME_PART_SUBPART", {{"NEWNAME", "P2"}, {"PARTITION", "P1"}}, "RENAME PARTITION P1 TO P2"},
      {"C_RENAME_PART_SUBPART", {{"SUBPARTITION", "S1"}, {"NEWNAME", "S2"}}, "RENAME SUBPARTITION S1 TO S2"},
      {"C_TRUNCATE_PART_SUBPART",
       {{"PARTITION", "P1"}, {"DROP", "DROP"}},
       "TRUNCATE PARTITION P1 DROP STORAGE"},
      {"C_TRUNCATE_PART_SUBPART",
       {{"SUBPARTITION", "S1"}, {"DROP", "REUSE"}, {"UPDATE", "UPDATE"}},
       "TRUNCATE SUBPARTITION S1 REUSE STORAGE UPDATE GLOBAL INDEXES"},
      {split,
       {{"", "P1"},
        {"AT", "AT"},
        {"LIST", "100"},
        {"SPEC1;PARTITION", "P1A"},
        {"SPEC2;PARTITION", "P1B"},
        {"SPEC2;C_TAB_PART_DESC;C_SEG_ATTRIBUTE;TABLESPACE", "T"}},
       "SPLIT PARTITION P1 AT (100) INTO (PARTITION P1A , PARTITION P1B TABLESPACE T)"},
      {split,
       {{"", "P1"}, {"VALUES", "VALUES"}, {"LIST", "'A'"}, {"SPEC1;PARTITION", "P1A"}},
       "SPLIT PARTITION P1 VALUES ('A') INTO (PARTITION P1A)"},
      {"C_SPLIT_TABLE_SUBPART;SUBPARTITION",
       {{"", "S1"}, {"LIST", "'A'"}, {"SPEC1;SUBPARTITION", "S1A"}, {"SPEC2;SUBPARTITION", "S1B"}},
       "SPLIT SUBPARTITION S1 VALUES ('A') INTO (SUBPARTITION S1A , SUBPARTITION S1B)"},
      {"C_MERGE_TABLE_PART",
       {{"PARTITION1", "P1,"}, {"PARTITION2", "P2"}, {"C_PARTITION_SPEC;PARTITION", "P12"}},
       "MERGE PARTITIONS P1, P2 INTO PARTITION P12"},
      {"C_MERGE_TABLE_SUBPART",
       {{"PARTITION1", "S1,"}, {"PARTITION2", "S2"}, {"C_SUBPARTITION_SPEC;SUBPARTITION", "S12"}},
       "MERGE SUBPARTITIONS S1, S2 INTO SUBPARTITION S12"},
      {"C_EXCHANGE_PART_SUBPART",
       {{"PARTITION", "P1"}, {"TABLE", "WITH TABLE T2 INCLUDING INDEXES WITHOUT"}},
       "EXCHANGE PARTITION P1 WITH TABLE T2 INCLUDING INDEXES WITHOUT VALIDATION"},
      {"C_EXCHANGE_PART_SUBPART",
       {{"SUBPARTITION", "S1"}, {"TABLE", "WITH TABLE T2 WITH"}, {"C_EXCEPTIONS;TABLE", "E"}},
       "EXCHANGE SUBPARTITION S1 WITH TABLE T2 WITH VALIDATION EXCEPTIONS INTO E"},
  };
  for (const Operation& op : cases) {
    SCOPED_TRACE(op.text);
    checkOperation(op);
  }
}

TEST(AlterTablePartition, SubpartitionTemplateItems) {
  CSQLClauseAlterTablePartition c;
  for (const char* name : {"S1", "S2"}) {
    ASSERT_EQ(c.AddAttr("C_SET_SUBPART_TEMPLATE;LIST",
                        make_unique<CSQLClauseTablePartition::CSubSQLItemTemplate>(name)),
              SQL_OK);
  }
  c.SetValue("C_SET_SUBPART_TEMPLATE;LIST;S1;SUBPARTITION", "S1");
  c.SetValue("C_SET_SUBPART_TEMPLATE;LIST;S2;SUBPARTITION", "S2");
  c.SetValue("C_SET_SUBPART_TEMPLATE;LIST;S2;C_LISTVALUES;DEFAULT", "DEFAULT");
  EXPECT_EQ(trimmed(write(c).text),
            "SET SUBPARTITION TEMPLATE ( SUBPARTITION S1,SUBPARTITION S2 VALUES (DEFAULT))");
}

// The operations, and the variants of one, are alternatives: the earlier one in the clause's order
// is written first, each later one on a pass of its own.
TEST(AlterTablePartition, OneOperationPerPass) {
  CSQLClauseAlterTablePartition c;
  for (auto [path, value] : Values{{"C_RENAME_PART_SUBPART;PARTITION", "P2"},
                                   {"C_RENAME_PART_SUBPART;NEWNAME", "P3"},
                                   {"C_DROP_TAB_PART;PARTITION", "P1"},
                                   {"C_MOD_TAB_PART;PARTITION;C_MOD_LIST_PART;REBUILD", "REBUILD"},
                                   {"C_MOD_TAB_PART;PARTITION;C_MOD_HASH_PART;UNUSABLE", "UNUSABLE"}})
    ASSERT_EQ(c.SetValue(path, value), SQL_OK) << path;
  std::vector<std::string> texts;
  while (c.hasUnused() && texts.size() < 6) {
    texts.push_back(trimmed(write(c).text));
    c.RefreshUsed();
  }
  EXPECT_EQ(texts, (std::vector<std::string>{"UNUSABLE LOCAL INDEXES", "REBUILD", "DROP PARTITION P1",
                                             "RENAME PARTITION P2 TO P3"}));
  EXPECT_FALSE(c.IsModified("*"));
}

}  // namespace
}  // namespace qarvelt::testing
