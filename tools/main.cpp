// qarvelt: Oracle DDL from table and schema documents and DDL scripts.
//
//   qarvelt create DOCUMENT              CREATE statements of a table or a whole schema
//   qarvelt diff OLD NEW                 the script from one table or schema to the other
//                                        (a DOCUMENT is a table or schema document, a DDL script
//                                        (.sql), or a folder of them)
//   qarvelt import SCRIPT.sql...         the schema document that DDL scripts describe
//   qarvelt apply SCHEMA SCRIPT.sql      the schema document after a script runs on a schema
//   qarvelt render STATEMENT.json        any statement of the library, from attribute paths
//   qarvelt paths KIND [--release N]     the attribute paths of a statement kind
//   qarvelt kinds                        the statement kinds
//   qarvelt types [--release N]          the column data types of a release
//   qarvelt --version                    the library version
//
// Exit codes: 0 done, 1 refused while writing, 2 bad input, 3 needs the table created anew.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>

#include <qarvelt/ddl/reader.h>
#include <qarvelt/model/document.h>
#include <qarvelt/model/error.h>
#include <qarvelt/model/schema.h>
#include <qarvelt/model/script.h>
#include <qarvelt/model/statements.h>
#include <qarvelt/version.h>
#include <CLI/CLI.hpp>

using namespace qarvelt::model;

namespace {

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Error(ErrorKind::BadInput, path, "cannot be read");
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// One input: a table document, or a schema (a schema document, a DDL script, or a folder of them).
// A schema is announced on standard error, with what it holds, and so are the notes and warnings
// of reading a script.
struct Input {
  std::optional<Table> table;
  Schema schema;
};

bool isScript(const std::string& path) {
  const std::string extension = std::filesystem::path(path).extension().string();
  return extension == ".sql" || extension == ".SQL" || extension == ".ddl" || extension == ".DDL";
}

void tell(const qarvelt::ddl::ReadReport& report) {
  for (const std::string& note : report.notes)
    std::cerr << "note: " << note << "\n";
  for (const std::string& warning : report.warnings)
    std::cerr << "warning: " << warning << "\n";
}

Input readInput(const std::string& path, const qarvelt::ddl::ReadOptions& options) {
  Input input;
  qarvelt::ddl::ReadReport report;
  if (std::filesystem::is_directory(path)) {
    input.schema = ReadSchemaFolder(path, options, report);
    tell(report);
    std::cerr << "qarvelt: " << path << " is a folder of documents, " << DescribeSchema(input.schema) << "\n";
    return input;
  }
  const std::string document = readFile(path);
  if (isScript(path)) {
    input.schema = qarvelt::ddl::ReadScript(document, path, options, report);
    tell(report);
    std::cerr << "qarvelt: " << path << " is a DDL script, " << DescribeSchema(input.schema) << "\n";
  } else if (IsSchemaDocument(document)) {
    input.schema = ReadSchema(document, path);
    std::cerr << "qarvelt: " << path << " is a schema document, " << DescribeSchema(input.schema) << "\n";
  } else {
    input.table = ReadTable(document, path);
    std::cerr << "qarvelt: " << path << " is a table document, "
              << (input.table->schema.empty() ? "" : input.table->schema + ".") << input.table->name << "\n";
  }
  return input;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "qarvelt: writes Oracle CREATE, ALTER and DROP statements from table and schema documents and DDL "
      "scripts"};
  app.require_subcommand(1);
  app.set_version_flag("--version", "qarvelt " QARVELT_VERSION_STRING);
  std::string terminator = ";";
  std::string output;
  bool json = false;
  Options options;
  int release = 10;  // Oracle 19c
  std::string releaseName;
  bool skipUnknown = false;
  auto readOptions = [&] {
    qarvelt::ddl::ReadOptions o;
    o.skip_unknown = skipUnknown;
    o.release = release;
    return o;
  };

  auto addOutput = [&](CLI::App* command) {
    command->add_option("--terminator", terminator, "statement terminator: ';' (default), '/' or 'none'")
        ->check(CLI::IsMember({";", "/", "none"}));
    command->add_option("--output,-o", output, "write the script to this file instead of standard output");
    command->add_flag("--json", json, "a JSON object with the statements and the warnings");
    command->add_flag("--quote-all", options.quote_all, "write every identifier in double quotes");
  };
  auto addCase = [&](CLI::App* command) {
    command->add_flag("--preserve-case",
                      options.preserve_case,
                      "take names in their exact case (lower-case names in double quotes) instead of "
                      "folding them to upper case as Oracle does");
  };

  std::string tableFile;
  auto* create = app.add_subcommand("create",
                                    "CREATE TABLE, its indexes and comments from a table document, or a "
                                    "whole schema from a schema document, a DDL script or a folder");
  create->add_option("TABLE", tableFile, "a table document, a schema document or a folder of documents")
      ->required();
  addOutput(create);
  addCase(create);
  create->add_flag("--if-exists", options.if_exists, "CREATE ... IF NOT EXISTS (Oracle 23ai)");

