// Partitioning: how tables and indexes are split into partitions and subpartitions.
//
//   C_TABLE_PART           PARTITION BY RANGE | HASH | LIST | REFERENCE, or RANGE or LIST with RANGE,
//                          LIST or HASH subpartitions; INTERVAL and AUTOMATIC partitioning
//   C_PARTITION_SPEC       PARTITION P1 and its description (the halves of a split)
//   C_SUBPARTITION_SPEC    SUBPARTITION S1 VALUES ('A') TABLESPACE T
//   C_PARTITION_STORAGE    TABLESPACE, OVERFLOW TABLESPACE, LOB ( ... ) STORE AS, VARRAY ... STORE AS LOB
//   C_PARTITION_ATTRIBUTE  the attributes MODIFY PARTITION may change
//   C_TAB_PART_DESC        segment attributes, compression, overflow, LOB items and subpartitions
//   C_RANGEVALUES          VALUES LESS THAN (10, MAXVALUE)
//   C_LISTVALUES           VALUES ('A','B'), VALUES (DEFAULT)
//   C_GLOBAL_PARTITIONING  PARTITION P1 VALUES LESS THAN (MAXVALUE) of a global index
//   C_GLOBAL_PART_IDX      GLOBAL PARTITION BY RANGE (A) (PARTITION ...)
//   C_ADD_HASH_SUBPART     ADD SUBPARTITION S1 ... UPDATE GLOBAL INDEXES PARALLEL 4
//   C_ADD_LIST_SUBPART     ADD SUBPARTITION S1 VALUES ( ... ) ...
//
// Key columns, bound values and tablespace names are host-appended leaves named after what they
// hold, with that text as their value. Partitions are items of the classes nested in
// CSQLClauseTablePartition, named after the partition.
#ifndef QARVELT_CLAUSES_PARTITION_H
#define QARVELT_CLAUSES_PARTITION_H

#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// Below release code 3 the only kind is range partitioning ("C_RANGE_PART"). From 3 the kinds are
// alternatives: "C_RANGE_PART", "C_HASH_PART", "C_LIST_PART" (from release code 6),
// "C_COMPOSITE_PART" (range partitions with subpartitions), and from release code 7
// "C_COMPOSITE_LIST_PART" (list partitions with subpartitions) and "C_REFERENCE_PART", all built with
// this clause's release code.
//
// Oracle 11g brought, on top of the older shapes:
//   "C_RANGE_PART;INTERVAL" and "C_COMPOSITE_PART;INTERVAL": INTERVAL (expr), whose "LIST" holds the
//     tablespaces of STORE IN ( ... );
//   "C_SUBPART_BY_RANGE": SUBPARTITION BY RANGE (B) with a template, beside the list and hash kinds;
//   "C_REFERENCE_PART": PARTITION BY REFERENCE (the foreign key, "CONSTRAINT") and the partitions
//     ("LIST", CSQLClausePartitionSpec items);
//   "C_RANGEVALUES" in the subpartition descriptions (CSubSQLItemTemplate, CSQLClauseSubPartitionSpec).
// Oracle 12c Release 2 brought "COLUMNS" (the key columns of a list partitioning on several columns, in
// place of "COLUMN") and "AUTOMATIC" (set to AUTOMATIC) in "C_LIST_PART" and "C_COMPOSITE_LIST_PART".
class CSQLClauseTablePartition : public Cloneable<CSQLClauseTablePartition> {
 public:
  explicit CSQLClauseTablePartition(bool bInit = true, int nOraVersion = 7);

