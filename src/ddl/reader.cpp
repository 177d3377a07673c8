// The script reader: splits a script into statements the way SQL*Plus runs them, skips SQL*Plus's
// own lines, and hands each statement to its reader; and the readers of the objects beside tables.
#include "qarvelt/ddl/reader.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "qarvelt/model/error.h"
#include "readers.h"

namespace qarvelt::ddl {

namespace {

using model::Error;
using model::ErrorKind;

// The first words of SQL*Plus's own commands, which never reach the database.
bool isSqlPlusCommand(const std::string& word) {
  static const std::set<std::string> commands = {
      "ACC", "ACCEPT", "BREAK",  "BTITLE",   "CLEAR",  "COL",      "COLUMN", "COMPUTE",  "CONN",    "CONNECT",
      "DEF", "DEFINE", "DESC",   "DESCRIBE", "EXEC",   "EXECUTE",  "EXIT",   "HOST",     "PAUSE",   "PRINT",
      "PRO", "PROMPT", "QUIT",   "REM",      "REMARK", "SET",      "SHO",    "SHOW",     "SPO",     "SPOOL",
      "STA", "START",  "TIMING", "TTITLE",   "UNDEF",  "UNDEFINE", "VAR",    "VARIABLE", "WHENEVER"};
  return commands.count(word) != 0;
}

// The tokens of a script with positions in the whole text, read statement by statement, so that a
// SQL*Plus line (whose text need not be SQL: PROMPT Don't) is skipped before it is tokenized.
class ScriptTokens {
 public:
  explicit ScriptTokens(std::string_view text) : m_text(text), m_lexer(text) {}

  Token Next() {
    Token t = m_lexer.Next();
    shift(t.start);
    shift(t.end);
    return t;
  }
  // Goes on reading at the start of the line after `t`.
  void SkipLine(const Token& t) {
    std::size_t eol = m_text.find('\n', t.start.offset);
    eol = eol == std::string_view::npos ? m_text.size() : eol + 1;
    m_base = {eol, t.start.line + 1, 1};
    m_lexer = Lexer(m_text.substr(eol));
  }
  std::string_view Line(const Token& t) const {
    const std::size_t eol = std::min(m_text.find('\n', t.start.offset), m_text.size());
    std::string_view line = m_text.substr(t.start.offset, eol - t.start.offset);
    while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
      line.remove_suffix(1);
    return line;
  }

 private:
  void shift(SourcePosition& at) const {
    if (at.line == 1) at.column += m_base.column - 1;
    at.line += m_base.line - 1;
    at.offset += m_base.offset;
  }

