// Generated schemas for tests and benchmarks: a schema of any number of tables that looks like an
// application's (keys, foreign keys between tables, indexes, partitioned tables, sequences, views),
// and a seeded edit of it with every kind of change a release brings. Nothing is stored as data.
#ifndef QARVELT_TESTS_GENERATED_SCHEMA_H
#define QARVELT_TESTS_GENERATED_SCHEMA_H

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
// 1 new table comes per 100; sequences change their cache, views their query.
inline model::Schema EditedSchema(model::Schema s, unsigned seed) {
  std::mt19937 random(seed);
  auto chance = [&](int percent) { return static_cast<int>(random() % 100) < percent; };
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
    if (chance(1)) t.columns.erase(t.columns.begin() + 4);  // STATUS
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
  }
  for (auto v = s.views.begin(); v != s.views.end();) {
    const std::string table = "T" + v->name.substr(1);
    if (dropped.count(table) != 0) {
      v = s.views.erase(v);
      continue;
    }
    if (chance(5)) v->query += " AND AMOUNT > 0";
    ++v;
  }
  return s;
}

}  // namespace qarvelt::testing

#endif  // QARVELT_TESTS_GENERATED_SCHEMA_H
