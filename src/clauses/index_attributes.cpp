#include "qarvelt/clauses/index_attributes.h"

#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

CSQLClauseIndexAttributes::CSQLClauseIndexAttributes(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_INDEX_ATTRIBUTES", bInit);
}

void CSQLClauseIndexAttributes::init() {
  const int v = GetOraVersion();
  attach(this,
         clause<CSQLClausePhysicalAttr>(v),
         when(v >= 2, leaf("LOGGING")),
         when(v >= 2, leaf("ONLINE")),
         when(v >= 2, leaf("COMPUTE", "", "", " STATISTICS")),
         leaf("TABLESPACE", "TABLESPACE "),
         when(v >= 2, clause<CSQLClauseKeyCompression>(v)),
         leaf("SORT"),
         when(v >= 1, leaf("REVERSE")),
         when(v >= 7, leaf("VISIBLE")),
         // Oracle 12c brought partial indexes: INDEXING PARTIAL or FULL.
         when(v >= 8, leaf("INDEXING", "INDEXING ")),
         clause<CSQLClauseParallel>(v));
}

}  // namespace qarvelt
