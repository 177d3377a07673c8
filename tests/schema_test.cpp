// Schema documents: reading, the order of the CREATE script of a whole schema, and the script
// between two schemas.
#include <gtest/gtest.h>

#include <qarvelt/model/error.h>
#include <qarvelt/model/schema.h>

#include <algorithm>
#include <string>
#include <vector>

#include "generated_schema.h"

namespace qarvelt::model {
namespace {

// The position of the first statement that starts with `head`, or -1.
int at(const Script& script, const std::string& head) {
  for (std::size_t i = 0; i < script.statements.size(); ++i) {
    if (script.statements[i].rfind(head, 0) == 0) return static_cast<int>(i);
  }
  return -1;
}

std::string table(const std::string& name, const std::vector<std::string>& references) {
  std::string constraints;
  for (const std::string& target : references) {
    constraints += std::string(constraints.empty() ? "" : ",") + R"({"name": ")" + name + "_" + target +
                   R"(_FK", "type": "foreign key", "columns": ["ID"], "references": {"table": ")" + target +
                   R"(", "columns": ["ID"]}})";
  }
  return R"({"name": ")" + name + R"(", "columns": [{"name": "ID", "type": "NUMBER"}], "constraints": [)" +
         constraints + "]}";
}

TEST(Schema, TablesFollowTheTablesTheyReference) {
  // C -> B -> A, written in the reverse order; D references itself.
  const Schema schema = ReadSchema(R"({"tables": [)" + table("C", {"B"}) + "," + table("B", {"A"}) + "," +
                                   table("A", {}) + "," + table("D", {"D"}) + "]}");
  const Script script = CreateSchema(schema);
  EXPECT_LT(at(script, "CREATE TABLE A "), at(script, "CREATE TABLE B "));
  EXPECT_LT(at(script, "CREATE TABLE B "), at(script, "CREATE TABLE C "));
  EXPECT_EQ(at(script, "ALTER TABLE"), -1);  // no cycle, nothing added afterwards
  EXPECT_NE(script.statements[static_cast<std::size_t>(at(script, "CREATE TABLE D "))].find("REFERENCES D"),
            std::string::npos);
}

TEST(Schema, ACycleOfForeignKeysIsBrokenOnceAtAMemberOfTheCycle) {
  // X only waits on the cycle Y <-> Z: the foreign key left for later is one of Y's, not X's.
  const Schema schema = ReadSchema(R"({"tables": [)" + table("X", {"Y"}) + "," + table("Y", {"Z"}) + "," +
                                   table("Z", {"Y"}) + "]}");
  const Script script = CreateSchema(schema);
  ASSERT_EQ(script.statements.size(), 4U);
  EXPECT_EQ(script.statements[3], "ALTER TABLE Y ADD CONSTRAINT Y_Z_FK FOREIGN KEY (ID) REFERENCES Z (ID)");
  EXPECT_LT(at(script, "CREATE TABLE Y "), at(script, "CREATE TABLE X "));
  EXPECT_EQ(script.statements[static_cast<std::size_t>(at(script, "CREATE TABLE Y "))].find("Y_Z_FK"),
            std::string::npos);
}

TEST(Schema, ObjectsComeInTheirKindsOrder) {
  const Schema schema = ReadSchema(R"({"schema": "s", "release": "11g",
    "triggers": [{"name": "t_bi", "timing": "before", "events": ["insert"], "table": "t",
                  "body": "BEGIN NULL; END;"}],
    "synonyms": [{"name": "v2s", "target": "v2"}],
    "views": [{"name": "v2", "query": "SELECT * FROM v1"}, {"name": "v1", "query": "SELECT * FROM \"T\""}],
    "tables": [{"name": "t", "columns": [{"name": "id", "type": "NUMBER"}]}],
    "sequences": [{"name": "q"}]})");
  const Script script = CreateSchema(schema);
  const std::vector<std::string> heads = {"CREATE SEQUENCE S.Q",
                                          "CREATE TABLE S.T ",
                                          "CREATE VIEW S.V1 ",
                                          "CREATE VIEW S.V2 ",
                                          "CREATE SYNONYM S.V2S FOR S.V2",
                                          "CREATE TRIGGER S.T_BI BEFORE INSERT ON S.T BEGIN NULL; END;"};
  ASSERT_EQ(script.statements.size(), heads.size());
  for (std::size_t i = 0; i < heads.size(); ++i)
    EXPECT_EQ(script.statements[i].rfind(heads[i], 0), 0U) << script.statements[i];
}

