// Index information: the ALTER INDEX statements built from an index and its partitions.
#include <gtest/gtest.h>

#include <qarvelt/info/index.h>
#include <qarvelt/statements/alter_index.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

// A value loaded with its new and its initial text.
struct Load {
  const char* type;
  const char* value;
  const char* init;
};

void load(CSQLInfoBase& record, std::vector<Load> loads) {
  for (const Load& l : loads)
    record.SetSQLValue(l.type, l.value, l.init);
}

CSQLInfoIndex::CPartition& partition(CSQLInfoIndex& index, const char* name, std::vector<Load> loads = {}) {
  index.AddPartition(name, true);
  load(*index.GetPartition(name), loads);
  return *index.GetPartition(name);
}

void subpartition(CSQLInfoIndex::CPartition& part, const char* name, std::vector<Load> loads) {
  part.AddSubPartition(name, true);
  load(*part.GetSubPartition(name), loads);
}

struct IndexCase {
  const char* name;
  std::function<void(CSQLInfoIndex&)> edit;
  std::vector<std::string> statements;
};

void PrintTo(const IndexCase& c, std::ostream* os) {
  *os << c.name;
}

class InfoIndex : public ::testing::TestWithParam<IndexCase> {};

// The statements of one run, and the tree left with nothing but its head: a second run on the same
// tree gives the same statements.
TEST_P(InfoIndex, WritesStatementsInOrder) {
  CSQLInfoIndex index;
  load(index, {{"SCHEMA", "", "S"}, {"INDEX", "", "I"}});
  GetParam().edit(index);
  CSQLAlterIndex stmt;
  std::vector<std::string> out;
  ASSERT_EQ(CSQLUtil::GenAltIndex(&stmt, &out, &index), 0);
  EXPECT_EQ(out, GetParam().statements);
  EXPECT_EQ(write(stmt).text, "");
  std::vector<std::string> again;
  CSQLUtil::GenAltIndex(&stmt, &again, &index);
  EXPECT_EQ(again, out);
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    InfoIndex,
    ::testing::Values(
        IndexCase{"index rename",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"INDEX", "J", "I"}});
                  },
                  {"ALTER INDEX S.I RENAME TO J"}},
        IndexCase{"new tablespace rebuilds",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"TABLESPACE", "T2", "T1"}});
                  },
                  {"ALTER INDEX S.I REBUILD TABLESPACE T2"}},
        IndexCase{"PCTFREE rebuilds and the rebuild carries every change",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"PCTFREE", "20", "10"},
                             {"INITRANS", "4", "2"},
                             {"NEXT", "1M", "64K"},
                             {"LOGGING", "NOLOGGING", "LOGGING"}});
                  },
                  {"ALTER INDEX S.I REBUILD PCTFREE 20 INITRANS 4 STORAGE (NEXT 1M) NOLOGGING"}},
        IndexCase{"in-place changes in one statement, PARALLEL restates the degree",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"INITRANS", "4", "2"},
                             {"MAXEXTENTS", "UNLIMITED", "100"},
                             {"PARALLEL", "PARALLEL", "NOPARALLEL"},
                             {"PARALLEL;VALUE", "", "4"}});
                  },
                  {"ALTER INDEX S.I PARALLEL 4 INITRANS 4 STORAGE (MAXEXTENTS UNLIMITED)"}},
        IndexCase{"a plain rebuild restates the tablespace",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"REBUILD", "REBUILD", ""}, {"TABLESPACE", "", "T1"}});
                  },
                  {"ALTER INDEX S.I REBUILD TABLESPACE T1"}},
        IndexCase{"taking back UNUSABLE rebuilds, online",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"UNUSABLE", "", "UNUSABLE"}, {"ONLINE", "ONLINE", ""}});
                    i.SetSQLValue("UNUSABLE", "");
                  },
                  {"ALTER INDEX S.I REBUILD ONLINE"}},
        IndexCase{"key compression rebuilds",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"COMPRESS", "COMPRESS", "NOCOMPRESS"}, {"COMPRESS;VALUE", "", "2"}});
                  },
                  {"ALTER INDEX S.I REBUILD COMPRESS 2"}},
        IndexCase{"unusable, monitoring, rename last",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"INDEX", "J", "I"},
                             {"MONITORING", "NOMONITORING", "MONITORING"},
                             {"UNUSABLE", "UNUSABLE", ""}});
                  },
                  {"ALTER INDEX S.I UNUSABLE", "ALTER INDEX S.I NOMONITORING USAGE",
                   "ALTER INDEX S.I RENAME TO J"}},
        IndexCase{
            "nothing changed",
            [](CSQLInfoIndex& i) {
              load(i, {{"TABLESPACE", "", "T1"}, {"PARALLEL", "", "PARALLEL"}, {"COMMENTS", "new", "old"}});
              partition(i, "P1", {{"NAME", "", "P1"}, {"TABLESPACE", "", "T1"}});
              i.AddPartition("P2", false);  // added partitions are not scripted
            },
            {}},
        IndexCase{"partitions: drop, rename, rebuild, modify, unusable",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"INDEX", "J", "I"},
                             {"TABLESPACE", "T9", "T1"},
                             {"INITRANS", "3", "2"},
                             {"PARALLEL", "NOPARALLEL", "PARALLEL"}});
                    partition(i, "P1", {{"NAME", "Q1", "P1"}, {"TABLESPACE", "T2", "T1"}});
                    partition(i, "P2");
                    i.DropPartition("P2", false);
                    partition(i, "P3", {{"INITRANS", "4", "2"}});
                    partition(i, "P4", {{"UNUSABLE", "UNUSABLE", ""}});
                    partition(i, "P5", {{"PCTFREE", "20", "10"}, {"LOGGING", "NOLOGGING", ""}});
                  },
                  {"ALTER INDEX S.I DROP PARTITION P2", "ALTER INDEX S.I RENAME PARTITION P1 TO Q1",
                   "ALTER INDEX S.I REBUILD PARTITION Q1 TABLESPACE T2",
                   "ALTER INDEX S.I REBUILD PARTITION P5 PCTFREE 20 NOLOGGING", "ALTER INDEX S.I NOPARALLEL",
                   "ALTER INDEX S.I MODIFY DEFAULT ATTRIBUTES INITRANS 3 TABLESPACE T9",
                   "ALTER INDEX S.I MODIFY PARTITION P3 INITRANS 4",
                   "ALTER INDEX S.I MODIFY PARTITION P4 UNUSABLE", "ALTER INDEX S.I RENAME TO J"}},
        IndexCase{"a local index drops no partition",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"LOCAL", "", "LOCAL"}});
                    partition(i, "P1");
                    i.DropPartition("P1", false);
                  },
                  {}},
        IndexCase{"subpartitions, and the defaults of their partition",
                  [](CSQLInfoIndex& i) {
                    load(i, {{"ONLINE", "", "ONLINE"}});
                    auto& p = partition(i, "P1", {{"TABLESPACE", "T2", "T1"}, {"REBUILD", "REBUILD", ""}});
                    subpartition(p, "S1", {{"TABLESPACE", "T3", "T1"}});
                    subpartition(p, "S2", {{"NAME", "R2", "S2"}});
                    subpartition(p, "S3", {{"UNUSABLE", "UNUSABLE", ""}});
                  },
                  {"ALTER INDEX S.I RENAME SUBPARTITION S2 TO R2",
                   "ALTER INDEX S.I REBUILD SUBPARTITION S1 TABLESPACE T3 ONLINE",
                   "ALTER INDEX S.I MODIFY DEFAULT ATTRIBUTES FOR PARTITION P1 TABLESPACE T2",
                   "ALTER INDEX S.I MODIFY SUBPARTITION S3 UNUSABLE"}}),
    [](const ::testing::TestParamInfo<IndexCase>& info) {
      std::string name = info.param.name;
      for (char& ch : name) {
        if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
      }
      return name;
    });

TEST(InfoIndex, ErrorCodes) {
  CSQLAlterIndex stmt;
  std::vector<std::string> out{"kept"};
  EXPECT_EQ(CSQLUtil::GenAltIndex(&stmt, &out, nullptr), SQL_RECORD_MISSING);
  EXPECT_EQ(out, std::vector<std::string>{"kept"});

  CSQLInfoIndex index;
  EXPECT_EQ(index.AddPartition("P1", true), 0);
  EXPECT_EQ(index.AddPartition("P1", false), SQL_DUPLICATE);
  EXPECT_EQ(index.DropPartition("P9", false), SQL_NOT_FOUND);
  auto* p1 = index.GetPartition("P1");
  EXPECT_EQ(p1->AddSubPartition("S1", true), 0);
  EXPECT_EQ(p1->AddSubPartition("S1", true), SQL_DUPLICATE);
  EXPECT_EQ(p1->DropSubPartition("S9", false), SQL_NOT_FOUND);
}

}  // namespace
}  // namespace qarvelt::testing
