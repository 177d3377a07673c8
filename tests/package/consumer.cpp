// Built outside the tree against the installed package, using only the public interface.
#include <cstdio>
#include <string>

#include <qarvelt/qarvelt.h>

using namespace qarvelt;

static int check(const char* what, const std::string& got, const char* want) {
  if (got == want) return 0;
  std::printf("%s: got [%s], want [%s]\n", what, got.c_str(), want);
  return 1;
}

int main() {
  int failures = 0;
  std::string text;

  // The first piece written into an empty text keeps the join blank in front; parents trim it.
  CSQLContAND names("", "");
  names.AddAttr(nullptr, new CSQLAttr("SCHEMA", "", "SCOTT", "", "", "."));
  names.AddAttr(nullptr, new CSQLAttr("TABLE", "", "EMP"));
  names.GetModifiedSQL("*", text);
  failures += check("schema.table", text, " SCOTT.EMP");
  CSQLContAND into("EXCEPTIONS INTO ", "");
  into.AddAttr(nullptr, names.Clone());
  into.GetModifiedSQL("*", text);
  failures += check("in a parent", text, "EXCEPTIONS INTO SCOTT.EMP");

  CSQLList columns("LIST", ",", "ADD (", ")");
  for (const char* name : {"EMPNO", "ENAME"}) {
    CSQLContAND* item = new CSQLContAND("", "");
    item->AddAttr(nullptr, new CSQLAttr("COLUMN", "", name));
    item->AddAttr(nullptr, new CSQLAttr("TYPE", "", name[1] == 'M' ? "NUMBER" : "DATE"));
    columns.AddAttr(nullptr, item);
  }
  columns.GetModifiedSQL("*", text);
  failures += check("column list", text, "ADD ( EMPNO NUMBER,ENAME DATE)");

  CSQLContAND sizes("(", ")");
  sizes.AddAttr(nullptr, new CSQLAttr("LENGTH", "", "10"));
  sizes.AddAttr(nullptr, new CSQLAttr("SCALE", "", "2", ","));
  sizes.GetModifiedSQL("*", text);
  failures += check("sizes", text, "(10 ,2)");

  CSQLAttrDataType type;
  type.SetValue(nullptr, "NUMBER");
  type.SetValue("LENGTH", "10");
  type.SetValue("SCALE", "2");
  type.GetModifiedSQL("*", text);
  failures += check("data type", text, "NUMBER (10 ,2)");

  failures += check("types", std::to_string(CSQLUtil::GetDataTypes(7).size()), "24");
  if (failures == 0) std::printf("consumer: all checks passed\n");
  return failures == 0 ? 0 : 1;
}
