#include "qarvelt/core/builder.h"

#include "qarvelt/util/util.h"

namespace qarvelt::build {

void Node::appendTo(CSQLClause* parent, Node&& child) {
  if (parent == nullptr || !child) return;
  parent->AddAttr(nullptr, child.release());
}

void Node::reserveFor(CSQLClause* parent, std::size_t count) {
  if (parent == nullptr) return;
  auto& children = parent->children();
  children.reserve(children.size() + count);
}

Node Node::validator(SQLValidator fn) && {
  if (m_node != nullptr && fn != nullptr) m_node->setValidator(fn);
  return std::move(*this);
}

Node Node::linked(CSQLClause* clause) && {
  if (m_node != nullptr) m_node->setLinked(clause);
  return std::move(*this);
}

Node Node::afterPrefix(SQLCallback cb) && {
  if (m_node != nullptr) m_node->SetAfterPrefix(cb);
  return std::move(*this);
}

Node Node::afterPostfix(SQLCallback cb) && {
  if (m_node != nullptr) m_node->SetAfterPostfix(cb);
  return std::move(*this);
}

Node Node::named(std::unique_ptr<CSQLClause> node, TreeText name) {
  node->setName(name);
  return Node(std::move(node));
}

Node Node::around(std::unique_ptr<CSQLClause> node, TreeText prefix, TreeText suffix, TreeText postfix) {
  node->setPrefix(prefix);
  node->setSuffix(suffix);
  node->setPostfix(postfix);
  return Node(std::move(node));
}

Node leaf(TreeText name, TreeText prefix, TreeText suffix, TreeText postfix, SQLValidator validator) {
  Node made = Node::around(Node::named(std::make_unique<CSQLAttr>(false, kLatestRelease), name).release(),
                           prefix,
                           suffix,
                           postfix);
  // No validator accepts every value, as CSQLUtil::IsValid does.
  if (validator != &CSQLUtil::IsValid) return std::move(made).validator(validator);
  return made;
}

Node list(TreeText name, const char* separator, TreeText prefix, TreeText postfix) {
  return Node::around(
      Node::named(std::make_unique<CSQLList>("", separator, "", ""), name).release(), prefix, "", postfix);
}

}  // namespace qarvelt::build
