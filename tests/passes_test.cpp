// Writing in passes: used leaves, RefreshUsed, hasUnused, and OR containers that write one
// alternative per pass.
#include <gtest/gtest.h>

#include <vector>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;

// The host loop: one text per pass while some change is still unwritten.
std::vector<std::string> passes(CSQLClause& root, int limit = 10) {
  std::vector<std::string> out;
  do {
    std::string text;
    root.GetModifiedSQL("*", text);
    out.push_back(text);
    root.RefreshUsed();
  } while (root.hasUnused() && --limit > 0);
  return out;
}

// HEAD: a leaf always written; then an OR of three alternatives.
std::unique_ptr<CSQLClause> statement() {
  return with(make_unique<Named>("STMT"), make_unique<CSQLAttr>("NAME"),
              with(make_unique<CSQLContOR>("", ""),
                   with(make_unique<Named>("FIRST"), make_unique<CSQLAttr>("A", "", "", "A=")),
                   with(make_unique<Named>("SECOND"), make_unique<CSQLAttr>("B", "", "", "B=")),
                   make_unique<CSQLAttr>("C", "", "", "C=")));
}

TEST(Passes, OneAlternativePerPass) {
  struct {
    std::vector<const char*> set;  // paths set to "1"
    std::vector<std::string> texts;
  } const cases[] = {
      {{"FIRST;A"}, {" T A=1"}},
      {{"FIRST;A", "SECOND;B"}, {" T A=1", " T B=1"}},
      {{"C", "SECOND;B", "FIRST;A"}, {" T A=1", " T B=1", " T C=1"}},
      {{}, {" T"}},
  };
  for (const auto& c : cases) {
    auto root = statement();
    root->SetValue("NAME", "T");
    for (const char* path : c.set)
      ASSERT_EQ(root->SetValue(path, "1"), SQL_OK) << path;
    EXPECT_EQ(passes(*root), c.texts);
    EXPECT_FALSE(root->hasUnused());
    EXPECT_FALSE(root->IsModified("*"));  // every written change was withdrawn at the end
  }
}

TEST(Passes, RefreshKeepsUnwrittenChanges) {
  auto root = statement();
  root->SetValue("FIRST;A", "1");
  root->SetValue("C", "3");
  std::string text;
  root->GetModifiedSQL("*", text);
  EXPECT_EQ(text, " A=1");
  EXPECT_TRUE(root->hasUnused());
  root->RefreshUsed();
  EXPECT_EQ(root->GetClause("FIRST;A")->GetValue(), "");  // written: back to its initial value
  EXPECT_EQ(root->GetClause("C")->GetValue(), "3");       // not written yet: kept
}

TEST(Passes, LeafUsedBookkeeping) {
  auto root = with(make_unique<Named>("R"), make_unique<CSQLAttr>("L", "", "", "L="));
  CSQLClause* leaf = root->GetClause("L");
  root->SetInit("L", "10");
  root->SetValue("L", "20");
  EXPECT_TRUE(leaf->hasUnused());
  EXPECT_EQ(write(*root).text, " L=20");
  EXPECT_FALSE(leaf->hasUnused());
  EXPECT_TRUE(leaf->IsModified(nullptr));
  root->RefreshUsed();  // nothing unused: every used leaf takes its initial value again
  EXPECT_EQ(leaf->GetValue(), "10");
  EXPECT_FALSE(leaf->IsModified(nullptr));
  EXPECT_EQ(write(*root).code, SQL_NOTHING);
}

TEST(Passes, ClearEmptiesValuesAndKeepsShape) {
  auto root = statement();
  root->SetInit("NAME", "N");
  root->SetValue("FIRST;A", "1");
  write(*root);
  root->Clear();
  EXPECT_EQ(root->GetClause("NAME")->GetInit(), "");
  EXPECT_FALSE(root->IsModified("*"));
  EXPECT_FALSE(root->hasUnused());
  EXPECT_NE(root->GetClause("FIRST;A"), nullptr);
}

TEST(Lists, RemoveAndClear) {
  CSQLList list("LIST", ",", "(", ")");
  for (const char* name : {"A", "B", "A"}) {
    list.AddAttr(nullptr, with(make_unique<Named>(name), make_unique<CSQLAttr>("V")));
  }
  list.SetValue("A;V", "first");
  ASSERT_EQ(list.RemoveAttr("A"), SQL_OK);  // only the first of two items named A
  ASSERT_EQ(list.GetLength(), 2);
  EXPECT_EQ(list.GetChild(0)->GetType(), "B");
  EXPECT_EQ(list.GetChild(1)->GetType(), "A");
  EXPECT_EQ(list.GetClause("A;V")->GetValue(), "");
  EXPECT_EQ(list.RemoveAttr("a"), SQL_NOT_FOUND);  // case-sensitive
  EXPECT_EQ(list.RemoveAttr("A;V"), SQL_OK);       // the first segment names the item
  list.SetValue(nullptr, "kept");
  list.Clear();
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetValue(), "");
  EXPECT_EQ(list.GetPrefix(), "(");

  CSQLList shell(false, 3);
  EXPECT_EQ(shell.GetType(), "LIST");
  EXPECT_EQ(shell.GetSeparator(), " ");
  EXPECT_EQ(shell.GetOraVersion(), 3);
}