  std::string_view m_text;
  Lexer m_lexer;
  SourcePosition m_base;
};

// CREATE [OR REPLACE] [EDITIONABLE | NONEDITIONABLE] TRIGGER | PROCEDURE | FUNCTION | PACKAGE | TYPE,
// or an anonymous block: a PL/SQL unit, which ends at a "/" line, not at a semicolon.
bool isPlsql(const std::vector<Token>& t) {
  if (t.empty()) return false;
  if (t[0].IsWord("BEGIN") || t[0].IsWord("DECLARE")) return true;
  if (!t[0].IsWord("CREATE")) return false;
  for (std::size_t i = 1; i < t.size() && i < 6; ++i) {
    for (const char* unit : {"TRIGGER", "PROCEDURE", "FUNCTION", "PACKAGE", "TYPE", "LIBRARY", "JAVA"}) {
      if (t[i].IsWord(unit)) return true;
    }
    if (!t[i].IsWord("OR") && !t[i].IsWord("REPLACE") && !t[i].IsWord("EDITIONABLE") &&
        !t[i].IsWord("NONEDITIONABLE") && !t[i].IsWord("AND") && !t[i].IsWord("COMPILE") &&
        !t[i].IsWord("RESOLVE") && !t[i].IsWord("NOFORCE")) {
      return false;
    }
  }
  return false;
}

std::string head(const Statement& s) {
  const Token& first = s.tokens.front();
  const Token& last = s.tokens[s.tokens.size() > 1 ? s.tokens.size() - 2 : 0];
  std::string text(s.text.substr(first.start.offset, last.end.offset - first.start.offset));
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text.size() > 60 ? text.substr(0, 57) + "..." : text;
}

template <class T>
typename std::vector<T>::iterator findNamed(std::vector<T>& objects, const std::string& name) {
  return std::find_if(objects.begin(), objects.end(), [&](const T& o) { return o.name == name; });
}

// ---- sequences ----------------------------------------------------------------------------------

void readSequenceOptions(Parser& p, model::Sequence& s, bool alter) {
  while (!p.AtEnd()) {
    if (p.AcceptWords({"INCREMENT", "BY"})) {
      s.increment_by = p.Integer();
    } else if (!alter && p.AcceptWords({"START", "WITH"})) {
      s.start_with = p.Integer();
    } else if (alter && p.Accept("RESTART")) {
      if (p.AcceptWords({"START", "WITH"})) s.start_with = p.Integer();
    } else if (p.Accept("MAXVALUE")) {
      s.maxvalue = ReadSequenceBound(p);
    } else if (p.Accept("MINVALUE")) {
      s.minvalue = ReadSequenceBound(p);
    } else if (p.Accept("NOMAXVALUE")) {
      s.maxvalue.clear();
    } else if (p.Accept("NOMINVALUE")) {
      s.minvalue.clear();
    } else if (p.IsWord("CYCLE") || p.IsWord("NOCYCLE")) {
      s.cycle = p.Take().value;
    } else if (p.Accept("CACHE")) {
      s.cache = p.Integer();
    } else if (p.Accept("NOCACHE")) {
      s.cache = "NOCACHE";
    } else if (p.IsWord("ORDER") || p.IsWord("NOORDER")) {
      s.order = p.Take().value;
    } else if (p.Accept("NOKEEP") || p.Accept("NOSCALE") || p.Accept("GLOBAL") || p.Accept("NOSHARD")) {
      // Oracle's defaults, as its export writes them.
    } else if (p.IsWord("KEEP") || p.IsWord("SCALE") || p.IsWord("SESSION") || p.IsWord("SHARD")) {
      p.Warn(p.Peek(), p.Peek().value + " of a sequence is not kept");
      p.Take();
      p.Accept("EXTEND");
      p.Accept("NOEXTEND");
    } else {
      p.Fail("a sequence option");
    }
  }
}

void createSequence(Parser& p, Context& c) {
  p.Expect("SEQUENCE");
  p.AcceptWords({"IF", "NOT", "EXISTS"});
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("a sequence name");
  c.CheckSchema(p, name, at);
  if (findNamed(c.schema().sequences, name.name) != c.schema().sequences.end())
    p.FailAt(at, "a second sequence " + name.name);
  model::Sequence s;
  s.name = name.name;
  readSequenceOptions(p, s, false);
  c.schema().sequences.push_back(s);
}

// ---- views --------------------------------------------------------------------------------------

// The query of a view, and its trailing WITH READ ONLY or WITH CHECK OPTION.
void readViewQuery(Parser& p, model::View& v) {
  const std::size_t from = p.Mark();
  std::size_t end = from, with = 0;
  int depth = 0;
  while (!p.AtEnd()) {
    if (depth == 0 && p.IsWord("WITH") &&
        (p.AreWords({"WITH", "READ", "ONLY"}) || p.AreWords({"WITH", "CHECK", "OPTION"})))
      with = p.Mark();
    if (p.IsOp("(")) ++depth;
    if (p.IsOp(")")) --depth;
    p.Take();
    end = p.Mark();
  }
  if (with != 0) {
    p.Seek(with);
    p.Expect("WITH");
    if (p.AcceptWords({"READ", "ONLY"})) {
      v.read_only = true;
    } else {
      p.AcceptWords({"CHECK", "OPTION"});
      v.check_option = true;
    }
    if (p.Accept("CONSTRAINT")) p.Identifier("a constraint name");
    if (!p.AtEnd()) p.Fail("the end of the statement");
    end = with;
  }
  v.query = p.Text(from, end);
  if (v.query.empty()) p.Fail("a query");
}

void createView(Parser& p, Context& c, bool replace) {
  model::View v;
  if (p.Accept("FORCE")) v.force = true;
  p.AcceptWords({"NO", "FORCE"});
  p.Accept("NOFORCE");
  p.Accept("EDITIONABLE");
  p.Accept("NONEDITIONABLE");
  p.Accept("EDITIONING");
  p.Expect("VIEW");
  p.AcceptWords({"IF", "NOT", "EXISTS"});
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("a view name");
  c.CheckSchema(p, name, at);
  v.name = name.name;
  if (p.AcceptOp("(")) {
    do {
      v.columns.push_back(p.Identifier("a column alias"));
      if (!p.IsOp(",") && !p.IsOp(")")) {
        p.Warn(p.Peek(), "constraints of a view's columns are not kept");
        p.SkipClause();
      }
    } while (p.AcceptOp(","));
    p.ExpectOp(")");
  }
  ReadDefaultCollation(p);
  const Token& bequeath = p.Peek();
  if (p.Accept("BEQUEATH") && p.ExpectOneOf({"CURRENT_USER", "DEFINER"}) == "CURRENT_USER")
    p.Warn(bequeath, "BEQUEATH CURRENT_USER of a view is not kept");
  p.Expect("AS");
  readViewQuery(p, v);
  auto& views = c.schema().views;
  auto old = findNamed(views, v.name);
  if (old != views.end() && !replace)
    p.FailAt(at, "a second view " + v.name + " (CREATE without OR REPLACE)");
  if (old != views.end()) {
    *old = v;
  } else {
    views.push_back(v);
  }
}

// ---- materialized views -------------------------------------------------------------------------

void readRefresh(Parser& p, model::MaterializedView& m) {
  for (;;) {
    if (p.IsWord("FAST") || p.IsWord("COMPLETE") || p.IsWord("FORCE")) {
      m.refresh_method = p.Take().value;
    } else if (p.Accept("ON")) {
      m.refresh_on = p.ExpectOneOf({"DEMAND", "COMMIT", "STATEMENT"});
    } else if (p.IsWord("START") || p.IsWord("NEXT")) {
      p.Warn(p.Peek(), "the refresh schedule (START WITH, NEXT) of a materialized view is not kept");
      p.Take();
      p.Accept("WITH");
      p.SkipClause({"NEXT", "WITH", "USING", "AS", "ENABLE", "DISABLE", "FOR", "BUILD"});
    } else if (p.AreWords({"WITH", "PRIMARY", "KEY"}) || p.AreWords({"WITH", "ROWID"})) {
      p.Take();
      if (!p.Accept("ROWID")) p.AcceptWords({"PRIMARY", "KEY"});
    } else if (p.AreWords({"USING", "DEFAULT"}) || p.AreWords({"USING", "ENFORCED"}) ||
               p.AreWords({"USING", "TRUSTED"})) {
      p.Take();
      p.Take();
      p.AcceptWords({"LOCAL", "ROLLBACK", "SEGMENT"});
      p.AcceptWords({"CONSTRAINTS"});
    } else {
      return;
    }
  }
}

void createMaterializedView(Parser& p, Context& c) {
  p.Expect("MATERIALIZED");
  p.Expect("VIEW");
  p.AcceptWords({"IF", "NOT", "EXISTS"});
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("a materialized view name");
  c.CheckSchema(p, name, at);
  model::MaterializedView m;
  m.name = name.name;
  if (p.IsOp("(")) {
    p.Warn(p.Peek(), "the column aliases of a materialized view are not kept");
    p.SkipBrackets();
  }
  while (!p.Accept("AS")) {
    const Token& t = p.Peek();
    model::Segment segment;
    if (ReadSegment(p, segment)) {
      p.Note(t, "the physical attributes of a materialized view are not kept (only its tablespace)");
    } else if (p.Accept("TABLESPACE")) {
      m.tablespace = p.Identifier("a tablespace");
    } else if (p.Accept("BUILD")) {
      m.build = p.ExpectOneOf({"IMMEDIATE", "DEFERRED"});
    } else if (p.Accept("REFRESH")) {
      readRefresh(p, m);
    } else if (p.AcceptWords({"NEVER", "REFRESH"})) {
      p.Warn(t, "NEVER REFRESH is not kept");
    } else if (p.AcceptWords({"ENABLE", "QUERY", "REWRITE"})) {
      m.query_rewrite = "ENABLE";
    } else if (p.AcceptWords({"DISABLE", "QUERY", "REWRITE"})) {
      m.query_rewrite = "DISABLE";
    } else if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING") || p.IsWord("NOCOMPRESS") ||
               p.IsWord("COMPRESS") || p.IsWord("NOCACHE") || p.IsWord("CACHE") || p.IsWord("NOPARALLEL") ||
               p.AreWords({"SEGMENT", "CREATION"}) || p.AreWords({"USING", "INDEX"}) ||
               p.AreWords({"FOR", "UPDATE"})) {
      p.Note(t, t.value + " of a materialized view is not kept");
      p.Take();
      p.Accept("CREATION");
      p.Accept("IMMEDIATE");
      p.Accept("DEFERRED");
      p.Accept("INDEX");
      p.Accept("UPDATE");
    } else {
      p.Fail("a materialized view property or AS");
    }
  }
  m.query = p.Rest("a query");
  auto& all = c.schema().materialized_views;
  if (findNamed(all, m.name) != all.end()) p.FailAt(at, "a second materialized view " + m.name);
  all.push_back(m);
}

// ---- synonyms -----------------------------------------------------------------------------------

void createSynonym(Parser& p, Context& c, bool replace) {
  model::Synonym s;
  p.Accept("EDITIONABLE");
  p.Accept("NONEDITIONABLE");
  s.is_public = p.Accept("PUBLIC");
  p.Expect("SYNONYM");
  p.AcceptWords({"IF", "NOT", "EXISTS"});
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("a synonym name");
  if (!s.is_public) c.CheckSchema(p, name, at);
  s.name = name.name;
  p.Expect("FOR");
  const Name target = p.QualifiedName("the object the synonym stands for");
  s.target_schema = target.schema;
  s.target = target.name;
  if (p.AcceptOp("@")) s.dblink = p.Expression({}, "a database link");
  auto& all = c.schema().synonyms;
  auto old = std::find_if(all.begin(), all.end(), [&](const model::Synonym& o) {
    return o.name == s.name && o.is_public == s.is_public;
  });
  if (old != all.end() && !replace) p.FailAt(at, "a second synonym " + s.name);
  if (old != all.end()) {
    *old = s;
  } else {
    all.push_back(s);
  }
}

// ---- triggers -----------------------------------------------------------------------------------

void createTrigger(Parser& p, Context& c, bool replace) {
  p.Accept("EDITIONABLE");
  p.Accept("NONEDITIONABLE");
  p.Expect("TRIGGER");
  p.AcceptWords({"IF", "NOT", "EXISTS"});
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("a trigger name");
  c.CheckSchema(p, name, at);
  model::Trigger t;
  t.name = name.name;
  if (p.AcceptWords({"INSTEAD", "OF"})) {
    t.timing = "INSTEAD OF";
  } else {
    t.timing = p.ExpectOneOf({"BEFORE", "AFTER"});
  }
  do {
    const std::string event = p.ExpectOneOf({"INSERT", "UPDATE", "DELETE"});
    if (event == "UPDATE" && p.Accept("OF")) {
      std::string columns;
      do {
        columns += (columns.empty() ? "" : ", ") + p.Identifier("a column name");
      } while (p.AcceptOp(","));
      t.events.push_back("UPDATE OF " + columns);
    } else {
      t.events.push_back(event);
    }
  } while (p.Accept("OR"));
  p.Expect("ON");
  const Token& tableAt = p.Peek();
  if (p.IsWord("SCHEMA") || p.IsWord("DATABASE"))
    p.FailAt(tableAt, "triggers on schema or database events cannot be described");
  const Name table = p.QualifiedName("a table name");
  c.CheckSchema(p, table, tableAt);
  t.table = table.name;
  if (p.Accept("REFERENCING")) {
    while (p.IsWord("NEW") || p.IsWord("OLD") || p.IsWord("PARENT")) {
      const Token& which = p.Peek();
      const std::string correlation = p.Take().value;
      p.Accept("AS");
      const std::string name = p.Identifier("a correlation name");
      if (correlation == "OLD") t.referencing_old = name;
      if (correlation == "NEW") t.referencing_new = name;
      if (correlation == "PARENT")
        p.Warn(which, "REFERENCING PARENT of trigger " + t.name + " is not kept: its body must use :PARENT");
    }
  }
  if (p.AcceptWords({"FOR", "EACH", "ROW"})) t.for_each_row = true;
  if (p.IsWord("ENABLE") || p.IsWord("DISABLE")) t.enabled = p.Take().value;
  if (p.Accept("WHEN")) {
    p.ExpectOp("(");
    t.when = p.Expression({}, "a condition");
    p.ExpectOp(")");
  }
  t.body = p.Rest("the trigger's body", true);
  auto& all = c.schema().triggers;
  auto old = findNamed(all, t.name);
  if (old != all.end() && !replace) p.FailAt(at, "a second trigger " + t.name);
  if (old != all.end()) {
    *old = t;
  } else {
    all.push_back(t);
  }
}

// ---- indexes ------------------------------------------------------------------------------------

void readIndexPartitions(Parser& p, std::vector<model::Partition>& out, bool global) {
  if (!p.AcceptOp("(")) return;
  do {
    model::Partition part;
    p.Expect("PARTITION");
    if (!p.IsWord("VALUES")) part.name = p.Identifier("a partition name");
    if (global && p.AcceptWords({"VALUES", "LESS", "THAN"})) {
      p.ExpectOp("(");
      do {
        part.values_less_than.push_back(p.Expression({}, "a bound"));
      } while (p.AcceptOp(","));
      p.ExpectOp(")");
    }
    for (;;) {
      if (ReadSegment(p, part.segment)) {
      } else if (p.Accept("TABLESPACE")) {
        part.tablespace = p.Identifier("a tablespace");
      } else if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING")) {
        part.logging = p.Take().value;
      } else if (p.Accept("NOCOMPRESS") || p.Accept("COMPRESS") || p.Accept("USABLE") ||
                 p.Accept("UNUSABLE")) {
      } else {
        break;
      }
    }
    out.push_back(part);
  } while (p.AcceptOp(","));
  p.ExpectOp(")");
}

}  // namespace

