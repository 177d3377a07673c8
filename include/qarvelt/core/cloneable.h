// The common base of clause, statement and item classes: it supplies the clone operator, so that a
// class only names itself and builds its tree.
//
//   class CSQLClauseExceptions : public Cloneable<CSQLClauseExceptions> {
//    public:
//     explicit CSQLClauseExceptions(bool bInit = true, int nOraVersion = 7);   // setup("C_EXCEPTIONS",
//     bInit)
//    protected:
//     void init() override;
//   };
//
// The clone is an empty shell Derived(false, 7) into which the source is copied (release code
// included), so every class needs that (bool, int) constructor.
#ifndef QARVELT_CORE_CLONEABLE_H
#define QARVELT_CORE_CLONEABLE_H

#include "qarvelt/core/clause.h"

namespace qarvelt {

template <class Derived, class Base = CSQLClause>
class Cloneable : public Base {
 public:
  CSQLClause* operator*() override { return this->cloneInto(new Derived(false, kLatestRelease)); }

 protected:
  // Constructs the base as an empty shell with the given release code; the derived constructor then
  // calls setup(name, bInit).
  explicit Cloneable(int nOraVersion) : Base(false, nOraVersion) {}
};

}  // namespace qarvelt

#endif  // QARVELT_CORE_CLONEABLE_H
