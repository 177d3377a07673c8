#include "qarvelt/statements/alter_table_partition.h"

#include "../clauses/lob_lists.h"
#include "qarvelt/clauses/partition.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/clauses/table_props.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// Each operation and variant is a clause node of its own name holding its tree.
Node modifyDefaultAttributes();
Node setSubpartitionTemplate();
Node alterInterval(int v);
Node alterAutomatic(int v);
Node modifyPartition(int v);
Node modifyRangePartition(int v);
Node modifyHashPartition(int v);
Node modifyListPartition(int v);
Node modifySubpartition();
Node modifyHashSubpartition();
Node modifyListSubpartition();
Node movePartition(int v);
Node moveSubpartition();
Node addPartition();
Node addRangePartition();
Node addHashPartition();
Node addListPartition();
Node coalescePartition();
Node dropPartition();
Node dropSubpartition();
Node renamePartition();
Node truncatePartition();
Node splitPartition();
Node splitSubpartition();
Node mergePartitions();
Node mergeSubpartitions();
Node exchangePartition();

// ---- blocks that several operations share -------------------------------------------------------

// UPDATE GLOBAL INDEXES: the host sets UPDATE (or INVALIDATE). The keywords are the suffix, so that
// a parallel clause hung below the leaf follows them: UPDATE GLOBAL INDEXES PARALLEL 2.
Node updateIndexes() {
  return leaf("UPDATE", "", " GLOBAL INDEXES");
}

Node parallel() {
  return clause<CSQLClauseParallel>(kLatestRelease);
}

// REBUILD UNUSABLE LOCAL INDEXES: "REBUILD" holds REBUILD, "UNUSABLE" holds UNUSABLE.
Node rebuildUnusable() {
  return And(leaf("REBUILD"), leaf("UNUSABLE", "", "", " LOCAL INDEXES"));
}

// VALUES ('A','B') of a list partition or subpartition.
Node valueList() {
  return list("LIST", ",", "VALUES (", ")");
}

// "PARTITION" and "SUBPARTITION" as alternatives after a keyword: RENAME, TRUNCATE, EXCHANGE.
Node partitionOrSubpartition(const char* keyword) {
  return Or({keyword, ""}, leaf("PARTITION", "PARTITION "), leaf("SUBPARTITION", "SUBPARTITION "));
}

// INTO (first , second): the comma belongs to the second, so an empty second leaves no comma.
template <class NewPart>
Node splitInto() {
  return And({"INTO (", ")"}, node(new NewPart("SPEC1")), And({",", ""}, node(new NewPart("SPEC2"))));
}

// MERGE PARTITIONS a b INTO the new one (SUBPARTITIONS for subpartitions): the host writes the
// separator between the two names into a value.
template <class NewPart>
Node mergeInto(const char* name, const char* keywords) {
  return named(name,
               leaf("PARTITION1", keywords),
               leaf("PARTITION2"),
               And({"INTO ", ""}, clause<NewPart>(kLatestRelease)),
               updateIndexes(),
               parallel());
}

// ---- the operations, in the order of the alternatives -------------------------------------------

Node modifyDefaultAttributes() {
  return named("C_MODIFY_TABLE_DEF_ATTR",
               And({"MODIFY DEFAULT ATTRIBUTES ", ""},
                   leaf("PARTITION", "FOR PARTITION "),
                   clause<CSQLClauseSegmentAttribute>(kLatestRelease),
                   leaf("COMPRESS"),
                   leaf("PCTTHRESHOLD", "PCTTHRESHOLD "),
                   clause<CSQLClauseKeyCompression>(kLatestRelease),
                   clause<CSQLClauseAlterOverflow>(kLatestRelease),
                   lobItems("LIST", " ", LOBPlace::Attributes)));
}

Node setSubpartitionTemplate() {
  return named("C_SET_SUBPART_TEMPLATE",
               And({"SET SUBPARTITION TEMPLATE ", ""}, Or(list("LIST", ",", "(", ")"))));
}

// Oracle 11g: SET INTERVAL (expr), or SET INTERVAL () which makes the table range-partitioned again
// ("INTERVAL", whose value goes between the brackets), and SET STORE IN ( ... ) ("LIST").
Node alterInterval(int v) {
  return when(v >= 7,
              named("C_ALTER_INTERVAL_PART",
                    Or(leaf("INTERVAL", "SET INTERVAL (", ")"), list("LIST", ",", "SET STORE IN (", ")"))));
}

