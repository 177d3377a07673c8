// The pieces that Create, Diff and the statement listings share inside the model layer.
#ifndef QARVELT_MODEL_COMMANDS_H
#define QARVELT_MODEL_COMMANDS_H

#include <string>

#include "common.h"
#include "qarvelt/model/document.h"
#include "qarvelt/model/script.h"

namespace qarvelt::model {

// CREATE INDEX statements for some indexes of `table`.
std::vector<std::string> CreateIndexStatements(const Table& table,
                                               const std::vector<Index>& indexes,
                                               const Options& options);
// ALTER TABLE ... ADD CONSTRAINT statements for the constraints of `table` at the positions `which`.
std::vector<std::string> AddConstraintStatements(const Table& table,
                                                 const std::vector<std::size_t>& which,
                                                 const Options& options);
// The index of `table` that key constraint `c` is built on, or nullptr: the index its using_index
// names, or else an index on exactly its columns (from Oracle 8i, which builds a key on an existing
// index). Such a key is added after its index is created.
const Index* KeyIndex(const Table& table, const Constraint& c);
// True for a constraint that CREATE TABLE leaves out and an ALTER TABLE adds after the table's
// indexes: a key on one of them, and a foreign key of the table to such a key of its own.
bool AddedAfterIndexes(const Table& table, const Constraint& c);

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_COMMANDS_H
