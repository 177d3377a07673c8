#include "qarvelt/statements/create_tablespace.h"

#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// The release codes of the Oracle releases that brought tablespace syntax.
constexpr int kOracle80 = 1;
constexpr int kOracle8i = 2;
constexpr int kOracle9i = 3;
constexpr int kOracle9iR2 = 4;
constexpr int kOracle10g = 5;

// EXTENT MANAGEMENT DICTIONARY, or LOCAL with its allocation: AUTOALLOCATE or UNIFORM [SIZE n].
Node extentManagement() {
  return named("C_EXTENT_MANAGEMENT",
               Or({"EXTENT MANAGEMENT", ""},
                  leaf("DICTIONARY"),
                  leaf("LOCAL").with(Or(leaf("AUTOALLOCATE"), leaf("UNIFORM").with(leaf("SIZE", "SIZE "))))));
}

}  // namespace

CSQLCreateTablespace::CSQLCreateTablespace(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_TABLESPACE", bInit);
}

void CSQLCreateTablespace::init() {
  const int v = GetOraVersion();
  attach(this,
         when(v >= kOracle10g, leaf("BIGFILE")),
         when(v >= kOracle8i, Or(leaf("TEMPORARY"), when(v >= kOracle9i, leaf("UNDO")))),
         leaf("TABLESPACE", "TABLESPACE "),
         list("LIST_DATAFILE", ", ", "DATAFILE", ""),
         when(v >= kOracle8i, list("LIST_TEMPFILE", ", ", "TEMPFILE", "")),
         when(v >= kOracle10g, leaf("GROUP", "TABLESPACE GROUP ")),
         when(v >= kOracle80, leaf("MINIMUM", "MINIMUM EXTENT ")),
         when(v >= kOracle9i, leaf("BLOCKSIZE", "BLOCKSIZE ")),
         when(v >= kOracle80, leaf("LOGGING")),
         when(v >= kOracle9iR2, leaf("FORCE", "", "", " LOGGING")),
         And({"DEFAULT", ""}, when(v >= kOracle9iR2, leaf("COMPRESS")), clause<CSQLClauseStorage>(0)),
         leaf("ONLINE"),
         when(v < kOracle10g, leaf("CONTENTS")),
         when(v >= kOracle8i, extentManagement()),
         when(v >= kOracle9i, leaf("SEGMENT", "SEGMENT SPACE MANAGEMENT ")),
         when(v >= kOracle10g, leaf("FLASHBACK", "FLASHBACK ")),
         when(v >= kOracle10g, leaf("RETENTION", "RETENTION ")));
}

}  // namespace qarvelt
