// The shape that the column, constraint and partition entry points share.
#ifndef QARVELT_SRC_INFO_GEN_ALT_H
#define QARVELT_SRC_INFO_GEN_ALT_H

#include <string>
#include <vector>

namespace qarvelt {

class CSQLClause;
class CSQLInfoBase;
class CSQLInfoTable;

namespace detail {

// 5 when either record is null; else the table fills the statement's head and the record runs on the
// statement's sub-clause `subClause` (null when the statement has none), with `out` for the
// statements it renders itself.
int GenAltOnSubClause(CSQLClause* stmt,
                      std::vector<std::string>* out,
                      CSQLInfoTable* table,
                      CSQLInfoBase* record,
                      const char* subClause);

// Writes the partition operation `op` (a node below "C_ALTER_TAB_PART" of `clause`) through
// `statement`, appends the text to `out` and clears the node for the next operation. A failure met
// while filling it (`code`, reset to 0 here) is returned instead, the node cleared all the same.
int EmitPartitionOperation(
    CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out, int& code, const char* op);

}  // namespace detail
}  // namespace qarvelt

#endif  // QARVELT_SRC_INFO_GEN_ALT_H
