// Texts a description carries that statements write as given: what passes, what is refused and
// where, and that every entry point of the model refuses them.
#include <gtest/gtest.h>

#include <qarvelt/model/document.h>
#include <qarvelt/model/expressions.h>
#include <qarvelt/model/schema.h>
#include <qarvelt/model/script.h>

#include <functional>
#include <string>
#include <vector>

using namespace qarvelt::model;

namespace {

using K = ExpressionKind;

// The message of the refusal, or "" when the text passes.
std::string refusal(const std::string& text, ExpressionKind kind) {
  try {
    CheckExpression(text, kind, "here");
    return "";
  } catch (const Error& e) {
    EXPECT_EQ(e.kind(), ErrorKind::BadInput);
    EXPECT_EQ(e.where(), "here");
    return e.message();
  }
}

TEST(Expressions, WhatPeopleWritePasses) {
  const std::vector<std::pair<K, std::string>> good = {
      {K::Expression, "SYSDATE"},
      {K::Expression, "'it''s'"},
      {K::Expression, "q'[a;b]'"},
      {K::Expression, "nq'{--/*}'"},
      {K::Expression, "TO_DATE('2020-01-01','YYYY-MM-DD')"},
      {K::Expression, "CASE WHEN a > 0 THEN 1 END"},
      {K::Expression, "\"Mixed\"+1"},
      {K::Expression, "INTERVAL '1' MONTH"},
      {K::Expression, "NUMTOYMINTERVAL(1,'MONTH')"},
      {K::Expression, "SAL / 12"},
      {K::Expression, "a IN (1, 2)\nAND b IS NOT NULL"},
      {K::Query,
       "SELECT /*+ INDEX(e emp_ix) */ e.ename, d.dname, (SELECT COUNT(*) FROM emp x WHERE x.mgr = e.empno) "
       "n\n"
       "  FROM emp e JOIN dept d ON d.deptno = e.deptno\n"
       " WHERE e.sal > (SELECT AVG(sal) FROM emp) AND e.ename NOT LIKE '%;%'"},
      {K::Block, "BEGIN\n  :new.id := order_seq.NEXTVAL;\nEND;"},
      {K::Block,
       "<<outer>>\nDECLARE\n  s VARCHAR2(20) := 'a;b\n/c';  -- a comment; END;\n"
       "  FUNCTION f(x NUMBER) RETURN NUMBER;\n"
       "  FUNCTION f(x NUMBER) RETURN NUMBER IS BEGIN RETURN CASE WHEN x > 0 THEN x ELSE 0 END; END f;\n"
       "  PROCEDURE c(x NUMBER) AS LANGUAGE C NAME \"c\" LIBRARY lib;\n"
       "BEGIN\n"
       "  IF f(1) > 0 THEN\n    WHILE TRUE LOOP EXIT; END LOOP;\n  ELSIF 1 = 2 THEN NULL;\n  END IF;\n"
       "  CASE WHEN s IS NULL THEN NULL; ELSE NULL; END CASE;\n"
       "  BEGIN EXECUTE IMMEDIATE 'BEGIN NULL; END;'; EXCEPTION WHEN OTHERS THEN NULL; END;\n"
       "  /* closing: */ FOR i IN 1..2 LOOP NULL; END LOOP lbl;\n"
       "END outer; -- done"},
      {K::Block, "CALL app.audit_pkg.log('T', :old.id)"},
      {K::Block, "call log_change(:new.id);"},
  };
  for (const auto& [kind, text] : good)
    EXPECT_EQ(refusal(text, kind), "") << text;
}

struct Refused {
  K kind;
  std::string text;
  std::string message;  // a part of the message: place and fault
};

TEST(Expressions, RefusalsSayWhereAndWhat) {
  const std::vector<Refused> bad = {
      // Leaving the slot.
      {K::Expression, "0); DROP TABLE X; --", "at column 2: ')' closes a bracket that was not opened"},
      {K::Expression, "0; DROP TABLE X", "at column 2: ';' ends the statement"},
      {K::Expression, "A > 0) DISABLE (", "at column 6: ')' closes"},
      {K::Expression, "NVL(a, 0", "at column 4: '(' is not closed"},
      {K::Expression, "f(a]", "at column 4: ']' does not close the '(' at column 2"},
      {K::Expression, "0, B NUMBER", "at column 2: a comma outside brackets"},
      {K::Expression, "0 -- rest", "at column 3: a comment is refused"},
      {K::Query, "SELECT 1 FROM dual /* x */", "a comment is refused in a query"},
      {K::Expression, "'abc", "at column 1: the string literal is not closed"},
      {K::Expression, "   ", "nothing but blanks"},
      // SQL*Plus reads some lines itself, whatever they are inside of.
      {K::Expression, "1\n/\nDROP TABLE X", "at line 2, column 1: a line holding only /"},
      {K::Query, "SELECT 'a\n  .\n' FROM dual", "at line 2, column 3: a line holding only ."},
      {K::Expression, "'a\n#host rm x\n'", "at line 2, column 1: SQL*Plus runs a line that starts with #"},
      {K::Query, "SELECT 1\n\nFROM dual", "at line 2, column 1: a blank line ends"},
      {K::Expression, "'a;\nb'", "at line 1, column 3: SQL*Plus ends the statement at a ';'"},
      // Trigger bodies are one block.
      {K::Block, "BEGIN NULL; END;\n/\nDROP TABLE X;", "at line 2, column 1: a line holding only /"},
      {K::Block, "BEGIN NULL; END; DROP TABLE X;", "at column 18: text after the END at column 13"},
      {K::Block, "BEGIN NULL; END; /", "at column 18: text after the END"},
      {K::Block, "BEGIN NULL; END", "at column 16: the END that closes the block needs its ';'"},
      {K::Block, "BEGIN IF a THEN NULL; END; END;",
       "at column 23: END here, but the IF at column 7 needs END IF"},
      {K::Block, "BEGIN LOOP NULL; END IF; END;", "END IF here, but the LOOP at column 7 needs END LOOP"},
      {K::Block, "DECLARE x NUMBER; END;", "the DECLARE at column 1 needs its BEGIN"},
      {K::Block, "BEGIN\n  BEGIN NULL; END;", "at line 1, column 1: BEGIN is not closed"},
      {K::Block, "DROP TABLE X", "at column 1: a trigger body is a PL/SQL block"},
      {K::Block, "BEGIN f(1; END;", "at column 8: '(' is not closed"},
      {K::Block, "CALL p(1); DROP TABLE X", "at column 12: text after the CALL at column 1"},
      {K::Block, "CALL p DROP", "at column 8: CALL names the routine"},
      {K::Block, "BEGIN x := 'a\n.\n'; END;", "at line 2, column 1: a line holding only ."},
  };
  for (const Refused& r : bad) {
    const std::string message = refusal(r.text, r.kind);
    EXPECT_NE(message.find(r.message), std::string::npos) << r.text << "\n  got: " << message;
  }
}

// A table with the default `value`.
Table tableWith(const std::string& value) {
  Table t;
  t.name = "T";
  t.columns.push_back(Column{});
  t.columns[0].name = "A";
  t.columns[0].type = "NUMBER";
  t.columns[0].default_value = value;
  return t;
}

std::string whereOf(const std::function<void()>& run) {
  try {
    run();
  } catch (const Error& e) {
    EXPECT_EQ(e.kind(), ErrorKind::BadInput) << e.what();
    return e.where();
  }
  return "(nothing refused)";
}

TEST(Expressions, EveryEntryPointRefuses) {
  const Table bad = tableWith("0); DROP TABLE X; --");
  const Table good = tableWith("0");
  EXPECT_EQ(whereOf([&] { Create(bad); }), "columns[0].default");
  EXPECT_EQ(whereOf([&] { Diff(good, bad); }), "new.columns[0].default");
  EXPECT_EQ(whereOf([&] { Diff(bad, good); }), "old.columns[0].default");
  Schema schema;
  schema.tables = {good};
  schema.triggers.push_back(
      {"TR", "BEFORE", {"INSERT"}, "T", true, "", "BEGIN NULL; END;\n/\nDROP TABLE X;", "", "", ""});
  EXPECT_EQ(whereOf([&] { CreateSchema(schema); }), "triggers[0].body");
  schema.tables.push_back(bad);
  EXPECT_EQ(whereOf([&] { CreateSchema(schema); }), "tables[1].columns[0].default");
}

TEST(Expressions, EveryPlaceOfADocumentIsChecked) {
  // One bad text per document, and the key path the refusal must name.
  const std::string table = R"({"name": "T", "columns": [{"name": "A", "type": "NUMBER"}], )";
  const std::vector<std::pair<std::string, std::string>> tables = {
      {R"("constraints": [{"type": "check", "check": "1;"}]})", "constraints[0].check"},
      {R"("indexes": [{"name": "I", "columns": ["A", {"expression": "1;"}]}]})",
       "indexes[0].columns[1].expression"},
      {R"("indexes": [{"name": "I", "columns": ["A"], "global": {"type": "range", "columns": ["A"],
          "partitions": [{"name": "P", "values_less_than": ["1;"]}]}}]})",
       "indexes[0].global.partitions[0].values_less_than[0]"},
      {R"("partitioning": {"type": "range", "columns": ["A"],
          "partitions": [{"name": "P", "values_less_than": [1]}, {"name": "Q", "values_less_than": ["1, 2"]}]}})",
       "partitioning.partitions[1].values_less_than[0]"},
      {R"("partitioning": {"type": "range", "columns": ["A"], "interval": "1) --",
          "partitions": [{"name": "P", "values_less_than": [1]}]}})",
       "partitioning.interval"},
      {R"("partitioning": {"type": "range", "columns": ["A"], "subpartitioning": {"type": "list", "columns": ["A"],
          "template": [{"name": "S", "values": ["1;"]}]}, "partitions": [{"name": "P", "values_less_than": [1]}]}})",
       "partitioning.subpartitioning.template[0].values[0]"},
      {R"("partitioning": {"type": "range", "columns": ["A"], "subpartitioning": {"type": "list", "columns": ["A"]},
          "partitions": [{"name": "P", "values_less_than": [1], "subpartitions": [{"name": "S", "values": ["1;"]}]}]}})",
       "partitioning.partitions[0].subpartitions[0].values[0]"},
  };
  for (const auto& [rest, where] : tables) {
    const std::string text = table + rest;
    EXPECT_EQ(whereOf([&] { ReadTable(text, "t.json"); }), "t.json." + where) << rest;
  }
  for (const char* key : {"default", "virtual", "check", "collation"}) {
    const std::string column = R"({"name": "T", "columns": [{"name": "A", "type": "NUMBER", ")" +
                               std::string(key) + R"(": "1) --"}]})";
    EXPECT_EQ(whereOf([&] { ReadTable(column, "t.json"); }), std::string("t.json.columns[0].") + key);
  }
  const std::string schema =
      R"({"schema": "APP", "tables": [{"name": "T", "columns": [{"name": "A", "type": "NUMBER"}]}], )";
  const std::vector<std::pair<std::string, std::string>> schemas = {
      {R"("views": [{"name": "V", "query": "SELECT 1 FROM dual; DROP TABLE X"}]})", "views[0].query"},
      {R"("materialized_views": [{"name": "M", "query": "SELECT 1 FROM dual -- x"}]})",
       "materialized_views[0].query"},
      {R"("synonyms": [{"name": "S", "target": "T", "dblink": "L; DROP TABLE X"}]})", "synonyms[0].dblink"},
      {R"("triggers": [{"name": "R", "timing": "before", "events": ["insert"], "table": "T", "when": "1;",
          "body": "BEGIN NULL; END;"}]})",
       "triggers[0].when"},
      {R"("indexes": [{"table": "T", "name": "I", "columns": [{"expression": "(1"}]}]})",
       "indexes[0].columns[0].expression"},
      {R"("tables": [{"name": "U", "columns": [{"name": "A", "type": "NUMBER", "default": "1;"}]}]})",
       "tables[0].columns[0].default"},
  };
  for (const auto& [rest, where] : schemas) {
    const std::string text = where.rfind("tables", 0) == 0 ? "{" + rest : schema + rest;
    EXPECT_EQ(whereOf([&] { ReadSchema(text, "app.json"); }), "app.json." + where) << rest;
  }
  EXPECT_NO_THROW(ReadSchema(
      schema + R"("synonyms": [{"name": "S", "target": "T", "dblink": "remote.example.com@hr"}]})"));
}

}  // namespace
