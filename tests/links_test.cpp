// Links between nodes (the clause a callback reads) never outlive the node they name: clones and
// copies point links at their own copies or drop them, and a removed or destroyed node takes the
// links to it along.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

std::string render(CSQLClause& node) {
  std::string text;
  node.GetModifiedSQL("*", text);
  return trimmed(text);
}

TEST(Links, CloneOfALinkedLeafOutlivesItsSource) {
  std::unique_ptr<CSQLClause> commit;
  {
    CSQLCreateTable table;
    commit = table.GetClause("C_RELATIONAL_TABLE;COMMIT")->Clone();
  }
  commit->SetValue(nullptr, "DELETE");
  // The link to TEMPORARY stayed behind: no condition is left, and the clause writes itself.
  EXPECT_EQ(render(*commit), "ON COMMIT DELETE ROWS");
}

TEST(Links, CloneOfAWholeTableKeepsItsOwnLinks) {
  auto table = std::make_unique<CSQLCreateTable>();
  auto clone = table->Clone();
  table.reset();
  ASSERT_EQ(clone->SetValue("C_RELATIONAL_TABLE;TABLE", "T"), SQL_OK);
  ASSERT_EQ(clone->SetValue("C_RELATIONAL_TABLE;COMMIT", "DELETE"), SQL_OK);
  // Not temporary: ON COMMIT is left out, as in the source, because the clone's COMMIT reads the
  // clone's own TEMPORARY.
  EXPECT_EQ(render(*clone), "CREATE TABLE T");
  ASSERT_EQ(clone->SetValue("C_RELATIONAL_TABLE;TEMPORARY", "TEMPORARY"), SQL_OK);
  EXPECT_EQ(render(*clone), "CREATE GLOBAL TEMPORARY TABLE T ON COMMIT DELETE ROWS");
}

// A link between two nodes in different branches, several levels down: a clone of a node that holds
// both keeps the link between the copies; a clone of the branch that holds only the linker drops it.
TEST(Links, DeepLinksFollowTheCopyThatHoldsBothEnds) {
  auto target = new CSQLAttr("TARGET");
  auto linker = new CSQLAttr("LINKER", "", "", "", "", "", nullptr, target);
  linker->SetAfterPrefix([](std::string& text, std::string&, std::string&, CSQLClause* linked) {
    text += linked != nullptr ? "to " + linked->GetValue() : std::string("none");
    return 1;
  });
  auto root = with(std::make_unique<Named>("ROOT"),
                   with(std::make_unique<Named>("MIDDLE"),
                        with(std::make_unique<Named>("A"), with(std::make_unique<Named>("A1"), linker)),
                        with(std::make_unique<Named>("B"), target)));
  ASSERT_EQ(root->SetValue("MIDDLE;B;TARGET", "source"), SQL_OK);
  for (const char* from : {"", "MIDDLE"}) {
    CSQLClause* node = *from != 0 ? root->GetClause(from) : root.get();
    auto clone = node->Clone();
    const std::string prefix = *from != 0 ? "" : "MIDDLE;";
    ASSERT_EQ(clone->SetValue((prefix + "B;TARGET").c_str(), "copy"), SQL_OK) << from;
    std::string text;
    clone->GetClause((prefix + "A;A1;LINKER").c_str())->GetModifiedSQL("*", text);
    EXPECT_EQ(trimmed(text), "to copy") << from;
  }
  auto branch = root->GetClause("MIDDLE;A")->Clone();
  std::string text;
  branch->GetClause("A1;LINKER")->GetModifiedSQL("*", text);
  EXPECT_EQ(trimmed(text), "none");
}

TEST(Links, RemovedAndClearedTargetsTakeTheirLinksAlong) {
  // A list item that another node links to: removing it, or clearing the list, clears the link.
  for (int how = 0; how < 3; ++how) {
    auto root = with(std::make_unique<Named>("R"), std::make_unique<CSQLList>("LIST"));
    auto* item = new CSQLAttr("ITEM");
    ASSERT_EQ(root->AddAttr("LIST", item), SQL_OK);
    auto linker = std::make_unique<CSQLAttr>("L", "", "", "", "", "", nullptr, item);
    linker->SetAfterPrefix([](std::string& text, std::string&, std::string&, CSQLClause* linked) {
      text += linked != nullptr ? linked->GetType() : std::string("none");
      return 1;
    });
    if (how == 0) root->GetClause("LIST")->RemoveAttr("ITEM");
    if (how == 1) root->GetClause("LIST")->Clear();
    if (how == 2) root.reset();
    EXPECT_EQ(render(*linker), "none") << how;
  }
}

TEST(Links, DestroyedLinkerLeavesNothingBehind) {
  auto target = std::make_unique<CSQLAttr>("T");
  for (int i = 0; i < 3; ++i) {
    auto linker = std::make_unique<CSQLAttr>("L", "", "", "", "", "", nullptr, target.get());
    auto clone = linker->Clone();  // its link names a node outside the copy: dropped
  }
  target.reset();  // would write through freed linkers if any were still registered
  SUCCEED();
}

// Every node of every class, cloned; the original destroyed; the clone filled and written in the
// host's loop. Run under the sanitizers, this finds any link left pointing into the original.
TEST(Links, ClonesOfEveryNodeOutliveTheirSource) {
  for (const NodeClass& c : NodeClasses()) {
    for (int release = kFirstRelease; release <= kLastRelease; ++release) {
      std::vector<std::unique_ptr<CSQLClause>> clones;
      {
        auto root = c.make(release);
        std::vector<CSQLClause*> nodes{root.get()};
        for (std::size_t i = 0; i < nodes.size(); ++i) {
          for (int k = 0; k < nodes[i]->GetLength(); ++k)
            nodes.push_back(nodes[i]->GetChild(k));
        }
        for (CSQLClause* node : nodes)
          clones.push_back(node->Clone());
      }
      for (auto& clone : clones) {
        std::vector<CSQLClause*> nodes{clone.get()};
        for (std::size_t i = 0; i < nodes.size(); ++i) {
          for (int k = 0; k < nodes[i]->GetLength(); ++k)
            nodes.push_back(nodes[i]->GetChild(k));
          if (dynamic_cast<CSQLAttr*>(nodes[i]) != nullptr) {
            const std::string value = i % 3 == 0 ? "TEMPORARY" : nodes[i]->GetType();
            nodes[i]->SetValue(nullptr, value.c_str());
          }
        }
        int passes = 0;
        do {
          std::string text;
          clone->GetModifiedSQL("*", text);
          clone->RefreshUsed();
        } while (clone->hasUnused() && ++passes <= static_cast<int>(nodes.size()));
        EXPECT_FALSE(clone->hasUnused()) << c.name << " at " << release << ": " << clone->GetType();
      }
    }
  }
}

}  // namespace
}  // namespace qarvelt::testing
