#include "qarvelt/core/clause.h"

#include "piece.h"
#include "pool.h"
#include "qarvelt/core/container.h"
#include "shape.h"
#include "wrap.h"

#include <cctype>
#include <cstring>
#include <functional>
#include <typeinfo>
#include <unordered_map>
#include <utility>

namespace qarvelt {

namespace {

const char* orEmpty(const char* s) {
  return s != nullptr ? s : "";
}

// Copies made while another copy is under way (the clones of its children). Links are pointed at
// the copies once, by the outermost copy, which pairs every node of its subtree.
class NestedCopy {
 public:
  NestedCopy() { ++t_depth; }
  ~NestedCopy() { --t_depth; }
  NestedCopy(const NestedCopy&) = delete;
  NestedCopy& operator=(const NestedCopy&) = delete;
  static bool active() { return t_depth > 0; }

 private:
  // Read without a call, as the node allocator reads its thread's lists.
#if defined(__GNUC__)
  __attribute__((tls_model("initial-exec")))
#endif
  static thread_local int t_depth;
};
#if defined(__GNUC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local int NestedCopy::t_depth = 0;

}  // namespace

void TrimLeft(std::string& text) {
  std::size_t i = 0;
  while (i < text.size() && detail::IsBlank(text[i]))
    ++i;
  text.erase(0, i);
}

void TrimRight(std::string& text) {
  std::size_t n = text.size();
  while (n > 0 && detail::IsBlank(text[n - 1]))
    --n;
  text.resize(n);
}

void Trim(std::string& text) {
  TrimRight(text);
  TrimLeft(text);
}

void* CSQLClause::operator new(std::size_t size) {
  return detail::AllocateNode(size);
}

void CSQLClause::operator delete(void* node, std::size_t size) noexcept {
  detail::FreeNode(node, size);
}

CSQLClause::CSQLClause(bool /*bInit*/, int nOraVersion) : m_nOraVersion(nOraVersion) {}

CSQLClause::~CSQLClause() {
  delete m_held;
  // Nothing may keep pointing at this node, and this node's target must forget it.
  if (!m_rare) return;
  for (CSQLClause* linker : m_rare->linkers)
    linker->m_rare->linked = nullptr;
  m_rare->linkers.clear();
  setLinked(nullptr);
}

void CSQLClause::setLinked(CSQLClause* target) {
  if (linkedNode() == target) return;
  if (CSQLClause* old = linkedNode()) {
    auto& linkers = old->m_rare->linkers;
    for (auto it = linkers.begin(); it != linkers.end(); ++it) {
      if (*it == this) {
        linkers.erase(it);
        break;
      }
    }
  }
  rare().linked = target;
  if (target != nullptr) target->rare().linkers.push_back(this);
}

void CSQLClause::setup(TreeText name, bool bInit) {
  setName(name);
  // The subtree is built when first needed (children()), with the release code of this moment.
  if (bInit) m_nPendingCode = m_nOraVersion;
}

void CSQLClause::setName(TreeText name) {
  m_name.set(name);
  nameChanged();
}

// ---- the counts ---------------------------------------------------------------------------------

void CSQLClause::addCounts(int modified, int hooks) {
  for (CSQLClause* node = this; node != nullptr; node = node->m_pParent) {
    node->m_nModified += modified;
    node->m_nHooks += hooks;
  }
}

void CSQLClause::noteValue() {
  const bool modified = isModified(nullptr);
  if (modified == m_bSelfModified) return;
  m_bSelfModified = modified;
  addCounts(modified ? 1 : -1, 0);
}

void CSQLClause::noteHooks() {
  const bool hook = afterPrefixFn() != nullptr || afterPostfixFn() != nullptr || writesUnmodified();
  if (hook == m_bSelfHook) return;
  m_bSelfHook = hook;
  addCounts(0, hook ? 1 : -1);
}

void CSQLClause::setSuffix(TreeText suffix) {
  if (m_rare || !suffix.text().empty()) rare().suffix.set(suffix);
}

void CSQLClause::setPostfix(TreeText postfix) {
  if (m_rare || !postfix.text().empty()) rare().postfix.set(postfix);
}

void CSQLClause::setValidator(SQLValidator fn) {
  if (m_rare || fn != nullptr) rare().validator = fn;
}

void CSQLClause::setCallback(SQLCallback cb, bool afterPostfix) {
  if (!m_rare && cb == nullptr) return;
  (afterPostfix ? rare().afterPostfix : rare().afterPrefix) = cb;
  noteHooks();
}

void CSQLClause::appendChild(CSQLClause* child) {
  children().emplace_back(child);
  child->m_pParent = this;
  // The kind of writer is known only once the node is fully constructed, which it is by now.
  child->noteHooks();
  if (child->m_nModified != 0 || child->m_nHooks != 0) addCounts(child->m_nModified, child->m_nHooks);
}

void CSQLClause::eraseChild(std::size_t index) {
  CSQLClause* child = m_children[index].get();
  addCounts(-child->m_nModified, -child->m_nHooks);
  m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(index));
}

