// Schema documents: reading them, and the CREATE script of a whole schema in dependency order.
#include "qarvelt/model/schema.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <tuple>

#include <qarvelt/model/expressions.h>
#include <qarvelt/qarvelt.h>

#include "commands.h"
#include "create_support.h"
#include "document_reader.h"
#include "identifiers.h"
#include "qarvelt/ddl/reader.h"
#include "schema_support.h"

namespace qarvelt::model {

namespace {

// The keys of a schema document that hold object lists.
constexpr const char* kObjectLists[] = {
    "tables", "sequences", "views", "materialized_views", "synonyms", "indexes", "triggers"};

void readSequence(ObjectReader& r, Sequence& s) {
  s.name = r.Text("name", true);
  s.renamed_from = r.Text("renamed_from");
  s.start_with = r.Text("start_with");
  s.increment_by = r.Text("increment_by");
  s.minvalue = r.Text("minvalue");
  s.maxvalue = r.Text("maxvalue");
  s.cycle = r.Keyword("cycle", "CYCLE", "NOCYCLE");
  s.order = r.Keyword("order", "ORDER", "NOORDER");
  if (const Json* cache = r.Raw("cache"); cache != nullptr && cache->is_boolean()) {
    if (cache->get<bool>()) r.Fail("cache", "give the number of values to cache, or false");
    s.cache = "NOCACHE";
  } else {
    s.cache = r.Text("cache");
  }
}

void readView(ObjectReader& r, View& v) {
  v.name = r.Text("name", true);
  v.renamed_from = r.Text("renamed_from");
  v.columns = r.Texts("columns");
  v.query = r.Text("query", true);
  v.force = r.Flag("force") == 1;
  v.read_only = r.Flag("read_only") == 1;
  v.check_option = r.Flag("check_option") == 1;
  if (v.read_only && v.check_option) r.Fail("check_option", "a view is either read only or checked");
}

void readMaterializedView(ObjectReader& r, MaterializedView& m) {
  m.name = r.Text("name", true);
  m.query = r.Text("query", true);
  m.build = ReadChoice(r, "build", {"IMMEDIATE", "DEFERRED"});
  r.Object("refresh", [&](ObjectReader& f) {
    m.refresh_method = ReadChoice(f, "method", {"FAST", "COMPLETE", "FORCE"});
    m.refresh_on = ReadChoice(f, "on", {"DEMAND", "COMMIT"});
  });
  m.query_rewrite = r.Keyword("query_rewrite", "ENABLE", "DISABLE");
  m.tablespace = r.Text("tablespace");
}

void readSynonym(ObjectReader& r, Synonym& s) {
  s.name = r.Text("name", true);
  s.is_public = r.Flag("public") == 1;
  const std::string target = r.Text("target", true);
  const auto dot = target.find('.');
  s.target_schema = dot == std::string::npos ? "" : target.substr(0, dot);
  s.target = dot == std::string::npos ? target : target.substr(dot + 1);
  if (s.target.empty() || target.find('.', dot == std::string::npos ? 0 : dot + 1) != std::string::npos)
    r.Fail("target", "expected OBJECT or SCHEMA.OBJECT, got \"" + target + "\"");
  s.dblink = r.Text("dblink");
}

void readTrigger(ObjectReader& r, Trigger& t) {
  t.name = r.Text("name", true);
  t.timing = ReadChoice(r, "timing", {"BEFORE", "AFTER", "INSTEAD OF"}, true);
  for (std::string event : r.Texts("events", true)) {
    std::transform(event.begin(), event.end(), event.begin(), [](unsigned char c) {
      return static_cast<char>(std::toupper(c));
    });
    const bool update = event == "UPDATE" || event.rfind("UPDATE OF ", 0) == 0;
    if (event != "INSERT" && event != "DELETE" && !update)
      r.Fail("events", "\"" + event + "\" is not insert, delete, update or update of COLUMNS");
    t.events.push_back(event);
  }
  if (t.events.empty()) r.Fail("events", "missing (a trigger fires on at least one event)");
  t.table = r.Text("table", true);
  t.for_each_row = r.Flag("for_each_row") == 1;
  r.Object("referencing", [&](ObjectReader& x) {
    t.referencing_old = x.Text("old");
    t.referencing_new = x.Text("new");
  });
  t.when = r.Text("when");
  t.body = r.Text("body", true);
  t.enabled = r.Keyword("enabled", "ENABLE", "DISABLE");
}

}  // namespace

std::set<std::string> NamesIn(const std::string& text) {
  std::set<std::string> names;
  for (std::size_t i = 0; i < text.size();) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '\'' || c == '"') {
      const std::size_t end = text.find(static_cast<char>(c), i + 1);
      if (c == '"')
        names.insert(text.substr(i + 1, end == std::string::npos ? std::string::npos : end - i - 1));
      i = end == std::string::npos ? text.size() : end + 1;
    } else if (std::isalpha(c) != 0) {
      std::string word;
      while (i < text.size() && (std::isalnum(static_cast<unsigned char>(text[i])) != 0 || text[i] == '_' ||
                                 text[i] == '$' || text[i] == '#')) {
        word += static_cast<char>(std::toupper(static_cast<unsigned char>(text[i])));
        ++i;
      }
      names.insert(word);
    } else {
      ++i;
    }
  }
  return names;
}

