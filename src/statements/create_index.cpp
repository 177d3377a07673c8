#include "qarvelt/statements/create_index.h"

#include "object_name.h"
#include "qarvelt/clauses/index_attributes.h"
#include "qarvelt/clauses/partition.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

constexpr int v7 = kLatestRelease;

Node commaList(const char* name, const char* prefix = "(") {
  return list(name, ",", prefix, ")");
}
Node tablespaces() {
  return commaList("LISTTAB", "STORE IN (");
}
Node segment() {
  return clause<CSQLClauseSegmentAttribute>(v7);
}
// The attributes are built for code 7 up to Oracle 11g, and for the statement's own code from Oracle
// 12c on, so that they carry the newer syntax (INDEXING PARTIAL).
Node indexAttributes(int v) {
  return clause<CSQLClauseIndexAttributes>(v > v7 ? v : v7);
}

// GLOBAL PARTITION BY RANGE (columns) (partitions) or GLOBAL PARTITION BY HASH ...
Node globalParted() {
  return named("C_GLOBAL_PARTED",
               Or({"GLOBAL", ""},
                  named("C_RANGE_PART", commaList("LIST", "PARTITION BY RANGE ("), commaList("LISTPART")),
                  clause<CSQLClauseHashPart>(v7)));
}

// LOCAL, equipartitioned with a range, list, hash or composite table.
Node localParted() {
  return named("C_LOCAL_PARTED",
               leaf("LOCAL").with(Or(named("C_ON_RANGE", commaList("LIST")),
                                     named("C_ON_LIST", commaList("LIST")),
                                     named("C_ON_HASH", Or(tablespaces(), commaList("LIST"))),
                                     named("C_ON_COMP", tablespaces(), commaList("LIST")))));
}

}  // namespace

CSQLCreateIndex::CSQLCreateIndex(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_INDEX", bInit);
}

// Oracle 23ai brought IF NOT EXISTS.
void CSQLCreateIndex::init() {
  const int v = GetOraVersion();
  attach(this,
         leaf("TYPE"),
         And({"INDEX", ""}, GuardedName(v, "IF_NOT_EXISTS", "INDEX")),
         Or({"ON", ""},
            named("C_CLUSTER_INDEX",
                  And({"CLUSTER", ""}, leaf("SCHEMA", "", "", "."), leaf("CLUSTER")),
                  indexAttributes(GetOraVersion())),
            named("C_TABLE_INDEX",
                  And(leaf("SCHEMA", "", "", "."), leaf("TABLE")),
                  leaf("ALIAS"),
                  commaList("LIST"),
                  Or(And(indexAttributes(GetOraVersion()), Or(globalParted(), localParted())),
                     named("C_DOMAIN_INDEX",
                           leaf("INDEXTYPE", "INDEXTYPE IS "),
                           clause<CSQLClauseParallel>(v7),
                           leaf("PARAMETERS", "PARAMETERS ('", "')"))))));
}

// ---- list items ---------------------------------------------------------------------------------

CSQLCreateIndex::CSubSQLItemIndexExpr::CSubSQLItemIndexExpr(const char* name) : Cloneable(v7) {
  setup(name, true);
}
CSQLCreateIndex::CSubSQLItemIndexExpr::CSubSQLItemIndexExpr(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}
void CSQLCreateIndex::CSubSQLItemIndexExpr::init() {
  attach(this, Or(leaf("COLUMN"), leaf("EXPR")), leaf("ASC"));
}

CSQLCreateIndex::CSubSQLItemPartition::CSubSQLItemPartition(const char* name) : Cloneable(v7) {
  setup(name, true);
}
CSQLCreateIndex::CSubSQLItemPartition::CSubSQLItemPartition(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}
void CSQLCreateIndex::CSubSQLItemPartition::init() {
  attach(this, leaf("PARTITION", "PARTITION "), segment());
}

CSQLCreateIndex::CSubSQLItemSubPartition::CSubSQLItemSubPartition(const char* name) : Cloneable(v7) {
  setup(name, true);
}
CSQLCreateIndex::CSubSQLItemSubPartition::CSubSQLItemSubPartition(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}
void CSQLCreateIndex::CSubSQLItemSubPartition::init() {
  attach(this, leaf("SUBPARTITION", "SUBPARTITION "), segment());
}

CSQLCreateIndex::CSubSQLItemCompPartition::CSubSQLItemCompPartition(const char* name) : Cloneable(v7) {
  setup(name, true);
}
CSQLCreateIndex::CSubSQLItemCompPartition::CSubSQLItemCompPartition(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}
void CSQLCreateIndex::CSubSQLItemCompPartition::init() {
  attach(this,
         leaf("PARTITION", "PARTITION "),
         segment(),
         named("C_IDX_SUBPART", tablespaces(), commaList("LIST")));
}

CSQLCreateIndex::CSubSQLItemGlobalPartitioning::CSubSQLItemGlobalPartitioning(const char* name)
    : Cloneable(v7) {
  setup(name, true);
}
CSQLCreateIndex::CSubSQLItemGlobalPartitioning::CSubSQLItemGlobalPartitioning(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}
void CSQLCreateIndex::CSubSQLItemGlobalPartitioning::init() {
  attach(this,
         And({"PARTITION ", ""}, leaf("PARTITION"), commaList("LIST", "VALUES LESS THAN ("), segment()));
}

}  // namespace qarvelt
