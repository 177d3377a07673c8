// Storage and physical attributes, parallel, extents, key compression, exceptions.
#include <gtest/gtest.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;

class StorageClauses : public ::testing::TestWithParam<TreeCase> {};
TEST_P(StorageClauses, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    StorageClauses,
    ::testing::Values(
        TreeCase{"storage in table order",
                 make<CSQLClauseStorage>(0),
                 {{"MAXEXTENTS", "UNLIMITED"}, {"NEXT", "64K"}, {"INITIAL", "64K"}},
                 "STORAGE (INITIAL 64K NEXT 64K MAXEXTENTS UNLIMITED)"},
        TreeCase{"freelist groups",
                 make<CSQLClauseStorage>(0),
                 {{"FREELIST", "2"}},
                 "STORAGE (FREELIST GROUPS 2)"},
        TreeCase{"buffer pool from release 2",
                 make<CSQLClauseStorage>(2),
                 {{"BUFFER_POOL", "KEEP"}, {"OPTIMAL", "1M"}},
                 "STORAGE (OPTIMAL 1M BUFFER_POOL KEEP)"},
        TreeCase{"storage alter writes only the change",
                 make<CSQLClauseStorage>(7),
                 {{"INITIAL", "64K", "64K"}, {"NEXT", "128K", "64K"}},
                 "STORAGE (NEXT 128K)"},
        TreeCase{"unchanged storage writes nothing", make<CSQLClauseStorage>(7), {{"NEXT", "1M", "1M"}}, ""},
        TreeCase{"physical attributes with storage",
                 make<CSQLClausePhysicalAttr>(0),
                 {{"C_STORAGE;INITIAL", "1M"}, {"PCTFREE", "20", "10"}, {"MAXTRANS", "255"}},
                 "PCTFREE 20 MAXTRANS 255 STORAGE (INITIAL 1M)"},
        TreeCase{"segment attributes",
                 make<CSQLClauseSegmentAttribute>(7),
                 {{"LOGGING", "NOLOGGING"},
                  {"TABLESPACE", "USERS"},
                  {"C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL", "RECYCLE"}},
                 "TABLESPACE USERS STORAGE (BUFFER_POOL RECYCLE) NOLOGGING"},
        TreeCase{"parallel degree",
                 make<CSQLClauseParallel>(3),
                 {{"PARALLEL", "PARALLEL"}, {"PARALLEL;VALUE", "4"}},
                 "PARALLEL 4"},
        TreeCase{"noparallel alone", make<CSQLClauseParallel>(7), {{"PARALLEL", "NOPARALLEL"}}, "NOPARALLEL"},
        TreeCase{"old parallel form",
                 [] {
                   auto p = make_unique<CSQLClauseParallel>(true, 2);
                   p->AddAttr("PARALLEL;LIST", make_unique<CSQLClauseParallel::CSubSQLItem>("D"));
                   p->AddAttr("PARALLEL;LIST", make_unique<CSQLClauseParallel::CSubSQLItem>("I"));
                   return p;
                 },
                 {{"PARALLEL", "PARALLEL"},
                  {"PARALLEL;LIST;D;DEGREE", "DEGREE"},
                  {"PARALLEL;LIST;D;DEGREE;VALUE", "4"},
                  {"PARALLEL;LIST;I;DEGREE", "INSTANCES"},
                  {"PARALLEL;LIST;I;DEGREE;VALUE", "2"}},
                 "PARALLEL (DEGREE 4 INSTANCES 2)"},
        TreeCase{"allocate extent",
                 make<CSQLClauseAllocateExtent>(7),
                 {{"EXTENT", "EXTENT"},
                  {"EXTENT;INSTANCE", "2"},
                  {"EXTENT;DATAFILE", "x.dbf"},
                  {"EXTENT;SIZE", "10M"}},
                 "ALLOCATE EXTENT (SIZE 10M DATAFILE 'x.dbf' INSTANCE 2)"},
        TreeCase{"allocate extent bare",
                 make<CSQLClauseAllocateExtent>(7),
                 {{"EXTENT", "EXTENT"}},
                 "ALLOCATE EXTENT"},
        TreeCase{"deallocate unused keep",
                 make<CSQLClauseDeallocateUnused>(7),
                 {{"UNUSED", "UNUSED"}, {"KEEP", "10K"}},
                 "DEALLOCATE UNUSED KEEP 10K"},
        TreeCase{"compress with prefix length",
                 make<CSQLClauseKeyCompression>(7),
                 {{"COMPRESS", "COMPRESS"}, {"COMPRESS;VALUE", "2"}},
                 "COMPRESS 2"},
        TreeCase{"nocompress drops the length",
                 make<CSQLClauseKeyCompression>(7),
                 {{"COMPRESS", "NOCOMPRESS"}, {"COMPRESS;VALUE", "3"}},
                 "NOCOMPRESS"},
        TreeCase{"exceptions into schema table",
                 make<CSQLClauseExceptions>(7),
                 {{"SCHEMA", "S"}, {"TABLE", "T"}},
                 "EXCEPTIONS INTO S.T"},
        TreeCase{
            "exceptions into table", make<CSQLClauseExceptions>(7), {{"TABLE", "T"}}, "EXCEPTIONS INTO T"}),
    caseName);

