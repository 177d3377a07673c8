#include "qarvelt/statements/statement.h"

namespace qarvelt {

int WriteCreateHead(std::string& text) {
  text = "CREATE";
  return SQL_OK;
}

int WriteAlterHead(std::string& text, const char* verb) {
  text = verb != nullptr ? verb : "";
  return SQL_OK;
}

int DropEmptyAlter(CSQLClause& root, std::string& text, const char* verb, const char* nameLeaf) {
  const std::string head = verb != nullptr ? verb : "";
  auto valueOf = [&root](const char* path) {
    CSQLClause* leaf = root.GetClause(path);
    return leaf != nullptr ? leaf->GetValue() : std::string();
  };
  // The name as written: SCOTT.EMP, or EMP alone when the schema is not written.
  const std::string name = valueOf(nameLeaf);
  const std::string bareHead = head + " " + valueOf("SCHEMA") + "." + name;
  const std::string unqualifiedHead = head + " " + name;
  if (text == head || text == bareHead || text == unqualifiedHead) text.clear();
  return SQL_OK;
}

int DropNameless(CSQLClause& root, std::string& text, const char* nameLeaf) {
  CSQLClause* name = root.GetClause(nameLeaf);
  if (name == nullptr || name->GetValue().empty()) text.clear();
  return SQL_OK;
}

}  // namespace qarvelt