void ReadCreateIndex(Parser& p, Context& c) {
  model::Index x;
  if (p.Accept("UNIQUE")) x.unique = true;
  if (p.Accept("BITMAP")) x.bitmap = true;
  p.Expect("INDEX");
  p.AcceptWords({"IF", "NOT", "EXISTS"});
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("an index name");
  c.CheckSchema(p, name, at);
  x.name = name.name;
  p.Expect("ON");
  const Token& tableAt = p.Peek();
  if (p.IsWord("CLUSTER")) p.FailAt(tableAt, "cluster indexes cannot be described");
  model::Table& t = c.Table(p, p.QualifiedName("a table name"), tableAt);
  p.ExpectOp("(");
  do {
    model::IndexKey k;
    const std::size_t from = p.Mark();
    const Token& first = p.Peek();
    const bool plain = (first.Is(TokenKind::Identifier) || first.Is(TokenKind::QuotedIdentifier)) &&
                       (p.IsOp(",", 1) || p.IsOp(")", 1) || p.IsWord("ASC", 1) || p.IsWord("DESC", 1));
    if (plain) {
      k.column = p.Identifier();
    } else {
      p.SkipClause({"ASC", "DESC"});
      k.expression = p.Text(from, p.Mark());
      if (k.expression.empty()) p.Fail("a column or an expression");
    }
    if (p.IsWord("ASC") || p.IsWord("DESC")) k.order = p.Take().value;
    x.keys.push_back(k);
  } while (p.AcceptOp(","));
  p.ExpectOp(")");
  while (!p.AtEnd()) {
    const Token& t2 = p.Peek();
    if (ReadSegment(p, x.segment)) {
    } else if (p.Accept("TABLESPACE")) {
      x.tablespace = p.Identifier("a tablespace");
    } else if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING")) {
      x.logging = p.Take().value;
    } else if (p.Accept("NOCOMPRESS")) {
      x.compress = "NOCOMPRESS";
    } else if (p.Accept("COMPRESS")) {
      x.compress = p.Peek().Is(TokenKind::Number) ? p.Integer() : "COMPRESS";
      if (p.Accept("ADVANCED")) p.ExpectOneOf({"LOW", "HIGH"});
    } else if (p.Accept("NOPARALLEL")) {
      x.parallel = "NOPARALLEL";
    } else if (p.Accept("PARALLEL")) {
      x.parallel = p.Peek().Is(TokenKind::Number) ? p.Integer() : "PARALLEL";
    } else if (p.Accept("REVERSE")) {
      x.reverse = true;
    } else if (p.Accept("INVISIBLE")) {
      x.invisible = true;
    } else if (p.Accept("VISIBLE")) {
    } else if (p.Accept("ONLINE")) {
      x.online = true;
    } else if (p.AcceptWords({"INDEXING", "PARTIAL"})) {
      x.partial = true;
    } else if (p.AcceptWords({"INDEXING", "FULL"}) || p.AcceptWords({"COMPUTE", "STATISTICS"}) ||
               p.Accept("NOSORT") || p.Accept("SORT")) {
    } else if (p.Accept("LOCAL")) {
      x.local = true;
      readIndexPartitions(p, x.local_partitions, false);
    } else if (p.AcceptWords({"GLOBAL", "PARTITION", "BY"})) {
      x.global_type = p.ExpectOneOf({"RANGE", "HASH"});
      x.global_columns = p.NameList();
      if (x.global_type == "HASH" && p.Accept("PARTITIONS")) {
        x.global_count = p.Count("a number of partitions", kMostPartitions);
        if (p.AcceptWords({"STORE", "IN"})) p.NameList();
      } else {
        readIndexPartitions(p, x.global_partitions, true);
      }
    } else {
      p.Fail("an index property or the end of the statement");
    }
    (void)t2;
  }
  if (!name.schema.empty() && name.schema != t.schema) x.schema = name.schema;
  if (findNamed(t.indexes, x.name) != t.indexes.end()) p.FailAt(at, "a second index " + x.name);
  t.indexes.push_back(x);
  // An index under the name of a key declared before it, over the key's columns: the index Oracle
  // made with the key (DBMS_METADATA gives it too, when a script puts each index's DDL after its
  // table's). It is the key's index, not a second one of the same name.
  for (model::Constraint& k : t.constraints) {
    if (k.name == x.name && TakeIndexForKey(k, x))
      p.Note(at, "index " + x.name + " is the index of the key " + k.name + " declared before it");
  }
}

