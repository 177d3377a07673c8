#include "qarvelt/info/base.h"

#include <cstring>

#include "qarvelt/core/clause.h"

namespace qarvelt {

namespace {

// The value returned for names a record never registered.
CSQLValue& sharedEmptyValue() {
  static CSQLValue empty("", "", "");
  return empty;
}

}  // namespace

CSQLInfoBase::CSQLInfoBase() {
  init();
}

CSQLInfoBase::~CSQLInfoBase() = default;

void CSQLInfoBase::init() {}

void CSQLInfoBase::registerValues(std::initializer_list<const char*> types) {
  for (const char* type : types)
    m_values.push_back(std::make_unique<CSQLValue>(type, "", ""));
}

void CSQLInfoBase::registerValue(std::unique_ptr<CSQLValue> value) {
  if (value != nullptr) m_values.push_back(std::move(value));
}

CSQLValue& CSQLInfoBase::GetSQLValue(const char* type) {
  if (type != nullptr) {
    for (auto& value : m_values) {
      if (*value == type) return *value;
    }
  }
  CSQLValue& empty = sharedEmptyValue();
  empty = CSQLValue("", "", "");  // whatever a careless caller did to it
  return empty;
}

void CSQLInfoBase::SetSQLValue(const char* type, const char* value, const char* init) {
  if (type == nullptr) return;
  for (auto& entry : m_values) {
    if (!(*entry == type)) continue;
    if (init == nullptr) {
      entry->SetValue(value);
    } else {
      entry->SetInit(init);
      if (value != nullptr && *value != '\0') entry->SetValue(value);
    }
    return;
  }
}

int CSQLInfoBase::BuildSQL(std::string /*what*/,
                           CSQLClause* /*clause*/,
                           CSQLClause* /*statement*/,
                           std::vector<std::string>* /*out*/,
                           const char* /*extra*/) {
  return 0;
}

bool CSQLInfoBase::IsModified(const char* type) {
  if (type != nullptr) {
    for (auto& value : m_values) {
      if (*value == type) return value->IsModified();
    }
    return false;
  }
  for (auto& value : m_values) {
    if (value->IsModified()) return true;
  }
  return false;
}

bool CSQLInfoBase::IsModifiedExcept(const char* prefix) {
  const std::string skip = prefix != nullptr ? prefix : "";
  for (auto& value : m_values) {
    if (value->GetType().compare(0, skip.size(), skip) == 0) continue;
    if (value->IsModified()) return true;
  }
  return false;
}

void CSQLInfoBase::RenderAndClear(CSQLClause* statement,
                                  const char* path,
                                  CSQLClause* node,
                                  std::vector<std::string>* out) {
  if (statement != nullptr && out != nullptr) {
    std::string text;
    statement->GetModifiedSQL(path, text);
    Trim(text);
    if (!text.empty()) out->push_back(text);
  }
  if (node != nullptr) node->Clear();
}

std::string CSQLInfoBase::ExistingName() {
  const std::string loaded = GetSQLValue("NAME").GetInit();
  return loaded.empty() ? m_strName : loaded;
}

std::string CSQLInfoBase::WantedName() {
  const std::string wanted = GetSQLValue("NAME").GetValue();
  return wanted.empty() ? ExistingName() : wanted;
}

void CSQLInfoBase::Reset() {
  for (auto& value : m_values)
    value->Reset();
}

}  // namespace qarvelt
