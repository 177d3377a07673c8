// The host's pass loop (write, RefreshUsed, again while hasUnused) ends for every tree: each pass
// consumes at least one change, so a loop never needs more passes than there are changes. Checked
// exhaustively over every class at every release code for one leaf set, and for one leaf set in each
// of two alternatives of every OR container, then over random settings of many leaves.
#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue.h"

namespace qarvelt::testing {
namespace {

using Trail = std::vector<int>;  // child indices from the root

struct Found {
  Trail trail;
  CSQLClause* node;
};

void walkTree(CSQLClause* node, Trail& trail, std::vector<Found>& leaves, std::vector<Found>& ors) {
  for (int i = 0; i < node->GetLength(); ++i) {
    CSQLClause* child = node->GetChild(i);
    trail.push_back(i);
    if (dynamic_cast<CSQLAttr*>(child) != nullptr) leaves.push_back({trail, child});
    if (child->GetSubType() == "OR") ors.push_back({trail, child});
    walkTree(child, trail, leaves, ors);
    trail.pop_back();
  }
}

// Every class at every release code, built, with its leaves and OR containers found.
struct Built {
  const NodeClass& kind;
  int release;
  std::unique_ptr<CSQLClause> root;
  std::vector<Found> leaves, ors;
};

template <class Fn>
void forEveryTree(Fn&& fn) {
  for (const NodeClass& c : NodeClasses()) {
    for (int release = kFirstRelease; release <= kLastRelease; ++release) {
      Built built{c, release, c.make(release), {}, {}};
      Trail trail;
      walkTree(built.root.get(), trail, built.leaves, built.ors);
      fn(built);
    }
  }
}

bool startsWith(const Trail& trail, const Trail& prefix) {
  return trail.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), trail.begin());
}

// Sets a leaf to the first of `values` that its validator accepts; false when it takes none.
bool setLeaf(CSQLClause* leaf, const std::vector<std::string>& values) {
  for (const std::string& value : values) {
    if (leaf->SetValue(nullptr, value.c_str()) == SQL_OK && leaf->IsModified(nullptr)) return true;
  }
  return false;
}

std::vector<std::string> valuesFor(const CSQLClause* leaf) {
  // A number, the keyword itself (flag leaves take their keyword) and its NO form.
  return {"1", leaf->GetType(), "NO" + leaf->GetType()};
}

// Runs the host loop; true when it ended within `changes` passes (one pass at least).
bool loopEnds(CSQLClause& root, int changes) {
  const int limit = std::max(changes, 1);
  for (int pass = 0; pass < limit; ++pass) {
    std::string text;
    root.GetModifiedSQL("*", text);
    root.RefreshUsed();
    if (!root.hasUnused()) return true;
  }
  return false;
}

std::string describe(const NodeClass& c, int release, const std::vector<const CSQLClause*>& leaves) {
  std::ostringstream out;
  out << c.name << " at " << release << ":";
  for (const CSQLClause* leaf : leaves)
    out << " " << leaf->GetType() << "=" << const_cast<CSQLClause*>(leaf)->GetValue();
  return out.str();
}

TEST(PassLoops, EveryOneAndTwoLeafSettingEnds) {
  std::vector<std::string> endless;
  int settings = 0;
  forEveryTree([&](Built& tree) {
    const NodeClass& c = tree.kind;
    const int release = tree.release;
    auto& root = tree.root;
    const std::vector<Found>& leaves = tree.leaves;
    auto check = [&](std::vector<const CSQLClause*> set) {
      ++settings;
      if (!loopEnds(*root, static_cast<int>(set.size())) && endless.size() < 40)
        endless.push_back(describe(c, release, set));
      root->Clear();
    };
    for (const Found& leaf : leaves) {
      for (const std::string& value : valuesFor(leaf.node)) {
        if (!setLeaf(leaf.node, {value})) continue;
        check({leaf.node});
      }
    }
    // One leaf in each of two alternatives: the first leaves of every pair of alternatives, and
    // every leaf of each alternative with the first leaf of another.
    for (const Found& orNode : tree.ors) {
      const std::size_t n = static_cast<std::size_t>(orNode.node->GetLength());
      std::vector<std::vector<const Found*>> inAlternative(n);
      for (const Found& leaf : leaves) {
        if (leaf.trail.size() <= orNode.trail.size() || !startsWith(leaf.trail, orNode.trail)) continue;
        inAlternative[static_cast<std::size_t>(leaf.trail[orNode.trail.size()])].push_back(&leaf);
      }
      auto setPair = [&](const Found* x, const Found* y) {
        if (setLeaf(x->node, valuesFor(x->node)) && setLeaf(y->node, valuesFor(y->node))) {
          check({x->node, y->node});
        } else {
          root->Clear();
        }
      };
      for (std::size_t a = 0; a < n; ++a) {
        if (inAlternative[a].empty()) continue;
        for (std::size_t b = a + 1; b < n; ++b) {
          if (!inAlternative[b].empty()) setPair(inAlternative[a][0], inAlternative[b][0]);
        }
        const std::size_t other = a == 0 ? 1 : 0;
        if (other >= n || inAlternative[other].empty()) continue;
        for (const Found* leaf : inAlternative[a])
          setPair(leaf, inAlternative[other][0]);
      }
    }
  });
  EXPECT_GT(settings, 10000);
  EXPECT_TRUE(endless.empty()) << endless.size() << " settings loop, among them:\n"
                               << ::testing::PrintToString(endless);
}

// Many leaves at once, with initial values too, as a host filling an ALTER statement does: the loop
// still ends within as many passes as there are modified leaves.
TEST(PassLoops, RandomSettingsOfManyLeavesEnd) {
  std::mt19937 random(20261124);
  const std::vector<std::string> pool = {"1", "2", "X", "NOCOMPRESS", "TEMPORARY", "PRESERVE", "CASCADE"};
  std::vector<std::string> endless;
  forEveryTree([&](Built& tree) {
    const NodeClass& c = tree.kind;
    const int release = tree.release;
    auto& root = tree.root;
    const std::vector<Found>& leaves = tree.leaves;
    if (leaves.empty()) return;
    for (int trial = 0; trial < 100; ++trial) {
      std::uniform_int_distribution<std::size_t> pick(0, leaves.size() - 1);
      const int count = 1 + static_cast<int>(random() % 24);
      for (int i = 0; i < count; ++i) {
        CSQLClause* leaf = leaves[pick(random)].node;
        if (random() % 4 == 0) leaf->SetInit(nullptr, pool[random() % pool.size()].c_str());
        const std::vector<std::string> own = valuesFor(leaf);
        leaf->SetValue(nullptr,
                       (random() % 2 ? own[random() % own.size()] : pool[random() % pool.size()]).c_str());
      }
      int changes = 0;
      for (const Found& leaf : leaves)
        changes += leaf.node->IsModified(nullptr) ? 1 : 0;
      if (!loopEnds(*root, changes) && endless.size() < 20)
        endless.push_back(std::string(c.name) + " at " + std::to_string(release) + ", trial " +
                          std::to_string(trial));
      root->Clear();
    }
  });
  EXPECT_TRUE(endless.empty()) << ::testing::PrintToString(endless);
}

}  // namespace
}  // namespace qarvelt::testing
