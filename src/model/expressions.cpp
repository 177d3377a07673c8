// Checks that the SQL and PL/SQL texts of a description stay in their places in the statements
// that write them as given.
#include "qarvelt/model/expressions.h"

#include <string_view>
#include <vector>

#include "qarvelt/ddl/lexer.h"
#include "qarvelt/model/error.h"

namespace qarvelt::model {

namespace {

using ddl::Lexer;
using ddl::SourcePosition;
using ddl::Token;
using ddl::TokenKind;

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v';
}

char closerOf(const std::string& open) {
  return open == "(" ? ')' : open == "[" ? ']' : '}';
}

class Checker {
 public:
  Checker(const std::string& text, ExpressionKind kind, const std::string& where)
      : m_text(text), m_kind(kind), m_where(where), m_multiline(text.find('\n') != std::string::npos) {}

  void Run() {
    const std::vector<Token> tokens = significantTokens();
    if (tokens.size() == 1) fail(tokens[0].start, "the text holds nothing but blanks");
    if (m_kind == ExpressionKind::Block) block(tokens);
    lines();
  }

 private:
  // "column 4" in a text of one line, "line 2, column 4" in a longer one.
  std::string place(const SourcePosition& at) const {
    const std::string column = "column " + std::to_string(at.column);
    return m_multiline ? "line " + std::to_string(at.line) + ", " + column : column;
  }

  [[noreturn]] void fail(const SourcePosition& at, const std::string& message) const {
    throw Error(ErrorKind::BadInput, m_where, "at " + place(at) + ": " + message);
  }

  // Every token but comments, EndOfInput last; refuses what cannot be read, comments where they
  // are not allowed, slash lines, ";" outside a block, and brackets that do not pair up.
  std::vector<Token> significantTokens() const {
    std::vector<Token> tokens, opens;
    Lexer lexer(m_text);
    for (;;) {
      Token t = lexer.Next();
      switch (t.kind) {
        case TokenKind::Error:
          fail(t.start, t.value);
        case TokenKind::SlashLine:
          fail(t.start, "a line holding only / makes SQL*Plus run the statement there");
        case TokenKind::LineComment:
        case TokenKind::BlockComment:
          if (m_kind == ExpressionKind::Block) continue;
          if (m_kind == ExpressionKind::Query && t.text.rfind("/*+", 0) == 0) continue;  // a hint
          fail(t.start,
               m_kind == ExpressionKind::Query
                   ? "a comment is refused in a query (an optimizer hint /*+ ... */ is taken)"
                   : "a comment is refused in an expression: it could hide the rest of the statement");
        case TokenKind::Operator:
          if (t.text == ";" && m_kind != ExpressionKind::Block)
            fail(t.start, "';' ends the statement; it is refused outside a string literal");
          if (t.text == "(" || t.text == "[" || t.text == "{") {
            opens.push_back(t);
          } else if (t.text == ")" || t.text == "]" || t.text == "}") {
            if (opens.empty()) fail(t.start, "'" + t.text + "' closes a bracket that was not opened");
            if (closerOf(opens.back().text) != t.text[0])
              fail(t.start,
                   "'" + t.text + "' does not close the '" + opens.back().text + "' at " +
                       place(opens.back().start));
            opens.pop_back();
          } else if (t.text == "," && opens.empty() && m_kind == ExpressionKind::Expression) {
            fail(t.start, "a comma outside brackets: this place takes one expression");
          }
          break;
        case TokenKind::EndOfInput:
          if (!opens.empty()) fail(opens.back().start, "'" + opens.back().text + "' is not closed");
          tokens.push_back(std::move(t));
          return tokens;
        default:
          break;
      }
      tokens.push_back(std::move(t));
    }
  }