TEST(StorageClauses, ReleaseGatesRemovePaths) {
  struct {
    std::function<std::unique_ptr<CSQLClause>()> make;
    const char* path;
    bool present;
  } const cases[] = {
      {make<CSQLClauseStorage>(1), "BUFFER_POOL", false},
      {make<CSQLClauseStorage>(2), "BUFFER_POOL", true},
      {[] { return make_unique<CSQLClauseStorage>(); }, "BUFFER_POOL", false},  // default release code 0
      {[] { return make_unique<CSQLClausePhysicalAttr>(); }, "C_STORAGE;BUFFER_POOL", false},
      {make<CSQLClausePhysicalAttr>(7), "C_STORAGE;BUFFER_POOL", true},
      {make<CSQLClauseSegmentAttribute>(1), "LOGGING", false},
      {make<CSQLClauseSegmentAttribute>(1), "C_PHYSICAL_ATTRIBUTES;C_STORAGE;BUFFER_POOL", false},
      {make<CSQLClauseSegmentAttribute>(2), "LOGGING", true},
      {make<CSQLClauseParallel>(2), "PARALLEL;LIST", true},
      {make<CSQLClauseParallel>(2), "PARALLEL;VALUE", false},
      {make<CSQLClauseParallel>(3), "PARALLEL;LIST", false},
      {make<CSQLClauseParallel>(3), "PARALLEL;VALUE", true},
  };
  for (const auto& c : cases) {
    auto tree = c.make();
    EXPECT_EQ(tree->GetClause(c.path) != nullptr, c.present) << tree->GetType() << " " << c.path;
    EXPECT_EQ(tree->SetValue(c.path, "1") == SQL_OK, c.present) << tree->GetType() << " " << c.path;
  }
}

TEST(StorageClauses, NamesVersionsAndValidation) {
  EXPECT_EQ(CSQLClauseStorage().GetOraVersion(), 0);
  EXPECT_EQ(CSQLClausePhysicalAttr().GetOraVersion(), 0);
  EXPECT_EQ(CSQLClauseParallel().GetType(), "C_PARALLEL");
  CSQLClauseSegmentAttribute seg(true, 4);
  EXPECT_EQ(seg.GetClause("C_PHYSICAL_ATTRIBUTES")->GetOraVersion(), 4);  // handed down
  EXPECT_EQ(seg.GetClause("C_PHYSICAL_ATTRIBUTES;C_STORAGE")->GetOraVersion(), 4);

  CSQLClauseParallel parallel;
  EXPECT_EQ(parallel.SetValue("PARALLEL;VALUE", "four"), SQL_NOT_FOUND);
  EXPECT_EQ(parallel.GetClause("PARALLEL;VALUE")->SetValue(nullptr, "four"), SQL_INVALID);
  CSQLClauseParallel::CSubSQLItem item("D");
  EXPECT_EQ(item.GetClause("DEGREE;VALUE")->SetValue(nullptr, "x"), SQL_INVALID);

  auto clone = CSQLClauseStorage(true, 2).Clone();
  EXPECT_NE(dynamic_cast<CSQLClauseStorage*>(clone.get()), nullptr);
  EXPECT_EQ(clone->GetOraVersion(), 2);
  EXPECT_NE(clone->GetClause("BUFFER_POOL"), nullptr);
  EXPECT_EQ(write(*clone).code, SQL_NOTHING);
}

}  // namespace
}  // namespace qarvelt::testing
