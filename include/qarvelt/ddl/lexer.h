// A tokenizer of Oracle SQL and PL/SQL text, the first stage of reading DDL scripts.
//
// Keywords are not told apart from identifiers: which words are keywords depends on where they
// stand, so that is the parser's call (Token::IsWord compares a plain identifier with a keyword).
// Comments are tokens of their own, so that a caller can see, keep or skip them; blanks between
// tokens are not tokens, but every token carries where it starts and ends.
//
//   using namespace qarvelt::ddl;
//   Lexer lexer("SELECT q'[a;b]' FROM dual -- note\n");
//   for (Token t = lexer.Next(); !t.Is(TokenKind::EndOfInput); t = lexer.Next()) ...
//
// or, with the tokens in a vector and the first error thrown:
//
//   std::vector<Token> tokens = Tokenize(text);   // throws LexError
#ifndef QARVELT_DDL_LEXER_H
#define QARVELT_DDL_LEXER_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qarvelt::ddl {

enum class TokenKind {
  Identifier,        // a plain identifier or keyword: EMP, sys_guid, $IF, $$PLSQL_UNIT
  QuotedIdentifier,  // "Mixed Case"
  Number,            // 123, 1.5, .5, 1e10, 2.5E-3, 1.5f, 10D
  String,            // 'it''s', N'...', q'[...]', nq'{...}'
  Operator,          // punctuation and operators: ( ) , ; . @ || := => ** != <> <= ..
  BindVariable,      // :name, :1, :"Name"
  LineComment,       // -- up to the end of the line (the line break is not part of it)
  BlockComment,      // /* ... */, optimizer hints /*+ ... */ included
  SlashLine,         // a line holding only "/" (and blanks): SQL*Plus runs the buffer there
  EndOfInput,        // after the last token; its position is the end of the text
  Error,             // text that cannot be read; value holds the message
};

// The name of a kind, for messages and tests: "identifier", "string literal", ...
const char* TokenKindName(TokenKind kind);

struct SourcePosition {
  std::size_t offset = 0;  // bytes from the start of the text
  int line = 1;            // 1-based
  int column = 1;          // 1-based, in characters: a UTF-8 sequence counts once, a tab once
};

struct Token {
  TokenKind kind = TokenKind::EndOfInput;
  // Exactly as written, prefixes, quotes and delimiters included.
  std::string text;
  // What the token means:
  //   Identifier        the name in upper case, as Oracle folds a name written without quotes
  //   QuotedIdentifier  the name between the quotes, "" taken as one "
  //   String            the characters of the literal: '' taken as one ', q delimiters removed
  //   BindVariable      the name after the colon (for :"Name", without the quotes)
  //   Error             the message
  //   any other kind    the same as text
  std::string value;
  SourcePosition start;   // the first character
  SourcePosition end;     // just after the last character
  bool national = false;  // a String written N'...' or NQ'...'

  bool Is(TokenKind k) const { return kind == k; }
  // An Operator token with this text: t.IsOperator("(").
  bool IsOperator(std::string_view op) const { return kind == TokenKind::Operator && text == op; }
  // A plain identifier that folds to `word` (given in upper case): t.IsWord("BEGIN"). A quoted
  // identifier never matches: "BEGIN" is a name, not the keyword.
  bool IsWord(std::string_view word) const { return kind == TokenKind::Identifier && value == word; }
  // A comment: tokens a parser usually skips.
  bool IsComment() const { return kind == TokenKind::LineComment || kind == TokenKind::BlockComment; }
};

// Reads tokens one at a time from a text it does not copy: the text must outlive the lexer.
class Lexer {
 public:
  explicit Lexer(std::string_view text);

  // The next token. After the last one, EndOfInput, again on every call. A string, quoted
  // identifier or comment that is not closed gives an Error token that starts where it starts
  // and runs to the end of the text; an unexpected character gives an Error token of that
  // character, and reading goes on after it.
  Token Next();

  // Where the next token will be looked for.
  const SourcePosition& Position() const { return m_at; }

 private:
  char peek(std::size_t ahead = 0) const;
  void advance(std::size_t count = 1);
  bool restOfLineBlank(std::size_t from) const;
  Token make(TokenKind kind, const SourcePosition& start, std::string value);
  Token error(const SourcePosition& start, const std::string& message);
  void skipBlanks();
  Token identifier(const SourcePosition& start);
  Token quotedIdentifier(const SourcePosition& start);
  Token number(const SourcePosition& start);
  Token string(const SourcePosition& start, std::size_t prefix, bool national);
  Token alternativeString(const SourcePosition& start, std::size_t prefix, bool national);
  Token bindVariable(const SourcePosition& start);
  Token lineComment(const SourcePosition& start);
  Token blockComment(const SourcePosition& start);
  Token operatorToken(const SourcePosition& start);

  std::string_view m_text;
  SourcePosition m_at;
  bool m_lineStart = true;  // only blanks since the start of the line
};

// A text that cannot be read: the place and what is wrong. what() is
// "line L, column C: message".
class LexError : public std::runtime_error {
 public:
  LexError(const SourcePosition& position, const std::string& message);
  const SourcePosition& position() const { return m_position; }
  const std::string& message() const { return m_message; }

 private:
  SourcePosition m_position;
  std::string m_message;
};

// Every token of `text`, EndOfInput last; comments left out when `keepComments` is false. Throws
// LexError at the first Error token.
std::vector<Token> Tokenize(std::string_view text, bool keepComments = true);

}  // namespace qarvelt::ddl

#endif  // QARVELT_DDL_LEXER_H
