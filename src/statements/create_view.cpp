#include "qarvelt/statements/create_view.h"

#include "object_name.h"
#include "qarvelt/clauses/constraint.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// What is inside, in brackets: (A, B). Empty inside, nothing is written.
Node bracketed(Node inside) {
  return And({"(", ")"}, std::move(inside));
}

// A leaf whose value Oracle takes as a quoted identifier: XMLSCHEMA "http://...".
Node doubleQuoted(const char* name, const char* keyword) {
  return leaf(name, keyword, "", "\"");
}

// OF type, then how the view's objects are identified: WITH OBJECT IDENTIFIER (8.0 says OID) or,
// for a subview, UNDER its superview; then the constraints on the type's attributes.
Node objectView(int v) {
  return named("C_OBJECT_VIEW",
               And({"OF", ""}, leaf("TYPE_SCHEMA", "", "", "."), leaf("OBJECT_TYPE")),
               when(v >= 4, doubleQuoted("XMLSCHEMA", "XMLSCHEMA \"")),
               when(v >= 4, doubleQuoted("ELEMENT", "ELEMENT \"")),
               Or(named("C_OBJECT_ID",
                        Or({v >= 2 ? "WITH OBJECT IDENTIFIER" : "WITH OBJECT OID", ""},
                           leaf("DEFAULT"),
                           bracketed(list("LIST", ", ", "", "")))),
                  when(v >= 3, And({"UNDER", ""}, leaf("SUPERVIEW_SCHEMA", "", "", "."), leaf("SUPERVIEW")))),
               when(v >= 3, bracketed(list("LIST", ", ", "", ""))));
}

}  // namespace

CSQLCreateView::CSQLCreateView(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_VIEW", bInit);
}

void CSQLCreateView::init() {
  const int v = GetOraVersion();
  attach(this,
         leaf("REPLACE", "OR "),
         leaf("FORCE"),
         And({"VIEW", ""}, GuardedName(v, "IF_NOT_EXISTS", "VIEW")),
         Or(bracketed(named("C_VIEW_ALIAS", list("LIST", ", ", "", ""))), when(v >= 1, objectView(v))),
         leaf("SUBQUERY", "AS "),
         // READ ONLY or CHECK OPTION: the host fills one. They stand in an AND, not an OR, so that a
         // tree whose aliases and object clause are both filled writes both views whole, one per pass.
         And({"WITH", ""},
             when(v >= 1, leaf("READ", "", "", " ONLY")),
             // OPTION is the suffix, so that the constraint name follows it.
             leaf("CHECK", "", " OPTION").with(leaf("CONSTRAINT", "CONSTRAINT "))));
}

CSQLCreateView::CSubSQLItemAlias::CSubSQLItemAlias(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateView::CSubSQLItemAlias::CSubSQLItemAlias(const char* name, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLCreateView::CSubSQLItemAlias::CSubSQLItemAlias(bool /*bInit*/, int nOraVersion) : Cloneable(nOraVersion) {
  setup("", false);
}

void CSQLCreateView::CSubSQLItemAlias::init() {
  if (GetOraVersion() < 3) {
    attach(this, leaf("ALIAS"));
    return;
  }
  attach(
      this,
      Or(And(leaf("ALIAS"), list("LIST", " ", "", "")), clause<CSQLClauseOutLineConstraint>(kLatestRelease)));
}

}  // namespace qarvelt
