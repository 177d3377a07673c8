#include "qarvelt/core/attr.h"

#include "qarvelt/core/builder.h"
#include "qarvelt/util/util.h"

namespace qarvelt {

namespace {
const char* orEmpty(const char* s) {
  return s != nullptr ? s : "";
}
}  // namespace

CSQLAttr::CSQLAttr(const char* name,
                   const char* initValue,
                   const char* value,
                   const char* prefix,
                   const char* suffix,
                   const char* postfix,
                   int (*validator)(const char*),
                   CSQLClause* linked)
    : CSQLClause(false, kLatestRelease) {
  setName(name);
  m_strInit = orEmpty(initValue);
  m_strValue = orEmpty(value);
  setPrefix(prefix);
  setSuffix(suffix);
  setPostfix(postfix);
  // No validator accepts every value, as CSQLUtil::IsValid does.
  if (validator != &CSQLUtil::IsValid) setValidator(validator);
  setLinked(linked);
  noteValue();
}

CSQLAttr::CSQLAttr(bool /*bInit*/, int nOraVersion) : CSQLClause(false, nOraVersion) {}

CSQLAttr::~CSQLAttr() = default;

void CSQLAttr::init() {}

int CSQLAttr::setValue(const char* /*path*/, const char* value) {
  value = orEmpty(value);
  if (const SQLValidator validator = validatorFn()) {
    if (const int refused = validator(value)) return refused;
  }
  m_strValue = value;
  noteValue();
  return SQL_OK;
}

int CSQLAttr::setInit(const char* /*path*/, const char* value) {
  value = orEmpty(value);
  if (const SQLValidator validator = validatorFn()) {
    if (const int refused = validator(value)) return refused;
  }
  m_strInit = value;
  m_strValue = value;
  noteValue();
  return SQL_OK;
}

bool CSQLAttr::isModified(const char* /*path*/) {
  return m_strInit != m_strValue;
}

std::string CSQLAttr::GetValue() {
  return m_strValue;
}

int CSQLAttr::preModifiedSQL(const char* /*path*/, std::string& text) {
  if (!isModified(nullptr)) return SQL_OK;
  text = prefixText();
  text += m_strValue;
  const std::string_view suffix = suffixText();
  if (!suffix.empty()) text += suffix;
  return SQL_OK;
}

int CSQLAttr::postModifiedSQL(const char* /*path*/, std::string& text) {
  if (!isModified(nullptr)) return SQL_OK;
  const std::string_view postfix = postfixText();
  if (!postfix.empty()) text += postfix;
  m_bUsed = true;
  return SQL_OK;
}

bool CSQLAttr::hasUnused() {
  if (CSQLClause::hasUnused()) return true;
  if (!isModified(nullptr)) return false;
  return !m_bUsed;
}

void CSQLAttr::resetUsedAttrs() {
  CSQLClause::resetUsedAttrs();
  // A written leaf whose children still hold unwritten changes names what those changes apply to
  // (MODIFY PARTITION P1 with one alteration per pass): it keeps its value until they are written.
  if (m_bUsed && !CSQLClause::hasUnused()) {
    m_strValue = m_strInit;
    m_bUsed = false;
    noteValue();
  }
}

CSQLClause* CSQLAttr::operator*() {
  return cloneInto(new CSQLAttr(false, kLatestRelease));
}

// ---- data type leaf -----------------------------------------------------------------------------

CSQLAttrDataType::CSQLAttrDataType(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("DATATYPE", bInit);
}

void CSQLAttrDataType::init() {
  using namespace build;
  attach(this, And({"(", ")"}, leaf("LENGTH"), leaf("SCALE", ","), leaf("UNIT")));
}

}  // namespace qarvelt
