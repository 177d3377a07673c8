#include "identifiers.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "common.h"

namespace qarvelt::tool {

namespace {

// Oracle's reserved words: these need quotes as names.
constexpr const char* kReserved[] = {
    "ACCESS",     "ADD",      "ALL",        "ALTER",    "AND",        "ANY",        "AS",        "ASC",
    "AUDIT",      "BETWEEN",  "BY",         "CHAR",     "CHECK",      "CLUSTER",    "COLUMN",    "COMMENT",
    "COMPRESS",   "CONNECT",  "CREATE",     "CURRENT",  "DATE",       "DECIMAL",    "DEFAULT",   "DELETE",
    "DESC",       "DISTINCT", "DROP",       "ELSE",     "EXCLUSIVE",  "EXISTS",     "FILE",      "FLOAT",
    "FOR",        "FROM",     "GRANT",      "GROUP",    "HAVING",     "IDENTIFIED", "IMMEDIATE", "IN",
    "INCREMENT",  "INDEX",    "INITIAL",    "INSERT",   "INTEGER",    "INTERSECT",  "INTO",      "IS",
    "LEVEL",      "LIKE",     "LOCK",       "LONG",     "MAXEXTENTS", "MINUS",      "MLSLABEL",  "MODE",
    "MODIFY",     "NOAUDIT",  "NOCOMPRESS", "NOT",      "NOWAIT",     "NULL",       "NUMBER",    "OF",
    "OFFLINE",    "ON",       "ONLINE",     "OPTION",   "OR",         "ORDER",      "PCTFREE",   "PRIOR",
    "PUBLIC",     "RAW",      "RENAME",     "RESOURCE", "REVOKE",     "ROW",        "ROWID",     "ROWNUM",
    "ROWS",       "SELECT",   "SESSION",    "SET",      "SHARE",      "SIZE",       "SMALLINT",  "START",
    "SUCCESSFUL", "SYNONYM",  "SYSDATE",    "TABLE",    "THEN",       "TO",         "TRIGGER",   "UID",
    "UNION",      "UNIQUE",   "UPDATE",     "USER",     "VALIDATE",   "VALUES",     "VARCHAR",   "VARCHAR2",
    "VIEW",       "WHENEVER", "WHERE",      "WITH"};

bool ordinary(const std::string& name) {
  if (name.empty() || !std::isupper(static_cast<unsigned char>(name[0]))) return false;
  return std::all_of(name.begin(), name.end(), [](char c) {
    return std::isupper(static_cast<unsigned char>(c)) || std::isdigit(static_cast<unsigned char>(c)) ||
           c == '_' || c == '$' || c == '#';
  });
}

}  // namespace

int MaxIdentifierBytes(int /*release*/) {
  return 30;
}

bool IsReservedWord(const std::string& word) {
  std::string upper = word;
  for (char& c : upper)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return std::any_of(std::begin(kReserved), std::end(kReserved), [&](const char* r) { return upper == r; });
}

std::string Identifier(const std::string& name, int release, bool quoteAll, const std::string& where) {
  if (name.empty()) throw ToolError(kExitBadInput, where + ": a name must not be empty");
  if (static_cast<int>(name.size()) > MaxIdentifierBytes(release)) {
    throw ToolError(kExitBadInput,
                    where + ": the name \"" + name + "\" has " + std::to_string(name.size()) +
                        " bytes; this release takes " + std::to_string(MaxIdentifierBytes(release)));
  }
  if (name.find('"') != std::string::npos || name.find('\0') != std::string::npos) {
    throw ToolError(kExitBadInput,
                    where + ": the name \"" + name + "\" holds a character Oracle refuses in names");
  }
  if (!quoteAll && ordinary(name) && !IsReservedWord(name)) return name;
  return "\"" + name + "\"";
}

}  // namespace qarvelt::tool