void CSQLClause::eraseChildren() {
  for (auto& child : m_children)
    addCounts(-child->m_nModified, -child->m_nHooks);
  m_children.clear();
}

// ---- path grammar -------------------------------------------------------------------------------

std::string CSQLClause::getAttr(const char* path) {
  return std::string(headOf(path));
}

const char* CSQLClause::splitPath(const char* path, std::string_view& head) {
  if (path == nullptr) {
    head = std::string_view();
    return nullptr;
  }
  if (const char* semi = std::strchr(path, ';')) {
    head = std::string_view(path, static_cast<std::size_t>(semi - path));
    return semi + 1;
  }
  head = std::string_view(path);
  return head == "*" ? path : nullptr;
}

std::string_view CSQLClause::headOf(const char* path) {
  if (path == nullptr) return std::string_view();
  const char* semi = std::strchr(path, ';');
  return semi != nullptr ? std::string_view(path, static_cast<std::size_t>(semi - path))
                         : std::string_view(path);
}

const char* CSQLClause::nextAttr(const char* path) {
  if (path == nullptr) return nullptr;
  if (const char* semi = std::strchr(path, ';')) return semi + 1;
  // A final "*" never runs out: it stands for the whole subtree at every depth.
  return std::strcmp(path, "*") == 0 ? path : nullptr;
}

bool CSQLClause::isEqual(const char* path) const {
  const std::string_view head = headOf(path);
  if (head == "*") return true;
  const std::string_view name = m_name.str();
  if (head.size() != name.size()) return false;
  for (std::size_t i = 0; i < head.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(head[i])) !=
        std::tolower(static_cast<unsigned char>(name[i])))
      return false;
  }
  return true;
}

// ---- base slots ---------------------------------------------------------------------------------

int CSQLClause::setValue(const char* /*path*/, const char* /*value*/) {
  return SQL_OK;
}
int CSQLClause::setInit(const char* /*path*/, const char* /*value*/) {
  return SQL_OK;
}
bool CSQLClause::isModified(const char* /*path*/) {
  return false;
}
int CSQLClause::preModifiedSQL(const char* /*path*/, std::string& /*text*/) {
  return SQL_OK;
}
int CSQLClause::postModifiedSQL(const char* /*path*/, std::string& /*text*/) {
  return SQL_OK;
}
void CSQLClause::init() {}

void CSQLClause::resetUsedAttrs() {
  if (m_held != nullptr) resetHeld();
  for (auto& child : m_children)
    child->resetUsedAttrs();
}

std::string CSQLClause::GetSubType() {
  return std::string();
}
int CSQLClause::GetSQL(const char* /*path*/, std::string& /*text*/) {
  return SQL_OK;
}
std::string CSQLClause::GetValue() {
  return std::string();
}

int CSQLClause::SetPrefix(const char* prefix) {
  m_prefix.set(prefix);
  return SQL_OK;
}

CSQLClause* CSQLClause::GetChild(int index) const {
  if (index < 0 || index >= GetLength()) return nullptr;
  return children()[static_cast<std::size_t>(index)].get();
}

// ---- the writer ---------------------------------------------------------------------------------

std::string_view CSQLClause::trimmedView(const std::string& piece) {
  std::size_t first = 0;
  std::size_t last = piece.size();
  while (first < last && detail::IsBlank(piece[first]))
    ++first;
  while (last > first && detail::IsBlank(piece[last - 1]))
    --last;
  return std::string_view(piece.data() + first, last - first);
}

void CSQLClause::joinPiece(std::string& text, std::string_view piece) {
  TrimRight(text);
  if (!text.empty() && (text.back() == '(' || text.back() == '.')) {
    text += piece;
  } else {
    text += ' ';
    text += piece;
  }
}

