// The table-property alternative of ALTER TABLE ("C_ALT_TABLE_PROPERTY"): what an existing table can
// change in place, or SHRINK, or RENAME.
//
//   PCTFREE 20 LOGGING CACHE MONITORING PARALLEL 4 ENABLE ROW MOVEMENT
//   SHRINK SPACE COMPACT CASCADE
//   RENAME TO T2
//
// Leaves with no prefix are bare keywords: the host gives the whole keyword (LOGGING or NOLOGGING,
// CACHE or NOCACHE, SHRINK SPACE, MINIMIZE or NOMINIMIZE, ENABLE or DISABLE, ...).
#ifndef QARVELT_STATEMENTS_ALTER_TABLE_PROPS_H
#define QARVELT_STATEMENTS_ALTER_TABLE_PROPS_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// One of three alternatives, written once per pass:
//   the property changes, every one that is set, in this order: "C_PHYSICAL_ATTRIBUTES" (built with
//     this clause's release code), "LOGGING", "COMPRESS", "C_SUPPLEMENTAL_LG_GRP", "C_ALLOCATE_EXTENT",
//     "C_DEALLOCATE_UNUSED", "CACHE", "MONITORING", "C_UPGRADE_TABLE" ("UPGRADE", with
//     "UPGRADE;INCLUDING" written INCLUDING DATA and "UPGRADE;C_COLUMN_PROP"), "C_RECORDS_PER_BLK"
//     ("MINIMIZE", written MINIMIZE RECORDS_PER_BLOCK), "C_PARALLEL", "C_ROW_MOVEMENT" ("ENABLE",
//     written ENABLE ROW MOVEMENT);
//   "C_SHRINK" with "SHRINK", "COMPACT", "CASCADE";
//   "RENAME", the new name, written RENAME TO.
// "C_ALTER_IOT" follows whichever alternative is written.
class CSQLClauseAltTableProp : public Cloneable<CSQLClauseAltTableProp> {
 public:
  explicit CSQLClauseAltTableProp(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_ALTER_TABLE_PROPS_H
