// The shape of a clause class: the subtree its init() builds for one release code, flattened in
// preorder, shared by every node of that class and code. A node whose subtree is not built yet keeps
// the values a host sets below it beside that shape (HeldValues) and builds the subtree only when an
// operation needs the nodes themselves. The writer and the path walks of SetValue and SetInit read
// the shape with the held values exactly as they would read the built nodes.
//
// Only plain nodes take part: leaves (CSQLAttr, CSQLAttrDataType), AND and OR containers and named
// nodes, without callbacks, links or values of their own. Any other node of the subtree is opaque: it
// must be untouched and quiet, and a walk that would enter it builds the subtree first.
#ifndef QARVELT_SRC_CORE_SHAPE_H
#define QARVELT_SRC_CORE_SHAPE_H

#include <cstdint>
#include <string>
#include <vector>

#include "qarvelt/core/clause.h"

namespace qarvelt::detail {

enum class ShapeKind : std::uint8_t { Leaf, And, Or, Named, Opaque };

struct ShapeNode {
  const CSQLClause* node;  // the node of the class's prototype: name, texts and validator
  std::uint64_t slots;     // the leaves of this subtree, the node included, as a mask of slots
  std::uint32_t end;       // the index after this node's subtree
  std::uint8_t slot;       // a leaf's own slot
  ShapeKind kind;
  bool container;  // named "CONTAINER": walks pass through it
};

// Siblings follow each other by `end`: the children of node i are i + 1, nodes[i + 1].end, ...
struct Shape {
  std::vector<ShapeNode> nodes;  // the root (the class's node itself) left out
};

// At most this many leaves: a slot is a bit of the masks.
constexpr int kMaxSlots = 64;

inline std::uint64_t SlotBit(int slot) {
  return std::uint64_t{1} << slot;
}

// What a host set below a node whose subtree is not built yet: per leaf slot its initial and current
// value and its used mark. `modified` holds the slots whose values differ, as the counts of a built
// subtree would.
struct HeldValues {
  static void* operator new(std::size_t size) { return AllocateNode(size); }
  static void operator delete(void* block, std::size_t size) noexcept { FreeNode(block, size); }

  struct Entry {
    int slot;
    std::string init;
    std::string value;
  };

  explicit HeldValues(const Shape* s) : shape(s) {}

  Entry* find(int slot) {
    for (Entry& entry : entries) {
      if (entry.slot == slot) return &entry;
    }
    return nullptr;
  }
  Entry& at(int slot) {
    if (Entry* entry = find(slot)) return *entry;
    if (entries.empty()) entries.reserve(4);
    entries.push_back(Entry{slot, std::string(), std::string()});
    return entries.back();
  }
  int modifiedCount() const { return __builtin_popcountll(modified); }
  // The slots holding anything a built subtree would have to receive.
  std::uint64_t touched() const {
    std::uint64_t mask = used;
    for (const Entry& entry : entries)
      mask |= SlotBit(entry.slot);
    return mask;
  }

  const Shape* shape;
  std::uint64_t modified = 0;
  std::uint64_t used = 0;
  std::vector<Entry, NodeAllocator<Entry>> entries;
};

}  // namespace qarvelt::detail

#endif  // QARVELT_SRC_CORE_SHAPE_H
