// ALTER DATABASE: one alteration per statement.
#include <gtest/gtest.h>

#include "qarvelt/statements/alter_database.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

using Items = std::vector<std::pair<const char*, const char*>>;  // list path, item name

// A statement with file items appended to the given lists; the case fills their FILE leaves.
std::function<std::unique_ptr<CSQLClause>()> database(int v, Items files = {}) {
  return [=] {
    auto db = std::make_unique<CSQLAlterDatabase>(true, v);
    for (const auto& [list, name] : files)
      db->AddAttr(list, std::make_unique<CSQLAlterDatabase::CSubSQLItemFile>(name));
    return db;
  };
}

// Supplemental logging with plain leaves named after the key kinds.
std::function<std::unique_ptr<CSQLClause>()> supplemental(int v, std::vector<const char*> keys) {
  return [=] {
    auto db = std::make_unique<CSQLAlterDatabase>(true, v);
    for (const char* key : keys)
      db->AddAttr("C_ALT_DB_SUPPLEMENTAL;SUPPLEMENTAL;LIST", std::make_unique<CSQLAttr>(key, "", key));
    return db;
  };
}

constexpr const char* kDatafile = "C_ALT_DB_DATAFILE;LIST";
constexpr const char* kTempfile = "C_ALT_DB_TEMPFILE;LIST";

