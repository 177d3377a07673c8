#include "qarvelt/clauses/column.h"

#include "column_definition.h"
#include "lob_lists.h"
#include "object_property.h"
#include "qarvelt/clauses/constraint.h"
#include "qarvelt/clauses/lob.h"
#include "qarvelt/clauses/table_props.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// Name and data type: the head of every column definition.
Node columnName() {
  return leaf("COLUMN");
}
Node dataType() {
  return clause<CSQLAttrDataType>(kLatestRelease);
}

// The inline constraints of a column, one item each.
Node inlineConstraints() {
  return list("LIST", " ", "", "");
}

// Several columns in brackets: (C1,C2).
Node columnList() {
  return list("LIST", ",", "(", ")");
}

}  // namespace

// Oracle 12c Release 2 brought column collations; Oracle 12c invisible columns, DEFAULT ON NULL and
// identity columns; Oracle 11g virtual columns.
Node ColumnDefinitionTail(int v) {
  return And(when(v >= 9, leaf("COLLATE", "COLLATE ")),
             when(v >= 8, leaf("VISIBILITY")),
             leaf("DEFAULT", "DEFAULT "),
             when(v >= 8, leaf("DEFAULT_ON_NULL", "DEFAULT ON NULL ")),
             when(v >= 8, clause<CSQLClauseIdentity>(v)),
             when(v >= 7, leaf("VIRTUAL", "GENERATED ALWAYS AS (", ") VIRTUAL")));
}

// ---- identity columns ---------------------------------------------------------------------------

CSQLClauseIdentity::CSQLClauseIdentity(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_IDENTITY", bInit);
}

void CSQLClauseIdentity::init() {
  attach(this,
         leaf("GENERATED", "GENERATED ", " AS IDENTITY")
             .with(And({"(", ")"},
                       leaf("START", "START WITH "),
                       leaf("INCREMENT", "INCREMENT BY "),
                       leaf("MAXVALUE", "MAXVALUE "),
                       leaf("NOMAXVALUE"),
                       leaf("MINVALUE", "MINVALUE "),
                       leaf("NOMINVALUE"),
                       leaf("CACHE", "CACHE "),
                       leaf("NOCACHE"),
                       leaf("CYCLE"),
                       leaf("ORDER"))));
}

// ---- ALTER TABLE column operations --------------------------------------------------------------

CSQLClauseColumn::CSQLClauseColumn(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_COLUMN", bInit);
}

void CSQLClauseColumn::init() {
  attach(this,
         Or(And(clause<CSQLClauseAddColumn>(kLatestRelease), clause<CSQLClauseModifyColumn>(kLatestRelease)),
            clause<CSQLClauseDropColumn>(kLatestRelease),
            clause<CSQLClauseRenameColumn>(kLatestRelease),
            list("LIST_COL", " ", "", ""),
            list("LIST_LOB", " ", "", ""),
            list("LIST_VAR", " ", "", "")));
}

CSQLClauseRenameColumn::CSQLClauseRenameColumn(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_RENAME_COLUMN", bInit);
}

void CSQLClauseRenameColumn::init() {
  attach(this, leaf("OLDNAME", "RENAME COLUMN "), leaf("NEWNAME", "TO "));
}

CSQLClauseAddColumn::CSQLClauseAddColumn(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_ADD_COLUMN", bInit);
}

void CSQLClauseAddColumn::init() {
  attach(this, list("LIST", ",", "ADD (", ")"), clause<CSQLClauseColumnProp>(kLatestRelease));
}