  std::string oldFile, newFile;
  auto* diff = app.add_subcommand("diff", "the ALTER script from an old table or schema to a new one");
  diff->add_option("OLD", oldFile, "the table or schema as it is (a document or a folder of documents)")
      ->required();
  diff->add_option("NEW", newFile, "the table or schema as it should be")->required();
  diff->add_flag(
      "--allow-recreate", options.allow_recreate, "accept differences that need the table created anew");
  diff->add_flag("--fail-on-data-loss", options.fail_on_data_loss, "refuse statements that lose data");
  diff->add_flag(
      "--online", options.online, "move the table and rebuild indexes ONLINE (Oracle 12c Release 2)");
  diff->add_flag(
      "--if-exists", options.if_exists, "IF [NOT] EXISTS in CREATE and DROP statements (Oracle 23ai)");
  addOutput(diff);
  addCase(diff);

  std::vector<std::string> scriptFiles;
  auto* import = app.add_subcommand("import", "the schema document that DDL scripts describe");
  import->add_option("SCRIPT", scriptFiles, "DDL scripts (.sql), read in order")->required();
  import->add_option("--output,-o", output, "write the document to this file instead of standard output");

  std::string schemaFile, applyFile;
  auto* apply = app.add_subcommand("apply", "the schema document after a DDL script runs on a schema");
  apply->add_option("SCHEMA", schemaFile, "the schema as it is (a document, script or folder)")->required();
  apply->add_option("SCRIPT", applyFile, "the DDL script to apply (.sql)")->required();
  apply->add_option("--output,-o", output, "write the document to this file instead of standard output");

  for (CLI::App* command : {create, diff, import, apply}) {
    command->add_option("--release", releaseName, "the release of DDL scripts read (default 19c)");
    command->add_flag(
        "--skip-unknown",
        skipUnknown,
        "skip statements of DDL scripts that cannot be read, with a warning, instead of refusing");
  }

  std::string statementFile;
  auto* render = app.add_subcommand("render", "any statement of the library from a statement document");
  render->add_option("STATEMENT", statementFile, "the statement document (JSON)")->required();
  addOutput(render);

  std::string kind;
  auto* paths = app.add_subcommand("paths", "the attribute paths of a statement kind");
  paths->add_option("KIND", kind, "a statement kind (see 'qarvelt kinds')")->required();
  paths->add_option("--release", releaseName, "release code 0-12 or Oracle release name (default 19c)");

  auto* kinds = app.add_subcommand("kinds", "the statement kinds");
  auto* types = app.add_subcommand("types", "the column data types of a release");
  types->add_option("--release", releaseName, "release code 0-12 or Oracle release name (default 19c)");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error);
    return code == 0 ? 0 : static_cast<int>(ErrorKind::BadInput);
  }

  try {
    if (!releaseName.empty()) release = ReadRelease(releaseName, "--release");
    std::string text;
    Script script;
    bool isScript = true;
    if (*create) {
      const Input input = readInput(tableFile, readOptions());
      script = input.table ? Create(*input.table, options) : CreateSchema(input.schema, options);
    } else if (*diff) {
      const Input before = readInput(oldFile, readOptions()), after = readInput(newFile, readOptions());
      if (before.table && after.table) {
        script = Diff(*before.table, *after.table, options);
      } else {
        script = DiffSchema(before.table ? SchemaOfTable(*before.table) : before.schema,
                            after.table ? SchemaOfTable(*after.table) : after.schema,
                            options);
      }
    } else if (*import) {
      isScript = false;
      Schema schema;
      schema.release = release;
      qarvelt::ddl::ReadReport report;
      for (const std::string& file : scriptFiles)
        qarvelt::ddl::ApplyScript(schema, readFile(file), file, readOptions(), report);
      tell(report);
      std::cerr << "qarvelt: " << DescribeSchema(schema) << "\n";
      text = WriteSchema(schema);
    } else if (*apply) {
      isScript = false;
      Input input = readInput(schemaFile, readOptions());
      Schema schema =
          ResolveSchemaNames(input.table ? SchemaOfTable(*input.table) : input.schema, options.preserve_case);
      qarvelt::ddl::ReadReport report;
      qarvelt::ddl::ApplyScript(schema, readFile(applyFile), applyFile, readOptions(), report);
      tell(report);
      text = WriteSchema(schema);
    } else if (*render) {
      script = Render(readFile(statementFile), statementFile);
    } else {
      isScript = false;
      if (*paths) text = PathListing(kind, release);
      if (*kinds) text = KindListing();
      if (*types) text = TypeListing(release);
    }
    if (isScript) {
      // Warnings go to standard error always, and into the JSON with --json.
      for (const std::string& warning : script.warnings)
        std::cerr << "warning: " << warning << "\n";
      text = json ? ScriptJson(script)
                  : ScriptText(script,
                               terminator == ";"   ? Terminator::Semicolon
                               : terminator == "/" ? Terminator::Slash
                                                   : Terminator::None);
    }
    if (output.empty()) {
      std::cout << text;
    } else {
      std::ofstream out(output, std::ios::binary);
      if (!(out << text)) throw Error(ErrorKind::Refused, output, "cannot be written");
    }
    return 0;
  } catch (const Error& error) {
    std::cerr << "qarvelt: " << error.what() << "\n";
    return error.exitCode();
  } catch (const std::exception& error) {
    std::cerr << "qarvelt: " << error.what() << "\n";
    return static_cast<int>(ErrorKind::Refused);
  }
}
