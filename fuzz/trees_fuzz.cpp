// Random sequences of public tree operations: the input bytes choose a class (every public statement,
// clause, item and core class), a release code and then operations on a small pool of live trees:
// set and init by paths found by walking the tree, append and remove list items, clear, copy and
// clone, destroy a tree that others were cloned from, callbacks, and writing in the host's pass loop.
// Sanitizers report memory faults; the target aborts when a pass loop runs more passes than there are
// changes plus one.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "catalogue.h"

using namespace qarvelt;
using qarvelt::testing::NodeClass;
using qarvelt::testing::NodeClasses;

namespace {

// Reads the input as a stream of choices; once it is used up every choice is 0.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
  bool empty() const { return m_pos >= m_size; }
  unsigned next() { return m_pos < m_size ? m_data[m_pos++] : 0u; }
  // A number below `bound` (bound > 0), from one or two bytes.
  std::size_t below(std::size_t bound) {
    const std::size_t raw = bound > 256 ? next() * 256u + next() : next();
    return raw % bound;
  }

 private:
  const std::uint8_t* m_data;
  std::size_t m_size;
  std::size_t m_pos = 0;
};

const char* const kValues[] = {"",
                               "1",
                               "20",
                               "X",
                               "SCOTT",
                               "EMP",
                               "NOCOMPRESS",
                               "COMPRESS",
                               "DELETE",
                               "PRESERVE",
                               "TEMPORARY",
                               "UNLIMITED",
                               "CASCADE",
                               "PUBLIC",
                               " ",
                               "(",
                               "A;B",
                               "*"};

std::string valueOf(Bytes& in) {
  const std::size_t pick = in.below(sizeof kValues / sizeof kValues[0] + 1);
  if (pick < sizeof kValues / sizeof kValues[0]) return kValues[pick];
  std::string raw;
  for (std::size_t n = in.below(8); n > 0; --n)
    raw += static_cast<char>(in.next());
  return raw;
}

// Callbacks a host might install: finish the node, empty its text, add the linked clause's value.
// Like the library's own, they act only on a node that has a change of its own to write (a container
// always has its prefix as text, which is no change): a callback that gives text to a node with
// nothing to write makes an OR container choose that alternative on every pass, and no loop ends.
int finish(std::string&, std::string& value, std::string& initial, CSQLClause*) {
  return value != initial ? 1 : 0;
}
int emptyText(std::string& text, std::string& value, std::string& initial, CSQLClause*) {
  if (value != initial) text.clear();
  return 0;
}
int readLinked(std::string& text, std::string& value, std::string& initial, CSQLClause* linked) {
  if (linked != nullptr && value != initial) text += linked->GetValue();
  return 0;
}
const SQLCallback kCallbacks[] = {nullptr, &finish, &emptyText, &readLinked};

// A node of a tree with the attribute path that reaches it from the root (containers add nothing).
struct Place {
  CSQLClause* node;
  std::string path;
};

void collect(CSQLClause* node, const std::string& path, std::vector<Place>& out) {
  for (int i = 0; i < node->GetLength(); ++i) {
    CSQLClause* child = node->GetChild(i);
    const bool container = child->GetType() == "CONTAINER";
    const std::string sub = container ? path : (path.empty() ? "" : path + ";") + child->GetType();
    out.push_back({child, sub});
    collect(child, sub, out);
  }
}

std::vector<Place> places(CSQLClause& root) {
  std::vector<Place> out{{&root, ""}};
  collect(&root, "", out);
  return out;
}

// QARVELT_FUZZ_TRACE=1 in the environment prints every operation, for reading a crash.
const bool kTrace = std::getenv("QARVELT_FUZZ_TRACE") != nullptr;

void dump(CSQLClause& node, int depth) {
  std::fprintf(stderr,
               "%*s%s %s [%s|%s] prefix '%s' postfix '%s'\n",
               depth * 2,
               "",
               node.GetType().c_str(),
               node.GetSubType().c_str(),
               node.GetInit().c_str(),
               node.GetValue().c_str(),
               node.GetPrefix().c_str(),
               node.GetPostfix().c_str());
  for (int i = 0; i < node.GetLength(); ++i)
    dump(*node.GetChild(i), depth + 1);
}

