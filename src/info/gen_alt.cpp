#include "gen_alt.h"

#include "qarvelt/info/table.h"
#include "qarvelt/statements/alter_table.h"
#include "qarvelt/util/util.h"

namespace qarvelt {

int detail::GenAltOnSubClause(CSQLClause* stmt,
                              std::vector<std::string>* out,
                              CSQLInfoTable* table,
                              CSQLInfoBase* record,
                              const char* subClause) {
  if (table == nullptr || record == nullptr) return SQL_RECORD_MISSING;
  if (const int result = table->BuildSQL("TABLE", stmt, stmt, out, nullptr)) return result;
  CSQLClause* clause = stmt != nullptr ? stmt->GetClause(subClause) : nullptr;
  return record->BuildSQL("", clause, stmt, out, nullptr);
}

int CSQLUtil::GenAltTableProperty(CSQLAlterTable* stmt, std::vector<std::string>* out, CSQLInfoTable* table) {
  return table != nullptr ? table->BuildSQL("", stmt, stmt, out, nullptr) : 0;
}

}  // namespace qarvelt
