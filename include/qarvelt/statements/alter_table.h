// ALTER TABLE [schema.]table with one alteration per statement, chosen among the column operations
// ("C_COLUMN"), the constraint operations ("C_CONSTRAINT"), partition maintenance
// ("C_ALTER_TAB_PART"), external table properties ("C_ALT_EXT_TAB"), MOVE ("C_MOVE_TABLE"), table
// lock and triggers ("C_ALT_LOC_TAB": "LOCK", "TRIGGERS") and the table properties
// ("C_ALT_TABLE_PROPERTY"), followed by an optional ENABLE/DISABLE clause ("C_ENABLE_DISABLE").
//
//   ALTER TABLE SCOTT.EMP PCTFREE 20
//
// Set "SCHEMA" and "TABLE" with SetValue, fill one alternative and write the statement. An ALTER that
// alters nothing writes the empty text. Several alternatives filled at once are written one per pass
// (write, RefreshUsed(), write again while hasUnused()).
#ifndef QARVELT_STATEMENTS_ALTER_TABLE_H
#define QARVELT_STATEMENTS_ALTER_TABLE_H

#include "qarvelt/statements/statement.h"

namespace qarvelt {

class CSQLAlterTable : public AlterStatement<CSQLAlterTable> {
 public:
  static constexpr const char* kVerb = "ALTER TABLE";
  static constexpr const char* kNameLeaf = "TABLE";

  explicit CSQLAlterTable(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_ALTER_TABLE_H
