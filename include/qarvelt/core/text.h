// The fixed texts of a node (its name, prefix, suffix and postfix). Most of them are string literals
// of the class listings, and a tree of hundreds of nodes would copy each of them; a node keeps a view
// of a literal instead, and a copy of its own only of a text that may not outlive the call (a host's
// item name, a prefix set at run time).
#ifndef QARVELT_CORE_TEXT_H
#define QARVELT_CORE_TEXT_H

#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace qarvelt {

// A text handed to the tree: a string literal (a const char array) is kept as a view, any other
// `const char*` is copied; null reads as "". An array of static storage that is not a literal
// (static const char kName[] = "...") is kept as a view too, so it must live as long as the tree.
class TreeText {
 public:
  template <std::size_t N>
  TreeText(const char (&literal)[N]) : m_text(literal), m_literal(true) {}  // NOLINT: implicit
  template <class T,
            class = std::enable_if_t<std::is_same_v<T, const char*> || std::is_same_v<T, char*> ||
                                     std::is_same_v<T, std::nullptr_t>>>
  TreeText(T text) : m_text(text != nullptr ? std::string_view(text) : std::string_view()) {}  // NOLINT
  // A char array that is not const is a buffer of the caller: copied.
  template <std::size_t N>
  TreeText(char (&buffer)[N]) : m_text(buffer) {}  // NOLINT

  std::string_view text() const { return m_text; }
  bool literal() const { return m_literal; }

 private:
  std::string_view m_text;
  bool m_literal = false;
};

namespace detail {

// The stored form: a view of a literal, or an owned copy.
class NodeText {
 public:
  NodeText() = default;
  NodeText(const NodeText&) = delete;
  NodeText& operator=(const NodeText&) = delete;
  ~NodeText() { release(); }

  void set(TreeText text) {
    if (text.literal()) {
      view(text.text());
    } else {
      copy(text.text());
    }
  }
  // Takes another node's text: a literal is shared, an owned text copied.
  void assign(const NodeText& other) {
    if (&other == this) return;
    if (other.m_owned) {
      copy(other.str());
    } else {
      view(other.str());
    }
  }

  std::string_view str() const { return std::string_view(m_data, m_size); }
  bool empty() const { return m_size == 0; }

 private:
  void release() {
    if (m_owned) delete[] m_data;
    m_owned = false;
  }
  void view(std::string_view text) {
    release();
    m_data = text.empty() ? "" : text.data();
    m_size = static_cast<std::uint32_t>(text.size());
  }
  void copy(std::string_view text) {
    if (text.empty()) {
      view(text);
      return;
    }
    char* owned = new char[text.size() + 1];
    std::memcpy(owned, text.data(), text.size());
    owned[text.size()] = '\0';
    release();
    m_data = owned;
    m_size = static_cast<std::uint32_t>(text.size());
    m_owned = true;
  }

  const char* m_data = "";
  std::uint32_t m_size = 0;
  bool m_owned = false;
};

}  // namespace detail

}  // namespace qarvelt

#endif  // QARVELT_CORE_TEXT_H