std::vector<std::size_t> DependencyOrder(
    std::size_t count,
    const std::function<std::set<std::size_t>(std::size_t)>& dependsOn,
    const std::function<void(std::size_t, const std::set<std::size_t>&)>& breakCycle) {
  std::vector<std::set<std::size_t>> needs(count);
  std::vector<std::vector<std::size_t>> dependants(count);
  std::vector<std::size_t> missing(count);
  std::set<std::size_t> ready;
  for (std::size_t i = 0; i < count; ++i) {
    needs[i] = dependsOn(i);
    needs[i].erase(i);
    for (std::size_t n : needs[i])
      dependants[n].push_back(i);
    missing[i] = needs[i].size();
    if (missing[i] == 0) ready.insert(i);
  }
  std::vector<std::size_t> order;
  std::vector<bool> placed(count, false);
  auto place = [&](std::size_t i) {
    placed[i] = true;
    order.push_back(i);
    for (std::size_t d : dependants[i]) {
      if (!placed[d] && --missing[d] == 0) ready.insert(d);
    }
  };
  // Whether `start` waits, through items that wait, on itself.
  auto onCycle = [&](std::size_t start) {
    std::vector<std::size_t> todo{start};
    std::set<std::size_t> seen;
    while (!todo.empty()) {
      const std::size_t at = todo.back();
      todo.pop_back();
      for (std::size_t n : needs[at]) {
        if (n == start) return true;
        if (!placed[n] && seen.insert(n).second) todo.push_back(n);
      }
    }
    return false;
  };
  while (order.size() < count) {
    if (!ready.empty()) {
      const std::size_t next = *ready.begin();
      ready.erase(ready.begin());
      place(next);
      continue;
    }
    std::size_t first = 0;
    while (placed[first] || !onCycle(first))
      ++first;
    std::set<std::size_t> waiting;
    for (std::size_t n : needs[first]) {
      if (!placed[n]) waiting.insert(n);
    }
    breakCycle(first, waiting);
    place(first);
  }
  return order;
}

ObjectWriter::ObjectWriter(std::string schema, int release, const Options& options)
    : m_schema(std::move(schema)), m_release(release), m_options(options) {}

std::string ObjectWriter::Fold(const std::string& name) const {
  return m_options.preserve_case ? name : FoldName(name);
}

std::string ObjectWriter::Id(const std::string& name, const std::string& where) const {
  return Identifier(Fold(name), m_release, m_options.quote_all, where);
}

// IF NOT EXISTS (Oracle 23ai) when the options ask for it; OR REPLACE statements take none.
void ObjectWriter::guard(create::TreeFiller& f) const {
  f.Set("IF_NOT_EXISTS", m_options.if_exists ? "IF NOT EXISTS" : "", "--if-exists");
}