namespace {

// ---- COMMENT, DROP, RENAME, ALTER of the other objects -------------------------------------------

void comment(Parser& p, Context& c) {
  p.Expect("ON");
  const Token& at = p.Peek();
  const std::string kind = p.ExpectOneOf({"TABLE", "COLUMN", "MATERIALIZED"});
  if (kind == "MATERIALIZED") {
    p.Warn(at, "comments on materialized views are not kept");
    p.Rest("the comment");
    return;
  }
  // [schema.]table or [schema.]table.column
  std::vector<std::string> parts = {p.Identifier("a name")};
  while (p.AcceptOp("."))
    parts.push_back(p.Identifier("a name"));
  p.Expect("IS");
  const std::string text = p.String("the comment");
  const std::size_t tableParts = parts.size() - (kind == "COLUMN" ? 1 : 0);
  if (tableParts < 1 || tableParts > 2)
    p.FailAt(at, "expected [schema.]table" + std::string(kind == "COLUMN" ? ".column" : ""));
  Name table{tableParts == 2 ? parts[0] : "", parts[tableParts - 1]};
  model::Table& t = c.Table(p, table, at);
  if (kind == "TABLE") {
    t.comment = text;
    return;
  }
  auto column = findNamed(t.columns, parts.back());
  if (column == t.columns.end()) p.FailAt(at, "table " + t.name + " has no column " + parts.back());
  column->comment = text;
}

template <class T>
void erase(Parser& p, std::vector<T>& all, const std::string& name, const Token& at, const char* what) {
  auto found = findNamed(all, name);
  if (found == all.end()) p.FailAt(at, std::string("no ") + what + " " + name + " to drop");
  all.erase(found);
}

void drop(Parser& p, Context& c) {
  model::Schema& s = c.schema();
  const bool isPublic = p.Accept("PUBLIC");
  const Token& kindAt = p.Peek();
  std::string kind =
      p.ExpectOneOf({"TABLE", "INDEX", "VIEW", "SEQUENCE", "SYNONYM", "MATERIALIZED", "TRIGGER"});
  if (kind == "MATERIALIZED") {
    p.Expect("VIEW");
    if (p.IsWord("LOG")) p.FailAt(kindAt, "materialized view logs cannot be described");
  }
  if (isPublic && kind != "SYNONYM") p.FailAt(kindAt, "only a synonym is PUBLIC");
  const bool ifExists = p.AcceptWords({"IF", "EXISTS"});
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("a name");
  if (!isPublic) c.CheckSchema(p, name, at);
  auto absent = [&](bool found) { return !found && ifExists; };
  if (kind == "TABLE") {
    if (absent(c.FindTable(name.name) != nullptr)) return;
    erase(p, s.tables, name.name, at, "table");
    p.AcceptWords({"CASCADE", "CONSTRAINTS"});
    p.Accept("PURGE");
    // Its triggers go with it.
    s.triggers.erase(std::remove_if(s.triggers.begin(),
                                    s.triggers.end(),
                                    [&](const model::Trigger& t) { return t.table == name.name; }),
                     s.triggers.end());
  } else if (kind == "INDEX") {
    for (model::Table& t : s.tables) {
      auto found = findNamed(t.indexes, name.name);
      if (found != t.indexes.end()) {
        t.indexes.erase(found);
        p.Accept("ONLINE");
        p.Accept("FORCE");
        return;
      }
    }
    if (!ifExists) p.FailAt(at, "no index " + name.name + " to drop");
  } else if (kind == "VIEW") {
    if (absent(findNamed(s.views, name.name) != s.views.end())) return;
    erase(p, s.views, name.name, at, "view");
    p.AcceptWords({"CASCADE", "CONSTRAINTS"});
  } else if (kind == "SEQUENCE") {
    if (absent(findNamed(s.sequences, name.name) != s.sequences.end())) return;
    erase(p, s.sequences, name.name, at, "sequence");
  } else if (kind == "MATERIALIZED") {
    if (absent(findNamed(s.materialized_views, name.name) != s.materialized_views.end())) return;
    erase(p, s.materialized_views, name.name, at, "materialized view");
    p.AcceptWords({"PRESERVE", "TABLE"});
  } else if (kind == "TRIGGER") {
    if (absent(findNamed(s.triggers, name.name) != s.triggers.end())) return;
    erase(p, s.triggers, name.name, at, "trigger");
  } else {
    auto found = std::find_if(s.synonyms.begin(), s.synonyms.end(), [&](const model::Synonym& o) {
      return o.name == name.name && o.is_public == isPublic;
    });
    if (found == s.synonyms.end()) {
      if (!ifExists) p.FailAt(at, "no synonym " + name.name + " to drop");
      return;
    }
    s.synonyms.erase(found);
    p.Accept("FORCE");
  }
  if (!p.AtEnd()) p.Fail("the end of the statement");
}

void rename(Parser& p, Context& c) {
  const Token& at = p.Peek();
  const std::string from = p.Identifier("the name of a table, view, sequence or synonym");
  p.Expect("TO");
  const std::string to = p.Identifier("the new name");
  model::Schema& s = c.schema();
  if (c.FindTable(from) != nullptr) {
    c.RenameTable(from, to);
  } else if (auto v = findNamed(s.views, from); v != s.views.end()) {
    v->name = to;
  } else if (auto q = findNamed(s.sequences, from); q != s.sequences.end()) {
    q->name = to;
  } else if (auto y = std::find_if(s.synonyms.begin(),
                                   s.synonyms.end(),
                                   [&](const model::Synonym& o) { return o.name == from && !o.is_public; });
             y != s.synonyms.end()) {
    y->name = to;
  } else {
    p.FailAt(at, "no table, view, sequence or synonym " + from + " to rename");
  }
}

void alterIndex(Parser& p, Context& c) {
  const Token& at = p.Peek();
  const Name name = p.QualifiedName("an index name");
  c.CheckSchema(p, name, at);
  model::Index* x = nullptr;
  for (model::Table& t : c.schema().tables) {
    auto found = findNamed(t.indexes, name.name);
    if (found != t.indexes.end()) x = &*found;
  }
  if (x == nullptr) p.FailAt(at, "no index " + name.name);
  // The index's partition that the statement names next.
  auto partition = [&] {
    const Token& partAt = p.Peek();
    const std::string part = p.Identifier("a partition name");
    auto& all = x->local ? x->local_partitions : x->global_partitions;
    auto found = findNamed(all, part);
    if (found == all.end()) p.FailAt(partAt, "index " + x->name + " has no partition " + part);
    return found;
  };
  if (p.AcceptWords({"RENAME", "PARTITION"})) {
    auto found = partition();
    p.Expect("TO");
    found->name = p.Identifier("the new name");
  } else if (p.Accept("RENAME")) {
    p.Expect("TO");
    x->name = p.Identifier("the new name");
  } else if (p.Accept("VISIBLE")) {
    x->invisible = false;
  } else if (p.Accept("INVISIBLE")) {
    x->invisible = true;
  } else if (p.AreWords({"MODIFY", "PARTITION"}) || p.AreWords({"REBUILD", "PARTITION"}) ||
             p.AreWords({"REBUILD", "SUBPARTITION"})) {
    // MODIFY PARTITION changes in place what it can (not PCTFREE nor the tablespace); REBUILD makes the
    // segment anew with any of them.
    const bool rebuild = p.Take().value == "REBUILD";
    p.Take();  // PARTITION or SUBPARTITION
    auto found = partition();
    while (!p.AtEnd()) {
      if (rebuild && p.Accept("TABLESPACE")) {
        found->tablespace = p.Identifier("a tablespace");
      } else if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING")) {
        found->logging = p.Take().value;
      } else if ((!rebuild && p.IsWord("PCTFREE")) ||
                 (!ReadSegment(p, found->segment) && !(rebuild && p.Accept("ONLINE")))) {
        p.Fail(rebuild ? "a REBUILD PARTITION attribute" : "a MODIFY PARTITION attribute");
      }
    }
  } else if (p.Accept("REBUILD")) {
    while (!p.AtEnd()) {
      if (p.Accept("TABLESPACE")) {
        x->tablespace = p.Identifier("a tablespace");
      } else if (ReadSegment(p, x->segment)) {
      } else if (p.IsWord("LOGGING") || p.IsWord("NOLOGGING")) {
        x->logging = p.Take().value;
      } else if (p.Accept("REVERSE")) {
        x->reverse = true;
      } else if (p.Accept("NOREVERSE")) {
        x->reverse = false;
      } else if (p.Accept("NOCOMPRESS")) {
        x->compress = "NOCOMPRESS";
      } else if (p.Accept("COMPRESS")) {
        x->compress = p.Peek().Is(TokenKind::Number) ? p.Integer() : "COMPRESS";
      } else if (p.Accept("NOPARALLEL")) {
        x->parallel = "NOPARALLEL";
      } else if (p.Accept("PARALLEL")) {
        x->parallel = p.Peek().Is(TokenKind::Number) ? p.Integer() : "PARALLEL";
      } else if (p.Accept("ONLINE")) {
      } else {
        p.Fail("a REBUILD attribute");
      }
    }
  } else {
    p.Fail("RENAME, REBUILD, MODIFY PARTITION, VISIBLE or INVISIBLE");
  }
  if (!p.AtEnd()) p.Fail("the end of the statement");
}

