// LOB storage per partition: the LOB segments of a partitioned table, one item
// (CSQLInfoLOBPartitions::CLOBColumn) per LOB column and partition or subpartition. BuildSQL turns
// what the caller changed into MOVE and MODIFY statements on the partitions, each rendered from the
// "C_ALTER_TAB_PART" clause of a CSQLAlterTable and appended to the output array.
//
//   CSQLInfoLOBPartitions lobs;
//   lobs.AddLOBColumn("DOC", "P1", true);
//   lobs.GetLOBColumn("DOC", "P1")->SetSQLValue("TABLESPACE", "LOBS2", "LOBS1");
//   lobs.GetLOBColumn("DOC", "P1")->SetSQLValue("PCTVERSION", "20", "10");
//   CSQLUtil::GenAltLOBPartition(&stmt, &out, &table, &lobs);
//     -> ALTER TABLE S.T MOVE PARTITION P1 LOB (DOC) STORE AS (TABLESPACE LOBS2 PCTVERSION 20)
//
// An item is named after its LOB column and found by column and partition together (names compared
// case-sensitively); a column has one item per partition or subpartition whose storage the caller
// describes. Partitioning kinds are the texts RANGE, HASH and LIST, as in the table partition record
// (qarvelt/info/partitions.h): they choose the form of MODIFY PARTITION (or SUBPARTITION).
//
// Collection values:
//   "TYPE"     the partitioning kind, the default of AddLOBColumn for a partition
//   "SUBTYPE"  the subpartitioning kind (HASH or LIST), the default for a subpartition
//   "UPDATE"   an option, read as it stands (changed or not): UPDATE or INVALIDATE, written before
//              GLOBAL INDEXES on every MOVE
// Item values:
//   "TYPE"        the kind of the item's partition or subpartition, from AddLOBColumn
//   "TABLESPACE"  the LOB segment's tablespace
//   "CHUNK"       the chunk size
//   "ENABLE"      ENABLE or DISABLE, written before STORAGE IN ROW
//   "PCTVERSION", "RETENTION" (the keyword RETENTION), "FREEPOOLS"
//   "CACHE"       CACHE, NOCACHE or CACHE READS
//   "LOGGING"     LOGGING or NOLOGGING, which Oracle accepts only after NOCACHE or CACHE READS: a
//                 changed "LOGGING" restates the current text of an unchanged "CACHE"
//   "INITIAL", "NEXT", "MINEXTENTS", "MAXEXTENTS", "PCTINCREASE", "FREELISTS", "FREELIST" (freelist
//   groups)  the LOB segment's storage
//
// Which change goes where. Oracle changes PCTVERSION, RETENTION, FREEPOOLS, CACHE, LOGGING, NEXT,
// MAXEXTENTS, PCTINCREASE and FREELISTS of a LOB segment in place:
//   MODIFY PARTITION p LOB (c) (PCTVERSION 20 CACHE)
// A new TABLESPACE, CHUNK, ENABLE, INITIAL, MINEXTENTS or FREELIST needs a new segment, made by
// moving the partition; the move then carries every changed value of the item:
//   MOVE PARTITION p LOB (c) STORE AS (TABLESPACE t CHUNK 16384 PCTVERSION 20) [UPDATE GLOBAL INDEXES]
// A subpartition's LOB segment can be moved to another tablespace and nothing more:
//   MOVE SUBPARTITION s LOB (c) STORE AS (TABLESPACE t), MODIFY SUBPARTITION s LOB (c) (...)
//
// BuildSQL with the selector "" visits the partitions and subpartitions in the order of their first
// item, and writes for each one its MOVE statement, with all of its moved LOB columns, then its
// MODIFY statement, with all of its LOB columns changed in place. The selectors "MOVE" and "MOD"
// write one kind only; any other selector does nothing. BuildSQL returns 4 when it has no clause to
// fill, and otherwise passes on the first failure of the tree's operations (the statements before it
// stay in the output).
//
// A partition with subpartitions has no LOB segment of its own (Oracle refuses to move it): describe
// the storage of its subpartitions instead.
//
// Dropped items are not scripted (a LOB column is dropped with its table column, a partition by the
// table partition record); an added item is scripted like an existing one, every loaded value that
// differs from its initial text being a change. Moving a partition rebuilds its table segment as
// well, in its present tablespace, and leaves its local index partitions unusable.
//
// What the trees cannot express. The MODIFY LOB item of the clause library writes MODIFY LOB (c);
// inside MODIFY PARTITION the words are LOB (c) alone, so the record gives the item's column leaf
// the prefix "LOB (". No LOB storage clause offers BUFFER_POOL, so the record has no such value.
// The partition storage clause of a subpartition stores a LOB segment by tablespace only (as Oracle
// does), so a changed CHUNK, ENABLE, INITIAL, MINEXTENTS or FREELIST of a subpartition's LOB is not
// scripted. Segment names (STORE AS seg), SECUREFILE options, varray columns, ALLOCATE EXTENT,
// DEALLOCATE UNUSED, REBUILD FREEPOOLS and SHRINK SPACE are not among the record's values.
#ifndef QARVELT_INFO_LOB_PARTITIONS_H
#define QARVELT_INFO_LOB_PARTITIONS_H

