// Generated schemas for tests and benchmarks: a schema of any number of tables that looks like an
// application's (keys, foreign keys between tables, indexes, partitioned tables, sequences, views),
// and a seeded edit of it with every kind of change a release brings. Nothing is stored as data.
#ifndef QARVELT_TESTS_GENERATED_SCHEMA_H
#define QARVELT_TESTS_GENERATED_SCHEMA_H

#include <algorithm>
#include <cstdio>
#include <random>
#include <set>
#include <string>

#include <qarvelt/model/schema.h>

namespace qarvelt::testing {

inline std::string numbered(const char* prefix, int n) {
  char text[32];
  std::snprintf(text, sizeof text, "%s%05d", prefix, n);
  return text;
}

inline model::Column column(const char* name,
                            const char* type,
                            const char* length = "",
                            bool notNull = false) {
  model::Column c;
  c.name = name;
  c.type = type;
  c.length = length;
  c.not_null = notNull;
  return c;
}

// Table n: six columns, a primary key, a foreign key to the table before it (every 50th to the one
// 25 places after it, closing cycles), an index on that key; every 20th table partitioned by range.
inline model::Table generatedTable(const std::string& schema, int n, int tables) {
  model::Table t;
  t.schema = schema;
  t.name = numbered("T", n);
  t.columns = {column("ID", "NUMBER", "12", true),  column("NAME", "VARCHAR2", "100"),
               column("CREATED", "DATE", "", true), column("AMOUNT", "NUMBER", "12"),
               column("STATUS", "VARCHAR2", "10"),  column("PARENT_ID", "NUMBER", "12")};
  t.columns[2].default_value = "SYSDATE";
  t.columns[3].scale = "2";
  model::Constraint pk;
  pk.name = t.name + "_PK";
  pk.type = "PRIMARY KEY";
  pk.columns = {"ID"};
  t.constraints.push_back(pk);
  const int parent = n % 50 == 0 ? (n + 25) % tables : n - 1;
  if (parent >= 0 && parent != n) {
    model::Constraint fk;
    fk.name = t.name + "_PARENT_FK";
    fk.type = "FOREIGN KEY";
    fk.columns = {"PARENT_ID"};
    fk.ref_table = numbered("T", parent);
    fk.ref_columns = {"ID"};
    t.constraints.push_back(fk);
    model::Index x;
    x.name = t.name + "_PARENT_IX";
    x.keys.push_back({"PARENT_ID", "", ""});
    t.indexes.push_back(x);
  }
  if (n % 20 == 0) {
    t.partitioning.type = "RANGE";
    t.partitioning.columns = {"CREATED"};
    for (int year = 2023; year <= 2026; ++year) {
      model::Partition p;
      p.name = "P" + std::to_string(year);
      p.values_less_than = {"DATE '" + std::to_string(year + 1) + "-01-01'"};
      t.partitioning.partitions.push_back(p);
    }
  }
  return t;
}

inline model::Schema GeneratedSchema(int tables, const std::string& name = "APP") {
  model::Schema s;
  s.name = name;
  for (int n = 0; n < tables; ++n)
    s.tables.push_back(generatedTable(name, n, tables));
  for (int n = 0; n < tables; n += 10) {
    model::Sequence q;
    q.name = numbered("S", n);
    q.cache = "20";
    s.sequences.push_back(q);
  }
  for (int n = 0; n < tables; n += 20) {
    model::View v;
    v.name = numbered("V", n);
    v.query = "SELECT ID, NAME FROM " + numbered("T", n) + " WHERE STATUS = 'OPEN'";
    s.views.push_back(v);
  }
  return s;
}

// A release's worth of changes, chosen by `seed`: about 5 in 100 tables gain a column, 3 widen one,
// 2 change PCTFREE, 1 loses a column, 1 is renamed, 1 is dropped (with the foreign keys to it), and
// 1 new table comes per 100; sequences change their cache, views their query. A higher `intensity`
// makes every change that much likelier and adds the rarer ones: renamed columns, keys and indexes,
// indexes dropped or moved, checks added, columns with a named inline key added or losing it,
// partitions added, dropped and renamed, sequences and views renamed, dropped and added.
inline model::Schema EditedSchema(model::Schema s, unsigned seed, int intensity = 1) {
  std::mt19937 random(seed);
  auto chance = [&](int percent) { return static_cast<int>(random() % 100) < percent * intensity; };
  auto rare = [&](int percent) { return intensity > 1 && chance(percent); };
  std::set<std::string> dropped;
  std::vector<model::Table> kept;
  const int count = static_cast<int>(s.tables.size());
  for (model::Table& t : s.tables) {
    if (chance(1)) {
      dropped.insert(t.name);
      continue;
    }
    if (chance(5)) t.columns.push_back(column("NOTE", "VARCHAR2", "200"));
    if (chance(3)) t.columns[1].length = "200";
    if (chance(2)) t.segment.pctfree = "20";
    if (t.columns.size() > 4 && t.columns[4].name == "STATUS" && chance(1))
      t.columns.erase(t.columns.begin() + 4);
    if (t.columns[1].name == "NAME" && rare(2)) {
      t.columns[1].renamed_from = t.columns[1].name;
      t.columns[1].name = "FULL_NAME";
    }
    if (t.constraints[0].name != t.name + "_KEY" && rare(2)) {
      t.constraints[0].renamed_from = t.constraints[0].name;
      t.constraints[0].name = t.name + "_KEY";
    }
    if (t.constraints.back().type != "CHECK" && rare(2)) {
      model::Constraint check;
      check.name = t.name + "_AMOUNT_CK";
      check.type = "CHECK";
      check.check = "AMOUNT >= 0";
      t.constraints.push_back(check);
    }
    // Types whose precisions stand inside their names, added or given new precisions.
    const auto span = std::find_if(t.columns.begin(), t.columns.end(),
                                   [](const model::Column& c) { return c.name == "SPAN"; });
    if (span == t.columns.end() && rare(2)) {
      t.columns.push_back(column("SEEN_AT", "TIMESTAMP WITH TIME ZONE", "3"));
      t.columns.push_back(column("SPAN", "INTERVAL DAY TO SECOND", "4"));
      t.columns.back().scale = "2";
    } else if (span != t.columns.end() && rare(20)) {
      span->scale = "5";
      (span - 1)->length = "";
    }
    if (t.columns.back().name != "FLAG" && rare(2)) {
      t.columns.push_back(column("FLAG", "NUMBER", "1", true));
      t.columns.back().default_value = "0";
    }
    // A column with a named inline key: added with it, or losing the key (dropped by its name).
    auto code = std::find_if(t.columns.begin(), t.columns.end(), [](auto& c) { return c.name == "CODE"; });
    if (code == t.columns.end() && rare(2)) {
      t.columns.push_back(column("CODE", "VARCHAR2", "20"));
      t.columns.back().unique = true;
      t.columns.back().constraint_name = t.name + "_CODE_UK";
    } else if (code != t.columns.end() && code->unique && rare(5)) {
      code->unique = false;
      code->constraint_name.clear();
    }
    if (!t.indexes.empty() && t.indexes[0].name != t.name + "_PAR_IX" && rare(2)) {
      t.indexes[0].renamed_from = t.indexes[0].name;
      t.indexes[0].name = t.name + "_PAR_IX";
    } else if (!t.indexes.empty() && rare(2)) {
      t.indexes[0].tablespace = "IDX";
    } else if (!t.indexes.empty() && rare(1)) {
      t.indexes.clear();
    }
    auto& parts = t.partitioning.partitions;
    if (!parts.empty() && parts.back().name != "P2027" && rare(5)) {
      model::Partition p;
      p.name = "P2027";
      p.values_less_than = {"DATE '2028-01-01'"};
      parts.push_back(p);
    }
    if (parts.size() > 2 && rare(5)) parts.erase(parts.begin());
    if (parts.size() > 2 && parts[1].name[0] == 'P' && rare(5)) {
      parts[1].renamed_from = parts[1].name;
      parts[1].name = "Y" + parts[1].name.substr(1);
    }
    kept.push_back(std::move(t));
  }
  const std::size_t old = kept.size();
  for (int n = count; n < count + count / 100; ++n)
    kept.push_back(generatedTable(s.name, n, count));
  for (model::Table& t : kept) {
    for (auto k = t.constraints.begin(); k != t.constraints.end();)
      k = dropped.count(k->ref_table) != 0 ? t.constraints.erase(k) : k + 1;
  }
  // Renames last, so that the foreign keys to a renamed table follow it.
  for (std::size_t i = 0; i < old; ++i) {
    model::Table& t = kept[i];
    if (!chance(1)) continue;
    t.renamed_from = t.name;
    t.name = "R" + t.name;
    for (model::Table& other : kept) {
      for (model::Constraint& k : other.constraints) {
        if (k.ref_table == t.renamed_from) k.ref_table = t.name;
      }
    }
  }
  s.tables = std::move(kept);
  for (model::Sequence& q : s.sequences) {
    if (chance(5)) q.cache = "100";
    if (rare(3)) q.increment_by = "10";
    if (rare(3)) {
      q.renamed_from = q.name;
      q.name = "R" + q.name;
    }
  }
  if (!s.sequences.empty() && rare(10)) s.sequences.erase(s.sequences.begin());
  if (rare(10)) {
    model::Sequence q;
    q.name = "NEW_SEQ" + std::to_string(seed);
    q.start_with = "100";
    s.sequences.push_back(q);
  }
  for (auto v = s.views.begin(); v != s.views.end();) {
    const std::string table = "T" + v->name.substr(1);
    if (dropped.count(table) != 0) {
      v = s.views.erase(v);
      continue;
    }
    if (chance(5)) v->query += " AND AMOUNT > 0";
    if (rare(3)) {
      v->renamed_from = v->name;
      v->name = "R" + v->name;
    }
    ++v;
  }
  if (rare(10) && !s.tables.empty()) {
    model::View v;
    v.name = "NEW_VIEW" + std::to_string(seed);
    v.columns = {"ID"};
    v.query = "SELECT ID FROM " + s.tables.front().name;
    s.views.push_back(v);
  }
  return s;
}

// The schema with its declared renames taken away: what it is once a script made them.
inline model::Schema WithoutRenames(model::Schema s) {
  for (model::Table& t : s.tables) {
    t.renamed_from.clear();
    for (model::Column& c : t.columns)
      c.renamed_from.clear();
    for (model::Constraint& k : t.constraints)
      k.renamed_from.clear();
    for (model::Index& x : t.indexes) {
      x.renamed_from.clear();
      for (auto* parts : {&x.local_partitions, &x.global_partitions}) {
        for (model::Partition& p : *parts)
          p.renamed_from.clear();
      }
    }
    for (model::Partition& p : t.partitioning.partitions) {
      p.renamed_from.clear();
      for (model::Partition& sub : p.subpartitions)
        sub.renamed_from.clear();
    }
  }
  for (model::Sequence& q : s.sequences)
    q.renamed_from.clear();
  for (model::SchemaIndex& x : s.indexes)
    x.index.renamed_from.clear();  // (their partitions are not renamed by the generator)
  for (model::View& v : s.views)
    v.renamed_from.clear();
  return s;
}

}  // namespace qarvelt::testing

#endif  // QARVELT_TESTS_GENERATED_SCHEMA_H
