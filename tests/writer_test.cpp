// The writer: leaves, the join rule, containers, OR alternatives and lists. Every case is also
// written through a clone, which must give the same text.
#include <gtest/gtest.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

using std::make_unique;

struct WriterCase {
  const char* name;
  std::function<std::unique_ptr<CSQLClause>()> build;
  const char* path;
  int code;
  const char* text;
};

std::unique_ptr<CSQLClause> andOf(const char* prefix, const char* postfix) {
  return make_unique<CSQLContAND>(prefix, postfix);
}

std::unique_ptr<Named> column(const char* name, const char* type) {
  return with(make_unique<Named>(name), valued("COLUMN", name), valued("TYPE", type));
}

std::unique_ptr<CSQLClause> emptyItem(const char* name) {
  return with(make_unique<Named>(name), valued("X", ""));
}

const WriterCase kCases[] = {
    // The join rule: glued after "(" or ".", else one blank, even before "," or "@".
    {"schema point table",
     [] { return with(andOf("", ""), valued("SCHEMA", "SCOTT", "", "", "."), valued("TABLE", "EMP")); }, "*",
     0, " SCOTT.EMP"},
    {"bracket glues, comma does not",
     [] { return with(andOf("(", ")"), valued("LENGTH", "10"), valued("SCALE", "2", ",")); }, "*", 0,
     "(10 ,2)"},
    {"at sign gets a blank",
     [] { return with(make_unique<Named>("R"), valued("NAME", "EMP"), valued("DBLINK", "LNK", "@")); }, "*",
     0, " EMP @LNK"},
    {"parent trims the leading blank of a child",
     [] {
       return with(valued("HEAD", "CREATE"),
                   with(andOf("", ""), valued("SCHEMA", "S", "", "", "."), valued("TABLE", "T")));
     },
     "*", 0, "CREATE S.T"},
    {"blank texts of a piece are trimmed before joining",
     [] { return with(andOf("(", ")"), valued("A", "1", "  ", "  ")); }, "*", 0, "(1)"},
    // Leaves.
    {"leaf writes prefix value suffix children postfix",
     [] { return with(valued("EXTENT", "EXTENT", "ALLOCATE ", "", "!"), valued("SIZE", "10M", "SIZE ")); },
     "*", 0, "ALLOCATE EXTENT SIZE 10M!"},
    {"quoted value", [] { return valued("DATAFILE", "x.dbf", "DATAFILE '", "'"); }, "*", 0,
     "DATAFILE 'x.dbf'"},
    {"value emptied against an initial value writes the bare texts",
     [] { return make_unique<CSQLAttr>("X", "OLD", "", "<", ">", "!"); }, "*", 0, "<>!"},
    {"value back at its initial value writes nothing",
     [] { return make_unique<CSQLAttr>("X", "10", "10", "PCTFREE "); }, "*", 2, ""},
    {"unmodified leaf writes its modified children only",
     [] { return with(make_unique<CSQLAttr>("P", "", "", "PARENT "), valued("C", "child")); }, "*", 0,
     " child"},
    // Containers: nothing written inside means nothing at all, brackets included.
    {"empty AND writes no brackets", [] { return with(andOf("(", ")"), make_unique<CSQLAttr>("A")); }, "*", 2,
     ""},
    {"AND prefix ending in a blank", [] { return with(andOf("EXCEPTIONS INTO ", ""), valued("TABLE", "T")); },
     "*", 0, "EXCEPTIONS INTO T"},
    {"plain container joins with a blank even after a bracket and returns 0",
     [] {
       auto c = make_unique<CSQLContainer>();
       c->SetPrefix("(");
       return with(std::move(c), valued("A", "1"), valued("B", "2"));
     },
     "*", 0, "( 1 2"},
    {"plain container with nothing inside still returns 0",
     [] { return with(make_unique<CSQLContainer>(), make_unique<CSQLAttr>("A")); }, "*", 0, ""},
    {"OR writes only the first alternative with text",
     [] {
       return with(make_unique<CSQLContOR>("", ""), make_unique<CSQLAttr>("A"), valued("B", "second"),
                   valued("C", "third"));
     },
     "*", 0, " second"},
    {"OR with prefix and postfix",
     [] { return with(make_unique<CSQLContOR>("MODIFY (", ")"), valued("B", "b")); }, "*", 0, "MODIFY (b)"},
    {"OR with nothing set",
     [] { return with(make_unique<CSQLContOR>("MODIFY (", ")"), make_unique<CSQLAttr>("B")); }, "*", 2, ""},
    // Lists: the first item that writes untrimmed, the separator between items that write.
    {"two column items",
     [] {
       return with(make_unique<CSQLList>("LIST", ",", "ADD (", ")"), column("EMPNO", "NUMBER"),
                   column("ENAME", "DATE"));
     },
     "*", 0, "ADD ( EMPNO NUMBER,ENAME DATE)"},
    {"first item without text leaves no separator behind",
     [] {
       return with(make_unique<CSQLList>("LIST", ",", "ADD (", ")"), emptyItem("EMPNO"),
                   column("ENAME", "DATE"));
     },
     "*", 0, "ADD ( ENAME DATE)"},
    {"later items without text add nothing",
     [] {
       return with(make_unique<CSQLList>("LIST", ", ", "(", ")"), column("A", "X"), emptyItem("B"),
                   column("C", "Y"));
     },
     "*", 0, "( A X, C Y)"},
    {"empty list writes nothing",
     [] { return with(make_unique<CSQLList>("LIST", ",", "(", ")"), emptyItem("A")); }, "*", 2, ""},
    {"list path selects one item by name",
     [] { return with(make_unique<CSQLList>("LIST", ",", "(", ")"), column("A", "X"), column("B", "Y")); },
     "B;*", 0, "( B Y)"},
    {"null path reads as the whole tree", [] { return with(andOf("(", ")"), valued("A", "1")); }, nullptr, 0,
     "(1)"},
    // A path that names one branch writes only that branch.
    {"named branch",
     [] {
       return with(make_unique<Named>("R"), with(make_unique<Named>("X"), valued("A", "a")),
                   with(make_unique<Named>("Y"), valued("B", "b")));
     },
     "Y;*", 0, " b"},
    {"named branch through a container",
     [] {
       return with(make_unique<Named>("R"),
                   with(andOf("", ""), with(make_unique<Named>("X"), valued("A", "a"))),
                   with(make_unique<Named>("Y"), valued("B", "b")));
     },
     "X;*", 0, " a"},
};