#include "qarvelt/info/base.h"

namespace qarvelt {

namespace detail {
struct PartitionRun;
}

// The LOB storage of one column in one partition or subpartition
// (CSQLInfoLOBPartitions::CLOBColumn); its name is the column's name.
class CSQLInfoLOBPartition : public CSQLInfoBase {
 public:
  // `type` is the kind of the partition or subpartition.
  CSQLInfoLOBPartition(const char* column, const char* partition, bool subpartition, const char* type);

  // The partition or subpartition the storage belongs to.
  std::string GetPartition() const { return m_strPartition; }
  bool IsSubPartition() const { return m_bSubPartition; }

 protected:
  void init() override;

 private:
  std::string m_strPartition;
  bool m_bSubPartition;
};

class CSQLInfoLOBPartitions : public CSQLInfoCollection<CSQLInfoLOBPartition> {
 public:
  using CLOBColumn = CSQLInfoLOBPartition;

  CSQLInfoLOBPartitions();

  // The storage of `column` in `partition` (a subpartition when `subpartition` is true). 7 when the
  // pair has an item already. A null or empty `type` takes the collection's "TYPE" for a partition,
  // its "SUBTYPE" for a subpartition.
  int AddLOBColumn(const char* column,
                   const char* partition,
                   bool existing,
                   bool subpartition = false,
                   const char* type = nullptr);
  // 4 when the pair has no item; marks the item dropped or removes it outright.
  int DropLOBColumn(const char* column, const char* partition, bool remove);
  int UnDropLOBColumn(const char* column, const char* partition);
  CLOBColumn* GetLOBColumn(int index) const { return itemAt(index); }
  CLOBColumn* GetLOBColumn(const char* column, const char* partition) const;
  using CSQLInfoCollection::IsAdd;
  using CSQLInfoCollection::IsDrop;
  bool IsAdd(const char* column, const char* partition) const;
  bool IsDrop(const char* column, const char* partition) const;

  // `clause` is the "C_ALTER_TAB_PART" sub-clause of an ALTER TABLE statement whose head is filled,
  // `statement` the whole statement; see the order above.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;

 protected:
  void init() override;

 private:
  using Run = detail::PartitionRun;
  // The position of the item of `column` in `partition`, or -1.
  int find(const char* column, const char* partition) const;
  // The MOVE, and the MODIFY, of one partition or subpartition with the LOB columns it concerns.
  int moveStatement(Run& run, const std::string& partition, bool subpartition);
  int modifyStatement(Run& run, const std::string& partition, bool subpartition);
  // Writes the statement of the operation `op` below "C_ALTER_TAB_PART", appends it and clears the
  // operation's node; a failure met while filling it is returned instead.
  static int emit(Run& run, const char* op);
};

}  // namespace qarvelt

#endif  // QARVELT_INFO_LOB_PARTITIONS_H
