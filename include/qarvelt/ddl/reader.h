// A reader of Oracle DDL scripts into schema descriptions: what the database's own export writes
// (quoted upper-case names, "SCHEMA"."TABLE", full STORAGE and USING INDEX clauses, SEGMENT CREATION)
// and what people write by hand (lower case, comments, statements ended by ";" or by a "/" line,
// SQL*Plus lines such as SET, PROMPT, REM, SPOOL and @file, which are skipped with a note).
//
//   using namespace qarvelt;
//   ddl::ReadReport report;
//   model::Schema schema = ddl::ReadScript(text, "app.sql", {}, report);
//
// The statements are applied in order, so a script may create a table and then add its keys with
// ALTER TABLE, rename it, comment on it or drop it again: the schema is what the script leaves.
#ifndef QARVELT_DDL_READER_H
#define QARVELT_DDL_READER_H

#include <string>
#include <string_view>
#include <vector>

#include "qarvelt/model/schema.h"

namespace qarvelt::ddl {

struct ReadOptions {
  // Skip a statement the reader cannot read, with a warning naming it, instead of refusing the
  // script.
  bool skip_unknown = false;
  // The release code of the schema the script describes (Oracle 19c when not given).
  int release = 10;
};

// What reading left to tell the user: SQL*Plus lines skipped (notes), and statements or clauses
// skipped or not kept (warnings), each with its place "source:line:column".
struct ReadReport {
  std::vector<std::string> notes;
  std::vector<std::string> warnings;
};

// Applies the statements of `text` to `schema`, in order: CREATE adds an object, ALTER changes it,
// DROP removes it, RENAME renames it, COMMENT sets a comment. Throws model::Error (BadInput) whose
// place is "source:line:column" and whose message names the unexpected token; `report` receives
// the notes and warnings.
void ApplyScript(model::Schema& schema,
                 std::string_view text,
                 const std::string& source,
                 const ReadOptions& options,
                 ReadReport& report);

// The schema a script creates from nothing.
model::Schema ReadScript(std::string_view text,
                         const std::string& source,
                         const ReadOptions& options,
                         ReadReport& report);

}  // namespace qarvelt::ddl

#endif  // QARVELT_DDL_READER_H
