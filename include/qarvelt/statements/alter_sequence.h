// ALTER SEQUENCE: SCHEMA and SEQUENCE, then the options of CREATE SEQUENCE but START WITH
// (INCREMENT, and the keyword leaves MAXVALUE, MINVALUE, CYCLE, CACHE and ORDER, the first three
// with a VALUE child), and from release code 9 (Oracle 12c Release 2 and 18c) RESTART, with an
// optional START child: ALTER SEQUENCE S RESTART START WITH 100.
#ifndef QARVELT_STATEMENTS_ALTER_SEQUENCE_H
#define QARVELT_STATEMENTS_ALTER_SEQUENCE_H

#include "qarvelt/statements/statement.h"

namespace qarvelt {

class CSQLAlterSequence : public AlterStatement<CSQLAlterSequence> {
 public:
  explicit CSQLAlterSequence(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kVerb = "ALTER SEQUENCE";
  static constexpr const char* kNameLeaf = "SEQUENCE";

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_ALTER_SEQUENCE_H
