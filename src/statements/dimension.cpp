#include "qarvelt/statements/dimension.h"

#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// Oracle8i brought dimensions; Oracle Database 10g Release 1 brought SKIP WHEN NULL and the named
// attribute with its own LEVEL.
constexpr int kOracle8i = 2;
constexpr int kOracle10gR1 = 5;

// A bracketed list of plain leaves, one column each: (CUSTOMERS.CITY,CUSTOMERS.STATE).
Node columns(const char* keyword) {
  std::string prefix = keyword;
  return list("LIST", ",", (prefix + "(").c_str(), ")");
}

}  // namespace

CSQLCreateDimension::CSQLCreateDimension(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_DIMENSION", bInit);
}

void CSQLCreateDimension::init() {
  if (GetOraVersion() < kOracle8i) return;
  attach(this,
         And({"DIMENSION", ""}, leaf("SCHEMA", "", "", "."), leaf("DIMENSION")),
         list("LIST_LEVEL"),
         list("LIST_HIERARCHY"),
         list("LIST_ATTRIBUTE"));
}

// ---- level ---------------------------------------------------------------------------------------

CSQLCreateDimension::CSubSQLItemLevel::CSubSQLItemLevel(const char* name, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLCreateDimension::CSubSQLItemLevel::CSubSQLItemLevel(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLCreateDimension::CSubSQLItemLevel::init() {
  attach(this,
         leaf("LEVEL", "LEVEL "),
         columns("IS "),
         when(GetOraVersion() >= kOracle10gR1, leaf("SKIP", "", "", " WHEN NULL")));
}

// ---- hierarchy -----------------------------------------------------------------------------------

CSQLCreateDimension::CSubSQLItemHierarchy::CSubSQLItemHierarchy(const char* name)
    : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateDimension::CSubSQLItemHierarchy::CSubSQLItemHierarchy(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

// The levels are written child first with CHILD OF between them; the joins follow inside the
// same brackets.
void CSQLCreateDimension::CSubSQLItemHierarchy::init() {
  attach(this,
         leaf("HIERARCHY", "HIERARCHY "),
         And({"(", ")"}, list("LIST", " CHILD OF "), list("LIST_JOIN_KEY")));
}

CSQLCreateDimension::CSubSQLItemJoinKey::CSubSQLItemJoinKey(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateDimension::CSubSQLItemJoinKey::CSubSQLItemJoinKey(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLCreateDimension::CSubSQLItemJoinKey::init() {
  attach(this, columns("JOIN KEY "), leaf("REFERENCES", "REFERENCES "));
}

// ---- attribute -----------------------------------------------------------------------------------

CSQLCreateDimension::CSubSQLItemAttribute::CSubSQLItemAttribute(const char* name, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLCreateDimension::CSubSQLItemAttribute::CSubSQLItemAttribute(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLCreateDimension::CSubSQLItemAttribute::init() {
  attach(this,
         leaf("ATTRIBUTE", "ATTRIBUTE "),
         when(GetOraVersion() >= kOracle10gR1, leaf("LEVEL", "LEVEL ")),
         columns("DETERMINES "));
}

}  // namespace qarvelt
