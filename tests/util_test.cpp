// The data type catalogue, the type questions and the validators.
#include <gtest/gtest.h>

#include <qarvelt/qarvelt.h>

namespace qarvelt {
namespace {

TEST(Catalogue, ByReleaseCode) {
  const std::vector<std::string> latest = {"CHAR",
                                           "VARCHAR2",
                                           "NCHAR",
                                           "NVARCHAR2",
                                           "NUMBER",
                                           "LONG",
                                           "LONG RAW",
                                           "RAW",
                                           "DATE",
                                           "FLOAT",
                                           "INTEGER",
                                           "BINARY_FLOAT",
                                           "BINARY_DOUBLE",
                                           "TIMESTAMP",
                                           "TIMESTAMP WITH TIME ZONE",
                                           "TIMESTAMP WITH LOCAL TIME ZONE",
                                           "INTERVAL YEAR TO MONTH",
                                           "INTERVAL DAY TO SECOND",
                                           "ROWID",
                                           "UROWID",
                                           "BLOB",
                                           "CLOB",
                                           "NCLOB",
                                           "BFILE"};
  EXPECT_EQ(CSQLUtil::GetDataTypes(7), latest);

  const std::vector<std::string> oldest = {"CHAR", "VARCHAR2", "NUMBER", "LONG",    "LONG RAW",
                                           "RAW",  "DATE",     "FLOAT",  "INTEGER", "ROWID"};
  EXPECT_EQ(CSQLUtil::GetDataTypes(0), oldest);

  struct {
    int code;
    std::size_t count;
  } const counts[] = {{1, 16}, {2, 17}, {3, 22}, {4, 22}, {5, 24}, {6, 24}, {7, 24}};
  for (const auto& c : counts)
    EXPECT_EQ(CSQLUtil::GetDataTypes(c.code).size(), c.count) << c.code;

  const auto& four = CSQLUtil::GetDataTypes(4);
  EXPECT_EQ(std::count(four.begin(), four.end(), "BINARY_FLOAT"), 0);
  EXPECT_EQ(std::count(four.begin(), four.end(), "TIMESTAMP"), 1);
}

TEST(Catalogue, OneListPerCodeForTheWholeRun) {
  const std::vector<std::string>* seven = &CSQLUtil::GetDataTypes(7);
  EXPECT_EQ(CSQLUtil::GetDataTypes(0).size(), 10u);
  // Asking for another code leaves the list a host holds as it was.
  EXPECT_EQ(&CSQLUtil::GetDataTypes(7), seven);
  EXPECT_EQ(seven->size(), 24u);
  EXPECT_TRUE(CSQLUtil::GetDataTypes(-1).empty());
  // Codes past the newest known are read as the newest.
  EXPECT_EQ(CSQLUtil::GetDataTypes(99), CSQLUtil::GetDataTypes(kNewestRelease));
  // Oracle 21c brought JSON, Oracle 23ai BOOLEAN and VECTOR.
  const auto has = [](int code, const char* type) {
    const auto& types = CSQLUtil::GetDataTypes(code);
    return std::count(types.begin(), types.end(), type) == 1;
  };
  EXPECT_TRUE(!has(10, "JSON") && has(11, "JSON") && has(12, "JSON"));
  EXPECT_TRUE(!has(11, "BOOLEAN") && has(12, "BOOLEAN") && has(12, "VECTOR"));
}

TEST(TypeQuestions, AnswersByName) {
  struct {
    const char* type;
    int length, scale, precision, lob;
  } const cases[] = {
      {"VARCHAR2", 1, 0, 0, 0},
      {"varchar2", 1, 0, 0, 0},  // upper-cased for the size questions
      {"NCHAR", 1, 0, 0, 0},
      {"RAW", 1, 0, 0, 0},
      {"NUMBER", 2, 1, 1, 0},
      {"number", 2, 1, 1, 0},
      {"FLOAT", 2, 0, 0, 0},
      {"UROWID", 2, 0, 0, 0},
      {"MY_TYPE", 2, 0, 0, 0},
      {"DECIMAL", 2, 1, 0, 0},
      {"DATE", 0, 0, 0, 0},
      {"LONG RAW", 0, 0, 0, 0},
      {"SMALLINT", 0, 0, 0, 0},
      {"BINARY_DOUBLE", 0, 0, 0, 0},
      {"TIMESTAMP(6)", 0, 1, 0, 0},
      {"TIMESTAMP WITH TIME ZONE", 0, 1, 0, 0},
      {"INTERVAL DAY TO SECOND", 0, 1, 1, 0},
      {"INTERVAL YEAR TO MONTH", 0, 0, 1, 0},
      {"CLOB", 0, 0, 0, 1},
      {"clob", 0, 0, 0, 0},  // the LOB test is exact
      {"BFILE", 0, 0, 0, 1},
      {"", 2, 0, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.type);
    EXPECT_EQ(CSQLUtil::IsNeedLength(c.type), c.length);
    EXPECT_EQ(CSQLUtil::IsNeedScale(c.type), c.scale);
    EXPECT_EQ(CSQLUtil::IsNeedPrecision(c.type), c.precision);
    EXPECT_EQ(CSQLUtil::IsLOBType(c.type), c.lob);
  }
  EXPECT_EQ(CSQLUtil::IsNeedLength(nullptr), 2);
  EXPECT_EQ(CSQLUtil::IsLOBType(nullptr), 0);
}

TEST(Validators, IntegerAndTheAcceptingNamesakes) {
  struct {
    const char* value;
    int code;
  } const integers[] = {{"007", 0}, {"4", 0},  {"", 3},    {"-1", 3},
                        {"10K", 3}, {" 1", 3}, {"1.5", 3}, {nullptr, 3}};
  for (const auto& c : integers)
    EXPECT_EQ(CSQLUtil::IsValidInteger(c.value), c.code) << c.value;

  for (SQLValidator validator :
       {&CSQLUtil::IsValid, &CSQLUtil::IsValidAddDrop, &CSQLUtil::IsValidAlways, &CSQLUtil::IsValidBufferPool,
        &CSQLUtil::IsValidCache, &CSQLUtil::IsValidCompress, &CSQLUtil::IsValidEnable,
        &CSQLUtil::IsValidLogging, &CSQLUtil::IsValidMaxExtents, &CSQLUtil::IsValidMonitoring,
        &CSQLUtil::IsValidOptimal, &CSQLUtil::IsValidParallel, &CSQLUtil::IsValidRecordPerBlock,
        &CSQLUtil::IsValidSize}) {
    for (const char* value : {"", "anything", "-1", static_cast<const char*>(nullptr)}) {
      EXPECT_EQ(validator(value), 0);
    }
  }
  EXPECT_EQ(CSQLUtil::STR_SPACES, "   ");
}

}  // namespace
}  // namespace qarvelt
