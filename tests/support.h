// Helpers shared by the tests: small trees built by hand and a writer that returns text and code.
#ifndef QARVELT_TESTS_SUPPORT_H
#define QARVELT_TESTS_SUPPORT_H

#include <functional>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <qarvelt/qarvelt.h>

namespace qarvelt::testing {

struct Written {
  int code;
  std::string text;
};

inline Written write(CSQLClause& node, const char* path = "*") {
  Written out{0, "unchanged"};
  out.code = node.GetModifiedSQL(path, out.text);
  return out;
}

// A leaf with a current value (initial value empty), so that it writes as in CREATE text.
inline std::unique_ptr<CSQLAttr> valued(const char* name,
                                        const char* value,
                                        const char* prefix = "",
                                        const char* suffix = "",
                                        const char* postfix = "") {
  return std::make_unique<CSQLAttr>(name, "", value, prefix, suffix, postfix);
}

// A plain named node to hang children on, as clause classes do.
class Named : public CSQLClause {
 public:
  explicit Named(const char* name) : CSQLClause(false, 7) { setName(name); }
  Named(bool bInit, int nOraVersion) : CSQLClause(bInit, nOraVersion) {}
  CSQLClause* operator*() override { return cloneInto(new Named(false, 7)); }

  // The protected path grammar, for the tests of the grammar itself.
  using CSQLClause::getAttr;
  using CSQLClause::isEqual;
  using CSQLClause::nextAttr;
};

template <class T, class... Children>
std::unique_ptr<T> with(std::unique_ptr<T> parent, Children&&... children) {
  (parent->AddAttr(nullptr, std::unique_ptr<CSQLClause>(std::forward<Children>(children))), ...);
  return parent;
}

// One value given to a tree: SetInit(path, init) first when init is given, then SetValue(path, value).
struct Set {
  const char* path;
  const char* value;
  const char* init = nullptr;
};

// A table-driven case for clause and statement trees: a tree, the values set by path, the text
// expected from GetModifiedSQL (trimmed, as a parent or a host reads it).
struct TreeCase {
  const char* name;
  std::function<std::unique_ptr<CSQLClause>()> make;
  std::vector<Set> values;
  const char* text;
  const char* path = "*";
};

inline void PrintTo(const TreeCase& c, std::ostream* os) {
  *os << c.name;
}

// gtest parameter names from case names.
inline std::string caseName(const ::testing::TestParamInfo<TreeCase>& info) {
  std::string name = info.param.name;
  for (char& ch : name) {
    if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
  }
  return name;
}

inline std::string trimmed(std::string text) {
  Trim(text);
  return text;
}

// Fills the tree, checks the text, and checks it again through a clone of the filled tree.
inline void checkTreeCase(const TreeCase& c) {
  auto tree = c.make();
  ASSERT_NE(tree, nullptr);
  for (const Set& set : c.values) {
    if (set.init != nullptr) {
      ASSERT_EQ(tree->SetInit(set.path, set.init), SQL_OK) << "SetInit " << set.path;
    }
    ASSERT_EQ(tree->SetValue(set.path, set.value), SQL_OK) << "SetValue " << set.path;
  }
  auto clone = tree->Clone();
  EXPECT_EQ(trimmed(write(*tree, c.path).text), c.text);
  EXPECT_EQ(trimmed(write(*clone, c.path).text), c.text) << "through a clone";
}

template <class T>
std::function<std::unique_ptr<CSQLClause>()> make(int nOraVersion) {
  return [nOraVersion] { return std::make_unique<T>(true, nOraVersion); };
}

// A release gate: the path exists in T's tree from release code `first` on, and not one code before.
template <class T>
void expectGate(const char* path, int first) {
  EXPECT_EQ(T(true, first - 1).GetClause(path), nullptr) << path << " before " << first;
  EXPECT_NE(T(true, first).GetClause(path), nullptr) << path << " at " << first;
}

template <class T>
void expectGates(std::initializer_list<std::pair<const char*, int>> gates) {
  for (const auto& [path, first] : gates)
    expectGate<T>(path, first);
}

// A node that a class has from release code `since` on, and not before.
struct Gate {
  std::function<std::unique_ptr<CSQLClause>(int)> make;
  const char* path;
  int since;
};

template <class T>
std::function<std::unique_ptr<CSQLClause>(int)> built() {
  return [](int nOraVersion) { return std::make_unique<T>(true, nOraVersion); };
}

inline void checkGates(const std::vector<Gate>& gates, int from = 0) {
  for (const Gate& g : gates) {
    for (int v = from; v <= kNewestRelease; ++v)
      EXPECT_EQ(g.make(v)->GetClause(g.path) != nullptr, v >= g.since) << g.path << " at " << v;
  }
}

}  // namespace qarvelt::testing

#endif  // QARVELT_TESTS_SUPPORT_H
