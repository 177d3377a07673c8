// ALTER INDEX ("C_ALTER_INDEX"): the index's "SCHEMA" and "INDEX" and one alteration.
//
//   ALTER INDEX S.I REBUILD TABLESPACE T ONLINE
//   ALTER INDEX S.I DEALLOCATE UNUSED KEEP 1M PCTFREE 10
//   ALTER INDEX S.I MODIFY PARTITION P UNUSABLE
//   ALTER INDEX S.I SPLIT PARTITION P AT (100) INTO (PARTITION A , PARTITION B)
//
// A tree with nothing set beyond the index's names writes nothing at all.
#ifndef QARVELT_STATEMENTS_ALTER_INDEX_H
#define QARVELT_STATEMENTS_ALTER_INDEX_H

#include "qarvelt/statements/statement.h"

namespace qarvelt {

// The alteration is one of (the first that has text, per pass):
//   physical changes written together: one of "C_DEALLOCATE_UNUSED" and "C_ALLOCATE_EXTENT", then
//     "C_PARALLEL", "C_PHYSICAL_ATTRIBUTES", "LOGGING";
//   "C_REBUILD": REBUILD with one of "PARTITION", "SUBPARTITION", "REVERSE", then "C_PARALLEL",
//     "TABLESPACE", "PARAMETERS", "ONLINE", "COMPUTE" (written COMPUTE STATISTICS),
//     "C_PHYSICAL_ATTRIBUTES", "C_KEY_COMPRESSION", "LOGGING";
//   "PARAMETERS" (written PARAMETERS ('...')), "ENABLE", "UNUSABLE", "COALESCE";
//   "RENAME" (the keyword RENAME) with "RENAME;PARTITION" and "RENAME;TO";
//   "MONITORING" (MONITORING or NOMONITORING, written with USAGE);
//   "UPDATE" (written UPDATE BLOCK REFERENCES);
//   "C_ALT_IDX_PART", one partition operation:
//     "C_MOD_IDX_DEFATTRS"  MODIFY DEFAULT ATTRIBUTES "PARTITION" (FOR PARTITION) with
//                           "C_PHYSICAL_ATTRIBUTES", "TABLESPACE", "LOGGING";
//     "C_MOD_IDX_PART"      "PARTITION" (MODIFY PARTITION) with one of: "C_PHYSICAL_ATTRIBUTES",
//                           "LOGGING", "C_DEALLOCATE_UNUSED", "C_ALLOCATE_EXTENT" written together;
//                           "PARAMETERS"; "COALESCE"; "UPDATE"; "UNUSABLE" (all below "PARTITION");
//     "C_RENAME_IDX_PART"   RENAME "PARTITION" or "SUBPARTITION", then "TO";
//     "C_DROP_IDX_PART"     "PARTITION" (DROP PARTITION);
//     "C_SPLIT_IDX_PART"    "PARTITION" (SPLIT PARTITION), the host's values "LIST" (AT (...)),
//                           INTO the new partitions "DESC1" and "DESC2" (each a C_IDX_PART_DESC:
//                           "PARTITION" with "PARTITION;C_SEG_ATTRIBUTE" and
//                           "PARTITION;C_KEY_COMPRESSION"), "C_PARALLEL";
//     "C_MOD_IDX_SUBPART"   "SUBPARTITION" (MODIFY SUBPARTITION) with one of "UNUSABLE",
//                           "C_ALLOCATE_EXTENT", "C_DEALLOCATE_UNUSED".
// Physical attributes are built with the release code of the clause that holds them, every other
// nested clause for the latest release.
class CSQLAlterIndex : public AlterStatement<CSQLAlterIndex> {
 public:
  static constexpr const char* kVerb = "ALTER INDEX";
  static constexpr const char* kNameLeaf = "INDEX";

  explicit CSQLAlterIndex(bool bInit = true, int nOraVersion = 7);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_STATEMENTS_ALTER_INDEX_H
