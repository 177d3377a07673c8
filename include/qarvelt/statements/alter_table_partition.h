// Partition maintenance of ALTER TABLE ("C_ALTER_TAB_PART"), also embedded by ALTER MATERIALIZED VIEW
// and ALTER MATERIALIZED VIEW LOG. The clause holds seventeen operations (nineteen from release code 9) as
// alternatives; a host fills one of them per statement, reached by its node name:
//
//   C_MODIFY_TABLE_DEF_ATTR  MODIFY DEFAULT ATTRIBUTES FOR PARTITION P1 TABLESPACE T ...
//   C_SET_SUBPART_TEMPLATE   SET SUBPARTITION TEMPLATE ( SUBPARTITION S1 ...)
//   C_MOD_TAB_PART           MODIFY PARTITION P1 and one variant: C_MOD_RANGE_PART,
//                            C_MOD_HASH_PART or C_MOD_LIST_PART
//   C_MOD_TAB_SUBPART        MODIFY SUBPARTITION S1 and C_MOD_HASH_SUBPART or C_MOD_LIST_SUBPART
//   C_MOVE_TAB_PART          MOVE PARTITION P1 MAPPING TABLE TABLESPACE T ...
//   C_MOVE_TAB_SUBPART       MOVE SUBPARTITION S1 TABLESPACE T ...
//   C_ADD_TAB_PART           ADD PARTITION: C_ADD_RANGE_PART, C_ADD_HASH_PART or C_ADD_LIST_PART
//   C_COALESCE_TAB_PART      COALESCE PARTITION
//   C_DROP_TAB_PART          DROP PARTITION P1 UPDATE GLOBAL INDEXES
//   C_DROP_TAB_SUBPART       DROP SUBPARTITION S1 ...
//   C_RENAME_PART_SUBPART    RENAME PARTITION P1 TO P2, RENAME SUBPARTITION S1 TO S2
//   C_TRUNCATE_PART_SUBPART  TRUNCATE PARTITION P1 DROP STORAGE ...
//   C_SPLIT_TABLE_PART       SPLIT PARTITION P1 AT (10) INTO (PARTITION P1A , PARTITION P1B)
//   C_SPLIT_TABLE_SUBPART    SPLIT SUBPARTITION S1 VALUES ('A') INTO ( ... )
//   C_MERGE_TABLE_PART       MERGE PARTITIONS P1, P2 INTO PARTITION P12
//   C_MERGE_TABLE_SUBPART    MERGE SUBPARTITIONS S1, S2 INTO SUBPARTITION S12
//   C_EXCHANGE_PART_SUBPART  EXCHANGE PARTITION P1 WITH TABLE T2 INCLUDING INDEXES WITHOUT VALIDATION
//   C_ALTER_INTERVAL_PART    SET INTERVAL (expr) ("INTERVAL"; an empty value writes SET INTERVAL ()),
//                            or SET STORE IN (T1,T2) ("LIST"); from release code 7
//   C_ALTER_AUTOMATIC_PART   SET PARTITIONING AUTOMATIC or MANUAL ("PARTITIONING"); from release code 9
//
// From release code 8 each MODIFY PARTITION variant has "INDEXING" (INDEXING ON or OFF); from 7 the
// list variant C_MOD_LIST_PART adds and coalesces subpartitions as the range variant does
// ("C_ADD_HASH_SUBPART", "C_ADD_LIST_SUBPART", which also adds range subpartitions, "COALESCE").
//
// The leaf that names the partition carries the operation's keywords, so setting the name is what
// writes them ("C_DROP_TAB_PART;PARTITION"); the rest of an operation is usually that leaf's
// children ("C_DROP_TAB_PART;PARTITION;UPDATE"). Keyword leaves hold their own keyword and write the
// words that follow it: "UPDATE" holds UPDATE (UPDATE GLOBAL INDEXES), "UNUSABLE" holds UNUSABLE
// (written after REBUILD: REBUILD UNUSABLE LOCAL INDEXES), "COALESCE", "DROP" (DROP STORAGE),
// "MAPPING" (MAPPING TABLE). Where "C_PARALLEL" is a child of "UPDATE" (drop, truncate, exchange) a
// degree follows the whole clause: UPDATE GLOBAL INDEXES PARALLEL 2. The exchange target "TABLE"
// takes everything up to VALIDATION as its value (WITH TABLE T2 INCLUDING INDEXES WITHOUT).
#ifndef QARVELT_STATEMENTS_ALTER_TABLE_PARTITION_H
#define QARVELT_STATEMENTS_ALTER_TABLE_PARTITION_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

class CSQLClauseAlterTablePartition : public Cloneable<CSQLClauseAlterTablePartition> {
 public:
  explicit CSQLClauseAlterTablePartition(bool bInit = true, int nOraVersion = kLatestRelease);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_ALTER_TABLE_PARTITION_H
