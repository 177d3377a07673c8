#include "qarvelt/statements/mviews.h"

#include "object_name.h"
#include "qarvelt/clauses/lob.h"
#include "qarvelt/clauses/partition.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/clauses/table_props.h"
#include "qarvelt/core/builder.h"
#include "qarvelt/statements/alter_table_partition.h"

namespace qarvelt {

using namespace build;

namespace {

// Oracle8i renamed snapshots to materialized views; the earlier releases spell the same objects
// SNAPSHOT.
bool hasMaterializedViews(int v) {
  return v >= 2;
}

const char* viewKeyword(int v) {
  return hasMaterializedViews(v) ? "MATERIALIZED VIEW" : "SNAPSHOT";
}

const char* logKeyword(int v) {
  return hasMaterializedViews(v) ? "MATERIALIZED VIEW LOG" : "SNAPSHOT LOG";
}

// [schema.]name, both parts optional.
Node qualifiedName(const char* name) {
  return And(leaf("SCHEMA", "", "", "."), leaf(name));
}

// A bracketed list of names: (A,B).
Node names(const char* name) {
  return list(name, ",", "(", ")");
}

// USING [DEFAULT] MASTER | LOCAL ROLLBACK SEGMENT [segment]: the default segment, or a named one.
Node rollbackSegment() {
  return Or({"USING", ""},
            leaf("DEFAULT", "", "", " ROLLBACK SEGMENT").with(leaf("MASTER")),
            And(leaf("MASTER"), leaf("SEGMENT", "ROLLBACK SEGMENT ")));
}

// REFRESH and its options, written together; CREATE adds NEVER REFRESH as the other choice. ALTER
// takes the same words (Oracle only allows WITH PRIMARY KEY and the MASTER segments there).
Node refreshOptions(int v) {
  return And({"REFRESH", ""},
             leaf("FAST"),
             // Oracle8i introduced refresh on commit.
             when(v >= 2, leaf("ON", "ON ")),
             leaf("START", "START WITH "),
             leaf("NEXT", "NEXT "),
             // Oracle8 introduced primary key snapshots.
             when(v >= 1, leaf("WITH", "WITH ")),
             // Oracle8i introduced the rollback segments of a refresh.
             when(v >= 2, rollbackSegment()));
}

// WITH or ADD: the keywords (OBJECT ID, PRIMARY KEY, ROWID, SEQUENCE) and the filter columns.
Node logColumns(const char* keyword) {
  return And({keyword, ""}, list("LIST", ", ", "", ""), names("COLUMNS"));
}

// INCLUDING | EXCLUDING NEW VALUES (Oracle8i).
Node newValues(int v) {
  return when(v >= 2, leaf("NEW", "", "", " NEW VALUES"));
}

// PURGE IMMEDIATE [SYNCHRONOUS | ASYNCHRONOUS] | PURGE START WITH date [NEXT date | REPEAT INTERVAL i]
// (Oracle Database 11g).
Node purge(int v) {
  return when(
      v >= 7,
      named(
          "C_PURGE",
          Or({"PURGE", ""},
             leaf("IMMEDIATE").with(leaf("SYNCHRONOUS")),
             And(leaf("START", "START WITH "), leaf("NEXT", "NEXT "), leaf("REPEAT", "REPEAT INTERVAL ")))));
}

// SHRINK SPACE [COMPACT] [CASCADE] (Oracle Database 10g): the host gives "SHRINK" the words
// SHRINK SPACE, as for tables.
Node shrink(int v) {
  return when(v >= 5, named("C_SHRINK", leaf("SHRINK"), leaf("COMPACT"), leaf("CASCADE")));
}

// The physical properties a materialized view may have: segment attributes with table compression,
// an index organization, or a cluster. External and explicit heap organizations are for tables only.
Node viewPhysicalProperties(int v) {
  return named("C_MV_PHYSICAL_PROP",
               Or(And(clause<CSQLClauseSegmentAttribute>(v),
                      // Oracle9i Release 2 introduced table compression.
                      when(v >= 4, leaf("COMPRESS"))),
                  // Oracle9i Release 1 introduced index-organized materialized views.
                  when(v >= 3,
                       leaf("INDEX", "ORGANIZATION ")
                           .with(clause<CSQLClauseSegmentAttribute>(v), clause<CSQLClauseIdxOrgTable>(v))),
                  leaf("CLUSTER", "CLUSTER ").with(names("LIST"))));
}

// The view's own properties after the physical ones (Oracle8i): LOB storage, partitioning, CACHE,
// PARALLEL and BUILD.
Node viewProperties(int v) {
  return when(v >= 2,
              And(named("C_MV_LOB", list("LIST", " ", "", "")),
                  clause<CSQLClauseTablePartition>(v),
                  leaf("CACHE"),
                  clause<CSQLClauseParallel>(v),
                  leaf("BUILD", "BUILD ")));
}

// The head of an ALTER statement by release, and the check that drops a text holding only it.
std::string alterVerb(int v, bool log) {
  return std::string("ALTER ") + (log ? logKeyword(v) : viewKeyword(v));
}

}  // namespace

// ---- CREATE MATERIALIZED VIEW -------------------------------------------------------------------

CSQLCreateMaterializedView::CSQLCreateMaterializedView(bool bInit, int nOraVersion)
    : CreateStatement(nOraVersion) {
  setup("C_CREATE_MVIEW", bInit);
}

void CSQLCreateMaterializedView::init() {
  const int v = GetOraVersion();
  attach(
      this,
      And({viewKeyword(v), ""},
          GuardedName(v, "IF_NOT_EXISTS", "MVIEW"),
          // Oracle Database 10g Release 2 introduced column aliases.
          when(v >= 6, named("C_MV_ALIASES", names("LIST")))),
      // ON PREBUILT TABLE (Oracle8i) stands instead of the properties of a new container table.
      Or(when(hasMaterializedViews(v),
              leaf("PREBUILT", "ON ", " TABLE").with(leaf("REDUCED", "", "", " REDUCED PRECISION"))),
         And(viewPhysicalProperties(v), viewProperties(v))),
      named("C_USING_INDEX",
            Or(And({"USING INDEX", ""}, clause<CSQLClausePhysicalAttr>(v), leaf("TABLESPACE", "TABLESPACE ")),
               // Oracle9i Release 2 introduced USING NO INDEX.
               when(v >= 4, leaf("NO", "USING ", "", " INDEX")))),
      named("C_REFRESH",
            Or(refreshOptions(v),
               // Oracle8i introduced NEVER REFRESH.
               when(v >= 2, leaf("NEVER", "", "", " REFRESH")))),
      leaf("UPDATE", "FOR "),
      // Oracle8i introduced query rewrite.
      when(v >= 2, leaf("REWRITE", "", "", " QUERY REWRITE")),
      leaf("AS", "AS "));
}

// ---- CREATE MATERIALIZED VIEW LOG ---------------------------------------------------------------

CSQLCreateMaterializedViewLog::CSQLCreateMaterializedViewLog(bool bInit, int nOraVersion)
    : CreateStatement(nOraVersion) {
  setup("C_CREATE_MVIEW_LOG", bInit);
}

void CSQLCreateMaterializedViewLog::init() {
  const int v = GetOraVersion();
  attach(this,
         And({logKeyword(v), ""}, And({"ON", ""}, qualifiedName("TABLE"))),
         clause<CSQLClauseSegmentAttribute>(v),
         when(v >= 2, leaf("CACHE")),
         when(v >= 2, clause<CSQLClauseParallel>(v)),
         when(v >= 2, clause<CSQLClauseTablePartition>(v)),
         // Oracle8 introduced primary key and filter columns in snapshot logs.
         when(v >= 1, named("C_MV_LOG_WITH", logColumns("WITH"))),
         newValues(v),
         purge(v));
}

// ---- ALTER MATERIALIZED VIEW --------------------------------------------------------------------

CSQLAlterMaterializedView::CSQLAlterMaterializedView(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ALTER_MVIEW", bInit);
}

// One alteration per statement, as Oracle's grammar has them.
void CSQLAlterMaterializedView::init() {
  const int v = GetOraVersion();
  const bool mv = hasMaterializedViews(v);
  attach(this,
         qualifiedName("MVIEW"),
         Or(clause<CSQLClausePhysicalAttr>(v),
            when(v >= 4, leaf("COMPRESS")),
            when(mv, named("C_MV_LOB", list("LIST", ",", "", ""))),
            when(mv, named("C_MV_MOD_LOB", list("LIST", ",", "", ""))),
            when(mv, clause<CSQLClauseAlterTablePartition>(v)),
            when(mv, clause<CSQLClauseParallel>(v)),
            when(mv, leaf("LOGGING")),
            when(mv, clause<CSQLClauseAllocateExtent>(v)),
            when(mv, clause<CSQLClauseDeallocateUnused>(v)),
            shrink(v),
            when(mv, leaf("CACHE")),
            // Oracle9i Release 1 introduced index-organized materialized views.
            when(v >= 3, clause<CSQLClauseAlterIOT>(v)),
            named("C_USING_INDEX", And({"USING INDEX", ""}, clause<CSQLClausePhysicalAttr>(v))),
            named("C_REFRESH", refreshOptions(v)),
            when(mv, leaf("REWRITE", "", "", " QUERY REWRITE")),
            when(mv, leaf("COMPILE")),
            // Oracle9i Release 2 introduced CONSIDER FRESH.
            when(v >= 4, leaf("CONSIDER", "", "", " FRESH"))));
}

int CSQLAlterMaterializedView::preModifiedSQL(const char* /*path*/, std::string& text) {
  return WriteAlterHead(text, alterVerb(GetOraVersion(), false).c_str());
}

int CSQLAlterMaterializedView::postModifiedSQL(const char* /*path*/, std::string& text) {
  return DropEmptyAlter(*this, text, alterVerb(GetOraVersion(), false).c_str(), "MVIEW");
}

// ---- ALTER MATERIALIZED VIEW LOG ----------------------------------------------------------------

CSQLAlterMViewLog::CSQLAlterMViewLog(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ALTER_MVIEW_LOG", bInit);
}

// The alterations of a log are those of the view less COMPRESS, LOB storage, DEALLOCATE UNUSED and
// the refresh and rewrite options, which Oracle does not have for logs.
void CSQLAlterMViewLog::init() {
  const int v = GetOraVersion();
  const bool mv = hasMaterializedViews(v);
  attach(this,
         // Oracle9i Release 2 introduced FORCE.
         when(v >= 4, leaf("FORCE")),
         And({"ON", ""}, qualifiedName("TABLE")),
         Or(clause<CSQLClausePhysicalAttr>(v),
            when(mv, clause<CSQLClauseAlterTablePartition>(v)),
            when(mv, clause<CSQLClauseParallel>(v)),
            when(mv, leaf("LOGGING")),
            when(mv, clause<CSQLClauseAllocateExtent>(v)),
            shrink(v),
            when(mv, leaf("CACHE")),
            // Oracle8 introduced ADD of primary key and filter columns.
            when(v >= 1, named("C_MV_LOG_ADD", logColumns("ADD").with(newValues(v)))),
            purge(v)));
}

int CSQLAlterMViewLog::preModifiedSQL(const char* /*path*/, std::string& text) {
  return WriteAlterHead(text, alterVerb(GetOraVersion(), true).c_str());
}

// The head is the verb, then FORCE when it is set, then ON and the table: each of these verbs,
// alone or with the table's names, is a text that alters nothing.
int CSQLAlterMViewLog::postModifiedSQL(const char* /*path*/, std::string& text) {
  const std::string verb = alterVerb(GetOraVersion(), true);
  for (const std::string& head : {verb, verb + " ON", verb + " FORCE", verb + " FORCE ON"})
    DropEmptyAlter(*this, text, head.c_str(), "TABLE");
  return SQL_OK;
}

}  // namespace qarvelt
