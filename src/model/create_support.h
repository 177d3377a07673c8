// What `qarvelt create` needs beside the statement trees: a filler that sets a tree by paths and
// refuses whatever the tree does not take or does not write, the release checks, and the checks of
// the values that go into the statements as they are (numbers, sizes, keywords).
#ifndef QARVELT_MODEL_CREATE_SUPPORT_H
#define QARVELT_MODEL_CREATE_SUPPORT_H

#include <algorithm>
#include <cctype>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <qarvelt/core/attr.h>
#include <qarvelt/core/clause.h>

#include "common.h"
#include "qarvelt/model/document.h"

namespace qarvelt::model::create {

// "Oracle 9i Release 1 (release code 3)".
inline std::string ReleaseLabel(int release) {
  return ReleaseNames().at(static_cast<std::size_t>(release)) + " (release code " + std::to_string(release) +
         ")";
}

// Refuses `feature` (found at `where`) when the table's release is older than `since`.
inline void RequireRelease(int release, int since, const std::string& where, const std::string& feature) {
  if (release >= since) return;
  throw Failure(kExitBadInput,
                where,
                feature + " needs " + ReleaseLabel(since) + "; the table is for " + ReleaseLabel(release));
}

// Refuses a script that loses data (under fail_on_data_loss), listing every loss.
inline void RefuseDataLoss(const std::vector<std::string>& lost) {
  if (lost.empty()) return;
  std::string message = "refused, the script loses data:";
  for (const std::string& warning : lost)
    message += "\n  " + warning;
  throw Failure(kExitFailure, message);
}

[[noreturn]] inline void Refuse(const std::string& where, const std::string& message) {
  throw Failure(kExitBadInput, where, message);
}

inline bool IsDigits(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return std::isdigit(static_cast<unsigned char>(c));
  });
}

// A whole number from `low` to `high`, or "" (not given).
inline void CheckNumber(const std::string& value, long long low, long long high, const std::string& where) {
  if (value.empty()) return;
  const bool negative = value[0] == '-';
  const std::string digits = negative ? value.substr(1) : value;
  if (!IsDigits(digits)) Refuse(where, "\"" + value + "\" is not a whole number");
  const long long number = digits.size() > 18 ? high + 1 : std::stoll(digits) * (negative ? -1 : 1);
  if (number < low || number > high) {
    Refuse(where, value + " is outside " + std::to_string(low) + " to " + std::to_string(high));
  }
}

// A size in bytes as Oracle writes it: digits with an optional K, M or G (T, P and E from Oracle
// Database 10g), or "" (not given).
inline void CheckSize(const std::string& value, int release, const std::string& where) {
  if (value.empty()) return;
  const char last = static_cast<char>(std::toupper(static_cast<unsigned char>(value.back())));
  const bool suffixed = std::string("KMGTPE").find(last) != std::string::npos;
  if (!IsDigits(suffixed ? value.substr(0, value.size() - 1) : value)) {
    Refuse(where, "\"" + value + "\" is not a size (digits, optionally followed by K, M or G)");
  }
  if (suffixed && std::string("TPE").find(last) != std::string::npos) {
    RequireRelease(release, 5, where, std::string("the size unit ") + last);
  }
}

// Sets a statement tree by paths and writes it. Every value is checked as it goes in (a path the
// tree lacks is refused), and after writing, every value must have been written: a tree never drops
// a part of the document silently.
class TreeFiller {
 public:
  TreeFiller(CSQLClause& root, std::string statement) : m_root(root), m_statement(std::move(statement)) {}

  // Sets the leaf at `path`; an empty value is "not given" and sets nothing. `what` names the value
  // (its place in the document) in messages.
  void Set(const std::string& path, const std::string& value, const std::string& what) {
    if (value.empty()) return;
    setLeaf(path, value, what);
    m_written.push_back({path, what});
  }

  // As Set, for a leaf that finishes its own text before the writer records it as written (the
  // NOCOMPRESS of key compression): it is set, but not looked for afterwards.
  void SetUnrecorded(const std::string& path, const std::string& value, const std::string& what) {
    if (!value.empty()) setLeaf(path, value, what);
  }