// The schema, when there is one, and the object's name.
void ObjectWriter::qualify(create::TreeFiller& f,
                           const char* nameLeaf,
                           const std::string& name,
                           const std::string& where) const {
  if (!m_schema.empty()) f.Set("SCHEMA", Id(m_schema, "schema"), "schema");
  f.Set(nameLeaf, Id(name, where + ".name"), where + ".name");
}

template <class Drop>
std::string ObjectWriter::Dropping(const std::string& name,
                                   std::vector<std::pair<const char*, std::string>> more) {
  Drop statement(true, m_release);
  create::TreeFiller f(statement, statement.verb());
  if (m_options.if_exists) f.Set("IF_EXISTS", "IF EXISTS", "--if-exists");
  const bool isPublic =
      std::any_of(more.begin(), more.end(), [](const auto& m) { return std::string(m.first) == "PUBLIC"; });
  if (isPublic) {
    f.Set(Drop::kNameLeaf, Id(name, name), name);
  } else {
    qualify(f, Drop::kNameLeaf, name, name);
  }
  for (const auto& [leaf, value] : more)
    f.Set(leaf, value, name);
  return f.Write();
}

template std::string ObjectWriter::Dropping<CSQLDropTable>(const std::string&,
                                                           std::vector<std::pair<const char*, std::string>>);
template std::string ObjectWriter::Dropping<CSQLDropView>(const std::string&,
                                                          std::vector<std::pair<const char*, std::string>>);
template std::string ObjectWriter::Dropping<CSQLDropSequence>(
    const std::string&, std::vector<std::pair<const char*, std::string>>);
template std::string ObjectWriter::Dropping<CSQLDropSynonym>(
    const std::string&, std::vector<std::pair<const char*, std::string>>);
template std::string ObjectWriter::Dropping<CSQLDropMaterializedView>(
    const std::string&, std::vector<std::pair<const char*, std::string>>);
template std::string ObjectWriter::Dropping<CSQLDropTrigger>(
    const std::string&, std::vector<std::pair<const char*, std::string>>);

std::string ObjectWriter::Sequence(const model::Sequence& s, const std::string& where) {
  CSQLCreateSequence statement(true, m_release);
  create::TreeFiller f(statement, "CREATE SEQUENCE");
  guard(f);
  qualify(f, "SEQUENCE", s.name, where);
  for (const auto& [leaf, value, key] :
       {std::tuple<const char*, std::string, const char*>{"INCREMENT", s.increment_by, "increment_by"},
        {"START", s.start_with, "start_with"},
        {"MAXVALUE;VALUE", s.maxvalue, "maxvalue"},
        {"MINVALUE;VALUE", s.minvalue, "minvalue"}}) {
    create::CheckNumber(value, -999999999999999999, 999999999999999999, where + "." + key);
    f.Set(leaf, value, where + "." + key);
  }
  f.Set("MAXVALUE", s.maxvalue.empty() ? "" : "MAXVALUE", where + ".maxvalue");
  f.Set("MINVALUE", s.minvalue.empty() ? "" : "MINVALUE", where + ".minvalue");
  f.Set("CYCLE", s.cycle, where + ".cycle");
  if (s.cache == "NOCACHE") {
    f.Set("CACHE", "NOCACHE", where + ".cache");
  } else if (!s.cache.empty()) {
    create::CheckNumber(s.cache, 2, 999999999999999999, where + ".cache");
    f.Set("CACHE", "CACHE", where + ".cache");
    f.Set("CACHE;VALUE", s.cache, where + ".cache");
  }
  f.Set("ORDER", s.order, where + ".order");
  return f.Write();
}

