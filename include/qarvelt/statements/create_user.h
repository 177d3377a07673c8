// CREATE USER and CREATE PROFILE.
//
//   C_CREATE_USER     CREATE USER SCOTT IDENTIFIED BY tiger DEFAULT TABLESPACE USERS
//                     TEMPORARY TABLESPACE TEMP QUOTA 10M ON USERS QUOTA UNLIMITED ON DATA
//                     PROFILE APP PASSWORD EXPIRE ACCOUNT LOCK
//   C_CREATE_PROFILE  CREATE PROFILE APP LIMIT SESSIONS_PER_USER 2 IDLE_TIME 30
//                     FAILED_LOGIN_ATTEMPTS 5 PASSWORD_VERIFY_FUNCTION VERIFY_PWD
//
// Release-code gates (0 Oracle7 7.3, 1 Oracle8 8.0, 7 Oracle 11g):
//   from 1  IDENTIFIED GLOBALLY AS, PASSWORD EXPIRE, ACCOUNT LOCK | UNLOCK, the password parameters
//           of a profile;
//   from 7  IDENTIFIED EXTERNALLY AS 'certificate DN'.
// Keyword leaves take the keyword as value (EXTERNALLY, EXPIRE); values are written as given
// (10M, UNLIMITED, DEFAULT). Nothing is checked: a statement missing a mandatory part is written as it
// stands.
#ifndef QARVELT_STATEMENTS_CREATE_USER_H
#define QARVELT_STATEMENTS_CREATE_USER_H

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

// "USER" (the name), then IDENTIFIED with one of "PASSWORD" (BY password), "EXTERNALLY" (the keyword,
// with "EXTERNALLY;AS" from 7) or "GLOBALLY" (the external name, written GLOBALLY AS '...'); then
// "DEFAULT" (DEFAULT TABLESPACE), "TEMPORARY" (TEMPORARY TABLESPACE), the list "LISTQUOTA" of
// CSubSQLItemQuota, "PROFILE", "EXPIRE" (written PASSWORD EXPIRE) and "ACCOUNT" (LOCK or UNLOCK).
class CSQLCreateUser : public CreateStatement<CSQLCreateUser> {
 public:
  explicit CSQLCreateUser(bool bInit = true, int nOraVersion = 7);

  // One quota, QUOTA 10M ON USERS: "QUOTA" (a size or UNLIMITED) and "TABLESPACE". The host names
  // the item after its tablespace.
  class CSubSQLItemQuota : public Cloneable<CSubSQLItemQuota> {
   public:
    explicit CSubSQLItemQuota(const char* name);
    explicit CSubSQLItemQuota(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// "PROFILE", then LIMIT with one leaf per parameter, each named after it and written NAME value:
// SESSIONS_PER_USER, CPU_PER_SESSION, CPU_PER_CALL, CONNECT_TIME, IDLE_TIME,
// LOGICAL_READS_PER_SESSION, LOGICAL_READS_PER_CALL, COMPOSITE_LIMIT, PRIVATE_SGA; from 1 also
// FAILED_LOGIN_ATTEMPTS, PASSWORD_LIFE_TIME, PASSWORD_REUSE_TIME, PASSWORD_REUSE_MAX,
// PASSWORD_LOCK_TIME, PASSWORD_GRACE_TIME, PASSWORD_VERIFY_FUNCTION.
class CSQLCreateProfile : public CreateStatement<CSQLCreateProfile> {
 public:
  explicit CSQLCreateProfile(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_CREATE_USER_H
