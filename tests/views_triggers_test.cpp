// CREATE VIEW and CREATE TRIGGER: whole statements as a DBA writes them, one per alternative and per
// release gate, and the SQL*Plus terminators that scripts of them need.
#include <gtest/gtest.h>

#include "qarvelt/statements/create_trigger.h"
#include "qarvelt/statements/create_view.h"
#include "qarvelt/util/sqlplus.h"
#include "support.h"

namespace qarvelt::testing {
namespace {

// A list item to append before the values are set: the list's path and the item.
struct Item {
  const char* list;
  std::function<std::unique_ptr<CSQLClause>()> make;
};

template <class T>
Item item(const char* list, const char* name) {
  return {list, [name] { return std::make_unique<T>(name); }};
}

// A plain leaf item holding its own text: a column, an event, an attribute.
Item word(const char* list, const char* name, const char* value = nullptr) {
  return {list, [name, value] { return std::make_unique<CSQLAttr>(name, "", value ? value : name); }};
}

template <class T>
std::function<std::unique_ptr<CSQLClause>()> withItems(int release, std::vector<Item> items) {
  return [release, items] {
    std::unique_ptr<CSQLClause> root = std::make_unique<T>(true, release);
    for (const Item& i : items)
      EXPECT_EQ(root->AddAttr(i.list, i.make().release()), SQL_OK) << i.list;
    return root;
  };
}

class CreateView : public ::testing::TestWithParam<TreeCase> {};
TEST_P(CreateView, WriteExactText) {
  checkTreeCase(GetParam());
}

using Alias = CSQLCreateView::CSubSQLItemAlias;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, CreateView, ::testing::Values(
    TreeCase{"aliases and check option, Oracle 7",
             withItems<CSQLCreateView>(0, {item<Alias>("C_VIEW_ALIAS;LIST", "EMPNO"),
                                           item<Alias>("C_VIEW_ALIAS;LIST", "ENAME")}),
             {{"REPLACE", "REPLACE"}, {"FORCE", "FORCE"}, {"SCHEMA", "SCOTT"}, {"VIEW", "EMP_V"},
              {"C_VIEW_ALIAS;LIST;EMPNO;ALIAS", "EMPNO"}, {"C_VIEW_ALIAS;LIST;ENAME;ALIAS", "ENAME"},
              {"SUBQUERY", "SELECT EMPNO, ENAME FROM SCOTT.EMP WHERE DEPTNO = 10"},
              {"CHECK", "CHECK"}, {"CHECK;CONSTRAINT", "EMP_V_CK"}},
             "CREATE OR REPLACE FORCE VIEW SCOTT.EMP_V (EMPNO, ENAME) AS SELECT EMPNO, ENAME FROM SCOTT.EMP "
             "WHERE DEPTNO = 10 WITH CHECK OPTION CONSTRAINT EMP_V_CK"},
    TreeCase{"read only, Oracle 8.0", make<CSQLCreateView>(1),
             {{"FORCE", "NOFORCE"}, {"SCHEMA", "SCOTT"}, {"VIEW", "DEPT_V"},
              {"SUBQUERY", "SELECT * FROM SCOTT.DEPT"}, {"READ", "READ"}},
             "CREATE NOFORCE VIEW SCOTT.DEPT_V AS SELECT * FROM SCOTT.DEPT WITH READ ONLY"},
    TreeCase{"object view with OID, Oracle 8.0",
             withItems<CSQLCreateView>(1, {word("C_OBJECT_VIEW;C_OBJECT_ID;LIST", "EMPNO")}),
             {{"SCHEMA", "SCOTT"}, {"VIEW", "EMP_OV"}, {"C_OBJECT_VIEW;TYPE_SCHEMA", "SCOTT"},
              {"C_OBJECT_VIEW;OBJECT_TYPE", "EMP_T"}, {"SUBQUERY", "SELECT EMPNO, ENAME FROM SCOTT.EMP"}},
             "CREATE VIEW SCOTT.EMP_OV OF SCOTT.EMP_T WITH OBJECT OID (EMPNO) AS SELECT EMPNO, ENAME FROM SCOTT.EMP"},
    TreeCase{"subview, Oracle 9i", make<CSQLCreateView>(3),
             {{"SCHEMA", "HR"}, {"VIEW", "MGR_OV"}, {"C_OBJECT_VIEW;TYPE_SCHEMA", "HR"},
              {"C_OBJECT_VIEW;OBJECT_TYPE", "MGR_T"}, {"C_OBJECT_VIEW;SUPERVIEW_SCHEMA", "HR"},
              {"C_OBJECT_VIEW;SUPERVIEW", "EMP_OV"},
              {"SUBQUERY", "SELECT EMPNO, ENAME, DEPTNO FROM HR.EMP WHERE JOB = 'MANAGER'"}},
             "CREATE VIEW HR.MGR_OV OF HR.MGR_T UNDER HR.EMP_OV AS SELECT EMPNO, ENAME, DEPTNO FROM HR.EMP "
             "WHERE JOB = 'MANAGER'"},
    TreeCase{"view constraints, Oracle 9i",
             [] {
               auto root = withItems<CSQLCreateView>(3, {item<Alias>("C_VIEW_ALIAS;LIST", "EMP_ID"),
                                                         item<Alias>("C_VIEW_ALIAS;LIST", "EMAIL"),
                                                         item<Alias>("C_VIEW_ALIAS;LIST", "ID_PK")})();
               root->AddAttr("C_VIEW_ALIAS;LIST;EMAIL;LIST", new CSQLClauseInlineConstraint("UQ"));
               root->AddAttr("C_VIEW_ALIAS;LIST;ID_PK;C_OUTLINE_CONSTRAINT;PRIMARY;LIST",
                             new CSQLAttr("EMP_ID", "", "EMP_ID"));
               return root;
             },
             {{"SCHEMA", "HR"}, {"VIEW", "EMP_SAL"}, {"C_VIEW_ALIAS;LIST;EMP_ID;ALIAS", "EMP_ID"},
              {"C_VIEW_ALIAS;LIST;EMAIL;ALIAS", "EMAIL"}, {"C_VIEW_ALIAS;LIST;EMAIL;LIST;UQ;UNIQUE", "UNIQUE"},
              {"C_VIEW_ALIAS;LIST;EMAIL;LIST;UQ;C_CONSTRAINT_STATE;ENABLE", "DISABLE"},
              {"C_VIEW_ALIAS;LIST;EMAIL;LIST;UQ;C_CONSTRAINT_STATE;VALIDATE", "NOVALIDATE"},
              {"C_VIEW_ALIAS;LIST;ID_PK;C_OUTLINE_CONSTRAINT;CONSTRAINT", "ID_PK"},
              {"C_VIEW_ALIAS;LIST;ID_PK;C_OUTLINE_CONSTRAINT;PRIMARY", "PRIMARY"},
              {"C_VIEW_ALIAS;LIST;ID_PK;C_OUTLINE_CONSTRAINT;C_CONSTRAINT_STATE;ENABLE", "DISABLE"},
              {"C_VIEW_ALIAS;LIST;ID_PK;C_OUTLINE_CONSTRAINT;C_CONSTRAINT_STATE;VALIDATE", "NOVALIDATE"},
              {"SUBQUERY", "SELECT EMPLOYEE_ID, EMAIL FROM HR.EMPLOYEES"}},
             "CREATE VIEW HR.EMP_SAL (EMP_ID, EMAIL UNIQUE DISABLE NOVALIDATE, CONSTRAINT ID_PK PRIMARY KEY "
             "(EMP_ID) DISABLE NOVALIDATE) AS SELECT EMPLOYEE_ID, EMAIL FROM HR.EMPLOYEES"},
    TreeCase{"object view attribute constraint, Oracle 9i",
             [] {
               auto root = withItems<CSQLCreateView>(3, {item<Alias>("C_OBJECT_VIEW;LIST", "EMAIL")})();
               root->AddAttr("C_OBJECT_VIEW;LIST;EMAIL;LIST", new CSQLClauseInlineConstraint("UQ"));
               return root;
             },
             {{"SCHEMA", "HR"}, {"VIEW", "EMP_OV"}, {"C_OBJECT_VIEW;OBJECT_TYPE", "EMP_T"},
              {"C_OBJECT_VIEW;C_OBJECT_ID;DEFAULT", "DEFAULT"}, {"C_OBJECT_VIEW;LIST;EMAIL;ALIAS", "EMAIL"}, {"C_OBJECT_VIEW;LIST;EMAIL;LIST;UQ;UNIQUE", "UNIQUE"},
              {"C_OBJECT_VIEW;LIST;EMAIL;LIST;UQ;C_CONSTRAINT_STATE;ENABLE", "DISABLE"},
              {"C_OBJECT_VIEW;LIST;EMAIL;LIST;UQ;C_CONSTRAINT_STATE;VALIDATE", "NOVALIDATE"},
              {"SUBQUERY", "SELECT * FROM HR.EMP_TAB"}},
             "CREATE VIEW HR.EMP_OV OF EMP_T WITH OBJECT IDENTIFIER DEFAULT (EMAIL UNIQUE DISABLE NOVALIDATE) "
             "AS SELECT * FROM HR.EMP_TAB"},
    TreeCase{"XMLType view, Oracle 10g",
             withItems<CSQLCreateView>(6, {word("C_OBJECT_VIEW;C_OBJECT_ID;LIST", "AREA",
                                                "EXTRACT(OBJECT_VALUE, '/Warehouse/Area/text()').GETNUMBERVAL()")}),
             {{"SCHEMA", "OE"}, {"VIEW", "WAREHOUSE_VIEW"}, {"C_OBJECT_VIEW;OBJECT_TYPE", "XMLTYPE"},
              {"C_OBJECT_VIEW;XMLSCHEMA", "http://www.example.com/xwarehouses.xsd"},
              {"C_OBJECT_VIEW;ELEMENT", "Warehouse"}, {"SUBQUERY", "SELECT W.WAREHOUSE_SPEC FROM OE.WAREHOUSES W"}},
             "CREATE VIEW OE.WAREHOUSE_VIEW OF XMLTYPE XMLSCHEMA \"http://www.example.com/xwarehouses.xsd\" "
             "ELEMENT \"Warehouse\" WITH OBJECT IDENTIFIER (EXTRACT(OBJECT_VALUE, '/Warehouse/Area/text()')"
             ".GETNUMBERVAL()) AS SELECT W.WAREHOUSE_SPEC FROM OE.WAREHOUSES W"}),
    caseName);
// clang-format on

// Each piece of syntax exists from the release that brought it on, and not before.
TEST(CreateView, ReleaseGates) {
  expectGates<CSQLCreateView>({
      {"READ", 1},
      {"C_OBJECT_VIEW;C_OBJECT_ID;LIST", 1},
      {"C_OBJECT_VIEW;SUPERVIEW", 3},
      {"C_OBJECT_VIEW;LIST", 3},
      {"C_OBJECT_VIEW;XMLSCHEMA", 4},
      {"C_OBJECT_VIEW;ELEMENT", 4},
  });
  EXPECT_EQ(Alias("A", 2).GetClause("LIST"), nullptr);
  EXPECT_EQ(Alias("A", 2).GetClause("C_OUTLINE_CONSTRAINT"), nullptr);
  EXPECT_NE(Alias("A", 3).GetClause("LIST"), nullptr);
  EXPECT_NE(Alias("A").GetClause("C_OUTLINE_CONSTRAINT"), nullptr);
}

class CreateTrigger : public ::testing::TestWithParam<TreeCase> {};

TEST_P(CreateTrigger, WriteExactText) {
  checkTreeCase(GetParam());
}

using Event = CSQLCreateTrigger::CSubSQLItemEvent;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, CreateTrigger, ::testing::Values(
    TreeCase{"row trigger, Oracle 7",
             [] {
               auto root = withItems<CSQLCreateTrigger>(0, {word("C_DML_EVENT;LIST", "INSERT"),
                                                            item<Event>("C_DML_EVENT;LIST", "UPDATE")})();
               root->AddAttr("C_DML_EVENT;LIST;UPDATE;EVENT;LIST", new CSQLAttr("SAL", "", "SAL"));
               root->AddAttr("C_DML_EVENT;LIST;UPDATE;EVENT;LIST", new CSQLAttr("COMM", "", "COMM"));
               return root;
             },
             {{"REPLACE", "REPLACE"}, {"SCHEMA", "SCOTT"}, {"TRIGGER", "EMP_BIU"}, {"BEFORE", "BEFORE"},
              {"C_DML_EVENT;LIST;UPDATE;EVENT", "UPDATE"}, {"C_DML_EVENT;SCHEMA", "SCOTT"},
              {"C_DML_EVENT;TABLE", "EMP"}, {"C_DML_EVENT;OLD", "O"}, {"C_DML_EVENT;NEW", "N"},
              {"C_DML_EVENT;ROW", "ROW"}, {"WHEN", "N.SAL > 0"},
              {"BODY", "BEGIN :N.SAL := ROUND(:N.SAL, 2); END;"}},
             "CREATE OR REPLACE TRIGGER SCOTT.EMP_BIU BEFORE INSERT OR UPDATE OF SAL, COMM ON SCOTT.EMP "
             "REFERENCING OLD AS O NEW AS N FOR EACH ROW WHEN (N.SAL > 0) BEGIN :N.SAL := ROUND(:N.SAL, 2); END;"},
    TreeCase{"instead of, Oracle 8.0",
             withItems<CSQLCreateTrigger>(1, {word("C_DML_EVENT;LIST", "INSERT")}),
             {{"SCHEMA", "SCOTT"}, {"TRIGGER", "EMP_DEPT_II"}, {"INSTEAD", "INSTEAD"},
              {"C_DML_EVENT;SCHEMA", "SCOTT"}, {"C_DML_EVENT;TABLE", "EMP_DEPT_V"}, {"C_DML_EVENT;ROW", "ROW"},
              {"BODY", "BEGIN INSERT INTO SCOTT.EMP (EMPNO, ENAME) VALUES (:NEW.EMPNO, :NEW.ENAME); END;"}},
             "CREATE TRIGGER SCOTT.EMP_DEPT_II INSTEAD OF INSERT ON SCOTT.EMP_DEPT_V FOR EACH ROW BEGIN INSERT "
             "INTO SCOTT.EMP (EMPNO, ENAME) VALUES (:NEW.EMPNO, :NEW.ENAME); END;"},
    TreeCase{"nested table, Oracle 8i",
             withItems<CSQLCreateTrigger>(2, {word("C_DML_EVENT;LIST", "INSERT")}),
             {{"SCHEMA", "HR"}, {"TRIGGER", "DEPT_EMPS_II"}, {"INSTEAD", "INSTEAD"},
              {"C_DML_EVENT;NESTED", "EMPS"}, {"C_DML_EVENT;SCHEMA", "HR"}, {"C_DML_EVENT;TABLE", "DEPT_V"},
              {"C_DML_EVENT;NEW", "N"}, {"C_DML_EVENT;PARENT", "P"}, {"C_DML_EVENT;ROW", "ROW"},
              {"BODY", "BEGIN INSERT INTO HR.EMP (EMPNO, DEPTNO) VALUES (:N.EMPNO, :P.DEPTNO); END;"}},
             "CREATE TRIGGER HR.DEPT_EMPS_II INSTEAD OF INSERT ON NESTED TABLE EMPS OF HR.DEPT_V REFERENCING NEW "
             "AS N PARENT AS P FOR EACH ROW BEGIN INSERT INTO HR.EMP (EMPNO, DEPTNO) VALUES (:N.EMPNO, "
             ":P.DEPTNO); END;"},
    TreeCase{"DDL events on a schema, Oracle 8i",
             withItems<CSQLCreateTrigger>(2, {word("C_SYSTEM_EVENT;LIST", "DROP"),
                                              word("C_SYSTEM_EVENT;LIST", "ALTER")}),
             {{"SCHEMA", "SCOTT"}, {"TRIGGER", "NO_DDL"}, {"BEFORE", "BEFORE"}, {"C_SYSTEM_EVENT;OWNER", "SCOTT"},
              {"C_SYSTEM_EVENT;SCHEMA", "SCHEMA"},
              {"BODY", "BEGIN RAISE_APPLICATION_ERROR(-20001, 'No DDL here'); END;"}},
             "CREATE TRIGGER SCOTT.NO_DDL BEFORE DROP OR ALTER ON SCOTT.SCHEMA BEGIN "
             "RAISE_APPLICATION_ERROR(-20001, 'No DDL here'); END;"},
    TreeCase{"database event, Oracle 8i",
             withItems<CSQLCreateTrigger>(2, {word("C_SYSTEM_EVENT;LIST", "LOGON")}),
             {{"REPLACE", "REPLACE"}, {"SCHEMA", "SYSTEM"}, {"TRIGGER", "LOGON_AUDIT"}, {"AFTER", "AFTER"},
              {"C_SYSTEM_EVENT;DATABASE", "DATABASE"}, {"BODY", "BEGIN SYSTEM.AUDIT_PKG.LOG_LOGON; END;"}},
             "CREATE OR REPLACE TRIGGER SYSTEM.LOGON_AUDIT AFTER LOGON ON DATABASE BEGIN "
             "SYSTEM.AUDIT_PKG.LOG_LOGON; END;"},
    TreeCase{"follows and disable, Oracle 11g",
             withItems<CSQLCreateTrigger>(7, {word("C_DML_EVENT;LIST", "INSERT"),
                                              word("FOLLOWS", "EMP_BI1", "HR.EMP_BI1")}),
             {{"SCHEMA", "HR"}, {"TRIGGER", "EMP_BI2"}, {"BEFORE", "BEFORE"}, {"C_DML_EVENT;SCHEMA", "HR"},
              {"C_DML_EVENT;TABLE", "EMPLOYEES"}, {"C_DML_EVENT;ROW", "ROW"}, {"ENABLE", "DISABLE"},
              {"WHEN", "NEW.SALARY > 10000"}, {"BODY", "BEGIN :NEW.COMMISSION_PCT := 0; END;"}},
             "CREATE TRIGGER HR.EMP_BI2 BEFORE INSERT ON HR.EMPLOYEES FOR EACH ROW FOLLOWS HR.EMP_BI1 DISABLE "
             "WHEN (NEW.SALARY > 10000) BEGIN :NEW.COMMISSION_PCT := 0; END;"},
    TreeCase{"compound trigger, Oracle 11g",
             [] {
               auto root = withItems<CSQLCreateTrigger>(7, {item<Event>("C_DML_EVENT;LIST", "UPDATE")})();
               root->AddAttr("C_DML_EVENT;LIST;UPDATE;EVENT;LIST", new CSQLAttr("SALARY", "", "SALARY"));
               return root;
             },
             {{"SCHEMA", "HR"}, {"TRIGGER", "EMP_SAL_CT"}, {"FOR", "FOR"}, {"C_DML_EVENT;LIST;UPDATE;EVENT", "UPDATE"},
              {"C_DML_EVENT;SCHEMA", "HR"}, {"C_DML_EVENT;TABLE", "EMPLOYEES"},
              {"BODY", "COMPOUND TRIGGER AFTER EACH ROW IS BEGIN NULL; END AFTER EACH ROW; END EMP_SAL_CT;"}},
             "CREATE TRIGGER HR.EMP_SAL_CT FOR UPDATE OF SALARY ON HR.EMPLOYEES COMPOUND TRIGGER AFTER EACH ROW IS "
             "BEGIN NULL; END AFTER EACH ROW; END EMP_SAL_CT;"}),
    caseName);
