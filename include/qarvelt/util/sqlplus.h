// Statements as SQL*Plus and SQLcl run them from a script.
//
// A SQL statement ends with ";". A PL/SQL unit (a trigger, a type or type body, a library, a
// procedure, function or package, a Java source, an anonymous block) keeps its own semicolons, the
// last one after its END; the client sends it when it reads a line holding only "/". A ";" added
// after such a unit would be sent with it and refused, so a unit is always ended with that line.
//
//   TerminateStatement("CREATE VIEW V AS SELECT 1 X FROM DUAL", SQLTerminator::Semicolon)
//       CREATE VIEW V AS SELECT 1 X FROM DUAL;
//   TerminateStatement("CREATE TRIGGER T ... BEGIN NULL; END;", SQLTerminator::Semicolon)
//       CREATE TRIGGER T ... BEGIN NULL; END;
//       /
#ifndef QARVELT_UTIL_SQLPLUS_H
#define QARVELT_UTIL_SQLPLUS_H

#include <string>

namespace qarvelt {

// How a script ends its statements: ";" after a SQL statement (a PL/SQL unit gets the "/" line all
// the same), "/" on a line of its own after every statement, or nothing.
enum class SQLTerminator { Semicolon, Slash, None };

// Whether the statement is a PL/SQL unit, judged by its first words, letter case aside:
// CREATE [OR REPLACE] TRIGGER | TYPE | LIBRARY | PROCEDURE | FUNCTION | PACKAGE | JAVA ...,
// DECLARE or BEGIN.
bool IsPLSQLUnit(const std::string& statement);

// The statement, without blanks at its end, followed by its terminator and a line break.
std::string TerminateStatement(const std::string& statement, SQLTerminator terminator);

}  // namespace qarvelt

#endif  // QARVELT_UTIL_SQLPLUS_H
