// Statements written from hand-built trees: how a host (or a new clause class) uses the core.
//
// Each class below builds its tree in init() with the builder vocabulary, then the host fills the
// leaves by attribute path and asks for text. ALTER text comes from SetInit (the object as it is)
// plus SetValue (the object as wanted); CREATE text from SetValue alone.
#include <iostream>
#include <string>

#include <qarvelt/qarvelt.h>

using namespace qarvelt;

namespace {

// PCTFREE, PCTUSED, INITRANS and MAXTRANS of a table.
class PhysicalAttributes : public Cloneable<PhysicalAttributes> {
 public:
  explicit PhysicalAttributes(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_PHYSICAL_ATTRIBUTES", bInit);
  }

 protected:
  void init() override {
    using namespace build;
    attach(this,
           leaf("PCTFREE", "PCTFREE "),
           leaf("PCTUSED", "PCTUSED "),
           leaf("INITRANS", "INITRANS "),
           leaf("MAXTRANS", "MAXTRANS "));
  }
};

// The table-property alternative of ALTER TABLE: physical attributes, logging, caching.
class TableProperty : public Cloneable<TableProperty> {
 public:
  explicit TableProperty(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_ALT_TABLE_PROPERTY", bInit);
  }

 protected:
  void init() override {
    using namespace build;
    attach(this, clause<PhysicalAttributes>(GetOraVersion()), leaf("LOGGING"), leaf("CACHE"));
  }
};

// ALTER TABLE schema.table with one alteration per statement: table properties or a rename.
class AlterTable : public Cloneable<AlterTable> {
 public:
  explicit AlterTable(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_ALTER_TABLE", bInit);
  }

 protected:
  void init() override {
    using namespace build;
    attach(this,
           leaf("SCHEMA", "", "", "."),
           leaf("TABLE"),
           Or(clause<TableProperty>(GetOraVersion()), leaf("RENAME", "RENAME TO ")));
  }
  int preModifiedSQL(const char*, std::string& text) override {
    text = "ALTER TABLE";
    return 0;
  }
  // A statement that alters nothing is not written at all.
  int postModifiedSQL(const char*, std::string& text) override {
    const std::string head =
        "ALTER TABLE " + GetClause("SCHEMA")->GetValue() + "." + GetClause("TABLE")->GetValue();
    if (text == "ALTER TABLE" || text == head) text.clear();
    return 0;
  }
};

// One column of a CREATE TABLE column list: its name and data type.
class ColumnItem : public Cloneable<ColumnItem> {
 public:
  explicit ColumnItem(const char* name) : Cloneable(7) { setup(name, true); }
  explicit ColumnItem(bool bInit, int nOraVersion) : Cloneable(nOraVersion) { setup("", bInit); }

 protected:
  void init() override {
    using namespace build;
    attach(this, leaf("COLUMN"), clause<CSQLAttrDataType>(7));
  }
};

class CreateTable : public Cloneable<CreateTable> {
 public:
  explicit CreateTable(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_CREATE_TABLE", bInit);
  }

 protected:
  void init() override {
    using namespace build;
    attach(this,
           leaf("SCHEMA", "", "", "."),
           leaf("TABLE"),
           And({"(", ")"}, list("LIST", ",\n  ")),
           clause<PhysicalAttributes>(GetOraVersion()));
  }
  int preModifiedSQL(const char*, std::string& text) override {
    text = "CREATE TABLE";
    return 0;
  }
};

// The host loop: one statement per pass while some alternative is still unwritten.
void printAll(CSQLClause& statement) {
  do {
    std::string text;
    if (statement.GetModifiedSQL("*", text) == 0 && !text.empty()) std::cout << text << ";\n";
    statement.RefreshUsed();
  } while (statement.hasUnused());
}

}  // namespace

int main() {
  // The typical request: change one table's PCTFREE from 10 to 20.
  AlterTable alter;
  alter.SetValue("SCHEMA", "SCOTT");
  alter.SetValue("TABLE", "EMP");
  alter.SetInit("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE", "10");
  alter.SetValue("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE", "20");
  printAll(alter);

  // Two alternatives set at once give two statements, one per pass. A finished run withdraws every
  // change it wrote, the table's names included, so they are set again for the next run.
  alter.SetValue("SCHEMA", "SCOTT");
  alter.SetValue("TABLE", "EMP");
  alter.SetInit("C_ALT_TABLE_PROPERTY;LOGGING", "LOGGING");
  alter.SetValue("C_ALT_TABLE_PROPERTY;LOGGING", "NOLOGGING");
  alter.SetValue("RENAME", "EMPLOYEES");
  printAll(alter);

  // Nothing changed: nothing is written.
  std::string text;
  alter.GetModifiedSQL("*", text);
  std::cout << "-- unchanged table: " << (text.empty() ? "no statement" : text) << "\n";

  // CREATE text: initial values stay empty, so every filled leaf is written.
  CreateTable create;
  create.SetValue("SCHEMA", "SCOTT");
  create.SetValue("TABLE", "EMP");
  const char* columns[][4] = {{"EMPNO", "NUMBER", "4", ""}, {"ENAME", "VARCHAR2", "10", "CHAR"}};
  for (const auto& column : columns) {
    create.AddAttr("LIST", std::make_unique<ColumnItem>(column[0]));
    const std::string item = std::string("LIST;") + column[0] + ";";
    create.SetValue((item + "COLUMN").c_str(), column[0]);
    create.SetValue((item + "DATATYPE").c_str(), column[1]);
    create.SetValue((item + "DATATYPE;LENGTH").c_str(), column[2]);
    create.SetValue((item + "DATATYPE;UNIT").c_str(), column[3]);
  }
  create.SetValue("C_PHYSICAL_ATTRIBUTES;PCTFREE", "5");
  printAll(create);
  return 0;
}
