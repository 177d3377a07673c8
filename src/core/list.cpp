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
  bool written = false;
  for (const auto& child : m_children) {
    CSQLClause* item = child.get();
    if (head != "*" && nameOf(item) != head && !isContainer(item)) continue;
    std::string piece;
    if (item->GetModifiedSQL(rest, piece) != SQL_OK) continue;
    std::string trimmedPiece = piece;
    Trim(trimmedPiece);
    if (trimmedPiece.empty()) continue;
    if (!written) {
      // The first item that writes stands as it is written, leading blank included. Separators go
      // only between items that wrote something: an unchanged item before a changed one must not
      // leave a separator behind ("ADD (,ENAME DATE)" is not Oracle).
      text += piece;
      written = true;
      continue;
    }
    text += m_strSeparator;
    text += trimmedPiece;
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
