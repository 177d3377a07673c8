// Index information: an index (CSQLInfoIndex), its partitions (CSQLInfoIndex::CPartition) and their
// subpartitions (CSQLInfoIndex::CSubPartition). BuildSQL turns what the caller changed into ALTER
// INDEX statements, each rendered from a CSQLAlterIndex tree and appended to the output array.
//
// Index values:
//   "SCHEMA"        the owner
//   "INDEX"         the index name; a changed name is a rename (RENAME TO)
//   "TABLESPACE"    a change moves the index (REBUILD TABLESPACE)
//   "PCTFREE", "INITRANS", "MAXTRANS"
//                   physical attributes
//   "INITIAL", "NEXT", "MINEXTENTS", "MAXEXTENTS", "PCTINCREASE", "FREELISTS", "FREELIST",
//   "BUFFER_POOL"   storage parameters ("FREELIST" is the freelist-groups count)
//   "LOGGING"       LOGGING or NOLOGGING
//   "PARALLEL"      PARALLEL or NOPARALLEL; with "PARALLEL;VALUE", the degree
//   "UNUSABLE"      UNUSABLE marks the index unusable; taking the text back (to "") rebuilds it
//   "REBUILD"       any non-empty changed text requests a rebuild
//   "ONLINE"        an option, not a property: the text ONLINE, as it stands (changed or not), makes
//                   every rebuild of the run (index, partition, subpartition) an online rebuild
//   "COMPRESS"      key compression, COMPRESS or NOCOMPRESS; with "COMPRESS;VALUE", the prefix length
//   "REVERSE"       REVERSE or NOREVERSE (a reverse-key index)
//   "MONITORING"    MONITORING or NOMONITORING (usage monitoring)
//   "LOCAL"         the text LOCAL marks a local index, whose partitions follow the table's
//   "COMMENTS"      kept for the caller; Oracle has no index comments, so nothing is built from it
// Partition values: "NAME" (a changed name is a rename), "TABLESPACE", "PCTFREE", "INITRANS",
// "MAXTRANS", the storage parameters above, "LOGGING", "UNUSABLE", "REBUILD", as on the index.
// Subpartition values: "NAME", "TABLESPACE", "UNUSABLE", "REBUILD", as on the index.
//
// Which change goes where. Oracle changes INITRANS, MAXTRANS, NEXT, MAXEXTENTS, PCTINCREASE,
// FREELISTS, BUFFER_POOL, LOGGING and PARALLEL in place; a new TABLESPACE, PCTFREE, INITIAL,
// MINEXTENTS, key compression or REVERSE needs a new segment, so any of them (or a requested
// rebuild, or taking back UNUSABLE) rebuilds the index or partition, and the rebuild then carries
// every changed attribute in one statement. A partitioned index (one with partitions) is never
// rebuilt as a whole: its own segment attributes are the defaults of its partitions and are
// changed with MODIFY DEFAULT ATTRIBUTES; likewise a partition with subpartitions has no segment
// of its own and takes MODIFY DEFAULT ATTRIBUTES FOR PARTITION. "FREELIST" (freelist groups) is set
// only when a segment is created and is never scripted.
//
// BuildSQL with the selector "" writes, in this order (items in the order added):
//   1. DROP PARTITION p for each dropped partition, unless the index is LOCAL;
//   2. RENAME PARTITION p TO q, and after each partition RENAME SUBPARTITION s TO t for its
//      subpartitions; every later statement names partitions and subpartitions by their new names;
//   3. rebuilds: REBUILD [REVERSE] [PARALLEL ...] [TABLESPACE t] [ONLINE] [physical attributes]
//      [COMPRESS n] [LOGGING] of a non-partitioned index, then REBUILD PARTITION p ... of each
//      partition without subpartitions, after each partition REBUILD SUBPARTITION s [TABLESPACE t]
//      [ONLINE] of its subpartitions;
//   4. attribute changes: the index's in-place changes as one statement (PARALLEL, physical
//      attributes, STORAGE (...), LOGGING), or for a partitioned index PARALLEL alone and one MODIFY
//      DEFAULT ATTRIBUTES; then per partition MODIFY PARTITION p ... (in-place changes) or MODIFY
//      DEFAULT ATTRIBUTES FOR PARTITION p ... (a partition with subpartitions);
//   5. MODIFY PARTITION p UNUSABLE and MODIFY SUBPARTITION s UNUSABLE, in item order, then UNUSABLE
//      of the index itself;
//   6. MONITORING USAGE or NOMONITORING USAGE;
//   7. RENAME TO j, last, so that every statement before it names the index as it exists.
// Every statement begins ALTER INDEX schema.index with the index's initial name. The selector
// "INDEX" fills only the statement's head; any other selector does nothing.
//
// Not scripted: added partitions and subpartitions (a partition of a local index comes with the
// table's, and a global index gains partitions by SPLIT PARTITION, whose bounds this record does not
// hold), dropped subpartitions, a requested rebuild, REVERSE, key compression or taken-back UNUSABLE
// of a partitioned index as a whole or of a partition with subpartitions (rebuild their partitions
// or subpartitions instead), and a REBUILD of a non-partitioned index with nothing to write after
// the keyword and no known tablespace to restate.
#ifndef QARVELT_INFO_INDEX_H
#define QARVELT_INFO_INDEX_H

