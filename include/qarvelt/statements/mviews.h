// Materialized views and their logs: CREATE and ALTER of both.
//
//   C_CREATE_MVIEW      CREATE MATERIALIZED VIEW S.MV (A,B) TABLESPACE T PARALLEL 4 BUILD IMMEDIATE
//                       REFRESH FAST ON COMMIT WITH PRIMARY KEY ENABLE QUERY REWRITE AS SELECT ...
//   C_CREATE_MVIEW_LOG  CREATE MATERIALIZED VIEW LOG ON S.T TABLESPACE T WITH ROWID, SEQUENCE (A,B)
//                       INCLUDING NEW VALUES
//   C_ALTER_MVIEW       ALTER MATERIALIZED VIEW S.MV REFRESH COMPLETE ON DEMAND
//   C_ALTER_MVIEW_LOG   ALTER MATERIALIZED VIEW LOG ON S.T ADD ROWID, SEQUENCE (A) INCLUDING NEW VALUES
//
// Release gates (release code: Oracle release):
//   0 Oracle 7        CREATE SNAPSHOT / SNAPSHOT LOG and ALTER SNAPSHOT / SNAPSHOT LOG: the name,
//                     physical attributes with TABLESPACE, CLUSTER, USING INDEX, REFRESH with
//                     FAST | COMPLETE | FORCE, START WITH and NEXT, FOR UPDATE, AS subquery
//   1 Oracle 8.0      REFRESH ... WITH PRIMARY KEY | ROWID; the WITH columns of a log and its ADD
//   2 Oracle 8i       the MATERIALIZED VIEW spelling, and with it ON PREBUILT TABLE, LOGGING, LOB
//                     storage, partitioning, CACHE, PARALLEL, BUILD, ON DEMAND | COMMIT, USING
//                     ... ROLLBACK SEGMENT, NEVER REFRESH, QUERY REWRITE, COMPILE, ALLOCATE and
//                     DEALLOCATE, partition maintenance, INCLUDING | EXCLUDING NEW VALUES
//   3 Oracle 9i R1    ORGANIZATION INDEX and the index-organized alterations
//   4 Oracle 9i R2    table compression, USING NO INDEX, CONSIDER FRESH, ALTER ... LOG FORCE
//   5 Oracle 10g R1   SHRINK SPACE
//   6 Oracle 10g R2   column aliases after the name of the view
//   7 Oracle 11g      the purge clause of a log (PURGE IMMEDIATE, PURGE START WITH ... NEXT ...)
//
// Oracle 8i renamed snapshots to materialized views. Below release code 2 the four trees keep their
// shape and paths but write the SNAPSHOT spelling (CREATE SNAPSHOT, ALTER SNAPSHOT LOG ON ...), and
// hold only what Oracle 7 and Oracle 8.0 know of it.
//
// Keyword leaves take the keyword as value (LOGGING or NOLOGGING, CACHE or NOCACHE, FAST, COMPLETE or
// FORCE, ...). Lists of names and keywords take host-appended leaves holding their own text.
#ifndef QARVELT_STATEMENTS_MVIEWS_H
#define QARVELT_STATEMENTS_MVIEWS_H

#include <string>

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

