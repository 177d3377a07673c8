// Name lists shared by the information records: "A,B" texts and list items named after columns.
#ifndef QARVELT_SRC_INFO_NAMES_H
#define QARVELT_SRC_INFO_NAMES_H

#include <string>
#include <vector>

namespace qarvelt {

class CSQLClause;

namespace detail {

// "A, B,,C" -> {"A", "B", "C"}: split at commas, blanks trimmed, empty names left out.
std::vector<std::string> SplitNames(const std::string& text);
// Appends to the list at `path` below `clause` one leaf per name, named and valued after it.
void AppendNameLeaves(CSQLClause* clause, const char* path, const std::vector<std::string>& names);

}  // namespace detail
}  // namespace qarvelt

#endif  // QARVELT_SRC_INFO_NAMES_H
