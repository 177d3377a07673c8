#include "gen_alt.h"

#include "qarvelt/core/attr.h"
#include "qarvelt/info/columns.h"
#include "qarvelt/info/constraints.h"
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

bool detail::PartitionRun::set(CSQLClause* node, const std::string& path, const std::string& text) {
  if (text.empty() || node == nullptr) return false;
  note(node->SetValue(path.c_str(), text.c_str()));
  return true;
}

void detail::PartitionRun::add(CSQLClause* node, const std::string& path, std::unique_ptr<CSQLClause> item) {
  if (node != nullptr) note(node->AddAttr(path.c_str(), std::move(item)));
}

void detail::PartitionRun::leaves(CSQLClause* node, const std::string& path, CSQLValues& values) {
  for (int i = 0; i < values.GetCount(); ++i) {
    std::string text = values.GetValue(i);
    if (text.empty()) text = values.GetEntry(i)->GetType();
    if (!text.empty()) add(node, path, std::make_unique<CSQLAttr>(text.c_str(), "", text.c_str()));
  }
}

int detail::EmitPartitionOperation(
    CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out, int& code, const char* op) {
  CSQLClause* node = clause != nullptr ? clause->GetClause(op) : nullptr;
  const int failure = code;
  code = 0;
  if (failure != 0) {
    if (node != nullptr) node->Clear();
    return failure;
  }
  const std::string path = std::string("*;C_ALTER_TAB_PART;") + op + ";*";
  CSQLInfoBase::RenderAndClear(statement, path.c_str(), node, out);
  return 0;
}

int CSQLUtil::GenAltTable(CSQLAlterTable* stmt,
                          std::vector<std::string>* out,
                          CSQLInfoTable* table,
                          CSQLInfoColumns* columns) {
  if (table != nullptr) {
    if (const int result = table->BuildSQL("", stmt, stmt, out, nullptr)) return result;
  }
  if (columns != nullptr) {
    CSQLClause* clause = stmt != nullptr ? stmt->GetClause("C_COLUMN") : nullptr;
    return columns->BuildSQL("", clause, stmt, out, nullptr);
  }
  return 0;
}

int CSQLUtil::GenAltColumn(CSQLAlterTable* stmt,
                           std::vector<std::string>* out,
                           CSQLInfoTable* table,
                           CSQLInfoColumns* columns) {
  return detail::GenAltOnSubClause(stmt, out, table, columns, "C_COLUMN");
}

int CSQLUtil::GenAltConstraint(CSQLAlterTable* stmt,
                               std::vector<std::string>* out,
                               CSQLInfoTable* table,
                               CSQLInfoConstraints* constraints) {
  return detail::GenAltOnSubClause(stmt, out, table, constraints, "C_CONSTRAINT");
}

int CSQLUtil::GenAltTableProperty(CSQLAlterTable* stmt, std::vector<std::string>* out, CSQLInfoTable* table) {
  return table != nullptr ? table->BuildSQL("", stmt, stmt, out, nullptr) : 0;
}

}  // namespace qarvelt
