#include "qarvelt/core/container.h"

#include "piece.h"

#include <cstring>

#include "wrap.h"

namespace qarvelt {

// ---- CSQLContainer ------------------------------------------------------------------------------

CSQLContainer::CSQLContainer(bool /*bInit*/, int nOraVersion) : CSQLClause(false, nOraVersion) {
  setName(kContainerName);
}

int CSQLContainer::preModifiedSQL(const char* /*path*/, std::string& text) {
  detail::openWrap(prefixText(), text);
  return SQL_OK;
}

int CSQLContainer::postModifiedSQL(const char* /*path*/, std::string& text) {
  detail::closeWrap(prefixText(), postfixText(), text);
  return SQL_OK;
}

int CSQLContainer::GetModifiedSQL(const char* path, std::string& text) {
  if (path == nullptr) path = "*";
  if (beginText(path, text)) return SQL_OK;
  detail::PieceBuffer buffer;
  std::string& piece = buffer.text();
  for (auto& child : children()) {
    if (isQuiet(child.get())) continue;
    piece.clear();
    if (child->GetModifiedSQL(path, piece) != SQL_OK) continue;
    const std::string_view trimmed = trimmedView(piece);
    if (trimmed.empty()) continue;
    TrimRight(text);
    text += ' ';
    text += trimmed;
  }
  endText(path, text);  // the plain container reports text even when there is none
  return SQL_OK;
}

int CSQLContainer::SetValue(const char* path, const char* value) {
  if (path == nullptr) return SQL_NOT_FOUND;
  return CSQLClause::SetValue(path, value);
}

int CSQLContainer::SetInit(const char* path, const char* value) {
  if (path == nullptr) return SQL_NOT_FOUND;
  return CSQLClause::SetInit(path, value);
}

CSQLClause* CSQLContainer::GetClause(const char* path) {
  if (path == nullptr) return nullptr;
  return CSQLClause::GetClause(path);
}

bool CSQLContainer::IsModified(const char* path) {
  if (path == nullptr) return false;
  if (!anyModified(this)) return false;
  // A container holds no value of its own: a modified node in it is a modified node below it.
  if (std::strcmp(path, "*") == 0) return true;
  std::string_view head;
  const char* rest = splitPath(path, head);
  for (auto& child : children()) {
    if (isNamed(child.get(), head) || head == "*") {
      if (child->IsModified(rest)) return true;
    } else if (isContainer(child.get())) {
      if (child->IsModified(path)) return true;
    }
  }
  return false;
}

CSQLClause* CSQLContainer::operator*() {
  return cloneInto(new CSQLContainer(false, kLatestRelease));
}

// ---- CSQLContAND --------------------------------------------------------------------------------

CSQLContAND::CSQLContAND(const char* prefix, const char* postfix) : CSQLContainer(false, kLatestRelease) {
  setPrefix(prefix);
  setPostfix(postfix);
}

CSQLContAND::CSQLContAND(bool /*bInit*/) : CSQLContainer(false, kLatestRelease) {}

std::string CSQLContAND::GetSubType() {
  return "AND";
}

// All children in order, by the general writer's rules.
int CSQLContAND::GetModifiedSQL(const char* path, std::string& text) {
  return CSQLClause::GetModifiedSQL(path, text);
}

CSQLClause* CSQLContAND::operator*() {
  return cloneInto(new CSQLContAND(false));
}

// ---- CSQLContOR ---------------------------------------------------------------------------------

CSQLContOR::CSQLContOR(const char* prefix, const char* postfix) : CSQLContainer(false, kLatestRelease) {
  setPrefix(prefix);
  setPostfix(postfix);
}

CSQLContOR::CSQLContOR(bool /*bInit*/) : CSQLContainer(false, kLatestRelease) {}

std::string CSQLContOR::GetSubType() {
  return "OR";
}

int CSQLContOR::GetModifiedSQL(const char* path, std::string& text) {
  if (path == nullptr) path = "*";
  if (beginText(path, text)) return SQL_OK;
  std::string_view head;
  const char* rest = splitPath(path, head);
  detail::PieceBuffer buffer;
  std::string& piece = buffer.text();
  for (auto& child : children()) {
    if (isQuiet(child.get())) continue;
    piece.clear();
    int result;
    if (head != "*" && !isNamed(child.get(), head)) {
      if (!isContainer(child.get())) continue;
      result = child->GetModifiedSQL(path, piece);
    } else {
      result = child->GetModifiedSQL(rest, piece);
    }
    if (result != SQL_OK) continue;
    // The first alternative with something to write is the chosen one; the others wait for a later
    // pass. The after-postfix callback is not called on this path.
    const std::string_view trimmed = trimmedView(piece);
    if (!trimmed.empty()) joinPiece(text, trimmed);
    postModifiedSQL(path, text);
    return SQL_OK;
  }
  return endText(path, text);
}

void CSQLContOR::RefreshUsed() {
  // When some alternative has nothing left to write, every written alternative is withdrawn (reset
  // is idempotent, so once is enough). Otherwise the alternatives nested in the alternatives take
  // their turn.
  for (auto& child : children()) {
    if (!child->hasUnused()) {
      resetUsedAttrs();
      return;
    }
  }
  refreshNested();
}

CSQLClause* CSQLContOR::operator*() {
  return cloneInto(new CSQLContOR(false));
}

}  // namespace qarvelt
