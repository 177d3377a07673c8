// The information record of one table: its name, schema and table-level properties. BuildSQL copies
// what changed into an ALTER TABLE statement (CSQLAlterTable); the caller writes the statement.
//
// Value names: "SCHEMA", "TABLE" (a changed name is a rename), "TABLESPACE" (a change moves the
// table), "PCTFREE", "PCTUSED", "INITRANS", "MAXTRANS", the storage parameters "INITIAL", "NEXT",
// "MINEXTENTS", "MAXEXTENTS", "PCTINCREASE", "FREELISTS", "FREELIST" (freelist groups), "OPTIMAL",
// "BUFFER_POOL", "LOGGING", "COMPRESS", "EXTENT" (a change requests ALLOCATE EXTENT) with
// "EXTENT;SIZE", "EXTENT;DATAFILE", "EXTENT;INSTANCE", "DEALLOCATE;UNUSED" and "DEALLOCATE;KEEP",
// "CACHE", "MONITORING", "PARALLEL" with "PARALLEL;VALUE", "ENABLE;LOCK", "ENABLE;TRIGGERS",
// "COMMENTS" (kept, never scripted), "ROW_MOVEMENT", "SHRINK" with "SHRINK;COMPACT" and
// "SHRINK;CASCADE". Keyword properties hold the keyword itself (NOLOGGING, CACHE, ...).
#ifndef QARVELT_INFO_TABLE_H
#define QARVELT_INFO_TABLE_H

#include "qarvelt/info/base.h"

namespace qarvelt {

class CSQLInfoTable : public CSQLInfoBase {
 public:
  CSQLInfoTable();

  // Fills `clause`, an ALTER TABLE statement. With `what` "TABLE" only the statement's head (the
  // table as it exists now); otherwise every changed property too. Always returns 0.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_INFO_TABLE_H
