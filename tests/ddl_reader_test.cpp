// The DDL reader: scripts in the styles people bring (the database's export, hand-written scripts
// with SQL*Plus lines), its refusals with their place, and the replay property: the script `diff`
// writes between two schemas, applied to the first, gives the second.
#include <gtest/gtest.h>

#include <qarvelt/ddl/reader.h>
#include <qarvelt/model/document.h>
#include <qarvelt/model/error.h>
#include <qarvelt/model/schema.h>
#include <qarvelt/model/script.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "generated_schema.h"

namespace qarvelt::ddl {
namespace {

model::Schema read(const std::string& text, ReadReport* out = nullptr, bool skipUnknown = false) {
  ReadReport report;
  ReadOptions options;
  options.skip_unknown = skipUnknown;
  model::Schema s = ReadScript(text, "s.sql", options, report);
  if (out != nullptr) *out = report;
  return s;
}

TEST(DdlReader, AHandWrittenScript) {
  ReadReport report;
  const model::Schema s = read(R"(-- the orders of the shop
set echo on
prompt creating tables ...
create table orders (
  id       number(12) constraint orders_pk primary key,  -- the key
  status   varchar2(10 char) default 'NEW' not null,
  placed   timestamp(3) default systimestamp,
  total    number(*,2) check (total >= 0),
  customer number references customers (id) on delete cascade
) tablespace users pctfree 5
/
/* an index */
create unique index orders_status_ix on orders (status, upper("Mixed")) compress 1;
alter table orders add constraint orders_total_ck check (total < 1e9) novalidate;
comment on column orders.total is 'the sum, it''s in EUR';
@@more.sql
)",
                               &report);
  ASSERT_EQ(s.tables.size(), 1U);
  const model::Table& t = s.tables[0];
  EXPECT_EQ(t.name, "ORDERS");
  EXPECT_EQ(t.tablespace, "USERS");
  EXPECT_EQ(t.segment.pctfree, "5");
  ASSERT_EQ(t.columns.size(), 5U);
  EXPECT_TRUE(t.columns[0].primary_key);
  EXPECT_EQ(t.columns[0].constraint_name, "ORDERS_PK");
  EXPECT_EQ(t.columns[1].unit, "CHAR");
  EXPECT_EQ(t.columns[1].default_value, "'NEW'");
  EXPECT_TRUE(t.columns[1].not_null);
  EXPECT_EQ(t.columns[2].length, "3");
  EXPECT_EQ(t.columns[3].length, "*");
  EXPECT_EQ(t.columns[3].check, "total >= 0");
  EXPECT_EQ(t.columns[3].comment, "the sum, it's in EUR");
  ASSERT_EQ(t.constraints.size(), 2U);
  EXPECT_EQ(t.constraints[0].type, "FOREIGN KEY");
  EXPECT_EQ(t.constraints[0].on_delete, "CASCADE");
  EXPECT_EQ(t.constraints[1].state.validate, "NOVALIDATE");
  ASSERT_EQ(t.indexes.size(), 1U);
  EXPECT_TRUE(t.indexes[0].unique);
  EXPECT_EQ(t.indexes[0].keys[1].expression, "upper(\"Mixed\")");
  EXPECT_EQ(t.indexes[0].compress, "1");
  ASSERT_EQ(report.notes.size(), 3U);  // set, prompt, @@
  EXPECT_EQ(report.notes[0], "s.sql:2:1: SQL*Plus line skipped: set echo on");
}

// A quoted name's case is part of the name: it survives the schema document and the statements
// written from it, while names a document gives in lower case are still folded before a script
// applied to it looks them up.
TEST(DdlReader, QuotedNamesKeepTheirCase) {
  const model::Schema s = read(R"(create table "App"."Order" ("Id" number, status number);)");
  EXPECT_TRUE(s.preserve_case);
  const std::string document = model::WriteSchema(s);
  EXPECT_NE(document.find("\"preserve_case\": true"), std::string::npos) << document;
  const std::string created = model::ScriptText(model::CreateSchema(model::ReadSchema(document)));
  EXPECT_EQ(created, "CREATE TABLE \"App\".\"Order\" (\"Id\" NUMBER,\nSTATUS NUMBER);\n");

  // Upper-case names need no mark: the document stays as a person would write it.
  EXPECT_EQ(model::WriteSchema(read("create table app.t (c number);")).find("preserve_case"),
            std::string::npos);

  model::Schema folded = model::ReadSchema(R"({"schema": "app", "tables": [
      {"name": "emp", "columns": [{"name": "id", "type": "NUMBER"}]}]})");
  ReadReport report;
  ApplyScript(folded, "alter table app.emp add (x number);", "c.sql", {}, report);
  ASSERT_EQ(folded.tables.size(), 1U);
  EXPECT_EQ(folded.tables[0].name, "EMP");
  EXPECT_EQ(folded.tables[0].columns.size(), 2U);
}