#include "qarvelt/info/base.h"

namespace qarvelt {

// One subpartition of an index partition; its name is the subpartition's name as loaded.
class CSQLInfoIndexSubPartition : public CSQLInfoBase {
 public:
  explicit CSQLInfoIndexSubPartition(const char* name);

  // Writes the subpartition's part of one step of the index's run: "RENAME", "REBUILD" (with `extra`
  // the ONLINE option text) or "UNUSABLE". `clause` is the ALTER INDEX tree, `statement` the tree
  // that is rendered into `out`. Returns 0.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;

 protected:
  void init() override;
};

// One index partition and its subpartitions; its name is the partition's name as loaded.
class CSQLInfoIndexPartition : public CSQLInfoCollection<CSQLInfoIndexSubPartition> {
 public:
  using CSubPartition = CSQLInfoIndexSubPartition;

  explicit CSQLInfoIndexPartition(const char* name);

  int AddSubPartition(const char* name, bool existing) { return addItem(name, existing); }
  int DropSubPartition(const char* name, bool remove) { return dropItem(name, remove); }
  int UnDropSubPartition(const char* name) { return undropItem(name); }
  CSubPartition* GetSubPartition(int index) const { return itemAt(index); }
  CSubPartition* GetSubPartition(const char* name) const { return itemNamed(name); }

  // Writes the partition's part of one step of the index's run ("RENAME", "REBUILD" with `extra`
  // the ONLINE option text, "ATTR", "UNUSABLE"), followed by that step of its kept subpartitions.
  // Returns 0.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;

 protected:
  void init() override;
};

class CSQLInfoIndex : public CSQLInfoCollection<CSQLInfoIndexPartition> {
 public:
  using CPartition = CSQLInfoIndexPartition;
  using CSubPartition = CSQLInfoIndexSubPartition;

  CSQLInfoIndex();

  int AddPartition(const char* name, bool existing) { return addItem(name, existing); }
  int DropPartition(const char* name, bool remove) { return dropItem(name, remove); }
  int UnDropPartition(const char* name) { return undropItem(name); }
  CPartition* GetPartition(int index) const { return itemAt(index); }
  CPartition* GetPartition(const char* name) const { return itemNamed(name); }

  // The run described above. `clause` is the ALTER INDEX tree that is filled, `statement` the tree
  // that is rendered (for GenAltIndex both are the whole CSQLAlterIndex). Afterwards only the head
  // is left set in the tree. Returns 0.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;

 protected:
  void init() override;

 private:
  void buildRebuild(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out);
  void buildAttributes(CSQLClause* clause, CSQLClause* statement, std::vector<std::string>* out);
};

}  // namespace qarvelt

#endif  // QARVELT_INFO_INDEX_H
