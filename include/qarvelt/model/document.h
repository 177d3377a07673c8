// The table document: an Oracle table described in JSON, as `qarvelt create` and `qarvelt diff`
// read it. The README describes every key; ReadTable checks them all and refuses anything unknown,
// of the wrong type, or missing, with the place in the document and the nearest valid keys.
#ifndef QARVELT_MODEL_DOCUMENT_H
#define QARVELT_MODEL_DOCUMENT_H

#include <string>
#include <vector>

#include "qarvelt/model/error.h"
#include "qarvelt/model/table.h"

namespace qarvelt::model {

// Reads a table document; `source` names the input in errors (Error, BadInput).
Table ReadTable(const std::string& text, const std::string& source = "document");
// The table as a table document (JSON, indented by two blanks), with only the keys that hold a
// value: ReadTable gives back the same description.
std::string WriteTable(const Table& table);

// The release code of a release given as a number 0-12 or an Oracle release name ("11g", "10gR2",
// "Oracle 9i Release 2", ...). Throws Error (BadInput) naming `where`.
int ReadRelease(const std::string& name, const std::string& where);
// The Oracle release names, by code, as the README's table gives them.
const std::vector<std::string>& ReleaseNames();

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_DOCUMENT_H