std::string ObjectWriter::View(const model::View& v, const std::string& where, bool orReplace) {
  CSQLCreateView statement(true, m_release);
  create::TreeFiller f(statement, "CREATE VIEW");
  f.Set("REPLACE", orReplace ? "REPLACE" : "", where);
  if (!orReplace) guard(f);
  f.Set("FORCE", v.force ? "FORCE" : "", where + ".force");
  qualify(f, "VIEW", v.name, where);
  for (std::size_t i = 0; i < v.columns.size(); ++i) {
    const std::string item = "A" + std::to_string(i + 1);
    f.Add("C_VIEW_ALIAS;LIST",
          std::make_unique<CSQLCreateView::CSubSQLItemAlias>(item.c_str(), m_release),
          where);
    f.Set("C_VIEW_ALIAS;LIST;" + item + ";ALIAS", Id(v.columns[i], where + ".columns"), where + ".columns");
  }
  f.Set("SUBQUERY", v.query, where + ".query");
  f.Set("READ", v.read_only ? "READ" : "", where + ".read_only");
  f.Set("CHECK", v.check_option ? "CHECK" : "", where + ".check_option");
  return f.Write();
}

std::string ObjectWriter::MaterializedView(const model::MaterializedView& m, const std::string& where) {
  CSQLCreateMaterializedView statement(true, m_release);
  create::TreeFiller f(statement, "CREATE MATERIALIZED VIEW");
  guard(f);
  qualify(f, "MVIEW", m.name, where);
  f.Set("C_MV_PHYSICAL_PROP;C_SEG_ATTRIBUTE;TABLESPACE",
        m.tablespace.empty() ? "" : Id(m.tablespace, where),
        where + ".tablespace");
  if (!m.build.empty()) create::RequireRelease(m_release, 2, where + ".build", "BUILD IMMEDIATE or DEFERRED");
  f.Set("BUILD", m.build, where + ".build");
  f.Set("C_REFRESH;FAST", m.refresh_method, where + ".refresh.method");
  if (!m.refresh_on.empty())
    create::RequireRelease(m_release, 2, where + ".refresh.on", "REFRESH ON DEMAND or COMMIT");
  f.Set("C_REFRESH;ON", m.refresh_on, where + ".refresh.on");
  if (!m.query_rewrite.empty())
    create::RequireRelease(m_release, 2, where + ".query_rewrite", "QUERY REWRITE");
  f.Set("REWRITE", m.query_rewrite, where + ".query_rewrite");
  f.Set("AS", m.query, where + ".query");
  return f.Write();
}

std::string ObjectWriter::Synonym(const model::Synonym& s, const std::string& where) {
  CSQLCreateSynonym statement(true, m_release);
  create::TreeFiller f(statement, "CREATE SYNONYM");
  guard(f);
  if (s.is_public) {
    f.Set("PUBLIC", "PUBLIC", where + ".public");
    f.Set("SYNONYM", Id(s.name, where + ".name"), where + ".name");
  } else {
    qualify(f, "SYNONYM", s.name, where);
  }
  const std::string targetSchema = s.target_schema.empty() ? m_schema : s.target_schema;
  if (!targetSchema.empty()) f.Set("SCHEMA2", Id(targetSchema, where + ".target"), where + ".target");
  f.Set("OBJECT", Id(s.target, where + ".target"), where + ".target");
  f.Set("DBLINK", s.dblink, where + ".dblink");
  return f.Write();
}

