#include "identifiers.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>
#include <vector>

#include "common.h"

namespace qarvelt::model {

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

void fold(std::string& name) {
  name = FoldName(name);
}

void fold(std::vector<std::string>& names) {
  for (std::string& name : names)
    fold(name);
}

void fold(LobStorage& lob) {
  fold(lob.tablespace);
  fold(lob.segment);
}

void fold(std::vector<Partition>& partitions) {
  for (Partition& p : partitions) {
    fold(p.name);
    fold(p.renamed_from);
    fold(p.tablespace);
    for (PartitionLob& lob : p.lobs) {
      fold(lob.column);
      fold(lob.storage);
    }
    fold(p.subpartitions);
  }
}

void foldNames(Table& t) {
  fold(t.schema);
  fold(t.name);
  fold(t.tablespace);
  for (Column& c : t.columns) {
    fold(c.name);
    fold(c.renamed_from);
    fold(c.constraint_name);
    fold(c.lob);
  }
  for (Constraint& c : t.constraints) {
    fold(c.name);
    fold(c.renamed_from);
    fold(c.columns);
    fold(c.ref_schema);
    fold(c.ref_table);
    fold(c.ref_columns);
    fold(c.state.index_schema);
    fold(c.state.index_name);
    fold(c.state.index_tablespace);
  }
  for (Index& x : t.indexes) {
    fold(x.name);
    fold(x.schema);
    fold(x.renamed_from);
    for (IndexKey& k : x.keys)
      fold(k.column);  // an expression is SQL text, written as it is
    fold(x.tablespace);
    fold(x.local_partitions);
    fold(x.global_columns);
    fold(x.global_partitions);
  }
  Partitioning& p = t.partitioning;
  fold(p.columns);
  fold(p.store_in);
  fold(p.interval_store_in);
  fold(p.constraint);
  fold(p.subcolumns);
  fold(p.subtemplate);
  fold(p.partitions);
}

}  // namespace

// Oracle 12c Release 2 lengthened identifiers from 30 to 128 bytes.
int MaxIdentifierBytes(int release) {
  return release >= 9 ? 128 : 30;
}

bool IsReservedWord(const std::string& word) {
  // Every name of every document passes here: a sorted table searched by halves.
  static const std::vector<std::string_view> sorted = [] {
    std::vector<std::string_view> words(std::begin(kReserved), std::end(kReserved));
    std::sort(words.begin(), words.end());
    return words;
  }();
  std::string upper = word;
  for (char& c : upper)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return std::binary_search(sorted.begin(), sorted.end(), std::string_view(upper));
}

std::string Identifier(const std::string& name, int release, bool quoteAll, const std::string& where) {
  if (name.empty()) throw Failure(kExitBadInput, where + ": a name must not be empty");
  if (static_cast<int>(name.size()) > MaxIdentifierBytes(release)) {
    throw Failure(kExitBadInput,
                  where + ": the name \"" + name + "\" has " + std::to_string(name.size()) +
                      " bytes; this release takes " + std::to_string(MaxIdentifierBytes(release)));
  }
  if (name.find('"') != std::string::npos || name.find('\0') != std::string::npos) {
    throw Failure(kExitBadInput,
                  where + ": the name \"" + name + "\" holds a character Oracle refuses in names");
  }
  if (!quoteAll && ordinary(name) && !IsReservedWord(name)) return name;
  return "\"" + name + "\"";
}

std::string FoldName(const std::string& name) {
  if (name.empty() || !std::isalpha(static_cast<unsigned char>(name[0]))) return name;
  std::string upper;
  for (char c : name) {
    const auto u = static_cast<unsigned char>(c);
    if (!std::isalnum(u) && c != '_' && c != '$' && c != '#') return name;
    upper += static_cast<char>(std::toupper(u));
  }
  return IsReservedWord(upper) ? name : upper;
}

Table ResolveNames(Table table, bool preserveCase) {
  if (!preserveCase) foldNames(table);
  if (!table.schema.empty()) {
    for (Constraint& c : table.constraints) {
      if (!c.ref_table.empty() && c.ref_schema.empty()) c.ref_schema = table.schema;
      if (!c.state.index_name.empty() && c.state.index_schema.empty()) c.state.index_schema = table.schema;
    }
  }
  return table;
}

}  // namespace qarvelt::model
