#include "qarvelt/info/index.h"

#include <initializer_list>

#include "qarvelt/core/clause.h"
#include "qarvelt/statements/alter_index.h"
#include "qarvelt/util/util.h"

namespace qarvelt {

namespace {

// Paths into the ALTER INDEX tree.
const std::string kRenamePart = "C_ALT_IDX_PART;C_RENAME_IDX_PART";
const std::string kDropPart = "C_ALT_IDX_PART;C_DROP_IDX_PART";
const std::string kModPart = "C_ALT_IDX_PART;C_MOD_IDX_PART";
const std::string kModSubPart = "C_ALT_IDX_PART;C_MOD_IDX_SUBPART";
const std::string kDefaults = "C_ALT_IDX_PART;C_MOD_IDX_DEFATTRS";
const std::string kRebuild = "C_REBUILD";

// Attributes Oracle changes in place, on an index as on a partition segment.
const std::initializer_list<const char*> kInPlace = {
    "INITRANS", "MAXTRANS", "NEXT", "MAXEXTENTS", "PCTINCREASE", "FREELISTS", "BUFFER_POOL", "LOGGING"};
// Attributes that only a new segment takes.
const std::initializer_list<const char*> kNewSegment = {"TABLESPACE", "PCTFREE", "INITIAL", "MINEXTENTS"};

std::string current(CSQLInfoBase& record, const char* type) {
  return record.GetSQLValue(type).GetValue();
}

std::string change(CSQLInfoBase& record, const char* type) {
  return *record.GetSQLValue(type);
}

// Changed to a non-empty text: the way a caller asks for an action (REBUILD, UNUSABLE, ...).
bool requested(CSQLInfoBase& record, const char* type) {
  return record.IsModified(type) && !current(record, type).empty();
}

bool anyModified(CSQLInfoBase& record, std::initializer_list<const char*> types) {
  for (const char* type : types) {
    if (record.IsModified(type)) return true;
  }
  return false;
}

// A keyword with a number behind it (PARALLEL 4, COMPRESS 2): the keyword changed, or the number
// changed under the keyword that takes it.
bool keywordChanged(CSQLInfoBase& record, const char* keyword) {
  const std::string number = std::string(keyword) + ";VALUE";
  return record.IsModified(keyword) ||
         (record.IsModified(number.c_str()) && current(record, keyword) == keyword);
}

// Whether the segment must be built anew. Values a record does not register read as unchanged.
bool needsRebuild(CSQLInfoBase& record) {
  const bool madeUsable = record.IsModified("UNUSABLE") && current(record, "UNUSABLE").empty();
  return requested(record, "REBUILD") || madeUsable || anyModified(record, kNewSegment) ||
         keywordChanged(record, "COMPRESS") || record.IsModified("REVERSE");
}

bool renamed(CSQLInfoBase& item) {
  return requested(item, "NAME") && current(item, "NAME") != item.ExistingName();
}

void set(CSQLClause* tree, const std::string& path, const std::string& text) {
  tree->SetValue(path.c_str(), text.c_str());
}

CSQLClause* node(CSQLClause* tree, const std::string& path) {
  return tree->GetClause(path.c_str());
}

std::string renderPath(const std::string& operation) {
  return "*;" + operation + ";*";
}

// Physical attributes and storage parameters below `physical` (a C_PHYSICAL_ATTRIBUTES path ending
// in ";"). Freelist groups are left out: Oracle sets them only when it creates a segment.
void fillSegment(CSQLInfoBase& record, CSQLClause* tree, const std::string& physical) {
  for (const char* name : {"PCTFREE", "INITRANS", "MAXTRANS"})
    set(tree, physical + name, change(record, name));
  for (const char* name :
       {"INITIAL", "NEXT", "MINEXTENTS", "MAXEXTENTS", "PCTINCREASE", "FREELISTS", "BUFFER_POOL"})
    set(tree, physical + "C_STORAGE;" + name, change(record, name));
}

// PARALLEL n or NOPARALLEL below `parallel` (a C_PARALLEL path ending in ";"); switching to PARALLEL
// restates the degree. False when the degree did not change.
bool fillParallel(CSQLInfoBase& record, CSQLClause* tree, const std::string& parallel) {
  if (!keywordChanged(record, "PARALLEL")) return false;
  const std::string keyword = current(record, "PARALLEL");
  set(tree, parallel + "PARALLEL", keyword);
  if (keyword == "PARALLEL") set(tree, parallel + "PARALLEL;VALUE", current(record, "PARALLEL;VALUE"));
  return true;
}

}  // namespace

// ---- subpartition -------------------------------------------------------------------------------

CSQLInfoIndexSubPartition::CSQLInfoIndexSubPartition(const char* name) {
  setName(name);
  init();
}

void CSQLInfoIndexSubPartition::init() {
  registerValues({"NAME", "TABLESPACE", "UNUSABLE", "REBUILD"});
}

int CSQLInfoIndexSubPartition::BuildSQL(std::string what,
                                        CSQLClause* clause,
                                        CSQLClause* statement,
                                        std::vector<std::string>* out,
                                        const char* extra) {
  if (clause == nullptr) return 0;
  const std::string name = WantedName();
  if (what == "RENAME" && renamed(*this)) {
    set(clause, kRenamePart + ";SUBPARTITION", ExistingName());
    set(clause, kRenamePart + ";TO", name);
    RenderAndClear(statement, renderPath(kRenamePart).c_str(), node(clause, kRenamePart), out);
  } else if (what == "REBUILD" && needsRebuild(*this)) {
    // A subpartition rebuild takes no physical attributes: only where it goes and how.
    set(clause, kRebuild + ";SUBPARTITION", name);
    set(clause, kRebuild + ";TABLESPACE", change(*this, "TABLESPACE"));
    set(clause, kRebuild + ";ONLINE", extra != nullptr ? extra : "");
    RenderAndClear(statement, renderPath(kRebuild).c_str(), node(clause, kRebuild), out);
  } else if (what == "UNUSABLE" && requested(*this, "UNUSABLE")) {
    set(clause, kModSubPart + ";SUBPARTITION", name);
    set(clause, kModSubPart + ";SUBPARTITION;UNUSABLE", current(*this, "UNUSABLE"));
    RenderAndClear(statement, renderPath(kModSubPart).c_str(), node(clause, kModSubPart), out);
  }
  return 0;
}

// ---- partition ----------------------------------------------------------------------------------

CSQLInfoIndexPartition::CSQLInfoIndexPartition(const char* name) {
  setName(name);
  init();
}

void CSQLInfoIndexPartition::init() {
  registerValues({"NAME",
                  "TABLESPACE",
                  "PCTFREE",
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
                  "UNUSABLE",
                  "REBUILD"});
}

int CSQLInfoIndexPartition::BuildSQL(std::string what,
                                     CSQLClause* clause,
                                     CSQLClause* statement,
                                     std::vector<std::string>* out,
                                     const char* extra) {
  if (clause == nullptr) return 0;
  const std::string name = WantedName();
  // A partition with subpartitions has no segment of its own: its attributes are the defaults of
  // its subpartitions, and it cannot be rebuilt as a whole.
  const bool composite = GetCount() > 0;

  if (what == "RENAME") {
    if (renamed(*this)) {
      set(clause, kRenamePart + ";PARTITION", ExistingName());
      set(clause, kRenamePart + ";TO", name);
      RenderAndClear(statement, renderPath(kRenamePart).c_str(), node(clause, kRenamePart), out);
    }
  } else if (what == "REBUILD") {
    if (!composite && needsRebuild(*this)) {
      set(clause, kRebuild + ";PARTITION", name);
      set(clause, kRebuild + ";TABLESPACE", change(*this, "TABLESPACE"));
      set(clause, kRebuild + ";ONLINE", extra != nullptr ? extra : "");
      fillSegment(*this, clause, kRebuild + ";C_PHYSICAL_ATTRIBUTES;");
      set(clause, kRebuild + ";LOGGING", change(*this, "LOGGING"));
      RenderAndClear(statement, renderPath(kRebuild).c_str(), node(clause, kRebuild), out);
    }
  } else if (what == "ATTR") {
    // The name leaf writes on its own, so it is set only when a change follows it.
    if (composite && (anyModified(*this, kNewSegment) || anyModified(*this, kInPlace))) {
      set(clause, kDefaults + ";PARTITION", name);
      set(clause, kDefaults + ";TABLESPACE", change(*this, "TABLESPACE"));
      fillSegment(*this, clause, kDefaults + ";C_PHYSICAL_ATTRIBUTES;");
      set(clause, kDefaults + ";LOGGING", change(*this, "LOGGING"));
      RenderAndClear(statement, renderPath(kDefaults).c_str(), node(clause, kDefaults), out);
    } else if (!composite && !needsRebuild(*this) && anyModified(*this, kInPlace)) {
      set(clause, kModPart + ";PARTITION", name);
      fillSegment(*this, clause, kModPart + ";PARTITION;C_PHYSICAL_ATTRIBUTES;");
      set(clause, kModPart + ";PARTITION;LOGGING", change(*this, "LOGGING"));
      RenderAndClear(statement, renderPath(kModPart).c_str(), node(clause, kModPart), out);
    }
  } else if (what == "UNUSABLE") {
    if (requested(*this, "UNUSABLE")) {
      set(clause, kModPart + ";PARTITION", name);
      set(clause, kModPart + ";PARTITION;UNUSABLE", current(*this, "UNUSABLE"));
      RenderAndClear(statement, renderPath(kModPart).c_str(), node(clause, kModPart), out);
    }
  } else {
    return 0;
  }
  for (int i = 0; i < GetCount(); ++i) {
    if (markAt(i) == ITEM_EXISTING) itemAt(i)->BuildSQL(what, clause, statement, out, extra);
  }
  return 0;
}

// ---- index --------------------------------------------------------------------------------------

CSQLInfoIndex::CSQLInfoIndex() {
  init();
}

void CSQLInfoIndex::init() {
  registerValues({"SCHEMA",   "INDEX",       "TABLESPACE", "PCTFREE",        "INITRANS",       "MAXTRANS",
                  "INITIAL",  "NEXT",        "MINEXTENTS", "MAXEXTENTS",     "PCTINCREASE",    "FREELISTS",
                  "FREELIST", "BUFFER_POOL", "LOGGING",    "PARALLEL",       "PARALLEL;VALUE", "UNUSABLE",
                  "REBUILD",  "ONLINE",      "COMPRESS",   "COMPRESS;VALUE", "REVERSE",        "MONITORING",
                  "LOCAL",    "COMMENTS"});
}

int CSQLInfoIndex::BuildSQL(std::string what,
                            CSQLClause* clause,
                            CSQLClause* statement,
                            std::vector<std::string>* out,
                            const char* /*extra*/) {
  if (clause == nullptr || (what != "" && what != "INDEX")) return 0;
  // Every statement names the index as it exists now, before any rename.
  set(clause, "SCHEMA", GetSQLValue("SCHEMA").GetInit());
  set(clause, "INDEX", GetSQLValue("INDEX").GetInit());
  if (what == "INDEX") return 0;

  const std::string online = current(*this, "ONLINE");
  auto eachKept = [&](const char* step, const char* extra) {
    for (int i = 0; i < GetCount(); ++i) {
      if (markAt(i) == ITEM_EXISTING) itemAt(i)->BuildSQL(step, clause, statement, out, extra);
    }
  };

  // The partitions of a local index follow the table's; only a global index drops its own.
  if (current(*this, "LOCAL") != "LOCAL") {
    for (int i = 0; i < GetCount(); ++i) {
      if (!IsDrop(i)) continue;
      set(clause, kDropPart + ";PARTITION", itemAt(i)->ExistingName());
      RenderAndClear(statement, renderPath(kDropPart).c_str(), node(clause, kDropPart), out);
    }
  }
  eachKept("RENAME", nullptr);
  buildRebuild(clause, statement, out);
  eachKept("REBUILD", online.c_str());
  buildAttributes(clause, statement, out);
  eachKept("ATTR", nullptr);
  eachKept("UNUSABLE", nullptr);
  if (requested(*this, "UNUSABLE")) {
    set(clause, "UNUSABLE", current(*this, "UNUSABLE"));
    RenderAndClear(statement, "*;UNUSABLE", node(clause, "UNUSABLE"), out);
  }
  if (requested(*this, "MONITORING")) {
    set(clause, "MONITORING", current(*this, "MONITORING"));
    RenderAndClear(statement, "*;MONITORING", node(clause, "MONITORING"), out);
  }
  if (requested(*this, "INDEX")) {
    set(clause, "RENAME", "RENAME");
    set(clause, "RENAME;TO", current(*this, "INDEX"));
    RenderAndClear(statement, "*;RENAME;*", node(clause, "RENAME"), out);
  }
  return 0;
}

// REBUILD of a non-partitioned index, carrying every changed attribute of its segment.
void CSQLInfoIndex::buildRebuild(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out) {
  if (GetCount() > 0 || !needsRebuild(*this)) return;
  set(clause, kRebuild + ";REVERSE", change(*this, "REVERSE"));
  fillParallel(*this, clause, kRebuild + ";C_PARALLEL;");
  set(clause, kRebuild + ";TABLESPACE", change(*this, "TABLESPACE"));
  set(clause, kRebuild + ";ONLINE", current(*this, "ONLINE"));
  fillSegment(*this, clause, kRebuild + ";C_PHYSICAL_ATTRIBUTES;");
  if (keywordChanged(*this, "COMPRESS")) {
    const std::string keyword = current(*this, "COMPRESS");
    set(clause, kRebuild + ";C_KEY_COMPRESSION;COMPRESS", keyword);
    if (keyword == "COMPRESS")
      set(clause, kRebuild + ";C_KEY_COMPRESSION;COMPRESS;VALUE", current(*this, "COMPRESS;VALUE"));
  }
  set(clause, kRebuild + ";LOGGING", change(*this, "LOGGING"));

  // The tree writes REBUILD only with something behind it: a plain rebuild restates the tablespace,
  // and without one it is not written at all.
  CSQLClause* rebuild = node(clause, kRebuild);
  if (rebuild == nullptr) return;
  std::string text;
  rebuild->GetModifiedSQL("*", text);
  if (text.empty()) {
    set(clause, kRebuild + ";TABLESPACE", current(*this, "TABLESPACE"));
    rebuild->GetModifiedSQL("*", text);
  }
  if (text.empty()) {
    rebuild->Clear();
    return;
  }
  RenderAndClear(statement, renderPath(kRebuild).c_str(), rebuild, out);
}

// The index's own attribute changes: in place as one statement, or, for a partitioned index, the
// degree in place and the rest as the default attributes of its partitions.
void CSQLInfoIndex::buildAttributes(CSQLClause* clause,
                                    CSQLClause* statement,
                                    std::vector<std::string>* out) {
  const bool segmentChanged = anyModified(*this, kNewSegment) || anyModified(*this, kInPlace);
  if (GetCount() > 0) {
    if (fillParallel(*this, clause, "C_PARALLEL;"))
      RenderAndClear(statement, "*", node(clause, "C_PARALLEL"), out);
    if (!segmentChanged) return;
    set(clause, kDefaults + ";TABLESPACE", change(*this, "TABLESPACE"));
    fillSegment(*this, clause, kDefaults + ";C_PHYSICAL_ATTRIBUTES;");
    set(clause, kDefaults + ";LOGGING", change(*this, "LOGGING"));
    RenderAndClear(statement, renderPath(kDefaults).c_str(), node(clause, kDefaults), out);
    return;
  }
  if (needsRebuild(*this)) return;  // the rebuild carried them
  if (!fillParallel(*this, clause, "C_PARALLEL;") && !segmentChanged) return;
  fillSegment(*this, clause, "C_PHYSICAL_ATTRIBUTES;");
  set(clause, "LOGGING", change(*this, "LOGGING"));
  RenderAndClear(statement, "*", node(clause, "C_PARALLEL"), out);
  for (const char* path : {"C_PHYSICAL_ATTRIBUTES", "LOGGING"}) {
    if (CSQLClause* used = node(clause, path)) used->Clear();
  }
}

// ---- entry point --------------------------------------------------------------------------------

int CSQLUtil::GenAltIndex(CSQLAlterIndex* stmt, std::vector<std::string>* out, CSQLInfoIndex* index) {
  if (index == nullptr) return SQL_RECORD_MISSING;
  return index->BuildSQL("", stmt, stmt, out, nullptr);
}

}  // namespace qarvelt
