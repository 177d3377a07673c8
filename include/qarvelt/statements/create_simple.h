// The short CREATE statements: synonym, sequence, directory, role, context, library, database link,
// rollback segment, outline, type and type body.
//
//   C_CREATE_SYNONYM    CREATE PUBLIC SYNONYM SCOTT.EMP_S FOR HR.EMP @REMOTE
//   C_CREATE_SEQUENCE   CREATE SEQUENCE S.Q INCREMENT BY 5 START WITH 1 MAXVALUE 1000 NOCYCLE CACHE 20
//   C_CREATE_DIRECTORY  CREATE DIRECTORY D AS '/data'
//   C_CREATE_ROLE       CREATE ROLE R IDENTIFIED BY x
//   C_CREATE_CONTEXT    CREATE CONTEXT C USING S.PKG ACCESSED GLOBALLY (CONTEXT C is one value)
//   C_CREATE_LIBRARY    CREATE LIBRARY S.L AS '/lib/x.so' AGENT 'AGT'
//   C_CREATE_DBLINK     CREATE DATABASE LINK L CONNECT TO CURRENT_USER USING 'TNS'
//   C_CREATE_ROLLBACK   CREATE PUBLIC ROLLBACK SEGMENT R TABLESPACE RBS STORAGE (INITIAL 1M)
//   C_CREATE_OUTLINE    CREATE PUBLIC OUTLINE O FROM PRIVATE SRC
//   C_CREATE_TYPE       CREATE TYPE S.T AS OBJECT (...)
//   C_CREATE_TYPE_BODY  CREATE TYPE BODY S.T AS ... END;
//
// Every tree is the same for every release code. Keyword leaves take the keyword itself as value
// (PUBLIC, SHARED, CYCLE or NOCYCLE, ORDER or NOORDER); the host fills them and the names, and reads
// the text from GetModifiedSQL("*", text). Nothing is checked: a statement missing a mandatory part is
// written as it stands.
#ifndef QARVELT_STATEMENTS_CREATE_SIMPLE_H
#define QARVELT_STATEMENTS_CREATE_SIMPLE_H

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

// PUBLIC, then IF_NOT_EXISTS (IF NOT EXISTS, from 12), SCHEMA and SYNONYM after "SYNONYM", then SCHEMA2,
// OBJECT and DBLINK after "FOR".
class CSQLCreateSynonym : public CreateStatement<CSQLCreateSynonym> {
 public:
  explicit CSQLCreateSynonym(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// IF_NOT_EXISTS (IF NOT EXISTS, from 12), SCHEMA and SEQUENCE, then INCREMENT, START and the keyword leaves
// MAXVALUE, MINVALUE, CYCLE, CACHE and ORDER. MAXVALUE, MINVALUE and CACHE have a VALUE child holding the
// number.
class CSQLCreateSequence : public CreateStatement<CSQLCreateSequence> {
 public:
  explicit CSQLCreateSequence(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// DIRECTORY and PATH; the path is quoted by the leaf.
class CSQLCreateDirectory : public CreateStatement<CSQLCreateDirectory> {
 public:
  explicit CSQLCreateDirectory(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ROLE, then one of NOT (NOT IDENTIFIED) or IDENTIFIED with one of PASSWORD, SCHEMA + PACKAGE,
// EXTERNALLY or GLOBALLY. Alternatives that a pass leaves out follow after RefreshUsed().
class CSQLCreateRole : public CreateStatement<CSQLCreateRole> {
 public:
  explicit CSQLCreateRole(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// CONTEXT, SCHEMA + PACKAGE after "USING", then one of INITIALIZED or ACCESSED. CONTEXT,
// INITIALIZED and ACCESSED have no texts of their own: each writes its value exactly as the host
// gives it (CONTEXT C, INITIALIZED EXTERNALLY, ACCESSED GLOBALLY).
class CSQLCreateContext : public CreateStatement<CSQLCreateContext> {
 public:
  explicit CSQLCreateContext(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// SCHEMA and LIBRARY, then FILENAME and AGENT, both quoted by their leaves.
class CSQLCreateLibrary : public CreateStatement<CSQLCreateLibrary> {
 public:
  explicit CSQLCreateLibrary(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// AUTHENTICATED BY user IDENTIFIED BY password: USER and PASSWORD.
class CSQLClauseAuthenticated : public Cloneable<CSQLClauseAuthenticated> {
 public:
  explicit CSQLClauseAuthenticated(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// SHARED, PUBLIC, DBLINK, then either CONNECT TO (CURRENT_USER, or USER with USER;PASSWORD and
// USER;C_AUTHENTICATED) or the lone C_AUTHENTICATED, and last CONNECT_STRING, quoted by its leaf.
class CSQLCreateDBLink : public CreateStatement<CSQLCreateDBLink> {
 public:
  explicit CSQLCreateDBLink(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// PUBLIC, SEGMENT, TABLESPACE and C_STORAGE. The storage clause is always built for release code 0,
// whatever the statement's own code, so it never has BUFFER_POOL.
class CSQLCreateRollback : public CreateStatement<CSQLCreateRollback> {
 public:
  explicit CSQLCreateRollback(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// PUBLIC, OUTLINE, FROM_PUBLIC and FROM (the source outline, written FROM [PUBLIC | PRIVATE] O),
// CATEGORY (written FOR CATEGORY C) and STMT (the statement, after "ON ").
class CSQLCreateOutline : public CreateStatement<CSQLCreateOutline> {
 public:
  explicit CSQLCreateOutline(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// SCHEMA and TYPE after "TYPE", then SOURCE: the type's declaration (AS OBJECT ...), written unchanged.
class CSQLCreateType : public CreateStatement<CSQLCreateType> {
 public:
  explicit CSQLCreateType(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// The same tree as CSQLCreateType after "TYPE BODY"; SOURCE holds the body.
class CSQLCreateTypeBody : public CreateStatement<CSQLCreateTypeBody> {
 public:
  explicit CSQLCreateTypeBody(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_CREATE_SIMPLE_H
