#include "qarvelt/core/list.h"

#include "piece.h"

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
  setPrefix(prefix);
  setPostfix(postfix);
}

CSQLList::CSQLList(bool /*bInit*/, int nOraVersion) : CSQLClause(false, nOraVersion) {
  setName("LIST");
}

CSQLList::~CSQLList() = default;

int CSQLList::preModifiedSQL(const char* /*path*/, std::string& text) {
  detail::openWrap(prefixText(), text);
  return SQL_OK;
}

int CSQLList::postModifiedSQL(const char* /*path*/, std::string& text) {
  detail::closeWrap(prefixText(), postfixText(), text);
  return SQL_OK;
}

int CSQLList::GetModifiedSQL(const char* path, std::string& text) {
  if (path == nullptr) path = "*";
  if (beginText(path, text)) return SQL_OK;
  std::string_view head;
  const char* rest = splitPath(path, head);
  bool written = false;
  detail::PieceBuffer buffer;
  std::string& piece = buffer.text();
  for (const auto& child : children()) {
    CSQLClause* item = child.get();
    if (isQuiet(item)) continue;
    if (head != "*" && !isNamed(item, head) && !isContainer(item)) continue;
    piece.clear();
    if (item->GetModifiedSQL(rest, piece) != SQL_OK) continue;
    const std::string_view trimmedPiece = trimmedView(piece);
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
  const std::string_view name = headOf(path);
  auto& items = children();
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (isNamed(items[i].get(), name)) {
      eraseChild(i);
      return SQL_OK;
    }
  }
  return SQL_NOT_FOUND;
}

void CSQLList::Clear() {
  eraseChildren();
}

void CSQLList::Copy(CSQLClause* target) {
  CSQLClause::Copy(target);
  if (auto* list = dynamic_cast<CSQLList*>(target)) list->m_strSeparator = m_strSeparator;
}

CSQLClause* CSQLList::operator*() {
  return cloneInto(new CSQLList(false, kLatestRelease));
}

}  // namespace qarvelt
