// Subtrees not built yet: the shared shapes of the classes, the values held beside them, and the
// walks and the writer that read the two as the built nodes would be read.
#include "shape.h"

#include <array>
#include <map>
#include <memory>
#include <mutex>
#include <tuple>
#include <typeindex>
#include <typeinfo>
#include <utility>

#include "qarvelt/core/attr.h"
#include "qarvelt/core/builder.h"
#include "qarvelt/core/container.h"
#include "wrap.h"

namespace qarvelt {

using detail::HeldValues;
using detail::Shape;
using detail::ShapeKind;
using detail::ShapeNode;
using detail::SlotBit;

namespace {

// The shapes of the process, made once per class and release code. Never destroyed: the prototypes
// they point into are nodes, and nodes may be freed after every other static object is gone.
struct Shapes {
  std::mutex mutex;
  std::map<std::pair<std::type_index, int>, const Shape*> byClass;  // null: the class shares none
};

Shapes& shapes() {
  static Shapes* const all = new Shapes();
  return *all;
}

// The last shapes a thread looked up, by the address of the class's type record: one load and two
// comparisons for the items of a list, which are all of one class.
struct CachedShape {
  const std::type_info* type = nullptr;
  int code = -1;
  const Shape* shape = nullptr;
};
constexpr std::size_t kCached = 32;
#if defined(__GNUC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local std::array<CachedShape, kCached>
    t_cached{};

ShapeKind kindOf(const CSQLClause& node) {
  const std::type_info& type = typeid(node);
  if (type == typeid(CSQLAttr) || type == typeid(CSQLAttrDataType)) return ShapeKind::Leaf;
  if (type == typeid(CSQLContAND)) return ShapeKind::And;
  if (type == typeid(CSQLContOR)) return ShapeKind::Or;
  if (type == typeid(build::NamedNode)) return ShapeKind::Named;
  return ShapeKind::Opaque;
}

}  // namespace

// ---- the shapes ---------------------------------------------------------------------------------

bool CSQLClause::flattenShape(CSQLClause& node, Shape& shape, int& slots) {
  for (auto& owned : node.children()) {
    CSQLClause& child = *owned;
    const ShapeKind kind = kindOf(child);
    // Whatever the kind, the writer must be able to pass over the node while nothing is set.
    if (child.m_nModified != 0 || child.m_nHooks != 0) return false;
    if (child.m_rare && (child.m_rare->linked != nullptr || !child.m_rare->linkers.empty())) return false;
    const std::size_t index = shape.nodes.size();
    const int firstSlot = slots;
    shape.nodes.push_back(ShapeNode{&child, 0, 0, 0, kind, isContainer(&child)});
    if (kind != ShapeKind::Opaque) {
      if (!child.m_strInit.empty() || !child.m_strValue.empty() || child.m_bUsed) return false;
      if (kind == ShapeKind::Leaf) {
        if (slots == detail::kMaxSlots) return false;
        shape.nodes[index].slot = static_cast<std::uint8_t>(slots++);
      }
      // children() builds a data type's sizes: they are part of the shape.
      if (!flattenShape(child, shape, slots)) return false;
    }
    ShapeNode& flat = shape.nodes[index];
    flat.end = static_cast<std::uint32_t>(shape.nodes.size());
    for (int s = firstSlot; s < slots; ++s)
      flat.slots |= SlotBit(s);
  }
  return true;
}

const Shape* CSQLClause::sharedShape(CSQLClause& pending) {
  const std::type_info& type = typeid(pending);
  const int code = pending.m_nPendingCode;
  CachedShape& cached =
      t_cached[(reinterpret_cast<std::uintptr_t>(&type) / 16 + static_cast<std::uintptr_t>(code)) % kCached];
  if (cached.type == &type && cached.code == code) return cached.shape;

  Shapes& all = shapes();
  const auto key = std::make_pair(std::type_index(type), code);
  const Shape* found = nullptr;
  bool known = false;
  {
    std::lock_guard<std::mutex> lock(all.mutex);
    if (auto it = all.byClass.find(key); it != all.byClass.end()) {
      found = it->second;
      known = true;
    }
  }
  if (!known) {
    // Made outside the lock: building the prototype may meet other classes' shapes.
    auto shape = std::make_unique<Shape>();
    std::unique_ptr<CSQLClause> prototype;
    bool shared = !pending.buildsFromOwnState();
    if (shared) {
      prototype.reset(pending.operator*());
      const CSQLClause* made = prototype.get();
      shared = made != nullptr && typeid(*made) == type && made->m_nPendingCode == code;
    }
    int slots = 0;
    if (shared) {
      // init() may also change the node itself (a callback, a text): then the node must be built.
      const auto own = [](const CSQLClause& node) {
        return std::make_tuple(node.m_name.str(),
                               node.prefixText(),
                               node.suffixText(),
                               node.postfixText(),
                               node.afterPrefixFn(),
                               node.afterPostfixFn(),
                               node.validatorFn(),
                               node.linkedNode(),
                               node.m_strInit,
                               node.m_strValue,
                               node.m_bUsed);
      };
      const auto before = own(*prototype);
      prototype->children();
      shared = own(*prototype) == before && flattenShape(*prototype, *shape, slots) && slots > 0;
    }
    std::lock_guard<std::mutex> lock(all.mutex);
    auto [it, inserted] = all.byClass.emplace(key, nullptr);
    if (inserted && shared) {
      prototype.release();  // kept with the shape, which points into it
      it->second = shape.release();
    }
    found = it->second;
  }
  cached = CachedShape{&type, code, found};
  return found;
}

// ---- the walks ----------------------------------------------------------------------------------

int CSQLClause::walkUnbuilt(
    WalkOp op, const char* path, std::string_view head, const char* rest, const char* value) {
  const Shape* shape = m_held != nullptr ? m_held->shape : sharedShape(*this);
  if (shape == nullptr) return kBuildFirst;
  int slot = -1;
  const int result =
      findShaped(*shape, 0, static_cast<std::uint32_t>(shape->nodes.size()), path, head, rest, value, slot);
  if (result != SQL_OK || slot < 0) return result;
  if (m_held == nullptr) m_held = new HeldValues(shape);
  holdValue(op, slot, value);
  return SQL_OK;
}

int CSQLClause::findShaped(const Shape& shape,
                           std::uint32_t first,
                           std::uint32_t end,
                           const char* path,
                           std::string_view head,
                           const char* rest,
                           const char* value,
                           int& slot) {
  for (std::uint32_t i = first; i < end; i = shape.nodes[i].end) {
    const ShapeNode& node = shape.nodes[i];
    const char* sub;
    if (isNamed(node.node, head)) {
      sub = rest;
    } else if (node.container) {
      if (node.kind == ShapeKind::And || node.kind == ShapeKind::Or) {
        const int result = findShaped(shape, i + 1, node.end, path, head, rest, value, slot);
        if (result == SQL_OK || result == kBuildFirst) return result;
        continue;
      }
      sub = path;
    } else {
      continue;
    }
    const int result = enterShaped(shape, i, sub, value, slot);
    if (result == SQL_OK || result == kBuildFirst) return result;
  }
  return SQL_NOT_FOUND;
}

int CSQLClause::enterShaped(
    const Shape& shape, std::uint32_t index, const char* sub, const char* value, int& slot) {
  const ShapeNode& node = shape.nodes[index];
  if (sub == nullptr) {
    switch (node.kind) {
      case ShapeKind::Opaque:
        return kBuildFirst;
      case ShapeKind::And:
      case ShapeKind::Or:
        return SQL_NOT_FOUND;  // a container holds no value
      case ShapeKind::Named:
        slot = -1;  // a named node accepts a value and keeps none
        return SQL_OK;
      case ShapeKind::Leaf:
        if (const SQLValidator validator = node.node->validatorFn()) {
          if (const int refused = validator(value)) return refused;
        }
        slot = node.slot;
        return SQL_OK;
    }
  }
  if (node.kind == ShapeKind::Opaque) return kBuildFirst;
  std::string_view head;
  const char* rest = splitPath(sub, head);
  return findShaped(shape, index + 1, node.end, sub, head, rest, value, slot);
}

void CSQLClause::holdValue(WalkOp op, int slot, const char* value) {
  HeldValues::Entry& entry = m_held->at(slot);
  if (op == WalkOp::SetInit) entry.init = value;
  entry.value = value;
  setHeldModified(slot, entry.init != entry.value);
}

void CSQLClause::setHeldModified(int slot, bool modified) {
  const std::uint64_t bit = SlotBit(slot);
  if (((m_held->modified & bit) != 0) == modified) return;
  m_held->modified ^= bit;
  addCounts(modified ? 1 : -1, 0);
}

// ---- the writer ----------------------------------------------------------------------------------
//
// The shaped writer writes every node in place, at the end of its parent's text, instead of into a
// piece of its own that the parent then copies: `text` from `base` on is the node's text. What the
// join rule does with a piece (trim it, trim the text before it, one blank unless the text ends
// with "(" or ".") is done to the written part where it stands.

namespace {

// The text of a node written from `base` on, and after it a blank at `from` and a child's text
// from `from + 1` on: joins the child's text to the node's by the join rule, or takes it back when
// it is blank. The blank put in before the child is where the join's own blank goes, so the child's
// text moves only when the node's text ends with "(" or "." or either side has blanks to lose.
void joinInPlace(std::string& text, std::size_t base, std::size_t from) {
  std::size_t first = from + 1;
  std::size_t last = text.size();
  while (first < last && detail::IsBlank(text[first]))
    ++first;
  while (last > first && detail::IsBlank(text[last - 1]))
    --last;
  if (first == last) {
    text.resize(from);
    return;
  }
  text.resize(last);
  std::size_t end = from;
  while (end > base && detail::IsBlank(text[end - 1]))
    --end;
  // Everything from `end` to `first` is blank.
  if (end == base || (text[end - 1] != '(' && text[end - 1] != '.')) text[end++] = ' ';
  if (end != first) text.erase(end, first - end);
}

}  // namespace

void CSQLClause::writeShapedChildren(std::uint32_t first,
                                     std::uint32_t end,
                                     std::string& text,
                                     std::size_t base) {
  const Shape& shape = *m_held->shape;
  for (std::uint32_t i = first; i < end; i = shape.nodes[i].end)
    writeShapedChild(i, text, base);
}

bool CSQLClause::writeShapedChild(std::uint32_t index, std::string& text, std::size_t base) {
  if ((m_held->shape->nodes[index].slots & m_held->modified) == 0) return false;  // quiet
  const std::size_t from = text.size();
  text += ' ';
  if (writeShaped(index, text, from + 1) != SQL_OK) {
    text.resize(from);
    return false;
  }
  joinInPlace(text, base, from);
  return true;
}

int CSQLClause::writeShaped(std::uint32_t index, std::string& text, std::size_t base) {
  const Shape& shape = *m_held->shape;
  const ShapeNode& node = shape.nodes[index];
  const CSQLClause& proto = *node.node;
  switch (node.kind) {
    case ShapeKind::Leaf: {
      const std::uint64_t bit = SlotBit(node.slot);
      const bool modified = (m_held->modified & bit) != 0;
      if (modified) {
        detail::appendText(text, proto.prefixText());
        text += m_held->find(node.slot)->value;
        detail::appendText(text, proto.suffixText());
      }
      if (index + 1 < node.end) writeShapedChildren(index + 1, node.end, text, base);
      if (modified) {
        detail::appendText(text, proto.postfixText());
        m_held->used |= bit;
      }
      break;
    }
    case ShapeKind::And:
      detail::appendText(text, proto.prefixText());
      writeShapedChildren(index + 1, node.end, text, base);
      detail::closeWrap(proto.prefixText(), proto.postfixText(), text, base);
      break;
    case ShapeKind::Named:
      writeShapedChildren(index + 1, node.end, text, base);
      break;
    case ShapeKind::Or: {
      detail::appendText(text, proto.prefixText());
      for (std::uint32_t i = index + 1; i < node.end; i = shape.nodes[i].end) {
        // The first alternative with something to write is the chosen one.
        if (!writeShapedChild(i, text, base)) continue;
        detail::closeWrap(proto.prefixText(), proto.postfixText(), text, base);
        return SQL_OK;
      }
      detail::closeWrap(proto.prefixText(), proto.postfixText(), text, base);
      break;
    }
    case ShapeKind::Opaque:
      break;  // never modified while the subtree is not built
  }
  return text.size() == base ? SQL_NOTHING : SQL_OK;
}

// ---- used marks, Clear, building ----------------------------------------------------------------

void CSQLClause::resetHeld() {
  const Shape& shape = *m_held->shape;
  // Every leaf after the leaves below it, as the recursion of resetUsedAttrs goes: a written leaf
  // whose children still hold unwritten changes keeps its value.
  for (std::size_t i = shape.nodes.size(); i-- > 0;) {
    const ShapeNode& node = shape.nodes[i];
    if (node.kind != ShapeKind::Leaf) continue;
    const std::uint64_t bit = SlotBit(node.slot);
    if ((m_held->used & bit) == 0) continue;
    if ((m_held->modified & ~m_held->used & node.slots & ~bit) != 0) continue;
    m_held->used &= ~bit;
    if (HeldValues::Entry* entry = m_held->find(node.slot)) {
      entry->value = entry->init;
      setHeldModified(node.slot, false);
    }
  }
}

void CSQLClause::dropHeld() {
  if (m_held == nullptr) return;
  addCounts(-m_held->modifiedCount(), 0);
  delete m_held;
  m_held = nullptr;
}

void CSQLClause::replayHeld(CSQLClause* node,
                            const Shape& shape,
                            std::uint32_t first,
                            std::uint32_t end,
                            HeldValues& held,
                            std::uint64_t touched) {
  auto& built = node->children();
  std::size_t k = 0;
  for (std::uint32_t i = first; i < end && k < built.size(); i = shape.nodes[i].end, ++k) {
    const ShapeNode& flat = shape.nodes[i];
    if ((flat.slots & touched) == 0) continue;
    CSQLClause* child = built[k].get();
    if (flat.kind == ShapeKind::Leaf) {
      if (const HeldValues::Entry* entry = held.find(flat.slot)) {
        child->m_strInit = entry->init;
        child->m_strValue = entry->value;
      }
      child->m_bUsed = (held.used & SlotBit(flat.slot)) != 0;
      child->noteValue();
    }
    replayHeld(child, shape, i + 1, flat.end, held, touched);
  }
}

void CSQLClause::build() const {
  auto* self = const_cast<CSQLClause*>(this);
  const int current = m_nOraVersion;
  self->m_nOraVersion = m_nPendingCode;
  self->m_nPendingCode = -1;
  // The held values leave the counts and come back with the leaves that take them.
  std::unique_ptr<HeldValues> held(std::exchange(self->m_held, nullptr));
  if (held) self->addCounts(-held->modifiedCount(), 0);
  self->init();
  self->m_nOraVersion = current;
  if (!held) return;
  const std::uint64_t touched = held->touched();
  if (touched != 0)
    replayHeld(self, *held->shape, 0, static_cast<std::uint32_t>(held->shape->nodes.size()), *held, touched);
}

}  // namespace qarvelt
