// A tree builds a subtree the first time something needs it and keeps counts that let the writer
// pass over untouched subtrees. Neither may show: for every class at every release code, a tree
// that is built only along the leaves a host sets writes, loops and answers exactly as one built
// whole; a node the writer passes over would have written nothing; the counts agree with a walk.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "catalogue.h"

namespace qarvelt::testing {
namespace {

using Trail = std::vector<int>;

// Builds every subtree, collecting the trails of the leaves.
void buildAll(CSQLClause* node, Trail& trail, std::vector<Trail>& leaves) {
  for (int i = 0; i < node->GetLength(); ++i) {
    CSQLClause* child = node->GetChild(i);
    trail.push_back(i);
    if (dynamic_cast<CSQLAttr*>(child) != nullptr) leaves.push_back(trail);
    buildAll(child, trail, leaves);
    trail.pop_back();
  }
}

CSQLClause* follow(CSQLClause* root, const Trail& trail) {
  for (int i : trail)
    root = root->GetChild(i);
  return root;
}

// Every pass of the host loop, with what the tree says between passes.
std::vector<std::string> passes(CSQLClause& root) {
  std::vector<std::string> out;
  for (int pass = 0; pass < 40; ++pass) {
    std::string text;
    const int result = root.GetModifiedSQL("*", text);
    out.push_back(std::to_string(result) + ":" + text + (root.IsModified("*") ? " M" : ""));
    root.RefreshUsed();
    if (!root.hasUnused()) break;
  }
  return out;
}

// The modified answer recomputed by a walk over the built tree.
bool anyModifiedByWalk(CSQLClause* node) {
  if (node->IsModified(nullptr)) return true;
  for (int i = 0; i < node->GetLength(); ++i) {
    if (anyModifiedByWalk(node->GetChild(i))) return true;
  }
  return false;
}

struct Setting {
  Trail leaf;
  bool init;
  std::string value;
};

std::vector<Setting> randomSettings(std::mt19937& random, const std::vector<Trail>& leaves) {
  static const std::vector<std::string> pool = {"1", "X", "NOCOMPRESS", "TEMPORARY", "CASCADE", ""};
  std::vector<Setting> settings;
  const int count = 1 + static_cast<int>(random() % 8);
  for (int i = 0; i < count; ++i)
    settings.push_back({leaves[random() % leaves.size()], random() % 4 == 0, pool[random() % pool.size()]});
  return settings;
}

void applySettings(CSQLClause* root, const std::vector<Setting>& settings) {
  for (const Setting& s : settings) {
    CSQLClause* leaf = follow(root, s.leaf);
    if (s.init) {
      leaf->SetInit(nullptr, s.value.c_str());
    } else {
      leaf->SetValue(nullptr, s.value.c_str());
    }
  }
}

// Every class at every release code, built whole, with the trails of its leaves (classes without
// leaves left out).
template <class Visit>
void forEveryClassBuiltWhole(Visit visit) {
  for (const NodeClass& c : NodeClasses()) {
    for (int release = kFirstRelease; release <= kLastRelease; ++release) {
      auto whole = c.make(release);
      Trail trail;
      std::vector<Trail> leaves;
      buildAll(whole.get(), trail, leaves);
      if (!leaves.empty()) visit(c, release, whole, leaves);
    }
  }
}

TEST(LazyTrees, BuiltOnDemandBehavesAsBuiltWhole) {
  std::mt19937 random(7);
  std::vector<std::string> differing;
  forEveryClassBuiltWhole(
      [&](const NodeClass& c, int release, auto& whole, const std::vector<Trail>& leaves) {
        for (int trial = 0; trial < 12; ++trial) {
          const std::vector<Setting> settings = randomSettings(random, leaves);
          auto lazy = c.make(release);
          applySettings(whole.get(), settings);
          applySettings(lazy.get(), settings);
          // A clone taken before anything is written must write the same too.
          auto clone = lazy->Clone();
          const auto expected = passes(*whole);
          if (passes(*lazy) != expected || passes(*clone) != expected)
            differing.push_back(std::string(c.name) + " at " + std::to_string(release));
          whole->Clear();
        }
      });
  EXPECT_TRUE(differing.empty()) << ::testing::PrintToString(differing);
}

// The path a host would write for the node at `trail`: containers add no segment.
std::string pathOf(CSQLClause* root, const Trail& trail) {
  std::string path;
  for (int i : trail) {
    root = root->GetChild(i);
    if (root->GetType() == "CONTAINER") continue;
    if (!path.empty()) path += ';';
    path += root->GetType();
  }
  return path;
}

// Sets values by path on both trees; the result codes must agree.
bool setByPaths(std::mt19937& random,
                const std::vector<std::string>& paths,
                CSQLClause& whole,
                CSQLClause& lazy) {
  // Blanks and brackets at either end exercise the join rule.
  static const std::vector<std::string> pool = {"1", "X", "NOCOMPRESS", "CASCADE", "",   "-5",
                                                " ", "(", "S.",         " Y ",     "A )"};
  bool agree = true;
  const int count = 1 + static_cast<int>(random() % 10);
  for (int i = 0; i < count; ++i) {
    const std::string& path = paths[random() % paths.size()];
    const std::string& value = pool[random() % pool.size()];
    if (random() % 4 == 0) {
      agree =
          agree && whole.SetInit(path.c_str(), value.c_str()) == lazy.SetInit(path.c_str(), value.c_str());
    } else {
      agree =
          agree && whole.SetValue(path.c_str(), value.c_str()) == lazy.SetValue(path.c_str(), value.c_str());
    }
  }
  return agree;
}

// Values set by path below a subtree not built yet are held beside the shape of its class. A tree
// filled that way answers, writes and loops exactly as a tree built whole and filled by the same
// paths, and so do its clone and the tree cleared and filled again.
TEST(LazyTrees, ValuesSetByPathBehaveAsOnTreesBuiltWhole) {
  std::mt19937 random(13);
  std::vector<std::string> differing;
  forEveryClassBuiltWhole(
      [&](const NodeClass& c, int release, auto& whole, const std::vector<Trail>& leaves) {
        std::vector<std::string> paths;
        for (const Trail& leaf : leaves)
          paths.push_back(pathOf(whole.get(), leaf));
        const std::string where = std::string(c.name) + " at " + std::to_string(release);
        for (int trial = 0; trial < 6; ++trial) {
          auto lazy = c.make(release);
          if (!setByPaths(random, paths, *whole, *lazy)) differing.push_back(where + ": result");
          if (whole->IsModified("*") != lazy->IsModified("*") || whole->hasUnused() != lazy->hasUnused())
            differing.push_back(where + ": answers");
          auto clone = lazy->Clone();
          const auto expected = passes(*whole);
          if (passes(*lazy) != expected) differing.push_back(where + ": passes");
          if (passes(*clone) != expected) differing.push_back(where + ": clone");
          whole->Clear();
          lazy->Clear();
          if (!setByPaths(random, paths, *whole, *lazy)) differing.push_back(where + ": result after Clear");
          if (passes(*lazy) != passes(*whole)) differing.push_back(where + ": passes after Clear");
          whole->Clear();
        }
      });
  EXPECT_TRUE(differing.empty()) << ::testing::PrintToString(differing);
}

// What lets the writer skip a subtree: nothing modified below it, no callback and no writer that
// writes regardless. Checked node by node after random settings: such a node writes nothing, and
// the modified count of every node agrees with a walk.
TEST(LazyTrees, NodesPassedOverWriteNothingAndCountsAgree) {
  std::mt19937 random(11);
  std::vector<std::string> faults;
  for (const NodeClass& c : NodeClasses()) {
    auto root = c.make(kLastRelease);
    Trail trail;
    std::vector<Trail> leaves;
    buildAll(root.get(), trail, leaves);
    if (leaves.empty()) continue;
    applySettings(root.get(), randomSettings(random, leaves));
    std::vector<CSQLClause*> nodes{root.get()};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      CSQLClause* node = nodes[i];
      for (int k = 0; k < node->GetLength(); ++k)
        nodes.push_back(node->GetChild(k));
      if (node->IsModified("*") != anyModifiedByWalk(node)) faults.push_back(std::string(c.name) + ": count");
      if (node->IsModified("*") || node == root.get()) continue;
      std::string text;
      const int result = node->GetModifiedSQL("*", text);
      // Nodes the writer always visits may answer 0 without text: a plain container, and the ON
      // COMMIT leaf, which its callback finishes in a permanent table.
      const bool visited = node->GetType() == "CONTAINER" || node->GetType() == "COMMIT";
      if (!text.empty() || (result != SQL_NOTHING && !visited))
        faults.push_back(std::string(c.name) + ": " + node->GetType() + " wrote [" + text + "]");
    }
  }
  EXPECT_TRUE(faults.empty()) << ::testing::PrintToString(faults);
}

// The release gates are those of construction, even when the code changes before the tree is built.
TEST(LazyTrees, GatesAreThoseOfConstruction) {
  for (const NodeClass& c : NodeClasses()) {
    auto early = c.make(0);
    auto reference = c.make(0);
    early->SetOraVersion(kLastRelease);
    Trail trail;
    std::vector<Trail> leavesEarly, leavesReference;
    buildAll(early.get(), trail, leavesEarly);
    buildAll(reference.get(), trail, leavesReference);
    EXPECT_EQ(leavesEarly, leavesReference) << c.name;
  }
}

TEST(LazyTrees, CountsFollowListsAndCopies) {
  CSQLCreateTable table;
  const char* list = "C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST";
  ASSERT_EQ(table.AddAttr(list, std::make_unique<CSQLCreateTable::CSubSQLItemProp>("I1")), SQL_OK);
  ASSERT_EQ(table.SetValue("C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;I1;COLUMN", "C"), SQL_OK);
  EXPECT_TRUE(table.IsModified("*"));
  CSQLClause* prop = table.GetClause("C_RELATIONAL_TABLE;C_RELATIONAL_PROP");
  ASSERT_NE(prop, nullptr);
  auto copy = prop->Clone();
  EXPECT_TRUE(copy->IsModified("*"));
  ASSERT_EQ(table.GetClause(list)->RemoveAttr("I1"), SQL_OK);
  EXPECT_FALSE(table.IsModified("*"));
  EXPECT_TRUE(copy->IsModified("*"));
  copy->GetClause("LIST")->Clear();
  EXPECT_FALSE(copy->IsModified("*"));
}

}  // namespace
}  // namespace qarvelt::testing