// Oracle gives a key added to a table an index that already covers the key's columns (its leading
// columns, in any order); an index on fewer columns does not cover it.
TEST(DdlReader, AKeyAddedLaterTakesTheIndexOverItsColumns) {
  const model::Schema s = read(R"(create table t (a number, b number, c number);
create index t_bac on t (b, a, c);
create index t_a on t (a);
alter table t add constraint t_pk primary key (a, b) using index tablespace users;
alter table t add constraint t_uk unique (c, a);)");
  ASSERT_EQ(s.tables.at(0).constraints.size(), 2U);
  const model::ConstraintState& pk = s.tables[0].constraints[0].state;
  EXPECT_EQ(pk.index_name, "T_BAC");
  EXPECT_EQ(pk.index_tablespace, "");  // the index has its own
  EXPECT_EQ(s.tables[0].constraints[1].state.index_name, "");
}

TEST(DdlReader, FaultsNameTheirPlace) {
  const std::pair<std::string, std::string> cases[] = {
      {"CREATE TABLE T (A NUMBER,);", "s.sql:1:26: expected a column name, found \")\""},
      {"CREATE TABLE T (A NUMBER)\n  TABLESPAC USERS;", "s.sql:2:3: expected a table property"},
      {"CREATE TABLE T (A NUMBER);\nGRANT SELECT ON T TO PUBLIC;",
       "s.sql:2:1: cannot read this statement: GRANT SELECT"},
      {"ALTER TABLE NOPE ADD (B DATE);", "s.sql:1:13: no table NOPE in the script"},
      {"CREATE TABLE A.T (X DATE);\nCREATE TABLE B.U (X DATE);", "s.sql:2:14: U is in schema B"},
      {"CREATE TABLE T (A VARCHAR2(10);", "s.sql:1:31: expected \")\""},
      {"CREATE TABLE T (A INTERVAL DAY(3) TO MONTH);", "s.sql:1:38: expected SECOND, found \"MONTH\""},
      {"CREATE TABLE T (ID NUMBER, DOC CLOB) LOB (DOC) STORE AS (CACHE NOLOGGING);",
       "s.sql:1:64: NOLOGGING does not go with CACHE"},
      {"CREATE VIEW V AS SELECT 'open FROM DUAL;", "s.sql:1:25:"},
      {"CREATE TABLE T (A NUMBER) PARTITION BY HASH (A) PARTITIONS 4294967296;",
       "s.sql:1:60: a number of partitions from 1 to 1048575, found 4294967296"},
  };
  for (const auto& [text, expected] : cases) {
    try {
      read(text);
      ADD_FAILURE() << text;
    } catch (const model::Error& error) {
      EXPECT_EQ(error.kind(), model::ErrorKind::BadInput) << text;
      EXPECT_NE(std::string(error.what()).find(expected), std::string::npos) << error.what();
    }
  }
  ReadReport report;
  const model::Schema s = read("GRANT SELECT ON T TO PUBLIC;\nCREATE TABLE T (A NUMBER);", &report, true);
  EXPECT_EQ(s.tables.size(), 1U);
  ASSERT_EQ(report.warnings.size(), 1U);
  EXPECT_EQ(report.warnings[0], "s.sql:1:1: skipped: GRANT SELECT ON T TO PUBLIC");
}

