#include "qarvelt/model/statements.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <set>

#include <qarvelt/qarvelt.h>

#include "commands.h"

namespace qarvelt::model {

namespace {

template <class T>
std::unique_ptr<CSQLClause> statement(int release) {
  return std::make_unique<T>(true, release);
}

template <class T>
std::unique_ptr<CSQLClause> named(const char* name, int /*release*/) {
  return std::make_unique<T>(name);
}

template <class T>
std::unique_ptr<CSQLClause> namedForRelease(const char* name, int release) {
  return std::make_unique<T>(name, release);
}

// A plain leaf holding its own name: a column of a key list, a bound value, a tablespace.
std::unique_ptr<CSQLClause> valueLeaf(const char* name, int /*release*/) {
  return std::make_unique<CSQLAttr>(name, "", name);
}

std::string upper(const std::string& text) {
  std::string out;
  for (char c : text)
    out += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

// Upper case, blanks and underscores between words reduced to one blank, none at the ends.
std::string kindKey(const std::string& text) {
  std::string key;
  for (char c : upper(text)) {
    const bool blank = std::isspace(static_cast<unsigned char>(c)) || c == '_';
    if (blank) {
      if (!key.empty() && key.back() != ' ') key += ' ';
    } else {
      key += c;
    }
  }
  if (!key.empty() && key.back() == ' ') key.pop_back();
  return key;
}

std::vector<std::string> segments(const std::string& path) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = path.find(';', start);
    parts.push_back(path.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return parts;
}

bool isContainer(const CSQLClause& node) {
  return node.GetType() == "CONTAINER";
}

void collect(const CSQLClause& node,
             const std::string& prefix,
             std::vector<PathEntry>& out,
             std::set<std::string>& seen) {
  for (int i = 0; i < node.GetLength(); ++i) {
    const CSQLClause* child = node.GetChild(i);
    if (child == nullptr) continue;
    if (isContainer(*child)) {
      collect(*child, prefix, out, seen);
      continue;
    }
    const std::string path = prefix.empty() ? child->GetType() : prefix + ";" + child->GetType();
    PathEntry::Kind kind = PathEntry::Kind::Clause;
    if (dynamic_cast<const CSQLList*>(child) != nullptr) {
      kind = PathEntry::Kind::List;
    } else if (dynamic_cast<const CSQLAttr*>(child) != nullptr) {
      kind = PathEntry::Kind::Leaf;
    }
    if (seen.insert(path).second) out.push_back({path, kind, child});
    collect(*child, path, out, seen);
  }
}

// A text in double quotes, control characters escaped.
std::string quoted(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    switch (c) {
      case '\n':
        out += "\\n";
        break;
      case '\t':
        out += "\\t";
        break;
      case '\r':
        out += "\\r";
        break;
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) {
          char code[8];
          std::snprintf(code, sizeof code, "\\x%02x", static_cast<unsigned char>(c));
          out += code;
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}

void addText(std::string& line, const char* label, const std::string& text, bool always = false) {
  if (text.empty() && !always) return;
  line += "  ";
  line += label;
  line += " " + quoted(text);
}

}  // namespace

const std::vector<StatementKind>& StatementKinds() {
  static const std::vector<StatementKind> kinds = {
      {"CREATE TABLE", "CSQLCreateTable", &statement<CSQLCreateTable>},
      {"CREATE INDEX", "CSQLCreateIndex", &statement<CSQLCreateIndex>},
      {"ALTER TABLE", "CSQLAlterTable", &statement<CSQLAlterTable>},
      {"ALTER INDEX", "CSQLAlterIndex", &statement<CSQLAlterIndex>},
      {"CREATE SYNONYM", "CSQLCreateSynonym", &statement<CSQLCreateSynonym>},
      {"CREATE SEQUENCE", "CSQLCreateSequence", &statement<CSQLCreateSequence>},
      {"CREATE DIRECTORY", "CSQLCreateDirectory", &statement<CSQLCreateDirectory>},
      {"CREATE ROLE", "CSQLCreateRole", &statement<CSQLCreateRole>},
      {"CREATE CONTEXT", "CSQLCreateContext", &statement<CSQLCreateContext>},
      {"CREATE LIBRARY", "CSQLCreateLibrary", &statement<CSQLCreateLibrary>},
      {"CREATE DATABASE LINK", "CSQLCreateDBLink", &statement<CSQLCreateDBLink>},
      {"CREATE ROLLBACK SEGMENT", "CSQLCreateRollback", &statement<CSQLCreateRollback>},
      {"CREATE OUTLINE", "CSQLCreateOutline", &statement<CSQLCreateOutline>},
      {"CREATE TYPE", "CSQLCreateType", &statement<CSQLCreateType>},
      {"CREATE TYPE BODY", "CSQLCreateTypeBody", &statement<CSQLCreateTypeBody>},
      // views and triggers
      {"CREATE VIEW", "CSQLCreateView", &statement<CSQLCreateView>},
      {"CREATE TRIGGER", "CSQLCreateTrigger", &statement<CSQLCreateTrigger>},
      // materialized views and their logs
      {"CREATE MATERIALIZED VIEW", "CSQLCreateMaterializedView", &statement<CSQLCreateMaterializedView>},
      {"CREATE MATERIALIZED VIEW LOG",
       "CSQLCreateMaterializedViewLog",
       &statement<CSQLCreateMaterializedViewLog>},
      {"ALTER MATERIALIZED VIEW", "CSQLAlterMaterializedView", &statement<CSQLAlterMaterializedView>},
      {"ALTER MATERIALIZED VIEW LOG", "CSQLAlterMViewLog", &statement<CSQLAlterMViewLog>},
      // clusters and tablespaces
      {"CREATE CLUSTER", "CSQLCreateCluster", &statement<CSQLCreateCluster>},
      {"ALTER CLUSTER", "CSQLAlterCluster", &statement<CSQLAlterCluster>},
      {"CREATE TABLESPACE", "CSQLCreateTablespace", &statement<CSQLCreateTablespace>},
      // users, profiles and the database
      {"CREATE USER", "CSQLCreateUser", &statement<CSQLCreateUser>},
      {"CREATE PROFILE", "CSQLCreateProfile", &statement<CSQLCreateProfile>},
      {"ALTER DATABASE", "CSQLAlterDatabase", &statement<CSQLAlterDatabase>},
      // dimensions, operators and index types
      {"CREATE DIMENSION", "CSQLCreateDimension", &statement<CSQLCreateDimension>},
      {"CREATE OPERATOR", "CSQLCreateOperator", &statement<CSQLCreateOperator>},
      {"CREATE INDEXTYPE", "CSQLCreateIndexType", &statement<CSQLCreateIndexType>},
      {"ALTER INDEXTYPE", "CSQLAlterIndexType", &statement<CSQLAlterIndexType>},
      // sequences, and the DROP statements of a schema's objects
      {"ALTER SEQUENCE", "CSQLAlterSequence", &statement<CSQLAlterSequence>},
      {"DROP TABLE", "CSQLDropTable", &statement<CSQLDropTable>},
      {"DROP INDEX", "CSQLDropIndex", &statement<CSQLDropIndex>},
      {"DROP VIEW", "CSQLDropView", &statement<CSQLDropView>},
      {"DROP SEQUENCE", "CSQLDropSequence", &statement<CSQLDropSequence>},
      {"DROP SYNONYM", "CSQLDropSynonym", &statement<CSQLDropSynonym>},
      {"DROP MATERIALIZED VIEW", "CSQLDropMaterializedView", &statement<CSQLDropMaterializedView>},
      {"DROP TRIGGER", "CSQLDropTrigger", &statement<CSQLDropTrigger>},
      {"RENAME", "CSQLRename", &statement<CSQLRename>},
  };
  return kinds;
}

const std::vector<ItemClass>& ItemClasses() {
  using CreateIndex = CSQLCreateIndex;
  using TablePartition = CSQLClauseTablePartition;
  static const std::vector<ItemClass> classes = {
      {"CSQLAttr", &valueLeaf},
      {"CSQLCreateTable::CSubSQLItemProp", &namedForRelease<CSQLCreateTable::CSubSQLItemProp>},
      {"CSQLCreateIndex::CSubSQLItemIndexExpr", &named<CreateIndex::CSubSQLItemIndexExpr>},
      {"CSQLCreateIndex::CSubSQLItemPartition", &named<CreateIndex::CSubSQLItemPartition>},
      {"CSQLCreateIndex::CSubSQLItemSubPartition", &named<CreateIndex::CSubSQLItemSubPartition>},
      {"CSQLCreateIndex::CSubSQLItemCompPartition", &named<CreateIndex::CSubSQLItemCompPartition>},
      {"CSQLCreateIndex::CSubSQLItemGlobalPartitioning", &named<CreateIndex::CSubSQLItemGlobalPartitioning>},
      {"CSQLClauseAddColumn::CSubSQLClauseColumn",
       &namedForRelease<CSQLClauseAddColumn::CSubSQLClauseColumn>},
      {"CSQLClauseModifyColProp::CSubSQLClauseColumn",
       &namedForRelease<CSQLClauseModifyColProp::CSubSQLClauseColumn>},
      {"CSQLClauseColumnProp::CSubSQLItem", &namedForRelease<CSQLClauseColumnProp::CSubSQLItem>},
      {"CSQLClauseColumnProp::CSubSQLItemLOB", &named<CSQLClauseColumnProp::CSubSQLItemLOB>},
      {"CSQLClauseInlineConstraint", &named<CSQLClauseInlineConstraint>},
      {"CSQLClauseOutLineConstraint", &named<CSQLClauseOutLineConstraint>},
      {"CSQLClauseScopedTabRefConstraint::CSubSQLItem",
       &named<CSQLClauseScopedTabRefConstraint::CSubSQLItem>},
      {"CSQLClauseEnableDisable", &namedForRelease<CSQLClauseEnableDisable>},
      {"CSQLClauseParallel::CSubSQLItem", &named<CSQLClauseParallel::CSubSQLItem>},
      {"CSQLClauseTablePartition::CSubSQLItemRange", &namedForRelease<TablePartition::CSubSQLItemRange>},
      {"CSQLClauseTablePartition::CSubSQLItemHash", &namedForRelease<TablePartition::CSubSQLItemHash>},
      {"CSQLClauseTablePartition::CSubSQLItemList", &namedForRelease<TablePartition::CSubSQLItemList>},
      {"CSQLClauseTablePartition::CSubSQLItemTemplate",
       &namedForRelease<TablePartition::CSubSQLItemTemplate>},
      {"CSQLClausePartitionSpec", &namedForRelease<CSQLClausePartitionSpec>},
      {"CSQLClauseSubPartitionSpec", &named<CSQLClauseSubPartitionSpec>},
      {"CSQLClausePartitionStorage::CSubSQLItemLOB", &named<CSQLClausePartitionStorage::CSubSQLItemLOB>},
      {"CSQLClauseLOBStorage", &named<CSQLClauseLOBStorage>},
      {"CSQLClauseLOBItem", &named<CSQLClauseLOBItem>},
      {"CSQLClauseLOBItemB", &named<CSQLClauseLOBItemB>},
      {"CSQLClauseModifyLOBStorage", &named<CSQLClauseModifyLOBStorage>},
      {"CSQLClauseExtDataProp::CSubSQLItem", &named<CSQLClauseExtDataProp::CSubSQLItem>},
      // views and triggers
      {"CSQLCreateView::CSubSQLItemAlias", &namedForRelease<CSQLCreateView::CSubSQLItemAlias>},
      {"CSQLCreateTrigger::CSubSQLItemEvent", &named<CSQLCreateTrigger::CSubSQLItemEvent>},
      // materialized views and their logs
      // clusters and tablespaces
      {"CSQLCreateCluster::CSubSQLItemColumn", &named<CSQLCreateCluster::CSubSQLItemColumn>},
      {"CSQLClauseDataFile", &named<CSQLClauseDataFile>},
      // users, profiles and the database
      {"CSQLCreateUser::CSubSQLItemQuota", &named<CSQLCreateUser::CSubSQLItemQuota>},
      {"CSQLAlterDatabase::CSubSQLItemFile", &named<CSQLAlterDatabase::CSubSQLItemFile>},
      // dimensions, operators and index types
      {"CSQLCreateDimension::CSubSQLItemLevel", &namedForRelease<CSQLCreateDimension::CSubSQLItemLevel>},
      {"CSQLCreateDimension::CSubSQLItemHierarchy", &named<CSQLCreateDimension::CSubSQLItemHierarchy>},
      {"CSQLCreateDimension::CSubSQLItemJoinKey", &named<CSQLCreateDimension::CSubSQLItemJoinKey>},
      {"CSQLCreateDimension::CSubSQLItemAttribute",
       &namedForRelease<CSQLCreateDimension::CSubSQLItemAttribute>},
      {"CSQLCreateOperator::CSubSQLItemBinding", &namedForRelease<CSQLCreateOperator::CSubSQLItemBinding>},
      {"CSQLCreateOperator::CSubSQLItemAncillary", &named<CSQLCreateOperator::CSubSQLItemAncillary>},
      {"CSQLCreateIndexType::CSubSQLItemOperator", &named<CSQLCreateIndexType::CSubSQLItemOperator>},
      {"CSQLCreateIndexType::CSubSQLItemArrayDML", &named<CSQLCreateIndexType::CSubSQLItemArrayDML>},
      {"CSQLAlterIndexType::CSubSQLItemOperator", &named<CSQLAlterIndexType::CSubSQLItemOperator>},
  };
  return classes;
}

const std::vector<ListItems>& ListItemTable() {
  // Lists of names and values (key columns, bounds, tablespaces) take plain leaves.
  static const char* const kLeaf = "CSQLAttr";
  static const std::vector<ListItems> table = {
      // columns, constraints and their properties
      {"C_RELATIONAL_PROP;LIST", {"CSQLCreateTable::CSubSQLItemProp"}},
      {"C_RELATIONAL_PROP;LIST;*;LIST", {"CSQLClauseInlineConstraint"}},
      {"C_OBJECT_PROPERTY;LIST", {"CSQLClauseInlineConstraint"}},
      {"C_ADD_COLUMN;LIST", {"CSQLClauseAddColumn::CSubSQLClauseColumn"}},
      {"C_ADD_COLUMN;LIST;*;LIST", {"CSQLClauseInlineConstraint"}},
      {"C_MOD_COL_PROP;LIST", {"CSQLClauseModifyColProp::CSubSQLClauseColumn"}},
      {"C_MOD_COL_PROP;LIST;*;LIST", {"CSQLClauseInlineConstraint"}},
      {"C_MOD_COL_PROP;LISTLOB", {"CSQLClauseLOBStorage", "CSQLClauseColumnProp::CSubSQLItemLOB"}},
      {"C_COLUMN_PROP;LISTLOB",
       {"CSQLClauseColumnProp::CSubSQLItem", "CSQLClauseColumnProp::CSubSQLItemLOB"}},
      {"C_COLUMN;LIST_LOB", {"CSQLClauseModifyLOBStorage"}},
      {"C_DROP_COLUMN;UNUSED;LIST", {kLeaf}},
      {"C_DROP_COLUMN;DROP;LIST", {kLeaf}},
      {"C_CONSTRAINT;LIST", {"CSQLClauseOutLineConstraint"}},
      {"C_TABLE_PROP;LIST", {"CSQLClauseEnableDisable"}},
      {"C_SCOPED_TABREF_CONST;LIST", {"CSQLClauseScopedTabRefConstraint::CSubSQLItem"}},
      {"UNIQUE;LIST", {kLeaf}},
      {"PRIMARY;LIST", {kLeaf}},
      {"FOREIGN;LIST", {kLeaf}},
      {"C_REFERENCES;LIST", {kLeaf}},
      {"GROUP;LIST", {kLeaf}},
      {"DATA;LIST", {kLeaf}},
      {"CLUSTER;LIST", {kLeaf}},
      // storage, LOBs, external tables
      {"PARALLEL;LIST", {"CSQLClauseParallel::CSubSQLItem"}},
      {"C_LOB_STORAGE;LIST", {kLeaf}},
      {"C_MOVE_TABLE;LIST",
       {"CSQLClauseColumnProp::CSubSQLItemLOB", "CSQLClauseLOBStorage", "CSQLClauseLOBItem"}},
      {"LOCATION", {"CSQLClauseExtDataProp::CSubSQLItem"}},
      // table partitioning
      {"C_RANGE_PART;LIST", {kLeaf}},
      {"C_RANGE_PART;LISTSUB", {"CSQLClauseTablePartition::CSubSQLItemRange"}},
      {"C_HASH_PART;LIST", {kLeaf}},
      {"C_HASH_PART;LISTSUB", {"CSQLClauseTablePartition::CSubSQLItemHash"}},
      {"C_LIST_PART;LIST", {"CSQLClauseTablePartition::CSubSQLItemList"}},
      {"C_COMPOSITE_PART;LIST", {kLeaf}},
      {"C_COMPOSITE_PART;LISTSUB", {"CSQLClauseTablePartition::CSubSQLItemRange"}},
      {"C_LIST_PART;COLUMNS", {kLeaf}},
      {"C_COMPOSITE_LIST_PART;COLUMNS", {kLeaf}},
      {"C_COMPOSITE_LIST_PART;LIST", {"CSQLClauseTablePartition::CSubSQLItemList"}},
      {"C_REFERENCE_PART;LIST", {"CSQLClausePartitionSpec"}},
      {"INTERVAL;LIST", {kLeaf}},
      {"C_SUBPART_BY_RANGE;LIST", {kLeaf}},
      {"C_ALTER_INTERVAL_PART;LIST", {kLeaf}},
      {"C_SUBPART_BY_HASH;LIST", {kLeaf}},
      {"C_BY_QUANTITY;LIST", {kLeaf}},
      {"C_BY_QUANTITY;LISTOVERFLOW", {kLeaf}},
      {"QUANTITY;LIST", {kLeaf}},
      {"SUBPARTITIONS;LIST", {kLeaf}},
      {"C_SUBPART_TEMPLATE;LIST", {"CSQLClauseTablePartition::CSubSQLItemTemplate"}},
      {"C_SET_SUBPART_TEMPLATE;LIST", {"CSQLClauseTablePartition::CSubSQLItemTemplate"}},
      {"C_PART_LEVEL_SUBPART;LIST", {"CSQLClauseSubPartitionSpec"}},
      {"C_RANGEVALUES;LIST", {kLeaf}},
      {"C_LISTVALUES;LIST", {kLeaf}},
      {"ADD;LIST", {kLeaf}},
      {"C_SPLIT_TABLE_PART;PARTITION;LIST", {kLeaf}},
      {"C_SPLIT_TABLE_SUBPART;SUBPARTITION;LIST", {kLeaf}},
      {"C_PARTITION_STORAGE;LIST", {"CSQLClausePartitionStorage::CSubSQLItemLOB"}},
      {"C_TAB_PART_DESC;LIST", {"CSQLClauseLOBStorage", "CSQLClauseLOBItem"}},
      {"C_PARTITION_ATTRIBUTE;LIST", {"CSQLClauseModifyLOBStorage", "CSQLClauseLOBItem"}},
      {"C_MODIFY_TABLE_DEF_ATTR;LIST", {"CSQLClauseLOBItem", "CSQLClauseLOBItemB"}},
      {"C_MOD_HASH_SUBPART;LIST", {"CSQLClauseModifyLOBStorage"}},
      {"C_MOD_LIST_SUBPART;LIST", {"CSQLClauseModifyLOBStorage"}},
      // indexes
      {"C_TABLE_INDEX;LIST", {"CSQLCreateIndex::CSubSQLItemIndexExpr"}},
      {"C_GLOBAL_PARTED;C_RANGE_PART;LISTPART", {"CSQLCreateIndex::CSubSQLItemGlobalPartitioning"}},
      {"C_ON_RANGE;LIST", {"CSQLCreateIndex::CSubSQLItemPartition"}},
      {"C_ON_LIST;LIST", {"CSQLCreateIndex::CSubSQLItemPartition"}},
      {"C_ON_HASH;LIST", {"CSQLCreateIndex::CSubSQLItemPartition"}},
      {"C_ON_COMP;LIST", {"CSQLCreateIndex::CSubSQLItemCompPartition"}},
      {"C_IDX_SUBPART;LIST", {"CSQLCreateIndex::CSubSQLItemSubPartition"}},
      {"LISTTAB", {kLeaf}},
      {"C_GLOBAL_PART_IDX;LIST", {kLeaf}},
      {"C_GLOBAL_PARTITIONING;LIST", {kLeaf}},
      {"C_SPLIT_IDX_PART;LIST", {kLeaf}},
      // views and triggers
      {"C_VIEW_ALIAS;LIST", {"CSQLCreateView::CSubSQLItemAlias"}},
      {"C_VIEW_ALIAS;LIST;*;LIST", {"CSQLClauseInlineConstraint"}},
      {"C_OBJECT_VIEW;LIST", {"CSQLCreateView::CSubSQLItemAlias"}},
      {"C_OBJECT_VIEW;LIST;*;LIST", {"CSQLClauseInlineConstraint"}},
      {"C_OBJECT_ID;LIST", {kLeaf}},
      {"C_DML_EVENT;LIST", {"CSQLCreateTrigger::CSubSQLItemEvent", kLeaf}},
      {"C_DML_EVENT;LIST;*;EVENT;LIST", {kLeaf}},
      {"C_SYSTEM_EVENT;LIST", {kLeaf}},
      {"FOLLOWS", {kLeaf}},
      // materialized views and their logs
      {"C_MV_ALIASES;LIST", {kLeaf}},
      {"C_MV_LOB;LIST", {"CSQLClauseLOBStorage"}},
      {"C_MV_MOD_LOB;LIST", {"CSQLClauseModifyLOBStorage"}},
      {"C_MV_LOG_WITH;LIST", {kLeaf}},
      {"C_MV_LOG_WITH;COLUMNS", {kLeaf}},
      {"C_MV_LOG_ADD;LIST", {kLeaf}},
      {"C_MV_LOG_ADD;COLUMNS", {kLeaf}},
      // clusters and tablespaces
      {"LIST_COLUMN", {"CSQLCreateCluster::CSubSQLItemColumn"}},
      {"LIST_DATAFILE", {"CSQLClauseDataFile"}},
      {"LIST_TEMPFILE", {"CSQLClauseDataFile"}},
      // users, profiles and the database
      {"LISTQUOTA", {"CSQLCreateUser::CSubSQLItemQuota"}},
      {"C_ALT_DB_SUPPLEMENTAL;SUPPLEMENTAL;LIST", {kLeaf}},
      {"C_ALT_DB_DATAFILE;LIST", {"CSQLAlterDatabase::CSubSQLItemFile"}},
      {"C_ALT_DB_TEMPFILE;LIST", {"CSQLAlterDatabase::CSubSQLItemFile"}},
      {"C_ALT_DB_RENAME_FILE;LIST", {"CSQLAlterDatabase::CSubSQLItemFile"}},
      {"C_ALT_DB_RENAME_FILE;LISTTO", {"CSQLAlterDatabase::CSubSQLItemFile"}},
      {"C_ALT_DB_ADD_LOGFILE;LIST", {"CSQLAlterDatabase::CSubSQLItemFile"}},
      {"C_ALT_DB_ADD_MEMBER;LIST", {"CSQLAlterDatabase::CSubSQLItemFile"}},
      {"C_ALT_DB_DROP_MEMBER;LIST", {"CSQLAlterDatabase::CSubSQLItemFile"}},
      // dimensions, operators and index types
      {"LIST_LEVEL", {"CSQLCreateDimension::CSubSQLItemLevel"}},
      {"LIST_LEVEL;*;LIST", {kLeaf}},
      {"LIST_HIERARCHY", {"CSQLCreateDimension::CSubSQLItemHierarchy"}},
      {"LIST_HIERARCHY;*;LIST", {kLeaf}},
      {"LIST_HIERARCHY;*;LIST_JOIN_KEY", {"CSQLCreateDimension::CSubSQLItemJoinKey"}},
      {"LIST_JOIN_KEY;*;LIST", {kLeaf}},
      {"LIST_ATTRIBUTE", {"CSQLCreateDimension::CSubSQLItemAttribute"}},
      {"LIST_ATTRIBUTE;*;LIST", {kLeaf}},
      {"LIST_BINDING", {"CSQLCreateOperator::CSubSQLItemBinding"}},
      {"LIST_BINDING;*;LIST", {kLeaf}},
      {"C_ANCILLARY;LIST_ANCILLARY", {"CSQLCreateOperator::CSubSQLItemAncillary"}},
      {"LIST_ANCILLARY;*;LIST", {kLeaf}},
      {"LIST_FOR", {"CSQLCreateIndexType::CSubSQLItemOperator"}},
      {"LIST_FOR;*;LIST", {kLeaf}},
      {"C_USING_TYPE;DML;LIST", {"CSQLCreateIndexType::CSubSQLItemArrayDML"}},
      {"LIST_ADD_DROP", {"CSQLAlterIndexType::CSubSQLItemOperator"}},
      {"LIST_ADD_DROP;*;LIST", {kLeaf}},
  };
  return table;
}

const StatementKind* FindKind(const std::string& name) {
  const std::string key = kindKey(name);
  for (const StatementKind& kind : StatementKinds()) {
    if (key == kindKey(kind.name) || key == upper(kind.class_name)) return &kind;
  }
  return nullptr;
}

const ItemClass* FindItemClass(const std::string& name) {
  const std::string key = upper(name);
  for (const ItemClass& item : ItemClasses()) {
    if (key == upper(item.class_name)) return &item;
  }
  return nullptr;
}

std::vector<std::string> KindNames() {
  std::vector<std::string> names;
  for (const StatementKind& kind : StatementKinds())
    names.emplace_back(kind.name);
  return names;
}

std::vector<std::string> ItemClassNames() {
  std::vector<std::string> names;
  for (const ItemClass& item : ItemClasses())
    names.emplace_back(item.class_name);
  return names;
}

std::vector<std::string> ItemsOfList(const std::string& path) {
  const std::vector<std::string> parts = segments(path);
  const ListItems* best = nullptr;
  std::size_t bestLength = 0;
  for (const ListItems& entry : ListItemTable()) {
    const std::vector<std::string> tail = segments(entry.tail);
    if (tail.size() > parts.size() || tail.size() <= bestLength) continue;
    const std::size_t offset = parts.size() - tail.size();
    bool match = true;
    for (std::size_t i = 0; i < tail.size() && match; ++i)
      match = tail[i] == "*" || tail[i] == parts[offset + i];
    if (match) {
      best = &entry;
      bestLength = tail.size();
    }
  }
  std::vector<std::string> classes;
  if (best != nullptr) classes.assign(best->classes.begin(), best->classes.end());
  return classes;
}

std::vector<PathEntry> TreePaths(const CSQLClause& root) {
  std::vector<PathEntry> out;
  std::set<std::string> seen;
  collect(root, "", out, seen);
  return out;
}

std::vector<std::string> PathNames(const std::vector<PathEntry>& entries) {
  std::vector<std::string> names;
  for (const PathEntry& entry : entries)
    names.push_back(entry.path);
  return names;
}

std::string DescribePath(const PathEntry& entry, const std::string& context) {
  std::string line = entry.path;
  const CSQLClause& node = *entry.node;
  switch (entry.kind) {
    case PathEntry::Kind::Leaf:
      line += "  leaf";
      addText(line, "prefix", node.GetPrefix());
      addText(line, "suffix", node.GetSuffix());
      addText(line, "postfix", node.GetPostfix());
      break;
    case PathEntry::Kind::Clause:
      line += "  clause";
      addText(line, "prefix", node.GetPrefix());
      addText(line, "postfix", node.GetPostfix());
      break;
    case PathEntry::Kind::List: {
      line += "  list";
      addText(line, "separator", static_cast<const CSQLList&>(node).GetSeparator(), true);
      addText(line, "prefix", node.GetPrefix());
      addText(line, "postfix", node.GetPostfix());
      std::string items;
      for (const std::string& name : ItemsOfList(context.empty() ? entry.path : context + ";" + entry.path))
        items += (items.empty() ? "" : ", ") + name;
      if (!items.empty()) line += "  items: " + items;
      break;
    }
  }
  return line;
}

std::string PathListing(const std::string& kind, int release) {
  std::unique_ptr<CSQLClause> root;
  std::string context;
  if (const StatementKind* found = FindKind(kind)) {
    root = found->make(release);
  } else if (const ItemClass* item = FindItemClass(kind)) {
    // An item class lists the paths inside one item, relative to the item. The lists inside it are
    // looked up as if the item stood in the first list that takes it.
    root = item->make("ITEM", release);
    for (const ListItems& entry : ListItemTable()) {
      if (std::find(entry.classes.begin(), entry.classes.end(), std::string(item->class_name)) !=
          entry.classes.end()) {
        context = std::string(entry.tail) + ";ITEM";
        break;
      }
    }
  } else {
    std::vector<std::string> candidates = KindNames();
    const std::vector<std::string> items = ItemClassNames();
    candidates.insert(candidates.end(), items.begin(), items.end());
    throw Failure(kExitBadInput,
                  "unknown statement kind \"" + kind + "\"; did you mean " +
                      JoinAlternatives(Nearest(kind, candidates)) + "? ('qarvelt kinds' lists them)");
  }
  std::string text;
  for (const PathEntry& entry : TreePaths(*root))
    text += DescribePath(entry, context) + "\n";
  return text;
}

std::string KindListing() {
  std::string text;
  for (const StatementKind& kind : StatementKinds())
    text += std::string(kind.name) + "  " + kind.class_name + "\n";
  return text;
}

std::string TypeListing(int release) {
  std::string text;
  for (const std::string& type : CSQLUtil::GetDataTypes(release))
    text += type + "\n";
  return text;
}

}  // namespace qarvelt::model
