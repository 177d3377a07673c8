// The SQL tokenizer: kinds, texts, values and positions of tokens, and the errors with their place.
#include <gtest/gtest.h>

#include <qarvelt/ddl/lexer.h>

#include <string>
#include <vector>

using namespace qarvelt::ddl;

namespace {

// The tokens as "kind[text]=value" (=value only where it differs from the text), EndOfInput left
// out, joined by blanks.
std::string describe(const std::string& input) {
  std::string out;
  for (const Token& t : Tokenize(input)) {
    if (t.Is(TokenKind::EndOfInput)) break;
    // The text of a token is exactly the source between its positions.
    EXPECT_EQ(input.substr(t.start.offset, t.end.offset - t.start.offset), t.text);
    out += std::string(out.empty() ? "" : " ") + TokenKindName(t.kind) + "[" + t.text + "]";
    if (t.value != t.text) out += "=" + t.value;
  }
  return out;
}

TEST(Lexer, TokensOfEachKind) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"emp.Sal_1 x#y $IF $$plsql_unit",
       "identifier[emp]=EMP operator[.] identifier[Sal_1]=SAL_1 identifier[x#y]=X#Y identifier[$IF] "
       "identifier[$$plsql_unit]=$$PLSQL_UNIT"},
      {R"("Mixed"+1 "a""b")",
       R"(quoted identifier["Mixed"]=Mixed operator[+] number[1] quoted identifier["a""b"]=a"b)"},
      {"123 1.5 .5 1e10 2.5E-3 1.5f 10D 1. 1..10 1desc",
       "number[123] number[1.5] number[.5] number[1e10] number[2.5E-3] number[1.5f] number[10D] number[1.] "
       "number[1] operator[..] number[10] number[1] identifier[desc]=DESC"},
      {"'it''s' N'n' n'' 'a;b -- c'",
       "string literal['it''s']=it's string literal[N'n']=n string literal[n'']= "
       "string literal['a;b -- c']=a;b -- c"},
      {"q'[a;b]' Q'{x}y}' q'<'>' q'(()' q'!it's!' nq'#/#' q'[]]'",
       "string literal[q'[a;b]']=a;b string literal[Q'{x}y}']=x}y string literal[q'<'>']=' "
       "string literal[q'(()']=( string literal[q'!it's!']=it's string literal[nq'#/#']=/ "
       "string literal[q'[]]']=]"},
      {"a||b:=>=**!=<><=^=~=<<x>>=>",
       "identifier[a]=A operator[||] identifier[b]=B operator[:=] operator[>=] operator[**] operator[!=] "
       "operator[<>] operator[<=] operator[^=] operator[~=] operator[<<] identifier[x]=X operator[>>] "
       "operator[=>]"},
      {":new.id := :1 + :\"Q\" ? a : b",
       "bind variable[:new]=new operator[.] identifier[id]=ID operator[:=] bind variable[:1]=1 operator[+] "
       "bind variable[:\"Q\"]=Q operator[?] identifier[a]=A operator[:] identifier[b]=B"},
      {"a -- one\n/* two\n */ b /*+ hint */ c--",
       "identifier[a]=A line comment[-- one] block comment[/* two\n */] identifier[b]=B "
       "block comment[/*+ hint */] identifier[c]=C line comment[--]"},
      // A slash line is a line of its own; a slash after anything else on its line divides.
      {"a / b\n/\n  /  \r\nc\n/x\n/* c */ /\n'a\n/\nb'\n/",
       "identifier[a]=A operator[/] identifier[b]=B slash line[/] slash line[/] identifier[c]=C operator[/] "
       "identifier[x]=X block comment[/* c */] operator[/] string literal['a\n/\nb']=a\n/\nb slash line[/]"},
  };
  for (const auto& [input, tokens] : cases)
    EXPECT_EQ(describe(input), tokens) << input;
}

TEST(Lexer, PositionsAreOneBasedLinesAndCharacterColumns) {
  const std::vector<Token> t = Tokenize("SELECT\n  \"Ä\" ,x\n\tFROM");
  ASSERT_EQ(t.size(), 6U);
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
  const std::vector<Token> t = Tokenize("begin \"BEGIN\"");
  EXPECT_TRUE(t[0].IsWord("BEGIN"));
  EXPECT_FALSE(t[1].IsWord("BEGIN"));
  EXPECT_EQ(Tokenize("a -- c", false).size(), 2U);
}

TEST(Lexer, UnclosedConstructsAreErrorsAtTheirStart) {
  struct Bad {
    std::string input;
    int line, column;
    std::string message;  // a part of it
  };
  const std::vector<Bad> cases = {
      {"x = 'it''s", 1, 5, "string literal is not closed"},
      {"a\n  N'abc", 2, 3, "string literal is not closed"},
      {"q'[abc]", 1, 1, "no ]' before"},
      {"q' x '", 1, 1, "delimiter"},
      {"select \"Abc", 1, 8, "quoted identifier is not closed"},
      {"\"\"", 1, 1, "at least one character"},
      {"a /* b\n c", 1, 3, "comment is not closed"},
      {"a\n\n   b \\ c", 3, 6, "unexpected character '\\'"},
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
    }
  }
}

TEST(Lexer, ReadingGoesOnAfterABadCharacterAndEndsAfterAnUnclosedLiteral) {
  Lexer lexer("a \\ b 'c");
  EXPECT_TRUE(lexer.Next().IsWord("A"));
  EXPECT_TRUE(lexer.Next().Is(TokenKind::Error));
  EXPECT_TRUE(lexer.Next().IsWord("B"));
  EXPECT_EQ(lexer.Next().text, "'c");
  EXPECT_TRUE(lexer.Next().Is(TokenKind::EndOfInput));
  EXPECT_TRUE(lexer.Next().Is(TokenKind::EndOfInput));
}

TEST(Lexer, EveryPrefixOfATextEndsCleanly) {
  const std::string text =
      "CREATE TABLE \"T\" (A NUMBER DEFAULT q'[x]' /* c */, B DATE) -- d\n/\n:b nq'{y}' 1.5e-3";
  for (std::size_t n = 0; n <= text.size(); ++n) {
    Lexer lexer(std::string_view(text).substr(0, n));
    std::size_t last = 0;
    for (Token t = lexer.Next(); !t.Is(TokenKind::EndOfInput); t = lexer.Next()) {
      ASSERT_GE(t.start.offset, last);
      ASSERT_GT(t.end.offset, t.start.offset);
      ASSERT_LE(t.end.offset, n);
      last = t.end.offset;
    }
  }
}

}  // namespace
