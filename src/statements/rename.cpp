#include "qarvelt/statements/rename.h"

#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

CSQLRename::CSQLRename(bool bInit, int nOraVersion) : DropStatement(nOraVersion) {
  setup("C_RENAME", bInit);
}

void CSQLRename::init() {
  attach(this, leaf("OBJECT"), leaf("TO", "TO "));
}

}  // namespace qarvelt
