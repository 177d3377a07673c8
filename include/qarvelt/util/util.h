// Shared static helpers: the column data types offered for a release code, questions about a data
// type name, and the validators that attribute leaves call before they accept a value.
#ifndef QARVELT_UTIL_UTIL_H
#define QARVELT_UTIL_UTIL_H

#include <string>
#include <vector>

namespace qarvelt {

class CSQLAlterIndex;
class CSQLAlterTable;
class CSQLInfoColumns;
class CSQLInfoConstraints;
class CSQLInfoIndex;
class CSQLInfoLOBPartitions;
class CSQLInfoPartitions;
class CSQLInfoTable;

class CSQLUtil {
 public:
  // The data types of Oracle columns for a release code, in catalogue order (not sorted). There is one
  // list per release code, built once on first use (safely, from any thread) and never changed after:
  // a returned reference stays valid and the same for the life of the program. Treat it as read-only.
  // A code below 0 has no types; a code above the latest known has the latest code's.
  static std::vector<std::string>& GetDataTypes(int nOraVersion);

  // 1 for CLOB, BLOB, NCLOB and BFILE exactly as written (no upper-casing), else 0.
  static int IsLOBType(const char* type);
  // 1 = a length is required, 0 = no length is written, 2 = a length is allowed (NUMBER, FLOAT,
  // UROWID, unknown names). Names are upper-cased first; TIMESTAMP... and INTERVAL... take no length.
  static int IsNeedLength(const char* type);
  // 1 for NUMBER, NUMERIC, DECIMAL, TIMESTAMP... and INTERVAL DAY... (the fractional-seconds part).
  static int IsNeedScale(const char* type);
  // 1 for NUMBER and INTERVAL....
  static int IsNeedPrecision(const char* type);

  // 0 for a non-empty string of decimal digits, else 3 (no sign, blank, point or size suffix).
  static int IsValidInteger(const char* value);

  // The validators that trees name for their leaves. Today every one of them accepts every value
  // (returns 0); the names let a stricter check come later without touching the trees. IsValid is
  // also the validator a leaf installs when it is given none.
  static int IsValid(const char* value);
  static int IsValidAddDrop(const char* value);
  static int IsValidAlways(const char* value);
  static int IsValidBufferPool(const char* value);
  static int IsValidCache(const char* value);
  static int IsValidCompress(const char* value);
  static int IsValidEnable(const char* value);
  static int IsValidLogging(const char* value);
  static int IsValidMaxExtents(const char* value);
  static int IsValidMonitoring(const char* value);
  static int IsValidOptimal(const char* value);
  static int IsValidParallel(const char* value);
  static int IsValidRecordPerBlock(const char* value);
  static int IsValidSize(const char* value);

  // Change scripting: each entry point fills `stmt` from the records and appends to `out` the
  // statements that the records render themselves (renames, drops, state changes, ...); the
  // table-level statement stays in `stmt` for the caller to write with GetModifiedSQL. They return 0,
  // 5 when a record they need is null, or the first non-zero result of a record's BuildSQL.
  //
  //   GenAltTable          the table's properties, then its columns (either record may be null)
  //   GenAltTableProperty  the table's properties
  //   GenAltColumn         added, modified, renamed, dropped and unused columns
  //   GenAltConstraint     added, dropped, state-changed and renamed constraints
  //   GenAltPartition      table partitions and subpartitions
  //   GenAltLOBPartition   LOB storage of partitions
  //   GenAltIndex          an index and its partitions, into ALTER INDEX
  static int GenAltTable(CSQLAlterTable* stmt,
                         std::vector<std::string>* out,
                         CSQLInfoTable* table,
                         CSQLInfoColumns* columns);
  static int GenAltTableProperty(CSQLAlterTable* stmt, std::vector<std::string>* out, CSQLInfoTable* table);
  static int GenAltColumn(CSQLAlterTable* stmt,
                          std::vector<std::string>* out,
                          CSQLInfoTable* table,
                          CSQLInfoColumns* columns);
  static int GenAltConstraint(CSQLAlterTable* stmt,
                              std::vector<std::string>* out,
                              CSQLInfoTable* table,
                              CSQLInfoConstraints* constraints);
  static int GenAltPartition(CSQLAlterTable* stmt,
                             std::vector<std::string>* out,
                             CSQLInfoTable* table,
                             CSQLInfoPartitions* partitions);
  static int GenAltLOBPartition(CSQLAlterTable* stmt,
                                std::vector<std::string>* out,
                                CSQLInfoTable* table,
                                CSQLInfoLOBPartitions* lobs);
  static int GenAltIndex(CSQLAlterIndex* stmt, std::vector<std::string>* out, CSQLInfoIndex* index);

  // Three blanks: an indentation unit for hosts.
  static std::string STR_SPACES;
};

}  // namespace qarvelt

#endif  // QARVELT_UTIL_UTIL_H