  // The lines SQL*Plus reads as commands of its own, wherever they are (inside a literal too, as
  // SQL*Plus reads lines before the database reads the statement).
  void lines() const {
    const bool sql = m_kind != ExpressionKind::Block;
    SourcePosition at;
    for (std::size_t begin = 0; begin <= m_text.size();) {
      std::size_t end = m_text.find('\n', begin);
      const bool last = end == std::string::npos;
      if (last) end = m_text.size();
      const std::string_view line(m_text.data() + begin, end - begin);
      std::size_t first = 0;
      while (first < line.size() && isBlank(line[first]))
        ++first;
      std::size_t final = line.size();
      while (final > first && isBlank(line[final - 1]))
        --final;
      const std::string_view content = line.substr(first, final - first);
      auto fault = [&](std::size_t offset, const std::string& message) {
        SourcePosition p = at;
        p.offset = begin + offset;
        for (std::size_t i = 0; i < offset; ++i) {
          const auto c = static_cast<unsigned char>(line[i]);
          if (c < 0x80 || c >= 0xC0) ++p.column;
        }
        fail(p, message);
      };
      if (content == ".") fault(first, "a line holding only . ends the statement in SQL*Plus");
      if (!content.empty() && content[0] == '#')
        fault(first, "SQL*Plus runs a line that starts with # as a command of its own");
      if (sql && content.empty() && at.line > 1 && !last)
        fault(0, "a blank line ends a SQL statement in SQL*Plus");
      if (sql && !content.empty() && content.back() == ';' && !last)
        fault(final - 1, "SQL*Plus ends the statement at a ';' that ends a line, inside a literal too");
      if (last) break;
      begin = end + 1;
      ++at.line;
    }
  }

  // ---- trigger bodies ------------------------------------------------------------------------

  // What is open in a PL/SQL block, innermost last.
  enum class Open {
    Declare,       // DECLARE, until its BEGIN
    Begin,         // BEGIN, until its END
    Subprogram,    // PROCEDURE or FUNCTION, until IS or AS (or ";" for a declaration ahead)
    Declaring,     // a subprogram's declarations, until its BEGIN
    ExternalBody,  // a subprogram given by LANGUAGE or EXTERNAL, until ";"
    If,
    Loop,
    Case,
  };
  struct Opened {
    Open what;
    Token at;
  };

  void block(const std::vector<Token>& t) const {
    std::size_t i = 0;
    while (t[i].IsOperator("<<") && t[i + 1].Is(TokenKind::Identifier) && t[i + 2].IsOperator(">>"))
      i += 3;  // labels of the block
    if (t[i].IsWord("CALL")) return call(t, i);
    if (!t[i].IsWord("DECLARE") && !t[i].IsWord("BEGIN"))
      fail(t[i].start, "a trigger body is a PL/SQL block (DECLARE or BEGIN ... END;) or CALL routine (...)");
    std::vector<Opened> open;
    for (; i < t.size(); ++i) {
      const Token& k = t[i];
      Open* top = open.empty() ? nullptr : &open.back().what;
      if (k.Is(TokenKind::EndOfInput)) {
        const Token& o = open.back().at;
        fail(o.start, o.text + " is not closed: the text ends before its END");
      } else if (k.IsWord("DECLARE")) {
        open.push_back({Open::Declare, k});
      } else if (k.IsWord("BEGIN")) {
        if (top != nullptr && (*top == Open::Declare || *top == Open::Declaring)) {
          open.back() = {Open::Begin, k};
        } else {
          open.push_back({Open::Begin, k});
        }
      } else if (k.IsWord("PROCEDURE") || k.IsWord("FUNCTION")) {
        open.push_back({Open::Subprogram, k});
      } else if ((k.IsWord("IS") || k.IsWord("AS")) && top != nullptr && *top == Open::Subprogram) {
        *top =
            t[i + 1].IsWord("LANGUAGE") || t[i + 1].IsWord("EXTERNAL") ? Open::ExternalBody : Open::Declaring;
      } else if (k.IsOperator(";") && top != nullptr &&
                 (*top == Open::Subprogram || *top == Open::ExternalBody)) {
        open.pop_back();
      } else if (k.IsWord("IF")) {
        open.push_back({Open::If, k});
      } else if (k.IsWord("LOOP")) {
        open.push_back({Open::Loop, k});
      } else if (k.IsWord("CASE")) {
        open.push_back({Open::Case, k});
      } else if (k.IsWord("END")) {
        end(t, i, open);
        if (open.empty()) return afterBlock(t, i);
      }
    }
  }

