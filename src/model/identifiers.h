// Oracle identifiers: folded as Oracle folds names written without quotes, checked for the release
// they are written for, and quoted when they need it.
#ifndef QARVELT_MODEL_IDENTIFIERS_H
#define QARVELT_MODEL_IDENTIFIERS_H

#include <string>

#include "qarvelt/model/document.h"

namespace qarvelt::model {

// The longest identifier, in bytes, that a release takes. Every release the library knows (up to
// Oracle 11g) takes 30; Oracle 12.2 raised it to 128.
int MaxIdentifierBytes(int release);
bool IsReservedWord(const std::string& word);

// `name` as it is written in a statement: bare when it is an ordinary upper-case identifier, in
// double quotes when it needs them (lower case, blanks, a reserved word, a leading digit ...) or
// when `quoteAll` is set. Throws Failure (exit code 2) naming `where` for a name Oracle refuses:
// empty, too long for the release, or holding a double quote or a NUL.
std::string Identifier(const std::string& name, int release, bool quoteAll, const std::string& where);

// `name` as Oracle reads it unquoted: a valid unquoted identifier (a letter, then letters, digits,
// _, $ and #, not a reserved word) in upper case, whatever its case; any other name as it is.
std::string FoldName(const std::string& name);

// The table with every name as the statements refer to it: folded as Oracle folds unquoted names
// (unless `preserveCase`), so that `emp` and `EMP` are one object, and with the table's schema
// given to references and to the index a key uses when they name none, so that the script means
// the same objects whoever runs it. Compare and write the names of the result only.
Table ResolveNames(Table table, bool preserveCase);

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_IDENTIFIERS_H
