// qarvelt: Oracle DDL from table documents.
//
//   qarvelt create TABLE.json            CREATE TABLE, CREATE INDEX and COMMENT statements
//   qarvelt diff OLD.json NEW.json       the ALTER script from one description to the other
//   qarvelt render STATEMENT.json        any statement of the library, from attribute paths
//   qarvelt paths KIND [--release N]     the attribute paths of a statement kind
//   qarvelt kinds                        the statement kinds
//   qarvelt types [--release N]          the column data types of a release
//   qarvelt --version                    the library version
//
// Exit codes: 0 done, 1 refused while writing, 2 bad input, 3 needs the table created anew.
#include <fstream>
#include <iostream>
#include <sstream>

#include <qarvelt/util/sqlplus.h>
#include <qarvelt/version.h>
#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "common.h"

using namespace qarvelt::tool;

namespace {

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw ToolError(kExitBadInput, path + ": cannot be read");
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Statements one per block, each followed by the terminator: ";" after the statement (a PL/SQL unit
// gets "/" on a line of its own instead), "/" on a line of its own, or nothing.
std::string formatScript(const Script& script, const std::string& terminator, bool json) {
  if (json) {
    nlohmann::json out = {{"statements", script.statements}, {"warnings", script.warnings}};
    return out.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
  }
  const qarvelt::SQLTerminator how = terminator == ";"   ? qarvelt::SQLTerminator::Semicolon
                                     : terminator == "/" ? qarvelt::SQLTerminator::Slash
                                                         : qarvelt::SQLTerminator::None;
  std::string text;
  for (const std::string& statement : script.statements)
    text += qarvelt::TerminateStatement(statement, how);
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"qarvelt: writes Oracle CREATE and ALTER statements from table documents"};
  app.require_subcommand(1);
  app.set_version_flag("--version", "qarvelt " QARVELT_VERSION_STRING);
  std::string terminator = ";";
  std::string output;
  bool json = false;
  Options options;
  int release = 7;
  std::string releaseName;

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
  auto* create = app.add_subcommand("create", "CREATE TABLE, its indexes and comments from a table document");
  create->add_option("TABLE", tableFile, "the table document (JSON)")->required();
  addOutput(create);
  addCase(create);

  std::string oldFile, newFile;
  auto* diff = app.add_subcommand("diff", "the ALTER script from an old table document to a new one");
  diff->add_option("OLD", oldFile, "the table as it is")->required();
  diff->add_option("NEW", newFile, "the table as it should be")->required();
  diff->add_flag(
      "--allow-recreate", options.allow_recreate, "accept differences that need the table created anew");
  diff->add_flag("--fail-on-data-loss", options.fail_on_data_loss, "refuse statements that lose data");
  addOutput(diff);
  addCase(diff);

  std::string statementFile;
  auto* render = app.add_subcommand("render", "any statement of the library from a statement document");
  render->add_option("STATEMENT", statementFile, "the statement document (JSON)")->required();
  addOutput(render);

  std::string kind;
  auto* paths = app.add_subcommand("paths", "the attribute paths of a statement kind");
  paths->add_option("KIND", kind, "a statement kind (see 'qarvelt kinds')")->required();
  paths->add_option("--release", releaseName, "release code 0-7 or Oracle release name");

  auto* kinds = app.add_subcommand("kinds", "the statement kinds");
  auto* types = app.add_subcommand("types", "the column data types of a release");
  types->add_option("--release", releaseName, "release code 0-7 or Oracle release name");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error);
    return code == 0 ? 0 : kExitBadInput;
  }

  try {
    if (!releaseName.empty()) release = ReleaseCode(releaseName, "--release");
    std::string text;
    Script script;
    bool isScript = true;
    if (*create) {
      script = RunCreate(ReadTable(readFile(tableFile), tableFile), options);
    } else if (*diff) {
      script = RunDiff(ReadTable(readFile(oldFile), oldFile), ReadTable(readFile(newFile), newFile), options);
    } else if (*render) {
      script = RunRender(readFile(statementFile), statementFile);
    } else {
      isScript = false;
      if (*paths) text = RunPaths(kind, release);
      if (*kinds) text = RunKinds();
      if (*types) text = RunTypes(release);
    }
    if (isScript) {
      // Warnings go to standard error always, and into the JSON with --json.
      for (const std::string& warning : script.warnings)
        std::cerr << "warning: " << warning << "\n";
      text = formatScript(script, terminator, json);
    }
    if (output.empty()) {
      std::cout << text;
    } else {
      std::ofstream out(output, std::ios::binary);
      if (!(out << text)) throw ToolError(kExitFailure, output + ": cannot be written");
    }
    return kExitOk;
  } catch (const ToolError& error) {
    std::cerr << "qarvelt: " << error.what() << "\n";
    return error.code();
  } catch (const std::exception& error) {
    std::cerr << "qarvelt: " << error.what() << "\n";
    return kExitFailure;
  }
}