  // A range partition: PARTITION P1 VALUES LESS THAN (10) with its description, then either
  // SUBPARTITIONS n STORE IN ( ... ) ("QUANTITY", "QUANTITY;LIST") or its own subpartitions
  // ("C_SUBPART_TEMPLATE").
  class CSubSQLItemRange : public Cloneable<CSubSQLItemRange> {
   public:
    explicit CSubSQLItemRange(const char* name);
    // Builds the item for a release: the syntax of newer releases (INDEXING) at their codes.
    CSubSQLItemRange(const char* name, int nOraVersion);
    explicit CSubSQLItemRange(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // A hash partition: PARTITION P1, from release code 9 "INDEXING" (INDEXING ON or OFF), and its
  // storage.
  class CSubSQLItemHash : public Cloneable<CSubSQLItemHash> {
   public:
    explicit CSubSQLItemHash(const char* name);
    // Builds the item for a release: the syntax of newer releases (INDEXING) at their codes.
    CSubSQLItemHash(const char* name, int nOraVersion);
    explicit CSubSQLItemHash(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // A list partition: PARTITION P1 VALUES ( ... ) with its description.
  class CSubSQLItemList : public Cloneable<CSubSQLItemList> {
   public:
    explicit CSubSQLItemList(const char* name);
    // Builds the item for a release: the syntax of newer releases (INDEXING) at their codes.
    CSubSQLItemList(const char* name, int nOraVersion);
    explicit CSubSQLItemList(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

  // One subpartition of a template: SUBPARTITION S1, its values (list subpartitions) or, from release
  // code 7, its bound (range subpartitions, "C_RANGEVALUES"), and its storage.
  class CSubSQLItemTemplate : public Cloneable<CSubSQLItemTemplate> {
   public:
    explicit CSubSQLItemTemplate(const char* name);
    // Builds the item for a release: the syntax of newer releases (INDEXING) at their codes.
    CSubSQLItemTemplate(const char* name, int nOraVersion);
    explicit CSubSQLItemTemplate(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// "C_HASH_PART": PARTITION BY HASH, the key columns ("LIST"), then either the partitions
// ("LISTSUB", CSubSQLItemHash items) or their number ("C_BY_QUANTITY": PARTITIONS n STORE IN ( ... )).
// Global hash-partitioned indexes use it as well.
class CSQLClauseHashPart : public Cloneable<CSQLClauseHashPart> {
 public:
  explicit CSQLClauseHashPart(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// "C_PART_LEVEL_SUBPART", the subpartitions of one partition: either SUBPARTITIONS n STORE IN ( ... )
// ("SUBPARTITIONS", "SUBPARTITIONS;LIST") or a bracketed list of CSQLClauseSubPartitionSpec items
// ("LIST"), each constructed under the subpartition's name.
class CSQLClausePartLevelSubpart : public Cloneable<CSQLClausePartLevelSubpart> {
 public:
  explicit CSQLClausePartLevelSubpart(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// PARTITION, the partition name ("PARTITION") and its description ("C_TAB_PART_DESC"); also a
// partition of a table partitioned by reference.
class CSQLClausePartitionSpec : public Cloneable<CSQLClausePartitionSpec> {
 public:
  // Builds the clause under `name` instead of "C_PARTITION_SPEC".
  explicit CSQLClausePartitionSpec(const char* name);
  // The same for a release: its description takes the syntax of newer releases at their codes.
  CSQLClausePartitionSpec(const char* name, int nOraVersion);
  explicit CSQLClausePartitionSpec(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// SUBPARTITION, the name ("SUBPARTITION"), "C_LISTVALUES" (list subpartitions) or, from release code
// 7, "C_RANGEVALUES" (range subpartitions), and "C_PARTITION_STORAGE".
class CSQLClauseSubPartitionSpec : public Cloneable<CSQLClauseSubPartitionSpec> {
 public:
  // Builds the clause under `name` instead of "C_SUBPARTITION_SPEC".
  explicit CSQLClauseSubPartitionSpec(const char* name);
  explicit CSQLClauseSubPartitionSpec(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// "TABLESPACE"; "OVERFLOW" (the host sets OVERFLOW) with its "TABLESPACE"; the LOB items ("LIST",
// CSubSQLItemLOB); "VARRAY" (the varray item) with "SECUREFILE" (release code 7: SECUREFILE or
// BASICFILE) and "LOB_SEGNAME", written VARRAY V STORE AS [SECUREFILE] LOB SEG.
class CSQLClausePartitionStorage : public Cloneable<CSQLClausePartitionStorage> {
 public:
  explicit CSQLClausePartitionStorage(bool bInit = true, int nOraVersion = 7);

  // LOB (C) STORE AS SEG (TABLESPACE T), or LOB (C) STORE AS (TABLESPACE T). The "LOB" leaf only
  // holds the rest: the host sets "LOB;LOBITEM", then "LOB;LOB_SEGNAME" with
  // "LOB;LOB_SEGNAME;TABLESPACE", or "LOB;TABLESPACE" alone.
  class CSubSQLItemLOB : public Cloneable<CSubSQLItemLOB> {
   public:
    explicit CSubSQLItemLOB(const char* name);
    explicit CSubSQLItemLOB(bool bInit = true, int nOraVersion = 7);

   protected:
    void init() override;
  };

 protected:
  void init() override;
};

// The physical attributes (built with this clause's release code), "LOGGING", "C_ALLOCATE_EXTENT"
// and "C_DEALLOCATE_UNUSED"; "OVERFLOW" (the host sets OVERFLOW) followed by the same four for the
// overflow segment; "COMPRESS" (COMPRESS or NOCOMPRESS); "LIST" of LOB and varray items, written
// LOB (C) (CACHE).
class CSQLClausePartitionAttribute : public Cloneable<CSQLClausePartitionAttribute> {
 public:
  explicit CSQLClausePartitionAttribute(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// From release code 8 "INDEXING" (INDEXING ON or OFF: whether partial indexes cover the partition);
// "C_SEG_ATTRIBUTE"; "COMPRESS" (table compression: COMPRESS or NOCOMPRESS) and "C_KEY_COMPRESSION";
// "OVERFLOW" with its own "C_SEG_ATTRIBUTE"; "LIST" of LOB and varray items (LOB (C) STORE AS (...));
// "C_PART_LEVEL_SUBPART".
//
// The "OVERFLOW" leaf carries the keyword in its prefix, so its value is written after OVERFLOW: a
// host that wants the keyword alone, followed by the overflow segment attributes, sets a blank.
class CSQLClauseTabPartitionDesc : public Cloneable<CSQLClauseTabPartitionDesc> {
 public:
  explicit CSQLClauseTabPartitionDesc(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// VALUES LESS THAN ( ... ): the bounds are "LIST" items (10, MAXVALUE, TO_DATE(...)).
class CSQLClauseRangeValues : public Cloneable<CSQLClauseRangeValues> {
 public:
  explicit CSQLClauseRangeValues(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// VALUES ( ... ): either the values as "LIST" items (quoted by the host) or "DEFAULT" set to DEFAULT.
class CSQLClauseListValues : public Cloneable<CSQLClauseListValues> {
 public:
  explicit CSQLClauseListValues(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// One partition of a global range-partitioned index: PARTITION P1 VALUES LESS THAN ( ... ) ("LIST")
// and its "C_SEG_ATTRIBUTE".
class CSQLClauseGlobalPartitioning : public Cloneable<CSQLClauseGlobalPartitioning> {
 public:
  explicit CSQLClauseGlobalPartitioning(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// GLOBAL PARTITION BY RANGE, the key columns ("LIST") and, in brackets, "C_GLOBAL_PARTITIONING".
class CSQLClauseGlobalPartitionIndex : public Cloneable<CSQLClauseGlobalPartitionIndex> {
 public:
  explicit CSQLClauseGlobalPartitionIndex(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ADD and a "C_SUBPARTITION_SPEC", "UPDATE" (the host sets UPDATE; written UPDATE GLOBAL INDEXES) and
// "C_PARALLEL".
class CSQLClauseAddHashSubPartition : public Cloneable<CSQLClauseAddHashSubPartition> {
 public:
  explicit CSQLClauseAddHashSubPartition(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

// ADD and a "C_SUBPARTITION_SPEC".
class CSQLClauseAddListSubPartition : public Cloneable<CSQLClauseAddListSubPartition> {
 public:
  explicit CSQLClauseAddListSubPartition(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CLAUSES_PARTITION_H