void CSQLClause::writeChildren(const char* path, std::string& text) {
  // Values held below a subtree not built yet are written from the shape, for the whole subtree.
  if (m_held != nullptr && path[0] == '*' && path[1] == '\0') {
    writeShapedChildren(0, static_cast<std::uint32_t>(m_held->shape->nodes.size()), text, 0);
    return;
  }
  std::string_view head;
  const char* rest = splitPath(path, head);
  const bool all = head == "*";
  detail::PieceBuffer buffer;
  std::string& piece = buffer.text();
  for (auto& child : children()) {
    // An untouched child writes nothing, whatever the path.
    if (isQuiet(child.get())) continue;
    piece.clear();
    int result;
    if (!all && !isNamed(child.get(), head)) {
      if (!isContainer(child.get())) continue;
      result = child->GetModifiedSQL(path, piece);
    } else {
      result = child->GetModifiedSQL(rest, piece);
    }
    if (result != SQL_OK) continue;
    const std::string_view trimmed = trimmedView(piece);
    if (!trimmed.empty()) joinPiece(text, trimmed);
  }
}

bool CSQLClause::beginText(const char* path, std::string& text) {
  text.clear();
  preModifiedSQL(path, text);
  const SQLCallback callback = afterPrefixFn();
  if (callback == nullptr) return false;
  const int finished = callback(text, m_strValue, m_strInit, linkedNode());
  noteValue();  // the callback may have changed the values it was handed
  if (finished != 1) return false;
  // The callback has finished the node: what it wrote, or left out, counts as written.
  markWritten();
  return true;
}

void CSQLClause::markWritten() {
  if (isModified(nullptr)) m_bUsed = true;
  if (m_held != nullptr) m_held->used |= m_held->modified;
  for (auto& child : m_children) {
    if (child->m_nModified != 0) child->markWritten();
  }
}

int CSQLClause::endText(const char* path, std::string& text) {
  postModifiedSQL(path, text);
  if (const SQLCallback callback = afterPostfixFn()) {
    const int finished = callback(text, m_strValue, m_strInit, nullptr);
    noteValue();
    if (finished == 1) return SQL_OK;
  }
  return text.empty() ? SQL_NOTHING : SQL_OK;
}

int CSQLClause::GetModifiedSQL(const char* path, std::string& text) {
  if (path == nullptr) path = "*";
  if (beginText(path, text)) return SQL_OK;
  writeChildren(path, text);
  return endText(path, text);
}

// ---- path walks ---------------------------------------------------------------------------------

bool CSQLClause::isPlainContainer(const CSQLClause* node) {
  // Exactly these classes: a host's class derived from them may walk differently. The type records
  // of the library's classes are the library's own, so comparing their addresses is enough (a
  // duplicate record would only mean the slower way through SetValue).
  const std::type_info* type = &typeid(*node);
  return type == &typeid(CSQLContAND) || type == &typeid(CSQLContOR) || type == &typeid(CSQLContainer);
}

int CSQLClause::walk(WalkOp op, const char* path, const char* value, CSQLClause* node) {
  std::string_view head;
  const char* rest = splitPath(path, head);
  // Below a subtree not built yet, a value goes beside the shape when the shape can tell where.
  if (m_nPendingCode >= 0 && op != WalkOp::AddAttr) {
    const int result = walkUnbuilt(op, path, head, rest, value);
    if (result != kBuildFirst) return result;
  }
  return walkSplit(op, path, head, rest, value, node);
}

int CSQLClause::walkSplit(WalkOp op,
                          const char* path,
                          std::string_view head,
                          const char* rest,
                          const char* value,
                          CSQLClause* node) {
  for (auto& child : children()) {
    const char* sub;
    if (isNamed(child.get(), head)) {
      sub = rest;
    } else if (isContainer(child.get())) {
      // What SetValue, SetInit and AddAttr of such a container do with a path, without splitting it
      // again (AddAttr refuses to append a node below itself).
      if (isPlainContainer(child.get())) {
        if (op == WalkOp::AddAttr && child.get() == node) continue;
        if (child->walkSplit(op, path, head, rest, value, node) == SQL_OK) return SQL_OK;
        continue;
      }
      sub = path;
    } else {
      continue;
    }
    int result = SQL_NOT_FOUND;
    switch (op) {
      case WalkOp::SetValue:
        result = child->SetValue(sub, value);
        break;
      case WalkOp::SetInit:
        result = child->SetInit(sub, value);
        break;
      case WalkOp::AddAttr:
        result = child->AddAttr(sub, node);
        break;
    }
    if (result == SQL_OK) return SQL_OK;
  }
  return SQL_NOT_FOUND;
}

