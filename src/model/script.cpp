#include "qarvelt/model/script.h"

#include <nlohmann/json.hpp>

#include "qarvelt/util/sqlplus.h"

namespace qarvelt::model {

std::string ScriptText(const Script& script, Terminator terminator) {
  const SQLTerminator how = terminator == Terminator::Semicolon ? SQLTerminator::Semicolon
                            : terminator == Terminator::Slash   ? SQLTerminator::Slash
                                                                : SQLTerminator::None;
  std::string text;
  for (const std::string& statement : script.statements)
    text += TerminateStatement(statement, how);
  return text;
}

std::string ScriptJson(const Script& script) {
  const nlohmann::json out = {{"statements", script.statements}, {"warnings", script.warnings}};
  return out.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

}  // namespace qarvelt::model
