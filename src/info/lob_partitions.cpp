#include "qarvelt/info/lob_partitions.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <utility>

#include "gen_alt.h"
#include "qarvelt/clauses/lob.h"
#include "qarvelt/clauses/partition.h"
#include "qarvelt/core/clause.h"
#include "qarvelt/statements/alter_table.h"
#include "qarvelt/util/util.h"

namespace qarvelt {

namespace {

// Values that only a new LOB segment takes, and values Oracle changes in place.
const char* const kNewSegment[] = {"TABLESPACE", "CHUNK", "ENABLE", "INITIAL", "MINEXTENTS", "FREELIST"};
const char* const kParameterInPlace[] = {"PCTVERSION", "RETENTION", "FREEPOOLS"};
const char* const kStorageInPlace[] = {"NEXT", "MAXEXTENTS", "PCTINCREASE", "FREELISTS"};
const char* const kStorageNewSegment[] = {"INITIAL", "MINEXTENTS", "FREELIST"};

std::string upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) {
    return static_cast<char>(std::toupper(c));
  });
  Trim(text);
  return text;
}

std::string change(CSQLInfoBase* item, const char* type) {
  return *item->GetSQLValue(type);
}

// LOGGING stands only after a caching keyword: a changed logging restates the caching as it is.
std::string cacheText(CSQLInfoBase* item) {
  std::string text = change(item, "CACHE");
  if (text.empty() && item->IsModified("LOGGING")) text = item->GetSQLValue("CACHE").GetValue();
  return text;
}

bool needsMove(CSQLInfoLOBPartition* item) {
  if (item->IsSubPartition()) return !change(item, "TABLESPACE").empty();
  return std::any_of(std::begin(kNewSegment), std::end(kNewSegment), [item](const char* name) {
    return !change(item, name).empty();
  });
}

bool changedInPlace(CSQLInfoLOBPartition* item) {
  for (const char* name : {"CACHE", "LOGGING"}) {
    if (!change(item, name).empty()) return true;
  }
  for (const char* name : kParameterInPlace) {
    if (!change(item, name).empty()) return true;
  }
  for (const char* name : kStorageInPlace) {
    if (!change(item, name).empty()) return true;
  }
  return false;
}

}  // namespace

// ---- one LOB column in one partition ------------------------------------------------------------

CSQLInfoLOBPartition::CSQLInfoLOBPartition(const char* column,
                                           const char* partition,
                                           bool subpartition,
                                           const char* type)
    : m_strPartition(partition != nullptr ? partition : ""), m_bSubPartition(subpartition) {
  setName(column);
  init();
  SetSQLValue("TYPE", "", type != nullptr ? type : "");
}

void CSQLInfoLOBPartition::init() {
  registerValues({"TYPE",
                  "TABLESPACE",
                  "CHUNK",
                  "ENABLE",
                  "PCTVERSION",
                  "RETENTION",
                  "FREEPOOLS",
                  "CACHE",
                  "LOGGING",
                  "INITIAL",
                  "NEXT",
                  "MINEXTENTS",
                  "MAXEXTENTS",
                  "PCTINCREASE",
                  "FREELISTS",
                  "FREELIST"});
}

// ---- the collection -----------------------------------------------------------------------------

CSQLInfoLOBPartitions::CSQLInfoLOBPartitions() {
  init();
}

void CSQLInfoLOBPartitions::init() {
  registerValues({"TYPE", "SUBTYPE", "UPDATE"});
}

int CSQLInfoLOBPartitions::find(const char* column, const char* partition) const {
  const std::string name = column != nullptr ? column : "";
  const std::string part = partition != nullptr ? partition : "";
  for (int i = 0; CLOBColumn* item = itemAt(i); ++i) {
    if (item->GetName() == name && item->GetPartition() == part) return i;
  }
  return -1;
}

int CSQLInfoLOBPartitions::AddLOBColumn(
    const char* column, const char* partition, bool existing, bool subpartition, const char* type) {
  if (find(column, partition) >= 0) return SQL_DUPLICATE;
  const std::string kind =
      type != nullptr && *type != '\0' ? type : GetSQLValue(subpartition ? "SUBTYPE" : "TYPE").GetValue();
  m_items.push_back(std::make_unique<CLOBColumn>(column, partition, subpartition, kind.c_str()));
  m_marks.push_back(existing ? ITEM_EXISTING : ITEM_ADDED);
  return 0;
}