int CSQLClause::SetValue(const char* path, const char* value) {
  value = orEmpty(value);
  if (path == nullptr) return setValue(nullptr, value);
  return walk(WalkOp::SetValue, path, value, nullptr);
}

int CSQLClause::SetInit(const char* path, const char* value) {
  value = orEmpty(value);
  if (path == nullptr) return setInit(nullptr, value);
  return walk(WalkOp::SetInit, path, value, nullptr);
}

int CSQLClause::AddAttr(const char* path, CSQLClause* node) {
  if (node == nullptr || node == this) return SQL_NOT_FOUND;
  if (path == nullptr) {
    appendChild(node);
    return SQL_OK;
  }
  return walk(WalkOp::AddAttr, path, nullptr, node);
}

int CSQLClause::AddAttr(const char* path, std::unique_ptr<CSQLClause> node) {
  const int result = AddAttr(path, node.get());
  if (result == SQL_OK) node.release();
  return result;
}

int CSQLClause::RemoveAttr(const char* /*path*/) {
  return SQL_OK;
}

CSQLClause* CSQLClause::GetClause(const char* path) {
  if (path == nullptr) return this;
  std::string_view head;
  const char* rest = splitPath(path, head);
  for (auto& child : children()) {
    CSQLClause* found = nullptr;
    if (isNamed(child.get(), head)) {
      found = child->GetClause(rest);
    } else if (isContainer(child.get())) {
      found = child->GetClause(path);
    }
    if (found != nullptr) return found;
  }
  return nullptr;
}

bool CSQLClause::IsModified(const char* path) {
  if (path == nullptr) return isModified(nullptr);
  // Whatever the path, only a modified node of the subtree can make the answer true.
  if (m_nModified == 0) return false;
  if (std::strcmp(path, "*") == 0) return true;
  std::string_view head;
  const char* rest = splitPath(path, head);
  if (head == "*" && isModified(path)) return true;
  for (auto& child : children()) {
    // Unlike the other walks, a container is handed the rest of the path here, not the whole path.
    if (isNamed(child.get(), head) || head == "*" || isContainer(child.get())) {
      if (child->IsModified(rest)) return true;
    }
  }
  return false;
}

// ---- values, copies, used bookkeeping -----------------------------------------------------------

void CSQLClause::Clear() {
  m_strValue.clear();
  m_strInit.clear();
  m_bUsed = false;
  noteValue();
  dropHeld();
  for (auto& child : m_children)
    child->Clear();
}

void CSQLClause::Copy(CSQLClause* target) {
  if (target == nullptr) return;
  if (m_rare || target->m_rare) {
    Rare& to = target->rare();
    to.validator = validatorFn();
    to.afterPrefix = afterPrefixFn();
    to.afterPostfix = afterPostfixFn();
    if (m_rare) {
      to.suffix.assign(m_rare->suffix);
      to.postfix.assign(m_rare->postfix);
    } else {
      to.suffix.set("");
      to.postfix.set("");
    }
  }
  target->m_name.assign(m_name);
  target->nameChanged();
  target->m_prefix.assign(m_prefix);
  // Most nodes of a tree hold empty values: copying them would only call the string assignment.
  if (!m_strInit.empty() || !target->m_strInit.empty()) target->m_strInit = m_strInit;
  if (!m_strValue.empty() || !target->m_strValue.empty()) target->m_strValue = m_strValue;
  if (m_rare || target->m_rare) target->setLinked(linkedNode());
  target->m_nOraVersion = m_nOraVersion;
  target->noteValue();
  target->noteHooks();
  // Counted first, so that copying a node into itself terminates.
  const std::size_t count = children().size();
  const std::size_t offset = target->children().size();
  target->m_children.reserve(offset + count);
  {
    // The children's own copies leave their links to the outermost copy, which sees every node.
    const NestedCopy nested;
    for (std::size_t i = 0; i < count; ++i) {
      if (CSQLClause* clone = m_children[i]->operator*()) target->appendChild(clone);
    }
  }
  if (!NestedCopy::active()) relinkCopies(target, offset, count);
}

