// Table partition information: the partitions of a table (CSQLInfoPartitions, items
// CSQLInfoPartitions::CPartition) and their subpartitions (CSQLInfoPartitions::CSubPartition).
// BuildSQL turns what the caller changed into partition-maintenance statements, each rendered from
// the "C_ALTER_TAB_PART" clause of a CSQLAlterTable and appended to the output array.
//
//   CSQLInfoPartitions parts;
//   parts.SetSQLValue("TYPE", "RANGE", "RANGE");
//   parts.AddPartition("P1", true);                     // in the database
//   parts.GetPartition("P1")->SetSQLValue("PCTFREE", "20", "10");
//   parts.AddPartition("P9", false);                    // added by the caller
//   parts.GetPartition("P9")->VALUES().AddValue("900", "900", "");
//   CSQLUtil::GenAltPartition(&stmt, &out, &table, &parts);
//     -> ALTER TABLE S.T MODIFY PARTITION P1 PCTFREE 20
//        ALTER TABLE S.T ADD PARTITION P9 VALUES LESS THAN (900)
//
// Partitioning kinds are the texts RANGE, HASH and LIST (compared ignoring case; an empty or other
// text is taken as RANGE). A partition's kind comes from AddPartition, or from the collection's
// "TYPE" when the add gives none; a subpartition's kind from AddSubPartition, or from its
// partition's "SUBTYPE".
//
// Collection values:
//   "TYPE"     the table's partitioning kind, the default of AddPartition
//   "SUBTYPE"  the subpartitioning kind of a composite table (RANGE, HASH or LIST), "" for none; copied into
//              each partition added afterwards
//   "UPDATE"   an option, read as it stands (changed or not): UPDATE or INVALIDATE, written before
//              GLOBAL INDEXES on every statement that takes it (drop, coalesce, truncate, move, add
//              of a hash partition or subpartition)
// Partition values:
//   "NAME"      the partition's name, loaded with the item's name; a changed name is a rename
//   "TYPE"      its kind; "SUBTYPE" the kind of its subpartitions, "" when it has none
//   "VALUES"    a CSQLValues list (VALUES()): the bound of an added partition, one entry per bound
//               value (10, MAXVALUE, TO_DATE(...), 'A'), each written as its current text or, when
//               that is empty, as its type. The bound of an existing partition is not scripted.
//   "VALUES;ADD" a CSQLValues list (ADD_VALUES()): values an existing LIST partition takes on
//   "TABLESPACE"
//   "PCTFREE", "PCTUSED", "INITRANS", "MAXTRANS"
//   "INITIAL", "NEXT", "MINEXTENTS", "MAXEXTENTS", "PCTINCREASE", "FREELISTS", "FREELIST" (freelist
//   groups), "BUFFER_POOL"
//   "LOGGING"   LOGGING or NOLOGGING
//   "COMPRESS"  COMPRESS or NOCOMPRESS (table compression)
//   "TRUNCATE"  any non-empty changed text requests TRUNCATE PARTITION
//   "TRUNCATE;STORAGE" DROP or REUSE, read as it stands, written before STORAGE in the truncation
// Subpartition values: "NAME", "TYPE", "VALUES", "VALUES;ADD", "TABLESPACE", "TRUNCATE",
// "TRUNCATE;STORAGE", as on a partition.
//
// Which change goes where. Oracle changes physical attributes, NEXT, MAXEXTENTS, PCTINCREASE,
// FREELISTS, BUFFER_POOL, LOGGING and COMPRESS of a partition in place (MODIFY PARTITION); a new
// TABLESPACE, INITIAL, MINEXTENTS or FREELIST needs a new segment (MOVE PARTITION p TABLESPACE t
// STORAGE (...)). A hash partition moves with its tablespace alone. A partition with subpartitions
// has no segment of its own: its TABLESPACE, INITIAL, MINEXTENTS and FREELIST are the defaults of
// its subpartitions and change with MODIFY DEFAULT ATTRIBUTES FOR PARTITION p; its subpartitions
// move one by one (MOVE SUBPARTITION s TABLESPACE t).
//
// BuildSQL with the selector "" writes, in this order (partitions and, within each, subpartitions
// in the order added):
//   1. drops: DROP SUBPARTITION s of the kept partitions, then DROP PARTITION p, each with the
//      "UPDATE" option. Oracle removes hash partitions only by coalescing, which takes out the most
//      recently added one: a dropped HASH partition is written COALESCE PARTITION, a dropped HASH
//      subpartition of a range or list partition MODIFY PARTITION p COALESCE SUBPARTITION (without the
//      option, which the tree would place before SUBPARTITION), so mark for drop the last ones;
//   2. renames: RENAME PARTITION p TO q, after each partition RENAME SUBPARTITION s TO t of its
//      subpartitions; every later statement names partitions and subpartitions by their new names;
//   3. TRUNCATE PARTITION p [DROP STORAGE] [UPDATE GLOBAL INDEXES], after each partition that is not
//      truncated itself TRUNCATE SUBPARTITION s of its subpartitions;
//   4. moves: MOVE PARTITION p [TABLESPACE t] [STORAGE (INITIAL ...)], or MODIFY DEFAULT ATTRIBUTES
//      FOR PARTITION p ... of a partition with subpartitions, then MOVE SUBPARTITION s TABLESPACE t
//      of its subpartitions;
//   5. attribute changes: MODIFY PARTITION p [physical attributes] [STORAGE (...)] [LOGGING]
//      [COMPRESS], then MODIFY PARTITION p ADD VALUES (...) of a list partition, then MODIFY
//      SUBPARTITION s ADD VALUES (...) of its list subpartitions;
//   6. adds: ADD PARTITION p VALUES LESS THAN (...) (range), ADD PARTITION p (hash, with its
//      tablespace) or ADD PARTITION p VALUES (...) (list), with the current texts of its values and
//      its subpartitions (SUBPARTITION s [VALUES (...)] [TABLESPACE t], those not dropped) in
//      brackets; for a kept range or list partition MODIFY PARTITION p ADD SUBPARTITION s ... of each added
//      subpartition.
// Drops come first so that renames and adds may take the names they free; adds come last so that an
// added partition may take a name a rename freed. A range partition can only be added above the
// highest bound of the table (and not at all once a partition is bounded by MAXVALUE), a list
// partition not once a DEFAULT partition exists: a partition that belongs in between is made by
// splitting one, which this record does not script. Renames are written in item order, so a swap of
// two names or a chain that takes a name still in use fails.
// The selectors "DROP", "RENAME", "TRUNCATE", "MOVE", "MOD" and "ADD" run one step; any other
// selector does nothing. BuildSQL returns 4 when it has no clause to fill, and otherwise passes on
// the first failure of the tree's operations (the statements before it stay in the output).
//
// Not scripted: a dropped partition's subpartition marks (they go with it), items both added and
// dropped, the bound of an existing partition (a range bound changes by SPLIT or MERGE), values a
// list partition or subpartition gives up (the tree has no DROP VALUES), the segment attributes of
// an added hash partition other than its tablespace, INITIAL, MINEXTENTS and FREELIST of a hash
// partition, attributes of a subpartition other than its tablespace, and subpartitions added to or
// dropped from a hash partition. Subpartitions of a list partition are added and coalesced as those of
// a range partition are (Oracle 11g), and an added RANGE subpartition is written with its bound,
// VALUES LESS THAN ( ... ).
#ifndef QARVELT_INFO_PARTITIONS_H
#define QARVELT_INFO_PARTITIONS_H

