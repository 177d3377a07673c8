// The attributes of an index ("C_INDEX_ATTRIBUTES"), in Oracle's order: physical attributes
// ("C_PHYSICAL_ATTRIBUTES"), "LOGGING" (LOGGING or NOLOGGING), "ONLINE", "COMPUTE" (written COMPUTE
// STATISTICS), "TABLESPACE" (a name or DEFAULT), key compression ("C_KEY_COMPRESSION"), "SORT" (SORT
// or NOSORT), "REVERSE", "VISIBLE" (VISIBLE or INVISIBLE) and the parallel clause ("C_PARALLEL").
//
//   PCTFREE 10 NOLOGGING ONLINE TABLESPACE IDX COMPRESS 1 NOSORT PARALLEL 4
//
// What an older release lacks is left out: REVERSE before release code 1 (Oracle 8.0); LOGGING,
// ONLINE, COMPUTE STATISTICS and key compression before 2 (Oracle 8i); VISIBLE before 7 (Oracle 11g).
#ifndef QARVELT_CLAUSES_INDEX_ATTRIBUTES_H
#define QARVELT_CLAUSES_INDEX_ATTRIBUTES_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

class CSQLClauseIndexAttributes : public Cloneable<CSQLClauseIndexAttributes> {
 public:
  explicit CSQLClauseIndexAttributes(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CLAUSES_INDEX_ATTRIBUTES_H