  // END at t[i], with IF, LOOP or CASE after it or not: closes the innermost open construct.
  void end(const std::vector<Token>& t, std::size_t& i, std::vector<Opened>& open) const {
    const Token& k = t[i];
    std::string closes;
    for (const char* word : {"IF", "LOOP", "CASE"}) {
      if (t[i + 1].IsWord(word)) closes = word;
    }
    if (!closes.empty()) ++i;
    const Opened& top = open.back();
    const std::string opened = "the " + top.at.text + " at " + place(top.at.start);
    const bool fits = closes == "IF"     ? top.what == Open::If
                      : closes == "LOOP" ? top.what == Open::Loop
                      : closes == "CASE" ? top.what == Open::Case
                                         : top.what == Open::Begin || top.what == Open::Case;
    if (!fits) {
      const std::string wanted = top.what == Open::If      ? "END IF"
                                 : top.what == Open::Loop  ? "END LOOP"
                                 : top.what == Open::Case  ? "END CASE or END"
                                 : top.what == Open::Begin ? "END"
                                                           : "its BEGIN";
      fail(k.start, (closes.empty() ? "END" : "END " + closes) + " here, but " + opened + " needs " + wanted);
    }
    open.pop_back();
  }

  // The outermost END is t[i]: a label may follow, then ";" and nothing else.
  void afterBlock(const std::vector<Token>& t, std::size_t i) const {
    const Token& endToken = t[i];
    if (t[i + 1].Is(TokenKind::Identifier) || t[i + 1].Is(TokenKind::QuotedIdentifier)) ++i;
    if (!t[i + 1].IsOperator(";")) fail(t[i + 1].start, "the END that closes the block needs its ';'");
    if (!t[i + 2].Is(TokenKind::EndOfInput)) {
      fail(t[i + 2].start,
           "text after the END at " + place(endToken.start) +
               " that closes the block: a trigger body is one block");
    }
  }

  // CALL routine (arguments), with an optional ';' and nothing after it.
  void call(const std::vector<Token>& t, std::size_t i) const {
    const SourcePosition call = t[i].start;
    // The routine's name: names joined by "." (and "@" before a database link), then "(".
    ++i;
    for (bool name = true;; name = !name, ++i) {
      const bool fits = name ? t[i].Is(TokenKind::Identifier) || t[i].Is(TokenKind::QuotedIdentifier)
                             : t[i].IsOperator(".") || t[i].IsOperator("@") || t[i].IsOperator("(");
      if (!fits)
        fail(t[i].start, "CALL names the routine, then its arguments in brackets: CALL proc(:new.id)");
      if (t[i].IsOperator("(")) break;
    }
    for (int depth = 0;; ++i) {
      if (t[i].IsOperator(";")) fail(t[i].start, "';' inside the arguments of the CALL at " + place(call));
      if (t[i].IsOperator("(")) ++depth;
      if (t[i].IsOperator(")") && --depth == 0) break;
    }
    if (t[i + 1].IsOperator(";")) ++i;
    if (!t[i + 1].Is(TokenKind::EndOfInput))
      fail(t[i + 1].start, "text after the CALL at " + place(call) + ": a trigger body is one call");
  }

  const std::string& m_text;
  ExpressionKind m_kind;
  const std::string& m_where;
  bool m_multiline;
};

// A name written as given: one identifier, or for a database link names joined by "." with one
// "@" before a connection qualifier.
void checkName(const std::string& text, const std::string& where, bool dblink) {
  if (text.empty()) return;
  const std::string expected =
      dblink ? "a database link name (NAME, NAME.DOMAIN or NAME@QUALIFIER)" : "a name";
  std::vector<Token> tokens;
  try {
    tokens = ddl::Tokenize(text);
  } catch (const ddl::LexError& e) {
    throw Error(ErrorKind::BadInput, where, "expected " + expected + ": " + e.message());
  }
  int ats = 0;
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
    const Token& k = tokens[i];
    const bool name = k.Is(TokenKind::Identifier) || k.Is(TokenKind::QuotedIdentifier);
    const bool separator = dblink && (k.IsOperator(".") || (k.IsOperator("@") && ++ats == 1));
    if (i % 2 == 0 ? !name : !separator || i + 2 == tokens.size()) {
      throw Error(ErrorKind::BadInput,
                  where,
                  "expected " + expected + ", got \"" + text + "\" (at column " +
                      std::to_string(k.start.column) + ")");
    }
  }
  if (tokens.size() == 1) throw Error(ErrorKind::BadInput, where, "expected " + expected + ", got blanks");
}

