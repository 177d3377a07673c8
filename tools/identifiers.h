// Oracle identifiers: checked for the release they are written for, and quoted when they need it.
#ifndef QARVELT_TOOLS_IDENTIFIERS_H
#define QARVELT_TOOLS_IDENTIFIERS_H

#include <string>

namespace qarvelt::tool {

// The longest identifier, in bytes, that a release takes. Every release the library knows (up to
// Oracle 11g) takes 30; Oracle 12.2 raised it to 128.
int MaxIdentifierBytes(int release);
bool IsReservedWord(const std::string& word);

// `name` as it is written in a statement: bare when it is an ordinary upper-case identifier, in
// double quotes when it needs them (lower case, blanks, a reserved word, a leading digit ...) or
// when `quoteAll` is set. Throws ToolError (exit code 2) naming `where` for a name Oracle refuses:
// empty, too long for the release, or holding a double quote or a NUL.
std::string Identifier(const std::string& name, int release, bool quoteAll, const std::string& where);

}  // namespace qarvelt::tool

#endif  // QARVELT_TOOLS_IDENTIFIERS_H
