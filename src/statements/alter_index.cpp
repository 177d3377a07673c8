#include "qarvelt/statements/alter_index.h"

#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// Physical attributes follow the release code of the clause that holds them.
Node physical(const CSQLClause* holder) {
  return clause<CSQLClausePhysicalAttr>(holder->GetOraVersion());
}

Node parallel() {
  return clause<CSQLClauseParallel>(kLatestRelease);
}

Node allocateExtent() {
  return clause<CSQLClauseAllocateExtent>(kLatestRelease);
}

Node deallocateUnused() {
  return clause<CSQLClauseDeallocateUnused>(kLatestRelease);
}

Node tablespace() {
  return leaf("TABLESPACE", "TABLESPACE ");
}

// The parameter string of a domain index, quoted by the leaf: PARAMETERS ('...').
Node parameters() {
  return leaf("PARAMETERS", "PARAMETERS ('", "", "')");
}

Node updateBlockReferences() {
  return leaf("UPDATE", "", "", " BLOCK REFERENCES");
}

// Physical attributes of the clauses below the statement, which are built for the latest release.
Node latestPhysical() {
  return clause<CSQLClausePhysicalAttr>(kLatestRelease);
}

// REBUILD [PARTITION p | SUBPARTITION s | REVERSE | NOREVERSE] with the attributes of the rebuilt
// segment. REBUILD is the container's prefix, so it is written only together with something below.
Node rebuild() {
  return named(
      "C_REBUILD",
      And({"REBUILD", ""},
          Or(leaf("PARTITION", "PARTITION "), leaf("SUBPARTITION", "SUBPARTITION "), leaf("REVERSE")),
          And(parallel(),
              tablespace(),
              parameters(),
              leaf("ONLINE"),
              leaf("COMPUTE", "", "", " STATISTICS"),
              latestPhysical(),
              clause<CSQLClauseKeyCompression>(kLatestRelease),
              leaf("LOGGING"))));
}

// One new partition of a split ("C_IDX_PART_DESC", here named DESC1 or DESC2): PARTITION name and
// its segment attributes or key compression.
Node partitionDescription(const char* name) {
  return named(name,
               leaf("PARTITION", "PARTITION ")
                   .with(And(clause<CSQLClauseSegmentAttribute>(kLatestRelease),
                             clause<CSQLClauseKeyCompression>(kLatestRelease))));
}

// The partition operations, one per pass.
Node partitionOperations() {
  return named(
      "C_ALT_IDX_PART",
      Or(
          // MODIFY DEFAULT ATTRIBUTES [FOR PARTITION p] of a partitioned index or of a composite partition.
          named("C_MOD_IDX_DEFATTRS",
                And({"MODIFY DEFAULT ATTRIBUTES", ""},
                    leaf("PARTITION", "FOR PARTITION "),
                    And(latestPhysical(), tablespace(), leaf("LOGGING")))),
          // MODIFY PARTITION p and one change of it; the storage changes may be combined.
          named("C_MOD_IDX_PART",
                leaf("PARTITION", "MODIFY PARTITION ")
                    .with(Or(And(latestPhysical(), leaf("LOGGING"), deallocateUnused(), allocateExtent()),
                             parameters(),
                             leaf("COALESCE"),
                             updateBlockReferences(),
                             leaf("UNUSABLE")))),
          // RENAME PARTITION p TO q, or RENAME SUBPARTITION s TO t.
          named("C_RENAME_IDX_PART",
                Or({"RENAME", ""}, leaf("PARTITION", "PARTITION "), leaf("SUBPARTITION", "SUBPARTITION ")),
                leaf("TO", "TO ")),
          named("C_DROP_IDX_PART", leaf("PARTITION", "DROP PARTITION ")),
          // SPLIT PARTITION p AT (values) INTO (description, description). The comma before the second
          // description comes with it, so a split given only DESC1 closes its bracket after that one.
          named("C_SPLIT_IDX_PART",
                leaf("PARTITION", "SPLIT PARTITION "),
                list("LIST", ",", "AT (", ")"),
                And({"INTO (", ")"},
                    partitionDescription("DESC1"),
                    And({",", ""}, partitionDescription("DESC2"))),
                parallel()),
          named("C_MOD_IDX_SUBPART",
                leaf("SUBPARTITION", "MODIFY SUBPARTITION ")
                    .with(Or(leaf("UNUSABLE"), allocateExtent(), deallocateUnused())))));
}

}  // namespace

CSQLAlterIndex::CSQLAlterIndex(bool bInit, int nOraVersion) : AlterStatement(nOraVersion) {
  setup("C_ALTER_INDEX", bInit);
}

// Oracle allows one alteration per statement; only the physical changes combine. Oracle 11g made
// indexes VISIBLE or INVISIBLE.
void CSQLAlterIndex::init() {
  const int v = GetOraVersion();
  attach(this,
         leaf("SCHEMA", "", "", "."),
         leaf("INDEX"),
         Or(And(Or(deallocateUnused(), allocateExtent()), parallel(), physical(this), leaf("LOGGING")),
            rebuild(),
            parameters(),
            leaf("ENABLE"),
            leaf("UNUSABLE"),
            when(v >= 7, leaf("VISIBILITY")),
            leaf("RENAME").with(leaf("PARTITION", "PARTITION "), leaf("TO", "TO ")),
            leaf("COALESCE"),
            leaf("MONITORING", "", "", " USAGE"),
            updateBlockReferences(),
            partitionOperations()));
}

}  // namespace qarvelt
