// A schema change scripted through the information model: SCOTT.EMP as it is and as it should be,
// turned into the ALTER TABLE statements that get from one to the other.
//
// Each record is loaded with SetSQLValue(name, new text, old text); items are added as existing
// (true) or new (false) and dropped with their drop operation. The entry points fill an ALTER TABLE
// statement; what they render themselves (renames, drops, state changes) arrives in the output array,
// the rest stays in the statement for the caller to write, one pass per alteration.
#include <iostream>
#include <string>
#include <vector>

#include <qarvelt/qarvelt.h>

using namespace qarvelt;

namespace {

// Writes what an entry point left in the statement, one statement per pass.
void writeTree(CSQLAlterTable& statement, std::vector<std::string>& script) {
  do {
    std::string text;
    statement.GetModifiedSQL("*", text);
    Trim(text);
    if (!text.empty()) script.push_back(text);
    statement.RefreshUsed();
  } while (statement.hasUnused());
}

}  // namespace

int main() {
  CSQLInfoTable table;
  table.SetSQLValue("SCHEMA", "", "SCOTT");
  table.SetSQLValue("TABLE", "", "EMP");
  table.SetSQLValue("PCTFREE", "20", "10");
  table.SetSQLValue("LOGGING", "NOLOGGING", "LOGGING");

  CSQLInfoColumns columns;
  for (const char* name : {"EMPNO", "ENAME", "SAL", "COMM", "OLD_CODE"}) {
    columns.AddColumn(name, true);
    columns.GetColumn(name)->SetSQLValue("NAME", "", name);
  }
  columns.GetColumn("SAL")->SetSQLValue("DATATYPE", "NUMBER", "NUMBER");
  columns.GetColumn("SAL")->SetSQLValue("LENGTH", "9", "7");
  columns.GetColumn("SAL")->SetSQLValue("SCALE", "2", "2");
  columns.GetColumn("ENAME")->SetSQLValue("NAME", "FULL_NAME");
  columns.GetColumn("COMM")->CONSTRAINT()->SetSQLValue("NULL", "NOT NULL", "");
  columns.AddColumn("RESUME", false);
  columns.GetColumn("RESUME")->SetSQLValue("DATATYPE", "CLOB");
  columns.GetColumn("RESUME")->SetSQLValue("LOB;TABLESPACE", "LOBS");
  columns.DropColumn("OLD_CODE", false, false);
  columns.SetSQLValue("DROP;CASCADE", "CASCADE", "");

  CSQLInfoConstraints constraints;
  constraints.AddConstraint("PK_EMP", true);
  constraints.GetConstraint("PK_EMP")->SetSQLValue("NAME", "EMP_PK", "PK_EMP");
  constraints.AddConstraint("CK_SAL", true);
  constraints.GetConstraint("CK_SAL")->SetSQLValue("NAME", "", "CK_SAL");
  constraints.GetConstraint("CK_SAL")->STATE()->SetSQLValue("ENABLE", "DISABLE", "ENABLE");
  constraints.AddConstraint("FK_DEPT", false);
  CSQLInfoConstraints::CConstraint* fk = constraints.GetConstraint("FK_DEPT");
  fk->SetSQLValue("TYPE", "FOREIGN KEY");
  fk->SetColumnsString("DEPTNO");
  fk->SetSQLValue("REF_TABLE", "DEPT");
  fk->SetSQLValue("REF_COLUMNS", "DEPTNO");
  fk->SetSQLValue("REF_DELETE", "CASCADE");

  // Columns first, then the table's own properties, then the constraints that name the new columns.
  std::vector<std::string> script;
  CSQLAlterTable columnChanges;
  if (CSQLUtil::GenAltColumn(&columnChanges, &script, &table, &columns) != 0) return 1;
  writeTree(columnChanges, script);

  CSQLAlterTable properties;
  if (CSQLUtil::GenAltTableProperty(&properties, &script, &table) != 0) return 1;
  writeTree(properties, script);

  CSQLAlterTable constraintChanges;
  if (CSQLUtil::GenAltConstraint(&constraintChanges, &script, &table, &constraints) != 0) return 1;
  writeTree(constraintChanges, script);

  std::cout << "-- SCOTT.EMP, from the old description to the new\n";
  for (const std::string& statement : script)
    std::cout << statement << ";\n";
  return 0;
}