// As every collection's drop: removing outright leaves the marks of later items where they were.
int CSQLInfoLOBPartitions::DropLOBColumn(const char* column, const char* partition, bool remove) {
  const int index = find(column, partition);
  if (index < 0) return SQL_NOT_FOUND;
  if (remove) {
    m_items.erase(m_items.begin() + index);
  } else {
    setMark(index, ITEM_DROPPED);
  }
  return 0;
}

int CSQLInfoLOBPartitions::UnDropLOBColumn(const char* column, const char* partition) {
  const int index = find(column, partition);
  if (index < 0) return SQL_NOT_FOUND;
  if (markAt(index) == ITEM_DROPPED) setMark(index, ITEM_EXISTING);
  return 0;
}

CSQLInfoLOBPartitions::CLOBColumn* CSQLInfoLOBPartitions::GetLOBColumn(const char* column,
                                                                       const char* partition) const {
  return itemAt(find(column, partition));
}

bool CSQLInfoLOBPartitions::IsAdd(const char* column, const char* partition) const {
  return markAt(find(column, partition)) == ITEM_ADDED;
}

bool CSQLInfoLOBPartitions::IsDrop(const char* column, const char* partition) const {
  return markAt(find(column, partition)) == ITEM_DROPPED;
}

int CSQLInfoLOBPartitions::emit(Run& run, const char* op) {
  return detail::EmitPartitionOperation(run.clause, run.statement, run.out, run.code, op);
}

int CSQLInfoLOBPartitions::BuildSQL(std::string what,
                                    CSQLClause* clause,
                                    CSQLClause* statement,
                                    std::vector<std::string>* out,
                                    const char* /*extra*/) {
  if (clause == nullptr) return SQL_NOT_FOUND;
  const bool moves = what.empty() || what == "MOVE";
  const bool modifies = what.empty() || what == "MOD";
  if (!moves && !modifies) return 0;
  Run run{clause, statement, out, GetSQLValue("UPDATE").GetValue()};
  // Each partition or subpartition once, at its first item that is not dropped.
  std::vector<std::pair<std::string, bool>> seen;
  for (int i = 0; CLOBColumn* item = GetLOBColumn(i); ++i) {
    if (IsDrop(i)) continue;
    std::pair<std::string, bool> key{item->GetPartition(), item->IsSubPartition()};
    if (std::find(seen.begin(), seen.end(), key) != seen.end()) continue;
    seen.push_back(key);
    if (moves) {
      if (const int result = moveStatement(run, key.first, key.second)) return result;
    }
    if (modifies) {
      if (const int result = modifyStatement(run, key.first, key.second)) return result;
    }
  }
  return 0;
}

