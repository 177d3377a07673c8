#include "qarvelt/statements/alter_sequence.h"

#include "qarvelt/core/builder.h"
#include "sequence_options.h"

namespace qarvelt {

using namespace build;

namespace {

// A keyword leaf (MAXVALUE or NOMAXVALUE) with the number that may follow it.
Node keywordWithValue(const char* name) {
  return leaf(name).with(leaf("VALUE"));
}

}  // namespace

Node SequenceOptions(bool withStart) {
  return And(leaf("INCREMENT", "INCREMENT BY "),
             when(withStart, leaf("START", "START WITH ")),
             keywordWithValue("MAXVALUE"),
             keywordWithValue("MINVALUE"),
             leaf("CYCLE"),
             keywordWithValue("CACHE"),
             leaf("ORDER"));
}

CSQLAlterSequence::CSQLAlterSequence(bool bInit, int nOraVersion) : AlterStatement(nOraVersion) {
  setup("C_ALTER_SEQUENCE", bInit);
}

void CSQLAlterSequence::init() {
  attach(this,
         leaf("SCHEMA", "", "", "."),
         leaf("SEQUENCE"),
         SequenceOptions(false),
         when(GetOraVersion() >= 9, leaf("RESTART").with(leaf("START", "START WITH "))));
}

}  // namespace qarvelt