// Oracle 12c Release 2: SET PARTITIONING AUTOMATIC or MANUAL of a list-partitioned table.
Node alterAutomatic(int v) {
  return when(v >= 9, named("C_ALTER_AUTOMATIC_PART", leaf("PARTITIONING", "SET PARTITIONING ")));
}

Node modifyPartition(int v) {
  return named("C_MOD_TAB_PART",
               leaf("PARTITION", "MODIFY PARTITION ")
                   .with(Or(modifyRangePartition(v), modifyHashPartition(v), modifyListPartition(v))));
}

// INDEXING ON or OFF of a partition, from Oracle 12c: "INDEXING" holds ON or OFF.
Node indexing(int v) {
  return when(v >= 8, leaf("INDEXING", "INDEXING "));
}

// COALESCE SUBPARTITION, then the leaf's children UPDATE and C_PARALLEL.
Node coalesceSubpartition() {
  return leaf("COALESCE", "", " SUBPARTITION").with(updateIndexes(), parallel());
}

// A range subpartition is added as a list one is, ADD and its description (with VALUES LESS THAN),
// through "C_ADD_LIST_SUBPART".
Node modifyRangePartition(int v) {
  return named("C_MOD_RANGE_PART",
               Or(clause<CSQLClausePartitionAttribute>(kLatestRelease),
                  clause<CSQLClauseAddHashSubPartition>(kLatestRelease),
                  clause<CSQLClauseAddListSubPartition>(kLatestRelease),
                  coalesceSubpartition(),
                  clause<CSQLClauseAlterMappingTable>(kLatestRelease),
                  rebuildUnusable(),
                  indexing(v)));
}

Node modifyHashPartition(int v) {
  return named("C_MOD_HASH_PART",
               Or(clause<CSQLClausePartitionAttribute>(kLatestRelease),
                  clause<CSQLClauseAlterMappingTable>(kLatestRelease),
                  rebuildUnusable(),
                  indexing(v)));
}

// ADD VALUES ('C'): "ADD" holds ADD. From Oracle 11g a list partition has subpartitions too: ADD
// SUBPARTITION and COALESCE SUBPARTITION as in a range partition.
Node modifyListPartition(int v) {
  return named("C_MOD_LIST_PART",
               Or(clause<CSQLClausePartitionAttribute>(kLatestRelease),
                  leaf("ADD").with(valueList()),
                  rebuildUnusable(),
                  indexing(v),
                  when(v >= 7, clause<CSQLClauseAddHashSubPartition>(kLatestRelease)),
                  when(v >= 7, clause<CSQLClauseAddListSubPartition>(kLatestRelease)),
                  when(v >= 7, coalesceSubpartition())));
}

Node modifySubpartition() {
  return named("C_MOD_TAB_SUBPART",
               leaf("SUBPARTITION", "MODIFY SUBPARTITION ")
                   .with(Or(modifyHashSubpartition(), modifyListSubpartition())));
}

// The "LIST" holds the host's LOB and varray items, separated by blanks: LOB (C) (CACHE).
Node modifyHashSubpartition() {
  return named("C_MOD_HASH_SUBPART",
               Or(clause<CSQLClauseAllocateExtent>(kLatestRelease),
                  clause<CSQLClauseDeallocateUnused>(kLatestRelease),
                  lobItems("LIST", " ", LOBPlace::Attributes),
                  rebuildUnusable()));
}

// As a hash subpartition, and ADD VALUES ( ... ) last ("ADD;LIST", beside the item list "LIST").
Node modifyListSubpartition() {
  return named("C_MOD_LIST_SUBPART",
               Or(clause<CSQLClauseAllocateExtent>(kLatestRelease),
                  clause<CSQLClauseDeallocateUnused>(kLatestRelease),
                  lobItems("LIST", " ", LOBPlace::Attributes),
                  rebuildUnusable(),
                  leaf("ADD").with(valueList())));
}

// Oracle 12c moves a partition ONLINE.
Node movePartition(int v) {
  return named("C_MOVE_TAB_PART",
               leaf("PARTITION", "MOVE PARTITION ")
                   .with(leaf("MAPPING", "", "", " TABLE"),
                         clause<CSQLClauseTabPartitionDesc>(kLatestRelease),
                         updateIndexes(),
                         parallel(),
                         when(v >= 8, leaf("ONLINE"))));
}

Node moveSubpartition() {
  return named(
      "C_MOVE_TAB_SUBPART",
      And({"MOVE ", ""}, clause<CSQLClauseSubPartitionSpec>(kLatestRelease), updateIndexes(), parallel()));
}