void PrintTo(const WriterCase& c, std::ostream* os) {
  *os << c.name;
}

class Writer : public ::testing::TestWithParam<WriterCase> {};

TEST_P(Writer, WritesExactText) {
  const WriterCase& c = GetParam();
  auto tree = c.build();
  const Written got = write(*tree, c.path);
  EXPECT_EQ(got.code, c.code);
  EXPECT_EQ(got.text, c.text);

  auto clone = c.build()->Clone();
  const Written again = write(*clone, c.path);
  EXPECT_EQ(again.code, c.code);
  EXPECT_EQ(again.text, c.text);
}

INSTANTIATE_TEST_SUITE_P(Trees, Writer, ::testing::ValuesIn(kCases), [](const auto& info) {
  std::string name = info.param.name;
  for (char& ch : name) {
    if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
  }
  return name;
});

struct DataTypeCase {
  const char* type;
  const char* length;
  const char* scale;
  const char* unit;
  const char* text;
};

void PrintTo(const DataTypeCase& c, std::ostream* os) {
  *os << c.text;
}

class DataType : public ::testing::TestWithParam<DataTypeCase> {};

TEST_P(DataType, WritesTypeAndSizes) {
  const DataTypeCase& c = GetParam();
  CSQLAttrDataType type;
  ASSERT_EQ(type.SetValue(nullptr, c.type), 0);
  ASSERT_EQ(type.SetValue("LENGTH", c.length), 0);
  ASSERT_EQ(type.SetValue("SCALE", c.scale), 0);
  ASSERT_EQ(type.SetValue("UNIT", c.unit), 0);
  EXPECT_EQ(write(type).text, c.text);
}

