#include "qarvelt/info/columns.h"

#include <initializer_list>
#include <memory>

#include "names.h"
#include "qarvelt/clauses/column.h"
#include "qarvelt/clauses/constraint.h"
#include "qarvelt/clauses/lob.h"
#include "qarvelt/core/clause.h"
#include "qarvelt/util/util.h"

namespace qarvelt {

namespace {

// LOB parameters of a column: the column's value after "LOB;" and the parameter path it fills.
struct LOBPath {
  const char* value;
  const char* path;
};

constexpr LOBPath kLOBParameters[] = {
    {"TABLESPACE", "TABLESPACE"},
    {"ENABLE", "ENABLE"},
    {"CHUNK", "CHUNK"},
    {"PCTVERSION", "PCTVERSION"},
    {"RETENTION", "RETENTION"},
    {"FREEPOOLS", "FREEPOOLS"},
    {"CACHE", "CACHE"},
    {"READS", "CACHE;READS"},
    {"LOGGING", "CACHE;LOGGING"},
};

constexpr const char* kLOBStorage[] = {
    "INITIAL", "NEXT", "MINEXTENTS", "MAXEXTENTS", "PCTINCREASE", "FREELISTS", "FREELIST", "BUFFER_POOL"};

// What a modification of LOB storage can change in place (no tablespace, chunk or in-row storage).
constexpr LOBPath kLOBModifiable[] = {
    {"CACHE", "CACHE"},
    {"READS", "CACHE;READS"},
    {"LOGGING", "CACHE;LOGGING"},
    {"FREEPOOLS", "FREEPOOLS"},
    {"PCTVERSION", "PCTVERSION"},
    {"RETENTION", "RETENTION"},
};

// The release code of the items a statement takes: its own from Oracle 12c on (see the items'
// constructors).
int releaseOf(const CSQLClause* statement) {
  return statement != nullptr ? statement->GetOraVersion() : kLatestRelease;
}

std::string lob(const char* name) {
  return std::string("LOB;") + name;
}

}  // namespace

// ---- inline constraint --------------------------------------------------------------------------

CSQLInfoColumnConstraint::CSQLInfoColumnConstraint() {
  init();
}

void CSQLInfoColumnConstraint::init() {
  registerValues({"NAME", "NULL", "UNIQUE", "PRIMARY", "CHECK"});
}

bool CSQLInfoColumnConstraint::IsModified(const char* type) {
  if (type != nullptr) return CSQLInfoBase::IsModified(type);
  return CSQLInfoBase::IsModified(nullptr) || m_state.IsModified(nullptr);
}

void CSQLInfoColumnConstraint::Reset() {
  CSQLInfoBase::Reset();
  m_state.Reset();
}

int CSQLInfoColumnConstraint::BuildSQL(std::string what,
                                       CSQLClause* clause,
                                       CSQLClause* statement,
                                       std::vector<std::string>* out,
                                       const char* extra) {
  if (clause == nullptr) return SQL_NOTHING;
  const bool adding = what == "ADD";
  auto text = [&](const char* type) {
    CSQLValue& value = GetSQLValue(type);
    if (adding) return value.GetValue();
    // A NOT NULL taken back makes the column nullable again.
    if (std::string(type) == "NULL" && value.IsModified() && value.GetValue().empty())
      return std::string("NULL");
    return *value;
  };
  // One inline constraint per kind that has something to say; the name and the state go with the
  // first of them.
  int written = 0;
  for (const char* kind : {"NULL", "UNIQUE", "PRIMARY", "CHECK"}) {
    std::string value = text(kind);
    if (value.empty()) continue;
    if (std::string(kind) == "PRIMARY") value = "PRIMARY";  // the tree adds KEY
    if (std::string(kind) == "UNIQUE") value = "UNIQUE";
    const std::string itemName = "C" + std::to_string(written);
    auto owned = std::make_unique<CSQLClauseInlineConstraint>(itemName.c_str());
    CSQLClause* item = owned.get();
    if (clause->AddAttr("LIST", std::move(owned)) != SQL_OK) return SQL_NOTHING;
    item->SetValue(kind, value.c_str());
    if (written == 0) {
      item->SetValue("CONSTRAINT", (adding ? GetSQLValue("NAME").GetValue() : *GetSQLValue("NAME")).c_str());
      m_state.BuildSQL("", item->GetClause("C_CONSTRAINT_STATE"), statement, out, extra);
    }
    ++written;
  }
  return written > 0 ? 0 : SQL_NOTHING;
}

// ---- column -------------------------------------------------------------------------------------

CSQLInfoColumn::CSQLInfoColumn(const char* name) {
  setName(name);
  init();
}

void CSQLInfoColumn::init() {
  registerValues({"NAME",           "DATATYPE",        "LENGTH",          "SCALE",
                  "DEFAULT",        "LOB;TABLESPACE",  "LOB;ENABLE",      "LOB;CHUNK",
                  "LOB;PCTVERSION", "LOB;RETENTION",   "LOB;FREEPOOLS",   "LOB;CACHE",
                  "LOB;READS",      "LOB;LOGGING",     "LOB;PCTFREE",     "LOB;PCTUSED",
                  "LOB;INITRANS",   "LOB;MAXTRANS",    "LOB;INITIAL",     "LOB;NEXT",
                  "LOB;MINEXTENTS", "LOB;MAXEXTENTS",  "LOB;BUFFER_POOL", "LOB;FREELIST",
                  "LOB;FREELISTS",  "LOB;PCTINCREASE", "COMMENTS"});
}

bool CSQLInfoColumn::IsLOB() {
  return CSQLUtil::IsLOBType(GetSQLValue("DATATYPE").GetValue().c_str()) == 1;
}

bool CSQLInfoColumn::IsModified(const char* type) {
  if (type != nullptr) return CSQLInfoBase::IsModified(type);
  return CSQLInfoBase::IsModified(nullptr) || m_constraint.IsModified(nullptr);
}

void CSQLInfoColumn::Reset() {
  CSQLInfoBase::Reset();
  m_constraint.Reset();
}

int CSQLInfoColumn::BuildSQL(std::string what,
                             CSQLClause* clause,
                             CSQLClause* statement,
                             std::vector<std::string>* out,
                             const char* extra) {
  if (clause == nullptr) return 0;
  auto set = [clause](const char* path, const std::string& text) { clause->SetValue(path, text.c_str()); };
  const std::string name = WantedName();

  if (what == "ADD") {
    set("COLUMN", name);
    set("DATATYPE", GetSQLValue("DATATYPE").GetValue());
    set("DATATYPE;LENGTH", GetSQLValue("LENGTH").GetValue());
    set("DATATYPE;SCALE", GetSQLValue("SCALE").GetValue());
    set("DEFAULT", GetSQLValue("DEFAULT").GetValue());
    m_constraint.BuildSQL("ADD", clause, statement, out, extra);
    if (IsLOB()) addLOBStorage(statement);
    return 0;
  }
  if (what == "MOD") {
    bool changed = false;
    // Oracle takes a changed type restated whole.
    if (IsModified("DATATYPE") || IsModified("LENGTH") || IsModified("SCALE")) {
      set("DATATYPE", GetSQLValue("DATATYPE").GetValue());
      set("DATATYPE;LENGTH", GetSQLValue("LENGTH").GetValue());
      set("DATATYPE;SCALE", GetSQLValue("SCALE").GetValue());
      changed = true;
    }
    // A default taken away is written DEFAULT NULL.
    if (IsModified("DEFAULT")) {
      const std::string value = GetSQLValue("DEFAULT").GetValue();
      set("DEFAULT", value.empty() ? "NULL" : value);
      changed = true;
    }
    if (m_constraint.IsModified(nullptr) &&
        m_constraint.BuildSQL("MOD", clause, statement, out, extra) == 0) {
      changed = true;
    }
    if (changed) set("COLUMN", name);
    if (IsLOB()) modifyLOBStorage(statement);
    return 0;
  }
  return 0;
}

// LOB (C) STORE AS (parameters), beside the ADD clause, for a LOB column added with storage values.
void CSQLInfoColumn::addLOBStorage(CSQLClause* statement) {
  if (statement == nullptr) return;
  bool any = false;
  for (const LOBPath& p : kLOBParameters)
    any = any || !GetSQLValue(lob(p.value).c_str()).GetValue().empty();
  for (const char* p : kLOBStorage)
    any = any || !GetSQLValue(lob(p).c_str()).GetValue().empty();
  if (!any) return;
  auto owned = std::make_unique<CSQLClauseColumnProp::CSubSQLItemLOB>(GetName().c_str());
  CSQLClause* item = owned.get();
  if (statement->AddAttr("C_COLUMN;C_ADD_COLUMN;C_COLUMN_PROP;LISTLOB", std::move(owned)) != SQL_OK) return;
  const std::string name = WantedName();
  detail::AppendNameLeaves(item, "C_LOB_STORAGE;LIST", {name});
  const std::string parameter = "C_LOB_STORAGE;C_LOB_PARAMETER;";
  for (const LOBPath& p : kLOBParameters) {
    item->SetValue((parameter + p.path).c_str(), GetSQLValue(lob(p.value).c_str()).GetValue().c_str());
  }
  for (const char* p : kLOBStorage) {
    item->SetValue((parameter + "C_STORAGE;" + p).c_str(), GetSQLValue(lob(p).c_str()).GetValue().c_str());
  }
}

// MODIFY LOB (C) (changes) for what changes in place, MOVE LOB (C) STORE AS (TABLESPACE T CHUNK n
// ENABLE STORAGE IN ROW) for what needs a new segment: the tablespace, the chunk size and in-row
// storage; each is an alteration of its own, written in a later pass of the statement.
void CSQLInfoColumn::modifyLOBStorage(CSQLClause* statement) {
  if (statement == nullptr) return;
  const std::string name = ExistingName();
  bool modifiable = false;
  for (const LOBPath& p : kLOBModifiable)
    modifiable = modifiable || IsModified(lob(p.value).c_str());
  for (const char* p : kLOBStorage)
    modifiable = modifiable || IsModified(lob(p).c_str());
  if (modifiable) {
    auto owned = std::make_unique<CSQLClauseModifyLOBStorage>(GetName().c_str());
    CSQLClause* item = owned.get();
    if (statement->AddAttr("C_COLUMN;LIST_LOB", std::move(owned)) == SQL_OK) {
      item->SetValue("LOBITEM", name.c_str());
      for (const LOBPath& p : kLOBModifiable) {
        item->SetValue((std::string("C_MOD_LOB_PARAMETER;") + p.path).c_str(),
                       changeOf(lob(p.value).c_str()).c_str());
      }
      for (const char* p : kLOBStorage) {
        item->SetValue((std::string("C_MOD_LOB_PARAMETER;C_STORAGE;") + p).c_str(),
                       changeOf(lob(p).c_str()).c_str());
      }
    }
  }
  if (IsModified("LOB;TABLESPACE") || IsModified("LOB;CHUNK") || IsModified("LOB;ENABLE")) {
    auto owned = std::make_unique<CSQLClauseColumnProp::CSubSQLItemLOB>(GetName().c_str());
    CSQLClause* item = owned.get();
    if (statement->AddAttr("C_MOVE_TABLE;LIST", std::move(owned)) == SQL_OK) {
      detail::AppendNameLeaves(item, "C_LOB_STORAGE;LIST", {name});
      for (const char* p : {"TABLESPACE", "CHUNK", "ENABLE"}) {
        item->SetValue((std::string("C_LOB_STORAGE;C_LOB_PARAMETER;") + p).c_str(),
                       changeOf(lob(p).c_str()).c_str());
      }
    }
  }
}

// ---- the collection -----------------------------------------------------------------------------

CSQLInfoColumns::CSQLInfoColumns() {
  init();
}

void CSQLInfoColumns::init() {
  registerValues({"DROP;CASCADE", "DROP;INVALIDATE", "DROP;CHECKPOINT"});
}

int CSQLInfoColumns::AddColumn(const char* name, bool existing) {
  return addItem(name, existing);
}

int CSQLInfoColumns::DropColumn(const char* name, bool remove, bool unused) {
  return dropItem(name, remove, unused ? ITEM_UNUSED : ITEM_DROPPED);
}

int CSQLInfoColumns::UnDropColumn(const char* name) {
  return undropItem(name, {ITEM_DROPPED, ITEM_UNUSED});
}

int CSQLInfoColumns::BuildSQL(std::string what,
                              CSQLClause* clause,
                              CSQLClause* statement,
                              std::vector<std::string>* out,
                              const char* /*extra*/) {
  if (what == "ADD") return addStep(clause, statement, out);
  if (what == "MOD") return modifyStep(clause, statement, out);
  if (what == "RENAME") return renameStep(clause, statement, out);
  if (!what.empty()) return 0;  // "DROP" and unknown selectors do nothing
  for (auto step : {&CSQLInfoColumns::addStep, &CSQLInfoColumns::modifyStep, &CSQLInfoColumns::renameStep}) {
    if (const int result = (this->*step)(clause, statement, out)) return result;
  }
  if (const int result = dropStep(ITEM_DROPPED, clause, statement, out)) return result;
  return dropStep(ITEM_UNUSED, clause, statement, out);
}

int CSQLInfoColumns::addStep(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out) {
  if (clause == nullptr) return 0;
  for (int i = 0; GetColumn(i) != nullptr; ++i) {
    if (!IsAdd(i)) continue;
    auto item = std::make_unique<CSQLClauseAddColumn::CSubSQLClauseColumn>(GetColumn(i)->GetName().c_str(),
                                                                           releaseOf(statement));
    GetColumn(i)->BuildSQL("ADD", item.get(), statement, out, nullptr);
    clause->AddAttr("C_ADD_COLUMN;LIST", std::move(item));
  }
  return 0;
}

int CSQLInfoColumns::modifyStep(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out) {
  if (clause == nullptr) return 0;
  for (int i = 0; GetColumn(i) != nullptr; ++i) {
    CColumn* column = GetColumn(i);
    if (IsAdd(i) || IsDrop(i) || IsUnused(i) || !column->IsModified(nullptr) || column->IsModified("NAME")) {
      continue;
    }
    auto item = std::make_unique<CSQLClauseModifyColProp::CSubSQLClauseColumn>(column->GetName().c_str(),
                                                                               releaseOf(statement));
    column->BuildSQL("MOD", item.get(), statement, out, nullptr);
    if (item->IsModified("*")) clause->AddAttr("C_MOD_COLUMN;C_MOD_COL_PROP;LIST", std::move(item));
  }
  return 0;
}

int CSQLInfoColumns::renameStep(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out) {
  if (clause == nullptr || out == nullptr) return 0;
  CSQLClause* rename = clause->GetClause("C_RENAME_COLUMN");
  for (int i = 0; GetColumn(i) != nullptr; ++i) {
    CColumn* column = GetColumn(i);
    if (IsAdd(i) || IsDrop(i) || IsUnused(i) || !column->IsModified("NAME")) continue;
    clause->SetValue("C_RENAME_COLUMN;OLDNAME", column->GetSQLValue("NAME").GetInit().c_str());
    clause->SetValue("C_RENAME_COLUMN;NEWNAME", column->GetSQLValue("NAME").GetValue().c_str());
    RenderAndClear(statement, "*;C_COLUMN;C_RENAME_COLUMN;*", rename, out);
  }
  return 0;
}

// All columns with `mark` in one statement: DROP (A,B) ... or SET UNUSED (A,B) ...
int CSQLInfoColumns::dropStep(int mark,
                              CSQLClause* clause,
                              CSQLClause* statement,
                              std::vector<std::string>* out) {
  if (clause == nullptr) return 0;
  const std::string kind = mark == ITEM_UNUSED ? "UNUSED" : "DROP";
  const std::string node = "C_DROP_COLUMN;" + kind;
  for (int i = 0; GetColumn(i) != nullptr; ++i) {
    if (markAt(i) != mark) continue;
    CColumn* column = GetColumn(i);
    const std::string name = column->ExistingName();
    clause->SetValue(node.c_str(), kind.c_str());
    detail::AppendNameLeaves(clause, (node + ";LIST").c_str(), {name});
    clause->SetValue((node + ";CASCADE").c_str(), changeOf("DROP;CASCADE").c_str());
    clause->SetValue((node + ";INVALIDATE").c_str(), changeOf("DROP;INVALIDATE").c_str());
    clause->SetValue((node + ";CHECKPOINT").c_str(), changeOf("DROP;CHECKPOINT").c_str());
  }
  RenderAndClear(statement, "*;C_COLUMN;C_DROP_COLUMN;*", clause->GetClause("C_DROP_COLUMN"), out);
  return 0;
}

}  // namespace qarvelt
