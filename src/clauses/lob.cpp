#include "qarvelt/clauses/lob.h"

#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// LOB segments never take a BUFFER_POOL, so their storage clause is built at release code 0.
constexpr int kLOBStorageRelease = 0;

}  // namespace

// ---- LOB (...) STORE AS ... ---------------------------------------------------------------------

CSQLClauseLOBStorage::CSQLClauseLOBStorage(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_LOB_STORAGE", bInit);
}

CSQLClauseLOBStorage::CSQLClauseLOBStorage(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

// ") STORE AS" is the suffix of "LOBITEM", not its postfix: a postfix would follow the segment name
// and parameters below the leaf, while the column must be closed before them, as in
// LOB (C) STORE AS SEG (TABLESPACE X). The list form needs no such care: a list's postfix follows its
// items directly.
void CSQLClauseLOBStorage::init() {
  const int v = GetOraVersion();
  attach(this,
         Or({"LOB ", ""},
            And(list("LIST", ",", "(", ") STORE AS"),  // list form: LOB (C1,C2) STORE AS (...)
                And({"(", ")"}, clause<CSQLClauseLOBParameter>(v))),
            leaf("LOBITEM", "(", ") STORE AS")  // single-item form: LOB (C) STORE AS [SEG] (...)
                .with(Or(And({"(", ")"}, clause<CSQLClauseLOBParameter>(v)),
                         leaf("LOBSEG").with(And({"(", ")"}, clause<CSQLClauseLOBParameter>(v)))))));
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

void CSQLClauseLOBItem::init() {
  attach(this,
         Or(leaf("LOB", "LOB (", "", ")").with(clause<CSQLClauseLOBParameter>(kLatestRelease)),
            leaf("VARRAY", "VARRAY ").with(clause<CSQLClauseLOBParameter>(kLatestRelease))));
}

CSQLClauseLOBItemB::CSQLClauseLOBItemB(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_LOB_ITEMB", bInit);
}

CSQLClauseLOBItemB::CSQLClauseLOBItemB(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

void CSQLClauseLOBItemB::init() {
  attach(this,
         Or(leaf("LOB", "LOB (", "", ")").with(And(clause<CSQLClauseLOBParameter>(kLatestRelease))),
            leaf("VARRAY", "VARRAY ").with(And(clause<CSQLClauseLOBParameter>(kLatestRelease)))));
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
         leaf("REBUILD", "", "", "FREEPOOLS"),
         leaf("CACHE").with(leaf("READS"), leaf("LOGGING")),
         clause<CSQLClauseAllocateExtent>(kLatestRelease),
         clause<CSQLClauseDeallocateUnused>(kLatestRelease));
}

}  // namespace qarvelt