// The replay property over generated pairs: apply(A, diff(A, B)) describes B (their diff is empty).
// QARVELT_REPLAY_PAIRS sets how many pairs (2,000 by default; the README's longer run takes 100,000),
// QARVELT_REPLAY_FIRST the first seed.
TEST(DdlReader, ReplayingTheDiffOfGeneratedSchemas) {
  auto setting = [](const char* name, int fallback) {
    const char* value = std::getenv(name);
    return value != nullptr ? std::atoi(value) : fallback;
  };
  const int first = setting("QARVELT_REPLAY_FIRST", 1), pairs = setting("QARVELT_REPLAY_PAIRS", 2000);
  const model::Schema base = testing::GeneratedSchema(12);
  for (int seed = first; seed < first + pairs; ++seed) {
    const model::Schema before =
        testing::WithoutRenames(testing::EditedSchema(base, static_cast<unsigned>(seed) * 7919U, 3));
    model::Schema after = testing::EditedSchema(before, static_cast<unsigned>(seed), 8);
    std::string text;
    model::Schema replayed = model::ResolveSchemaNames(before);
    ReadReport report;
    try {
      text = model::ScriptText(model::DiffSchema(before, after));
      ApplyScript(replayed, text, "diff.sql", {}, report);
    } catch (const model::Error& error) {
      FAIL() << "seed " << seed << ": " << error.what() << "\n" << text;
    }
    after = testing::WithoutRenames(after);
    const model::Script left = model::DiffSchema(replayed, after);
    ASSERT_TRUE(left.statements.empty()) << "seed " << seed << ": the replayed schema still differs:\n"
                                         << model::ScriptText(left) << "\nthe script:\n"
                                         << text;
  }
}

}  // namespace
}  // namespace qarvelt::ddl

#include <filesystem>
#include <fstream>
#include <sstream>

namespace qarvelt::ddl {
namespace {

// What import and apply write is a schema document like any other: it reads back, and writes again
// to the same text.
TEST(DdlReader, ImportedDocumentsReadBack) {
  namespace fs = std::filesystem;
  int checked = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(QARVELT_SOURCE_DIR) / "tests" / "cli")) {
    std::ifstream args(entry.path() / "args");
    std::string command;
    args >> command;
    if ((command != "import" && command != "apply") || fs::exists(entry.path() / "code")) continue;
    std::ifstream in(entry.path() / "stdout");
    std::ostringstream text;
    text << in.rdbuf();
    try {
      const std::string again = model::WriteSchema(model::ReadSchema(text.str(), entry.path().string()));
      EXPECT_EQ(again, text.str()) << entry.path();
    } catch (const model::Error& error) {
      ADD_FAILURE() << entry.path() << ": " << error.what();
    }
    ++checked;
  }
  EXPECT_GE(checked, 5);
}

