// The model layer as a host uses it: documents in, scripts out, errors with their place, and the
// statement trees by name and path.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include <qarvelt/qarvelt.h>

namespace qarvelt::testing {
namespace {

using namespace qarvelt::model;

const char* const kTable = R"({"schema": "s", "name": "t", "release": "10g",
  "columns": [{"name": "id", "type": "number", "precision": 9, "not_null": true},
              {"name": "note", "type": "VARCHAR2", "length": 40}],
  "constraints": [{"name": "t_pk", "type": "PRIMARY KEY", "columns": ["id"]}]})";

TEST(Model, CreateAndDiffAsTheToolWritesThem) {
  const Table before = ReadTable(kTable, "t.json");
  EXPECT_EQ(Create(before).statements,
            std::vector<std::string>{"CREATE TABLE S.T (ID NUMBER (9) NOT NULL,\nNOTE VARCHAR2 (40),\n"
                                     "CONSTRAINT T_PK PRIMARY KEY (ID))"});
  Table after = before;
  after.columns[1].length = "80";
  after.columns.pop_back();
  Options options;
  const Script script = Diff(before, after, options);
  EXPECT_EQ(script.statements, std::vector<std::string>{"ALTER TABLE S.T DROP (NOTE)"});
  ASSERT_EQ(script.warnings.size(), 1u);
  EXPECT_EQ(ScriptText(script), "ALTER TABLE S.T DROP (NOTE);\n");
  EXPECT_EQ(ScriptText(script, Terminator::Slash), "ALTER TABLE S.T DROP (NOTE)\n/\n");
  options.fail_on_data_loss = true;
  EXPECT_THROW(Diff(before, after, options), Error);
}

struct ErrorCase {
  const char* name;
  std::function<void()> call;
  ErrorKind kind;
  std::string where, message;
};

TEST(Model, ErrorsCarryKindPlaceAndMessage) {
  const Table table = ReadTable(kTable);
  Table blob = table;
  blob.columns[1].type = "BLOB";
  const std::vector<ErrorCase> cases = {
      {"syntax", [] { ReadTable("{\n  \"name\": }", "x.json"); }, ErrorKind::BadInput, "x.json:2:11", ""},
      {"key", [] { ReadTable(R"({"name": "T", "columns": [{"name": "A", "typ": "DATE"}]})", "x.json"); },
       ErrorKind::BadInput, "x.json.columns[0].type", "missing (required)"},
      {"release", [] { ReadRelease("12x", "--release"); }, ErrorKind::BadInput, "--release", ""},
      {"type change", [&] { Diff(table, blob); }, ErrorKind::NotExpressible, "",
       "S.T: column NOTE changes its type from VARCHAR2 to BLOB; no ALTER statement does this "
       "(--allow-recreate drops and creates the table)"},
      {"kind", [] { MakeStatement("CREATE TABEL", 7); }, ErrorKind::BadInput, "kind", ""},
  };
  for (const ErrorCase& c : cases) {
    try {
      c.call();
      ADD_FAILURE() << c.name << ": no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), c.kind) << c.name;
      EXPECT_EQ(error.where(), c.where) << c.name;
      if (!c.message.empty()) {
        EXPECT_EQ(error.message(), c.message) << c.name;
      }
      EXPECT_EQ(std::string(error.what()),
                c.where.empty() ? error.message() : c.where + ": " + error.message());
    }
  }
}

std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Every document of the repository that reads: written and read again, it is the same table, and it
// creates the same statements.
TEST(Model, WrittenDocumentsReadBackToTheSameTable) {
  namespace fs = std::filesystem;
  int documents = 0;
  for (const fs::path& dir :
       {fs::path(QARVELT_SOURCE_DIR) / "examples", fs::path(QARVELT_SOURCE_DIR) / "tests/cli"}) {
    for (const auto& entry : fs::recursive_directory_iterator(dir)) {
      if (entry.path().extension() != ".json" || entry.path().filename() == "statement.json") continue;
      Table table;
      try {
        table = ReadTable(readFile(entry.path()), entry.path().string());
      } catch (const Error&) {
        continue;  // the golden cases of refused documents
      }
      ++documents;
      const std::string written = WriteTable(table);
      const Table again = ReadTable(written, "written");
      EXPECT_EQ(WriteTable(again), written) << entry.path();
      try {
        EXPECT_EQ(Create(again).statements, Create(table).statements) << entry.path();
      } catch (const Error&) {
        EXPECT_THROW(Create(again), Error) << entry.path();
      }
    }
  }
  EXPECT_GT(documents, 40);
}

TEST(Model, StatementTreesByNameAndPath) {
  auto table = MakeStatement("create table", 7);
  const std::string list = "C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST";
  SetPath(*table, "C_RELATIONAL_TABLE;TABLE", "T");
  AddItem(*table, list, "CSQLCreateTable::CSubSQLItemProp", "A", 7);
  SetPath(*table, list + ";A;COLUMN", "A");
  SetPath(*table, list + ";A;DATATYPE", "DATE");
  EXPECT_EQ(Passes(*table), std::vector<std::string>{"CREATE TABLE T (A DATE)"});
  try {
    SetPath(*table, list + ";A;DATATYPE;LENGHT", "3");
    ADD_FAILURE() << "no error for a misspelt path";
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::BadInput);
    EXPECT_NE(error.message().find("DATATYPE;LENGTH"), std::string::npos) << error.what();
  }
  EXPECT_THROW(AddItem(*table, "C_RELATIONAL_TABLE;TABLE", "CSQLCreateTable::CSubSQLItemProp", "B", 7),
               Error);
  EXPECT_THROW(MakeItem("CSQLNoSuchItem", "B", 7), Error);
}

}  // namespace
}  // namespace qarvelt::testing
