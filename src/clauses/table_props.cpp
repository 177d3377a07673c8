#include "qarvelt/clauses/table_props.h"

#include "lob_lists.h"
#include "qarvelt/clauses/column.h"
#include "qarvelt/clauses/partition.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// A column list in brackets: (A,B).
Node columns() {
  return list("LIST", ",", "(", ")");
}

// COMPRESS or NOCOMPRESS (or COMPRESS FOR ...) of a heap table's data segment.
Node tableCompression(int v) {
  // Oracle9i Release 2 introduced table compression.
  return when(v >= 4, leaf("COMPRESS"));
}

// SUPPLEMENTAL LOG GROUP g (A,B) ALWAYS, or SUPPLEMENTAL LOG DATA (PRIMARY KEY,UNIQUE) COLUMNS: the
// body shared by the CREATE TABLE entry and the ALTER TABLE clause.
Node supplementalLog(int v) {
  return Or({"SUPPLEMENTAL LOG", ""},
            leaf("GROUP", "GROUP ").with(columns(), leaf("ALWAYS")),
            // Oracle Database 10g Release 1 introduced supplemental logging of key columns.
            when(v >= 5, leaf("DATA", "", "", " COLUMNS").with(columns())));
}

// The pieces of the external data properties that CREATE and ALTER TABLE share.
Node defaultDirectory() {
  return leaf("DIRECTORY", "DEFAULT DIRECTORY ");
}

Node accessParameters(int v) {
  return Or({"ACCESS PARAMETERS", ""},
            leaf("PARAMETERS", "(", ")"),
            // Oracle9i Release 2 introduced access parameters read from a CLOB subquery.
            when(v >= 4, leaf("CLOB", "USING CLOB ")));
}

// Items are CSQLClauseExtDataProp::CSubSQLItem.
Node location() {
  return list("LOCATION", ",", "LOCATION (", ")");
}

Node rejectLimit() {
  return leaf("REJECT", "REJECT LIMIT ");
}

// After-postfix callback of the MOVE clause: MOVE opens the clause's text whenever anything in it is
// written; when the host gave the "MOVE" leaf itself, its MOVE is already in front.
int openWithMove(std::string& text,
                 std::string& /*value*/,
                 std::string& /*initial*/,
                 CSQLClause* /*linked*/) {
  TrimLeft(text);
  const bool opened = text.compare(0, 4, "MOVE") == 0 && (text.size() == 4 || text[4] == ' ');
  if (!text.empty() && !opened) text.insert(0, "MOVE ");
  return 0;
}

}  // namespace

// ---- CREATE TABLE physical and table properties -------------------------------------------------

CSQLClausePhysicalProp::CSQLClausePhysicalProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_PHYSICAL_PROP", bInit);
}

void CSQLClausePhysicalProp::init() {
  const int v = GetOraVersion();
  attach(
      this,
      Or(And(clause<CSQLClauseSegmentAttribute>(v), tableCompression(v)),
         // Oracle8 introduced ORGANIZATION HEAP and index-organized tables.
         when(v >= 1,
              Or({"ORGANIZATION", ""},
                 leaf("HEAP").with(clause<CSQLClauseSegmentAttribute>(v), tableCompression(v)),
                 leaf("INDEX").with(clause<CSQLClauseSegmentAttribute>(v), clause<CSQLClauseIdxOrgTable>(v)),
                 // Oracle9i Release 1 introduced external tables.
                 when(v >= 3, leaf("EXTERNAL").with(clause<CSQLClauseExtDataProp>(v))))),
         leaf("CLUSTER", "CLUSTER ").with(columns())));
}

CSQLClauseTableProp::CSQLClauseTableProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_TABLE_PROP", bInit);
}

// Oracle's order of the table properties; enable/disable constraint clauses follow one another,
// separated by blanks: ENABLE PRIMARY KEY DISABLE CONSTRAINT C1.
void CSQLClauseTableProp::init() {
  const int v = GetOraVersion();
  attach(this,
         clause<CSQLClauseColumnProp>(v),
         // Oracle8 introduced partitioned tables.
         when(v >= 1, clause<CSQLClauseTablePartition>(v)),
         leaf("CACHE"),
         // Oracle8i introduced table monitoring.
         when(v >= 2, leaf("MONITORING")),
         clause<CSQLClauseParallel>(v),
         // Oracle Database 10g Release 1 introduced row dependency tracking.
         when(v >= 5, leaf("ROWDEPENDENCIES")),
         list("LIST", " ", "", ""),
         // Oracle8i introduced row movement.
         when(v >= 2, leaf("MOVEMENT", "", " ROW MOVEMENT")),
         leaf("AS", "AS "));
}

// ---- index-organized tables ---------------------------------------------------------------------

CSQLClauseIdxOrgTable::CSQLClauseIdxOrgTable(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_IDX_ORG_TABLE", bInit);
}

// Oracle takes the first three in any order; INCLUDING must precede OVERFLOW.
void CSQLClauseIdxOrgTable::init() {
  const int v = GetOraVersion();
  attach(this,
         leaf("PCTTHRESHOLD", "PCTTHRESHOLD "),
         // Oracle8i introduced key compression.
         when(v >= 2, clause<CSQLClauseKeyCompression>(v)),
         // Oracle9i Release 1 introduced mapping tables.
         when(v >= 3, leaf("MAPPING")),
         leaf("INCLUDING", "INCLUDING "),
         leaf("OVERFLOW").with(clause<CSQLClauseSegmentAttribute>(v)));
}

CSQLClauseAlterIOT::CSQLClauseAlterIOT(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ALTER_IOT", bInit);
}

