// The cursor the statement readers share: the tokens of one statement (comments left out), the
// text they came from for the parts kept as written (expressions, queries, bodies), and the words
// of recursive descent: peek, accept, expect, names, numbers and balanced expressions. Used inside
// the library only.
#ifndef QARVELT_SRC_DDL_PARSER_H
#define QARVELT_SRC_DDL_PARSER_H

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "qarvelt/ddl/lexer.h"
#include "qarvelt/ddl/reader.h"

namespace qarvelt::ddl {

// One statement of a script: its tokens without comments, EndOfInput last (at the terminator).
struct Statement {
  std::vector<Token> tokens;
  std::vector<Token> comments;  // the comments among them, in order
  std::string_view text;        // the whole script, which token offsets index
  std::string source;
};

// A name as the schema records it: an identifier written without quotes in upper case, a quoted
// one exactly as written.
struct Name {
  std::string schema, name;
};

class Parser {
 public:
  Parser(const Statement& statement, ReadReport& report) : m_s(statement), m_report(report) {}

  const Token& Peek(std::size_t ahead = 0) const {
    const std::size_t at = m_at + ahead;
    return m_s.tokens[at < m_s.tokens.size() ? at : m_s.tokens.size() - 1];
  }
  bool AtEnd() const { return Peek().Is(TokenKind::EndOfInput); }
  bool IsWord(std::string_view word, std::size_t ahead = 0) const { return Peek(ahead).IsWord(word); }
  bool IsOp(std::string_view op, std::size_t ahead = 0) const { return Peek(ahead).IsOperator(op); }
  // True when the next tokens are these words, in order.
  bool AreWords(std::initializer_list<std::string_view> words) const;

  const Token& Take() {
    const Token& t = Peek();
    if (!AtEnd()) ++m_at;
    return t;
  }
  bool Accept(std::string_view word);
  bool AcceptWords(std::initializer_list<std::string_view> words);
  bool AcceptOp(std::string_view op);
  void Expect(std::string_view word);
  void ExpectOp(std::string_view op);
  // One of the words; the word taken. Fails naming them all.
  std::string ExpectOneOf(std::initializer_list<std::string_view> words);

  // An identifier, quoted or not (a keyword is a name where a name stands).
  std::string Identifier(const char* what = "a name");
  // [schema.]name
  Name QualifiedName(const char* what = "a name");
  // A whole number, optionally signed; its text.
  std::string Integer(const char* what = "a number");
  // A whole number from 1 to `most` (a count of partitions, say), or a fault at its place.
  int Count(const char* what, int most);
  // A size: a number with an optional K, M, G, T, P or E unit (as one token or two).
  std::string Size();
  // A string literal's characters.
  std::string String(const char* what = "a string");
  // (a, b, c): names in brackets.
  std::vector<std::string> NameList();

  // The text of a balanced run of tokens up to a comma, a closing bracket or one of `stops` at
  // depth 0, as written; a comment inside becomes a blank (an optimizer hint /*+ ... */ stays), as
  // an expression of a description holds none. Fails when it is empty.
  std::string Expression(std::initializer_list<std::string_view> stops = {},
                         const char* what = "an expression");
  // The text from the next token to the end of the statement, as written; comments are kept when
  // `keepComments` (a PL/SQL body), else left out as in expressions.
  std::string Rest(const char* what, bool keepComments = false);
  // Skips a balanced run of tokens up to a comma, a closing bracket or one of `stops` at depth 0.
  void SkipClause(std::initializer_list<std::string_view> stops = {});
  // Skips a bracketed group when one comes next.
  void SkipBrackets();

  // Where the parser stands, to come back to it or to take the text between two places.
  std::size_t Mark() const { return m_at; }
  void Seek(std::size_t at) { m_at = at; }
  std::string Text(std::size_t from, std::size_t to) const { return slice(from, to); }

  [[noreturn]] void Fail(const std::string& expected) const;
  [[noreturn]] void FailAt(const Token& at, const std::string& message) const;
  // A place in the script, for messages: "source:line:column".
  std::string Where(const Token& t) const;
  void Warn(const Token& at, const std::string& message) const;
  void Note(const Token& at, const std::string& message) const;

 private:
  std::string slice(std::size_t from, std::size_t to, bool keepComments = false) const;

  const Statement& m_s;
  ReadReport& m_report;
  std::size_t m_at = 0;
};

// A token for messages: `"X"`, or "the end of the statement".
std::string Describe(const Token& t);

}  // namespace qarvelt::ddl

#endif  // QARVELT_SRC_DDL_PARSER_H