// The object an ALTER names, from `objects`, or a fault naming `what`.
template <class T>
T& altered(Parser& p, Context& c, std::vector<T>& objects, const std::string& what) {
  const Token& at = p.Peek();
  const Name name = p.QualifiedName(("a " + what + " name").c_str());
  c.CheckSchema(p, name, at);
  auto found = findNamed(objects, name.name);
  if (found == objects.end()) p.FailAt(at, "no " + what + " " + name.name);
  return *found;
}

void alterSequence(Parser& p, Context& c) {
  model::Sequence* s = &altered(p, c, c.schema().sequences, "sequence");
  const model::Sequence before = *s;
  readSequenceOptions(p, *s, true);
  // What ALTER SEQUENCE sets back to Oracle's default is described by leaving it out.
  for (auto [value, old, fallback] :
       {std::tuple<std::string*, const std::string*, const char*>{&s->cycle, &before.cycle, "NOCYCLE"},
        {&s->order, &before.order, "NOORDER"},
        {&s->cache, &before.cache, "20"},
        {&s->increment_by, &before.increment_by, "1"}}) {
    if (*value != *old && *value == fallback) value->clear();
  }
}

void alterMaterializedView(Parser& p, Context& c) {
  p.Expect("VIEW");
  model::MaterializedView* m = &altered(p, c, c.schema().materialized_views, "materialized view");
  if (p.Accept("REFRESH")) {
    readRefresh(p, *m);
  } else if (p.AcceptWords({"ENABLE", "QUERY", "REWRITE"})) {
    m->query_rewrite = "ENABLE";
  } else if (p.AcceptWords({"DISABLE", "QUERY", "REWRITE"})) {
    m->query_rewrite = "DISABLE";
  } else {
    p.Fail("REFRESH, or ENABLE or DISABLE QUERY REWRITE");
  }
  if (!p.AtEnd()) p.Fail("the end of the statement");
}

