#include "qarvelt/clauses/lob.h"

#include "lob_lists.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// LOB segments never take a BUFFER_POOL, so their storage clause is built at release code 0.
constexpr int kLOBStorageRelease = 0;

// A host that wrote REBUILD with a trailing blank, to part it from the FREEPOOLS once glued to it,
// still gets one blank: the text is trimmed before the postfix follows.
int trimValue(std::string& text, std::string& /*value*/, std::string& /*initial*/, CSQLClause* /*linked*/) {
  TrimRight(text);
  return 0;
}

}  // namespace

// ---- LOB (...) STORE AS ... ---------------------------------------------------------------------

CSQLClauseLOBStorage::CSQLClauseLOBStorage(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_LOB_STORAGE", bInit);
}

CSQLClauseLOBStorage::CSQLClauseLOBStorage(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

// STORE AS opens what follows the columns, so that among the attributes of a partition or a column,
// where Oracle writes the parameters after the column alone, the list can leave it out (lob_lists.h).
void CSQLClauseLOBStorage::init() {
  const int v = GetOraVersion();
  auto parameters = [v] { return And({"(", ")"}, clause<CSQLClauseLOBParameter>(v)); };
  attach(this,
         Or({"LOB ", ""},
            And(list("LIST", ",", "(", ")"),  // list form: LOB (C1,C2) STORE AS (...)
                And({"STORE AS (", ")"}, clause<CSQLClauseLOBParameter>(v))),
            leaf("LOBITEM", "(", ")")  // single-item form: LOB (C) STORE AS [SEG] (...)
                .with(Or({"STORE AS", ""}, parameters(), leaf("LOBSEG").with(parameters())))));
}

// ---- LOB parameters -----------------------------------------------------------------------------

CSQLClauseLOBParameter::CSQLClauseLOBParameter(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_LOB_PARAMETER", bInit);
}

void CSQLClauseLOBParameter::init() {
  attach(this,
         leaf("TABLESPACE", "TABLESPACE "),
         leaf("ENABLE", "", "", " STORAGE IN ROW"),
         clause<CSQLClauseStorage>(kLOBStorageRelease),
         leaf("CHUNK", "CHUNK "),
         leaf("PCTVERSION", "PCTVERSION "),
         leaf("RETENTION"),
         leaf("FREEPOOLS", "FREEPOOLS "),
         leaf("CACHE").with(leaf("READS"), leaf("LOGGING")));
}

// ---- LOB and varray items -----------------------------------------------------------------------

CSQLClauseLOBItem::CSQLClauseLOBItem(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_LOB_ITEM", bInit);
}

CSQLClauseLOBItem::CSQLClauseLOBItem(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

// The parameters in brackets after the item: LOB (C) (TABLESPACE X), VARRAY V (CHUNK 8192). Where
// storage is described, the list that holds the item opens the brackets with STORE AS (lob_lists.h).
void CSQLClauseLOBItem::init() {
  attach(this,
         Or(leaf("LOB", "LOB (", ")").with(And({"(", ")"}, clause<CSQLClauseLOBParameter>(kLatestRelease))),
            leaf("VARRAY", "VARRAY ").with(And({"(", ")"}, clause<CSQLClauseLOBParameter>(kLatestRelease)))));
}

CSQLClauseLOBItemB::CSQLClauseLOBItemB(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_LOB_ITEMB", bInit);
}

CSQLClauseLOBItemB::CSQLClauseLOBItemB(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

void CSQLClauseLOBItemB::init() {
  attach(
      this,
      Or(leaf("LOB", "LOB (", ")").with(And({"(", ")"}, And(clause<CSQLClauseLOBParameter>(kLatestRelease)))),
         leaf("VARRAY", "VARRAY ")
             .with(And({"(", ")"}, And(clause<CSQLClauseLOBParameter>(kLatestRelease))))));
}

// ---- MODIFY LOB ---------------------------------------------------------------------------------

CSQLClauseModifyLOBStorage::CSQLClauseModifyLOBStorage(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_MOD_LOB_STORAGE", bInit);
}

CSQLClauseModifyLOBStorage::CSQLClauseModifyLOBStorage(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

void CSQLClauseModifyLOBStorage::init() {
  attach(this,
         leaf("LOBITEM", "MODIFY LOB (", "", ")"),
         And({"(", ")"}, clause<CSQLClauseModifyLOBParameter>(kLatestRelease)));
}

CSQLClauseModifyLOBParameter::CSQLClauseModifyLOBParameter(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_MOD_LOB_PARAMETER", bInit);
}

void CSQLClauseModifyLOBParameter::init() {
  attach(this,
         clause<CSQLClauseStorage>(kLOBStorageRelease),
         leaf("PCTVERSION", "PCTVERSION "),
         leaf("RETENTION"),
         leaf("FREEPOOLS", "FREEPOOLS "),
         leaf("REBUILD", "", "", " FREEPOOLS").afterPrefix(&trimValue),
         leaf("CACHE").with(leaf("READS"), leaf("LOGGING")),
         clause<CSQLClauseAllocateExtent>(kLatestRelease),
         clause<CSQLClauseDeallocateUnused>(kLatestRelease));
}

// ---- lists of LOB items, and the keywords of their places ---------------------------------------

namespace {

// Gives the container below `node` whose prefix is either spelling of a place's keywords the one
// wanted.
void respell(CSQLClause* node, const char* storage, const char* attributes, LOBPlace place) {
  if (node == nullptr) return;
  for (int i = 0; CSQLClause* child = node->GetChild(i); ++i) {
    const std::string prefix = child->GetPrefix();
    if (child->GetType() == "CONTAINER" && (prefix == storage || prefix == attributes)) {
      child->SetPrefix(place == LOBPlace::Storage ? storage : attributes);
      return;
    }
  }
}

}  // namespace

void PlaceLOBItem(CSQLClause* item, LOBPlace place) {
  if (item == nullptr) return;
  if (dynamic_cast<CSQLClauseLOBItem*>(item) != nullptr ||
      dynamic_cast<CSQLClauseLOBItemB*>(item) != nullptr) {
    respell(item->GetClause("LOB"), "STORE AS (", "(", place);
    respell(item->GetClause("VARRAY"), "STORE AS LOB (", "(", place);
    return;
  }
  if (dynamic_cast<CSQLClauseModifyLOBStorage*>(item) != nullptr) {
    // MODIFY LOB belongs to ALTER TABLE; a modified partition or subpartition names the LOB alone.
    if (CSQLClause* column = item->GetClause("LOBITEM"); column != nullptr && place == LOBPlace::Attributes)
      column->SetPrefix("LOB (");
    return;
  }
  CSQLClause* storage = dynamic_cast<CSQLClauseLOBStorage*>(item);
  if (storage == nullptr) storage = item->GetClause("C_LOB_STORAGE");
  if (storage == nullptr) return;
  // The list form, (C1,C2) STORE AS (...), and the single item, (C) STORE AS [SEG] (...).
  if (CSQLClause* forms = storage->GetChild(0)) respell(forms->GetChild(0), "STORE AS (", "(", place);
  respell(storage->GetClause("LOBITEM"), "STORE AS", "", place);
}

CSQLLOBItemList::CSQLLOBItemList(const char* name, const char* separator, LOBPlace place)
    : CSQLList(name, separator, "", ""), m_place(place) {}

CSQLLOBItemList::CSQLLOBItemList(bool bInit, int nOraVersion) : CSQLList(bInit, nOraVersion) {}

int CSQLLOBItemList::AddAttr(const char* path, CSQLClause* node) {
  const int result = CSQLList::AddAttr(path, node);
  if (result == SQL_OK && path == nullptr) PlaceLOBItem(node, m_place);
  return result;
}

void CSQLLOBItemList::Copy(CSQLClause* target) {
  CSQLList::Copy(target);
  if (auto* list = dynamic_cast<CSQLLOBItemList*>(target)) list->m_place = m_place;
}

CSQLClause* CSQLLOBItemList::operator*() {
  return cloneInto(new CSQLLOBItemList(false, kLatestRelease));
}

build::Node build::lobItems(const char* name, const char* separator, LOBPlace place) {
  return Node(std::make_unique<CSQLLOBItemList>(name, separator, place));
}

}  // namespace qarvelt
