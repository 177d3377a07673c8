#include "qarvelt/util/sqlplus.h"

#include <cctype>
#include <vector>

namespace qarvelt {

namespace {

bool isBlank(char c) {
  return std::isspace(static_cast<unsigned char>(c)) != 0;
}

// The first `count` words of the text, in upper case. A word ends at a blank or at a character that
// cannot be part of a name ("(", ";", a quote), so that CREATE TYPE T;, BEGIN(... and the like split
// as Oracle reads them.
std::vector<std::string> firstWords(const std::string& text, std::size_t count) {
  std::vector<std::string> words;
  std::size_t i = 0;
  while (words.size() < count) {
    while (i < text.size() && isBlank(text[i]))
      ++i;
    if (i == text.size()) break;
    std::string word;
    while (i < text.size()) {
      const unsigned char c = static_cast<unsigned char>(text[i]);
      if (!(std::isalnum(c) || c == '_' || c == '$' || c == '#')) break;
      word += static_cast<char>(std::toupper(c));
      ++i;
    }
    if (word.empty()) break;
    words.push_back(word);
  }
  return words;
}

}  // namespace

bool IsPLSQLUnit(const std::string& statement) {
  const std::vector<std::string> words = firstWords(statement, 8);
  if (words.empty()) return false;
  if (words[0] == "DECLARE" || words[0] == "BEGIN") return true;
  if (words[0] != "CREATE") return false;
  std::size_t i = 1;
  auto at = [&words](std::size_t k, const char* word) { return k < words.size() && words[k] == word; };
  if (at(i, "OR") && at(i + 1, "REPLACE")) i += 2;
  if (at(i, "EDITIONABLE") || at(i, "NONEDITIONABLE")) ++i;
  // CREATE [OR REPLACE] [AND RESOLVE | AND COMPILE] [NOFORCE] JAVA ...; a NOFORCE VIEW is SQL.
  if (at(i, "AND")) i += 2;
  if (at(i, "NOFORCE")) ++i;
  for (const char* kind : {"TRIGGER", "TYPE", "LIBRARY", "PROCEDURE", "FUNCTION", "PACKAGE", "JAVA"}) {
    if (at(i, kind)) return true;
  }
  return false;
}

std::string TerminateStatement(const std::string& statement, SQLTerminator terminator) {
  std::string text = statement;
  while (!text.empty() && isBlank(text.back()))
    text.pop_back();
  switch (terminator) {
    case SQLTerminator::Semicolon:
      return text + (IsPLSQLUnit(text) ? "\n/\n" : ";\n");
    case SQLTerminator::Slash:
      return text + "\n/\n";
    case SQLTerminator::None:
      break;
  }
  return text + "\n";
}

}  // namespace qarvelt