void alterTrigger(Parser& p, Context& c) {
  model::Trigger* t = &altered(p, c, c.schema().triggers, "trigger");
  // A trigger is enabled unless it says otherwise: an export's ALTER TRIGGER ... ENABLE adds nothing.
  t->enabled = p.ExpectOneOf({"ENABLE", "DISABLE"}) == "DISABLE" ? "DISABLE" : "";
  if (!p.AtEnd()) p.Fail("the end of the statement");
}

// One statement, by its first words.
void readStatement(Parser& p, Context& c) {
  if (p.Accept("CREATE")) {
    const bool replace = p.AcceptWords({"OR", "REPLACE"});
    if (p.IsWord("TABLE") || p.AreWords({"GLOBAL", "TEMPORARY"})) return ReadCreateTable(p, c);
    if (p.IsWord("INDEX") || p.IsWord("UNIQUE") || p.IsWord("BITMAP")) return ReadCreateIndex(p, c);
    if (p.IsWord("SEQUENCE")) return createSequence(p, c);
    if (p.IsWord("MATERIALIZED") && !p.AreWords({"MATERIALIZED", "VIEW", "LOG"}))
      return createMaterializedView(p, c);
    // Synonyms and triggers may be marked for editions (Oracle 12c's export marks them).
    const std::size_t edition = p.IsWord("EDITIONABLE") || p.IsWord("NONEDITIONABLE") ? 1 : 0;
    if (p.IsWord("PUBLIC", edition) || p.IsWord("SYNONYM", edition)) return createSynonym(p, c, replace);
    if (p.IsWord("TRIGGER", edition)) return createTrigger(p, c, replace);
    for (std::size_t ahead = 0; ahead < 4; ++ahead) {
      if (p.IsWord("VIEW", ahead)) return createView(p, c, replace);
    }
  } else if (p.Accept("ALTER")) {
    if (p.IsWord("TABLE")) return ReadAlterTable(p, c);
    if (p.Accept("INDEX")) return alterIndex(p, c);
    if (p.Accept("SEQUENCE")) return alterSequence(p, c);
    if (p.Accept("MATERIALIZED") && !p.IsWord("VIEW", 0)) p.Fail("VIEW");
    if (p.IsWord("VIEW") && !p.IsWord("LOG", 1)) return alterMaterializedView(p, c);
    if (p.Accept("TRIGGER")) return alterTrigger(p, c);
  } else if (p.Accept("DROP")) {
    return drop(p, c);
  } else if (p.Accept("RENAME")) {
    return rename(p, c);
  } else if (p.Accept("COMMENT")) {
    return comment(p, c);
  }
  throw Error(ErrorKind::Refused, "", "unknown statement");
}

}  // namespace

