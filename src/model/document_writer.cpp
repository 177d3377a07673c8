// WriteTable: a table description as a table document, the inverse of ReadTable. Only what holds a
// value is written, under the document's own keys and in the order the README lists them, so that
// a written document reads back to the same description.
#include <algorithm>
#include <cctype>

#include <nlohmann/json.hpp>

#include "common.h"
#include "qarvelt/model/document.h"
#include "qarvelt/model/schema.h"

namespace qarvelt::model {

namespace {

using Object = nlohmann::ordered_json;

void text(Object& o, const char* key, const std::string& value) {
  if (!value.empty()) o[key] = value;
}

void texts(Object& o, const char* key, const std::vector<std::string>& values) {
  if (!values.empty()) o[key] = values;
}

void flag(Object& o, const char* key, bool value) {
  if (value) o[key] = true;
}

// A keyword read from true / false: the `yes` keyword is true, the `no` keyword false.
void keyword(Object& o, const char* key, const std::string& value, const char* yes, const char* no) {
  if (value == yes) o[key] = true;
  if (value == no) o[key] = false;
}

// A table or partition compression: true, false or its name.
void compression(Object& o, const std::string& keyword) {
  for (const Compression& c : Compressions()) {
    if (keyword == c.keyword) o["compress"] = c.name;
  }
  if (keyword == "COMPRESS") o["compress"] = true;
  if (keyword == "NOCOMPRESS") o["compress"] = false;
}

void number(Object& o, const char* key, int value) {
  if (value != 0) o[key] = value;
}

// A whole number as a JSON number, or as text when it is beyond what JSON readers hold exactly.
void number(Object& o, const char* key, const std::string& value) {
  if (value.empty()) return;
  if (value.size() < 18) {
    o[key] = std::stoll(value);
  } else {
    o[key] = value;
  }
}

bool digits(const std::string& s) {
  return !s.empty() && s.find_first_not_of("0123456789") == std::string::npos;
}

// PARALLEL / NOPARALLEL or a degree; COMPRESS / NOCOMPRESS or a prefix length.
void switchOrNumber(Object& o, const char* key, const std::string& value, const char* yes, const char* no) {
  if (digits(value)) {
    number(o, key, value);
  } else {
    keyword(o, key, value, yes, no);
  }
}

void segment(Object& o, const Segment& s) {
  Object physical = Object::object(), storage = Object::object();
  text(physical, "pctfree", s.pctfree);
  text(physical, "pctused", s.pctused);
  text(physical, "initrans", s.initrans);
  text(physical, "maxtrans", s.maxtrans);
  text(storage, "initial", s.initial);
  text(storage, "next", s.next);
  text(storage, "minextents", s.minextents);
  text(storage, "maxextents", s.maxextents);
  text(storage, "pctincrease", s.pctincrease);
  text(storage, "freelists", s.freelists);
  text(storage, "freelist_groups", s.freelist_groups);
  text(storage, "buffer_pool", s.buffer_pool);
  if (!physical.empty()) o["physical"] = physical;
  if (!storage.empty()) o["storage"] = storage;
}

Object lob(const LobStorage& l) {
  Object o = Object::object();
  text(o, "tablespace", l.tablespace);
  text(o, "segment", l.segment);
  text(o, "chunk", l.chunk);
  text(o, "pctversion", l.pctversion);
  flag(o, "retention", l.retention == "RETENTION");
  text(o, "cache", l.cache);
  keyword(o, "logging", l.logging, "LOGGING", "NOLOGGING");
  keyword(o, "in_row", l.in_row, "ENABLE", "DISABLE");
  return o;
}

Object partition(const Partition& p) {
  Object o = Object::object();
  text(o, "name", p.name);
  text(o, "renamed_from", p.renamed_from);
  texts(o, "values_less_than", p.values_less_than);
  texts(o, "values", p.values);
  text(o, "tablespace", p.tablespace);
  keyword(o, "logging", p.logging, "LOGGING", "NOLOGGING");
  compression(o, p.compress);
  segment(o, p.segment);
  for (const PartitionLob& l : p.lobs) {
    Object item = lob(l.storage);
    item["column"] = l.column;
    o["lobs"].push_back(item);
  }
  for (const Partition& sub : p.subpartitions)
    o["subpartitions"].push_back(partition(sub));
  keyword(o, "indexing", p.indexing, "ON", "OFF");
  return o;
}

Object partitions(const std::vector<Partition>& list) {
  Object out = Object::array();
  for (const Partition& p : list)
    out.push_back(partition(p));
  return out;
}

Object column(const Column& c) {
  Object o = Object::object();
  text(o, "name", c.name);
  text(o, "renamed_from", c.renamed_from);
  text(o, "type", c.type);
  const bool vector = c.type == "VECTOR";
  text(o, vector ? "dimensions" : "length", c.length);
  text(o, vector ? "format" : "scale", c.scale);
  text(o, "unit", c.unit);
  text(o, "default", c.default_value);
  flag(o, "default_on_null", c.default_on_null);
  flag(o, "invisible", c.invisible);
  text(o, "virtual", c.virtual_expr);
  text(o, "collation", c.collation);
  if (!c.identity.generated.empty()) {
    const Identity& id = c.identity;
    Object i = Object::object();
    i["generated"] = id.generated;
    text(i, "start_with", id.start_with);
    text(i, "increment_by", id.increment_by);
    text(i, "minvalue", id.minvalue);
    text(i, "maxvalue", id.maxvalue);
    text(i, "cache", id.cache);
    if (id.nocache) i["cache"] = false;
    keyword(i, "cycle", id.cycle, "CYCLE", "NOCYCLE");
    keyword(i, "order", id.order, "ORDER", "NOORDER");
    o["identity"] = i;
  }
  flag(o, "not_null", c.not_null);
  flag(o, "unique", c.unique);
  flag(o, "primary_key", c.primary_key);
  text(o, "check", c.check);
  text(o, "constraint", c.constraint_name);
  text(o, "comment", c.comment);
  if (!c.lob.empty()) o["lob"] = lob(c.lob);
  return o;
}

Object constraint(const Constraint& c) {
  Object o = Object::object();
  text(o, "name", c.name);
  text(o, "renamed_from", c.renamed_from);
  text(o, "type", c.type);
  texts(o, "columns", c.columns);
  text(o, "check", c.check);
  if (!c.ref_table.empty()) {
    Object f = Object::object();
    text(f, "schema", c.ref_schema);
    text(f, "table", c.ref_table);
    texts(f, "columns", c.ref_columns);
    text(f, "on_delete", c.on_delete);
    o["references"] = f;
  }
  const ConstraintState& s = c.state;
  keyword(o, "deferrable", s.deferrable, "DEFERRABLE", "NOT DEFERRABLE");
  text(o, "initially", s.initially);
  keyword(o, "enabled", s.enable, "ENABLE", "DISABLE");
  keyword(o, "validate", s.validate, "VALIDATE", "NOVALIDATE");
  keyword(o, "rely", s.rely, "RELY", "NORELY");
  Object index = Object::object();
  text(index, "schema", s.index_schema);
  text(index, "name", s.index_name);
  text(index, "tablespace", s.index_tablespace);
  if (!index.empty()) o["using_index"] = index;
  return o;
}

Object index(const Index& x) {
  Object o = Object::object();
  text(o, "name", x.name);
  text(o, "schema", x.schema);
  text(o, "renamed_from", x.renamed_from);
  flag(o, "unique", x.unique);
  flag(o, "bitmap", x.bitmap);
  flag(o, "reverse", x.reverse);
  flag(o, "invisible", x.invisible);
  flag(o, "partial", x.partial);
  flag(o, "online", x.online);
  Object keys = Object::array();
  for (const IndexKey& k : x.keys) {
    if (k.expression.empty() && k.order.empty()) {
      keys.push_back(k.column);
      continue;
    }
    Object key = Object::object();
    text(key, "column", k.column);
    text(key, "expression", k.expression);
    text(key, "order", k.order);
    keys.push_back(key);
  }
  o["columns"] = keys;
  text(o, "tablespace", x.tablespace);
  keyword(o, "logging", x.logging, "LOGGING", "NOLOGGING");
  switchOrNumber(o, "compress", x.compress, "COMPRESS", "NOCOMPRESS");
  switchOrNumber(o, "parallel", x.parallel, "PARALLEL", "NOPARALLEL");
  segment(o, x.segment);
  if (!x.local_partitions.empty()) {
    o["local"] = Object{{"partitions", partitions(x.local_partitions)}};
  } else if (x.local) {
    o["local"] = true;
  }
  if (!x.global_type.empty()) {
    Object g = Object::object();
    g["type"] = x.global_type;
    texts(g, "columns", x.global_columns);
    number(g, "count", x.global_count);
    if (!x.global_partitions.empty()) g["partitions"] = partitions(x.global_partitions);
    o["global"] = g;
  }
  return o;
}

Object partitioning(const Partitioning& p) {
  Object o = Object::object();
  o["type"] = p.type;
  texts(o, "columns", p.columns);
  text(o, "constraint", p.constraint);
  number(o, "count", p.count);
  texts(o, "store_in", p.store_in);
  text(o, "interval", p.interval);
  texts(o, "interval_store_in", p.interval_store_in);
  flag(o, "automatic", p.automatic);
  if (!p.subtype.empty()) {
    Object s = Object::object();
    s["type"] = p.subtype;
    texts(s, "columns", p.subcolumns);
    number(s, "count", p.subcount);
    if (!p.subtemplate.empty()) s["template"] = partitions(p.subtemplate);
    o["subpartitioning"] = s;
  }
  if (!p.partitions.empty()) o["partitions"] = partitions(p.partitions);
  return o;
}

}  // namespace

namespace {

Object table(const Table& t) {
  Object o = Object::object();
  text(o, "schema", t.schema);
  text(o, "name", t.name);
  text(o, "renamed_from", t.renamed_from);
  o["release"] = t.release;
  text(o, "comment", t.comment);
  text(o, "tablespace", t.tablespace);
  segment(o, t.segment);
  keyword(o, "logging", t.logging, "LOGGING", "NOLOGGING");
  compression(o, t.compress);
  keyword(o, "cache", t.cache, "CACHE", "NOCACHE");
  keyword(o, "monitoring", t.monitoring, "MONITORING", "NOMONITORING");
  switchOrNumber(o, "parallel", t.parallel, "PARALLEL", "NOPARALLEL");
  keyword(o, "row_movement", t.row_movement, "ENABLE", "DISABLE");
  if (t.temporary && !t.on_commit.empty()) {
    o["temporary"] = Object{{"on_commit", t.on_commit}};
  } else if (t.temporary) {
    o["temporary"] = true;
  }
  text(o, "organization", t.organization);
  for (const Column& c : t.columns)
    o["columns"].push_back(column(c));
  for (const Constraint& c : t.constraints)
    o["constraints"].push_back(constraint(c));
  for (const Index& x : t.indexes)
    o["indexes"].push_back(index(x));
  if (!t.partitioning.type.empty()) o["partitioning"] = partitioning(t.partitioning);
  return o;
}

std::string dump(const Object& o) {
  return o.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string lower(std::string text) {
  for (char& c : text)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

std::string WriteTable(const Table& t) {
  return dump(table(t));
}

namespace {

// The schema document; `exactNames` marks its names as exact (preserve_case), beside the release.
Object schemaObject(const Schema& s, bool exactNames) {
  Object o = Object::object();
  text(o, "schema", s.name);
  o["release"] = s.release;
  if (exactNames) o["preserve_case"] = true;
  for (const Sequence& q : s.sequences) {
    Object x = Object::object();
    text(x, "name", q.name);
    text(x, "renamed_from", q.renamed_from);
    number(x, "start_with", q.start_with);
    number(x, "increment_by", q.increment_by);
    number(x, "minvalue", q.minvalue);
    number(x, "maxvalue", q.maxvalue);
    keyword(x, "cycle", q.cycle, "CYCLE", "NOCYCLE");
    if (q.cache == "NOCACHE") x["cache"] = false;
    if (q.cache != "NOCACHE") number(x, "cache", q.cache);
    keyword(x, "order", q.order, "ORDER", "NOORDER");
    o["sequences"].push_back(x);
  }
  for (const Table& t : s.tables) {
    Object x = table(t);
    // A table of a schema document inherits the schema and the release.
    if (t.schema == s.name) x.erase("schema");
    if (t.release == s.release) x.erase("release");
    o["tables"].push_back(x);
  }
  for (const SchemaIndex& i : s.indexes) {
    Object x = index(i.index);
    x["table"] = i.table;
    o["indexes"].push_back(x);
  }
  for (const View& v : s.views) {
    Object x = Object::object();
    text(x, "name", v.name);
    text(x, "renamed_from", v.renamed_from);
    texts(x, "columns", v.columns);
    text(x, "query", v.query);
    flag(x, "force", v.force);
    flag(x, "read_only", v.read_only);
    flag(x, "check_option", v.check_option);
    o["views"].push_back(x);
  }
  for (const MaterializedView& m : s.materialized_views) {
    Object x = Object::object();
    text(x, "name", m.name);
    text(x, "query", m.query);
    if (!m.build.empty()) x["build"] = m.build == "IMMEDIATE" ? "immediate" : "deferred";
    Object refresh = Object::object();
    if (!m.refresh_method.empty()) refresh["method"] = lower(m.refresh_method);
    if (!m.refresh_on.empty()) refresh["on"] = lower(m.refresh_on);
    if (!refresh.empty()) x["refresh"] = refresh;
    keyword(x, "query_rewrite", m.query_rewrite, "ENABLE", "DISABLE");
    text(x, "tablespace", m.tablespace);
    o["materialized_views"].push_back(x);
  }
  for (const Synonym& y : s.synonyms) {
    Object x = Object::object();
    text(x, "name", y.name);
    flag(x, "public", y.is_public);
    x["target"] = y.target_schema.empty() ? y.target : y.target_schema + "." + y.target;
    text(x, "dblink", y.dblink);
    o["synonyms"].push_back(x);
  }
  for (const Trigger& t : s.triggers) {
    Object x = Object::object();
    text(x, "name", t.name);
    x["timing"] = lower(t.timing);
    for (const std::string& e : t.events)
      x["events"].push_back(lower(e.substr(0, 9)) + e.substr(std::min<std::size_t>(9, e.size())));
    text(x, "table", t.table);
    flag(x, "for_each_row", t.for_each_row);
    if (!t.referencing_old.empty() || !t.referencing_new.empty()) {
      Object referencing = Object::object();
      text(referencing, "old", t.referencing_old);
      text(referencing, "new", t.referencing_new);
      x["referencing"] = referencing;
    }
    text(x, "when", t.when);
    text(x, "body", t.body);
    keyword(x, "enabled", t.enabled, "ENABLE", "DISABLE");
    o["triggers"].push_back(x);
  }
  return o;
}

// True when the names of `s` are exact and folding them would change one: "Emp", a name in lower
// case, that only quotes keep as it is.
bool foldingChangesNames(const Schema& s) {
  if (!s.preserve_case) return false;
  Schema folded = s;
  folded.preserve_case = false;
  try {
    return schemaObject(ResolveSchemaNames(folded), false) != schemaObject(ResolveSchemaNames(s), false);
  } catch (const Error&) {
    return true;  // a schema that does not resolve keeps its names as they are
  }
}

}  // namespace

std::string WriteSchema(const Schema& s) {
  return dump(schemaObject(s, foldingChangesNames(s)));
}

}  // namespace qarvelt::model