CSQLClauseAddColumn::CSubSQLClauseColumn::CSubSQLClauseColumn(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseAddColumn::CSubSQLClauseColumn::CSubSQLClauseColumn(const char* name, int nOraVersion)
    : Cloneable(nOraVersion > kLatestRelease ? nOraVersion : kLatestRelease) {
  setup(name, true);
}

CSQLClauseAddColumn::CSubSQLClauseColumn::CSubSQLClauseColumn(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseAddColumn::CSubSQLClauseColumn::init() {
  // Inline constraints or one inline REF constraint, never both.
  attach(this,
         columnName(),
         dataType(),
         ColumnDefinitionTail(GetOraVersion()),
         Or(inlineConstraints(), clause<CSQLClauseInlineRefConstraint>(kLatestRelease)));
}

CSQLClauseModifyColumn::CSQLClauseModifyColumn(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_MOD_COLUMN", bInit);
}

void CSQLClauseModifyColumn::init() {
  attach(this,
         Or({"MODIFY ", ""},
            clause<CSQLClauseModifyColProp>(kLatestRelease),
            clause<CSQLClauseModifyColSubs>(kLatestRelease)));
}

CSQLClauseModifyColProp::CSQLClauseModifyColProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_MOD_COL_PROP", bInit);
}

// Columns, MODIFY (C NUMBER), or LOB storage, MODIFY LOB (C) (CACHE): Oracle takes one or the other
// in a statement, so they are alternatives. Each further LOB item brings its own MODIFY.
void CSQLClauseModifyColProp::init() {
  attach(this, Or(list("LIST", ",", "(", ")"), lobItems("LISTLOB", " MODIFY ", LOBPlace::Attributes)));
}

CSQLClauseModifyColProp::CSubSQLClauseColumn::CSubSQLClauseColumn(const char* name)
    : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseModifyColProp::CSubSQLClauseColumn::CSubSQLClauseColumn(const char* name, int nOraVersion)
    : Cloneable(nOraVersion > kLatestRelease ? nOraVersion : kLatestRelease) {
  setup(name, true);
}

CSQLClauseModifyColProp::CSubSQLClauseColumn::CSubSQLClauseColumn(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

// The properties of a column, its visibility (C INVISIBLE) or its virtual expression: Oracle takes
// one of the three per column, so a host sets the leaves of one.
void CSQLClauseModifyColProp::CSubSQLClauseColumn::init() {
  const int v = GetOraVersion();
  attach(this,
         columnName(),
         dataType(),
         ColumnDefinitionTail(v),
         when(v >= 8, leaf("DROP_IDENTITY")),
         inlineConstraints());
}

CSQLClauseModifyColSubs::CSQLClauseModifyColSubs(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_MOD_COLUMN_SUBS", bInit);
}

void CSQLClauseModifyColSubs::init() {
  // COLUMN C [NOT] SUBSTITUTABLE AT ALL LEVELS [FORCE]: the keywords close the inner container, so
  // FORCE comes after them.
  attach(
      this,
      And(And({"", " SUBSTITUTABLE AT ALL LEVELS"}, leaf("COLUMN", "COLUMN "), leaf("NOT")), leaf("FORCE")));
}

CSQLClauseDropColumn::CSQLClauseDropColumn(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_DROP_COLUMN", bInit);
}

void CSQLClauseDropColumn::init() {
  // "UNUSED" holds UNUSED and "DROP" holds DROP; their children complete the statement.
  attach(this,
         Or(leaf("UNUSED", "SET ")
                .with(Or(leaf("COLUMN", "COLUMN "), columnList()),
                      leaf("CASCADE", "", "", " CONSTRAINTS"),
                      leaf("INVALIDATE")),
            leaf("DROP").with(Or(leaf("COLUMN", "COLUMN "),
                                 columnList(),
                                 leaf("UNUSED", "", "", " COLUMNS"),
                                 leaf("COLUMNS", "", "", " CONTINUE")),
                              leaf("CASCADE", "", "", " CONSTRAINTS"),
                              leaf("INVALIDATE"),
                              leaf("CHECKPOINT", "CHECKPOINT "))));
}

// ---- column properties --------------------------------------------------------------------------

CSQLClauseColumnProp::CSQLClauseColumnProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_COLUMN_PROP", bInit);
}

void CSQLClauseColumnProp::init() {
  const int v = GetOraVersion();
  if (v < 6) return;  // no column properties before release code 6
  if (v == 6) {
    attach(this,
           Or(clause<CSQLClauseObjTypeColumnProp>(v),
              clause<CSQLClauseNestTableColumnProp>(v),
              clause<CSQLClauseVarrayColProp>(v),
              clause<CSQLClauseLOBStorage>(v)));
  } else {
    attach(this, list("LISTLOB", " ", "", ""));
  }
}

CSQLClauseColumnProp::CSubSQLItem::CSubSQLItem(const char* name, int nOraVersion) : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLClauseColumnProp::CSubSQLItem::CSubSQLItem(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseColumnProp::CSubSQLItem::init() {
  const int v = GetOraVersion();
  attach(this,
         Or(clause<CSQLClauseObjTypeColumnProp>(v),
            clause<CSQLClauseNestTableColumnProp>(v),
            And(Or(clause<CSQLClauseVarrayColProp>(v), clause<CSQLClauseLOBStorage>(v)))));
}

CSQLClauseColumnProp::CSubSQLItemLOB::CSubSQLItemLOB(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseColumnProp::CSubSQLItemLOB::CSubSQLItemLOB(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseColumnProp::CSubSQLItemLOB::init() {
  attach(this, And(clause<CSQLClauseLOBStorage>(GetOraVersion())));
}

CSQLClauseObjTypeColumnProp::CSQLClauseObjTypeColumnProp(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_OBJTYPE_COLUMN_PROP", bInit);
}

void CSQLClauseObjTypeColumnProp::init() {
  attach(this, leaf("COLUMN", "COLUMN ").with(clause<CSQLClauseSubstitutableColumn>(GetOraVersion())));
}

CSQLClauseNestTableColumnProp::CSQLClauseNestTableColumnProp(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_NEST_TABLE_COLUMN_PROP", bInit);
}

void CSQLClauseNestTableColumnProp::init() {
  const int v = GetOraVersion();
  if (v < 2) return;  // no nested tables before release code 2
  // The storage table's properties, in brackets after STORE AS.
  auto storageTable = [v] {
    return And({"(", ")"}, clause<CSQLClauseObjectProperty>(v), clause<CSQLClausePhysicalProp>(v));
  };
  if (v < 7) {
    attach(this,
           leaf("NESTED_TABLE", "NESTED TABLE ")
               .with(when(v == 6, clause<CSQLClauseSubstitutableColumn>(v)),
                     leaf("STORETAB", "STORE AS "),
                     when(v >= 3, storageTable()),
                     when(v >= 3, leaf("RETURN", "RETURN AS "))));
  } else {
    attach(this,
           And({"NESTED TABLE", ""},
               Or(leaf("NEST_ITEM"), leaf("COLUMN_VALUE")),
               clause<CSQLClauseSubstitutableColumn>(v),
               leaf("STORETAB", "STORE AS "),
               storageTable(),
               leaf("RETURN", "RETURN AS ")));
  }
}

CSQLClauseSubstitutableColumn::CSQLClauseSubstitutableColumn(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_SUBSTITUTABLE_COL", bInit);
}

void CSQLClauseSubstitutableColumn::init() {
  // "IS" writes its postfix " OF" after its children; hosts fill the leaves accordingly.
  attach(
      this,
      Or(And(leaf("ELEMENT"), leaf("IS", "", "", " OF").with(leaf("TYPE"), leaf("ONLY", "( ONLY ", "", ")"))),
         leaf("SUBSTITUTABLE", "", "", " AT ALL LEVELS")));
}

CSQLClauseVarrayColProp::CSQLClauseVarrayColProp(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("VARRAY_COL_PROP", bInit);
}

void CSQLClauseVarrayColProp::init() {
  const int v = GetOraVersion();
  // STORE AS [SECUREFILE | BASICFILE] LOB, then a segment with or without parameters, or the
  // parameters alone, always in brackets. Oracle 11g introduced SECUREFILE ("SECUREFILE" holds
  // SECUREFILE or BASICFILE).
  auto storeAsLob = [v] {
    return And({"STORE AS", ""},
               when(v >= 7, leaf("SECUREFILE")),
               Or({"LOB", ""},
                  leaf("SEGNAME").with(And({"(", ")"}, clause<CSQLClauseLOBParameter>(v))),
                  And({"(", ")"}, clause<CSQLClauseLOBParameter>(v))));
  };
  auto substitutable = [v] { return clause<CSQLClauseSubstitutableColumn>(v); };
  if (v < 6) {
    attach(this, leaf("VARRAY", "VARRAY ").with(storeAsLob()));
  } else if (v == 6) {
    attach(this, leaf("VARRAY", "VARRAY ").with(substitutable(), storeAsLob()));
  } else {
    attach(this, leaf("VARRAY", "VARRAY ").with(Or(substitutable(), storeAsLob())));
  }
}

}  // namespace qarvelt
