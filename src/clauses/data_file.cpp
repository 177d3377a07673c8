#include "qarvelt/clauses/data_file.h"

#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

CSQLClauseDataFile::CSQLClauseDataFile(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_DATA_FILE", bInit);
}

CSQLClauseDataFile::CSQLClauseDataFile(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

Node AutoextendLeaf() {
  return leaf("AUTOEXTEND", "AUTOEXTEND ")
      .afterPrefix(&CSQLClauseDataFile::CbAfterPrefix)
      .with(leaf("NEXT", "NEXT "), leaf("MAXSIZE", "MAXSIZE "));
}

void CSQLClauseDataFile::init() {
  attach(this, leaf("FILE", "'", "", "'"), leaf("SIZE", "SIZE "), leaf("REUSE"), AutoextendLeaf());
}

int CSQLClauseDataFile::CbAfterPrefix(std::string& text,
                                      std::string& /*value*/,
                                      std::string& /*initial*/,
                                      CSQLClause* /*node*/) {
  return text == "AUTOEXTEND OFF" ? 1 : 0;
}

}  // namespace qarvelt