TEST(Schema, MistakesAreRefusedWithTheirPlace) {
  struct Case {
    const char* document;
    const char* where;
  } const cases[] = {
      {R"({"tables": [], "sequence": []})", "document"},  // an unknown key
      {R"({"indexes": [{"table": "nope", "name": "i", "columns": ["a"]}]})", "indexes[0].table"},
      {R"({"views": [{"name": "a", "query": "SELECT * FROM b"}, {"name": "b", "query": "SELECT * FROM a"}]})",
       "views[0].query"},
      {R"({"synonyms": [{"name": "s", "target": "a.b.c"}]})", "document.synonyms[0]"},
      {R"({"triggers": [{"name": "t", "timing": "before", "events": ["merge"], "table": "x", "body": "B"}]})",
       "document.triggers[0]"},
      {R"({"schema": "s", "tables": [{"name": "t", "schema": "other", "columns": [{"name": "a", "type": "DATE"}]}]})",
       "document.tables[0]"},
  };
  for (const Case& c : cases) {
    try {
      CreateSchema(ReadSchema(c.document));
      ADD_FAILURE() << c.document;
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::BadInput) << c.document;
      EXPECT_EQ(std::string(error.what()).rfind(c.where, 0), 0U) << error.what();
    }
  }
  EXPECT_TRUE(IsSchemaDocument(R"({"views": []})"));
  EXPECT_FALSE(IsSchemaDocument(R"({"name": "T", "columns": [], "indexes": []})"));
  EXPECT_FALSE(IsSchemaDocument("not json"));
}

}  // namespace
}  // namespace qarvelt::model

namespace qarvelt::model {
namespace {

Script diff(const std::string& before, const std::string& after, const Options& options = {}) {
  return DiffSchema(ReadSchema(before, "old"), ReadSchema(after, "new"), options);
}

TEST(SchemaDiff, ForeignKeysFollowARenamedTable) {
  // B references A; A is renamed to AA and B's key follows it: only the rename is written.
  const std::string b = R"({"name": "B", "columns": [{"name": "ID", "type": "NUMBER"}],
    "constraints": [{"name": "B_FK", "type": "foreign key", "columns": ["ID"],
                     "references": {"table": "%", "columns": ["ID"]}}]})";
  auto with = [&](const std::string& target) { return std::string(b).replace(b.find('%'), 1, target); };
  const Script script = diff(
      R"({"tables": [{"name": "A", "columns": [{"name": "ID", "type": "NUMBER"}]}, )" + with("A") + "]}",
      R"({"tables": [{"name": "AA", "renamed_from": "A", "columns": [{"name": "ID", "type": "NUMBER"}]}, )" +
          with("AA") + "]}");
  EXPECT_EQ(script.statements, std::vector<std::string>{"ALTER TABLE A RENAME TO AA"});
}

TEST(SchemaDiff, ATableCreatedAnewGetsTheForeignKeysOfOthersBack) {
  // A changes organization (created anew, its dependants' keys dropped by CASCADE CONSTRAINTS):
  // B's unchanged key to A is added again afterwards.
  const std::string a = R"({"name": "A", "organization": "%", "columns": [{"name": "ID", "type": "NUMBER",
    "not_null": true}], "constraints": [{"name": "A_PK", "type": "primary key", "columns": ["ID"]}]})";
  auto with = [&](const std::string& o) { return std::string(a).replace(a.find('%'), 1, o); };
  const std::string b = R"({"name": "B", "columns": [{"name": "ID", "type": "NUMBER"}],
    "constraints": [{"name": "B_FK", "type": "foreign key", "columns": ["ID"], "references": {"table": "A",
    "columns": ["ID"]}}]})";
  EXPECT_THROW(diff(R"({"tables": [)" + with("heap") + "," + b + "]}",
                    R"({"tables": [)" + with("index") + "," + b + "]}"),
               Error);
  Options recreate;
  recreate.allow_recreate = true;
  const Script script = diff(R"({"tables": [)" + with("heap") + "," + b + "]}",
                             R"({"tables": [)" + with("index") + "," + b + "]}", recreate);
  ASSERT_GE(script.statements.size(), 3U);
  EXPECT_EQ(script.statements.front(), "ALTER TABLE B DROP CONSTRAINT B_FK");
  EXPECT_EQ(script.statements[1], "DROP TABLE A CASCADE CONSTRAINTS");
  EXPECT_EQ(script.statements.back(), "ALTER TABLE B ADD CONSTRAINT B_FK FOREIGN KEY (ID) REFERENCES A (ID)");
}

