// The small text steps the writers share. Prefix and postfix of containers and lists: the prefix
// opens the text, the postfix closes it only when something was written after the prefix; otherwise
// the node writes nothing at all.
#ifndef QARVELT_SRC_CORE_WRAP_H
#define QARVELT_SRC_CORE_WRAP_H

#include <cctype>
#include <string>
#include <string_view>

namespace qarvelt::detail {

// White space as std::isspace says, without a call for the ASCII bytes, on which every locale agrees.
inline bool IsBlank(char c) {
  const auto byte = static_cast<unsigned char>(c);
  if (byte < 0x80) return byte == ' ' || (byte >= '\t' && byte <= '\r');
  return std::isspace(byte) != 0;
}

// Most texts of a tree are empty: an empty text is not appended at all.
inline void appendText(std::string& text, std::string_view part) {
  if (!part.empty()) text += part;
}

inline void openWrap(std::string_view prefix, std::string& text) {
  appendText(text, prefix);
}

// The node's text is `text` from `base` on (a writer that writes in place, after its parent's text).
inline void closeWrap(std::string_view prefix,
                      std::string_view postfix,
                      std::string& text,
                      std::size_t base = 0) {
  if (std::string_view(text).substr(base) == prefix) {
    text.resize(base);
  } else {
    appendText(text, postfix);
  }
}

}  // namespace qarvelt::detail

#endif  // QARVELT_SRC_CORE_WRAP_H