// A link between two nodes of the copied subtree (the ON COMMIT leaf of CREATE TABLE linked to its
// TEMPORARY leaf) is pointed at the copies, so that a clone never refers into its source. A link to a
// node outside the subtree, the copied node's own included, is cleared: the copy may outlive that
// node, and callbacks read a missing link as "no condition".
void CSQLClause::relinkCopies(CSQLClause* target, std::size_t offset, std::size_t count) {
  // Most subtrees hold no link at all: then there is nothing to pair.
  const auto hasLink = [](const CSQLClause* node, const auto& self) -> bool {
    if (node->linkedNode() != nullptr) return true;
    for (const auto& child : node->m_children) {
      if (self(child.get(), self)) return true;
    }
    return false;
  };
  bool any = target != this && linkedNode() != nullptr;
  for (std::size_t i = 0; i < count && i < m_children.size() && !any; ++i)
    any = hasLink(m_children[i].get(), hasLink);
  if (!any) return;
  std::unordered_map<const CSQLClause*, CSQLClause*> copies;
  std::vector<std::pair<CSQLClause*, CSQLClause*>> pairs;
  bool linked = false;
  std::function<void(CSQLClause*, CSQLClause*)> pair = [&](CSQLClause* from, CSQLClause* to) {
    copies[from] = to;
    pairs.emplace_back(from, to);
    linked = linked || from->linkedNode() != nullptr;
    if (from->m_children.size() != to->m_children.size()) return;
    for (std::size_t i = 0; i < from->m_children.size(); ++i)
      pair(from->m_children[i].get(), to->m_children[i].get());
  };
  copies[this] = target;
  // A node copied into itself keeps its own link: it is the source as much as the copy.
  if (target != this) {
    pairs.emplace_back(this, target);
    linked = linkedNode() != nullptr;
  }
  if (target->m_children.size() == offset + count) {
    for (std::size_t i = 0; i < count; ++i)
      pair(m_children[i].get(), target->m_children[offset + i].get());
  }
  if (!linked) return;
  for (auto& [from, to] : pairs) {
    if (from->linkedNode() == nullptr) continue;
    auto found = copies.find(from->linkedNode());
    to->setLinked(found != copies.end() ? found->second : nullptr);
  }
}

CSQLClause* CSQLClause::cloneInto(CSQLClause* fresh) {
  if (m_nPendingCode < 0) {
    Copy(fresh);
    return fresh;
  }
  // A node not built yet is cloned as one not built yet: `fresh` is of this node's class, so its
  // init() builds the same subtree when it is needed; the values held for it go along.
  const int pending = m_nPendingCode;
  m_nPendingCode = -1;  // nothing to copy below: Copy must not build it
  detail::HeldValues* held = std::exchange(m_held, nullptr);
  Copy(fresh);
  m_held = held;
  m_nPendingCode = pending;
  fresh->m_nPendingCode = pending;
  if (held != nullptr) {
    fresh->m_held = new detail::HeldValues(*held);
    fresh->addCounts(held->modifiedCount(), 0);
  }
  return fresh;
}

CSQLClause* CSQLClause::operator*() {
  return cloneInto(new CSQLClause(false, kLatestRelease));
}

bool CSQLClause::hasUnused() {
  if (m_held != nullptr && (m_held->modified & ~m_held->used) != 0) return true;
  // Only a modified node can be waiting to be written.
  for (auto& child : m_children) {
    if (child->m_nModified != 0 && child->hasUnused()) return true;
  }
  return false;
}

void CSQLClause::RefreshUsed() {
  if (hasUnused()) {
    refreshNested();
  } else {
    resetUsedAttrs();
  }
}

// An OR container at any depth withdraws its written alternative; without this, an OR below an AND
// or a clause would choose its first alternative again on every pass.
void CSQLClause::refreshNested() {
  // A subtree not built yet holds no alternative that was written, unless values are held for it:
  // its alternatives take their turn as built nodes.
  if (m_held != nullptr && (m_held->modified | m_held->used) != 0) children();
  for (auto& child : m_children) {
    if (child->GetSubType() == "OR") {
      child->RefreshUsed();
    } else {
      child->refreshNested();
    }
  }
}

}  // namespace qarvelt
