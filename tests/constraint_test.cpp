// Constraint clauses: inline and out-of-line constraints, REFERENCES, states, USING INDEX,
// ENABLE/DISABLE and the ALTER TABLE constraint operations.
#include <gtest/gtest.h>

#include <qarvelt/clauses/constraint.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;

// A tree with named column leaves appended to the list at `listPath`.
template <class T>
std::function<std::unique_ptr<CSQLClause>()> withColumns(const char* listPath,
                                                         std::vector<const char*> names,
                                                         int nOraVersion = 7) {
  return [=] {
    auto tree = make_unique<T>(true, nOraVersion);
    for (const char* name : names)
      tree->AddAttr(listPath, make_unique<CSQLAttr>(name, "", name));
    return tree;
  };
}

// ALTER TABLE ... ADD with out-of-line constraint items named C1, C2, ...
std::function<std::unique_ptr<CSQLClause>()> addConstraints(int count) {
  return [count] {
    auto tree = make_unique<CSQLClauseConstraint>();
    for (int i = 1; i <= count; ++i) {
      const std::string name = "C" + std::to_string(i);
      tree->AddAttr("LIST", make_unique<CSQLClauseOutLineConstraint>(name.c_str()));
    }
    return tree;
  };
}

class ConstraintClauses : public ::testing::TestWithParam<TreeCase> {};
TEST_P(ConstraintClauses, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    ConstraintClauses,
    ::testing::Values(
        TreeCase{"primary key with using index",
                 withColumns<CSQLClauseOutLineConstraint>("PRIMARY;LIST", {"A", "B"}),
                 {{"CONSTRAINT", "PK_T"},
                  {"PRIMARY", "PRIMARY"},
                  {"C_CONSTRAINT_STATE;C_USING_INDEX;TABLESPACE", "X"}},
                 "CONSTRAINT PK_T PRIMARY KEY (A,B) USING INDEX TABLESPACE X"},
        TreeCase{"foreign key",
                 [] {
                   auto t = withColumns<CSQLClauseOutLineConstraint>("FOREIGN;LIST", {"D"})();
                   t->AddAttr("FOREIGN;C_REFERENCES;LIST", make_unique<CSQLAttr>("ID", "", "ID"));
                   return t;
                 },
                 {{"FOREIGN", "FOREIGN"},
                  {"FOREIGN;C_REFERENCES;OBJECT", "DEPT"},
                  {"FOREIGN;C_REFERENCES;DELETE", "DELETE"},
                  {"FOREIGN;C_REFERENCES;NULL", "NULL"},
                  {"C_CONSTRAINT_STATE;DEFERRABLE", "DEFERRABLE"},
                  {"C_CONSTRAINT_STATE;INITIALLY", "DEFERRED"}},
                 "FOREIGN KEY (D) REFERENCES DEPT (ID) ON DELETE SET NULL DEFERRABLE INITIALLY DEFERRED"},
        TreeCase{"references cascade",
                 withColumns<CSQLClauseReferences>("LIST", {"C1", "C2"}),
                 {{"SCHEMA", "S"}, {"OBJECT", "T"}, {"DELETE", "DELETE"}, {"CASCADE", "CASCADE"}},
                 "REFERENCES S.T (C1,C2) ON DELETE CASCADE"},
        TreeCase{"inline not null with state",
                 make<CSQLClauseInlineConstraint>(7),
                 {{"CONSTRAINT", "NN"},
                  {"NULL", "NOT NULL"},
                  {"C_CONSTRAINT_STATE;ENABLE", "DISABLE"},
                  {"C_CONSTRAINT_STATE;VALIDATE", "NOVALIDATE"}},
                 "CONSTRAINT NN NOT NULL DISABLE NOVALIDATE"},
        TreeCase{"inline primary key",
                 make<CSQLClauseInlineConstraint>(7),
                 {{"PRIMARY", "PRIMARY"}},
                 "PRIMARY KEY"},
        TreeCase{"inline check", make<CSQLClauseInlineConstraint>(7), {{"CHECK", "A > 0"}}, "CHECK (A > 0)"},
        TreeCase{"inline scope",
                 make<CSQLClauseInlineRefConstraint>(7),
                 {{"SCOPE", "SCOPE IS"}, {"SCOPE;TABLE", "T"}},
                 "SCOPE IS T"},
        TreeCase{
            "inline with rowid", make<CSQLClauseInlineRefConstraint>(7), {{"ROWID", "ROWID"}}, "WITH ROWID"},
        TreeCase{"out-of-line ref with rowid",
                 make<CSQLClauseOutLineRefConstraint>(7),
                 {{"REF", "REF"}, {"REF;REFVAL", "R"}},
                 "REF (R) WITH ROWID"},
        TreeCase{"out-of-line scope",
                 make<CSQLClauseOutLineRefConstraint>(7),
                 {{"SCOPE", "SCOPE"}, {"SCOPE;REFVAL", "R"}, {"SCOPE;SCHEMA", "S"}, {"SCOPE;TABLE", "T"}},
                 "SCOPE FOR (R) IS S.T"},
        TreeCase{"scoped table ref item",
                 [] {
                   auto t = make_unique<CSQLClauseScopedTabRefConstraint>();
                   t->AddAttr("LIST", make_unique<CSQLClauseScopedTabRefConstraint::CSubSQLItem>("R"));
                   return t;
                 },
                 {{"LIST;R;REFCOLUMN", "R"}, {"LIST;R;SCHEMA", "S"}, {"LIST;R;TABLE", "T"}},
                 "SCOPE FOR (R) IS S.T"},
        TreeCase{"using an existing index",
                 make<CSQLClauseUsingIndex>(6),
                 {{"SCHEMA", "S"}, {"INDEX", "I"}},
                 "USING INDEX S.I"},
        TreeCase{"using index attributes",
                 make<CSQLClauseUsingIndex>(3),
                 {{"PCTFREE", "10"}, {"MAXTRANS)", "5"}, {"NOSORT", "NOSORT"}, {"LOCAL", "LOCAL"}},
                 "USING INDEX PCTFREE 10 MAXTRANS 5 NOSORT LOCAL"},
        TreeCase{"enable primary key keep index",
                 make<CSQLClauseEnableDisable>(6),
                 {{"ENABLE", "ENABLE"}, {"PRIMARY", "PRIMARY"}, {"KEEP", "KEEP"}},
                 "ENABLE PRIMARY KEY KEEP INDEX"},
        TreeCase{"disable unique cascade",
                 withColumns<CSQLClauseEnableDisable>("UNIQUE;LIST", {"A", "B"}),
                 {{"ENABLE", "DISABLE"}, {"UNIQUE", "UNIQUE"}, {"CASCADE", "CASCADE"}},
                 "DISABLE UNIQUE (A,B) CASCADE"},
        TreeCase{"add two constraints",
                 addConstraints(2),
                 {{"LIST;C1;CONSTRAINT", "C1"},
                  {"LIST;C1;CHECK", "A > 0"},
                  {"LIST;C2;CONSTRAINT", "C2"},
                  {"LIST;C2;CHECK", "B > 0"}},
                 "ADD CONSTRAINT C1 CHECK (A > 0) ADD CONSTRAINT C2 CHECK (B > 0)"},
        TreeCase{"modify constraint state",
                 make<CSQLClauseConstraint>(7),
                 {{"MODIFY", "C1"}, {"MODIFY;C_CONSTRAINT_STATE;ENABLE", "ENABLE"}},
                 "MODIFY CONSTRAINT C1 ENABLE"},
        TreeCase{"rename constraint",
                 make<CSQLClauseConstraint>(7),
                 {{"RENAME", "A"}, {"RENAME;NEWNAME", "B"}},
                 "RENAME CONSTRAINT A TO B"},
        TreeCase{"drop primary key cascade drop index",
                 make<CSQLClauseConstraint>(7),
                 {{"C_DROP_CONSTRAINT;PRIMARY", "PRIMARY"},
                  {"C_DROP_CONSTRAINT;CASCADE", "CASCADE"},
                  {"C_DROP_CONSTRAINT;KEEP", "DROP"}},
                 "DROP PRIMARY KEY CASCADE DROP INDEX"},
        TreeCase{"drop unique columns",
                 withColumns<CSQLClauseDropConstraint>("UNIQUE;LIST", {"A", "B"}),
                 {{"UNIQUE", "UNIQUE"}},
                 "DROP UNIQUE (A,B)"},
        TreeCase{"drop named constraint",
                 make<CSQLClauseDropConstraint>(7),
                 {{"CONSTRAINT", "C1"}, {"CONSTRAINT;CASCADE", "CASCADE"}},
                 "DROP CONSTRAINT C1 CASCADE"}),
    caseName);

