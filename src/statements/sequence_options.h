// The options CREATE SEQUENCE and ALTER SEQUENCE share. Used inside the library only.
#ifndef QARVELT_SRC_STATEMENTS_SEQUENCE_OPTIONS_H
#define QARVELT_SRC_STATEMENTS_SEQUENCE_OPTIONS_H

#include "qarvelt/core/builder.h"

namespace qarvelt {

// INCREMENT, START (only when `withStart`: ALTER SEQUENCE takes no START WITH of its own), then the
// keyword leaves MAXVALUE, MINVALUE, CYCLE, CACHE and ORDER; MAXVALUE, MINVALUE and CACHE have a
// VALUE child holding the number (MAXVALUE 99, or NOMAXVALUE alone).
build::Node SequenceOptions(bool withStart);

}  // namespace qarvelt

#endif  // QARVELT_SRC_STATEMENTS_SEQUENCE_OPTIONS_H