std::string ObjectWriter::Trigger(const model::Trigger& t, const std::string& where, bool orReplace) {
  CSQLCreateTrigger statement(true, m_release);
  create::TreeFiller f(statement, "CREATE TRIGGER");
  f.Set("REPLACE", orReplace ? "REPLACE" : "", where);
  if (!orReplace) guard(f);
  qualify(f, "TRIGGER", t.name, where);
  if (t.timing == "INSTEAD OF") {
    create::RequireRelease(m_release, 1, where + ".timing", "an INSTEAD OF trigger");
    f.Set("INSTEAD", "INSTEAD", where + ".timing");
  } else {
    f.Set(t.timing, t.timing, where + ".timing");
  }
  for (std::size_t i = 0; i < t.events.size(); ++i) {
    const std::string item = "E" + std::to_string(i + 1), path = "C_DML_EVENT;LIST;" + item;
    const std::string& event = t.events[i];
    f.Add("C_DML_EVENT;LIST",
          std::make_unique<CSQLCreateTrigger::CSubSQLItemEvent>(item.c_str()),
          where + ".events");
    f.Set(path + ";EVENT", event.substr(0, event.find(' ')), where + ".events");
    if (event.rfind("UPDATE OF ", 0) == 0) {
      std::vector<std::string> columns;
      std::string rest = event.substr(10);
      for (std::size_t at = 0; at <= rest.size();) {
        const std::size_t comma = std::min(rest.find(',', at), rest.size());
        std::string column = rest.substr(at, comma - at);
        column.erase(0, column.find_first_not_of(' '));
        column.erase(column.find_last_not_of(' ') + 1);
        if (column.empty()) create::Refuse(where + ".events", "\"" + event + "\" names an empty column");
        columns.push_back(Id(column, where + ".events"));
        at = comma + 1;
      }
      f.AddTexts(path + ";EVENT;LIST", columns, where + ".events");
    }
  }
  if (!m_schema.empty()) f.Set("C_DML_EVENT;SCHEMA", Id(m_schema, "schema"), "schema");
  f.Set("C_DML_EVENT;TABLE", Id(t.table, where + ".table"), where + ".table");
  f.Set("C_DML_EVENT;ROW", t.for_each_row ? "ROW" : "", where + ".for_each_row");
  if (!t.referencing_old.empty())
    f.Set("C_DML_EVENT;OLD", Id(t.referencing_old, where + ".referencing.old"), where + ".referencing.old");
  if (!t.referencing_new.empty())
    f.Set("C_DML_EVENT;NEW", Id(t.referencing_new, where + ".referencing.new"), where + ".referencing.new");
  if (!t.enabled.empty())
    create::RequireRelease(m_release, 7, where + ".enabled", "ENABLE or DISABLE in CREATE TRIGGER");
  f.Set("ENABLE", t.enabled, where + ".enabled");
  f.Set("WHEN", t.when, where + ".when");
  f.Set("BODY", t.body, where + ".body");
  return f.Write();
}

// Tables in foreign key order. A foreign key to a table that comes later (a cycle) is left out of
// its CREATE TABLE and added by ALTER TABLE once every table is there.
std::vector<Table> ObjectWriter::Tables(const Schema& schema) const {
  std::vector<Table> tables = schema.tables;
  std::map<std::string, std::size_t> byName;
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (!byName.emplace(Fold(tables[i].name), i).second)
      throw Failure(
          kExitBadInput, "tables[" + std::to_string(i) + "].name", "a second table " + tables[i].name);
  }
  for (std::size_t i = 0; i < schema.indexes.size(); ++i) {
    const auto found = byName.find(Fold(schema.indexes[i].table));
    if (found == byName.end()) {
      throw Failure(kExitBadInput,
                    "indexes[" + std::to_string(i) + "].table",
                    "no table " + schema.indexes[i].table + " in the document");
    }
    tables[found->second].indexes.push_back(schema.indexes[i].index);
  }
  for (Table& table : tables)
    table = ResolveNames(table, m_options.preserve_case);
  return tables;
}

