// Prefix and postfix of containers and lists: the prefix opens the text, the postfix closes it only
// when something was written after the prefix; otherwise the node writes nothing at all.
#ifndef QARVELT_SRC_CORE_WRAP_H
#define QARVELT_SRC_CORE_WRAP_H

#include <string>
#include <string_view>

namespace qarvelt::detail {

// Most containers have neither prefix nor postfix: an empty text is not appended at all.
inline void openWrap(std::string_view prefix, std::string& text) {
  if (!prefix.empty()) text += prefix;
}

inline void closeWrap(std::string_view prefix, std::string_view postfix, std::string& text) {
  if (text == prefix) {
    text.clear();
  } else if (!postfix.empty()) {
    text += postfix;
  }
}

}  // namespace qarvelt::detail

#endif  // QARVELT_SRC_CORE_WRAP_H