void Context::CheckSchema(Parser& p, const Name& name, const Token& at) {
  if (name.schema.empty()) return;
  if (m_schema.name.empty() && m_schema.tables.empty() && m_schema.sequences.empty() &&
      m_schema.views.empty() && m_schema.materialized_views.empty() && m_schema.triggers.empty()) {
    m_schema.name = name.schema;
    return;
  }
  if (name.schema != m_schema.name) {
    p.FailAt(at,
             name.name + " is in schema " + name.schema + ", the script's other objects in " +
                 (m_schema.name.empty() ? std::string("no named schema") : m_schema.name) +
                 ": a schema description holds one schema");
  }
}

void Context::RenameColumn(model::Table& t, const std::string& from, const std::string& to) {
  auto rename = [&](std::vector<std::string>& names) { std::replace(names.begin(), names.end(), from, to); };
  for (model::Constraint& k : t.constraints)
    rename(k.columns);
  for (model::Index& x : t.indexes) {
    for (model::IndexKey& key : x.keys) {
      if (key.column == from) key.column = to;
    }
  }
  rename(t.partitioning.columns);
  rename(t.partitioning.subcolumns);
  for (model::Table& other : m_schema.tables) {
    for (model::Constraint& k : other.constraints) {
      if (k.ref_table == t.name && (k.ref_schema.empty() || k.ref_schema == m_schema.name))
        rename(k.ref_columns);
    }
  }
}

