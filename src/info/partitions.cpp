#include "qarvelt/info/partitions.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <utility>

#include "gen_alt.h"
#include "qarvelt/clauses/partition.h"
#include "qarvelt/core/attr.h"
#include "qarvelt/core/clause.h"
#include "qarvelt/statements/alter_table.h"
#include "qarvelt/util/util.h"

namespace qarvelt {

namespace {

enum class Kind { Range, Hash, List };

// RANGE, HASH or LIST, ignoring case; anything else is range partitioning.
Kind kindOf(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) {
    return static_cast<char>(std::toupper(c));
  });
  Trim(text);
  if (text == "HASH") return Kind::Hash;
  if (text == "LIST") return Kind::List;
  return Kind::Range;
}

Kind kindOf(CSQLInfoBase* record) {
  return kindOf(record->GetSQLValue("TYPE").GetValue());
}

std::string current(CSQLInfoBase* record, const char* type) {
  return record->GetSQLValue(type).GetValue();
}

std::string change(CSQLInfoBase* record, const char* type) {
  return *record->GetSQLValue(type);
}

// The name a value "NAME" holds, initial or current; the item's own name when that text is empty.
const char* const kPhysical[] = {"PCTFREE", "PCTUSED", "INITRANS", "MAXTRANS"};
// Storage that Oracle changes in place, and storage that only a new segment takes.
const char* const kStorageInPlace[] = {"NEXT", "MAXEXTENTS", "PCTINCREASE", "FREELISTS", "BUFFER_POOL"};
const char* const kStorageNewSegment[] = {"INITIAL", "MINEXTENTS", "FREELIST"};

// The MODIFY PARTITION variant of a partition kind.
const char* modifyVariant(Kind kind) {
  switch (kind) {
    case Kind::Hash:
      return "C_MOD_HASH_PART";
    case Kind::List:
      return "C_MOD_LIST_PART";
    case Kind::Range:
      break;
  }
  return "C_MOD_RANGE_PART";
}

}  // namespace

// ---- subpartition -------------------------------------------------------------------------------

CSQLInfoTableSubPartition::CSQLInfoTableSubPartition(const char* name, const char* type) {
  setName(name);
  init();
  SetSQLValue("NAME", "", GetName().c_str());
  SetSQLValue("TYPE", "", type != nullptr ? type : "");
}

void CSQLInfoTableSubPartition::init() {
  registerValues({"NAME", "TYPE"});
  registerValue(std::make_unique<CSQLValues>("VALUES"));
  registerValue(std::make_unique<CSQLValues>("VALUES;ADD"));
  registerValues({"TABLESPACE", "TRUNCATE", "TRUNCATE;STORAGE"});
}

CSQLValues& CSQLInfoTableSubPartition::VALUES() {
  return static_cast<CSQLValues&>(GetSQLValue("VALUES"));
}

CSQLValues& CSQLInfoTableSubPartition::ADD_VALUES() {
  return static_cast<CSQLValues&>(GetSQLValue("VALUES;ADD"));
}

// ---- partition ----------------------------------------------------------------------------------

CSQLInfoTablePartition::CSQLInfoTablePartition(const char* name, const char* type, const char* subType) {
  setName(name);
  init();
  SetSQLValue("NAME", "", GetName().c_str());
  SetSQLValue("TYPE", "", type != nullptr ? type : "");
  SetSQLValue("SUBTYPE", "", subType != nullptr ? subType : "");
}

void CSQLInfoTablePartition::init() {
  registerValues({"NAME", "TYPE", "SUBTYPE"});
  registerValue(std::make_unique<CSQLValues>("VALUES"));
  registerValue(std::make_unique<CSQLValues>("VALUES;ADD"));
  registerValues({"TABLESPACE",
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
                  "BUFFER_POOL",
                  "LOGGING",
                  "COMPRESS",
                  "TRUNCATE",
                  "TRUNCATE;STORAGE"});
}