// A clone taken before a part of the tree was ever built builds that part as the source would: the
// table's subpartition template opens with SUBPARTITION TEMPLATE in the clone too.
TEST(Clones, UnbuiltSubpartitionTemplateKeepsItsLevel) {
  const auto fill = [](CSQLClause& part) {
    part.SetValue("C_COMPOSITE_PART;LIST", "A");
    part.SetValue("C_COMPOSITE_PART;C_SUBPART_BY_HASH;LIST", "B");
    part.AddAttr("C_COMPOSITE_PART;C_SUBPART_BY_HASH;C_SUBPART_TEMPLATE;LIST",
                 make_unique<CSQLClauseTablePartition::CSubSQLItemTemplate>("S1"));
    part.SetValue("C_COMPOSITE_PART;C_SUBPART_BY_HASH;C_SUBPART_TEMPLATE;LIST;S1;SUBPARTITION", "S1");
    return write(part).text;
  };
  CSQLClauseTablePartition source(true, 4);
  // Builds the hash subpartitioning; its template stays unbuilt.
  ASSERT_EQ(source.SetValue("C_COMPOSITE_PART;C_SUBPART_BY_HASH;LIST", "B"), SQL_OK);
  auto clone = source.Clone();
  EXPECT_EQ(fill(*clone), fill(source));
  EXPECT_NE(write(*clone).text.find("SUBPARTITION TEMPLATE"), std::string::npos) << write(*clone).text;
}

TEST(Clones, DeepCopyOfShapeTextsAndValues) {
  auto root = statement();
  root->SetAfterPrefix([](std::string&, std::string&, std::string&, CSQLClause*) { return 0; });
  root->SetOraVersion(2);
  root->SetInit("NAME", "OLD");
  root->SetValue("NAME", "NEW");
  auto list = make_unique<CSQLList>("L", ";", "[", "]");
  list->AddAttr(nullptr, make_unique<CSQLAttr>("I", "", "i"));
  root->AddAttr(nullptr, std::move(list));

  std::unique_ptr<CSQLClause> clone(**root);
  EXPECT_EQ(write(*clone).text, write(*root).text);
  EXPECT_EQ(clone->GetOraVersion(), 2);
  EXPECT_EQ(clone->GetClause("NAME")->GetInit(), "OLD");
  EXPECT_EQ(clone->GetChild(1)->GetSubType(), "OR");
  auto* listClone = dynamic_cast<CSQLList*>(clone->GetClause("L"));
  ASSERT_NE(listClone, nullptr);
  EXPECT_EQ(listClone->GetSeparator(), ";");
  EXPECT_NE(clone->GetClause("L;I"), root->GetClause("L;I"));  // a deep copy, not shared nodes

  // Copy into a node that has children appends the clones after them.
  Named target("T");
  target.AddAttr(nullptr, make_unique<CSQLAttr>("OWN"));
  root->Copy(&target);
  EXPECT_EQ(target.GetType(), "STMT");
  ASSERT_EQ(target.GetLength(), 4);
  EXPECT_EQ(target.GetChild(0)->GetType(), "OWN");
  EXPECT_EQ(target.GetChild(1)->GetType(), "NAME");

  // The used flag is not copied: a clone of a written tree still has unused changes.
  auto written = statement();
  written->SetValue("C", "x");
  write(*written);
  EXPECT_FALSE(written->hasUnused());
  EXPECT_TRUE(written->Clone()->hasUnused());

  // Copying a node into itself appends one copy of its children and stops.
  Named self("S");
  self.AddAttr(nullptr, make_unique<CSQLAttr>("X"));
  self.Copy(&self);
  EXPECT_EQ(self.GetLength(), 2);
}

// A leaf that names the target of alternatives (MODIFY PARTITION P1 ...) keeps its value while one of
// them is still unwritten, so every pass names the partition it alters.
TEST(Passes, TargetNameStaysUntilItsAlterationsAreWritten) {
  CSQLAlterIndex alter;
  alter.SetValue("INDEX", "I");
  alter.SetValue("C_ALT_IDX_PART;C_MOD_IDX_PART;PARTITION", "P1");
  alter.SetValue("C_ALT_IDX_PART;C_MOD_IDX_PART;PARTITION;COALESCE", "COALESCE");
  alter.SetValue("C_ALT_IDX_PART;C_MOD_IDX_PART;PARTITION;UNUSABLE", "UNUSABLE");
  const std::vector<std::string> expected = {"ALTER INDEX I MODIFY PARTITION P1 COALESCE",
                                             "ALTER INDEX I MODIFY PARTITION P1 UNUSABLE"};
  EXPECT_EQ(passes(alter), expected);
  EXPECT_FALSE(alter.IsModified("C_ALT_IDX_PART;*"));
}

}  // namespace
}  // namespace qarvelt::testing
