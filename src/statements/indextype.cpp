#include "qarvelt/statements/indextype.h"

#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// The Oracle releases that brought each piece of syntax.
constexpr int kOracle8i = 2;     // operators, index types
constexpr int kOracle9iR1 = 3;   // ALTER INDEXTYPE, local domain indexes on range partitions
constexpr int kOracle10gR1 = 5;  // OR REPLACE INDEXTYPE, array DML, WITH COLUMN CONTEXT
constexpr int kOracle11g = 7;    // local partitions of any method, storage tables

// The argument types of an operator, in brackets: (VARCHAR2,NUMBER).
Node argumentTypes() {
  return list("LIST", ",", "(", ")");
}

// [schema.]operator (types): an operator binding as FOR, ADD, DROP and ANCILLARY TO name it.
void operatorBinding(CSQLClause* item) {
  attach(item, leaf("SCHEMA", "", "", "."), leaf("OPERATOR"), argumentTypes());
}

// USING [schema.]implementation_type [WITH | WITHOUT ARRAY DML [(type, varray_type), ...]].
Node usingType(int v) {
  return named("C_USING_TYPE",
               And({"USING", ""}, leaf("SCHEMA", "", "", "."), leaf("TYPE")),
               when(v >= kOracle10gR1, leaf("DML", "", " ARRAY DML").with(list("LIST", ","))));
}

}  // namespace

// ---- CREATE OPERATOR -----------------------------------------------------------------------------

CSQLCreateOperator::CSQLCreateOperator(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_OPERATOR", bInit);
}

void CSQLCreateOperator::init() {
  if (GetOraVersion() < kOracle8i) return;
  attach(this,
         leaf("REPLACE", "OR "),
         And({"OPERATOR", ""}, leaf("SCHEMA", "", "", "."), leaf("OPERATOR")),
         list("LIST_BINDING", ", ", "BINDING", ""));
}

CSQLCreateOperator::CSubSQLItemBinding::CSubSQLItemBinding(const char* name, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLCreateOperator::CSubSQLItemBinding::CSubSQLItemBinding(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

// (types) RETURN type, then an ancillary operator or the contexts of a primary operator, then the
// implementing function.
void CSQLCreateOperator::CSubSQLItemBinding::init() {
  attach(this,
         argumentTypes(),
         leaf("RETURN", "RETURN "),
         Or(named("C_ANCILLARY", list("LIST_ANCILLARY", ", ", "ANCILLARY TO", "")),
            named("C_CONTEXT",
                  leaf("SCAN", "WITH INDEX CONTEXT, SCAN CONTEXT ")
                      .with(leaf("COMPUTE", "", "", " ANCILLARY DATA")),
                  when(GetOraVersion() >= kOracle10gR1, leaf("COLUMN", "WITH ", "", " CONTEXT")))),
         And({"USING", ""}, leaf("SCHEMA", "", "", "."), leaf("PACKAGE", "", "", "."), leaf("FUNCTION")));
}

CSQLCreateOperator::CSubSQLItemAncillary::CSubSQLItemAncillary(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateOperator::CSubSQLItemAncillary::CSubSQLItemAncillary(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLCreateOperator::CSubSQLItemAncillary::init() {
  operatorBinding(this);
}

// ---- CREATE INDEXTYPE ----------------------------------------------------------------------------

CSQLCreateIndexType::CSQLCreateIndexType(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_INDEXTYPE", bInit);
}

void CSQLCreateIndexType::init() {
  const int v = GetOraVersion();
  if (v < kOracle8i) return;
  // Before 11g a local domain index needs range partitions, so RANGE is part of the keywords.
  Node local = v >= kOracle11g ? leaf("LOCAL", "WITH ", "", " PARTITION").with(leaf("RANGE"))
                               : leaf("LOCAL", "WITH ", "", " RANGE PARTITION");
  attach(this,
         when(v >= kOracle10gR1, leaf("REPLACE", "OR ")),
         And({"INDEXTYPE", ""}, leaf("SCHEMA", "", "", "."), leaf("INDEXTYPE")),
         list("LIST_FOR", ", ", "FOR", ""),
         usingType(v),
         when(v >= kOracle9iR1, std::move(local)),
         when(v >= kOracle11g, leaf("MANAGED", "WITH ", "", " MANAGED STORAGE TABLES")));
}

CSQLCreateIndexType::CSubSQLItemOperator::CSubSQLItemOperator(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateIndexType::CSubSQLItemOperator::CSubSQLItemOperator(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLCreateIndexType::CSubSQLItemOperator::init() {
  operatorBinding(this);
}

CSQLCreateIndexType::CSubSQLItemArrayDML::CSubSQLItemArrayDML(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateIndexType::CSubSQLItemArrayDML::CSubSQLItemArrayDML(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

// (type, varray_type): the varray part comes with its comma, so a lone type closes its bracket.
void CSQLCreateIndexType::CSubSQLItemArrayDML::init() {
  attach(this,
         And({"(", ")"},
             leaf("SCHEMA", "", "", "."),
             leaf("TYPE"),
             And({",", ""}, leaf("SCHEMA2", "", "", "."), leaf("VARRAY"))));
}

// ---- ALTER INDEXTYPE -----------------------------------------------------------------------------

CSQLAlterIndexType::CSQLAlterIndexType(bool bInit, int nOraVersion) : AlterStatement(nOraVersion) {
  setup("C_ALTER_INDEXTYPE", bInit);
}

// Oracle takes either a change of the operators (with the implementation type) or COMPILE.
void CSQLAlterIndexType::init() {
  const int v = GetOraVersion();
  if (v < kOracle9iR1) return;
  attach(this,
         leaf("SCHEMA", "", "", "."),
         leaf("INDEXTYPE"),
         Or(And(list("LIST_ADD_DROP", ", "), usingType(v)), leaf("COMPILE")));
}

CSQLAlterIndexType::CSubSQLItemOperator::CSubSQLItemOperator(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLAlterIndexType::CSubSQLItemOperator::CSubSQLItemOperator(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLAlterIndexType::CSubSQLItemOperator::init() {
  attach(this, Or(leaf("ADD"), leaf("DROP")));
  operatorBinding(this);
}

}  // namespace qarvelt
