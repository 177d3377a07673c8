#include "qarvelt/model/document.h"

#include <algorithm>
#include <cctype>

#include "common.h"
#include "document_reader.h"
#include "json_reader.h"
#include "qarvelt/core/clause.h"
#include "qarvelt/model/expressions.h"

namespace qarvelt::model {

namespace {

std::string upper(std::string text) {
  for (char& c : text)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

// One of `allowed` (compared in upper case), or "" when absent; anything else is an error.
std::string choice(ObjectReader& r,
                   const char* key,
                   const std::vector<std::string>& allowed,
                   bool required = false) {
  const std::string value = upper(r.Text(key, required));
  if (value.empty() || std::find(allowed.begin(), allowed.end(), value) != allowed.end()) return value;
  r.Fail(key, "\"" + value + "\" is not one of " + JoinAlternatives(allowed));
}

void readSegment(ObjectReader& r, Segment& s) {
  r.Object("physical", [&](ObjectReader& p) {
    s.pctfree = p.Text("pctfree");
    s.pctused = p.Text("pctused");
    s.initrans = p.Text("initrans");
    s.maxtrans = p.Text("maxtrans");
  });
  r.Object("storage", [&](ObjectReader& p) {
    s.initial = p.Text("initial");
    s.next = p.Text("next");
    s.minextents = p.Text("minextents");
    s.maxextents = p.Text("maxextents");
    s.pctincrease = p.Text("pctincrease");
    s.freelists = p.Text("freelists");
    s.freelist_groups = p.Text("freelist_groups");
    s.buffer_pool = upper(p.Text("buffer_pool"));
  });
}

// "compress" of a table or a partition: true, false or the name of a compression.
std::string readCompression(ObjectReader& r) {
  const Json* value = r.Raw("compress");
  if (value == nullptr) return "";
  if (value->is_boolean()) return value->get<bool>() ? "COMPRESS" : "NOCOMPRESS";
  std::vector<std::string> names;
  for (const Compression& c : Compressions()) {
    names.emplace_back(c.name);
    if (value->is_string() && value->get<std::string>() == c.name) return c.keyword;
  }
  r.Fail("compress", "expected true, false or one of " + JoinAlternatives(names));
}

// "parallel": true, false or a degree.
std::string readParallel(ObjectReader& r) {
  const Json* value = r.Raw("parallel");
  if (value == nullptr) return "";
  if (value->is_boolean()) return value->get<bool>() ? "PARALLEL" : "NOPARALLEL";
  if (value->is_number_integer() && value->get<long long>() > 0)
    return std::to_string(value->get<long long>());
  r.Fail("parallel", "expected true, false or a degree above 0");
}

void readState(ObjectReader& r, ConstraintState& s) {
  s.deferrable = r.Keyword("deferrable", "DEFERRABLE", "NOT DEFERRABLE");
  s.initially = choice(r, "initially", {"IMMEDIATE", "DEFERRED"});
  s.enable = r.Keyword("enabled", "ENABLE", "DISABLE");
  s.validate = r.Keyword("validate", "VALIDATE", "NOVALIDATE");
  s.rely = r.Keyword("rely", "RELY", "NORELY");
  r.Object("using_index", [&](ObjectReader& u) {
    s.index_schema = u.Text("schema");
    s.index_name = u.Text("name");
    s.index_tablespace = u.Text("tablespace");
  });
}

void readLob(ObjectReader& l, LobStorage& lob) {
  lob.tablespace = l.Text("tablespace");
  lob.segment = l.Text("segment");
  lob.chunk = l.Text("chunk");
  lob.pctversion = l.Text("pctversion");
  lob.retention = l.Flag("retention") == 1 ? "RETENTION" : "";
  lob.cache = choice(l, "cache", {"CACHE", "NOCACHE", "CACHE READS"});
  lob.logging = l.Keyword("logging", "LOGGING", "NOLOGGING");
  lob.in_row = l.Keyword("in_row", "ENABLE", "DISABLE");
}

void readPartition(ObjectReader& r, Partition& p, bool subpartition) {
  p.name = r.Text("name", true);
  p.renamed_from = r.Text("renamed_from");
  p.values_less_than = r.Texts("values_less_than");
  p.values = r.Texts("values");
  p.tablespace = r.Text("tablespace");
  if (!subpartition) {
    p.logging = r.Keyword("logging", "LOGGING", "NOLOGGING");
    p.compress = readCompression(r);
    p.indexing = r.Keyword("indexing", "ON", "OFF");
    readSegment(r, p.segment);
    r.Each("lobs", [&](ObjectReader& l) {
      p.lobs.emplace_back();
      p.lobs.back().column = l.Text("column", true);
      readLob(l, p.lobs.back().storage);
    });
    r.Each("subpartitions", [&](ObjectReader& s) {
      p.subpartitions.emplace_back();
      readPartition(s, p.subpartitions.back(), true);
    });
  }
}

// A partition of an index: a name (bounds for a global range index), its tablespace, physical
// attributes, storage and logging.
void readIndexPartition(ObjectReader& r, Partition& p) {
  readPartition(r, p, true);
  p.logging = r.Keyword("logging", "LOGGING", "NOLOGGING");
  readSegment(r, p.segment);
}

void readColumn(ObjectReader& r, Column& c) {
  c.name = r.Text("name", true);
  c.renamed_from = r.Text("renamed_from");
  c.type = upper(r.Text("type", true));
  c.length = r.Text("length");
  const std::string precision = r.Text("precision");
  if (!precision.empty() && !c.length.empty())
    r.Fail("precision", "give either length or precision, not both");
  if (!precision.empty()) c.length = precision;
  c.scale = r.Text("scale");
  c.unit = choice(r, "unit", {"BYTE", "CHAR"});
  // A VECTOR column's dimensions and format take the places of length and scale.
  const std::string dimensions = r.Text("dimensions");
  const std::string format = choice(r, "format", {"FLOAT32", "FLOAT64", "INT8", "BINARY", "*"});
  if (c.type == "VECTOR") {
    if (!c.length.empty() || !c.scale.empty())
      r.Fail(c.length.empty() ? "scale" : "length", "a VECTOR column takes dimensions and format instead");
    c.length = dimensions.empty() && !format.empty() ? "*" : dimensions;
    c.scale = format;
  } else if (!dimensions.empty() || !format.empty()) {
    r.Fail(dimensions.empty() ? "format" : "dimensions", "only a VECTOR column takes it");
  }
  c.default_value = r.Text("default");
  c.default_on_null = r.Flag("default_on_null") == 1;
  c.invisible = r.Flag("invisible") == 1;
  c.virtual_expr = r.Text("virtual");
  c.collation = r.Text("collation");
  if (const Json* identity = r.Raw("identity")) {
    Identity& id = c.identity;
    const std::vector<std::string> kinds = {"ALWAYS", "BY DEFAULT", "BY DEFAULT ON NULL"};
    if (identity->is_string()) {
      id.generated = choice(r, "identity", kinds, true);
    } else {
      r.Object("identity", [&](ObjectReader& i) {
        id.generated = choice(i, "generated", kinds, true);
        id.start_with = i.Text("start_with");
        id.increment_by = i.Text("increment_by");
        id.minvalue = i.Text("minvalue");
        id.maxvalue = i.Text("maxvalue");
        if (const Json* cache = i.Raw("cache"); cache != nullptr && cache->is_boolean()) {
          if (cache->get<bool>()) i.Fail("cache", "give the number of values to cache, or false");
          id.nocache = true;
        } else {
          id.cache = i.Text("cache");
        }
        id.cycle = i.Keyword("cycle", "CYCLE", "NOCYCLE");
        id.order = i.Keyword("order", "ORDER", "NOORDER");
      });
    }
  }
  c.not_null = r.Flag("not_null") == 1;
  c.unique = r.Flag("unique") == 1;
  c.primary_key = r.Flag("primary_key") == 1;
  c.check = r.Text("check");
  c.constraint_name = r.Text("constraint");
  c.comment = r.Text("comment");
  r.Object("lob", [&](ObjectReader& l) { readLob(l, c.lob); });
}

void readConstraint(ObjectReader& r, Constraint& c) {
  c.name = r.Text("name");
  c.renamed_from = r.Text("renamed_from");
  c.type = choice(r, "type", {"PRIMARY KEY", "UNIQUE", "FOREIGN KEY", "CHECK"}, true);
  c.columns = r.Texts("columns");
  c.check = r.Text("check");
  r.Object("references", [&](ObjectReader& f) {
    c.ref_schema = f.Text("schema");
    c.ref_table = f.Text("table", true);
    c.ref_columns = f.Texts("columns");
    c.on_delete = choice(f, "on_delete", {"CASCADE", "SET NULL"});
  });
  readState(r, c.state);
  if (c.type == "CHECK" && c.check.empty())
    r.Fail("check", "missing (a CHECK constraint needs its condition)");
  if (c.type != "CHECK" && c.columns.empty())
    r.Fail("columns", "missing (a " + c.type + " constraint needs columns)");
  if (c.type == "FOREIGN KEY" && c.ref_table.empty())
    r.Fail("references", "missing (a FOREIGN KEY needs them)");
}

void readIndex(ObjectReader& r, Index& x) {
  x.name = r.Text("name", true);
  x.schema = r.Text("schema");
  x.renamed_from = r.Text("renamed_from");
  x.unique = r.Flag("unique") == 1;
  x.bitmap = r.Flag("bitmap") == 1;
  x.reverse = r.Flag("reverse") == 1;
  x.invisible = r.Flag("invisible") == 1;
  x.partial = r.Flag("partial") == 1;
  x.online = r.Flag("online") == 1;
  const Json* keys = r.Raw("columns");
  if (keys == nullptr || !keys->is_array() || keys->empty())
    r.Fail("columns", "missing (an index needs columns)");
  for (std::size_t i = 0; i < keys->size(); ++i) {
    const Json& key = (*keys)[i];
    IndexKey k;
    if (key.is_string()) {
      k.column = key.get<std::string>();
    } else {
      ObjectReader kr(key, r.Where() + ".columns[" + std::to_string(i) + "]");
      k.column = kr.Text("column");
      k.expression = kr.Text("expression");
      k.order = choice(kr, "order", {"ASC", "DESC"});
      kr.Done();
      if (k.column.empty() == k.expression.empty()) kr.Fail("", "give either column or expression");
    }
    x.keys.push_back(k);
  }
  x.tablespace = r.Text("tablespace");
  x.logging = r.Keyword("logging", "LOGGING", "NOLOGGING");
  const Json* compress = r.Raw("compress");
  if (compress != nullptr) {
    if (compress->is_boolean()) {
      x.compress = compress->get<bool>() ? "COMPRESS" : "NOCOMPRESS";
    } else if (compress->is_number_integer() && compress->get<long long>() > 0) {
      x.compress = std::to_string(compress->get<long long>());
    } else {
      r.Fail("compress", "expected true, false or a prefix length above 0");
    }
  }
  x.parallel = readParallel(r);
  readSegment(r, x.segment);
  const Json* local = r.Raw("local");
  if (local != nullptr && local->is_boolean()) {
    x.local = local->get<bool>();
  } else if (local != nullptr) {
    x.local = true;
    ObjectReader lr(*local, r.Where() + ".local");
    lr.Each("partitions", [&](ObjectReader& p) {
      x.local_partitions.emplace_back();
      readIndexPartition(p, x.local_partitions.back());
    });
    lr.Done();
  }
  r.Object("global", [&](ObjectReader& g) {
    x.global_type = choice(g, "type", {"RANGE", "HASH"}, true);
    x.global_columns = g.Texts("columns", true);
    x.global_count = g.Number("count");
    g.Each("partitions", [&](ObjectReader& p) {
      x.global_partitions.emplace_back();
      readIndexPartition(p, x.global_partitions.back());
    });
  });
  if (x.local && !x.global_type.empty()) r.Fail("global", "an index is either local or global");
}

void readPartitioning(ObjectReader& r, Partitioning& p) {
  p.type = choice(r, "type", {"RANGE", "HASH", "LIST", "REFERENCE"}, true);
  const bool reference = p.type == "REFERENCE";
  // A table partitioned by reference takes its key from the foreign key it names.
  p.columns = r.Texts("columns", !reference);
  p.constraint = r.Text("constraint", reference);
  p.count = r.Number("count");
  p.store_in = r.Texts("store_in");
  p.interval = r.Text("interval");
  p.interval_store_in = r.Texts("interval_store_in");
  p.automatic = r.Flag("automatic") == 1;
  r.Object("subpartitioning", [&](ObjectReader& s) {
    p.subtype = choice(s, "type", {"RANGE", "HASH", "LIST"}, true);
    p.subcolumns = s.Texts("columns", true);
    p.subcount = s.Number("count");
    s.Each("template", [&](ObjectReader& t) {
      p.subtemplate.emplace_back();
      readPartition(t, p.subtemplate.back(), true);
    });
  });
  r.Each("partitions", [&](ObjectReader& part) {
    p.partitions.emplace_back();
    readPartition(part, p.partitions.back(), false);
  });
  if (!p.subtype.empty() && p.type != "RANGE" && p.type != "LIST")
    r.Fail("subpartitioning", "only a RANGE or LIST partitioned table has subpartitions");
  if (reference && !p.columns.empty())
    r.Fail("columns", "a table partitioned by reference takes the columns of its foreign key");
  if (!reference && !p.constraint.empty())
    r.Fail("constraint", "only a table partitioned by reference names a foreign key");
  if (p.type != "HASH" && !reference && p.partitions.empty())
    r.Fail("partitions", "missing (" + p.type + " partitioning lists its partitions)");
  if (p.type == "HASH" && p.partitions.empty() && p.count == 0)
    r.Fail("count", "missing (give a count or the partitions)");
}

}  // namespace

bool Segment::empty() const {
  for (const std::string* s : {&pctfree,
                               &pctused,
                               &initrans,
                               &maxtrans,
                               &initial,
                               &next,
                               &minextents,
                               &maxextents,
                               &pctincrease,
                               &freelists,
                               &freelist_groups,
                               &buffer_pool}) {
    if (!s->empty()) return false;
  }
  return true;
}

bool LobStorage::empty() const {
  return tablespace.empty() && chunk.empty() && pctversion.empty() && segment.empty() && cache.empty() &&
         logging.empty() && in_row.empty() && retention.empty();
}

const std::vector<std::string>& ReleaseNames() {
  static const std::vector<std::string> names = {"Oracle 7",
                                                 "Oracle 8.0",
                                                 "Oracle 8i",
                                                 "Oracle 9i Release 1",
                                                 "Oracle 9i Release 2",
                                                 "Oracle 10g Release 1",
                                                 "Oracle 10g Release 2",
                                                 "Oracle 11g",
                                                 "Oracle 12c Release 1",
                                                 "Oracle 12c Release 2",
                                                 "Oracle 19c",
                                                 "Oracle 21c",
                                                 "Oracle 23ai"};
  return names;
}

int ReadRelease(const std::string& name, const std::string& where) {
  // Compare without blanks, letter case, "oracle", "database" and "release" (written r).
  std::string key;
  for (char c : upper(name)) {
    if (c != ' ' && c != '_' && c != '-') key += c;
  }
  for (const char* noise : {"ORACLE", "DATABASE"}) {
    const auto at = key.find(noise);
    if (at != std::string::npos) key.erase(at, std::string(noise).size());
  }
  const auto release = key.find("RELEASE");
  if (release != std::string::npos) key.replace(release, 7, "R");
  static const std::vector<std::pair<std::vector<std::string>, int>> aliases = {
      {{"7.3"}, 0},
      {{"8.0"}, 1},
      {{"8I", "8.1"}, 2},
      {{"9I", "9IR1", "9.0", "9.1"}, 3},
      {{"9IR2", "9.2"}, 4},
      {{"10G", "10GR1", "10.1"}, 5},
      {{"10GR2", "10.2"}, 6},
      {{"11G", "11GR1", "11GR2", "11.1", "11.2"}, 7},
      {{"12C", "12CR1", "12.1"}, 8},
      {{"12CR2", "12.2", "18C", "18"}, 9},
      {{"19C", "19"}, 10},
      {{"21C", "21"}, 11},
      {{"23AI", "23C", "23"}, 12},
  };
  // Plain numbers 0-12 are release codes ("7" is code 7, Oracle 11g; not Oracle 7).
  if (!key.empty() && key.size() <= 2 && std::all_of(key.begin(), key.end(), [](char c) {
        return std::isdigit(static_cast<unsigned char>(c)) != 0;
      })) {
    const int code = std::stoi(key);
    if (code <= kNewestRelease) return code;
  }
  for (const auto& [names, code] : aliases) {
    if (std::find(names.begin(), names.end(), key) != names.end()) return code;
  }
  throw Failure(kExitBadInput,
                where,
                "unknown release \"" + name + "\"; give a release code 0-12 or one of " +
                    JoinAlternatives(ReleaseNames()));
}

int ReadReleaseKey(ObjectReader& r, int absent) {
  const Json* release = r.Raw("release");
  if (release == nullptr) return absent;
  const std::string name = release->is_string() ? release->get<std::string>() : release->dump();
  return ReadRelease(name, r.Where() + ".release");
}

void ReadTableObject(ObjectReader& r, Table& t) {
  const std::string source = r.Where();
  const std::string schema = r.Text("schema");
  if (!schema.empty()) t.schema = schema;
  t.name = r.Text("name", true);
  t.renamed_from = r.Text("renamed_from");
  t.release = ReadReleaseKey(r, t.release);
  t.tablespace = r.Text("tablespace");
  readSegment(r, t.segment);
  t.logging = r.Keyword("logging", "LOGGING", "NOLOGGING");
  t.compress = readCompression(r);
  t.cache = r.Keyword("cache", "CACHE", "NOCACHE");
  t.monitoring = r.Keyword("monitoring", "MONITORING", "NOMONITORING");
  t.parallel = readParallel(r);
  t.row_movement = r.Keyword("row_movement", "ENABLE", "DISABLE");
  const Json* temporary = r.Raw("temporary");
  if (temporary != nullptr && temporary->is_boolean()) {
    t.temporary = temporary->get<bool>();
  } else if (temporary != nullptr) {
    t.temporary = true;
    ObjectReader tr(*temporary, source + ".temporary");
    t.on_commit = choice(tr, "on_commit", {"DELETE", "PRESERVE"});
    tr.Done();
  }
  t.organization = choice(r, "organization", {"HEAP", "INDEX"});
  t.comment = r.Text("comment");
  r.Each(
      "columns",
      [&](ObjectReader& c) {
        t.columns.emplace_back();
        readColumn(c, t.columns.back());
      },
      true);
  r.Each("constraints", [&](ObjectReader& c) {
    t.constraints.emplace_back();
    readConstraint(c, t.constraints.back());
  });
  r.Each("indexes", [&](ObjectReader& x) {
    t.indexes.emplace_back();
    readIndex(x, t.indexes.back());
  });
  r.Object("partitioning", [&](ObjectReader& p) { readPartitioning(p, t.partitioning); });
  r.Done();
  if (t.columns.empty())
    throw Failure(kExitBadInput, source + ".columns", "a table needs at least one column");
}

void ReadIndexObject(ObjectReader& r, Index& x) {
  readIndex(r, x);
}

std::string ReadChoice(ObjectReader& r,
                       const char* key,
                       const std::vector<std::string>& allowed,
                       bool required) {
  return choice(r, key, allowed, required);
}

Table ReadTable(const std::string& text, const std::string& source) {
  const Json document = ParseJson(text, source);
  ObjectReader r(document, source);
  Table t;
  ReadTableObject(r, t);
  CheckExpressions(t, source);
  return t;
}

}  // namespace qarvelt::model
