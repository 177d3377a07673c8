// A small vocabulary for building trees in init(), so that each tree reads like the table that
// describes it: one line per row, in child order.
//
//   void CSQLClauseAllocateExtent::init() {
//     using namespace build;
//     attach(this,
//            leaf("EXTENT", "ALLOCATE ")
//                .with(And({"(", ")"},
//                          leaf("SIZE", "SIZE "),
//                          leaf("DATAFILE", "DATAFILE '", "'"),
//                          leaf("INSTANCE", "INSTANCE "))));
//   }
//
// The words:
//   leaf(name, prefix, suffix, postfix, validator)  an attribute leaf (CSQLAttr); the texts in the
//                                                   order of the tree tables, "" and IsValid by default
//   And({prefix, postfix}, children...)             an AND container (all children written)
//   And(children...)                                the same without texts
//   Or({prefix, postfix}, children...) / Or(...)    an OR container (one alternative per pass)
//   list(name, separator, prefix, postfix)          a list for host-appended items
//   clause<T>(nOraVersion)                          a nested clause, built as T(true, nOraVersion)
//   node(pointer)                                   any other node, built by hand (takes ownership)
//   named(name, children...)                        a named clause node of no class of its own, holding
//                                                   the children ("C_ON_RANGE" of CREATE INDEX)
//   when(condition, node)                           a release-code gate: the node, or nothing
//   attach(parent, children...)                     appends the children to parent, in order
//
// Every word returns a Node, which owns what it holds until attach() (or with()) hands it to its
// parent. A Node can be refined before it is attached:
//   .with(children...)        children below the node (a leaf with children, a container's content)
//   .validator(fn)            the leaf's validator
//   .linked(clause)           the leaf's linked clause, handed to its after-prefix callback
//   .afterPrefix(cb) / .afterPostfix(cb)
//   .keep(pointer)            remembers the raw node, for links between nodes of one tree; the
//                             pointer is set when that expression runs, and C++ leaves the order of
//                             a call's arguments open, so use it in a later statement:
//                               attach(this, leaf("TEMPORARY", "", "", " TABLE").keep(temporary));
//                               attach(this, leaf("COMMIT", "ON COMMIT ").linked(temporary));
//                             A node kept under a gate must be built only when the gate is open
//                             (if (v >= 3) attach(...keep(p))): when() evaluates its node even
//                             when closed, and the pointer would name a node that is gone.
//
// Release-code gates read as conditions on the code: when(v >= 2, leaf("BUFFER_POOL", "BUFFER_POOL "))
// adds the leaf from release code 2 on; a shape chosen by code is a plain conditional,
// v < 3 ? oldShape() : newShape(). An empty Node (a gate that is closed) is skipped by attach().
#ifndef QARVELT_CORE_BUILDER_H
#define QARVELT_CORE_BUILDER_H

#include <memory>
#include <type_traits>
#include <utility>

#include "qarvelt/core/attr.h"
#include "qarvelt/core/clause.h"
#include "qarvelt/core/cloneable.h"
#include "qarvelt/core/container.h"
#include "qarvelt/core/list.h"

namespace qarvelt::build {

// A clause node that is only a name and its children: the sub-clauses that need a path segment but
// no behaviour of their own. Its clone copies name and children like any node's.
class NamedNode : public Cloneable<NamedNode> {
 public:
  explicit NamedNode(TreeText name) : Cloneable(kLatestRelease) { setup(name, false); }
  explicit NamedNode(bool bInit = true, int nOraVersion = kLatestRelease) : Cloneable(nOraVersion) {
    setup("", bInit);
  }
};

class Node {
 public:
  Node() = default;
  explicit Node(CSQLClause* node) : m_node(node) {}
  explicit Node(std::unique_ptr<CSQLClause> node) : m_node(std::move(node)) {}

  // Appends children below this node, skipping empty ones.
  template <class... Children>
  Node with(Children&&... children) && {
    reserveFor(m_node.get(), sizeof...(Children));
    (appendTo(m_node.get(), std::forward<Children>(children)), ...);
    return std::move(*this);
  }
  Node validator(SQLValidator fn) &&;
  Node linked(CSQLClause* clause) &&;
  Node afterPrefix(SQLCallback cb) &&;
  Node afterPostfix(SQLCallback cb) &&;
  template <class T>
  Node keep(T*& out) && {
    out = dynamic_cast<T*>(m_node.get());
    return std::move(*this);
  }

  explicit operator bool() const { return m_node != nullptr; }
  CSQLClause* get() const { return m_node.get(); }
  std::unique_ptr<CSQLClause> release() { return std::move(m_node); }

  // Hands `child` to `parent` (through AddAttr with a null path); an empty child is skipped.
  static void appendTo(CSQLClause* parent, Node&& child);
  // Makes room for `count` more children of `parent`, so that a listing grows its vector once.
  static void reserveFor(CSQLClause* parent, std::size_t count);
  // The texts of a node the words make: literals stay views into the listing.
  static Node named(std::unique_ptr<CSQLClause> node, TreeText name);
  static Node around(std::unique_ptr<CSQLClause> node, TreeText prefix, TreeText suffix, TreeText postfix);

 private:
  std::unique_ptr<CSQLClause> m_node;
};

Node leaf(TreeText name,
          TreeText prefix = "",
          TreeText suffix = "",
          TreeText postfix = "",
          SQLValidator validator = nullptr);

Node list(TreeText name = "LIST", const char* separator = " ", TreeText prefix = "", TreeText postfix = "");

inline Node node(CSQLClause* raw) {
  return Node(raw);
}

template <class T>
Node clause(int nOraVersion) {
  return Node(std::make_unique<T>(true, nOraVersion));
}

template <class... Children>
Node named(TreeText name, Children&&... children) {
  return Node(std::make_unique<NamedNode>(name)).with(std::forward<Children>(children)...);
}

inline Node when(bool condition, Node node) {
  return condition ? std::move(node) : Node();
}

// The prefix and postfix of a container, written as one braced pair: And({"(", ")"}, ...).
struct Around {
  TreeText prefix;
  TreeText postfix;
};

template <class... Children>
Node And(Around texts, Children&&... children) {
  return Node::around(std::make_unique<CSQLContAND>(false), texts.prefix, "", texts.postfix)
      .with(std::forward<Children>(children)...);
}

template <class... Children>
Node And(Node first, Children&&... rest) {
  return And(Around{"", ""}, std::move(first), std::forward<Children>(rest)...);
}

template <class... Children>
Node Or(Around texts, Children&&... children) {
  return Node::around(std::make_unique<CSQLContOR>(false), texts.prefix, "", texts.postfix)
      .with(std::forward<Children>(children)...);
}

template <class... Children>
Node Or(Node first, Children&&... rest) {
  return Or(Around{"", ""}, std::move(first), std::forward<Children>(rest)...);
}

template <class... Children>
void attach(CSQLClause* parent, Children&&... children) {
  Node::reserveFor(parent, sizeof...(Children));
  (Node::appendTo(parent, std::forward<Children>(children)), ...);
}

}  // namespace qarvelt::build

#endif  // QARVELT_CORE_BUILDER_H
