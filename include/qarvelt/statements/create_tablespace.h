// CREATE TABLESPACE ("C_CREATE_TABLESPACE"): permanent, temporary and undo tablespaces.
//
//   CREATE TABLESPACE USERS DATAFILE '/u01/users01.dbf' SIZE 100M AUTOEXTEND ON NEXT 10M MAXSIZE 2G
//     LOGGING EXTENT MANAGEMENT LOCAL AUTOALLOCATE SEGMENT SPACE MANAGEMENT AUTO
//   CREATE TEMPORARY TABLESPACE TEMP TEMPFILE '/u01/temp01.dbf' SIZE 500M EXTENT MANAGEMENT LOCAL
//     UNIFORM SIZE 1M
//   CREATE BIGFILE UNDO TABLESPACE UNDOTBS2 DATAFILE '/u01/undo02.dbf' SIZE 2G RETENTION GUARANTEE
//
// Release gates (the release code a piece of syntax needs, and the Oracle release it stands for):
//   0  Oracle 7          TABLESPACE, DATAFILE, DEFAULT STORAGE, ONLINE / OFFLINE, and CONTENTS
//                        (PERMANENT / TEMPORARY after the options; up to code 4, gone in Oracle 10g)
//   1  Oracle 8.0        MINIMUM EXTENT, LOGGING / NOLOGGING
//   2  Oracle 8i         TEMPORARY TABLESPACE with TEMPFILE, EXTENT MANAGEMENT
//   3  Oracle 9i R1      UNDO TABLESPACE, BLOCKSIZE, SEGMENT SPACE MANAGEMENT
//   4  Oracle 9i R2      FORCE LOGGING, DEFAULT COMPRESS / NOCOMPRESS
//   5  Oracle 10g R1     BIGFILE / SMALLFILE, TABLESPACE GROUP, FLASHBACK ON / OFF,
//                        RETENTION GUARANTEE / NOGUARANTEE
//
// The tree, in Oracle's order:
//   "BIGFILE"           BIGFILE or SMALLFILE
//   one of "TEMPORARY" (the keyword TEMPORARY) and "UNDO" (the keyword UNDO)
//   "TABLESPACE"        TABLESPACE t
//   "LIST_DATAFILE"     DATAFILE and the files, a list of CSQLClauseDataFile items, ", " between them
//   "LIST_TEMPFILE"     TEMPFILE and the files, the same
//   "GROUP"             TABLESPACE GROUP g
//   "MINIMUM"           MINIMUM EXTENT n
//   "BLOCKSIZE"         BLOCKSIZE n
//   "LOGGING"           LOGGING or NOLOGGING
//   "FORCE"             the keyword FORCE, written FORCE LOGGING
//   DEFAULT with "COMPRESS" (COMPRESS or NOCOMPRESS) and "C_STORAGE", written only when one of them is
//   "ONLINE"            ONLINE or OFFLINE
//   "CONTENTS"          PERMANENT or TEMPORARY
//   "C_EXTENT_MANAGEMENT"  EXTENT MANAGEMENT and one of "DICTIONARY" (the keyword) and "LOCAL" (the
//                       keyword LOCAL) with one of "LOCAL;AUTOALLOCATE" (the keyword) and
//                       "LOCAL;UNIFORM" (the keyword UNIFORM) with "LOCAL;UNIFORM;SIZE" (SIZE n)
//   "SEGMENT"           AUTO or MANUAL, written SEGMENT SPACE MANAGEMENT AUTO
//   "FLASHBACK"         ON or OFF, written FLASHBACK ON
//   "RETENTION"         GUARANTEE or NOGUARANTEE, written RETENTION GUARANTEE
//
// Which options fit which kind of tablespace (TEMPFILE and GROUP for temporary ones, RETENTION for
// undo ones) is the host's concern: the tree writes what it is given. The default storage clause is
// built for release code 0 whatever the statement's own code, as a tablespace takes no BUFFER_POOL.
#ifndef QARVELT_STATEMENTS_CREATE_TABLESPACE_H
#define QARVELT_STATEMENTS_CREATE_TABLESPACE_H

#include "qarvelt/core/cloneable.h"
#include "qarvelt/statements/statement.h"

namespace qarvelt {

class CSQLCreateTablespace : public CreateStatement<CSQLCreateTablespace> {
 public:
  explicit CSQLCreateTablespace(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_CREATE_TABLESPACE_H