TEST(SchemaDiff, PairingFaultsAreBadInput) {
  const std::string seq = R"({"sequences": [{"name": "S"}]})";
  for (const std::string& after : {
           std::string(R"({"sequences": [{"name": "T", "renamed_from": "NOPE"}]})"),  // names nothing
           std::string(
               R"({"sequences": [{"name": "S"}, {"name": "T", "renamed_from": "S"}]})"),  // claimed twice
           std::string(R"({"views": [{"name": "V", "query": "SELECT 1 FROM DUAL"},
                                     {"name": "v", "query": "SELECT 2 FROM DUAL"}]})"),   // the same name
       }) {
    try {
      diff(seq, after);
      ADD_FAILURE() << after;
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::BadInput) << after;
    }
  }
  try {
    diff(R"({"schema": "A", "sequences": []})", R"({"schema": "B", "sequences": []})");
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::NotExpressible);
  }
}

TEST(SchemaDiff, SequenceOptionsLeftOutGoBackToOraclesDefaults) {
  const Script script = diff(
      R"({"sequences": [{"name": "S", "increment_by": 5, "minvalue": 1, "cycle": true, "cache": false,
                         "order": true}]})",
      R"({"sequences": [{"name": "S"}]})");
  EXPECT_EQ(script.statements,
            std::vector<std::string>{"ALTER SEQUENCE S INCREMENT BY 1 NOMINVALUE NOCYCLE CACHE 20 NOORDER"});
  // Below Oracle 18c a new START WITH drops and creates the sequence, when allowed.
  Options recreate;
  recreate.allow_recreate = true;
  const Script old = diff(R"({"release": "11g", "sequences": [{"name": "S", "start_with": 1}]})",
                          R"({"release": "11g", "sequences": [{"name": "S", "start_with": 9}]})", recreate);
  EXPECT_EQ(old.statements, (std::vector<std::string>{"DROP SEQUENCE S", "CREATE SEQUENCE S START WITH 9"}));
}

}  // namespace
}  // namespace qarvelt::model

namespace qarvelt::model {
namespace {

TEST(SchemaDiff, AGeneratedSchemaOfAThousandTables) {
  const Schema before = testing::GeneratedSchema(1000);
  EXPECT_TRUE(DiffSchema(before, before).statements.empty());
  const Schema after = testing::EditedSchema(before, 7);
  const Script script = DiffSchema(before, after);
  std::size_t drops = 0, renames = 0, creates = 0;
  for (const std::string& s : script.statements) {
    drops += s.rfind("DROP TABLE APP.", 0) == 0;
    renames += s.find(" RENAME TO R") != std::string::npos;
    creates += s.rfind("CREATE TABLE APP.T01", 0) == 0;  // the new tables are numbered from 1000
  }
  EXPECT_EQ(drops, before.tables.size() + 10 - after.tables.size());
  EXPECT_EQ(renames,
            static_cast<std::size_t>(std::count_if(after.tables.begin(), after.tables.end(),
                                                   [](const Table& t) { return !t.renamed_from.empty(); })));
  EXPECT_EQ(creates, 10U);
  // Every drop of a table comes after the foreign keys to it are gone, and before any table is made.
  EXPECT_LT(at(script, "DROP TABLE"), at(script, "CREATE TABLE"));
}

}  // namespace
}  // namespace qarvelt::model

namespace qarvelt::model {
namespace {

TEST(Schema, ACycleIsNotBrokenAtTheKeyOfAReferencePartitioning) {
  // P and C reference each other; C is partitioned by reference through C_P_FK, so the cycle must
  // be broken at P's key: listing C first is refused, listing P first works.
  const std::string p = R"({"name": "P", "columns": [{"name": "ID", "type": "NUMBER", "not_null": true},
    {"name": "C_ID", "type": "NUMBER"}], "constraints": [{"name": "P_PK", "type": "primary key", "columns": ["ID"]},
    {"name": "P_C_FK", "type": "foreign key", "columns": ["C_ID"], "references": {"table": "C", "columns": ["ID"]}}],
    "partitioning": {"type": "range", "columns": ["ID"], "partitions": [{"name": "P1", "values_less_than": ["MAXVALUE"]}]}})";
  const std::string c = R"({"name": "C", "columns": [{"name": "ID", "type": "NUMBER", "not_null": true},
    {"name": "P_ID", "type": "NUMBER", "not_null": true}], "constraints": [{"name": "C_PK", "type": "primary key",
    "columns": ["ID"]}, {"name": "C_P_FK", "type": "foreign key", "columns": ["P_ID"], "references": {"table": "P",
    "columns": ["ID"]}}], "partitioning": {"type": "reference", "constraint": "C_P_FK"}})";
  EXPECT_THROW(CreateSchema(ReadSchema(R"({"tables": [)" + c + "," + p + "]}")), Error);
  const Script script = CreateSchema(ReadSchema(R"({"tables": [)" + p + "," + c + "]}"));
  EXPECT_EQ(script.statements.back(),
            "ALTER TABLE P ADD CONSTRAINT P_C_FK FOREIGN KEY (C_ID) REFERENCES C (ID)");
}

}  // namespace
}  // namespace qarvelt::model