  // Appends a list item (a column, a partition) to the list at `path`.
  void Add(const std::string& path, std::unique_ptr<CSQLClause> item, const std::string& what) {
    if (m_root.AddAttr(path.c_str(), std::move(item)) != SQL_OK) {
      throw Failure(kExitFailure, what + ": the " + m_statement + " tree has no list \"" + path + "\"");
    }
  }

  // Appends one leaf per text to the list at `path`: key columns, bounds, tablespaces.
  void AddTexts(const std::string& path, const std::vector<std::string>& texts, const std::string& what) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const std::string name = "V" + std::to_string(i + 1);
      Add(path, std::make_unique<CSQLAttr>(name.c_str(), "", texts[i].c_str()), what);
      m_written.push_back({path + ";" + name, what});
    }
  }

  CSQLClause* Node(const std::string& path) { return m_root.GetClause(path.c_str()); }

  // The statement's text, trimmed.
  std::string Write() {
    std::string text;
    if (m_root.GetModifiedSQL("*", text) != SQL_OK) {
      throw Failure(kExitFailure, "the " + m_statement + " tree wrote nothing");
    }
    Trim(text);
    for (const auto& [path, what] : m_written) {
      CSQLClause* node = m_root.GetClause(path.c_str());
      if (node == nullptr || node->hasUnused()) {
        throw Failure(kExitFailure, what + ": the " + m_statement + " tree did not write it");
      }
    }
    return text;
  }

 private:
  void setLeaf(const std::string& path, const std::string& value, const std::string& what) {
    const int result = m_root.SetValue(path.c_str(), value.c_str());
    if (result == SQL_INVALID) {
      throw Failure(kExitFailure, what + ": the " + m_statement + " tree refuses \"" + value + "\"");
    }
    if (result != SQL_OK) {
      throw Failure(kExitFailure, what + ": the " + m_statement + " tree has no place for it (" + path + ")");
    }
  }

  CSQLClause& m_root;
  std::string m_statement;
  std::vector<std::pair<std::string, std::string>> m_written;
};

// What Oracle 11g and later releases added to a column: COLLATE, INVISIBLE, DEFAULT [ON NULL], the
// identity clause and virtual columns. CheckColumnSyntax refuses what the release lacks (naming the
// release that brought it) and what no column can be; ColumnSyntax checks and sets them in the
// column item at `path` (a CREATE TABLE item, or an ALTER TABLE ... ADD item).
void CheckColumnSyntax(const Column& c, int release, const std::string& where);
void ColumnSyntax(
    TreeFiller& f, const Column& c, const std::string& path, const std::string& where, int release);

// What Oracle 11g and later releases added to partitioning: interval and reference partitioning,
// virtual key columns, list composites and range subpartitions, automatic list partitioning, list
// keys of several columns, INDEXING of a partition. Refuses what the table's release lacks (naming
// the release that brought it) and what Oracle refuses outright (an interval with a MAXVALUE
// partition, a reference to a foreign key with columns that can be null, an automatic table with a
// DEFAULT partition).
void CheckPartitioning(const Table& t);

// The checks of a column's data type and sizes (against the release), and of a LOB's storage
// parameters, that create makes and diff makes for the columns it adds or changes.
void CheckDataType(const Column& c, int release, const std::string& where);
void CheckLobStorage(const LobStorage& lob, int release, const std::string& where);

// The data types whose sizes stand inside their names: TIMESTAMP (3) WITH TIME ZONE, INTERVAL YEAR
// (4) TO MONTH, INTERVAL DAY (3) TO SECOND (2). The data type leaf writes sizes after its whole
// value, so these types go to the tree as one text, sizes in place (length: the fractional seconds
// of a TIMESTAMP, or the leading field of an INTERVAL; scale: the fractional seconds of INTERVAL DAY
// TO SECOND). "" for every other type, whose sizes the leaf writes.
std::string TypeWithInnerSizes(const Column& c);

}  // namespace qarvelt::model::create

#endif  // QARVELT_MODEL_CREATE_SUPPORT_H
