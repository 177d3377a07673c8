#include "qarvelt/core/list.h"

#include "wrap.h"

namespace qarvelt {

namespace {
const char* orEmpty(const char* s) {
  return s != nullptr ? s : "";
}
}  // namespace

CSQLList::CSQLList(const char* name, const char* separator, const char* prefix, const char* postfix)
    : CSQLClause(false, kLatestRelease), m_strSeparator(orEmpty(separator)) {
  setName(name);
  m_strPrefix = orEmpty(prefix);
  m_strPostfix = orEmpty(postfix);
}

CSQLList::CSQLList(bool /*bInit*/, int nOraVersion) : CSQLClause(false, nOraVersion) {
  setName("LIST");
}

CSQLList::~CSQLList() = default;

int CSQLList::preModifiedSQL(const char* /*path*/, std::string& text) {
  detail::openWrap(m_strPrefix, text);
  return SQL_OK;
}

int CSQLList::postModifiedSQL(const char* /*path*/, std::string& text) {
  detail::closeWrap(m_strPrefix, m_strPostfix, text);
  return SQL_OK;
}

int CSQLList::GetModifiedSQL(const char* path, std::string& text) {
  if (path == nullptr) path = "*";
  if (beginText(path, text)) return SQL_OK;
  const std::string head = getAttr(path);
  const char* rest = nextAttr(path);
  for (std::size_t i = 0; i < m_children.size(); ++i) {
    CSQLClause* item = m_children[i].get();
    if (head != "*" && nameOf(item) != head && !isContainer(item)) continue;
    std::string piece;
    if (item->GetModifiedSQL(rest, piece) != SQL_OK) continue;
    if (i == 0) {
      // The first item stands as it is written, leading blank included.
      text += piece;
      continue;
    }
    Trim(piece);
    if (piece.empty()) continue;
    text += m_strSeparator;
    text += piece;
  }
  return endText(path, text);
}

int CSQLList::RemoveAttr(const char* path) {
  if (path == nullptr) return SQL_NOT_FOUND;
  const std::string name = getAttr(path);
  for (auto it = m_children.begin(); it != m_children.end(); ++it) {
    if (nameOf(it->get()) == name) {
      m_children.erase(it);
      return SQL_OK;
    }
  }
  return SQL_NOT_FOUND;
}

void CSQLList::Clear() {
  m_children.clear();
}

void CSQLList::Copy(CSQLClause* target) {
  CSQLClause::Copy(target);
  if (auto* list = dynamic_cast<CSQLList*>(target)) list->m_strSeparator = m_strSeparator;
}

CSQLClause* CSQLList::operator*() {
  return cloneInto(new CSQLList(false, kLatestRelease));
}

}  // namespace qarvelt