int CSQLInfoTablePartition::AddSubPartition(const char* name, bool existing, const char* type) {
  const std::string kind = type != nullptr && *type != '\0' ? type : current(this, "SUBTYPE");
  return addItem(name, existing, kind.c_str());
}

int CSQLInfoTablePartition::DropSubPartition(const char* name, bool remove) {
  return dropItem(name, remove);
}

int CSQLInfoTablePartition::UnDropSubPartition(const char* name) {
  return undropItem(name);
}

CSQLValues& CSQLInfoTablePartition::VALUES() {
  return static_cast<CSQLValues&>(GetSQLValue("VALUES"));
}

CSQLValues& CSQLInfoTablePartition::ADD_VALUES() {
  return static_cast<CSQLValues&>(GetSQLValue("VALUES;ADD"));
}

bool CSQLInfoTablePartition::IsComposite() {
  return GetCount() > 0 || !current(this, "SUBTYPE").empty();
}

// ---- partitions ---------------------------------------------------------------------------------

CSQLInfoPartitions::CSQLInfoPartitions() {
  init();
}

void CSQLInfoPartitions::init() {
  registerValues({"TYPE", "SUBTYPE", "UPDATE"});
}

int CSQLInfoPartitions::AddPartition(const char* name, bool existing, const char* type) {
  const std::string kind = type != nullptr && *type != '\0' ? type : current(this, "TYPE");
  const std::string subKind = current(this, "SUBTYPE");
  return addItem(name, existing, kind.c_str(), subKind.c_str());
}

int CSQLInfoPartitions::DropPartition(const char* name, bool remove) {
  return dropItem(name, remove);
}

int CSQLInfoPartitions::UnDropPartition(const char* name) {
  return undropItem(name);
}

int CSQLInfoPartitions::emit(Run& run, const char* op) {
  return detail::EmitPartitionOperation(run.clause, run.statement, run.out, run.code, op);
}

int CSQLInfoPartitions::BuildSQL(std::string what,
                                 CSQLClause* clause,
                                 CSQLClause* statement,
                                 std::vector<std::string>* out,
                                 const char* /*extra*/) {
  if (clause == nullptr) return SQL_NOT_FOUND;
  Run run{clause, statement, out, current(this, "UPDATE")};
  using Step = int (CSQLInfoPartitions::*)(Run&);
  const std::pair<const char*, Step> steps[] = {
      {"DROP", &CSQLInfoPartitions::dropStep},
      {"RENAME", &CSQLInfoPartitions::renameStep},
      {"TRUNCATE", &CSQLInfoPartitions::truncateStep},
      {"MOVE", &CSQLInfoPartitions::moveStep},
      {"MOD", &CSQLInfoPartitions::modifyStep},
      {"ADD", &CSQLInfoPartitions::addStep},
  };
  for (const auto& [name, step] : steps) {
    if (!what.empty() && what != name) continue;
    if (const int result = (this->*step)(run)) return result;
  }
  return 0;
}

// Dropped subpartitions of kept partitions, then dropped partitions; hash ones are coalesced.
int CSQLInfoPartitions::dropStep(Run& run) {
  for (int i = 0; CPartition* p = GetPartition(i); ++i) {
    if (markAt(i) != ITEM_EXISTING) continue;
    for (int j = 0; CSubPartition* s = p->GetSubPartition(j); ++j) {
      if (!p->IsDrop(j)) continue;
      int result;
      if (kindOf(s) == Kind::Hash && kindOf(p) != Kind::Hash) {
        run.set("C_MOD_TAB_PART;PARTITION", p->ExistingName());
        run.set(std::string("C_MOD_TAB_PART;PARTITION;") + modifyVariant(kindOf(p)) + ";COALESCE",
                "COALESCE");
        result = emit(run, "C_MOD_TAB_PART");
      } else {
        run.set("C_DROP_TAB_SUBPART;SUBPARTITION", s->ExistingName());
        run.set("C_DROP_TAB_SUBPART;SUBPARTITION;UPDATE", run.update);
        result = emit(run, "C_DROP_TAB_SUBPART");
      }
      if (result != 0) return result;
    }
  }
  for (int i = 0; CPartition* p = GetPartition(i); ++i) {
    if (!IsDrop(i)) continue;
    int result;
    if (kindOf(p) == Kind::Hash) {
      run.set("C_COALESCE_TAB_PART;COALESCE", "COALESCE");
      run.set("C_COALESCE_TAB_PART;UPDATE", run.update);
      result = emit(run, "C_COALESCE_TAB_PART");
    } else {
      run.set("C_DROP_TAB_PART;PARTITION", p->ExistingName());
      run.set("C_DROP_TAB_PART;PARTITION;UPDATE", run.update);
      result = emit(run, "C_DROP_TAB_PART");
    }
    if (result != 0) return result;
  }
  return 0;
}