// clang-format on

TEST(CreateTrigger, ReleaseGates) {
  expectGates<CSQLCreateTrigger>({
      {"INSTEAD", 1},
      {"C_SYSTEM_EVENT", 2},
      {"C_DML_EVENT;NESTED", 2},
      {"C_DML_EVENT;PARENT", 2},
      {"FOLLOWS", 7},
      {"ENABLE", 7},
      {"FOR", 7},
  });
}

// ---- SQL*Plus terminators -----------------------------------------------------------------------

TEST(SQLPlus, PLSQLUnitsAreKnownByTheirFirstWords) {
  const char* units[] = {
      "CREATE TRIGGER T BEFORE INSERT ON EMP BEGIN NULL; END;",
      "create or replace trigger t before insert on emp begin null; end;",
      "CREATE OR REPLACE\nTRIGGER T AFTER LOGON ON DATABASE BEGIN NULL; END;",
      "CREATE TYPE S.T AS OBJECT (A NUMBER)",
      "CREATE LIBRARY S.L AS '/lib/x.so'",
      "CREATE OR REPLACE AND COMPILE JAVA SOURCE NAMED \"Hello\" AS public class Hello {}",
      "CREATE NOFORCE JAVA CLASS USING BFILE (BFILE_DIR, 'Hello.class')",
      "BEGIN DBMS_STATS.GATHER_SCHEMA_STATS('SCOTT'); END;",
      "DECLARE N NUMBER; BEGIN NULL; END;",
  };
  for (const char* unit : units)
    EXPECT_TRUE(IsPLSQLUnit(unit)) << unit;
  const char* statements[] = {
      "CREATE VIEW V AS SELECT 1 X FROM DUAL",
      "CREATE OR REPLACE NOFORCE VIEW V AS SELECT 1 X FROM DUAL",
      "CREATE TABLE TRIGGER_LOG (ID NUMBER)",
      "ALTER TRIGGER T DISABLE",
      "",
  };
  for (const char* statement : statements)
    EXPECT_FALSE(IsPLSQLUnit(statement)) << statement;
}

TEST(SQLPlus, UnitsEndWithASlashLineAndNeverASemicolon) {
  const std::string view = "CREATE VIEW V AS SELECT 1 X FROM DUAL";
  const std::string trigger = "CREATE TRIGGER T AFTER LOGON ON DATABASE BEGIN NULL; END;\n  ";
  EXPECT_EQ(TerminateStatement(view, SQLTerminator::Semicolon), view + ";\n");
  EXPECT_EQ(TerminateStatement(trigger, SQLTerminator::Semicolon),
            "CREATE TRIGGER T AFTER LOGON ON DATABASE BEGIN NULL; END;\n/\n");
  EXPECT_EQ(TerminateStatement(view, SQLTerminator::Slash), view + "\n/\n");
  EXPECT_EQ(TerminateStatement(trigger, SQLTerminator::Slash),
            "CREATE TRIGGER T AFTER LOGON ON DATABASE BEGIN NULL; END;\n/\n");
  EXPECT_EQ(TerminateStatement(trigger, SQLTerminator::None),
            "CREATE TRIGGER T AFTER LOGON ON DATABASE BEGIN NULL; END;\n");
}

}  // namespace
}  // namespace qarvelt::testing