// A foreign key to a table that comes later (a cycle) is left out of its CREATE TABLE and added by
// ALTER TABLE once every table is there.
void ObjectWriter::CreateTables(const std::vector<Table>& tables, Script& script) const {
  std::map<std::string, std::size_t> byName;
  for (std::size_t i = 0; i < tables.size(); ++i)
    byName.emplace(tables[i].name, i);
  // Table position -> positions of its foreign keys to each referenced table of the document.
  auto references = [&](std::size_t t) {
    std::map<std::size_t, std::vector<std::size_t>> out;
    const Table& table = tables[t];
    for (std::size_t c = 0; c < table.constraints.size(); ++c) {
      const Constraint& k = table.constraints[c];
      if (k.type != "FOREIGN KEY" || (!k.ref_schema.empty() && k.ref_schema != table.schema)) continue;
      const auto found = byName.find(k.ref_table);
      if (found != byName.end() && found->second != t) out[found->second].push_back(c);
    }
    return out;
  };
  std::map<std::size_t, std::vector<std::size_t>> deferred;  // table -> its foreign keys added later
  const std::vector<std::size_t> order = DependencyOrder(
      tables.size(),
      [&](std::size_t t) {
        std::set<std::size_t> needs;
        for (const auto& [target, keys] : references(t))
          needs.insert(target);
        return needs;
      },
      [&](std::size_t t, const std::set<std::size_t>& waiting) {
        for (const auto& [target, keys] : references(t)) {
          if (waiting.count(target) == 0) continue;
          for (std::size_t k : keys) {
            // The key a reference partitioning follows must be in the CREATE TABLE itself.
            if (tables[t].partitioning.type == "REFERENCE" &&
                tables[t].constraints[k].name == tables[t].partitioning.constraint) {
              throw Failure(kExitBadInput,
                            "tables",
                            "table " + tables[t].name + " is partitioned by reference to " +
                                tables[target].name + " through " + tables[t].constraints[k].name +
                                ", which closes a cycle of foreign keys: list another table of the cycle "
                                "before it, so that the cycle is broken there");
            }
          }
          deferred[t].insert(deferred[t].end(), keys.begin(), keys.end());
        }
      });
  for (std::size_t t : order) {
    Table created = tables[t];
    const std::vector<std::size_t>& late = deferred[t];
    created.constraints.clear();
    for (std::size_t c = 0; c < tables[t].constraints.size(); ++c) {
      if (std::find(late.begin(), late.end(), c) == late.end())
        created.constraints.push_back(tables[t].constraints[c]);
    }
    Options options = m_options;
    options.preserve_case = true;  // the names are resolved already
    const Script part = Create(created, options);
    script.statements.insert(script.statements.end(), part.statements.begin(), part.statements.end());
    script.warnings.insert(script.warnings.end(), part.warnings.begin(), part.warnings.end());
  }
  for (std::size_t t : order) {
    if (deferred[t].empty()) continue;
    Options options = m_options;
    options.preserve_case = true;
    for (const std::string& text : AddConstraintStatements(tables[t], deferred[t], options))
      script.statements.push_back(text);
  }
}

bool IsSchemaDocument(const std::string& text) {
  const Json document = Json::parse(text, nullptr, false);
  // A table document has columns (and may have indexes); a schema document has neither columns nor
  // a table's name.
  if (!document.is_object() || document.contains("columns")) return false;
  return std::any_of(std::begin(kObjectLists), std::end(kObjectLists), [&](const char* key) {
    return document.contains(key);
  });
}

std::string DescribeSchema(const Schema& schema) {
  std::string text = "schema " + (schema.name.empty() ? std::string("(unnamed)") : schema.name) + ":";
  const std::tuple<std::size_t, const char*, const char*> counts[] = {
      {schema.tables.size(), "table", "tables"},
      {schema.sequences.size(), "sequence", "sequences"},
      {schema.views.size(), "view", "views"},
      {schema.materialized_views.size(), "materialized view", "materialized views"},
      {schema.synonyms.size(), "synonym", "synonyms"},
      {schema.indexes.size(), "schema-level index", "schema-level indexes"},
      {schema.triggers.size(), "trigger", "triggers"}};
  const char* separator = " ";
  for (const auto& [count, one, many] : counts) {
    if (count == 0) continue;
    text += separator + std::to_string(count) + " " + (count == 1 ? one : many);
    separator = ", ";
  }
  return text;
}