void Context::RenameTable(std::string from,
                          const std::string& to) {  // `from` copied: it may be the name it renames
  FindTable(from)->name = to;
  for (model::Table& other : m_schema.tables) {
    for (model::Constraint& k : other.constraints) {
      if (k.ref_table == from && (k.ref_schema.empty() || k.ref_schema == m_schema.name)) k.ref_table = to;
    }
  }
  for (model::Trigger& trigger : m_schema.triggers) {
    if (trigger.table == from) trigger.table = to;
  }
}

model::Table* Context::FindTable(const std::string& name) {
  auto found = findNamed(m_schema.tables, name);
  return found == m_schema.tables.end() ? nullptr : &*found;
}

model::Table& Context::Table(Parser& p, const Name& name, const Token& at) {
  CheckSchema(p, name, at);
  model::Table* t = FindTable(name.name);
  if (t == nullptr) p.FailAt(at, "no table " + name.name + " in the script before this statement");
  return *t;
}

void ApplyScript(model::Schema& schema,
                 std::string_view text,
                 const std::string& source,
                 const ReadOptions& options,
                 ReadReport& report) {
  // A script's names are exact (the reader folds the unquoted ones itself, as Oracle does). Names a
  // document gave are resolved first, so that the script finds its objects by their names.
  if (!schema.preserve_case) schema = model::ResolveSchemaNames(schema);
  Context context(schema, options, report);
  ScriptTokens tokens(text);
  auto where = [&](const Token& t) {
    return source + ":" + std::to_string(t.start.line) + ":" + std::to_string(t.start.column);
  };
  for (;;) {
    Token t = tokens.Next();
    while (t.IsComment() || t.Is(TokenKind::SlashLine))
      t = tokens.Next();
    if (t.Is(TokenKind::EndOfInput)) return;
    const bool lineStart =
        t.start.column == 1 ||
        text.substr(t.start.offset - (t.start.column - 1), t.start.column - 1).find_first_not_of(" \t") ==
            std::string_view::npos;
    if (lineStart && ((t.Is(TokenKind::Identifier) && isSqlPlusCommand(t.value)) || t.IsOperator("@") ||
                      t.IsOperator("@@"))) {
      report.notes.push_back(where(t) + ": SQL*Plus line skipped: " + std::string(tokens.Line(t)));
      tokens.SkipLine(t);
      continue;
    }
    Statement statement{{}, {}, text, source};
    for (;; t = tokens.Next()) {
      if (t.Is(TokenKind::Error)) throw Error(ErrorKind::BadInput, where(t), t.value);
      if (t.IsComment()) {
        statement.comments.push_back(t);
        continue;
      }
      if (t.Is(TokenKind::EndOfInput) || t.Is(TokenKind::SlashLine)) break;
      if (t.IsOperator(";") && !isPlsql(statement.tokens)) break;
      statement.tokens.push_back(t);
    }
    if (isPlsql(statement.tokens) && !t.Is(TokenKind::SlashLine) && !statement.tokens.empty()) {
      // A PL/SQL unit runs at its "/" line; at the end of the script SQL*Plus would not run it.
      report.warnings.push_back(where(statement.tokens.front()) + ": a PL/SQL unit without its \"/\" line");
    }
    Token end = t;
    end.kind = TokenKind::EndOfInput;
    statement.tokens.push_back(end);
    if (statement.tokens.size() == 1) continue;
    Parser parser(statement, report);
    try {
      readStatement(parser, context);
      if (!parser.AtEnd()) parser.Fail("the end of the statement");
    } catch (const Error& error) {
      if (error.kind() != ErrorKind::Refused) throw;
      const std::string what = head(statement);
      if (!options.skip_unknown) {
        throw Error(ErrorKind::BadInput,
                    where(statement.tokens.front()),
                    "cannot read this statement: " + what + " (--skip-unknown skips it with a warning)");
      }
      report.warnings.push_back(where(statement.tokens.front()) + ": skipped: " + what);
    }
  }
}

model::Schema ReadScript(std::string_view text,
                         const std::string& source,
                         const ReadOptions& options,
                         ReadReport& report) {
  model::Schema schema;
  schema.release = options.release;
  ApplyScript(schema, text, source, options, report);
  return schema;
}

}  // namespace qarvelt::ddl