// The round trip: what `create` writes for a golden case or an example reads back to the same
// description (nothing left for a diff to do).
TEST(DdlReader, CreatedScriptsReadBackToTheirDocuments) {
  namespace fs = std::filesystem;
  const fs::path root(QARVELT_SOURCE_DIR);
  std::vector<fs::path> documents;
  for (const auto& entry : fs::directory_iterator(root / "tests" / "cli")) {
    std::ifstream args(entry.path() / "args");
    std::string command, file, more;
    args >> command >> file;
    // Cases that create from one document and succeed (options change what is written), and the
    // documents that diff cases compare.
    if (command == "create" && !(args >> more) && !fs::exists(entry.path() / "code"))
      documents.push_back(entry.path() / file);
    if (command == "diff" && fs::path(file).extension() == ".json" && fs::exists(entry.path() / file)) {
      documents.push_back(entry.path() / file);
      if (args >> more && fs::path(more).extension() == ".json") documents.push_back(entry.path() / more);
    }
  }
  // (emp_new.json is a target of diff only: its LOB storage is one CREATE TABLE does not take.)
  for (const char* example : {"emp_old.json", "shop/v1.json", "shop/v2.json"})
    documents.push_back(root / "examples" / example);
  ASSERT_GT(documents.size(), 30U);
  for (const fs::path& path : documents) {
    std::ifstream in(path);
    std::ostringstream text;
    text << in.rdbuf();
    model::Schema original;
    std::string script;
    try {
      original = model::IsSchemaDocument(text.str())
                     ? model::ReadSchema(text.str(), path.string())
                     : model::SchemaOfTable(model::ReadTable(text.str(), path.string()));
      script = model::ScriptText(model::CreateSchema(original));
    } catch (const model::Error&) {
      continue;  // a document of a refusal case, or one that only a diff takes
    }
    ReadReport report;
    ReadOptions options;
    options.release = original.release;
    try {
      const model::Schema back = ReadScript(script, path.string() + " (created)", options, report);
      const model::Script left = model::DiffSchema(back, testing::WithoutRenames(original));
      EXPECT_TRUE(left.statements.empty()) << path << " reads back different:\n"
                                           << model::ScriptText(left) << "\nfrom:\n"
                                           << script;
    } catch (const model::Error& error) {
      ADD_FAILURE() << path << ": " << error.what() << "\n" << script;
    }
  }
}

}  // namespace
}  // namespace qarvelt::ddl

namespace qarvelt::ddl {
namespace {

std::string fileText(const std::filesystem::path& path) {
  std::ifstream in(path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

model::Schema schemaOf(const std::filesystem::path& path) {
  const std::string text = fileText(path);
  return model::IsSchemaDocument(text) ? model::ReadSchema(text, path.string())
                                       : model::SchemaOfTable(model::ReadTable(text, path.string()));
}

// Every golden diff of two documents, replayed: its expected script applied to the old document
// gives the new one.
TEST(DdlReader, GoldenDiffsReplay) {
  namespace fs = std::filesystem;
  const fs::path cli = fs::path(QARVELT_SOURCE_DIR) / "tests" / "cli";
  int replayed = 0;
  for (const auto& entry : fs::directory_iterator(cli)) {
    std::ifstream args(entry.path() / "args");
    std::string command, before, after, option;
    args >> command >> before >> after;
    if (command != "diff" || fs::exists(entry.path() / "code") || !fs::exists(entry.path() / "stdout"))
      continue;
    if (fs::path(before).extension() != ".json" || fs::path(after).extension() != ".json") continue;
    bool recreates = false;
    while (args >> option)
      recreates =
          recreates || option == "--allow-recreate" || option == "--preserve-case" || option == "--json";
    if (recreates) continue;
    const model::Schema old = schemaOf(entry.path() / before);
    model::Schema applied = model::ResolveSchemaNames(old);
    ReadReport report;
    ReadOptions options;
    options.release = old.release;
    const std::string script = fileText(entry.path() / "stdout");
    try {
      ApplyScript(applied, script, entry.path().filename().string() + "/stdout", options, report);
      const model::Script left =
          model::DiffSchema(applied, testing::WithoutRenames(schemaOf(entry.path() / after)));
      EXPECT_TRUE(left.statements.empty()) << entry.path().filename() << " replays to a different schema:\n"
                                           << model::ScriptText(left);
      ++replayed;
    } catch (const model::Error& error) {
      ADD_FAILURE() << entry.path().filename() << ": " << error.what();
    }
  }
  EXPECT_GT(replayed, 30);
}

}  // namespace
}  // namespace qarvelt::ddl
