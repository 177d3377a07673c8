#include "qarvelt/statements/create_simple.h"

#include "object_name.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"
#include "sequence_options.h"

namespace qarvelt {

using namespace build;

namespace {

// An optionally schema-qualified name after its keyword: SEQUENCE S.Q. With neither part filled the
// container writes nothing, not even the keyword.
Node qualifiedName(const char* keyword, const char* name) {
  return And({keyword, ""}, leaf("SCHEMA", "", "", "."), leaf(name));
}

// A leaf whose value is quoted: AS '/data'.
Node quoted(const char* name, const char* keyword) {
  return leaf(name, keyword, "", "'");
}

// Type and type body: the name after the keyword, then the source text as the host gives it.
void typeTree(CSQLClause* root, const char* keyword) {
  attach(root, qualifiedName(keyword, "TYPE"), leaf("SOURCE"));
}

}  // namespace

// ---- synonym, sequence, directory ---------------------------------------------------------------

CSQLCreateSynonym::CSQLCreateSynonym(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_SYNONYM", bInit);
}

void CSQLCreateSynonym::init() {
  // The FOR part sits inside the SYNONYM container, so it is written only after "SYNONYM".
  attach(this,
         leaf("PUBLIC"),
         And({"SYNONYM", ""},
             GuardedName(GetOraVersion(), "IF_NOT_EXISTS", "SYNONYM"),
             And({"FOR", ""}, leaf("SCHEMA2", "", "", "."), leaf("OBJECT"), leaf("DBLINK", "@"))));
}

CSQLCreateSequence::CSQLCreateSequence(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_SEQUENCE", bInit);
}

void CSQLCreateSequence::init() {
  attach(this,
         And({"SEQUENCE", ""}, GuardedName(GetOraVersion(), "IF_NOT_EXISTS", "SEQUENCE")),
         SequenceOptions(true));
}

CSQLCreateDirectory::CSQLCreateDirectory(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_DIRECTORY", bInit);
}

void CSQLCreateDirectory::init() {
  attach(this, leaf("DIRECTORY", "DIRECTORY "), quoted("PATH", "AS '"));
}

// ---- role, context, library ---------------------------------------------------------------------

CSQLCreateRole::CSQLCreateRole(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_ROLE", bInit);
}

void CSQLCreateRole::init() {
  attach(this,
         leaf("ROLE", "ROLE "),
         Or(leaf("NOT", "", "", " IDENTIFIED"),
            Or({"IDENTIFIED", ""},
               leaf("PASSWORD", "BY "),
               qualifiedName("USING", "PACKAGE"),
               leaf("EXTERNALLY"),
               leaf("GLOBALLY"))));
}

CSQLCreateContext::CSQLCreateContext(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_CONTEXT", bInit);
}

void CSQLCreateContext::init() {
  attach(this, leaf("CONTEXT"), qualifiedName("USING", "PACKAGE"), Or(leaf("INITIALIZED"), leaf("ACCESSED")));
}

CSQLCreateLibrary::CSQLCreateLibrary(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_LIBRARY", bInit);
}

void CSQLCreateLibrary::init() {
  attach(this, qualifiedName("LIBRARY", "LIBRARY"), quoted("FILENAME", "AS '"), quoted("AGENT", "AGENT '"));
}

// ---- database link ------------------------------------------------------------------------------

CSQLClauseAuthenticated::CSQLClauseAuthenticated(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_AUTHENTICATED", bInit);
}

void CSQLClauseAuthenticated::init() {
  attach(this, leaf("USER", "AUTHENTICATED BY "), leaf("PASSWORD", "IDENTIFIED BY "));
}

CSQLCreateDBLink::CSQLCreateDBLink(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_DBLINK", bInit);
}

void CSQLCreateDBLink::init() {
  // CONNECT TO ... when anything in it is filled, else the authentication alone; the connect
  // string follows either.
  attach(this,
         leaf("SHARED"),
         leaf("PUBLIC"),
         leaf("DBLINK", "DATABASE LINK "),
         Or(Or({"CONNECT TO", ""},
               leaf("CURRENT_USER"),
               leaf("USER").with(leaf("PASSWORD", "IDENTIFIED BY "),
                                 clause<CSQLClauseAuthenticated>(kLatestRelease))),
            clause<CSQLClauseAuthenticated>(kLatestRelease)),
         quoted("CONNECT_STRING", "USING '"));
}

// ---- rollback segment, outline ------------------------------------------------------------------

CSQLCreateRollback::CSQLCreateRollback(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_ROLLBACK", bInit);
}

void CSQLCreateRollback::init() {
  attach(this,
         leaf("PUBLIC"),
         leaf("SEGMENT", "ROLLBACK SEGMENT "),
         leaf("TABLESPACE", "TABLESPACE "),
         clause<CSQLClauseStorage>(0));
}

CSQLCreateOutline::CSQLCreateOutline(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_OUTLINE", bInit);
}

// The source outline is FROM [PUBLIC | PRIVATE] O: FROM opens whichever of the two is written.
void CSQLCreateOutline::init() {
  attach(this,
         And(leaf("PUBLIC"),
             leaf("OUTLINE", "OUTLINE "),
             And({"FROM", ""}, leaf("FROM_PUBLIC"), leaf("FROM")),
             leaf("CATEGORY", "FOR CATEGORY "),
             leaf("STMT", "ON ")));
}

// ---- type and type body -------------------------------------------------------------------------

CSQLCreateType::CSQLCreateType(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_TYPE", bInit);
}

void CSQLCreateType::init() {
  typeTree(this, "TYPE");
}

CSQLCreateTypeBody::CSQLCreateTypeBody(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_TYPE_BODY", bInit);
}

void CSQLCreateTypeBody::init() {
  typeTree(this, "TYPE BODY");
}

}  // namespace qarvelt
