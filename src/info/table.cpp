#include "qarvelt/info/table.h"

#include "qarvelt/core/clause.h"

namespace qarvelt {

CSQLInfoTable::CSQLInfoTable() {
  init();
}

void CSQLInfoTable::init() {
  registerValues({"SCHEMA",
                  "TABLE",
                  "TABLESPACE",
                  "PCTFREE",
                  "PCTUSED",
                  "INITRANS",
                  "MAXTRANS",
                  "INITIAL",
                  "NEXT",
                  "MINEXTENTS",
                  "MAXEXTENTS",
                  "PCTINCREASE",
                  "FREELISTS",
                  "FREELIST",
                  "OPTIMAL",
                  "BUFFER_POOL",
                  "LOGGING",
                  "COMPRESS",
                  "EXTENT",
                  "EXTENT;SIZE",
                  "EXTENT;DATAFILE",
                  "EXTENT;INSTANCE",
                  "DEALLOCATE;UNUSED",
                  "DEALLOCATE;KEEP",
                  "CACHE",
                  "MONITORING",
                  "PARALLEL",
                  "PARALLEL;VALUE",
                  "ENABLE;LOCK",
                  "ENABLE;TRIGGERS",
                  "COMMENTS",
                  "ROW_MOVEMENT",
                  "SHRINK",
                  "SHRINK;COMPACT",
                  "SHRINK;CASCADE"});
}

int CSQLInfoTable::BuildSQL(std::string what,
                            CSQLClause* clause,
                            CSQLClause* /*statement*/,
                            std::vector<std::string>* /*out*/,
                            const char* /*extra*/) {
  if (clause == nullptr) return 0;
  auto set = [clause](const std::string& path, const std::string& text) {
    clause->SetValue(path.c_str(), text.c_str());
  };
  const std::string property = "C_ALT_TABLE_PROPERTY;";
  const std::string physical = property + "C_PHYSICAL_ATTRIBUTES;";

  // The statement names the table as it exists now, before any rename.
  set("SCHEMA", GetSQLValue("SCHEMA").GetInit());
  set("TABLE", GetSQLValue("TABLE").GetInit());
  if (what == "TABLE") return 0;

  if (IsModified("TABLE")) set(property + "RENAME", changeOf("TABLE"));
  set("C_MOVE_TABLE;C_SEG_ATTRIBUTE;TABLESPACE", changeOf("TABLESPACE"));
  for (const char* name : {"PCTFREE", "PCTUSED", "INITRANS", "MAXTRANS"})
    set(physical + name, changeOf(name));
  for (const char* name : {"INITIAL",
                           "NEXT",
                           "MINEXTENTS",
                           "MAXEXTENTS",
                           "PCTINCREASE",
                           "FREELISTS",
                           "FREELIST",
                           "OPTIMAL",
                           "BUFFER_POOL"}) {
    set(physical + "C_STORAGE;" + name, changeOf(name));
  }
  set(physical + "LOGGING", changeOf("LOGGING"));
  set(physical + "COMPRESS", changeOf("COMPRESS"));

  // ALLOCATE EXTENT, with its parameters only together with a requested extent.
  if (IsModified("EXTENT")) {
    set(property + "C_ALLOCATE_EXTENT;EXTENT", "EXTENT");
    if (IsModified("EXTENT;SIZE") || IsModified("EXTENT;DATAFILE") || IsModified("EXTENT;INSTANCE")) {
      for (const char* name : {"SIZE", "DATAFILE", "INSTANCE"}) {
        set(property + "C_ALLOCATE_EXTENT;EXTENT;" + name, changeOf((std::string("EXTENT;") + name).c_str()));
      }
    }
  }
  // A changed KEEP amount alone requests DEALLOCATE UNUSED.
  if (IsModified("DEALLOCATE;UNUSED") || IsModified("DEALLOCATE;KEEP")) {
    set(property + "C_DEALLOCATE_UNUSED;UNUSED", "UNUSED");
    set(property + "C_DEALLOCATE_UNUSED;KEEP", changeOf("DEALLOCATE;KEEP"));
  }

  // LOGGING and COMPRESS go both into the physical attributes and to the property level; the tree
  // writes them where it has them.
  set(property + "LOGGING", changeOf("LOGGING"));
  set(property + "COMPRESS", changeOf("COMPRESS"));
  set(property + "CACHE", changeOf("CACHE"));
  set(property + "MONITORING", changeOf("MONITORING"));

  // Switching to PARALLEL always restates the degree; a changed degree alone is not scripted.
  const std::string parallel = changeOf("PARALLEL");
  set(property + "C_PARALLEL;PARALLEL", parallel);
  if (parallel == "PARALLEL")
    set(property + "C_PARALLEL;PARALLEL;VALUE", GetSQLValue("PARALLEL;VALUE").GetValue());

  set("C_ALT_LOC_TAB;LOCK", changeOf("ENABLE;LOCK"));
  set("C_ALT_LOC_TAB;TRIGGERS", changeOf("ENABLE;TRIGGERS"));
  set(property + "C_ROW_MOVEMENT;ENABLE", changeOf("ROW_MOVEMENT"));
  set(property + "C_SHRINK;SHRINK", changeOf("SHRINK"));
  set(property + "C_SHRINK;COMPACT", changeOf("SHRINK;COMPACT"));
  set(property + "C_SHRINK;CASCADE", changeOf("SHRINK;CASCADE"));
  return 0;
}

}  // namespace qarvelt
