#include "names.h"

#include <memory>

#include "qarvelt/core/attr.h"

namespace qarvelt::detail {

std::vector<std::string> SplitNames(const std::string& text) {
  std::vector<std::string> names;
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t comma = text.find(',', start);
    if (comma == std::string::npos) comma = text.size();
    std::string name = text.substr(start, comma - start);
    Trim(name);
    if (!name.empty()) names.push_back(name);
    start = comma + 1;
  }
  return names;
}

void AppendNameLeaves(CSQLClause* clause, const char* path, const std::vector<std::string>& names) {
  if (clause == nullptr) return;
  for (const std::string& name : names) {
    clause->AddAttr(path, std::make_unique<CSQLAttr>(name.c_str(), "", name.c_str()));
  }
}

}  // namespace qarvelt::detail
