// Prefix and postfix of containers and lists: the prefix opens the text, the postfix closes it only
// when something was written after the prefix; otherwise the node writes nothing at all.
#ifndef QARVELT_SRC_CORE_WRAP_H
#define QARVELT_SRC_CORE_WRAP_H

#include <string>

namespace qarvelt::detail {

inline void openWrap(const std::string& prefix, std::string& text) {
  text += prefix;
}

inline void closeWrap(const std::string& prefix, const std::string& postfix, std::string& text) {
  if (text == prefix) {
    text.clear();
  } else {
    text += postfix;
  }
}

}  // namespace qarvelt::detail

#endif  // QARVELT_SRC_CORE_WRAP_H
