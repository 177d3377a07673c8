// ALTER DATABASE ("C_ALTER_DATABASE"): an optional database name, "DATABASE", and one alteration.
//
//   ALTER DATABASE OPEN READ WRITE RESETLOGS
//   ALTER DATABASE DATAFILE '/u01/users01.dbf' AUTOEXTEND ON NEXT 10M MAXSIZE 2G
//   ALTER DATABASE ADD STANDBY LOGFILE GROUP 4 ('/u01/redo04a.log','/u02/redo04b.log') SIZE 50M
//   ALTER DATABASE ADD SUPPLEMENTAL LOG DATA (PRIMARY KEY,UNIQUE INDEX) COLUMNS
//   ALTER DATABASE BACKUP CONTROLFILE TO TRACE
//
// Release-code gates (0 Oracle7 7.3, 2 Oracle8i, 3 Oracle9i Release 1, 4 Oracle9i Release 2,
// 5 Oracle 10g Release 1):
//   from 2  the temp file clauses, OPEN READ ONLY and READ WRITE;
//   from 3  DEFAULT TEMPORARY TABLESPACE, SET TIME_ZONE, STANDBY log files, DROP INCLUDING DATAFILES
//           of a temp file;
//   from 4  [NO] FORCE LOGGING, ADD | DROP SUPPLEMENTAL LOG DATA;
//   from 5  DEFAULT TABLESPACE, ENABLE | DISABLE BLOCK CHANGE TRACKING, FLASHBACK ON | OFF, and
//           AS 'file', REUSE and RESETLOGS after BACKUP CONTROLFILE TO TRACE.
// A tree with nothing set beyond the database name writes nothing at all.
#ifndef QARVELT_STATEMENTS_ALTER_DATABASE_H
#define QARVELT_STATEMENTS_ALTER_DATABASE_H

#include <string>

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

// The alteration is one of (the first that has text, per pass):
//   "MOUNT" (the keyword);
//   "OPEN" (the keyword) with "OPEN;READ" (ONLY or WRITE, written READ ONLY; from code 2, Oracle8i)
//   and "OPEN;RESETLOGS"
//     (RESETLOGS or NORESETLOGS);
//   "ARCHIVELOG" (ARCHIVELOG or NOARCHIVELOG);
//   "FORCE" (FORCE or NO FORCE, written with LOGGING);
//   "C_ALT_DB_SUPPLEMENTAL": "SUPPLEMENTAL" (ADD or DROP, written with SUPPLEMENTAL LOG DATA) and
//     the list "SUPPLEMENTAL;LIST" of plain leaves (PRIMARY KEY, UNIQUE INDEX), written
//     (...) COLUMNS;
//   "DEFAULT" (DEFAULT TABLESPACE), "TEMPORARY" (DEFAULT TEMPORARY TABLESPACE);
//   "GLOBAL_NAME" (RENAME GLOBAL_NAME TO), "TIME_ZONE" (SET TIME_ZONE = '...');
//   "TRACKING" (ENABLE or DISABLE, written with BLOCK CHANGE TRACKING) with "TRACKING;FILE" (USING
//     FILE '...') and "TRACKING;REUSE";
//   "FLASHBACK" (ON or OFF);
//   "C_ALT_DB_CONTROLFILE": BACKUP CONTROLFILE TO one of "TRACE" (the keyword, with "TRACE;AS",
//     "TRACE;REUSE", "TRACE;RESETLOGS") or "FILE" (quoted by the leaf, with "FILE;REUSE");
//   "C_ALT_DB_DATAFILE": DATAFILE, the list "LIST" of CSubSQLItemFile, then one of "ONLINE",
//     "OFFLINE" (with "OFFLINE;DROP"), "RESIZE", "C_AUTOEXTEND";
//   "C_ALT_DB_TEMPFILE": TEMPFILE, the list "LIST", then one of "ONLINE", "OFFLINE", "RESIZE",
//     "C_AUTOEXTEND", "DROP" (with "DROP;INCLUDING", written INCLUDING DATAFILES);
//   "C_ALT_DB_RENAME_FILE": RENAME FILE, the list "LIST", TO and the list "LISTTO";
//   "C_ALT_DB_ADD_LOGFILE": ADD, "STANDBY", LOGFILE, "THREAD", "GROUP", the list "LIST" in brackets,
//     "SIZE", "REUSE";
//   "C_ALT_DB_DROP_LOGFILE": DROP, "STANDBY", LOGFILE, "GROUP";
//   "C_ALT_DB_ADD_MEMBER": ADD, "STANDBY", LOGFILE MEMBER, the list "LIST", "REUSE", "GROUP"
//     (written TO GROUP);
//   "C_ALT_DB_DROP_MEMBER": DROP, "STANDBY", LOGFILE MEMBER, the list "LIST".
// "C_AUTOEXTEND" holds the shared AUTOEXTEND leaf (clauses/data_file.h): "AUTOEXTEND" (ON or OFF) with
// "AUTOEXTEND;NEXT" and "AUTOEXTEND;MAXSIZE" (a size or UNLIMITED); AUTOEXTEND OFF ends it. Every file
// list takes CSubSQLItemFile items.
// The files of C_ALT_DB_DATAFILE and C_ALT_DB_TEMPFILE name what is altered, not a change: a pass
// takes back the alteration that it wrote but keeps the files, so that two alterations of one file
// split over two passes both name it; without an alteration left the clause writes nothing.
class CSQLAlterDatabase : public AlterStatement<CSQLAlterDatabase> {
 public:
  static constexpr const char* kVerb = "ALTER DATABASE";
  static constexpr const char* kNameLeaf = "DATABASE";

  explicit CSQLAlterDatabase(bool bInit = true, int nOraVersion = 7);

  // One file of a file list: "FILE", the file name, quoted by the leaf.
  class CSubSQLItemFile : public Cloneable<CSubSQLItemFile> {
   public:
    explicit CSubSQLItemFile(const char* name);
    explicit CSubSQLItemFile(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_ALTER_DATABASE_H