Schema ReadSchema(const std::string& text, const std::string& source) {
  const Json document = ParseJson(text, source);
  ObjectReader r(document, source);
  Schema s;
  s.name = r.Text("schema");
  s.release = ReadReleaseKey(r, s.release);
  s.preserve_case = r.Flag("preserve_case", 0) == 1;
  r.Each("tables", [&](ObjectReader& t) {
    Table table;
    table.schema = s.name;
    table.release = s.release;
    ReadTableObject(t, table);
    if (table.release != s.release)
      t.Fail("release", "a table of a schema document has the schema's release");
    if (table.schema != s.name) t.Fail("schema", "a table of a schema document is in the schema " + s.name);
    s.tables.push_back(std::move(table));
  });
  r.Each("sequences", [&](ObjectReader& o) { readSequence(o, s.sequences.emplace_back()); });
  r.Each("views", [&](ObjectReader& o) { readView(o, s.views.emplace_back()); });
  r.Each("materialized_views",
         [&](ObjectReader& o) { readMaterializedView(o, s.materialized_views.emplace_back()); });
  r.Each("synonyms", [&](ObjectReader& o) { readSynonym(o, s.synonyms.emplace_back()); });
  r.Each("indexes", [&](ObjectReader& o) {
    SchemaIndex& x = s.indexes.emplace_back();
    x.table = o.Text("table", true);
    ReadIndexObject(o, x.index);
  });
  r.Each("triggers", [&](ObjectReader& o) { readTrigger(o, s.triggers.emplace_back()); });
  r.Done();
  CheckExpressions(s, source);
  return s;
}

Schema ResolveSchemaNames(const Schema& schema, bool preserveCase) {
  Options options;
  options.preserve_case = preserveCase || schema.preserve_case;
  const ObjectWriter w(schema.name, schema.release, options);
  auto fold = [&](std::string& name) { name = w.Fold(name); };
  Schema s = schema;
  s.preserve_case = true;  // what is left to fold is folded now
  fold(s.name);
  s.tables = w.Tables(schema);
  s.indexes.clear();
  for (Table& t : s.tables) {
    t.schema = s.name;
    fold(t.renamed_from);
  }
  for (Sequence& q : s.sequences) {
    fold(q.name);
    fold(q.renamed_from);
  }
  for (View& v : s.views) {
    fold(v.name);
    fold(v.renamed_from);
    for (std::string& c : v.columns)
      fold(c);
  }
  for (MaterializedView& m : s.materialized_views) {
    fold(m.name);
    fold(m.tablespace);
  }
  for (Synonym& y : s.synonyms) {
    fold(y.name);
    fold(y.target);
    fold(y.target_schema);
    if (y.target_schema.empty()) y.target_schema = s.name;
  }
  for (Trigger& t : s.triggers) {
    fold(t.name);
    fold(t.table);
    fold(t.referencing_old);
    fold(t.referencing_new);
  }
  return s;
}

Schema SchemaOfTable(const Table& table) {
  Schema s;
  s.name = table.schema;
  s.release = table.release;
  s.tables.push_back(table);
  return s;
}

Script CreateDocument(const std::string& text, const std::string& source, const Options& options) {
  return IsSchemaDocument(text) ? CreateSchema(ReadSchema(text, source), options)
                                : Create(ReadTable(text, source), options);
}

Script DiffDocuments(const std::string& before,
                     const std::string& after,
                     const std::string& oldSource,
                     const std::string& newSource,
                     const Options& options) {
  const bool schemas = IsSchemaDocument(before) || IsSchemaDocument(after);
  if (!schemas) return Diff(ReadTable(before, oldSource), ReadTable(after, newSource), options);
  auto read = [](const std::string& text, const std::string& source) {
    return IsSchemaDocument(text) ? ReadSchema(text, source) : SchemaOfTable(ReadTable(text, source));
  };
  return DiffSchema(read(before, oldSource), read(after, newSource), options);
}