class AlterDatabase : public ::testing::TestWithParam<TreeCase> {};
TEST_P(AlterDatabase, WriteExactText) {
  checkTreeCase(GetParam());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, AlterDatabase, ::testing::Values(
    TreeCase{"mount", database(0), {{"MOUNT", "MOUNT"}}, "ALTER DATABASE MOUNT"},
    TreeCase{"named open read only", database(2), {{"OPEN;READ", "ONLY"}, {"OPEN", "OPEN"}, {"DATABASE", "ORCL"}},
             "ALTER DATABASE ORCL OPEN READ ONLY"},
    TreeCase{"open read write noresetlogs", database(2),
             {{"OPEN", "OPEN"}, {"OPEN;READ", "WRITE"}, {"OPEN;RESETLOGS", "NORESETLOGS"}},
             "ALTER DATABASE OPEN READ WRITE NORESETLOGS"},
    TreeCase{"open resetlogs", database(0), {{"OPEN", "OPEN"}, {"OPEN;RESETLOGS", "RESETLOGS"}},
             "ALTER DATABASE OPEN RESETLOGS"},
    TreeCase{"noarchivelog", database(0), {{"ARCHIVELOG", "NOARCHIVELOG"}}, "ALTER DATABASE NOARCHIVELOG"},
    TreeCase{"force logging", database(4), {{"FORCE", "FORCE"}}, "ALTER DATABASE FORCE LOGGING"},
    TreeCase{"add supplemental key columns", supplemental(4, {"PRIMARY KEY", "UNIQUE INDEX"}),
             {{"C_ALT_DB_SUPPLEMENTAL;SUPPLEMENTAL", "ADD"}},
             "ALTER DATABASE ADD SUPPLEMENTAL LOG DATA (PRIMARY KEY,UNIQUE INDEX) COLUMNS"},
    TreeCase{"drop supplemental", database(7), {{"C_ALT_DB_SUPPLEMENTAL;SUPPLEMENTAL", "DROP"}},
             "ALTER DATABASE DROP SUPPLEMENTAL LOG DATA"},
    TreeCase{"default tablespace", database(5), {{"DEFAULT", "USERS"}}, "ALTER DATABASE DEFAULT TABLESPACE USERS"},
    TreeCase{"default temporary tablespace", database(3), {{"TEMPORARY", "TEMP"}},
             "ALTER DATABASE DEFAULT TEMPORARY TABLESPACE TEMP"},
    TreeCase{"rename global name", database(0), {{"GLOBAL_NAME", "SALES.EXAMPLE.COM"}},
             "ALTER DATABASE RENAME GLOBAL_NAME TO SALES.EXAMPLE.COM"},
    TreeCase{"time zone", database(3), {{"TIME_ZONE", "+01:00"}}, "ALTER DATABASE SET TIME_ZONE = '+01:00'"},
    TreeCase{"enable block change tracking", database(5),
             {{"TRACKING;REUSE", "REUSE"}, {"TRACKING;FILE", "/u01/oradata/bct.f"}, {"TRACKING", "ENABLE"}},
             "ALTER DATABASE ENABLE BLOCK CHANGE TRACKING USING FILE '/u01/oradata/bct.f' REUSE"},
    TreeCase{"flashback on", database(5), {{"FLASHBACK", "ON"}}, "ALTER DATABASE FLASHBACK ON"},
    TreeCase{"control file to trace", database(0), {{"C_ALT_DB_CONTROLFILE;TRACE", "TRACE"}},
             "ALTER DATABASE BACKUP CONTROLFILE TO TRACE"},
    TreeCase{"control file to named trace", database(5),
             {{"C_ALT_DB_CONTROLFILE;TRACE", "TRACE"}, {"C_ALT_DB_CONTROLFILE;TRACE;RESETLOGS", "RESETLOGS"},
              {"C_ALT_DB_CONTROLFILE;TRACE;REUSE", "REUSE"}, {"C_ALT_DB_CONTROLFILE;TRACE;AS", "/tmp/ctl.sql"}},
             "ALTER DATABASE BACKUP CONTROLFILE TO TRACE AS '/tmp/ctl.sql' REUSE RESETLOGS"},
    TreeCase{"control file to a file", database(0),
             {{"C_ALT_DB_CONTROLFILE;FILE;REUSE", "REUSE"}, {"C_ALT_DB_CONTROLFILE;FILE", "/backup/control.bkp"}},
             "ALTER DATABASE BACKUP CONTROLFILE TO '/backup/control.bkp' REUSE"},
    TreeCase{"data files online", database(2, {{kDatafile, "A"}, {kDatafile, "B"}}),
             {{"C_ALT_DB_DATAFILE;ONLINE", "ONLINE"}, {"C_ALT_DB_DATAFILE;LIST;A;FILE", "/u01/a.dbf"},
              {"C_ALT_DB_DATAFILE;LIST;B;FILE", "/u01/b.dbf"}},
             "ALTER DATABASE DATAFILE '/u01/a.dbf','/u01/b.dbf' ONLINE"},
    TreeCase{"data file offline drop", database(0, {{kDatafile, "A"}}),
             {{"C_ALT_DB_DATAFILE;LIST;A;FILE", "/u01/a.dbf"}, {"C_ALT_DB_DATAFILE;OFFLINE;DROP", "DROP"},
              {"C_ALT_DB_DATAFILE;OFFLINE", "OFFLINE"}},
             "ALTER DATABASE DATAFILE '/u01/a.dbf' OFFLINE DROP"},
    TreeCase{"data file resize", database(0, {{kDatafile, "A"}}),
             {{"C_ALT_DB_DATAFILE;LIST;A;FILE", "/u01/a.dbf"}, {"C_ALT_DB_DATAFILE;RESIZE", "500M"}},
             "ALTER DATABASE DATAFILE '/u01/a.dbf' RESIZE 500M"},
    TreeCase{"data file autoextend", database(0, {{kDatafile, "A"}}),
             {{"C_ALT_DB_DATAFILE;LIST;A;FILE", "/u01/a.dbf"},
              {"C_ALT_DB_DATAFILE;C_AUTOEXTEND;AUTOEXTEND;MAXSIZE", "UNLIMITED"},
              {"C_ALT_DB_DATAFILE;C_AUTOEXTEND;AUTOEXTEND;NEXT", "10M"},
              {"C_ALT_DB_DATAFILE;C_AUTOEXTEND;AUTOEXTEND", "ON"}},
             "ALTER DATABASE DATAFILE '/u01/a.dbf' AUTOEXTEND ON NEXT 10M MAXSIZE UNLIMITED"},
    TreeCase{"oracle8i temp file resize", database(2, {{kTempfile, "T"}}),
             {{"C_ALT_DB_TEMPFILE;LIST;T;FILE", "/u01/temp01.dbf"}, {"C_ALT_DB_TEMPFILE;RESIZE", "1G"}},
             "ALTER DATABASE TEMPFILE '/u01/temp01.dbf' RESIZE 1G"},
    TreeCase{"temp file autoextend off", database(7, {{kTempfile, "T"}}),
             {{"C_ALT_DB_TEMPFILE;LIST;T;FILE", "/u01/temp01.dbf"},
              {"C_ALT_DB_TEMPFILE;C_AUTOEXTEND;AUTOEXTEND", "OFF"}},
             "ALTER DATABASE TEMPFILE '/u01/temp01.dbf' AUTOEXTEND OFF"},
    TreeCase{"temp file offline", database(2, {{kTempfile, "T"}}),
             {{"C_ALT_DB_TEMPFILE;LIST;T;FILE", "/u01/temp01.dbf"}, {"C_ALT_DB_TEMPFILE;OFFLINE", "OFFLINE"}},
             "ALTER DATABASE TEMPFILE '/u01/temp01.dbf' OFFLINE"},
    TreeCase{"temp file drop including datafiles", database(3, {{kTempfile, "T"}}),
             {{"C_ALT_DB_TEMPFILE;LIST;T;FILE", "/u01/temp02.dbf"}, {"C_ALT_DB_TEMPFILE;DROP", "DROP"},
              {"C_ALT_DB_TEMPFILE;DROP;INCLUDING", "INCLUDING"}},
             "ALTER DATABASE TEMPFILE '/u01/temp02.dbf' DROP INCLUDING DATAFILES"},
    TreeCase{"rename file", database(0, {{"C_ALT_DB_RENAME_FILE;LIST", "A"}, {"C_ALT_DB_RENAME_FILE;LISTTO", "B"}}),
             {{"C_ALT_DB_RENAME_FILE;LISTTO;B;FILE", "/u02/a.dbf"}, {"C_ALT_DB_RENAME_FILE;LIST;A;FILE", "/u01/a.dbf"}},
             "ALTER DATABASE RENAME FILE '/u01/a.dbf' TO '/u02/a.dbf'"},
    TreeCase{"add log file group", database(0, {{"C_ALT_DB_ADD_LOGFILE;LIST", "A"}, {"C_ALT_DB_ADD_LOGFILE;LIST", "B"}}),
             {{"C_ALT_DB_ADD_LOGFILE;SIZE", "50M"}, {"C_ALT_DB_ADD_LOGFILE;LIST;B;FILE", "/u02/redo04b.log"},
              {"C_ALT_DB_ADD_LOGFILE;LIST;A;FILE", "/u01/redo04a.log"}, {"C_ALT_DB_ADD_LOGFILE;GROUP", "4"}},
             "ALTER DATABASE ADD LOGFILE GROUP 4 ('/u01/redo04a.log','/u02/redo04b.log') SIZE 50M"},
    TreeCase{"add standby log file", database(3, {{"C_ALT_DB_ADD_LOGFILE;LIST", "A"}}),
             {{"C_ALT_DB_ADD_LOGFILE;REUSE", "REUSE"}, {"C_ALT_DB_ADD_LOGFILE;SIZE", "50M"},
              {"C_ALT_DB_ADD_LOGFILE;LIST;A;FILE", "/u01/srl10.log"}, {"C_ALT_DB_ADD_LOGFILE;GROUP", "10"},
              {"C_ALT_DB_ADD_LOGFILE;THREAD", "1"}, {"C_ALT_DB_ADD_LOGFILE;STANDBY", "STANDBY"}},
             "ALTER DATABASE ADD STANDBY LOGFILE THREAD 1 GROUP 10 ('/u01/srl10.log') SIZE 50M REUSE"},
    TreeCase{"drop log file group", database(0), {{"C_ALT_DB_DROP_LOGFILE;GROUP", "3"}},
             "ALTER DATABASE DROP LOGFILE GROUP 3"},
    TreeCase{"drop standby log file group", database(7),
             {{"C_ALT_DB_DROP_LOGFILE;GROUP", "10"}, {"C_ALT_DB_DROP_LOGFILE;STANDBY", "STANDBY"}},
             "ALTER DATABASE DROP STANDBY LOGFILE GROUP 10"},
    TreeCase{"add log file member", database(0, {{"C_ALT_DB_ADD_MEMBER;LIST", "B"}}),
             {{"C_ALT_DB_ADD_MEMBER;GROUP", "1"}, {"C_ALT_DB_ADD_MEMBER;REUSE", "REUSE"},
              {"C_ALT_DB_ADD_MEMBER;LIST;B;FILE", "/u02/redo01b.log"}},
             "ALTER DATABASE ADD LOGFILE MEMBER '/u02/redo01b.log' REUSE TO GROUP 1"},
    TreeCase{"drop log file member", database(0, {{"C_ALT_DB_DROP_MEMBER;LIST", "B"}}),
             {{"C_ALT_DB_DROP_MEMBER;LIST;B;FILE", "/u02/redo01b.log"}},
             "ALTER DATABASE DROP LOGFILE MEMBER '/u02/redo01b.log'"}),
    caseName);