Node addPartition() {
  return named("C_ADD_TAB_PART", Or(addRangePartition(), addHashPartition(), addListPartition()));
}

Node addRangePartition() {
  return named("C_ADD_RANGE_PART",
               And({"ADD PARTITION ", ""},
                   leaf("PARTITION"),
                   clause<CSQLClauseRangeValues>(kLatestRelease),
                   clause<CSQLClauseTabPartitionDesc>(kLatestRelease)));
}

Node addHashPartition() {
  return named("C_ADD_HASH_PART",
               And({"ADD PARTITION ", ""},
                   leaf("PARTITION"),
                   clause<CSQLClausePartitionStorage>(kLatestRelease),
                   updateIndexes(),
                   parallel()));
}

Node addListPartition() {
  return named("C_ADD_LIST_PART",
               And({"ADD PARTITION ", ""},
                   leaf("PARTITION"),
                   clause<CSQLClauseListValues>(kLatestRelease),
                   clause<CSQLClauseTabPartitionDesc>(kLatestRelease)));
}

Node coalescePartition() {
  return named("C_COALESCE_TAB_PART", leaf("COALESCE", "", "", " PARTITION"), updateIndexes(), parallel());
}

Node dropPartition() {
  return named("C_DROP_TAB_PART",
               leaf("PARTITION", "DROP PARTITION ").with(updateIndexes().with(parallel())));
}

Node dropSubpartition() {
  return named("C_DROP_TAB_SUBPART",
               leaf("SUBPARTITION", "DROP SUBPARTITION ").with(updateIndexes().with(parallel())));
}

Node renamePartition() {
  return named("C_RENAME_PART_SUBPART", partitionOrSubpartition("RENAME"), leaf("NEWNAME", "TO "));
}

// "DROP" holds DROP or REUSE.
Node truncatePartition() {
  return named("C_TRUNCATE_PART_SUBPART",
               partitionOrSubpartition("TRUNCATE"),
               leaf("DROP", "", "", " STORAGE"),
               updateIndexes().with(parallel()));
}

// A range partition splits AT its bound, a list partition into VALUES: "AT" or "VALUES" holds the
// keyword, "LIST" the bound or the values.
Node splitPartition() {
  return named("C_SPLIT_TABLE_PART",
               leaf("PARTITION", "SPLIT PARTITION ")
                   .with(Or(leaf("AT"), leaf("VALUES")),
                         list("LIST", ",", "(", ")"),
                         splitInto<CSQLClausePartitionSpec>(),
                         updateIndexes(),
                         parallel()));
}

Node splitSubpartition() {
  return named("C_SPLIT_TABLE_SUBPART",
               leaf("SUBPARTITION", "SPLIT SUBPARTITION ")
                   .with(valueList(), splitInto<CSQLClauseSubPartitionSpec>(), updateIndexes(), parallel()));
}

Node mergePartitions() {
  return mergeInto<CSQLClausePartitionSpec>("C_MERGE_TABLE_PART", "MERGE PARTITIONS ");
}

Node mergeSubpartitions() {
  return mergeInto<CSQLClauseSubPartitionSpec>("C_MERGE_TABLE_SUBPART", "MERGE SUBPARTITIONS ");
}

// "TABLE" holds everything up to VALIDATION: WITH TABLE T2 INCLUDING INDEXES WITHOUT.
Node exchangePartition() {
  return named("C_EXCHANGE_PART_SUBPART",
               partitionOrSubpartition("EXCHANGE "),
               leaf("TABLE", "", "", " VALIDATION"),
               clause<CSQLClauseExceptions>(kLatestRelease),
               updateIndexes().with(parallel()));
}

}  // namespace

CSQLClauseAlterTablePartition::CSQLClauseAlterTablePartition(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_ALTER_TAB_PART", bInit);
}

void CSQLClauseAlterTablePartition::init() {
  const int v = GetOraVersion();
  attach(this,
         Or(modifyDefaultAttributes(),
            setSubpartitionTemplate(),
            modifyPartition(v),
            modifySubpartition(),
            movePartition(v),
            moveSubpartition(),
            addPartition(),
            coalescePartition(),
            dropPartition(),
            dropSubpartition(),
            renamePartition(),
            truncatePartition(),
            splitPartition(),
            splitSubpartition(),
            mergePartitions(),
            mergeSubpartitions(),
            exchangePartition(),
            alterInterval(v),
            alterAutomatic(v)));
}

}  // namespace qarvelt