Schema ReadSchemaFolder(const std::string& folder, const ddl::ReadOptions& options, ddl::ReadReport& report) {
  namespace fs = std::filesystem;
  std::error_code error;
  std::vector<fs::path> files, scripts;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    if (!it->is_regular_file()) continue;
    if (it->path().extension() == ".json") files.push_back(it->path());
    if (it->path().extension() == ".sql") scripts.push_back(it->path());
  }
  if (error) throw Failure(kExitBadInput, folder, "cannot be read: " + error.message());
  if (files.empty() && scripts.empty())
    throw Failure(kExitBadInput, folder, "holds no .json document and no .sql script");
  std::sort(files.begin(), files.end());
  std::sort(scripts.begin(), scripts.end());
  auto read = [](const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    if (!in) throw Failure(kExitBadInput, file.string(), "cannot be read");
    return text.str();
  };
  Schema s;
  s.release = options.release;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string source = files[i].string(), text = read(files[i]);
    Schema part = IsSchemaDocument(text) ? ReadSchema(text, source) : SchemaOfTable(ReadTable(text, source));
    if (i == 0) {
      s.name = part.name;
      s.release = part.release;
      s.preserve_case = part.preserve_case;
    } else if (part.preserve_case != s.preserve_case) {
      // Documents of exact names beside documents of folded ones: all resolved, then all exact.
      s = ResolveSchemaNames(s);
      part = ResolveSchemaNames(part);
    }
    if (part.name != s.name) {
      throw Failure(kExitBadInput,
                    source,
                    "is in the schema " + (part.name.empty() ? std::string("(none)") : part.name) + ", " +
                        files[0].string() + " in " + (s.name.empty() ? std::string("(none)") : s.name));
    }
    if (part.release != s.release)
      throw Failure(kExitBadInput, source, "names another release than " + files[0].string());
    auto append = [](auto& to, auto& from) { to.insert(to.end(), from.begin(), from.end()); };
    append(s.tables, part.tables);
    append(s.sequences, part.sequences);
    append(s.views, part.views);
    append(s.materialized_views, part.materialized_views);
    append(s.synonyms, part.synonyms);
    append(s.indexes, part.indexes);
    append(s.triggers, part.triggers);
  }
  for (const fs::path& script : scripts)
    ddl::ApplyScript(s, read(script), script.string(), options, report);
  return s;
}

Script CreateSchema(const Schema& schema, const Options& given) {
  Options options = given;
  options.preserve_case = given.preserve_case || schema.preserve_case;
  ObjectWriter w(schema.name, schema.release, options);
  const int release = schema.release;
  if (release < 0 || release > kNewestRelease) create::Refuse("release", "unknown release code");
  if (options.if_exists) create::RequireRelease(release, 12, "--if-exists", "IF [NOT] EXISTS");
  CheckExpressions(schema);
  Script script;
  for (std::size_t i = 0; i < schema.sequences.size(); ++i)
    script.statements.push_back(w.Sequence(schema.sequences[i], "sequences[" + std::to_string(i) + "]"));
  w.CreateTables(w.Tables(schema), script);
  // Views after the views their queries name.
  std::map<std::string, std::size_t> views;
  for (std::size_t i = 0; i < schema.views.size(); ++i)
    views.emplace(w.Fold(schema.views[i].name), i);
  const std::vector<std::size_t> viewOrder = DependencyOrder(
      schema.views.size(),
      [&](std::size_t v) {
        std::set<std::size_t> needs;
        for (const std::string& name : NamesIn(schema.views[v].query)) {
          const auto found = views.find(name);
          if (found != views.end()) needs.insert(found->second);
        }
        return needs;
      },
      [&](std::size_t v, const std::set<std::size_t>&) {
        throw Failure(kExitBadInput,
                      "views[" + std::to_string(v) + "].query",
                      "view " + schema.views[v].name + " is part of a cycle of views naming each other");
      });
  for (std::size_t v : viewOrder)
    script.statements.push_back(w.View(schema.views[v], "views[" + std::to_string(v) + "]", false));
  for (std::size_t i = 0; i < schema.materialized_views.size(); ++i) {
    script.statements.push_back(
        w.MaterializedView(schema.materialized_views[i], "materialized_views[" + std::to_string(i) + "]"));
  }
  for (std::size_t i = 0; i < schema.synonyms.size(); ++i)
    script.statements.push_back(w.Synonym(schema.synonyms[i], "synonyms[" + std::to_string(i) + "]"));
  for (std::size_t i = 0; i < schema.triggers.size(); ++i)
    script.statements.push_back(w.Trigger(schema.triggers[i], "triggers[" + std::to_string(i) + "]", false));
  return script;
}

}  // namespace qarvelt::model
