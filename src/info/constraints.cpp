#include "qarvelt/info/constraints.h"

#include <cctype>
#include <memory>

#include "names.h"
#include "qarvelt/clauses/constraint.h"
#include "qarvelt/core/clause.h"

namespace qarvelt {

namespace {

std::string upper(std::string text) {
  for (char& c : text)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  Trim(text);
  return text;
}

}  // namespace

ConstraintKind ConstraintKindOf(const std::string& type) {
  const std::string kind = upper(type);
  if (kind == "PRIMARY KEY" || kind == "PRIMARY" || kind == "P") return ConstraintKind::PrimaryKey;
  if (kind == "UNIQUE" || kind == "U") return ConstraintKind::Unique;
  if (kind == "FOREIGN KEY" || kind == "FOREIGN" || kind == "REFERENCES" || kind == "R")
    return ConstraintKind::ForeignKey;
  if (kind == "CHECK" || kind == "C") return ConstraintKind::Check;
  return ConstraintKind::None;
}

// ---- constraint state ---------------------------------------------------------------------------

CSQLPUBLIC::CConstraintState::CConstraintState() {
  init();
}

void CSQLPUBLIC::CConstraintState::init() {
  registerValues({"DEFERRABLE", "INITIALLY", "ENABLE", "VALIDATE", "RELY", "CASCADE"});
}

int CSQLPUBLIC::CConstraintState::BuildSQL(std::string /*what*/,
                                           CSQLClause* clause,
                                           CSQLClause* /*statement*/,
                                           std::vector<std::string>* /*out*/,
                                           const char* /*extra*/) {
  if (!IsModified(nullptr)) return SQL_NOTHING;
  if (clause == nullptr) return 0;
  for (const char* name : {"DEFERRABLE", "INITIALLY", "ENABLE", "VALIDATE", "RELY"}) {
    clause->SetValue(name, changeOf(name).c_str());
  }
  return 0;
}

// ---- one out-of-line constraint -----------------------------------------------------------------

CSQLInfoConstraint::CSQLInfoConstraint(const char* name) {
  setName(name);
  init();
}

CSQLInfoConstraint::~CSQLInfoConstraint() = default;

void CSQLInfoConstraint::init() {
  registerValues({"NAME", "TYPE"});
  registerValue(std::make_unique<CSQLValues>("COLUMNS"));
  registerValues({"REF_SCHEMA", "REF_TABLE", "REF_COLUMNS", "REF_DELETE", "CHECK", "CASCADE"});
}

void CSQLInfoConstraint::SetColumnsString(std::string columns) {
  auto& list = static_cast<CSQLValues&>(GetSQLValue("COLUMNS"));
  list.Reset();
  for (const std::string& name : detail::SplitNames(columns))
    list.AddValue(name.c_str(), name.c_str(), name.c_str());
}

std::string CSQLInfoConstraint::GetColumnsString() {
  auto& list = static_cast<CSQLValues&>(GetSQLValue("COLUMNS"));
  std::string text;
  for (int i = 0; i < list.GetCount(); ++i)
    text += (i > 0 ? "," : "") + list.GetValue(i);
  return text;
}

bool CSQLInfoConstraint::IsModified(const char* type) {
  if (type != nullptr) return CSQLInfoBase::IsModified(type);
  // The column list counts as a change whenever it holds columns; what matters here is the rest.
  return IsModifiedExcept("COLUMNS") || m_state.IsModified(nullptr);
}

void CSQLInfoConstraint::Reset() {
  CSQLInfoBase::Reset();
  m_state.Reset();
}

int CSQLInfoConstraint::BuildSQL(std::string /*what*/,
                                 CSQLClause* clause,
                                 CSQLClause* statement,
                                 std::vector<std::string>* out,
                                 const char* extra) {
  if (clause == nullptr) return 0;
  const std::string name = WantedName();
  auto owned = std::make_unique<CSQLClauseOutLineConstraint>(name.c_str());
  CSQLClause* item = owned.get();
  if (clause->AddAttr(nullptr, std::move(owned)) != SQL_OK) return 0;

  auto set = [item](const char* path, const std::string& text) { item->SetValue(path, text.c_str()); };
  set("CONSTRAINT", name);
  const auto columns = detail::SplitNames(GetColumnsString());
  switch (ConstraintKindOf(GetSQLValue("TYPE").GetValue())) {
    case ConstraintKind::PrimaryKey:
      set("PRIMARY", "PRIMARY");
      detail::AppendNameLeaves(item, "PRIMARY;LIST", columns);
      break;
    case ConstraintKind::Unique:
      set("UNIQUE", "UNIQUE");
      detail::AppendNameLeaves(item, "UNIQUE;LIST", columns);
      break;
    case ConstraintKind::ForeignKey: {
      set("FOREIGN", "FOREIGN");
      detail::AppendNameLeaves(item, "FOREIGN;LIST", columns);
      set("FOREIGN;C_REFERENCES;SCHEMA", GetSQLValue("REF_SCHEMA").GetValue());
      set("FOREIGN;C_REFERENCES;OBJECT", GetSQLValue("REF_TABLE").GetValue());
      detail::AppendNameLeaves(
          item, "FOREIGN;C_REFERENCES;LIST", detail::SplitNames(GetSQLValue("REF_COLUMNS").GetValue()));
      const std::string action = upper(GetSQLValue("REF_DELETE").GetValue());
      if (action == "CASCADE") {
        set("FOREIGN;C_REFERENCES;DELETE", "DELETE");
        set("FOREIGN;C_REFERENCES;CASCADE", "CASCADE");
      } else if (action == "SET NULL" || action == "NULL") {
        set("FOREIGN;C_REFERENCES;DELETE", "DELETE");
        set("FOREIGN;C_REFERENCES;NULL", "NULL");
      }
      break;
    }
    case ConstraintKind::Check:
      set("CHECK", GetSQLValue("CHECK").GetValue());
      break;
    case ConstraintKind::None:
      break;
  }
  m_state.BuildSQL("", item->GetClause("C_CONSTRAINT_STATE"), statement, out, extra);
  return 0;
}

// ---- the collection -----------------------------------------------------------------------------

CSQLInfoConstraints::CSQLInfoConstraints() {
  init();
}

int CSQLInfoConstraints::AddConstraint(const char* name, bool existing) {
  return addItem(name, existing);
}
int CSQLInfoConstraints::DropConstraint(const char* name, bool remove) {
  return dropItem(name, remove);
}
int CSQLInfoConstraints::UnDropConstraint(const char* name) {
  return undropItem(name);
}

int CSQLInfoConstraints::BuildSQL(std::string /*what*/,
                                  CSQLClause* clause,
                                  CSQLClause* statement,
                                  std::vector<std::string>* out,
                                  const char* extra) {
  if (clause == nullptr) return 0;
  auto kept = [this](int i) { return !IsAdd(i) && !IsDrop(i); };

  // Added constraints stay in the tree: ADD c1 ADD c2.
  CSQLClause* added = clause->GetClause("LIST");
  for (int i = 0; GetConstraint(i) != nullptr; ++i) {
    if (!IsAdd(i)) continue;
    if (const int result = GetConstraint(i)->BuildSQL("", added, statement, out, extra)) return result;
  }
  // DROP CONSTRAINT name [CASCADE], one statement each.
  CSQLClause* drop = clause->GetClause("C_DROP_CONSTRAINT");
  for (int i = 0; GetConstraint(i) != nullptr; ++i) {
    if (!IsDrop(i) || drop == nullptr) continue;
    CConstraint* c = GetConstraint(i);
    drop->SetValue("CONSTRAINT", c->ExistingName().c_str());
    drop->SetValue("CONSTRAINT;CASCADE", (*c->GetSQLValue("CASCADE")).c_str());
    RenderAndClear(statement, "*;C_CONSTRAINT;C_DROP_CONSTRAINT;*", drop, out);
  }
  // MODIFY CONSTRAINT name state, for kept constraints whose state changed and that keep their name.
  CSQLClause* modify = clause->GetClause("MODIFY");
  for (int i = 0; GetConstraint(i) != nullptr; ++i) {
    CConstraint* c = GetConstraint(i);
    if (!kept(i) || c->IsModified("NAME") || !c->STATE()->IsModified(nullptr) || modify == nullptr) continue;
    modify->SetValue(nullptr, c->ExistingName().c_str());
    c->STATE()->BuildSQL("", modify->GetClause("C_CONSTRAINT_STATE"), statement, out, extra);
    RenderAndClear(statement, "*;C_CONSTRAINT;MODIFY;*", modify, out);
  }
  // RENAME CONSTRAINT old TO new.
  CSQLClause* rename = clause->GetClause("RENAME");
  for (int i = 0; GetConstraint(i) != nullptr; ++i) {
    CConstraint* c = GetConstraint(i);
    if (!kept(i) || !c->IsModified("NAME") || rename == nullptr) continue;
    rename->SetValue(nullptr, c->ExistingName().c_str());
    rename->SetValue("NEWNAME", c->GetSQLValue("NAME").GetValue().c_str());
    RenderAndClear(statement, "*;C_CONSTRAINT;RENAME;*", rename, out);
  }
  return 0;
}

}  // namespace qarvelt
