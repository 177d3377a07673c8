// Checks of the SQL and PL/SQL texts a description carries (defaults, virtual columns, CHECK
// conditions, index expressions, partition bounds, view queries, trigger conditions and bodies),
// which statements write as given: each must stay in its place in its statement.
//
// A text is refused when it could end the statement or reach past its place: a ";" outside a
// literal, a comment, a bracket, literal or quoted name left open or closed too often, a comma
// outside brackets where one expression belongs, and the lines SQL*Plus reads as its own commands
// (a line holding only "/" or ".", a line starting with "#", a blank line or a ";" at the end of a
// line inside a SQL statement). A trigger body is one PL/SQL block, or one CALL, with nothing after
// the END that closes it.
//
// Create, Diff and CreateSchema call these before they write anything; the document readers call
// them too, so that errors name the document.
#ifndef QARVELT_MODEL_EXPRESSIONS_H
#define QARVELT_MODEL_EXPRESSIONS_H

#include <string>

#include "qarvelt/model/error.h"
#include "qarvelt/model/schema.h"
#include "qarvelt/model/table.h"

namespace qarvelt::model {

enum class ExpressionKind {
  Expression,  // one expression or condition: DEFAULT, AS (...) VIRTUAL, CHECK (...), WHEN (...)
  Query,       // a query: the text after AS of a view or materialized view (optimizer hints allowed)
  Block,       // a trigger body: DECLARE ... BEGIN ... END; or CALL routine (...)
};

// Throws Error (BadInput) with `where` as its place and a message that says where in the text
// (line and column) and what is wrong. An empty text passes: it is a value not given.
void CheckExpression(const std::string& text, ExpressionKind kind, const std::string& where);

// Every text of the table or schema; `where` prefixes the key paths of the places ("emp.json" gives
// "emp.json.columns[2].default"; "" gives "columns[2].default"). Names that a statement writes as
// given (a column's collation, a synonym's database link) are checked to be names. Throw Error.
void CheckExpressions(const Table& table, const std::string& where = "");
void CheckExpressions(const Schema& schema, const std::string& where = "");

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_EXPRESSIONS_H