// CREATE MATERIALIZED VIEW ("C_CREATE_MVIEW"), paths with containers left out:
//   "IF_NOT_EXISTS" (IF NOT EXISTS, from 12), "SCHEMA", "MVIEW", the column aliases "C_MV_ALIASES;LIST" (from
//   6); one of "PREBUILT" (holds PREBUILT, written ON PREBUILT TABLE) with "PREBUILT;REDUCED" (WITH or
//     WITHOUT, written ... REDUCED PRECISION) (from 2), or the physical properties and the view's
//     properties:
//     "C_MV_PHYSICAL_PROP", one of: "C_SEG_ATTRIBUTE" with "COMPRESS" (from 4); "INDEX" (holds INDEX,
//       written ORGANIZATION INDEX) with "INDEX;C_SEG_ATTRIBUTE" and "INDEX;C_IDX_ORG_TABLE" (from 3);
//       "CLUSTER" with its columns "CLUSTER;LIST";
//     then (from 2) the LOB storage items "C_MV_LOB;LIST" (CSQLClauseLOBStorage), "C_TABLE_PART",
//     "CACHE", "C_PARALLEL" and "BUILD" (IMMEDIATE or DEFERRED);
//   "C_USING_INDEX": USING INDEX with "C_PHYSICAL_ATTRIBUTES" and "TABLESPACE", or (from 4) "NO"
//     (holds NO, written USING NO INDEX);
//   "C_REFRESH": REFRESH with "FAST" (FAST, COMPLETE or FORCE), "ON" (DEMAND or COMMIT; from 2),
//     "START" (START WITH), "NEXT", "WITH" (PRIMARY KEY or ROWID; from 1) and (from 2) USING one of
//     "DEFAULT" (holds DEFAULT) with "DEFAULT;MASTER" (MASTER or LOCAL), written DEFAULT MASTER
//     ROLLBACK SEGMENT, or "MASTER" (MASTER or LOCAL) with "SEGMENT", the rollback segment; or
//     (from 2) "NEVER" (holds NEVER, written NEVER REFRESH);
//   "UPDATE" (holds UPDATE, written FOR UPDATE), "REWRITE" (ENABLE or DISABLE, written ... QUERY
//   REWRITE; from 2), "AS" (the subquery, written as given).
class CSQLCreateMaterializedView : public CreateStatement<CSQLCreateMaterializedView> {
 public:
  explicit CSQLCreateMaterializedView(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// CREATE MATERIALIZED VIEW LOG ("C_CREATE_MVIEW_LOG"), paths with containers left out:
//   "SCHEMA", "TABLE" (the master table, written after ON), "C_SEG_ATTRIBUTE" (physical attributes,
//   TABLESPACE and, from 2, LOGGING), then from 2 "CACHE", "C_PARALLEL" and "C_TABLE_PART";
//   "C_MV_LOG_WITH" (from 1): WITH, the keywords "C_MV_LOG_WITH;LIST" (leaves holding OBJECT ID,
//   PRIMARY KEY, ROWID or SEQUENCE, written with commas between them) and the filter columns
//   "C_MV_LOG_WITH;COLUMNS", written (A,B);
//   "NEW" (INCLUDING or EXCLUDING, written ... NEW VALUES; from 2);
//   "C_PURGE" (from 7), see CSQLAlterMViewLog.
// OBJECT ID is Oracle 9i and SEQUENCE Oracle 10g: list items are the host's, the tree does not gate
// their text.
class CSQLCreateMaterializedViewLog : public CreateStatement<CSQLCreateMaterializedViewLog> {
 public:
  explicit CSQLCreateMaterializedViewLog(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ALTER MATERIALIZED VIEW ("C_ALTER_MVIEW"): "SCHEMA", "MVIEW" and one alteration per pass, the
// first that has text of:
//   "C_PHYSICAL_ATTRIBUTES"; "COMPRESS" (COMPRESS or NOCOMPRESS; from 4);
//   from 2: the LOB storage items "C_MV_LOB;LIST" (CSQLClauseLOBStorage) and the LOB modifications
//     "C_MV_MOD_LOB;LIST" (CSQLClauseModifyLOBStorage), both separated by commas;
//     "C_ALTER_TAB_PART" (partition maintenance, as ALTER TABLE has it); "C_PARALLEL"; "LOGGING";
//     "C_ALLOCATE_EXTENT"; "C_DEALLOCATE_UNUSED";
//   "C_SHRINK" (from 5): "SHRINK" (holds SHRINK SPACE), "COMPACT", "CASCADE";
//   "CACHE" (from 2); "C_ALTER_IOT" (from 3);
//   "C_USING_INDEX": USING INDEX with "C_PHYSICAL_ATTRIBUTES";
//   "C_REFRESH": REFRESH with "FAST", "ON" (from 2), "START", "NEXT", "WITH" (PRIMARY KEY; from 1),
//     and (from 2) USING "DEFAULT" (with "DEFAULT;MASTER", holding MASTER) or "MASTER" with "SEGMENT";
//   from 2: "REWRITE" (ENABLE or DISABLE), "COMPILE" (holds COMPILE);
//   "CONSIDER" (holds CONSIDER, written CONSIDER FRESH; from 4).
// A tree with nothing set beyond the view's names writes nothing at all.
class CSQLAlterMaterializedView : public Cloneable<CSQLAlterMaterializedView> {
 public:
  explicit CSQLAlterMaterializedView(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
  // ALTER MATERIALIZED VIEW, or ALTER SNAPSHOT below release code 2.
  int preModifiedSQL(const char* path, std::string& text) override;
  // Empties a text that holds nothing but the head.
  int postModifiedSQL(const char* path, std::string& text) override;
  bool writesUnmodified() const override { return true; }
};

// ALTER MATERIALIZED VIEW LOG ("C_ALTER_MVIEW_LOG"): "FORCE" (holds FORCE; from 4), "SCHEMA" and
// "TABLE" (written after ON), and one alteration per pass, the first that has text of:
//   "C_PHYSICAL_ATTRIBUTES";
//   from 2: "C_ALTER_TAB_PART", "C_PARALLEL", "LOGGING", "C_ALLOCATE_EXTENT";
//   "C_SHRINK" (from 5), as for the view; "CACHE" (from 2);
//   "C_MV_LOG_ADD" (from 1): ADD, the keywords "C_MV_LOG_ADD;LIST", the filter columns
//     "C_MV_LOG_ADD;COLUMNS" and "C_MV_LOG_ADD;NEW" (INCLUDING or EXCLUDING; from 2), as in the
//     WITH clause of CSQLCreateMaterializedViewLog;
//   "C_PURGE" (from 7): PURGE with one of "IMMEDIATE" (holds IMMEDIATE) with "IMMEDIATE;SYNCHRONOUS"
//     (SYNCHRONOUS or ASYNCHRONOUS), or "START" (START WITH) with "NEXT" or "REPEAT" (written REPEAT
//     INTERVAL).
// A tree with nothing set beyond FORCE and the table's names writes nothing at all.
class CSQLAlterMViewLog : public Cloneable<CSQLAlterMViewLog> {
 public:
  explicit CSQLAlterMViewLog(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
  // ALTER MATERIALIZED VIEW LOG, or ALTER SNAPSHOT LOG below release code 2.
  int preModifiedSQL(const char* path, std::string& text) override;
  // Empties a text that holds nothing but the head, FORCE and ON with the table's names.
  int postModifiedSQL(const char* path, std::string& text) override;
  bool writesUnmodified() const override { return true; }
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_MVIEWS_H
