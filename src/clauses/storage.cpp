#include "qarvelt/clauses/storage.h"

#include "qarvelt/core/builder.h"
#include "qarvelt/util/util.h"

namespace qarvelt {

using namespace build;

// ---- STORAGE ( ... ) ----------------------------------------------------------------------------

CSQLClauseStorage::CSQLClauseStorage(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_STORAGE", bInit);
}

void CSQLClauseStorage::init() {
  attach(this,
         leaf("INITIAL", "INITIAL "),
         leaf("NEXT", "NEXT "),
         leaf("MINEXTENTS", "MINEXTENTS "),
         leaf("MAXEXTENTS", "MAXEXTENTS "),
         leaf("PCTINCREASE", "PCTINCREASE "),
         leaf("FREELISTS", "FREELISTS "),
         leaf("FREELIST", "FREELIST GROUPS "),
         leaf("OPTIMAL", "OPTIMAL "),
         when(GetOraVersion() >= 2, leaf("BUFFER_POOL", "BUFFER_POOL ")));
}

int CSQLClauseStorage::preModifiedSQL(const char* /*path*/, std::string& text) {
  if (IsModified("*")) text = "STORAGE (";
  return SQL_OK;
}

int CSQLClauseStorage::postModifiedSQL(const char* /*path*/, std::string& text) {
  if (!text.empty()) text += ")";
  return SQL_OK;
}

// ---- physical and segment attributes ------------------------------------------------------------

CSQLClausePhysicalAttr::CSQLClausePhysicalAttr(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_PHYSICAL_ATTRIBUTES", bInit);
}

void CSQLClausePhysicalAttr::init() {
  attach(this,
         leaf("PCTFREE", "PCTFREE "),
         leaf("PCTUSED", "PCTUSED "),
         leaf("INITRANS", "INITRANS "),
         leaf("MAXTRANS", "MAXTRANS "),
         clause<CSQLClauseStorage>(GetOraVersion()));
}

CSQLClauseSegmentAttribute::CSQLClauseSegmentAttribute(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_SEG_ATTRIBUTE", bInit);
}

void CSQLClauseSegmentAttribute::init() {
  attach(this,
         leaf("TABLESPACE", "TABLESPACE "),
         clause<CSQLClausePhysicalAttr>(GetOraVersion()),
         when(GetOraVersion() >= 2, leaf("LOGGING")));
}

// ---- PARALLEL -----------------------------------------------------------------------------------

CSQLClauseParallel::CSQLClauseParallel(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_PARALLEL", bInit);
}

void CSQLClauseParallel::init() {
  if (GetOraVersion() < 3) {
    attach(this, leaf("PARALLEL").with(And({"(", ")"}, list("LIST", " ", "", ""))));
  } else {
    attach(this, leaf("PARALLEL").with(leaf("VALUE", "", "", "", &CSQLUtil::IsValidInteger)));
  }
}

CSQLClauseParallel::CSubSQLItem::CSubSQLItem(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseParallel::CSubSQLItem::CSubSQLItem(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseParallel::CSubSQLItem::init() {
  attach(this, leaf("DEGREE").with(leaf("VALUE", "", "", "", &CSQLUtil::IsValidInteger)));
}

// ---- extents ------------------------------------------------------------------------------------

CSQLClauseAllocateExtent::CSQLClauseAllocateExtent(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ALLOCATE_EXTENT", bInit);
}

void CSQLClauseAllocateExtent::init() {
  attach(this,
         leaf("EXTENT", "ALLOCATE ")
             .with(And({"(", ")"},
                       leaf("SIZE", "SIZE "),
                       leaf("DATAFILE", "DATAFILE '", "'"),
                       leaf("INSTANCE", "INSTANCE "))));
}

CSQLClauseDeallocateUnused::CSQLClauseDeallocateUnused(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_DEALLOCATE_UNUSED", bInit);
}

void CSQLClauseDeallocateUnused::init() {
  attach(this, leaf("UNUSED", "DEALLOCATE "), leaf("KEEP", "KEEP "));
}

// ---- key compression ----------------------------------------------------------------------------

CSQLClauseKeyCompression::CSQLClauseKeyCompression(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_KEY_COMPRESSION", bInit);
}

void CSQLClauseKeyCompression::init() {
  attach(this, leaf("COMPRESS").afterPrefix(&CbAfterPrefix).with(leaf("VALUE")));
}

int CSQLClauseKeyCompression::CbAfterPrefix(std::string& text,
                                            std::string& /*value*/,
                                            std::string& /*initial*/,
                                            CSQLClause* /*node*/) {
  return text == "NOCOMPRESS" ? 1 : 0;
}

// ---- EXCEPTIONS INTO ----------------------------------------------------------------------------

CSQLClauseExceptions::CSQLClauseExceptions(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_EXCEPTIONS", bInit);
}

void CSQLClauseExceptions::init() {
  attach(this, And({"EXCEPTIONS INTO ", ""}, leaf("SCHEMA", "", "."), leaf("TABLE")));
}

}  // namespace qarvelt