int CSQLInfoPartitions::renameStep(Run& run) {
  auto rename = [&run](const char* leaf, const std::string& from, const std::string& to) {
    if (from == to) return 0;
    run.set(std::string("C_RENAME_PART_SUBPART;") + leaf, from);
    run.set("C_RENAME_PART_SUBPART;NEWNAME", to);
    return emit(run, "C_RENAME_PART_SUBPART");
  };
  for (int i = 0; CPartition* p = GetPartition(i); ++i) {
    if (markAt(i) != ITEM_EXISTING) continue;
    if (const int result = rename("PARTITION", p->ExistingName(), p->WantedName())) return result;
    for (int j = 0; CSubPartition* s = p->GetSubPartition(j); ++j) {
      if (p->IsAdd(j) || p->IsDrop(j)) continue;
      if (const int result = rename("SUBPARTITION", s->ExistingName(), s->WantedName())) return result;
    }
  }
  return 0;
}

// A truncated partition takes its subpartitions with it.
int CSQLInfoPartitions::truncateStep(Run& run) {
  auto truncate = [&run](const char* leaf, CSQLInfoBase* item, const std::string& name) {
    run.set(std::string("C_TRUNCATE_PART_SUBPART;") + leaf, name);
    run.set("C_TRUNCATE_PART_SUBPART;DROP", current(item, "TRUNCATE;STORAGE"));
    run.set("C_TRUNCATE_PART_SUBPART;UPDATE", run.update);
    return emit(run, "C_TRUNCATE_PART_SUBPART");
  };
  for (int i = 0; CPartition* p = GetPartition(i); ++i) {
    if (markAt(i) != ITEM_EXISTING) continue;
    if (!change(p, "TRUNCATE").empty()) {
      if (const int result = truncate("PARTITION", p, p->WantedName())) return result;
      continue;
    }
    for (int j = 0; CSubPartition* s = p->GetSubPartition(j); ++j) {
      if (p->IsAdd(j) || p->IsDrop(j) || change(s, "TRUNCATE").empty()) continue;
      if (const int result = truncate("SUBPARTITION", s, s->WantedName())) return result;
    }
  }
  return 0;
}

// A partition with a segment moves; a partition with subpartitions changes their defaults, and its
// subpartitions move one by one.
int CSQLInfoPartitions::moveStep(Run& run) {
  for (int i = 0; CPartition* p = GetPartition(i); ++i) {
    if (markAt(i) != ITEM_EXISTING) continue;
    const bool composite = p->IsComposite();
    const std::string base =
        composite ? "C_MODIFY_TABLE_DEF_ATTR;" : "C_MOVE_TAB_PART;PARTITION;C_TAB_PART_DESC;";
    bool moved = run.set(base + "C_SEG_ATTRIBUTE;TABLESPACE", change(p, "TABLESPACE"));
    if (composite || kindOf(p) != Kind::Hash) {
      for (const char* name : kStorageNewSegment) {
        moved |= run.set(base + "C_SEG_ATTRIBUTE;C_PHYSICAL_ATTRIBUTES;C_STORAGE;" + name, change(p, name));
      }
    }
    if (moved) {
      int result;
      if (composite) {
        run.set("C_MODIFY_TABLE_DEF_ATTR;PARTITION", p->WantedName());
        result = emit(run, "C_MODIFY_TABLE_DEF_ATTR");
      } else {
        run.set("C_MOVE_TAB_PART;PARTITION", p->WantedName());
        run.set("C_MOVE_TAB_PART;PARTITION;UPDATE", run.update);
        result = emit(run, "C_MOVE_TAB_PART");
      }
      if (result != 0) return result;
    }
    for (int j = 0; CSubPartition* s = p->GetSubPartition(j); ++j) {
      if (p->IsAdd(j) || p->IsDrop(j)) continue;
      const std::string target = "C_MOVE_TAB_SUBPART;C_SUBPARTITION_SPEC;";
      if (!run.set(target + "C_PARTITION_STORAGE;TABLESPACE", change(s, "TABLESPACE"))) continue;
      run.set(target + "SUBPARTITION", s->WantedName());
      run.set("C_MOVE_TAB_SUBPART;UPDATE", run.update);
      if (const int result = emit(run, "C_MOVE_TAB_SUBPART")) return result;
    }
  }
  return 0;
}