void CSQLClauseAlterIOT::init() {
  const int v = GetOraVersion();
  // Oracle8 introduced index-organized tables.
  attach(this,
         when(v >= 1,
              Or(And(leaf("PCTTHRESHOLD", "PCTTHRESHOLD "),
                     // Oracle8i introduced key compression.
                     when(v >= 2, clause<CSQLClauseKeyCompression>(v))),
                 clause<CSQLClauseAlterOverflow>(v),
                 clause<CSQLClauseAddOverflow>(v),
                 // Oracle9i Release 1 introduced mapping tables.
                 when(v >= 3, clause<CSQLClauseAlterMappingTable>(v)),
                 // Oracle8i introduced COALESCE of an index-organized table.
                 when(v >= 2, leaf("COALESCE")))));
}

CSQLClauseAlterOverflow::CSQLClauseAlterOverflow(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ALTER_OVERFLOW", bInit);
}

// OVERFLOW alone says nothing, so it is the container's prefix: written exactly when a change is.
void CSQLClauseAlterOverflow::init() {
  const int v = GetOraVersion();
  attach(this,
         And({"OVERFLOW", ""},
             clause<CSQLClausePhysicalAttr>(v),
             // Oracle8i: LOGGING, from the same release as the segment attributes' LOGGING.
             when(v >= 2, leaf("LOGGING")),
             clause<CSQLClauseAllocateExtent>(v),
             clause<CSQLClauseDeallocateUnused>(v)));
}

CSQLClauseAlterMappingTable::CSQLClauseAlterMappingTable(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_ALTER_MAPPING_TABLE", bInit);
}

void CSQLClauseAlterMappingTable::init() {
  const int v = GetOraVersion();
  attach(this,
         Or({"MAPPING TABLE", ""},
            leaf("UPDATE", "", " BLOCK REFERENCES"),
            clause<CSQLClauseAllocateExtent>(v),
            clause<CSQLClauseDeallocateUnused>(v)));
}

CSQLClauseAddOverflow::CSQLClauseAddOverflow(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ADD_OVERFLOW", bInit);
}

// ADD OVERFLOW may stand alone, so OVERFLOW is a leaf the host sets, as EXTENT of ALLOCATE EXTENT.
void CSQLClauseAddOverflow::init() {
  attach(this, leaf("OVERFLOW", "ADD ").with(clause<CSQLClauseSegmentAttribute>(GetOraVersion())));
}

// ---- external tables ----------------------------------------------------------------------------

CSQLClauseExtDataProp::CSQLClauseExtDataProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_EXT_DATA_PROP", bInit);
}

void CSQLClauseExtDataProp::init() {
  const int v = GetOraVersion();
  // Oracle9i Release 1 introduced external tables.
  attach(this,
         when(v >= 3,
              And(And({"(", ")"}, leaf("TYPE", "TYPE "), defaultDirectory(), accessParameters(v), location()),
                  rejectLimit())));
}

CSQLClauseExtDataProp::CSubSQLItem::CSubSQLItem(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseExtDataProp::CSubSQLItem::CSubSQLItem(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseExtDataProp::CSubSQLItem::init() {
  attach(this, leaf("DIRECTORY", "", ":"), leaf("FILE", "'", "'"));
}

CSQLClauseAlterExtTable::CSQLClauseAlterExtTable(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ALT_EXT_TAB", bInit);
}

void CSQLClauseAlterExtTable::init() {
  const int v = GetOraVersion();
  // Oracle9i Release 1 introduced external tables.
  attach(this,
         when(v >= 3,
              And(defaultDirectory(),
                  accessParameters(v),
                  location(),
                  rejectLimit(),
                  // Oracle Database 10g Release 1 introduced PROJECT COLUMN.
                  when(v >= 5, leaf("PROJECT", "PROJECT COLUMN ")))));
}

// ---- supplemental logging -----------------------------------------------------------------------

CSQLClauseSuppLgGrp::CSQLClauseSuppLgGrp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_SUPPLEMENTAL_LG_GRP", bInit);
}

void CSQLClauseSuppLgGrp::init() {
  const int v = GetOraVersion();
  // Oracle9i Release 1 introduced supplemental log groups.
  attach(this, when(v >= 3, And(leaf("ADD"), supplementalLog(v))));
}

CSQLClauseSuppLgProp::CSQLClauseSuppLgProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_SUPPLEMENTAL_LG_PROP", bInit);
}

void CSQLClauseSuppLgProp::init() {
  const int v = GetOraVersion();
  // Oracle9i Release 1 introduced supplemental log groups.
  attach(this, when(v >= 3, supplementalLog(v)));
}

// ---- MOVE ---------------------------------------------------------------------------------------

CSQLClauseMoveTable::CSQLClauseMoveTable(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_MOVE_TABLE", bInit);
}

// The change scripts set only what moves (a new tablespace, say) and rely on the clause for the MOVE
// keyword; the callback is copied with the node, so clones keep it.
void CSQLClauseMoveTable::init() {
  const int v = GetOraVersion();
  SetAfterPostfix(&openWithMove);
  // Oracle8i introduced MOVE, and MOVE ONLINE with it.
  attach(this,
         when(v >= 2,
              And(leaf("MOVE"),
                  leaf("ONLINE"),
                  clause<CSQLClauseSegmentAttribute>(v),
                  clause<CSQLClauseKeyCompression>(v),
                  clause<CSQLClauseIdxOrgTable>(v),
                  lobItems("LIST", " ", LOBPlace::Storage),
                  clause<CSQLClauseParallel>(v))));
}

}  // namespace qarvelt
