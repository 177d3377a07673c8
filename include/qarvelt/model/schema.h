// A schema: the tables, sequences, views, materialized views, synonyms, indexes and triggers one
// schema document describes (see the README), and the script that creates them in an order Oracle
// accepts.
//
//   using namespace qarvelt::model;
//   Schema app = ReadSchema(text, "app.json");
//   std::cout << ScriptText(CreateSchema(app));
#ifndef QARVELT_MODEL_SCHEMA_H
#define QARVELT_MODEL_SCHEMA_H

#include <string>
#include <vector>

#include "qarvelt/model/script.h"
#include "qarvelt/model/table.h"

namespace qarvelt::ddl {
struct ReadOptions;
struct ReadReport;
}  // namespace qarvelt::ddl

namespace qarvelt::model {

struct Sequence {
  std::string name, renamed_from;
  std::string start_with, increment_by, minvalue, maxvalue;
  std::string cycle;  // CYCLE, NOCYCLE or ""
  std::string cache;  // a number, NOCACHE, or ""
  std::string order;  // ORDER, NOORDER or ""
};

struct View {
  std::string name, renamed_from;
  std::vector<std::string> columns;  // aliases
  std::string query;
  bool force = false, read_only = false, check_option = false;
};

struct MaterializedView {
  std::string name;
  std::string query;
  std::string build;           // IMMEDIATE, DEFERRED or ""
  std::string refresh_method;  // FAST, COMPLETE, FORCE or ""
  std::string refresh_on;      // DEMAND, COMMIT or ""
  std::string query_rewrite;   // ENABLE, DISABLE or ""
  std::string tablespace;
};

struct Synonym {
  std::string name;
  bool is_public = false;
  std::string target_schema, target;  // SCHEMA.OBJECT
  std::string dblink;
};

struct Trigger {
  std::string name;
  std::string timing;               // BEFORE, AFTER or INSTEAD OF
  std::vector<std::string> events;  // INSERT, DELETE, UPDATE or "UPDATE OF A, B"
  std::string table;
  bool for_each_row = false;
  std::string when;
  std::string body;                              // the PL/SQL block, with its own END;
  std::string enabled;                           // ENABLE, DISABLE or ""
  std::string referencing_old, referencing_new;  // REFERENCING OLD AS o NEW AS n; "" for :OLD, :NEW
};

// An index given at schema level, with the table it is on.
struct SchemaIndex {
  std::string table;
  Index index;
};

struct Schema {
  std::string name;
  int release = 10;  // Oracle 19c, when the document names no release
  std::vector<Table> tables;
  std::vector<Sequence> sequences;
  std::vector<View> views;
  std::vector<MaterializedView> materialized_views;
  std::vector<Synonym> synonyms;
  std::vector<SchemaIndex> indexes;
  std::vector<Trigger> triggers;
  // The names are exact, as Oracle takes quoted names: not folded to upper case even where they
  // could be (the document key "preserve_case"; set by the DDL reader, whose names are exact).
  bool preserve_case = false;
};

// Reads a schema document; `source` names the input in errors (Error, BadInput). A table of the
// document takes the schema's name and release unless it gives its own.
Schema ReadSchema(const std::string& text, const std::string& source = "document");
// True when `text` is a JSON object without "columns" and with one of the object lists ("tables",
// "sequences", ...): a schema document rather than a table document.
bool IsSchemaDocument(const std::string& text);
// The schema document of a description, the inverse of ReadSchema: only what holds a value is
// written, and a table leaves out the schema and release it inherits.
std::string WriteSchema(const Schema& schema);
// What the schema holds, for a note to the user: "schema APP: 2 tables, 1 sequence, 1 view".
std::string DescribeSchema(const Schema& schema);

// The statements that create the whole schema, in dependency order: sequences; tables in foreign
// key order, each with its indexes and comments, a foreign key of a cycle added afterwards by ALTER
// TABLE ... ADD CONSTRAINT; views in the order their queries name each other; materialized views;
// synonyms; triggers. Throws Error.
Script CreateSchema(const Schema& schema, const Options& options = {});

// The script from one schema to another. Objects pair by name, or by a declared rename (tables,
// sequences, views); what only one side has is created or dropped. The order: dependants dropped
// first (triggers, synonyms, materialized views, views); sequences; foreign keys that go away or
// change; dropped tables; each kept table's changes; new tables in foreign-key order; the foreign
// keys kept tables gain; views in the order their queries name each other; materialized views,
// synonyms and triggers. Dropping a table or a materialized view warns that data is lost (and is
// refused under fail_on_data_loss). Throws Error.
Script DiffSchema(const Schema& before, const Schema& after, const Options& options = {});

// The CREATE script of a document, whichever it is: a table document (Create) or a schema document
// (CreateSchema). Throws Error.
Script CreateDocument(const std::string& text, const std::string& source, const Options& options = {});
// The script between two documents: the table diff when both are table documents, the schema diff
// otherwise (a table document counting as a schema of one table). Throws Error.
Script DiffDocuments(const std::string& before,
                     const std::string& after,
                     const std::string& oldSource,
                     const std::string& newSource,
                     const Options& options = {});

// The schema with every name as the statements write it (folded to upper case unless
// `preserveCase`, references qualified with the schema) and the schema-level indexes placed in
// their tables: the form a DDL script read back has.
Schema ResolveSchemaNames(const Schema& schema, bool preserveCase = false);

// A table document as a schema of one table, so that it can be compared with a schema.
Schema SchemaOfTable(const Table& table);
// Reads every document (*.json) and DDL script (*.sql) of a folder into one schema: the documents in
// the order of their names (table documents add a table, schema documents all they hold), then the
// scripts, applied in the order of their names. The documents must agree on the schema and the
// release. Throws Error (BadInput) naming the file at fault; the scripts' notes go to `report`.
Schema ReadSchemaFolder(const std::string& folder, const ddl::ReadOptions& options, ddl::ReadReport& report);

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_SCHEMA_H
