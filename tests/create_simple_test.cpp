// The short CREATE statements: synonym, sequence, directory, role, context, library, database link,
// rollback segment, outline, type and type body.
#include <gtest/gtest.h>

#include "qarvelt/statements/create_simple.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

class CreateSimple : public ::testing::TestWithParam<TreeCase> {};
TEST_P(CreateSimple, WriteExactText) {
  checkTreeCase(GetParam());
}

// One case to a row: statement, values in any order, the text.
// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, CreateSimple, ::testing::Values(
    TreeCase{"synonym whole", make<CSQLCreateSynonym>(7),
             {{"DBLINK", "REMOTE"}, {"OBJECT", "EMP"}, {"SCHEMA2", "HR"}, {"SYNONYM", "EMP_S"},
              {"SCHEMA", "SCOTT"}, {"PUBLIC", "PUBLIC"}},
             "CREATE PUBLIC SYNONYM SCOTT.EMP_S FOR HR.EMP @REMOTE"},
    TreeCase{"synonym bare", make<CSQLCreateSynonym>(7), {{"SYNONYM", "S"}, {"OBJECT", "T"}},
             "CREATE SYNONYM S FOR T"},
    TreeCase{"sequence whole", make<CSQLCreateSequence>(7),
             {{"ORDER", "ORDER"}, {"CACHE;VALUE", "20"}, {"CACHE", "CACHE"}, {"CYCLE", "NOCYCLE"},
              {"MAXVALUE", "MAXVALUE"}, {"MAXVALUE;VALUE", "1000"}, {"START", "1"}, {"INCREMENT", "5"},
              {"SEQUENCE", "Q"}, {"SCHEMA", "S"}},
             "CREATE SEQUENCE S.Q INCREMENT BY 5 START WITH 1 MAXVALUE 1000 NOCYCLE CACHE 20 ORDER"},
    // The options stand outside the SEQUENCE container, which stays silent without a name.
    TreeCase{"sequence options alone", make<CSQLCreateSequence>(7), {{"INCREMENT", "5"}},
             "CREATE INCREMENT BY 5"},
    TreeCase{"directory", make<CSQLCreateDirectory>(7), {{"PATH", "/data"}, {"DIRECTORY", "D"}},
             "CREATE DIRECTORY D AS '/data'"},
    TreeCase{"role using package", make<CSQLCreateRole>(7),
             {{"ROLE", "R"}, {"GLOBALLY", "GLOBALLY"}, {"PACKAGE", "PKG"}, {"SCHEMA", "S"}},
             "CREATE ROLE R IDENTIFIED USING S.PKG"},
    TreeCase{"role externally", make<CSQLCreateRole>(7), {{"ROLE", "R"}, {"EXTERNALLY", "EXTERNALLY"}},
             "CREATE ROLE R IDENTIFIED EXTERNALLY"},
    TreeCase{"context", make<CSQLCreateContext>(7),
             {{"CONTEXT", "CONTEXT C"}, {"SCHEMA", "S"}, {"PACKAGE", "P"}, {"ACCESSED", "ACCESSED GLOBALLY"}},
             "CREATE CONTEXT C USING S.P ACCESSED GLOBALLY"},
    TreeCase{"library", make<CSQLCreateLibrary>(7),
             {{"AGENT", "A"}, {"FILENAME", "/x.so"}, {"LIBRARY", "L"}, {"SCHEMA", "S"}},
             "CREATE LIBRARY S.L AS '/x.so' AGENT 'A'"},
    TreeCase{"dblink current user", make<CSQLCreateDBLink>(7),
             {{"CONNECT_STRING", "TNS"}, {"CURRENT_USER", "CURRENT_USER"}, {"DBLINK", "L"}},
             "CREATE DATABASE LINK L CONNECT TO CURRENT_USER USING 'TNS'"},
    // The lone authentication is a separate object, an alternative left for a later pass.
    TreeCase{"dblink user", make<CSQLCreateDBLink>(7),
             {{"SHARED", "SHARED"}, {"PUBLIC", "PUBLIC"}, {"DBLINK", "L"}, {"USER", "SCOTT"},
              {"USER;PASSWORD", "T"}, {"USER;C_AUTHENTICATED;USER", "U"},
              {"USER;C_AUTHENTICATED;PASSWORD", "P"}, {"C_AUTHENTICATED;USER", "LONE"}},
             "CREATE SHARED PUBLIC DATABASE LINK L CONNECT TO SCOTT IDENTIFIED BY T AUTHENTICATED BY U "
             "IDENTIFIED BY P"},
    TreeCase{"dblink lone authentication", make<CSQLCreateDBLink>(7),
             {{"DBLINK", "L"}, {"C_AUTHENTICATED;PASSWORD", "P"}, {"C_AUTHENTICATED;USER", "U"},
              {"CONNECT_STRING", "TNS"}},
             "CREATE DATABASE LINK L AUTHENTICATED BY U IDENTIFIED BY P USING 'TNS'"},
    TreeCase{"rollback with storage", make<CSQLCreateRollback>(7),
             {{"C_STORAGE;INITIAL", "1M"}, {"TABLESPACE", "RBS"}, {"SEGMENT", "R"}, {"PUBLIC", "PUBLIC"}},
             "CREATE PUBLIC ROLLBACK SEGMENT R TABLESPACE RBS STORAGE (INITIAL 1M)"},
    TreeCase{"outline", make<CSQLCreateOutline>(7),
             {{"STMT", "SELECT 1 FROM DUAL"}, {"CATEGORY", "C"}, {"FROM", "SRC"}, {"FROM_PUBLIC", "PRIVATE"},
              {"OUTLINE", "O"}, {"PUBLIC", "PUBLIC"}},
             "CREATE PUBLIC OUTLINE O FROM PRIVATE SRC FOR CATEGORY C ON SELECT 1 FROM DUAL"},
    TreeCase{"type", make<CSQLCreateType>(7),
             {{"SOURCE", "AS OBJECT (A NUMBER)"}, {"TYPE", "T"}, {"SCHEMA", "S"}},
             "CREATE TYPE S.T AS OBJECT (A NUMBER)"},
    TreeCase{"type body", make<CSQLCreateTypeBody>(7),
             {{"SOURCE", "AS MEMBER PROCEDURE P IS BEGIN NULL; END; END;"}, {"TYPE", "T"}},
             "CREATE TYPE BODY T AS MEMBER PROCEDURE P IS BEGIN NULL; END; END;"}),
    caseName);
