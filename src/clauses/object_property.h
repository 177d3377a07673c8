// The object property of an object table or of a nested table's storage table ("C_OBJECT_PROPERTY"):
// a column or attribute with its default and constraints, or an out-of-line constraint, or a
// supplemental logging property. Used inside the library only; its nested clauses are always built
// for the latest release.
#ifndef QARVELT_SRC_CLAUSES_OBJECT_PROPERTY_H
#define QARVELT_SRC_CLAUSES_OBJECT_PROPERTY_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

class CSQLClauseObjectProperty : public Cloneable<CSQLClauseObjectProperty> {
 public:
  explicit CSQLClauseObjectProperty(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_SRC_CLAUSES_OBJECT_PROPERTY_H
