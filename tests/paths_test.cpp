// Attribute paths: the grammar, the walks of SetValue/SetInit/AddAttr/GetClause, IsModified and the
// answers to unusable arguments.
#include <gtest/gtest.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;

TEST(PathGrammar, Segments) {
  struct {
    const char* path;
    const char* head;
    const char* rest;  // null: the path is used up
  } const cases[] = {
      {"A;B;C", "A", "B;C"}, {"A", "A", nullptr}, {"*", "*", "*"},  // a final "*" never runs out
      {"*;X", "*", "X"},     {"X;*", "X", "*"},   {"A;", "A", ""}, {"", "", nullptr}, {nullptr, "", nullptr},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path != nullptr ? c.path : "(null)");
    EXPECT_EQ(Named::getAttr(c.path), c.head);
    const char* rest = Named::nextAttr(c.path);
    if (c.rest == nullptr) {
      EXPECT_EQ(rest, nullptr);
    } else {
      ASSERT_NE(rest, nullptr);
      EXPECT_STREQ(rest, c.rest);
    }
  }
}

TEST(PathGrammar, IsEqualIgnoresCaseButWalksDoNot) {
  auto root = with(make_unique<Named>("ROOT"), make_unique<CSQLAttr>("EMP"));
  Named emp("EMP");
  EXPECT_TRUE(emp.isEqual("emp;X"));
  EXPECT_TRUE(emp.isEqual("*"));
  EXPECT_FALSE(emp.isEqual("EMPNO"));
  EXPECT_EQ(root->SetValue("emp", "x"), SQL_NOT_FOUND);
  EXPECT_EQ(root->SetValue("EMP", "x"), SQL_OK);
}

// ROOT
//   CONTAINER (AND)
//     A            leaf
//       B          leaf
//   P              node
//     V            leaf, integers only
//   LIST           list with one item "ITEM" holding leaf X
std::unique_ptr<CSQLClause> sample() {
  auto root = with(
      make_unique<Named>("ROOT"),
      with(make_unique<CSQLContAND>("", ""), with(make_unique<CSQLAttr>("A"), make_unique<CSQLAttr>("B"))),
      with(make_unique<Named>("P"),
           make_unique<CSQLAttr>("V", "", "", "", "", "", &CSQLUtil::IsValidInteger)),
      make_unique<CSQLList>("LIST"));
  root->AddAttr("LIST", with(make_unique<Named>("ITEM"), make_unique<CSQLAttr>("X")));
  return root;
}

TEST(PathWalk, ResultsByPath) {
  struct {
    const char* path;
    const char* value;
    int code;
  } const cases[] = {
      {"A", "a", SQL_OK},                // through the container
      {"A;B", "b", SQL_OK},              // a child of a node inside a container
      {"P;V", "12", SQL_OK},             //
      {"P;V", "twelve", SQL_NOT_FOUND},  // refused deep in the tree shows as 4 at the root
      {"LIST;ITEM;X", "x", SQL_OK},
      {"LIST;OTHER;X", "x", SQL_NOT_FOUND},
      {"NOPE", "x", SQL_NOT_FOUND},
      {"*;V", "1", SQL_NOT_FOUND},        // "*" is no wildcard in these walks
      {"CONTAINER", "x", SQL_NOT_FOUND},  // a container holds no value
      {"", "x", SQL_NOT_FOUND},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    auto root = sample();
    EXPECT_EQ(root->SetValue(c.path, c.value), c.code);
    EXPECT_EQ(root->SetInit(c.path, c.value), c.code);
    CSQLClause* node = root->GetClause(c.path);
    if (c.code == SQL_OK) {
      ASSERT_NE(node, nullptr);
      EXPECT_EQ(node->GetValue(), c.value);
      EXPECT_EQ(node->GetInit(), c.value);
    }
  }
}

TEST(PathWalk, RefusedValueLeavesTheLeafUnchanged) {
  auto root = sample();
  CSQLClause* v = root->GetClause("P;V");
  ASSERT_NE(v, nullptr);
  ASSERT_EQ(root->SetInit("P;V", "4"), SQL_OK);
  EXPECT_EQ(v->SetValue(nullptr, "4K"), 3);  // the validator's own code on the leaf itself
  EXPECT_EQ(v->SetInit(nullptr, ""), 3);
  EXPECT_EQ(v->GetValue(), "4");
  EXPECT_EQ(v->GetInit(), "4");
  EXPECT_FALSE(root->IsModified("*"));
}

TEST(PathWalk, FirstSuccessEndsTheWalk) {
  // Two children share a name; only the first takes the value. When the first refuses, the second is tried.
  auto root =
      with(make_unique<Named>("R"), make_unique<CSQLAttr>("D", "", "", "", "", "", &CSQLUtil::IsValidInteger),
           make_unique<CSQLAttr>("D"));
  ASSERT_EQ(root->SetValue("D", "5"), SQL_OK);
  EXPECT_EQ(root->GetChild(0)->GetValue(), "5");
  EXPECT_EQ(root->GetChild(1)->GetValue(), "");
  ASSERT_EQ(root->SetValue("D", "five"), SQL_OK);
  EXPECT_EQ(root->GetChild(0)->GetValue(), "5");
  EXPECT_EQ(root->GetChild(1)->GetValue(), "five");
}

