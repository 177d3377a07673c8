#include "qarvelt/ddl/lexer.h"

#include <cstring>

namespace qarvelt::ddl {

namespace {

bool isLetter(char c) {
  const auto u = static_cast<unsigned char>(c);
  // Bytes of multi-byte UTF-8 sequences count as letters: Oracle takes letters of the database
  // character set in names written without quotes.
  return (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || u >= 0x80;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isNameChar(char c) {
  return isLetter(c) || isDigit(c) || c == '_' || c == '$' || c == '#';
}

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v';
}

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// The closing delimiter of q'X...X': the bracket that closes an opening one, else X itself.
char closingDelimiter(char open) {
  switch (open) {
    case '[':
      return ']';
    case '{':
      return '}';
    case '<':
      return '>';
    case '(':
      return ')';
    default:
      return open;
  }
}

// Operators of two characters, looked for before the single ones.
constexpr const char* kPairs[] = {
    ":=", "=>", "||", "**", "!=", "<>", "^=", "~=", "<=", ">=", "..", "<<", ">>"};
// Single characters that stand alone as operators or punctuation.
constexpr const char* kSingles = "()[]{},;.@+-*/%=<>!^~|?&:$";

}  // namespace

const char* TokenKindName(TokenKind kind) {
  switch (kind) {
    case TokenKind::Identifier:
      return "identifier";
    case TokenKind::QuotedIdentifier:
      return "quoted identifier";
    case TokenKind::Number:
      return "number";
    case TokenKind::String:
      return "string literal";
    case TokenKind::Operator:
      return "operator";
    case TokenKind::BindVariable:
      return "bind variable";
    case TokenKind::LineComment:
      return "line comment";
    case TokenKind::BlockComment:
      return "block comment";
    case TokenKind::SlashLine:
      return "slash line";
    case TokenKind::EndOfInput:
      return "end of input";
    case TokenKind::Error:
      return "error";
  }
  return "?";
}

Lexer::Lexer(std::string_view text) : m_text(text) {}

char Lexer::peek(std::size_t ahead) const {
  const std::size_t at = m_at.offset + ahead;
  return at < m_text.size() ? m_text[at] : '\0';
}

void Lexer::advance(std::size_t count) {
  for (std::size_t i = 0; i < count && m_at.offset < m_text.size(); ++i) {
    const auto c = static_cast<unsigned char>(m_text[m_at.offset++]);
    if (c == '\n') {
      ++m_at.line;
      m_at.column = 1;
      m_lineStart = true;
    } else if (c < 0x80 || c >= 0xC0) {
      // Continuation bytes of a UTF-8 sequence (0x80 to 0xBF) do not start a character.
      ++m_at.column;
      if (!isBlank(static_cast<char>(c))) m_lineStart = false;
    }
  }
}

bool Lexer::restOfLineBlank(std::size_t from) const {
  for (std::size_t i = from; i < m_text.size() && m_text[i] != '\n'; ++i) {
    if (!isBlank(m_text[i])) return false;
  }
  return true;
}

Token Lexer::make(TokenKind kind, const SourcePosition& start, std::string value) {
  Token t;
  t.kind = kind;
  t.text = std::string(m_text.substr(start.offset, m_at.offset - start.offset));
  t.value = kind == TokenKind::Operator || kind == TokenKind::Number || kind == TokenKind::LineComment ||
                    kind == TokenKind::BlockComment || kind == TokenKind::SlashLine
                ? t.text
                : std::move(value);
  t.start = start;
  t.end = m_at;
  return t;
}

Token Lexer::error(const SourcePosition& start, const std::string& message) {
  return make(TokenKind::Error, start, message);
}

void Lexer::skipBlanks() {
  while (m_at.offset < m_text.size() && (isBlank(peek()) || peek() == '\n'))
    advance();
}

Token Lexer::Next() {
  skipBlanks();
  const SourcePosition start = m_at;
  if (m_at.offset >= m_text.size()) return make(TokenKind::EndOfInput, start, "");
  const char c = peek();
  const char u = upper(c);
  // String literals with a prefix: N'...', Q'X...X', NQ'X...X'.
  if (u == 'N' && peek(1) == '\'') return string(start, 1, true);
  if (u == 'Q' && peek(1) == '\'') return alternativeString(start, 2, false);
  if (u == 'N' && upper(peek(1)) == 'Q' && peek(2) == '\'') return alternativeString(start, 3, true);
  if (isLetter(c)) return identifier(start);
  // Conditional compilation: $IF, $THEN, $END ..., and inquiry directives $$NAME.
  if (c == '$' && (isLetter(peek(1)) || (peek(1) == '$' && isLetter(peek(2))))) return identifier(start);
  if (isDigit(c) || (c == '.' && isDigit(peek(1)))) return number(start);
  if (c == '\'') return string(start, 0, false);
  if (c == '"') return quotedIdentifier(start);
  if (c == '-' && peek(1) == '-') return lineComment(start);
  if (c == '/' && peek(1) == '*') return blockComment(start);
  if (c == '/' && m_lineStart && restOfLineBlank(m_at.offset + 1)) {
    advance();
    return make(TokenKind::SlashLine, start, "");
  }
  if (c == ':' && peek(1) != '=' && (isNameChar(peek(1)) || peek(1) == '"')) return bindVariable(start);
  return operatorToken(start);
}

Token Lexer::identifier(const SourcePosition& start) {
  std::string folded;
  while (peek() == '$') {  // the directive marks of $IF and $$NAME
    folded += '$';
    advance();
  }
  while (m_at.offset < m_text.size() && isNameChar(peek())) {
    folded += upper(peek());
    advance();
  }
  return make(TokenKind::Identifier, start, folded);
}

Token Lexer::quotedIdentifier(const SourcePosition& start) {
  advance();  // "
  std::string name;
  while (m_at.offset < m_text.size()) {
    const char c = peek();
    if (c == '"' && peek(1) == '"') {
      name += '"';
      advance(2);
    } else if (c == '"') {
      advance();
      if (name.empty()) return error(start, "a quoted identifier needs at least one character");
      return make(TokenKind::QuotedIdentifier, start, name);
    } else {
      name += c;
      advance();
    }
  }
  return error(start, "the quoted identifier is not closed: no \" before the end of the text");
}

Token Lexer::number(const SourcePosition& start) {
  while (isDigit(peek()))
    advance();
  // A point belongs to the number unless it starts "..", the range operator of PL/SQL: 1..10.
  if (peek() == '.' && peek(1) != '.') {
    advance();
    while (isDigit(peek()))
      advance();
  }
  if (upper(peek()) == 'E' &&
      (isDigit(peek(1)) || ((peek(1) == '+' || peek(1) == '-') && isDigit(peek(2))))) {
    advance(2);
    while (isDigit(peek()))
      advance();
  }
  // BINARY_FLOAT and BINARY_DOUBLE literals: 1.5f, 2D; not the start of a word (1desc).
  if ((upper(peek()) == 'F' || upper(peek()) == 'D') && !isNameChar(peek(1))) advance();
  return make(TokenKind::Number, start, "");
}

Token Lexer::string(const SourcePosition& start, std::size_t prefix, bool national) {
  advance(prefix + 1);  // N and the opening quote
  std::string value;
  while (m_at.offset < m_text.size()) {
    const char c = peek();
    if (c == '\'' && peek(1) == '\'') {
      value += '\'';
      advance(2);
    } else if (c == '\'') {
      advance();
      Token t = make(TokenKind::String, start, value);
      t.national = national;
      return t;
    } else {
      value += c;
      advance();
    }
  }
  return error(start, "the string literal is not closed: no ' before the end of the text");
}

Token Lexer::alternativeString(const SourcePosition& start, std::size_t prefix, bool national) {
  advance(prefix);  // [N]Q and the opening quote
  const char open = peek();
  if (m_at.offset >= m_text.size()) return error(start, "the q-quoted literal is not closed");
  if (isBlank(open) || open == '\n')
    return error(start, "a q-quoted literal needs a delimiter right after q', not a blank");
  const char close = closingDelimiter(open);
  advance();
  std::string value;
  while (m_at.offset < m_text.size()) {
    if (peek() == close && peek(1) == '\'') {
      advance(2);
      Token t = make(TokenKind::String, start, value);
      t.national = national;
      return t;
    }
    value += peek();
    advance();
  }
  return error(
      start, std::string("the q-quoted literal is not closed: no ") + close + "' before the end of the text");
}

Token Lexer::bindVariable(const SourcePosition& start) {
  advance();  // :
  if (peek() == '"') {
    const Token quoted = quotedIdentifier(m_at);
    if (quoted.Is(TokenKind::Error)) return error(start, quoted.value);
    return make(TokenKind::BindVariable, start, quoted.value);
  }
  std::string name;
  while (isNameChar(peek())) {
    name += peek();
    advance();
  }
  return make(TokenKind::BindVariable, start, name);
}

Token Lexer::lineComment(const SourcePosition& start) {
  while (m_at.offset < m_text.size() && peek() != '\n')
    advance();
  return make(TokenKind::LineComment, start, "");
}

Token Lexer::blockComment(const SourcePosition& start) {
  advance(2);
  while (m_at.offset < m_text.size()) {
    if (peek() == '*' && peek(1) == '/') {
      advance(2);
      return make(TokenKind::BlockComment, start, "");
    }
    advance();
  }
  return error(start, "the comment is not closed: no */ before the end of the text");
}

Token Lexer::operatorToken(const SourcePosition& start) {
  for (const char* pair : kPairs) {
    if (peek() == pair[0] && peek(1) == pair[1]) {
      advance(2);
      return make(TokenKind::Operator, start, "");
    }
  }
  const char c = peek();
  if (c != '\0' && std::strchr(kSingles, c) != nullptr) {
    advance();
    return make(TokenKind::Operator, start, "");
  }
  // Anything else (a control character, a backslash, a backtick, a lone #) is read as one
  // character, with the whole UTF-8 sequence if it starts one.
  advance();
  std::string shown;
  const auto u = static_cast<unsigned char>(c);
  if (u < 0x20 || u == 0x7F) {
    static const char* digits = "0123456789ABCDEF";
    shown = std::string("character 0x") + digits[u >> 4] + digits[u & 0xF];
  } else {
    shown = std::string("character '") + c + "'";
  }
  return error(start, "unexpected " + shown);
}

LexError::LexError(const SourcePosition& position, const std::string& message)
    : std::runtime_error("line " + std::to_string(position.line) + ", column " +
                         std::to_string(position.column) + ": " + message),
      m_position(position),
      m_message(message) {}

std::vector<Token> Tokenize(std::string_view text, bool keepComments) {
  std::vector<Token> tokens;
  Lexer lexer(text);
  for (;;) {
    Token t = lexer.Next();
    if (t.Is(TokenKind::Error)) throw LexError(t.start, t.value);
    if (!keepComments && t.IsComment()) continue;
    const bool last = t.Is(TokenKind::EndOfInput);
    tokens.push_back(std::move(t));
    if (last) return tokens;
  }
}

}  // namespace qarvelt::ddl
