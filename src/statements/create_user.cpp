#include "qarvelt/statements/create_user.h"

#include <string>

#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// A leaf whose value is quoted: AS 'CN=scott'.
Node quoted(const char* name, const char* keyword) {
  return leaf(name, keyword, "", "'");
}

// A profile parameter: the leaf bears the parameter's name and writes it before the value.
Node parameter(const char* name) {
  return leaf(name, (std::string(name) + " ").c_str());
}

}  // namespace

// ---- user ---------------------------------------------------------------------------------------

CSQLCreateUser::CSQLCreateUser(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_USER", bInit);
}

void CSQLCreateUser::init() {
  const int v = GetOraVersion();
  // Oracle8 brought enterprise users (GLOBALLY) and the password management keywords; Oracle 11g
  // the certificate name of an externally identified user.
  attach(this,
         leaf("USER", "USER "),
         Or({"IDENTIFIED", ""},
            leaf("PASSWORD", "BY "),
            leaf("EXTERNALLY").with(when(v >= 7, quoted("AS", "AS '"))),
            when(v >= 1, quoted("GLOBALLY", "GLOBALLY AS '"))),
         leaf("DEFAULT", "DEFAULT TABLESPACE "),
         leaf("TEMPORARY", "TEMPORARY TABLESPACE "),
         list("LISTQUOTA", " ", "", ""),
         leaf("PROFILE", "PROFILE "),
         when(v >= 1, leaf("EXPIRE", "PASSWORD ")),
         when(v >= 1, leaf("ACCOUNT", "ACCOUNT ")));
}

CSQLCreateUser::CSubSQLItemQuota::CSubSQLItemQuota(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateUser::CSubSQLItemQuota::CSubSQLItemQuota(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLCreateUser::CSubSQLItemQuota::init() {
  attach(this, leaf("QUOTA", "QUOTA "), leaf("TABLESPACE", "ON "));
}

// ---- profile ------------------------------------------------------------------------------------

CSQLCreateProfile::CSQLCreateProfile(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_PROFILE", bInit);
}

void CSQLCreateProfile::init() {
  const int v = GetOraVersion();
  // The resource parameters date from Oracle7, the password parameters from Oracle8.
  attach(this,
         leaf("PROFILE", "PROFILE "),
         And({"LIMIT", ""},
             parameter("SESSIONS_PER_USER"),
             parameter("CPU_PER_SESSION"),
             parameter("CPU_PER_CALL"),
             parameter("CONNECT_TIME"),
             parameter("IDLE_TIME"),
             parameter("LOGICAL_READS_PER_SESSION"),
             parameter("LOGICAL_READS_PER_CALL"),
             parameter("COMPOSITE_LIMIT"),
             parameter("PRIVATE_SGA"),
             when(v >= 1,
                  And(parameter("FAILED_LOGIN_ATTEMPTS"),
                      parameter("PASSWORD_LIFE_TIME"),
                      parameter("PASSWORD_REUSE_TIME"),
                      parameter("PASSWORD_REUSE_MAX"),
                      parameter("PASSWORD_LOCK_TIME"),
                      parameter("PASSWORD_GRACE_TIME"),
                      parameter("PASSWORD_VERIFY_FUNCTION")))));
}

}  // namespace qarvelt