std::string key(const std::string& where, const std::string& name) {
  return where.empty() ? name : where + "." + name;
}

std::string item(const std::string& where, const std::string& list, std::size_t i) {
  return key(where, list + "[" + std::to_string(i) + "]");
}

void checkPartition(const Partition& p, const std::string& where) {
  for (std::size_t i = 0; i < p.values_less_than.size(); ++i)
    CheckExpression(p.values_less_than[i], ExpressionKind::Expression, item(where, "values_less_than", i));
  for (std::size_t i = 0; i < p.values.size(); ++i)
    CheckExpression(p.values[i], ExpressionKind::Expression, item(where, "values", i));
  for (std::size_t i = 0; i < p.subpartitions.size(); ++i)
    checkPartition(p.subpartitions[i], item(where, "subpartitions", i));
}

void checkIndex(const Index& x, const std::string& where) {
  for (std::size_t i = 0; i < x.keys.size(); ++i)
    CheckExpression(
        x.keys[i].expression, ExpressionKind::Expression, item(where, "columns", i) + ".expression");
  for (std::size_t i = 0; i < x.local_partitions.size(); ++i)
    checkPartition(x.local_partitions[i], item(where, "local.partitions", i));
  for (std::size_t i = 0; i < x.global_partitions.size(); ++i)
    checkPartition(x.global_partitions[i], item(where, "global.partitions", i));
}

}  // namespace

void CheckExpression(const std::string& text, ExpressionKind kind, const std::string& where) {
  if (!text.empty()) Checker(text, kind, where).Run();
}

void CheckExpressions(const Table& table, const std::string& where) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const Column& c = table.columns[i];
    const std::string at = item(where, "columns", i);
    CheckExpression(c.default_value, ExpressionKind::Expression, at + ".default");
    CheckExpression(c.virtual_expr, ExpressionKind::Expression, at + ".virtual");
    CheckExpression(c.check, ExpressionKind::Expression, at + ".check");
    checkName(c.collation, at + ".collation", false);
  }
  for (std::size_t i = 0; i < table.constraints.size(); ++i)
    CheckExpression(
        table.constraints[i].check, ExpressionKind::Expression, item(where, "constraints", i) + ".check");
  for (std::size_t i = 0; i < table.indexes.size(); ++i)
    checkIndex(table.indexes[i], item(where, "indexes", i));
  const Partitioning& p = table.partitioning;
  CheckExpression(p.interval, ExpressionKind::Expression, key(where, "partitioning.interval"));
  for (std::size_t i = 0; i < p.partitions.size(); ++i)
    checkPartition(p.partitions[i], item(where, "partitioning.partitions", i));
  for (std::size_t i = 0; i < p.subtemplate.size(); ++i)
    checkPartition(p.subtemplate[i], item(where, "partitioning.subpartitioning.template", i));
}

void CheckExpressions(const Schema& schema, const std::string& where) {
  for (std::size_t i = 0; i < schema.tables.size(); ++i)
    CheckExpressions(schema.tables[i], item(where, "tables", i));
  for (std::size_t i = 0; i < schema.indexes.size(); ++i)
    checkIndex(schema.indexes[i].index, item(where, "indexes", i));
  for (std::size_t i = 0; i < schema.views.size(); ++i)
    CheckExpression(schema.views[i].query, ExpressionKind::Query, item(where, "views", i) + ".query");
  for (std::size_t i = 0; i < schema.materialized_views.size(); ++i) {
    CheckExpression(schema.materialized_views[i].query,
                    ExpressionKind::Query,
                    item(where, "materialized_views", i) + ".query");
  }
  for (std::size_t i = 0; i < schema.synonyms.size(); ++i)
    checkName(schema.synonyms[i].dblink, item(where, "synonyms", i) + ".dblink", true);
  for (std::size_t i = 0; i < schema.triggers.size(); ++i) {
    const Trigger& t = schema.triggers[i];
    CheckExpression(t.when, ExpressionKind::Expression, item(where, "triggers", i) + ".when");
    CheckExpression(t.body, ExpressionKind::Block, item(where, "triggers", i) + ".body");
  }
}

}  // namespace qarvelt::model