TEST(ConstraintClauses, OneOperationPerPass) {
  auto tree = addConstraints(1)();
  tree->SetValue("LIST;C1;UNIQUE", "UNIQUE");
  tree->SetValue("RENAME", "A");
  tree->SetValue("RENAME;NEWNAME", "B");
  EXPECT_EQ(trimmed(write(*tree).text), "ADD UNIQUE");
  tree->RefreshUsed();
  EXPECT_EQ(trimmed(write(*tree).text), "RENAME CONSTRAINT A TO B");
}

TEST(ConstraintClauses, ReleaseGates) {
  struct {
    std::function<std::unique_ptr<CSQLClause>()> make;
    const char* path;
    bool present;
  } const cases[] = {
      {make<CSQLClauseUsingIndex>(5), "INDEX", false},
      {make<CSQLClauseUsingIndex>(5), "SCHEMA", false},
      {make<CSQLClauseUsingIndex>(6), "INDEX", true},
      {make<CSQLClauseUsingIndex>(2), "LOCAL", false},
      {make<CSQLClauseUsingIndex>(2), "C_GLOBAL_PART_IDX", false},
      {make<CSQLClauseUsingIndex>(3), "C_GLOBAL_PART_IDX", true},
      {make<CSQLClauseUsingIndex>(1), "NOSORT", false},
      {make<CSQLClauseUsingIndex>(2), "LOGGING", true},
      {make<CSQLClauseUsingIndex>(7), "MAXTRANS", false},  // the node keeps its parenthesis
      {make<CSQLClauseEnableDisable>(5), "KEEP", false},
      {make<CSQLClauseEnableDisable>(6), "KEEP", true},
      {make<CSQLClauseConstraintState>(5), "C_USING_INDEX;INDEX", false},
      {make<CSQLClauseConstraintState>(6), "C_USING_INDEX;INDEX", true},
      // Constraints always build their state for the latest release.
      {make<CSQLClauseInlineConstraint>(0), "C_CONSTRAINT_STATE;C_USING_INDEX;INDEX", true},
  };
  for (const auto& c : cases) {
    auto tree = c.make();
    EXPECT_EQ(tree->GetClause(c.path) != nullptr, c.present) << tree->GetOraVersion() << " " << c.path;
  }
  CSQLClauseEnableDisable named("C_ENABLE", 6);
  EXPECT_EQ(named.GetType(), "C_ENABLE");
  EXPECT_NE(named.GetClause("KEEP"), nullptr);
}

}  // namespace
}  // namespace qarvelt::testing
