// The readers of the table document's objects, for the documents that hold tables and indexes (the
// schema document).
#ifndef QARVELT_MODEL_DOCUMENT_READER_H
#define QARVELT_MODEL_DOCUMENT_READER_H

#include <string>
#include <vector>

#include "json_reader.h"
#include "qarvelt/model/table.h"

namespace qarvelt::model {

// A table object into `t`; its "schema" and "release" keys, when given, replace what `t` holds.
void ReadTableObject(ObjectReader& r, Table& t);
// One index object, as a table's "indexes" hold them.
void ReadIndexObject(ObjectReader& r, Index& x);
// "release": a code or a name; `absent` when not given.
int ReadReleaseKey(ObjectReader& r, int absent);
// One of `allowed` (compared in upper case), or "" when absent; anything else is an error.
std::string ReadChoice(ObjectReader& r,
                       const char* key,
                       const std::vector<std::string>& allowed,
                       bool required = false);

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_DOCUMENT_READER_H