#include "qarvelt/info/base.h"

namespace qarvelt {

namespace detail {
struct PartitionRun;
}

// One subpartition (CSQLInfoPartitions::CSubPartition); its name is the subpartition's name as the
// record was loaded.
class CSQLInfoTableSubPartition : public CSQLInfoBase {
 public:
  // `type` is the subpartitioning kind, HASH or LIST.
  CSQLInfoTableSubPartition(const char* name, const char* type);

  // The list values of an added LIST subpartition, and those an existing one takes on.
  CSQLValues& VALUES();
  CSQLValues& ADD_VALUES();
  // The name as it is in the database, and as the caller wants it.

 protected:
  void init() override;
};

// One partition (CSQLInfoPartitions::CPartition), a collection of its subpartitions; its name is the
// partition's name as the record was loaded.
class CSQLInfoTablePartition : public CSQLInfoCollection<CSQLInfoTableSubPartition> {
 public:
  using CSubPartition = CSQLInfoTableSubPartition;

  // `type` is the partition's kind, `subType` the kind of its subpartitions ("" for none).
  CSQLInfoTablePartition(const char* name, const char* type, const char* subType);

  // 7 when the name is taken. A null or empty `type` takes the partition's "SUBTYPE".
  int AddSubPartition(const char* name, bool existing, const char* type = nullptr);
  // 4 for an unknown name; marks the subpartition dropped or removes it outright.
  int DropSubPartition(const char* name, bool remove);
  int UnDropSubPartition(const char* name);
  CSubPartition* GetSubPartition(int index) const { return itemAt(index); }
  CSubPartition* GetSubPartition(const char* name) const { return itemNamed(name); }

  // The bound of an added partition, and the values an existing LIST partition takes on.
  CSQLValues& VALUES();
  CSQLValues& ADD_VALUES();
  // Whether the partition is divided into subpartitions: it has a "SUBTYPE" or subpartitions.
  bool IsComposite();

 protected:
  void init() override;
};

class CSQLInfoPartitions : public CSQLInfoCollection<CSQLInfoTablePartition> {
 public:
  using CPartition = CSQLInfoTablePartition;
  using CSubPartition = CSQLInfoTableSubPartition;

  CSQLInfoPartitions();

  // 7 when the name is taken. A null or empty `type` takes the collection's "TYPE"; the partition
  // takes the collection's "SUBTYPE" as its own.
  int AddPartition(const char* name, bool existing, const char* type = nullptr);
  // 4 for an unknown name; marks the partition dropped or removes it outright.
  int DropPartition(const char* name, bool remove);
  int UnDropPartition(const char* name);
  CPartition* GetPartition(int index) const { return itemAt(index); }
  CPartition* GetPartition(const char* name) const { return itemNamed(name); }

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
  int dropStep(Run& run);
  int renameStep(Run& run);
  int truncateStep(Run& run);
  int moveStep(Run& run);
  int modifyStep(Run& run);
  int addStep(Run& run);
  // Writes the statement of the operation `op` below "C_ALTER_TAB_PART", appends it and clears the
  // operation's node; a failure met while filling it is returned instead.
  static int emit(Run& run, const char* op);
};

}  // namespace qarvelt

#endif  // QARVELT_INFO_PARTITIONS_H