TEST(PathWalk, GetClauseAndAddAttr) {
  auto root = sample();
  EXPECT_EQ(root->GetClause(nullptr), root.get());
  EXPECT_EQ(root->GetClause("LIST;ITEM;X")->GetType(), "X");
  EXPECT_EQ(root->GetChild(0)->GetClause(nullptr), nullptr);  // a container is not fetched by itself
  EXPECT_EQ(root->GetChild(99), nullptr);
  EXPECT_EQ(root->GetChild(-1), nullptr);

  // AddAttr reaches through containers and appends at the end.
  ASSERT_EQ(root->AddAttr("A", make_unique<CSQLAttr>("C")), SQL_OK);
  EXPECT_EQ(root->SetValue("A;C", "c"), SQL_OK);
  EXPECT_EQ(root->GetClause("A")->GetLength(), 2);

  // Unusable arguments give 4; the raw-pointer form leaves the node with the caller.
  EXPECT_EQ(root->AddAttr("A", static_cast<CSQLClause*>(nullptr)), SQL_NOT_FOUND);
  EXPECT_EQ(root->AddAttr(nullptr, root.get()), SQL_NOT_FOUND);
  auto stray = make_unique<CSQLAttr>("S");
  EXPECT_EQ(root->AddAttr("NOPE", stray.get()), SQL_NOT_FOUND);
  EXPECT_EQ(root->AddAttr("NOPE", make_unique<CSQLAttr>("T")), SQL_NOT_FOUND);  // deleted, not leaked
}

TEST(PathWalk, NullArguments) {
  auto root = sample();
  EXPECT_EQ(root->SetValue("A", nullptr), SQL_OK);  // null value is the empty value
  EXPECT_FALSE(root->IsModified("*"));
  CSQLContAND container("(", ")");
  EXPECT_EQ(container.SetValue(nullptr, "x"), SQL_NOT_FOUND);
  EXPECT_EQ(container.SetInit(nullptr, "x"), SQL_NOT_FOUND);
  EXPECT_FALSE(container.IsModified(nullptr));
  CSQLAttr leaf(static_cast<const char*>(nullptr), nullptr, nullptr, nullptr, nullptr, nullptr);
  EXPECT_EQ(leaf.SetValue(nullptr, "v"), SQL_OK);
  EXPECT_EQ(leaf.SetPrefix(nullptr), SQL_OK);
  EXPECT_EQ(write(leaf).text, "v");
  std::string text;
  EXPECT_EQ(leaf.GetModifiedSQL(nullptr, text), SQL_OK);
  EXPECT_EQ(leaf.RemoveAttr(nullptr), SQL_OK);  // the base removes nothing
  leaf.Copy(nullptr);
  CSQLList list;
  EXPECT_EQ(list.RemoveAttr(nullptr), SQL_NOT_FOUND);
}

TEST(IsModified, ContainersGetTheRestOfThePath) {
  auto root = sample();
  ASSERT_EQ(root->SetValue("A;B", "b"), SQL_OK);
  EXPECT_TRUE(root->IsModified("*"));
  // The container is asked about B alone, so A;B is not seen through it.
  EXPECT_FALSE(root->IsModified("A;B"));
  EXPECT_FALSE(root->IsModified("A"));  // the container gets nothing left of the path
  EXPECT_TRUE(root->GetClause("A")->IsModified("B"));
  EXPECT_TRUE(root->IsModified("*;*"));
  // Whatever the head, a container is visited and handed the rest: "P;*" sees B through it.
  EXPECT_TRUE(root->IsModified("P;*"));
  EXPECT_FALSE(root->IsModified("P;V"));

  ASSERT_EQ(root->SetValue("P;V", "7"), SQL_OK);
  EXPECT_TRUE(root->IsModified("P;V"));
  EXPECT_TRUE(root->IsModified("*;V"));  // "*" does match any one child here
  EXPECT_FALSE(root->IsModified("P;W"));
}

TEST(IsModified, LeafValues) {
  CSQLAttr leaf("L");
  EXPECT_FALSE(leaf.IsModified(nullptr));
  leaf.SetInit(nullptr, "10");
  EXPECT_FALSE(leaf.IsModified(nullptr));  // SetInit always leaves the leaf unmodified
  leaf.SetValue(nullptr, "20");
  EXPECT_TRUE(leaf.IsModified(nullptr));
  EXPECT_TRUE(leaf.IsModified("*"));
  leaf.SetValue(nullptr, "10");
  EXPECT_FALSE(leaf.IsModified("*"));
  EXPECT_EQ(write(leaf).code, SQL_NOTHING);
}

}  // namespace
}  // namespace qarvelt::testing
