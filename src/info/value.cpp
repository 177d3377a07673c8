#include "qarvelt/info/value.h"

namespace qarvelt {

namespace {
const char* orEmpty(const char* s) {
  return s != nullptr ? s : "";
}
}  // namespace

CSQLValue::CSQLValue(const char* type, const char* value, const char* init)
    : m_strType(orEmpty(type)), m_strValue(orEmpty(value)), m_strInit(orEmpty(init)) {}

CSQLValue::~CSQLValue() = default;

void CSQLValue::SetInit(const char* text) {
  m_strInit = orEmpty(text);
  m_strValue = m_strInit;
}

void CSQLValue::SetValue(const char* text) {
  m_strValue = orEmpty(text);
}

bool CSQLValue::IsModified() {
  return m_strValue != m_strInit;
}

void CSQLValue::Reset() {
  m_strValue = m_strInit;
}

std::string CSQLValue::operator*() {
  return IsModified() ? m_strValue : std::string();
}

bool CSQLValue::operator==(const char* type) const {
  return m_strType == orEmpty(type);
}

CSQLValues::CSQLValues(const char* name) : CSQLValue(name, "", "") {}

CSQLValues::CSQLValues(const CSQLValues& other) : CSQLValue(other) {
  for (const auto& value : other.m_values)
    m_values.push_back(std::make_unique<CSQLValue>(*value));
}

CSQLValues& CSQLValues::operator=(const CSQLValues& other) {
  if (this == &other) return *this;
  CSQLValue::operator=(other);
  m_values.clear();
  for (const auto& value : other.m_values)
    m_values.push_back(std::make_unique<CSQLValue>(*value));
  return *this;
}

CSQLValues::~CSQLValues() = default;

void CSQLValues::AddValue(const char* type, const char* value, const char* init) {
  for (const auto& entry : m_values) {
    if (*entry == type) return;
  }
  m_values.push_back(std::make_unique<CSQLValue>(type, value, init));
}

std::string CSQLValues::GetValue(int index) const {
  const CSQLValue* entry = GetEntry(index);
  return entry != nullptr ? entry->GetValue() : std::string();
}

CSQLValue* CSQLValues::GetEntry(int index) const {
  if (index < 0 || index >= GetCount()) return nullptr;
  return m_values[static_cast<std::size_t>(index)].get();
}

bool CSQLValues::IsModified() {
  return !m_values.empty();
}

void CSQLValues::Reset() {
  for (auto& entry : m_values)
    entry->Reset();
  m_values.clear();
}

}  // namespace qarvelt
