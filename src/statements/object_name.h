// The name of the object a CREATE or DROP statement makes or removes. Used inside the library only.
#ifndef QARVELT_SRC_STATEMENTS_OBJECT_NAME_H
#define QARVELT_SRC_STATEMENTS_OBJECT_NAME_H

#include "qarvelt/core/builder.h"

namespace qarvelt {

// [guard] [SCHEMA.]name: the guard leaf (IF_NOT_EXISTS of CREATE, IF_EXISTS of DROP, holding
// IF NOT EXISTS or IF EXISTS) is there from release code 12, Oracle 23ai, which brought it.
inline build::Node GuardedName(int nOraVersion, const char* guard, const char* name) {
  using namespace build;
  return And(when(nOraVersion >= 12, leaf(guard)), leaf("SCHEMA", "", "", "."), leaf(name));
}

}  // namespace qarvelt

#endif  // QARVELT_SRC_STATEMENTS_OBJECT_NAME_H
