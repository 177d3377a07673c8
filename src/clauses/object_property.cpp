#include "object_property.h"

#include "qarvelt/clauses/constraint.h"
#include "qarvelt/clauses/table_props.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

CSQLClauseObjectProperty::CSQLClauseObjectProperty(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_OBJECT_PROPERTY", bInit);
}

void CSQLClauseObjectProperty::init() {
  attach(this,
         Or(And(Or(leaf("COLUMN"), leaf("ATTRIBUTE")),
                leaf("EXPR", "DEFAULT "),
                Or(list("LIST", " ", "", ""), clause<CSQLClauseInlineRefConstraint>(kLatestRelease))),
            clause<CSQLClauseOutLineConstraint>(kLatestRelease),
            clause<CSQLClauseOutLineRefConstraint>(kLatestRelease),
            clause<CSQLClauseSuppLgProp>(kLatestRelease)));
}

}  // namespace qarvelt
