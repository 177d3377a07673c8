#include "qarvelt/statements/create_table.h"

#include "../clauses/column_definition.h"
#include "../clauses/object_property.h"
#include "object_name.h"
#include "qarvelt/clauses/column.h"
#include "qarvelt/clauses/constraint.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/clauses/table_props.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// [IF NOT EXISTS] [schema.]name after TABLE.
Node qualifiedName(const char* name, int v) {
  return GuardedName(v, "IF_NOT_EXISTS", name);
}

// ON COMMIT DELETE | PRESERVE ROWS.
Node onCommit() {
  return leaf("COMMIT", "ON COMMIT ", "", " ROWS");
}

// The properties every table kind ends with, built for the statement's release.
Node physicalProperties(int v) {
  return clause<CSQLClausePhysicalProp>(v);
}
Node tableProperties(int v) {
  return clause<CSQLClauseTableProp>(v);
}

// GLOBAL TEMPORARY TABLE [schema.]table ( columns and constraints ) [ON COMMIT ...] properties.
class RelationalTable : public Cloneable<RelationalTable> {
 public:
  explicit RelationalTable(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_RELATIONAL_TABLE", bInit);
  }

 protected:
  void init() override {
    const int v = GetOraVersion();
    // Temporary tables came with release code 3.
    CSQLClause* temporary = nullptr;
    // (Not through when(): a closed gate still builds its node, and `temporary` would name a node
    // that is gone.)
    if (v >= 3) attach(this, leaf("TEMPORARY", "GLOBAL ").keep(temporary));
    attach(this,
           And({"TABLE", ""},
               qualifiedName("TABLE", v),
               And({"(", ")"}, named("C_RELATIONAL_PROP", list("LIST", ",\n", "", ""))),
               when(v >= 3, onCommit().linked(temporary).afterPrefix(&CSQLCreateTable::CbTemporaryOnly)),
               physicalProperties(v),
               tableProperties(v)));
  }
};

// GLOBAL TEMPORARY TABLE [schema.]table OF [schema.]type ... ( object property ) ... properties.
class ObjectTable : public Cloneable<ObjectTable> {
 public:
  explicit ObjectTable(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_OBJECT_TABLE", bInit);
  }

 protected:
  void init() override {
    const int v = GetOraVersion();
    CSQLClause* temporary = nullptr;
    attach(this, leaf("TEMPORARY", "GLOBAL ").keep(temporary));
    // Two ON COMMIT leaves: paths reach the first, which has the callback but no link, so it is
    // written whenever it is set; the second has the link and no callback.
    attach(this,
           And({"TABLE", ""},
               qualifiedName("TABLE", v),
               And({"OF", ""},
                   leaf("TYPE_SCHEMA", "", "", "."),
                   leaf("OBJECT_TYPE"),
                   leaf("NOT"),
                   leaf("SUBSTITUTABLE", "", "", " AT ALL LEVELS")),
               And({"(", ")"}, clause<CSQLClauseObjectProperty>(kLatestRelease)),
               onCommit().afterPrefix(&CSQLCreateTable::CbTemporaryOnly),
               onCommit().linked(temporary),
               leaf("OID", "OBJECT IDENTIFIER IS "),
               And({"OIDINDEX", ""},
                   leaf("OIDIDX"),
                   And({"(", ")"}, clause<CSQLClausePhysicalAttr>(v), leaf("TABLESPACE", "TABLESPACE "))),
               physicalProperties(v),
               tableProperties(v)));
  }
};

}  // namespace

CSQLCreateTable::CSQLCreateTable(bool bInit, int nOraVersion) : CreateStatement(nOraVersion) {
  setup("C_CREATE_TABLE", bInit);
}

void CSQLCreateTable::init() {
  const int v = GetOraVersion();
  // Object tables came with release code 2.
  attach(this, Or(clause<RelationalTable>(v), when(v >= 2, clause<ObjectTable>(v))));
}

int CSQLCreateTable::CbTemporaryOnly(std::string& text,
                                     std::string& /*value*/,
                                     std::string& /*initial*/,
                                     CSQLClause* linked) {
  if (linked == nullptr || linked->GetValue() == "TEMPORARY") return 0;
  text.clear();
  return 1;
}

CSQLCreateTable::CSubSQLItemProp::CSubSQLItemProp(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLCreateTable::CSubSQLItemProp::CSubSQLItemProp(const char* name, int nOraVersion)
    : Cloneable(nOraVersion > kLatestRelease ? nOraVersion : kLatestRelease) {
  setup(name, true);
}

CSQLCreateTable::CSubSQLItemProp::CSubSQLItemProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("", bInit);
}

// column [type [COLLATE c]] [INVISIBLE] [DEFAULT [ON NULL] expr | identity | AS (expr) VIRTUAL]
// [inline constraints].
void CSQLCreateTable::CSubSQLItemProp::init() {
  attach(this,
         Or(And(leaf("COLUMN"),
                clause<CSQLAttrDataType>(kLatestRelease),
                ColumnDefinitionTail(GetOraVersion()),
                Or(list("LIST", " ", "", ""))),
            clause<CSQLClauseOutLineConstraint>(kLatestRelease),
            clause<CSQLClauseOutLineRefConstraint>(kLatestRelease),
            clause<CSQLClauseSuppLgProp>(kLatestRelease)));
}

}  // namespace qarvelt
