#include "qarvelt/clauses/constraint.h"

#include "qarvelt/clauses/partition.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// A column list in brackets: (A,B).
Node columns(const char* name = "LIST") {
  return list(name, ",", "(", ")");
}

// CONSTRAINT name, written before the constraint body.
Node constraintName() {
  return leaf("CONSTRAINT", "CONSTRAINT ");
}

// The state written after every constraint body; always built for the latest release.
Node state() {
  return clause<CSQLClauseConstraintState>(kLatestRelease);
}

}  // namespace

// ---- inline and out-of-line constraints ---------------------------------------------------------

CSQLClauseInlineConstraint::CSQLClauseInlineConstraint(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_INLINE_CONSTRAINT", bInit);
}

CSQLClauseInlineConstraint::CSQLClauseInlineConstraint(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

void CSQLClauseInlineConstraint::init() {
  attach(this,
         constraintName(),
         Or(leaf("NULL"),
            leaf("UNIQUE"),
            leaf("PRIMARY", "", " KEY"),
            clause<CSQLClauseReferences>(kLatestRelease),
            leaf("CHECK", "CHECK (", ")")),
         state());
}

CSQLClauseOutLineConstraint::CSQLClauseOutLineConstraint(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_OUTLINE_CONSTRAINT", bInit);
}

CSQLClauseOutLineConstraint::CSQLClauseOutLineConstraint(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

void CSQLClauseOutLineConstraint::init() {
  attach(this,
         constraintName(),
         Or(leaf("UNIQUE").with(columns()),
            leaf("PRIMARY", "", " KEY").with(columns()),
            leaf("FOREIGN", "", " KEY").with(columns(), clause<CSQLClauseReferences>(kLatestRelease)),
            leaf("CHECK", "CHECK (", ")")),
         state());
}

// ---- REF constraints ----------------------------------------------------------------------------

CSQLClauseInlineRefConstraint::CSQLClauseInlineRefConstraint(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_INLINE_REF_CONSTRAINT", bInit);
}

void CSQLClauseInlineRefConstraint::init() {
  attach(this,
         Or(leaf("SCOPE").with(leaf("SCHEMA", "", "."), leaf("TABLE")),
            leaf("ROWID", "WITH "),
            And(constraintName(), clause<CSQLClauseReferences>(kLatestRelease), state())));
}

CSQLClauseOutLineRefConstraint::CSQLClauseOutLineRefConstraint(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_OUTLINE_REF_CONSTRAINT", bInit);
}

void CSQLClauseOutLineRefConstraint::init() {
  attach(this,
         Or(leaf("SCOPE", "", " FOR")
                .with(leaf("REFVAL", "(", "", ") IS"), leaf("SCHEMA", "", "."), leaf("TABLE")),
            leaf("REF").with(leaf("REFVAL", "(", "", ") WITH ROWID")),
            And(constraintName(),
                leaf("REFVAL", "FOREIGN KEY (", "", ")"),
                clause<CSQLClauseReferences>(kLatestRelease),
                state())));
}

CSQLClauseReferences::CSQLClauseReferences(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_REFERENCES", bInit);
}

void CSQLClauseReferences::init() {
  attach(this,
         And({"REFERENCES ", ""},
             leaf("SCHEMA", "", "."),
             leaf("OBJECT"),
             columns(),
             leaf("DELETE", "ON "),
             Or(leaf("CASCADE"), leaf("NULL", "SET "))));
}

CSQLClauseScopedTabRefConstraint::CSQLClauseScopedTabRefConstraint(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_SCOPED_TABREF_CONST", bInit);
}

void CSQLClauseScopedTabRefConstraint::init() {
  attach(this, list("LIST", ",", "", ""));
}

CSQLClauseScopedTabRefConstraint::CSubSQLItem::CSubSQLItem(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseScopedTabRefConstraint::CSubSQLItem::CSubSQLItem(bool /*bInit*/, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", false);
}

void CSQLClauseScopedTabRefConstraint::CSubSQLItem::init() {
  attach(this,
         Or({"SCOPE FOR (", ") IS"}, leaf("REFCOLUMN"), leaf("REFATTR")),
         leaf("SCHEMA", "", "", "."),
         leaf("TABLE"));
}

// ---- constraint state, USING INDEX, ENABLE/DISABLE ----------------------------------------------

CSQLClauseConstraintState::CSQLClauseConstraintState(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_CONSTRAINT_STATE", bInit);
}

void CSQLClauseConstraintState::init() {
  attach(this,
         leaf("DEFERRABLE"),
         leaf("INITIALLY", "INITIALLY "),
         leaf("ENABLE"),
         leaf("VALIDATE"),
         leaf("RELY"),
         clause<CSQLClauseUsingIndex>(GetOraVersion()),
         clause<CSQLClauseExceptions>(GetOraVersion()));
}

CSQLClauseUsingIndex::CSQLClauseUsingIndex(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_USING_INDEX", bInit);
}

void CSQLClauseUsingIndex::init() {
  const int v = GetOraVersion();
  // An existing index (SCHEMA and INDEX together are one alternative, written S.I) or the
  // attributes of the index Oracle creates.
  attach(this,
         Or({"USING INDEX ", ""},
            when(v >= 6, And(leaf("SCHEMA", "", "."), leaf("INDEX"))),
            And(leaf("PCTFREE", "PCTFREE "),
                leaf("INITRANS", "INITRANS "),
                leaf("MAXTRANS)", "MAXTRANS "),
                leaf("TABLESPACE", "TABLESPACE "),
                clause<CSQLClauseStorage>(v),
                when(v >= 2, leaf("NOSORT")),
                when(v >= 2, leaf("LOGGING")),
                when(v >= 3, Or(leaf("LOCAL"), clause<CSQLClauseGlobalPartitionIndex>(v))))));
}

CSQLClauseEnableDisable::CSQLClauseEnableDisable(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ENABLE_DISABLE", bInit);
}

CSQLClauseEnableDisable::CSQLClauseEnableDisable(const char* name, int nOraVersion) : Cloneable(nOraVersion) {
  setup(name, true);
}

void CSQLClauseEnableDisable::init() {
  const int v = GetOraVersion();
  attach(this,
         leaf("ENABLE"),
         leaf("VALIDATE"),
         Or(leaf("UNIQUE").with(columns()), leaf("PRIMARY", "", "", " KEY"), constraintName()),
         clause<CSQLClauseUsingIndex>(v),
         clause<CSQLClauseExceptions>(v),
         leaf("CASCADE"),
         when(v >= 6, leaf("KEEP", "", "", " INDEX")));
}

// ---- ALTER TABLE constraint operations ----------------------------------------------------------

CSQLClauseConstraint::CSQLClauseConstraint(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_CONSTRAINT", bInit);
}

void CSQLClauseConstraint::init() {
  // One operation per statement. Added constraints share the ADD prefix of their alternative and
  // each later one brings its own: ADD c1 ADD c2.
  attach(this,
         Or(Or({"ADD ", ""},
               list("LIST", " ADD ", "", ""),
               clause<CSQLClauseOutLineRefConstraint>(kLatestRelease)),
            leaf("MODIFY", "MODIFY CONSTRAINT ").with(state()),
            leaf("RENAME", "RENAME CONSTRAINT ").with(leaf("NEWNAME", "TO ")),
            clause<CSQLClauseDropConstraint>(kLatestRelease)));
}

CSQLClauseDropConstraint::CSQLClauseDropConstraint(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_DROP_CONSTRAINT", bInit);
}

void CSQLClauseDropConstraint::init() {
  attach(this,
         Or({"DROP ", ""},
            And(Or(leaf("PRIMARY", "", "", " KEY"), leaf("UNIQUE").with(columns())),
                leaf("CASCADE"),
                leaf("KEEP", "", "", " INDEX")),
            leaf("CONSTRAINT", "CONSTRAINT ").with(leaf("CASCADE"))));
}

}  // namespace qarvelt