int CSQLInfoLOBPartitions::moveStatement(Run& run, const std::string& partition, bool subpartition) {
  bool any = false;
  for (int i = 0; CLOBColumn* item = GetLOBColumn(i); ++i) {
    if (IsDrop(i) || item->GetPartition() != partition || item->IsSubPartition() != subpartition) continue;
    if (!needsMove(item)) continue;
    any = true;
    const std::string column = item->GetName();
    if (subpartition) {
      auto lob = std::make_unique<CSQLClausePartitionStorage::CSubSQLItemLOB>(column.c_str());
      run.set(lob.get(), "LOB;LOBITEM", column);
      run.set(lob.get(), "LOB;TABLESPACE", change(item, "TABLESPACE"));
      run.add("C_MOVE_TAB_SUBPART;C_SUBPARTITION_SPEC;C_PARTITION_STORAGE;LIST", std::move(lob));
      continue;
    }
    auto lob = std::make_unique<CSQLClauseLOBStorage>(column.c_str());
    const std::string parameter = "LOBITEM;C_LOB_PARAMETER;";
    run.set(lob.get(), "LOBITEM", column);
    for (const char* name : {"TABLESPACE", "ENABLE", "CHUNK"})
      run.set(lob.get(), parameter + name, change(item, name));
    for (const char* name : kParameterInPlace)
      run.set(lob.get(), parameter + name, change(item, name));
    run.set(lob.get(), parameter + "CACHE", cacheText(item));
    run.set(lob.get(), parameter + "CACHE;LOGGING", change(item, "LOGGING"));
    for (const char* name : kStorageNewSegment)
      run.set(lob.get(), parameter + "C_STORAGE;" + name, change(item, name));
    for (const char* name : kStorageInPlace)
      run.set(lob.get(), parameter + "C_STORAGE;" + name, change(item, name));
    run.add("C_MOVE_TAB_PART;PARTITION;C_TAB_PART_DESC;LIST", std::move(lob));
  }
  if (!any) return 0;
  if (subpartition) {
    run.set("C_MOVE_TAB_SUBPART;C_SUBPARTITION_SPEC;SUBPARTITION", partition);
    run.set("C_MOVE_TAB_SUBPART;UPDATE", run.update);
    return emit(run, "C_MOVE_TAB_SUBPART");
  }
  run.set("C_MOVE_TAB_PART;PARTITION", partition);
  run.set("C_MOVE_TAB_PART;PARTITION;UPDATE", run.update);
  return emit(run, "C_MOVE_TAB_PART");
}

// A moved partition's LOB columns took their in-place changes along; a subpartition's move carries
// its tablespace alone.
int CSQLInfoLOBPartitions::modifyStatement(Run& run, const std::string& partition, bool subpartition) {
  std::string list;
  for (int i = 0; CLOBColumn* item = GetLOBColumn(i); ++i) {
    if (IsDrop(i) || item->GetPartition() != partition || item->IsSubPartition() != subpartition) continue;
    if ((!subpartition && needsMove(item)) || !changedInPlace(item)) continue;
    if (list.empty()) {
      const std::string kind = upper(item->GetSQLValue("TYPE").GetValue());
      if (subpartition) {
        list = std::string("C_MOD_TAB_SUBPART;SUBPARTITION;") +
               (kind == "LIST" ? "C_MOD_LIST_SUBPART" : "C_MOD_HASH_SUBPART") + ";LIST";
      } else {
        const char* variant = kind == "HASH"   ? "C_MOD_HASH_PART"
                              : kind == "LIST" ? "C_MOD_LIST_PART"
                                               : "C_MOD_RANGE_PART";
        list = std::string("C_MOD_TAB_PART;PARTITION;") + variant + ";C_PARTITION_ATTRIBUTE;LIST";
      }
    }
    const std::string column = item->GetName();
    // Appended to a partition's attributes, the item is written LOB (c) (...), without MODIFY.
    auto lob = std::make_unique<CSQLClauseModifyLOBStorage>(column.c_str());
    run.set(lob.get(), "LOBITEM", column);
    const std::string parameter = "C_MOD_LOB_PARAMETER;";
    for (const char* name : kParameterInPlace)
      run.set(lob.get(), parameter + name, change(item, name));
    run.set(lob.get(), parameter + "CACHE", cacheText(item));
    run.set(lob.get(), parameter + "CACHE;LOGGING", change(item, "LOGGING"));
    for (const char* name : kStorageInPlace)
      run.set(lob.get(), parameter + "C_STORAGE;" + name, change(item, name));
    run.add(list, std::move(lob));
  }
  if (list.empty()) return 0;
  if (subpartition) {
    run.set("C_MOD_TAB_SUBPART;SUBPARTITION", partition);
    return emit(run, "C_MOD_TAB_SUBPART");
  }
  run.set("C_MOD_TAB_PART;PARTITION", partition);
  return emit(run, "C_MOD_TAB_PART");
}

int CSQLUtil::GenAltLOBPartition(CSQLAlterTable* stmt,
                                 std::vector<std::string>* out,
                                 CSQLInfoTable* table,
                                 CSQLInfoLOBPartitions* lobs) {
  return detail::GenAltOnSubClause(stmt, out, table, lobs, "C_ALTER_TAB_PART");
}

}  // namespace qarvelt
