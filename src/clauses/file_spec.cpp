#include "qarvelt/clauses/file_spec.h"

#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

CSQLClauseFileSpec::CSQLClauseFileSpec(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_FILE_SPEC", bInit);
}

CSQLClauseFileSpec::CSQLClauseFileSpec(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

void CSQLClauseFileSpec::init() {
  attach(this,
         leaf("FILE", "'", "", "'"),
         leaf("SIZE", "SIZE "),
         leaf("REUSE"),
         leaf("AUTOEXTEND", "AUTOEXTEND ")
             .afterPrefix(&CbAfterPrefix)
             .with(leaf("NEXT", "NEXT "), leaf("MAXSIZE", "MAXSIZE ")));
}

int CSQLClauseFileSpec::CbAfterPrefix(std::string& text,
                                      std::string& /*value*/,
                                      std::string& /*initial*/,
                                      CSQLClause* /*node*/) {
  return text == "AUTOEXTEND OFF" ? 1 : 0;
}

}  // namespace qarvelt