INSTANTIATE_TEST_SUITE_P(Sizes,
                         DataType,
                         ::testing::Values(DataTypeCase{"NUMBER", "10", "2", "", "NUMBER (10 ,2)"},
                                           DataTypeCase{"VARCHAR2", "30", "", "CHAR", "VARCHAR2 (30 CHAR)"},
                                           DataTypeCase{"DATE", "", "", "", "DATE"},
                                           DataTypeCase{"NUMBER", "", "2", "", "NUMBER (,2)"}));

TEST(DataType, ShapeAndClone) {
  CSQLAttrDataType type(true, 3);
  EXPECT_EQ(type.GetType(), "DATATYPE");
  EXPECT_EQ(type.GetOraVersion(), 3);
  ASSERT_EQ(type.GetLength(), 1);
  EXPECT_EQ(type.GetChild(0)->GetSubType(), "AND");
  EXPECT_EQ(type.GetChild(0)->GetLength(), 3);

  CSQLAttrDataType shell(false, 7);
  EXPECT_EQ(shell.GetLength(), 0);

  type.SetValue(nullptr, "NUMBER");
  type.SetValue("LENGTH", "5");
  auto clone = type.Clone();
  ASSERT_NE(dynamic_cast<CSQLAttrDataType*>(clone.get()), nullptr);
  EXPECT_EQ(write(*clone).text, "NUMBER (5)");
  EXPECT_EQ(clone->GetOraVersion(), 3);
}

// Callbacks: the after-prefix callback sees the prefix text and the linked clause and can end the node.
int stopOnNocompress(std::string& text, std::string&, std::string&, CSQLClause*) {
  return text == "NOCOMPRESS" ? 1 : 0;
}

CSQLClause* g_seenLink = nullptr;
int recordLink(std::string& text, std::string& value, std::string&, CSQLClause* linked) {
  g_seenLink = linked;
  text += "[" + value + "]";
  return 0;
}

int rewriteEnd(std::string& text, std::string&, std::string&, CSQLClause* linked) {
  text = linked == nullptr ? "done" : "linked?";
  return 1;
}

TEST(Callbacks, AfterPrefixCanStopTheNode) {
  auto compress = with(make_unique<CSQLAttr>("COMPRESS"), make_unique<CSQLAttr>("VALUE"));
  compress->SetAfterPrefix(&stopOnNocompress);
  compress->SetValue("VALUE", "3");
  compress->SetValue(nullptr, "NOCOMPRESS");
  EXPECT_EQ(write(*compress).text, "NOCOMPRESS");
  EXPECT_EQ(write(*compress).code, 0);
  compress->SetValue(nullptr, "COMPRESS");
  EXPECT_EQ(write(*compress).text, "COMPRESS 3");
}

TEST(Callbacks, ArgumentsAndPostfixResult) {
  Named other("OTHER");
  CSQLAttr leaf("L", "", "v", "P:", "", "", nullptr, &other);
  leaf.SetAfterPrefix(&recordLink);
  EXPECT_EQ(write(leaf).text, "P:v[v]");
  EXPECT_EQ(g_seenLink, &other);

  // The after-postfix callback gets no linked clause; returning 1 gives 0 even for an emptied text.
  leaf.SetAfterPrefix(nullptr);
  leaf.SetAfterPostfix(&rewriteEnd);
  EXPECT_EQ(write(leaf).text, "done");
  CSQLContOR empty("", "");
  empty.SetAfterPostfix([](std::string& t, std::string&, std::string&, CSQLClause*) {
    t.clear();
    return 1;
  });
  EXPECT_EQ(write(empty).code, 0);
}

}  // namespace
}  // namespace qarvelt::testing
