// The statement readers of the DDL reader, and what they share: the schema being built and where
// its objects are found. Used inside the library only.
#ifndef QARVELT_SRC_DDL_READERS_H
#define QARVELT_SRC_DDL_READERS_H

#include <string>

#include "parser.h"
#include "qarvelt/ddl/reader.h"
#include "qarvelt/model/schema.h"

namespace qarvelt::ddl {

class Context {
 public:
  Context(model::Schema& schema, const ReadOptions& options, ReadReport& report)
      : m_schema(schema), m_options(options), m_report(report) {}

  model::Schema& schema() { return m_schema; }
  const ReadOptions& options() const { return m_options; }
  ReadReport& report() { return m_report; }

  // The object's schema: the script's one schema (the first qualified name sets it), or a fault
  // at `at` when the name is in another.
  void CheckSchema(Parser& p, const Name& name, const Token& at);
  // The table of that name, or a fault at `at` when the schema has none.
  model::Table& Table(Parser& p, const Name& name, const Token& at);
  model::Table* FindTable(const std::string& name);
  // Renames a column of `t`, with the keys, indexes, partitioning and foreign keys that name it.
  void RenameColumn(model::Table& t, const std::string& from, const std::string& to);
  // Renames a table, with the foreign keys and triggers that name it.
  void RenameTable(std::string from, const std::string& to);

 private:
  model::Schema& m_schema;
  const ReadOptions& m_options;
  ReadReport& m_report;
};

// CREATE [GLOBAL TEMPORARY] TABLE, after CREATE (the parser stands on GLOBAL or TABLE).
void ReadCreateTable(Parser& p, Context& c);
// ALTER TABLE, after ALTER.
void ReadAlterTable(Parser& p, Context& c);
// CREATE [UNIQUE | BITMAP] INDEX, after CREATE.
void ReadCreateIndex(Parser& p, Context& c);
// The physical attributes and storage of a segment, as many as follow: PCTFREE, PCTUSED, INITRANS,
// MAXTRANS, STORAGE (...). True when one was read.
bool ReadSegment(Parser& p, model::Segment& segment);
// Gives the key `k` the index `x` when Oracle would: `k` is a primary or unique key without an index
// of its own yet, and the index's leading columns are the key's, in any order. True when it did.
bool TakeIndexForKey(model::Constraint& k, const model::Index& x);
// A MAXVALUE or MINVALUE of a sequence or an identity column: empty for 28 nines, as Oracle writes
// NOMAXVALUE (and NOMINVALUE of a descending one) back.
std::string ReadSequenceBound(Parser& p);
// DEFAULT COLLATION name of a table or view, when it comes next, and the collation it names (empty
// when the clause is not there). Oracle's own default, USING_NLS_COMP, is what a description without
// one means; another collation is not kept, with a warning.
std::string ReadDefaultCollation(Parser& p);
// The most partitions (or subpartitions) a table or index has in Oracle: 1024K - 1.
inline constexpr int kMostPartitions = 1048575;
// The collation every object has unless it names another.
inline constexpr std::string_view kDefaultCollation = "USING_NLS_COMP";

}  // namespace qarvelt::ddl

#endif  // QARVELT_SRC_DDL_READERS_H
