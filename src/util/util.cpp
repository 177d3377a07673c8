#include "qarvelt/util/util.h"

#include "qarvelt/core/clause.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>

namespace qarvelt {

std::string CSQLUtil::STR_SPACES = "   ";

namespace {

// The catalogue: each type with the first release code that offers it, in the order hosts list them.
struct TypeGate {
  const char* name;
  int since;
};

constexpr TypeGate kTypes[] = {
    {"CHAR", 0},
    {"VARCHAR2", 0},
    {"NCHAR", 1},
    {"NVARCHAR2", 1},
    {"NUMBER", 0},
    {"LONG", 0},
    {"LONG RAW", 0},
    {"RAW", 0},
    {"DATE", 0},
    {"FLOAT", 0},
    {"INTEGER", 0},
    {"BINARY_FLOAT", 5},
    {"BINARY_DOUBLE", 5},
    {"TIMESTAMP", 3},
    {"TIMESTAMP WITH TIME ZONE", 3},
    {"TIMESTAMP WITH LOCAL TIME ZONE", 3},
    {"INTERVAL YEAR TO MONTH", 3},
    {"INTERVAL DAY TO SECOND", 3},
    {"ROWID", 0},
    {"UROWID", 2},
    {"BLOB", 1},
    {"CLOB", 1},
    {"NCLOB", 1},
    {"BFILE", 1},
    {"JSON", 11},
    {"BOOLEAN", 12},
    {"VECTOR", 12},
};

std::string upper(const char* text) {
  std::string out = text != nullptr ? text : "";
  for (char& c : out)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

bool startsWith(const std::string& text, const char* prefix) {
  return text.rfind(prefix, 0) == 0;
}

bool oneOf(const std::string& text, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (text == name) return true;
  }
  return false;
}

}  // namespace

std::vector<std::string>& CSQLUtil::GetDataTypes(int nOraVersion) {
  // Built once, by the first caller, under the guarantee of a function-local static; read-only after.
  static std::vector<std::vector<std::string>> lists = [] {
    std::vector<std::vector<std::string>> byCode(kNewestRelease + 1);
    for (int code = 0; code <= kNewestRelease; ++code) {
      for (const TypeGate& type : kTypes) {
        if (code >= type.since) byCode[static_cast<std::size_t>(code)].emplace_back(type.name);
      }
    }
    return byCode;
  }();
  static std::vector<std::string> none;
  if (nOraVersion < 0) return none;
  return lists[static_cast<std::size_t>(std::min(nOraVersion, kNewestRelease))];
}

int CSQLUtil::IsLOBType(const char* type) {
  const std::string name = type != nullptr ? type : "";
  return oneOf(name, {"CLOB", "BLOB", "NCLOB", "BFILE"}) ? 1 : 0;
}

int CSQLUtil::IsNeedLength(const char* type) {
  const std::string name = upper(type);
  if (oneOf(name, {"VARCHAR2", "NVARCHAR2", "RAW", "CHAR", "NCHAR"})) return 1;
  if (oneOf(name,
            {"LONG",
             "LONG RAW",
             "DATE",
             "BLOB",
             "CLOB",
             "NCLOB",
             "BFILE",
             "ROWID",
             "INTEGER",
             "INT",
             "SMALLINT",
             "DOUBLE",
             "REAL",
             "BINARY_FLOAT",
             "BINARY_DOUBLE",
             "JSON",
             "BOOLEAN",
             "VECTOR"}) ||
      startsWith(name, "TIMESTAMP") || startsWith(name, "INTERVAL"))
    return 0;
  return 2;
}

int CSQLUtil::IsNeedScale(const char* type) {
  const std::string name = upper(type);
  return oneOf(name, {"NUMBER", "NUMERIC", "DECIMAL"}) || startsWith(name, "TIMESTAMP") ||
                 startsWith(name, "INTERVAL DAY")
             ? 1
             : 0;
}

int CSQLUtil::IsNeedPrecision(const char* type) {
  const std::string name = upper(type);
  return name == "NUMBER" || startsWith(name, "INTERVAL") ? 1 : 0;
}

int CSQLUtil::IsValidInteger(const char* value) {
  if (value == nullptr || *value == '\0') return 3;
  for (const char* p = value; *p != '\0'; ++p) {
    if (std::isdigit(static_cast<unsigned char>(*p)) == 0) return 3;
  }
  return 0;
}

int CSQLUtil::IsValid(const char* /*value*/) {
  return 0;
}
int CSQLUtil::IsValidAddDrop(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidAlways(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidBufferPool(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidCache(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidCompress(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidEnable(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidLogging(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidMaxExtents(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidMonitoring(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidOptimal(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidParallel(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidRecordPerBlock(const char* value) {
  return IsValid(value);
}
int CSQLUtil::IsValidSize(const char* value) {
  return IsValid(value);
}

}  // namespace qarvelt