// In-place attribute changes, then new values of list partitions and list subpartitions.
int CSQLInfoPartitions::modifyStep(Run& run) {
  for (int i = 0; CPartition* p = GetPartition(i); ++i) {
    if (markAt(i) != ITEM_EXISTING) continue;
    const Kind kind = kindOf(p);
    const std::string variant = std::string("C_MOD_TAB_PART;PARTITION;") + modifyVariant(kind) + ";";
    const std::string attribute = variant + "C_PARTITION_ATTRIBUTE;";
    bool changed = false;
    for (const char* name : kPhysical)
      changed |= run.set(attribute + "C_PHYSICAL_ATTRIBUTES;" + name, change(p, name));
    for (const char* name : kStorageInPlace)
      changed |= run.set(attribute + "C_PHYSICAL_ATTRIBUTES;C_STORAGE;" + name, change(p, name));
    changed |= run.set(attribute + "LOGGING", change(p, "LOGGING"));
    changed |= run.set(attribute + "COMPRESS", change(p, "COMPRESS"));
    if (changed) {
      run.set("C_MOD_TAB_PART;PARTITION", p->WantedName());
      if (const int result = emit(run, "C_MOD_TAB_PART")) return result;
    }

    if (kind == Kind::List && p->ADD_VALUES().GetCount() > 0) {
      run.set("C_MOD_TAB_PART;PARTITION", p->WantedName());
      run.set(variant + "ADD", "ADD");
      run.leaves(run.clause, variant + "ADD;LIST", p->ADD_VALUES());
      if (const int result = emit(run, "C_MOD_TAB_PART")) return result;
    }
    for (int j = 0; CSubPartition* s = p->GetSubPartition(j); ++j) {
      if (p->IsAdd(j) || p->IsDrop(j)) continue;
      if (kindOf(s) != Kind::List || s->ADD_VALUES().GetCount() == 0) continue;
      run.set("C_MOD_TAB_SUBPART;SUBPARTITION", s->WantedName());
      run.set("C_MOD_TAB_SUBPART;SUBPARTITION;C_MOD_LIST_SUBPART;ADD", "ADD");
      run.leaves(run.clause, "C_MOD_TAB_SUBPART;SUBPARTITION;C_MOD_LIST_SUBPART;ADD;LIST", s->ADD_VALUES());
      if (const int result = emit(run, "C_MOD_TAB_SUBPART")) return result;
    }
  }
  return 0;
}

