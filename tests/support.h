// Helpers shared by the tests: small trees built by hand and a writer that returns text and code.
#ifndef QARVELT_TESTS_SUPPORT_H
#define QARVELT_TESTS_SUPPORT_H

#include <functional>
#include <memory>
#include <string>

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

}  // namespace qarvelt::testing

#endif  // QARVELT_TESTS_SUPPORT_H
