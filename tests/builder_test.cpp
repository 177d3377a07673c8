// The tree-building vocabulary used by every init().
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "support.h"

namespace qarvelt::testing {
namespace {

using namespace build;

// A clause built the way library clauses are: a fixed name, a release code, gates and a nested clause.
class Sample : public CSQLClause {
 public:
  explicit Sample(bool bInit = true, int nOraVersion = 7) : CSQLClause(false, nOraVersion) {
    setup("C_SAMPLE", bInit);
  }
  CSQLClause* operator*() override { return cloneInto(new Sample(false)); }

  CSQLClause* temporary = nullptr;

 protected:
  void init() override {
    const int v = GetOraVersion();
    attach(this, leaf("SCHEMA", "", "", "."), leaf("NAME"), when(v >= 2, leaf("POOL", "BUFFER_POOL ")),
           v < 3 ? leaf("DEGREE", "PARALLEL (", ")")
                 : leaf("DEGREE", "PARALLEL ", "", "", &CSQLUtil::IsValidInteger),
           leaf("TEMPORARY").keep(temporary),
           Or({"", ""}, leaf("A", "A "), And(leaf("B", "B "), leaf("C", "C "))),
           leaf("EXTENT", "ALLOCATE ")
               .with(And({"(", ")"}, leaf("SIZE", "SIZE "), leaf("FILE", "DATAFILE '", "'"))),
           list("COLUMNS", ",", "(", ")"), when(v >= 6, clause<CSQLAttrDataType>(v)));
  }
};

TEST(Builder, TreeShapeFollowsTheListing) {
  Sample s;
  struct {
    const char* path;
    const char* value;
    const char* text;
  } const cases[] = {
      {"NAME", "T", " T"},
      {"POOL", "KEEP", " BUFFER_POOL KEEP"},
      {"DEGREE", "4", " PARALLEL 4"},
      {"B", "1", " B 1"},
      {"EXTENT;SIZE", "10M", " (SIZE 10M)"},
      {"EXTENT;FILE", "x.dbf", " (DATAFILE 'x.dbf')"},
      {"DATATYPE", "DATE", " DATE"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    Sample tree;
    ASSERT_EQ(tree.SetValue(c.path, c.value), SQL_OK);
    EXPECT_EQ(write(tree).text, c.text);
  }
  EXPECT_EQ(s.SetValue("DEGREE", "four"), SQL_NOT_FOUND);  // the validator given in the listing
  EXPECT_EQ(s.GetClause("TEMPORARY"), s.temporary);
  EXPECT_EQ(s.GetClause("COLUMNS")->GetPrefix(), "(");
}

TEST(Builder, GatesByReleaseCode) {
  Sample old(true, 1);
  EXPECT_EQ(old.GetClause("POOL"), nullptr);
  EXPECT_EQ(old.GetClause("DATATYPE"), nullptr);
  ASSERT_EQ(old.SetValue("DEGREE", "4"), SQL_OK);
  EXPECT_EQ(write(old).text, " PARALLEL (4)");

  Sample latest(true, 7);
  ASSERT_NE(latest.GetClause("DATATYPE"), nullptr);
  EXPECT_EQ(latest.GetClause("DATATYPE")->GetOraVersion(), 7);

  Sample shell(false, 7);
  EXPECT_EQ(shell.GetLength(), 0);
  EXPECT_EQ(shell.GetType(), "C_SAMPLE");
}

int seeLink(std::string& text, std::string&, std::string&, CSQLClause* linked) {
  text += linked != nullptr ? "<" + linked->GetType() + ">" : "<none>";
  return 0;
}

TEST(Builder, RefinementsAndEmptyNodes) {
  CSQLClause* temp = nullptr;
  Named root("R");
  attach(&root, leaf("TEMPORARY").keep(temp));
  attach(&root, leaf("COMMIT", "ON COMMIT ").linked(temp).afterPrefix(&seeLink),
         leaf("V").validator(&CSQLUtil::IsValidInteger), Node(), when(false, leaf("GONE")));
  EXPECT_EQ(root.GetLength(), 3);
  root.SetValue("COMMIT", "DELETE ROWS");
  EXPECT_EQ(write(root).text, " ON COMMIT DELETE ROWS<TEMPORARY>");
  EXPECT_EQ(root.SetValue("V", "x"), SQL_NOT_FOUND);

  // Refining or filling an empty node does nothing.
  Node empty = Node().with(leaf("X")).validator(&CSQLUtil::IsValid).afterPostfix(&seeLink);
  EXPECT_FALSE(empty);
}

// Literal texts are kept as views; texts from buffers are copied, so that a tree never reads a buffer
// its caller has since changed or freed (by a word, a public constructor, SetPrefix or a clone).
TEST(Builder, TextsFromBuffersAreCopied) {
  Named root("R");
  std::string name = "NAME";
  std::string prefix = "PRE ";
  char postfix[8] = " POST";
  attach(&root, leaf(name.c_str(), prefix.c_str(), "", postfix),
         list(std::string("L").c_str(), ",", "(", ")"));
  auto leafAttr = std::make_unique<CSQLAttr>(name.c_str(), "", "", prefix.c_str());
  leafAttr->SetPrefix(std::string("SET ").c_str());
  auto clone = root.Clone();
  name.assign("XXXX");
  prefix.assign(40, 'x');
  std::strcpy(postfix, "zzzz");
  root.SetValue("NAME", "v");
  clone->SetValue("NAME", "w");
  leafAttr->SetValue(nullptr, "u");
  EXPECT_EQ(write(root).text, " PRE v POST");
  EXPECT_EQ(write(*clone).text, " PRE w POST");
  EXPECT_EQ(leafAttr->GetType(), "NAME");
  EXPECT_EQ(write(*leafAttr).text, "SET u");
  EXPECT_NE(root.GetClause("L"), nullptr);
}

}  // namespace
}  // namespace qarvelt::testing