// The host's loop, bounded: it must end within as many passes as there are changes, plus one.
void passLoop(CSQLClause& root) {
  int changes = 0;
  for (const Place& place : places(root))
    changes += dynamic_cast<CSQLAttr*>(place.node) != nullptr && place.node->IsModified(nullptr) ? 1 : 0;
  int passes = 0;
  do {
    std::string text;
    root.GetModifiedSQL("*", text);
    if (kTrace) std::fprintf(stderr, "pass %d: %s\n", passes + 1, text.c_str());
    root.RefreshUsed();
    if (++passes > changes + 1) {
      std::fprintf(stderr,
                   "pass loop of %s runs past %d passes for %d changes\n",
                   root.GetType().c_str(),
                   passes,
                   changes);
      if (kTrace) dump(root, 0);
      std::abort();
    }
  } while (root.hasUnused());
}

// The classes a tree can hold below its root: all but the statements whose head writes text with
// nothing set (CREATE ...), which stand only as roots.
const std::vector<const NodeClass*>& itemClasses() {
  static const std::vector<const NodeClass*> items = [] {
    std::vector<const NodeClass*> out;
    for (const NodeClass& c : NodeClasses()) {
      std::string text;
      if (c.make(kLatestRelease)->GetModifiedSQL("*", text) != SQL_OK) out.push_back(&c);
    }
    return out;
  }();
  return items;
}

constexpr std::size_t kMaxTrees = 4;
constexpr std::size_t kMaxNodes = 20000;  // copies into a tree may grow it; keep a run short

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Bytes in(data, size);
  const std::vector<NodeClass>& classes = NodeClasses();
  std::vector<std::unique_ptr<CSQLClause>> trees;
  const NodeClass& first = classes[in.below(classes.size())];
  trees.push_back(first.make(static_cast<int>(in.below(kLatestRelease + 1))));
  if (kTrace) std::fprintf(stderr, "class %s at %d\n", first.name, trees.back()->GetOraVersion());
  for (int step = 0; step < 64 && !in.empty(); ++step) {
    CSQLClause& root = *trees[in.below(trees.size())];
    std::vector<Place> all = places(root);
    const Place& at = all[in.below(all.size())];
    const std::size_t op = in.below(12);
    if (kTrace) std::fprintf(stderr, "op %zu on %s at '%s'\n", op, root.GetType().c_str(), at.path.c_str());
    switch (op) {
      case 0:
        root.SetValue(at.path.empty() ? nullptr : at.path.c_str(), valueOf(in).c_str());
        break;
      case 1:
        root.SetInit(at.path.empty() ? nullptr : at.path.c_str(), valueOf(in).c_str());
        break;
      case 2:  // through a pointer the host kept
        at.node->SetValue(nullptr, valueOf(in).c_str());
        break;
      case 3: {  // append an item of any class that can stand inside a tree under a list (or any node)
        const std::vector<const NodeClass*>& items = itemClasses();
        auto item = items[in.below(items.size())]->make(static_cast<int>(in.below(kLatestRelease + 1)));
        if (all.size() < kMaxNodes)
          root.AddAttr(at.path.empty() ? nullptr : at.path.c_str(), std::move(item));
        break;
      }
      case 4:
        if (at.node->GetLength() > 0) {
          at.node->RemoveAttr(
              at.node->GetChild(static_cast<int>(in.below(at.node->GetLength())))->GetType().c_str());
        }
        break;
      case 5:
        at.node->Clear();
        break;
      case 6:  // a clone becomes a tree of its own
        if (trees.size() < kMaxTrees) trees.push_back(at.node->Clone());
        break;
      case 7:  // destroy a tree, possibly the source of clones
        if (trees.size() > 1)
          trees.erase(trees.begin() + static_cast<std::ptrdiff_t>(in.below(trees.size())));
        break;
      case 8: {  // copy one node over a built node of the same class, in the same tree or another
        // (Copy takes over name, texts, values and callbacks: over a node of another kind, a leaf's
        // callbacks and values land on a list or a container, which no host means to build.)
        CSQLClause& other = *trees[in.below(trees.size())];
        std::vector<Place> targets = places(other);
        CSQLClause* target = targets[in.below(targets.size())].node;
        if (all.size() + targets.size() < kMaxNodes && typeid(*target) == typeid(*at.node))
          at.node->Copy(target);
        break;
      }
      case 9:
        at.node->SetAfterPrefix(kCallbacks[in.below(4)]);
        at.node->SetAfterPostfix(kCallbacks[in.below(4)]);
        break;
      case 10: {
        std::string text;
        const std::string path = at.path.empty() ? "*" : at.path + ";*";
        root.GetModifiedSQL(path.c_str(), text);
        root.IsModified(path.c_str());
        root.GetClause(at.path.c_str());
        break;
      }
      default:
        passLoop(root);
        break;
    }
  }
  for (auto& tree : trees)
    passLoop(*tree);
  return 0;
}