// Added partitions with their subpartitions; subpartitions added to kept range partitions.
int CSQLInfoPartitions::addStep(Run& run) {
  for (int i = 0; CPartition* p = GetPartition(i); ++i) {
    const Kind kind = kindOf(p);
    if (IsAdd(i)) {
      if (kind == Kind::Hash) {
        const std::string base = "C_ADD_TAB_PART;C_ADD_HASH_PART;";
        run.set(base + "PARTITION", p->WantedName());
        run.set(base + "C_PARTITION_STORAGE;TABLESPACE", current(p, "TABLESPACE"));
        run.set(base + "UPDATE", run.update);
        if (const int result = emit(run, "C_ADD_TAB_PART")) return result;
        continue;
      }
      const std::string base =
          kind == Kind::List ? "C_ADD_TAB_PART;C_ADD_LIST_PART;" : "C_ADD_TAB_PART;C_ADD_RANGE_PART;";
      run.set(base + "PARTITION", p->WantedName());
      run.leaves(
          run.clause, base + (kind == Kind::List ? "C_LISTVALUES;LIST" : "C_RANGEVALUES;LIST"), p->VALUES());
      const std::string desc = base + "C_TAB_PART_DESC;";
      const std::string segment = desc + "C_SEG_ATTRIBUTE;";
      run.set(segment + "TABLESPACE", current(p, "TABLESPACE"));
      for (const char* name : kPhysical)
        run.set(segment + "C_PHYSICAL_ATTRIBUTES;" + name, current(p, name));
      for (const char* name : kStorageNewSegment)
        run.set(segment + "C_PHYSICAL_ATTRIBUTES;C_STORAGE;" + name, current(p, name));
      for (const char* name : kStorageInPlace)
        run.set(segment + "C_PHYSICAL_ATTRIBUTES;C_STORAGE;" + name, current(p, name));
      run.set(segment + "LOGGING", current(p, "LOGGING"));
      run.set(desc + "COMPRESS", current(p, "COMPRESS"));
      for (int j = 0; CSubPartition* s = p->GetSubPartition(j); ++j) {
        if (p->IsDrop(j)) continue;
        auto sub = std::make_unique<CSQLClauseSubPartitionSpec>(s->GetName().c_str());
        run.set(sub.get(), "SUBPARTITION", s->WantedName());
        run.leaves(
            sub.get(), kindOf(s) == Kind::List ? "C_LISTVALUES;LIST" : "C_RANGEVALUES;LIST", s->VALUES());
        run.set(sub.get(), "C_PARTITION_STORAGE;TABLESPACE", current(s, "TABLESPACE"));
        run.add(run.clause, desc + "C_PART_LEVEL_SUBPART;LIST", std::move(sub));
      }
      if (const int result = emit(run, "C_ADD_TAB_PART")) return result;
      continue;
    }
    if (markAt(i) != ITEM_EXISTING || kind == Kind::Hash) continue;
    for (int j = 0; CSubPartition* s = p->GetSubPartition(j); ++j) {
      if (!p->IsAdd(j)) continue;
      // A range subpartition is added as a list one, ADD and its description with its bound.
      const bool hash = kindOf(s) == Kind::Hash;
      const bool list = kindOf(s) == Kind::List;
      const std::string base = std::string("C_MOD_TAB_PART;PARTITION;") + modifyVariant(kind) + ";" +
                               (hash ? "C_ADD_HASH_SUBPART;" : "C_ADD_LIST_SUBPART;");
      run.set("C_MOD_TAB_PART;PARTITION", p->WantedName());
      run.set(base + "C_SUBPARTITION_SPEC;SUBPARTITION", s->WantedName());
      if (!hash) {
        run.leaves(run.clause,
                   base + (list ? "C_SUBPARTITION_SPEC;C_LISTVALUES;LIST"
                                : "C_SUBPARTITION_SPEC;C_RANGEVALUES;LIST"),
                   s->VALUES());
      }
      run.set(base + "C_SUBPARTITION_SPEC;C_PARTITION_STORAGE;TABLESPACE", current(s, "TABLESPACE"));
      if (hash) run.set(base + "UPDATE", run.update);
      if (const int result = emit(run, "C_MOD_TAB_PART")) return result;
    }
  }
  return 0;
}

int CSQLUtil::GenAltPartition(CSQLAlterTable* stmt,
                              std::vector<std::string>* out,
                              CSQLInfoTable* table,
                              CSQLInfoPartitions* partitions) {
  return detail::GenAltOnSubClause(stmt, out, table, partitions, "C_ALTER_TAB_PART");
}

}  // namespace qarvelt
