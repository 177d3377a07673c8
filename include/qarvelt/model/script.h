// Table descriptions to scripts: the CREATE statements of one table, and the ordered ALTER script
// from the table as it is to the table as it should be. These are what `qarvelt create` and
// `qarvelt diff` write; a host gets the same statements, warnings and errors.
//
//   using namespace qarvelt::model;
//   Script script = Diff(ReadTable(oldJson, "old.json"), ReadTable(newJson, "new.json"));
//   std::cout << ScriptText(script, Terminator::Semicolon);
#ifndef QARVELT_MODEL_SCRIPT_H
#define QARVELT_MODEL_SCRIPT_H

#include <string>
#include <vector>

#include "qarvelt/model/table.h"

namespace qarvelt::model {

struct Options {
  bool allow_recreate = false;     // Diff: accept differences that need the table created anew
  bool fail_on_data_loss = false;  // Diff: refuse statements that lose data (Error, Refused)
  bool quote_all = false;          // write every identifier in double quotes
  bool preserve_case = false;      // take names exactly as written, instead of folding them as Oracle does
  bool online =
      false;  // Diff: move the table and rebuild its indexes ONLINE (refused where the release lacks it)
  bool if_exists = false;  // Oracle 23ai: CREATE ... IF NOT EXISTS and DROP ... IF EXISTS (refused below it)
};

// The statements of a script, in order, without terminators, and the warnings about them (data
// loss, for one).
struct Script {
  std::vector<std::string> statements;
  std::vector<std::string> warnings;
};

// CREATE TABLE, its CREATE INDEX and COMMENT statements. Throws Error.
Script Create(const Table& table, const Options& options = {});
// The ALTER script from `before` to `after`. Throws Error.
Script Diff(const Table& before, const Table& after, const Options& options = {});

// How statements end in a script for SQL*Plus or SQLcl: ";" (a PL/SQL unit ends with its own END;
// and a line holding only "/"), a line holding only "/", or nothing.
enum class Terminator { Semicolon, Slash, None };
// The statements one per block, each ended as `terminator` says: the tool's text output.
std::string ScriptText(const Script& script, Terminator terminator = Terminator::Semicolon);
// {"statements": [...], "warnings": [...]}, indented by two blanks: the tool's --json output.
std::string ScriptJson(const Script& script);

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_SCRIPT_H
