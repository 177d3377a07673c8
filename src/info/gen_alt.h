// The shape that the column, constraint and partition entry points share.
#ifndef QARVELT_SRC_INFO_GEN_ALT_H
#define QARVELT_SRC_INFO_GEN_ALT_H

#include <memory>
#include <string>
#include <vector>

namespace qarvelt {

class CSQLClause;
class CSQLInfoBase;
class CSQLInfoTable;
class CSQLValues;

namespace detail {

// 5 when either record is null; else the table fills the statement's head and the record runs on the
// statement's sub-clause `subClause` (null when the statement has none), with `out` for the
// statements it renders itself.
int GenAltOnSubClause(CSQLClause* stmt,
                      std::vector<std::string>* out,
                      CSQLInfoTable* table,
                      CSQLInfoBase* record,
                      const char* subClause);

// The state of one run of a partition record's BuildSQL: where the statements go, the UPDATE
// option, and the first failure met while filling the statement at hand.
struct PartitionRun {
  CSQLClause* clause;
  CSQLClause* statement;
  std::vector<std::string>* out;
  std::string update;
  int code = 0;

  void note(int result) {
    if (code == 0) code = result;
  }
  // Sets `path` below `node` to `text`; an empty text sets nothing. True when something was set.
  bool set(CSQLClause* node, const std::string& path, const std::string& text);
  bool set(const std::string& path, const std::string& text) { return set(clause, path, text); }
  void add(CSQLClause* node, const std::string& path, std::unique_ptr<CSQLClause> item);
  void add(const std::string& path, std::unique_ptr<CSQLClause> item) { add(clause, path, std::move(item)); }
  // One leaf per entry of `values`, named and valued after its text (its type when the text is
  // empty), appended to the list at `path` below `node`.
  void leaves(CSQLClause* node, const std::string& path, CSQLValues& values);
};

// Writes the partition operation `op` (a node below "C_ALTER_TAB_PART" of `clause`) through
// `statement`, appends the text to `out` and clears the node for the next operation. A failure met
// while filling it (`code`, reset to 0 here) is returned instead, the node cleared all the same.
int EmitPartitionOperation(
    CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out, int& code, const char* op);

}  // namespace detail
}  // namespace qarvelt

#endif  // QARVELT_SRC_INFO_GEN_ALT_H
