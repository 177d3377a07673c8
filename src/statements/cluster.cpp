#include "qarvelt/statements/cluster.h"

#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/attr.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// Segment clauses follow the release code of the statement that holds them.
Node physical(const CSQLClause* holder) {
  return clause<CSQLClausePhysicalAttr>(holder->GetOraVersion());
}

Node parallel(const CSQLClause* holder) {
  return clause<CSQLClauseParallel>(holder->GetOraVersion());
}

// The release codes of the Oracle releases that brought cluster syntax.
constexpr int kOracle80 = 1;   // CACHE / NOCACHE of ALTER CLUSTER
constexpr int kOracle8i = 2;   // single-table hash clusters
constexpr int kOracle10g = 5;  // row dependency tracking

}  // namespace

// ---- CREATE CLUSTER -----------------------------------------------------------------------------

CSQLCreateCluster::CSQLCreateCluster(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_CLUSTER", bInit);
}

void CSQLCreateCluster::init() {
  const int v = GetOraVersion();
  attach(this,
         And({"CLUSTER", ""}, leaf("SCHEMA", "", "", "."), leaf("CLUSTER")),
         And({"(", ")"}, list("LIST_COLUMN", ",", "", "")),
         physical(this),
         leaf("SIZE", "SIZE "),
         leaf("TABLESPACE", "TABLESPACE "),
         Or(leaf("INDEX"),
            And(when(v >= kOracle8i, leaf("SINGLE", "", "", " TABLE")),
                leaf("HASHKEYS", "HASHKEYS "),
                leaf("HASH", "HASH IS "))),
         parallel(this),
         when(v >= kOracle10g, leaf("ROWDEPENDENCIES")),
         leaf("CACHE"));
}

CSQLCreateCluster::CSubSQLItemColumn::CSubSQLItemColumn(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateCluster::CSubSQLItemColumn::CSubSQLItemColumn(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLCreateCluster::CSubSQLItemColumn::init() {
  attach(this, leaf("COLUMN"), clause<CSQLAttrDataType>(kLatestRelease));
}

// ---- ALTER CLUSTER ------------------------------------------------------------------------------

CSQLAlterCluster::CSQLAlterCluster(bool bInit, int nOraVersion) : AlterStatement(nOraVersion) {
  setup("C_ALTER_CLUSTER", bInit);
}

// The attribute changes share one statement; allocating and deallocating space each get their own,
// so that one pass never both adds and frees extents.
void CSQLAlterCluster::init() {
  const int v = GetOraVersion();
  attach(this,
         leaf("SCHEMA", "", "", "."),
         leaf("CLUSTER"),
         Or(And(physical(this), leaf("SIZE", "SIZE "), when(v >= kOracle80, leaf("CACHE")), parallel(this)),
            clause<CSQLClauseAllocateExtent>(kLatestRelease),
            clause<CSQLClauseDeallocateUnused>(kLatestRelease)));
}

}  // namespace qarvelt
