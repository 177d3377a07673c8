#include "parser.h"

#include "qarvelt/model/error.h"

namespace qarvelt::ddl {

std::string Describe(const Token& t) {
  if (t.Is(TokenKind::EndOfInput)) return "the end of the statement";
  return "\"" + t.text + "\"";
}

bool Parser::AreWords(std::initializer_list<std::string_view> words) const {
  std::size_t ahead = 0;
  for (std::string_view w : words) {
    if (!Peek(ahead++).IsWord(w)) return false;
  }
  return true;
}

bool Parser::Accept(std::string_view word) {
  if (!IsWord(word)) return false;
  Take();
  return true;
}

bool Parser::AcceptWords(std::initializer_list<std::string_view> words) {
  if (!AreWords(words)) return false;
  for (std::size_t i = 0; i < words.size(); ++i)
    Take();
  return true;
}

bool Parser::AcceptOp(std::string_view op) {
  if (!IsOp(op)) return false;
  Take();
  return true;
}

void Parser::Expect(std::string_view word) {
  if (!Accept(word)) Fail(std::string(word));
}

void Parser::ExpectOp(std::string_view op) {
  if (!AcceptOp(op)) Fail("\"" + std::string(op) + "\"");
}

std::string Parser::ExpectOneOf(std::initializer_list<std::string_view> words) {
  for (std::string_view w : words) {
    if (Accept(w)) return std::string(w);
  }
  std::string list;
  for (std::string_view w : words)
    list += (list.empty() ? "" : ", ") + std::string(w);
  Fail("one of " + list);
}

std::string Parser::Identifier(const char* what) {
  const Token& t = Peek();
  if (!t.Is(TokenKind::Identifier) && !t.Is(TokenKind::QuotedIdentifier)) Fail(what);
  return Take().value;
}

Name Parser::QualifiedName(const char* what) {
  Name n;
  n.name = Identifier(what);
  if (IsOp(".")) {
    Take();
    n.schema = n.name;
    n.name = Identifier(what);
  }
  return n;
}

std::string Parser::Integer(const char* what) {
  std::string sign;
  if (IsOp("-") || IsOp("+")) sign = Take().text == "-" ? "-" : "";
  const Token& t = Peek();
  if (!t.Is(TokenKind::Number) || t.text.find_first_not_of("0123456789") != std::string::npos) Fail(what);
  return sign + Take().text;
}

int Parser::Count(const char* what, int most) {
  const Token& at = Peek();
  const std::string text = Integer(what);
  const long long value = text[0] == '-' || text.size() > 9 ? 0 : std::stoll(text);
  if (value < 1 || value > most)
    FailAt(at, std::string(what) + " from 1 to " + std::to_string(most) + ", found " + text);
  return static_cast<int>(value);
}

std::string Parser::Size() {
  if (!Peek().Is(TokenKind::Number)) Fail("a size");
  const Token& number = Take();
  std::string text = number.text;
  // 64K: the unit is a word written right after the number.
  const Token& unit = Peek();
  if (unit.Is(TokenKind::Identifier) && unit.start.offset == number.end.offset && unit.value.size() == 1 &&
      std::string_view("KMGTPE").find(unit.value[0]) != std::string_view::npos) {
    text += Take().value;
  }
  return text;
}

std::string Parser::String(const char* what) {
  if (!Peek().Is(TokenKind::String)) Fail(what);
  return Take().value;
}

std::vector<std::string> Parser::NameList() {
  std::vector<std::string> names;
  ExpectOp("(");
  do {
    names.push_back(Identifier("a column name"));
  } while (AcceptOp(","));
  ExpectOp(")");
  return names;
}

std::string Parser::slice(std::size_t from, std::size_t to, bool keepComments) const {
  if (from >= to) return "";
  const std::size_t begin = m_s.tokens[from].start.offset, end = m_s.tokens[to - 1].end.offset;
  std::string text;
  std::size_t at = begin;
  for (const Token& c : m_s.comments) {
    if (keepComments || c.start.offset < begin || c.end.offset > end) continue;
    if (c.Is(TokenKind::BlockComment) && c.text.rfind("/*+", 0) == 0) continue;
    text.append(m_s.text.substr(at, c.start.offset - at));
    text += ' ';
    at = c.end.offset;
  }
  text.append(m_s.text.substr(at, end - at));
  return text;
}

std::string Parser::Expression(std::initializer_list<std::string_view> stops, const char* what) {
  const std::size_t from = m_at;
  SkipClause(stops);
  if (m_at == from) Fail(what);
  return slice(from, m_at);
}

std::string Parser::Rest(const char* what, bool keepComments) {
  const std::size_t from = m_at;
  while (!AtEnd())
    Take();
  if (m_at == from) Fail(what);
  return slice(from, m_at, keepComments);
}

void Parser::SkipClause(std::initializer_list<std::string_view> stops) {
  int depth = 0;
  while (!AtEnd()) {
    const Token& t = Peek();
    if (depth == 0) {
      if (t.IsOperator(",") || t.IsOperator(")")) return;
      for (std::string_view stop : stops) {
        if (t.IsWord(stop)) return;
      }
    }
    if (t.IsOperator("(")) ++depth;
    if (t.IsOperator(")")) --depth;
    Take();
  }
}

void Parser::SkipBrackets() {
  if (!IsOp("(")) return;
  int depth = 0;
  do {
    const Token& t = Take();
    if (t.IsOperator("(")) ++depth;
    if (t.IsOperator(")")) --depth;
  } while (depth > 0 && !AtEnd());
  if (depth > 0) Fail("\")\"");
}

std::string Parser::Where(const Token& t) const {
  return m_s.source + ":" + std::to_string(t.start.line) + ":" + std::to_string(t.start.column);
}

void Parser::Fail(const std::string& expected) const {
  FailAt(Peek(), "expected " + expected + ", found " + Describe(Peek()));
}

void Parser::FailAt(const Token& at, const std::string& message) const {
  throw model::Error(model::ErrorKind::BadInput, Where(at), message);
}

void Parser::Warn(const Token& at, const std::string& message) const {
  m_report.warnings.push_back(Where(at) + ": " + message);
}

void Parser::Note(const Token& at, const std::string& message) const {
  m_report.notes.push_back(Where(at) + ": " + message);
}

}  // namespace qarvelt::ddl