// clang-format on

TEST(AlterDatabase, NothingAlteredWritesNothing) {
  CSQLAlterDatabase db;
  EXPECT_EQ(write(db).text, "");
  ASSERT_EQ(db.SetValue("DATABASE", "ORCL"), SQL_OK);
  EXPECT_EQ(write(db).text, "");
  EXPECT_EQ(write(*db.Clone()).text, "");
}

// Runs the host's loop and returns the statements it writes.
std::vector<std::string> passes(CSQLClause& root) {
  std::vector<std::string> texts;
  for (int pass = 0; pass < 5; ++pass) {
    texts.push_back(write(root).text);
    root.RefreshUsed();
    if (!root.hasUnused()) break;
  }
  return texts;
}

// Two alterations of one data file: each statement names the file, and the clause does not hold
// back the alterations that follow it in the tree.
TEST(AlterDatabase, AlterationsOfOneFileSplitOverPasses) {
  auto db = database(
      7, {{kDatafile, "A"}, {"C_ALT_DB_RENAME_FILE;LIST", "X"}, {"C_ALT_DB_RENAME_FILE;LISTTO", "Y"}})();
  ASSERT_EQ(db->SetValue("C_ALT_DB_DATAFILE;LIST;A;FILE", "/u01/a.dbf"), SQL_OK);
  ASSERT_EQ(db->SetValue("C_ALT_DB_DATAFILE;RESIZE", "500M"), SQL_OK);
  ASSERT_EQ(db->SetValue("C_ALT_DB_DATAFILE;C_AUTOEXTEND;AUTOEXTEND", "OFF"), SQL_OK);
  ASSERT_EQ(db->SetValue("C_ALT_DB_RENAME_FILE;LIST;X;FILE", "/u01/x.dbf"), SQL_OK);
  ASSERT_EQ(db->SetValue("C_ALT_DB_RENAME_FILE;LISTTO;Y;FILE", "/u02/x.dbf"), SQL_OK);
  ASSERT_EQ(db->SetValue("FLASHBACK", "OFF"), SQL_OK);
  EXPECT_EQ(passes(*db),
            (std::vector<std::string>{"ALTER DATABASE FLASHBACK OFF",
                                      "ALTER DATABASE DATAFILE '/u01/a.dbf' RESIZE 500M",
                                      "ALTER DATABASE DATAFILE '/u01/a.dbf' AUTOEXTEND OFF",
                                      "ALTER DATABASE RENAME FILE '/u01/x.dbf' TO '/u02/x.dbf'"}));
  EXPECT_EQ(write(*db).text, "");
}

// Writing twice without a refresh gives the same statement.
TEST(AlterDatabase, ReleaseGates) {
  expectGates<CSQLAlterDatabase>({
      {"C_ALT_DB_TEMPFILE", 2},
      {"C_ALT_DB_TEMPFILE;DROP", 3},
      {"TEMPORARY", 3},
      {"OPEN;READ", 2},
      {"TIME_ZONE", 3},
      {"C_ALT_DB_ADD_LOGFILE;STANDBY", 3},
      {"C_ALT_DB_DROP_MEMBER;STANDBY", 3},
      {"FORCE", 4},
      {"C_ALT_DB_SUPPLEMENTAL", 4},
      {"DEFAULT", 5},
      {"TRACKING", 5},
      {"FLASHBACK", 5},
      {"C_ALT_DB_CONTROLFILE;TRACE;AS", 5},
  });
}

}  // namespace
}  // namespace qarvelt::testing
