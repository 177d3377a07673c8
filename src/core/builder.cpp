#include "qarvelt/core/builder.h"

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

Node leaf(
    const char* name, const char* prefix, const char* suffix, const char* postfix, SQLValidator validator) {
  return Node(std::make_unique<CSQLAttr>(name, "", "", prefix, suffix, postfix, validator));
}

Node list(const char* name, const char* separator, const char* prefix, const char* postfix) {
  return Node(std::make_unique<CSQLList>(name, separator, prefix, postfix));
}

}  // namespace qarvelt::build
