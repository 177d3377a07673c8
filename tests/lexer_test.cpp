// The SQL tokenizer: kinds, texts, values and positions of tokens, and the errors with their place.
#include <gtest/gtest.h>

#include <qarvelt/ddl/lexer.h>

#include <cctype>
#include <string>
#include <vector>

using namespace qarvelt::ddl;

namespace {

using K = TokenKind;

// A token as a case expects it: kind, text and (when not empty) value.
struct Want {
  TokenKind kind;
  std::string text;
  std::string value = "";
};

struct Case {
  const char* name;
  std::string input;
  std::vector<Want> tokens;  // EndOfInput left out
};

std::vector<Token> lex(const std::string& text) {
  return Tokenize(text);
}

class Tokens : public ::testing::TestWithParam<Case> {};

TEST_P(Tokens, KindsTextsAndValues) {
  const Case& c = GetParam();
  const std::vector<Token> got = lex(c.input);
  ASSERT_EQ(got.size(), c.tokens.size() + 1) << c.input;
  for (std::size_t i = 0; i < c.tokens.size(); ++i) {
    EXPECT_EQ(TokenKindName(got[i].kind), std::string(TokenKindName(c.tokens[i].kind)))
        << c.input << " #" << i;
    EXPECT_EQ(got[i].text, c.tokens[i].text) << c.input << " #" << i;
    if (!c.tokens[i].value.empty()) {
      EXPECT_EQ(got[i].value, c.tokens[i].value) << c.input << " #" << i;
    }
    // The text of a token is exactly the source between its positions.
    EXPECT_EQ(c.input.substr(got[i].start.offset, got[i].end.offset - got[i].start.offset), got[i].text);
  }
  EXPECT_TRUE(got.back().Is(K::EndOfInput));
}

INSTANTIATE_TEST_SUITE_P(
    Lexer,
    Tokens,
    ::testing::Values(
        Case{"identifiers",
             "emp.Sal_1 $IF $$plsql_unit x#y",
             {{K::Identifier, "emp", "EMP"},
              {K::Operator, "."},
              {K::Identifier, "Sal_1", "SAL_1"},
              {K::Identifier, "$IF", "$IF"},
              {K::Identifier, "$$plsql_unit", "$$PLSQL_UNIT"},
              {K::Identifier, "x#y", "X#Y"}}},
        Case{"quoted identifiers",
             R"("Mixed"+1 "a""b")",
             {{K::QuotedIdentifier, "\"Mixed\"", "Mixed"},
              {K::Operator, "+"},
              {K::Number, "1"},
              {K::QuotedIdentifier, R"("a""b")", "a\"b"}}},
        Case{"numbers",
             "123 1.5 .5 1e10 2.5E-3 1.5f 10D 1. 1..10 1desc",
             {{K::Number, "123"},
              {K::Number, "1.5"},
              {K::Number, ".5"},
              {K::Number, "1e10"},
              {K::Number, "2.5E-3"},
              {K::Number, "1.5f"},
              {K::Number, "10D"},
              {K::Number, "1."},
              {K::Number, "1"},
              {K::Operator, ".."},
              {K::Number, "10"},
              {K::Number, "1"},
              {K::Identifier, "desc"}}},
        Case{"strings",
             "'it''s' N'n' n'' 'a;b -- c'",
             {{K::String, "'it''s'", "it's"},
              {K::String, "N'n'", "n"},
              {K::String, "n''"},
              {K::String, "'a;b -- c'", "a;b -- c"}}},
        Case{"alternative quoting",
             "q'[a;b]' Q'{x}y}' q'<'>' q'(()' q'!it's!' nq'#/#' q'[]]'",
             {{K::String, "q'[a;b]'", "a;b"},
              {K::String, "Q'{x}y}'", "x}y"},
              {K::String, "q'<'>'", "'"},
              {K::String, "q'(()'", "("},
              {K::String, "q'!it's!'", "it's"},
              {K::String, "nq'#/#'", "/"},
              {K::String, "q'[]]'", "]"}}},
        Case{"operators",
             "a||b := => ** != <> ^= ~= <= >= < > @ ; , ( ) % << >> ..",
             {{K::Identifier, "a"}, {K::Operator, "||"}, {K::Identifier, "b"}, {K::Operator, ":="},
              {K::Operator, "=>"},  {K::Operator, "**"}, {K::Operator, "!="},  {K::Operator, "<>"},
              {K::Operator, "^="},  {K::Operator, "~="}, {K::Operator, "<="},  {K::Operator, ">="},
              {K::Operator, "<"},   {K::Operator, ">"},  {K::Operator, "@"},   {K::Operator, ";"},
              {K::Operator, ","},   {K::Operator, "("},  {K::Operator, ")"},   {K::Operator, "%"},
              {K::Operator, "<<"},  {K::Operator, ">>"}, {K::Operator, ".."}}},
        Case{"bind variables",
             ":new.id := :1 + :\"Q\" ? a : b",
             {{K::BindVariable, ":new", "new"},
              {K::Operator, "."},
              {K::Identifier, "id"},
              {K::Operator, ":="},
              {K::BindVariable, ":1", "1"},
              {K::Operator, "+"},
              {K::BindVariable, ":\"Q\"", "Q"},
              {K::Operator, "?"},
              {K::Identifier, "a"},
              {K::Operator, ":"},
              {K::Identifier, "b"}}},
        Case{"comments are tokens",
             "a -- one\n/* two\n */ b /*+ hint */ c--",
             {{K::Identifier, "a"},
              {K::LineComment, "-- one"},
              {K::BlockComment, "/* two\n */"},
              {K::Identifier, "b"},
              {K::BlockComment, "/*+ hint */"},
              {K::Identifier, "c"},
              {K::LineComment, "--"}}},
        Case{"slash lines and division",
             "a / b\n/\n  /  \r\nc\n/x\n/",
             {{K::Identifier, "a"},
              {K::Operator, "/"},
              {K::Identifier, "b"},
              {K::SlashLine, "/"},
              {K::SlashLine, "/"},
              {K::Identifier, "c"},
              {K::Operator, "/"},
              {K::Identifier, "x"},
              {K::SlashLine, "/"}}},
        Case{"a slash after a comment is not a slash line",
             "/* c */ /\n",
             {{K::BlockComment, "/* c */"}, {K::Operator, "/"}}},
        Case{"literals that hold a slash line stay literals", "'a\n/\nb'", {{K::String, "'a\n/\nb'"}}},
        Case{"interval and date literals are words and strings",
             "INTERVAL '1' MONTH DATE '2020-01-01'",
             {{K::Identifier, "INTERVAL"},
              {K::String, "'1'"},
              {K::Identifier, "MONTH"},
              {K::Identifier, "DATE"},
              {K::String, "'2020-01-01'"}}}),
    [](const ::testing::TestParamInfo<Case>& info) {
      std::string name;
      for (const char* p = info.param.name; *p != '\0'; ++p)
        name += std::isalnum(static_cast<unsigned char>(*p)) != 0 ? *p : '_';
      return name;
    });

TEST(Lexer, PositionsAreOneBasedLinesAndCharacterColumns) {
  const std::vector<Token> t = lex("SELECT\n  \"Ä\" ,x\n\tFROM");
  ASSERT_EQ(t.size(), 6U);
  EXPECT_EQ(t[0].start.line, 1);
  EXPECT_EQ(t[0].start.column, 1);
  EXPECT_EQ(t[0].end.column, 7);
  EXPECT_EQ(t[1].start.line, 2);
  EXPECT_EQ(t[1].start.column, 3);
  EXPECT_EQ(t[1].start.offset, 9U);
  EXPECT_EQ(t[2].start.column, 7);  // Ä is two bytes, one column
  EXPECT_EQ(t[2].start.offset, 14U);
  EXPECT_EQ(t[4].start.line, 3);
  EXPECT_EQ(t[4].start.column, 2);
  EXPECT_EQ(t[5].start.offset, 22U);  // end of input: the end of the text
}

TEST(Lexer, WordsAreComparedFoldedAndQuotedNamesAreNotKeywords) {
  const std::vector<Token> t = lex("begin \"BEGIN\"");
  EXPECT_TRUE(t[0].IsWord("BEGIN"));
  EXPECT_FALSE(t[1].IsWord("BEGIN"));
  EXPECT_FALSE(Tokenize("a -- c", false)[1].IsComment());
}

struct Bad {
  std::string input;
  int line, column;
  std::string message;  // a part of it
};

TEST(Lexer, UnclosedConstructsAreErrorsAtTheirStart) {
  const std::vector<Bad> cases = {
      {"x = 'abc", 1, 5, "string literal is not closed"},
      {"x = 'it''s", 1, 5, "string literal is not closed"},
      {"a\n  N'abc", 2, 3, "string literal is not closed"},
      {"q'[abc]", 1, 1, "no ]' before"},
      {"q'[abc'", 1, 1, "no ]' before"},
      {"q' x '", 1, 1, "delimiter"},
      {"q'", 1, 1, "not closed"},
      {"select \"Abc", 1, 8, "quoted identifier is not closed"},
      {"\"\"", 1, 1, "at least one character"},
      {"a /* b\n c", 1, 3, "comment is not closed"},
      {"a\n\n   b \\ c", 3, 6, "unexpected character '\\'"},
      {"a `b`", 1, 3, "unexpected character '`'"},
      {std::string("a\0b", 3), 1, 2, "0x00"},
      {":\"x", 1, 1, "quoted identifier is not closed"},
  };
  for (const Bad& b : cases) {
    try {
      Tokenize(b.input);
      ADD_FAILURE() << "no error for " << b.input;
    } catch (const LexError& e) {
      EXPECT_EQ(e.position().line, b.line) << b.input;
      EXPECT_EQ(e.position().column, b.column) << b.input;
      EXPECT_NE(e.message().find(b.message), std::string::npos) << b.input << ": " << e.message();
      EXPECT_NE(std::string(e.what()).find("line " + std::to_string(b.line)), std::string::npos);
    }
  }
}

TEST(Lexer, AfterAnErrorReadingGoesOnOrEnds) {
  Lexer lexer("a \\ b 'c");
  EXPECT_TRUE(lexer.Next().IsWord("A"));
  EXPECT_TRUE(lexer.Next().Is(K::Error));
  EXPECT_TRUE(lexer.Next().IsWord("B"));
  const Token unclosed = lexer.Next();
  EXPECT_TRUE(unclosed.Is(K::Error));
  EXPECT_EQ(unclosed.text, "'c");
  EXPECT_TRUE(lexer.Next().Is(K::EndOfInput));
  EXPECT_TRUE(lexer.Next().Is(K::EndOfInput));
}

TEST(Lexer, NoInputBreaksIt) {
  // Every prefix of a text full of constructs ends in EndOfInput, with positions in order.
  const std::string text =
      "CREATE TABLE \"T\" (A NUMBER DEFAULT q'[x]' /* c */, B DATE) -- d\n/\n:b nq'{y}' 1.5e-3";
  for (std::size_t n = 0; n <= text.size(); ++n) {
    Lexer lexer(std::string_view(text).substr(0, n));
    std::size_t last = 0;
    for (int guard = 0; guard < 200; ++guard) {
      const Token t = lexer.Next();
      ASSERT_GE(t.start.offset, last);
      ASSERT_LE(t.end.offset, n);
      last = t.end.offset;
      if (t.Is(K::EndOfInput)) break;
    }
  }
}

}  // namespace
