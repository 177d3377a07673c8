// RENAME: gives a table, view, sequence or private synonym of the current user's schema a new
// name. The statement takes no schema: the object must belong to the user who runs it.
//
//   CSQLRename rename(true, 10);
//   rename.SetValue("OBJECT", "ORDERS_SEQ");
//   rename.SetValue("TO", "ORDER_SEQ");   // RENAME ORDERS_SEQ TO ORDER_SEQ
#ifndef QARVELT_STATEMENTS_RENAME_H
#define QARVELT_STATEMENTS_RENAME_H

#include "qarvelt/statements/statement.h"

namespace qarvelt {

// OBJECT, then TO (the new name, written TO NAME). Writes nothing until OBJECT is set.
class CSQLRename : public DropStatement<CSQLRename> {
 public:
  explicit CSQLRename(bool bInit = true, int nOraVersion = 7);
  static constexpr const char* kNameLeaf = "OBJECT";
  const char* verb() const { return "RENAME"; }

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_RENAME_H