// clang-format on

TEST(CreateSimple, EmptyStatementWritesTheHeadAlone) {
  const std::pair<std::function<std::unique_ptr<CSQLClause>()>, const char*> statements[] = {
      {make<CSQLCreateSynonym>(7), "C_CREATE_SYNONYM"},
      {make<CSQLCreateSequence>(7), "C_CREATE_SEQUENCE"},
      {make<CSQLCreateDirectory>(7), "C_CREATE_DIRECTORY"},
      {make<CSQLCreateRole>(7), "C_CREATE_ROLE"},
      {make<CSQLCreateContext>(7), "C_CREATE_CONTEXT"},
      {make<CSQLCreateLibrary>(7), "C_CREATE_LIBRARY"},
      {make<CSQLCreateDBLink>(7), "C_CREATE_DBLINK"},
      {make<CSQLCreateRollback>(7), "C_CREATE_ROLLBACK"},
      {make<CSQLCreateOutline>(7), "C_CREATE_OUTLINE"},
      {make<CSQLCreateType>(7), "C_CREATE_TYPE"},
      {make<CSQLCreateTypeBody>(7), "C_CREATE_TYPE_BODY"},
  };
  for (const auto& [factory, root] : statements) {
    auto tree = factory();
    EXPECT_EQ(tree->GetType(), root);
    const Written out = write(*tree);
    EXPECT_EQ(out.code, SQL_OK) << root;
    EXPECT_EQ(out.text, "CREATE") << root;
    EXPECT_EQ(tree->SetValue("NO_SUCH_LEAF", "x"), SQL_NOT_FOUND) << root;
    EXPECT_EQ(write(*tree->Clone()).text, "CREATE") << root;  // the clone keeps the class and its head
  }
}

TEST(CreateSimple, RoleWritesOneAlternativePerPass) {
  CSQLCreateRole role;
  ASSERT_EQ(role.SetValue("ROLE", "R"), SQL_OK);
  ASSERT_EQ(role.SetValue("PASSWORD", "x"), SQL_OK);
  ASSERT_EQ(role.SetValue("NOT", "NOT"), SQL_OK);
  EXPECT_EQ(write(role).text, "CREATE ROLE R NOT IDENTIFIED");
  role.RefreshUsed();
  EXPECT_EQ(write(role).text, "CREATE ROLE R IDENTIFIED BY x");
  EXPECT_FALSE(role.hasUnused());
}

TEST(CreateSimple, RollbackStorageHasNoBufferPoolAtAnyRelease) {
  for (int v : {0, 2, 7}) {
    CSQLCreateRollback rollback(true, v);
    ASSERT_NE(rollback.GetClause("C_STORAGE"), nullptr);
    EXPECT_EQ(rollback.GetClause("C_STORAGE")->GetOraVersion(), 0) << v;
    EXPECT_EQ(rollback.SetValue("C_STORAGE;BUFFER_POOL", "KEEP"), SQL_NOT_FOUND) << v;
  }
}

}  // namespace
}  // namespace qarvelt::testing
