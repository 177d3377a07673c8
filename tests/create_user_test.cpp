// CREATE USER and CREATE PROFILE.
#include <gtest/gtest.h>

#include "qarvelt/statements/create_user.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

// A user with quota items named after their tablespaces, each item filled by the case's values.
std::function<std::unique_ptr<CSQLClause>()> userWithQuotas(int v, std::vector<const char*> tablespaces) {
  return [=] {
    auto user = std::make_unique<CSQLCreateUser>(true, v);
    for (const char* name : tablespaces)
      user->AddAttr("LISTQUOTA", std::make_unique<CSQLCreateUser::CSubSQLItemQuota>(name));
    return user;
  };
}

class CreateUser : public ::testing::TestWithParam<TreeCase> {};
TEST_P(CreateUser, WriteExactText) {
  checkTreeCase(GetParam());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, CreateUser, ::testing::Values(
    TreeCase{"user with every option", userWithQuotas(7, {"USERS", "DATA"}),
             {{"ACCOUNT", "LOCK"}, {"EXPIRE", "EXPIRE"}, {"PROFILE", "APP_USER"},
              {"LISTQUOTA;DATA;QUOTA", "UNLIMITED"}, {"LISTQUOTA;DATA;TABLESPACE", "DATA"},
              {"LISTQUOTA;USERS;QUOTA", "10M"}, {"LISTQUOTA;USERS;TABLESPACE", "USERS"},
              {"TEMPORARY", "TEMP"}, {"DEFAULT", "USERS"}, {"PASSWORD", "tiger"}, {"USER", "SCOTT"}},
             "CREATE USER SCOTT IDENTIFIED BY tiger DEFAULT TABLESPACE USERS TEMPORARY TABLESPACE TEMP "
             "QUOTA 10M ON USERS QUOTA UNLIMITED ON DATA PROFILE APP_USER PASSWORD EXPIRE ACCOUNT LOCK"},
    TreeCase{"oracle7 externally identified", userWithQuotas(0, {"USERS"}),
             {{"USER", "OPS$JONES"}, {"EXTERNALLY", "EXTERNALLY"}, {"DEFAULT", "USERS"},
              {"LISTQUOTA;USERS;QUOTA", "5M"}, {"LISTQUOTA;USERS;TABLESPACE", "USERS"}},
             "CREATE USER OPS$JONES IDENTIFIED EXTERNALLY DEFAULT TABLESPACE USERS QUOTA 5M ON USERS"},
    TreeCase{"externally with a certificate name", make<CSQLCreateUser>(7),
             {{"USER", "APPUSER"}, {"EXTERNALLY", "EXTERNALLY"}, {"EXTERNALLY;AS", "CN=appuser,O=example"}},
             "CREATE USER APPUSER IDENTIFIED EXTERNALLY AS 'CN=appuser,O=example'"},
    TreeCase{"oracle8 global user unlocked", make<CSQLCreateUser>(1),
             {{"USER", "GUSER"}, {"GLOBALLY", "CN=guser,O=example"}, {"ACCOUNT", "UNLOCK"}},
             "CREATE USER GUSER IDENTIFIED GLOBALLY AS 'CN=guser,O=example' ACCOUNT UNLOCK"}),
    caseName);

class CreateProfile : public ::testing::TestWithParam<TreeCase> {};
TEST_P(CreateProfile, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Cases, CreateProfile, ::testing::Values(
    TreeCase{"oracle7 resource limits", make<CSQLCreateProfile>(0),
             {{"PRIVATE_SGA", "15K"}, {"COMPOSITE_LIMIT", "5000000"}, {"LOGICAL_READS_PER_CALL", "1000"},
              {"LOGICAL_READS_PER_SESSION", "DEFAULT"}, {"IDLE_TIME", "30"}, {"CONNECT_TIME", "480"},
              {"CPU_PER_CALL", "6000"}, {"CPU_PER_SESSION", "UNLIMITED"}, {"SESSIONS_PER_USER", "2"},
              {"PROFILE", "CLERK"}},
             "CREATE PROFILE CLERK LIMIT SESSIONS_PER_USER 2 CPU_PER_SESSION UNLIMITED CPU_PER_CALL 6000 "
             "CONNECT_TIME 480 IDLE_TIME 30 LOGICAL_READS_PER_SESSION DEFAULT LOGICAL_READS_PER_CALL 1000 "
             "COMPOSITE_LIMIT 5000000 PRIVATE_SGA 15K"},
    TreeCase{"oracle8 password limits", make<CSQLCreateProfile>(1),
             {{"PASSWORD_VERIFY_FUNCTION", "VERIFY_FUNCTION"}, {"PASSWORD_GRACE_TIME", "10"},
              {"PASSWORD_LOCK_TIME", "1/24"}, {"PASSWORD_REUSE_MAX", "5"}, {"PASSWORD_REUSE_TIME", "UNLIMITED"},
              {"PASSWORD_LIFE_TIME", "60"}, {"FAILED_LOGIN_ATTEMPTS", "5"}, {"PROFILE", "APP_USER"}},
             "CREATE PROFILE APP_USER LIMIT FAILED_LOGIN_ATTEMPTS 5 PASSWORD_LIFE_TIME 60 "
             "PASSWORD_REUSE_TIME UNLIMITED PASSWORD_REUSE_MAX 5 PASSWORD_LOCK_TIME 1/24 PASSWORD_GRACE_TIME 10 "
             "PASSWORD_VERIFY_FUNCTION VERIFY_FUNCTION"},
    TreeCase{"resource and password limits together", make<CSQLCreateProfile>(7),
             {{"PASSWORD_VERIFY_FUNCTION", "NULL"}, {"SESSIONS_PER_USER", "UNLIMITED"}, {"PROFILE", "BATCH"}},
             "CREATE PROFILE BATCH LIMIT SESSIONS_PER_USER UNLIMITED PASSWORD_VERIFY_FUNCTION NULL"}),
    caseName);
// clang-format on

// Only the first identification is written in a pass; the next pass writes the other.
TEST(CreateUser, OneIdentificationPerPass) {
  CSQLCreateUser user;
  ASSERT_EQ(user.SetValue("USER", "U"), SQL_OK);
  ASSERT_EQ(user.SetValue("GLOBALLY", "CN=u"), SQL_OK);
  ASSERT_EQ(user.SetValue("PASSWORD", "p"), SQL_OK);
  EXPECT_EQ(write(user).text, "CREATE USER U IDENTIFIED BY p");
  user.RefreshUsed();
  EXPECT_EQ(write(user).text, "CREATE USER U IDENTIFIED GLOBALLY AS 'CN=u'");
  EXPECT_FALSE(user.hasUnused());
}

TEST(CreateUser, ReleaseGates) {
  for (const char* path : {"GLOBALLY", "EXPIRE", "ACCOUNT"})
    expectGate<CSQLCreateUser>(path, 1);
  expectGate<CSQLCreateUser>("EXTERNALLY;AS", 7);
  expectGate<CSQLCreateProfile>("FAILED_LOGIN_ATTEMPTS", 1);
  expectGate<CSQLCreateProfile>("PASSWORD_VERIFY_FUNCTION", 1);
  EXPECT_NE(CSQLCreateProfile(true, 0).GetClause("PRIVATE_SGA"), nullptr);
}

}  // namespace
}  // namespace qarvelt::testing
