// qarvelt create: the CREATE TABLE statement of a table document, one CREATE INDEX per index, one
// ALTER TABLE ... ADD CONSTRAINT per key built on one of those indexes, and the COMMENT statements,
// in that order. A key on an index of the table cannot be declared in the CREATE TABLE (its index
// does not exist yet, and a key index Oracle made for it would clash with the document's own), so it
// is added once the index exists. The CREATE and ALTER statements are filled into the library's
// statement trees and written by them; the comments are plain text (the library has no tree for them).
//
// The document is checked against its release first: what the release lacks (a data type, a
// temporary table, list partitioning, ...) is refused with exit code 2, as is what Oracle would
// refuse outright (a second primary key, a VARCHAR2 without length, a local index on a table that is
// not partitioned). Anything the trees cannot write is refused too, with exit code 1: nothing the
// document asks for is ever left out of the script.
#include <algorithm>
#include <set>

#include <qarvelt/clauses/column.h>
#include <qarvelt/clauses/constraint.h>
#include <qarvelt/clauses/lob.h>
#include <qarvelt/clauses/partition.h>
#include <qarvelt/clauses/storage.h>
#include <qarvelt/model/expressions.h>
#include <qarvelt/statements/alter_table.h>
#include <qarvelt/statements/create_index.h>
#include <qarvelt/statements/create_table.h>
#include <qarvelt/util/util.h>

#include "commands.h"
#include "create_support.h"
#include "identifiers.h"

namespace qarvelt::model {

namespace {

using namespace create;
using std::make_unique;
using Part = CSQLClauseTablePartition;

// The paths of CREATE TABLE.
const std::string kRelational = "C_RELATIONAL_TABLE";
const std::string kItems = kRelational + ";C_RELATIONAL_PROP;LIST";
const std::string kPhysical = kRelational + ";C_PHYSICAL_PROP";
const std::string kProps = kRelational + ";C_TABLE_PROP";
const std::string kPartitioning = kProps + ";C_TABLE_PART";
// ... and of CREATE INDEX.
const std::string kOnTable = "C_TABLE_INDEX";
const std::string kIndexAttributes = kOnTable + ";C_INDEX_ATTRIBUTES";

std::string lower(std::string text) {
  for (char& c : text)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

std::string at(const std::string& list, std::size_t i) {
  return list + "[" + std::to_string(i) + "]";
}

std::string item(const char* prefix, std::size_t i) {
  return prefix + std::to_string(i + 1);
}

bool isLob(const std::string& type) {
  return type == "BLOB" || type == "CLOB" || type == "NCLOB";
}

// An SQL string literal: in single quotes, quotes inside doubled.
std::string literal(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) {
    quoted += c;
    if (c == '\'') quoted += '\'';
  }
  return quoted + "'";
}

void checkUnique(const std::vector<std::string>& names, const std::string& where, const std::string& what) {
  std::set<std::string> seen;
  for (const std::string& name : names) {
    if (!name.empty() && !seen.insert(name).second) Refuse(where, "two " + what + " named " + name);
  }
}

// How a data type takes its sizes: a length (or precision) from `low` to `high`, needed or not, a
// scale, a length unit.
struct Sizes {
  bool length = false, required = false;
  long long low = 0, high = 0;
  bool scale = false, unit = false;
};

Sizes sizesOf(const std::string& type, int release) {
  const bool oracle7 = release == 0;
  // Oracle 12c brought extended data types: VARCHAR2, NVARCHAR2 and RAW of up to 32767 bytes.
  const bool extended = release >= 8;
  if (type == "VARCHAR2") return {true, true, 1, oracle7 ? 2000 : extended ? 32767 : 4000, false, true};
  if (type == "CHAR") return {true, false, 1, oracle7 ? 255 : 2000, false, true};
  if (type == "NVARCHAR2") return {true, true, 1, extended ? 32767 : 4000, false, false};
  if (type == "NCHAR") return {true, false, 1, 2000, false, false};
  if (type == "RAW") return {true, true, 1, oracle7 ? 255 : extended ? 32767 : 2000, false, false};
  if (type == "NUMBER") return {true, false, 1, 38, true, false};
  if (type == "FLOAT") return {true, false, 1, 126, false, false};
  // Fractional seconds, and the leading field of an interval: 0 to 9.
  if (type.rfind("TIMESTAMP", 0) == 0 || type.rfind("INTERVAL", 0) == 0)
    return {true, false, 0, 9, type == "INTERVAL DAY TO SECOND", false};
  if (type == "UROWID") return {true, false, 1, 4000, false, false};
  return {};
}

}  // namespace

void create::CheckDataType(const Column& c, int release, const std::string& where) {
  const std::vector<std::string> types = CSQLUtil::GetDataTypes(release);
  if (std::find(types.begin(), types.end(), c.type) == types.end()) {
    for (int later = release + 1; later <= kNewestRelease; ++later) {
      const std::vector<std::string> offered = CSQLUtil::GetDataTypes(later);
      if (std::find(offered.begin(), offered.end(), c.type) != offered.end()) {
        RequireRelease(release, later, where + ".type", "the data type " + c.type + " of column " + c.name);
      }
    }
    Refuse(where + ".type",
           "column " + c.name + ": unknown data type " + c.type + "; did you mean " +
               JoinAlternatives(Nearest(c.type, types)) + "?");
  }
  if (c.type == "VECTOR") {
    // VECTOR(dimensions, format): up to 65535 dimensions, BINARY ones in whole bytes.
    if (c.length != "*") CheckNumber(c.length, 1, 65535, where + ".dimensions");
    if (c.scale == "BINARY" && c.length != "*" && std::stol(c.length) % 8 != 0)
      Refuse(where + ".dimensions", "a BINARY vector has a multiple of 8 dimensions");
    if (!c.unit.empty()) Refuse(where + ".unit", "VECTOR takes no length unit");
    return;
  }
  const Sizes sizes = sizesOf(c.type, release);
  if (!sizes.length && !c.length.empty()) Refuse(where + ".length", c.type + " takes no length or precision");
  if (sizes.required && c.length.empty())
    Refuse(where + ".length", "missing (" + c.type + " needs a length)");
  if (c.length == "*") {
    // NUMBER(*,s): the greatest precision, 38, with a scale.
    if (c.type != "NUMBER") Refuse(where + ".length", "only NUMBER takes the precision *");
    if (c.scale.empty()) Refuse(where + ".scale", "missing (the precision * goes with a scale)");
  } else {
    CheckNumber(c.length, sizes.low, sizes.high, where + ".length");
  }
  if (!c.scale.empty() && c.type == "INTERVAL DAY TO SECOND") {
    // The fractional seconds, with or without the precision of the days.
    CheckNumber(c.scale, 0, 9, where + ".scale");
  } else if (!c.scale.empty()) {
    if (!sizes.scale) Refuse(where + ".scale", c.type + " takes no scale");
    if (c.length.empty()) Refuse(where + ".scale", "a scale needs a precision");
    CheckNumber(c.scale, -84, 127, where + ".scale");
  }
  if (!c.unit.empty()) {
    if (!sizes.unit) Refuse(where + ".unit", c.type + " takes no length unit");
    if (c.length.empty()) Refuse(where + ".unit", "a length unit needs a length");
    RequireRelease(release, 3, where + ".unit", "a length unit (BYTE or CHAR)");
  }
  if (!c.lob.empty() && !isLob(c.type)) Refuse(where + ".lob", c.type + " is not a LOB type with storage");
}

namespace {

// One table document written as statements.
class Writer {
 public:
  Writer(const Table& table, const Options& options)
      : m_table(table),
        m_release(table.release),
        m_quoteAll(options.quote_all),
        m_ifExists(options.if_exists) {
    if (m_release < 0 || m_release > kNewestRelease) Refuse("release", "unknown release code");
    if (m_ifExists) RequireRelease(m_release, 12, "--if-exists", "IF NOT EXISTS");
  }

  Script Run() {
    checkColumns();
    Script script;
    script.statements.push_back(createTable());
    for (std::size_t i = 0; i < m_table.indexes.size(); ++i)
      script.statements.push_back(createIndex(m_table.indexes[i], i));
    // Keys on the indexes just created, then the foreign keys that reference them from this table.
    for (std::size_t i = 0; i < m_table.constraints.size(); ++i) {
      if (KeyIndex(m_table, m_table.constraints[i]) != nullptr)
        script.statements.push_back(addConstraint(m_table.constraints[i], i));
    }
    for (std::size_t i = 0; i < m_table.constraints.size(); ++i) {
      const Constraint& c = m_table.constraints[i];
      if (KeyIndex(m_table, c) == nullptr && AddedAfterIndexes(m_table, c))
        script.statements.push_back(addConstraint(c, i));
    }
    comments(script.statements);
    return script;
  }

  // ALTER TABLE ... ADD CONSTRAINT statements for some of the table's constraints (by position).
  std::vector<std::string> AddConstraints(const std::vector<std::size_t>& which) {
    std::vector<std::string> statements;
    for (std::size_t i : which)
      statements.push_back(addConstraint(m_table.constraints.at(i), i));
    return statements;
  }

  // CREATE INDEX statements for some of the table's indexes (those a diff adds).
  std::vector<std::string> IndexStatements(const std::vector<Index>& indexes) {
    std::vector<std::string> statements;
    for (const Index& x : indexes) {
      std::size_t i = 0;
      while (i < m_table.indexes.size() && m_table.indexes[i].name != x.name)
        ++i;
      statements.push_back(createIndex(x, i));
    }
    return statements;
  }

 private:
  std::string id(const std::string& name, const std::string& where) const {
    return Identifier(name, m_release, m_quoteAll, where);
  }
  // [schema.]name, for the statements written as text.
  std::string qualified(const std::string& schema, const std::string& name) const {
    return (schema.empty() ? "" : id(schema, "schema") + ".") + id(name, "name");
  }
  std::vector<std::string> ids(const std::vector<std::string>& names, const std::string& where) const {
    std::vector<std::string> out;
    for (std::size_t i = 0; i < names.size(); ++i)
      out.push_back(id(names[i], at(where, i)));
    return out;
  }
  // Columns of this table, as written: each must be one of the document's columns.
  std::vector<std::string> columns(const std::vector<std::string>& names, const std::string& where) const {
    std::vector<std::string> all;
    for (const Column& c : m_table.columns)
      all.push_back(c.name);
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (std::find(all.begin(), all.end(), names[i]) == all.end()) {
        Refuse(at(where, i),
               "no column " + names[i] + " in the table; did you mean " +
                   JoinAlternatives(Nearest(names[i], all, 1)) + "?");
      }
    }
    return ids(names, where);
  }

  void checkColumns();
  std::string createTable();
  void column(TreeFiller& f, const Column& c, std::size_t i);
  void constraint(TreeFiller& f, const std::string& base, const Constraint& c, const std::string& where);
  std::string addConstraint(const Constraint& c, std::size_t i);
  void constraintState(TreeFiller& f, const std::string& path, const Constraint& c, const std::string& where);
  void physical(TreeFiller& f);
  void segment(
      TreeFiller& f, const std::string& path, const Segment& s, const std::string& where, bool pctused);
  void partitionSegment(TreeFiller& f,
                        const std::string& attributes,
                        const Partition& part,
                        const std::string& where,
                        bool pctused);
  void tableProperties(TreeFiller& f);
  void lobs(TreeFiller& f);
  void lobStorage(TreeFiller& f,
                  const std::string& base,
                  const std::string& column,
                  const LobStorage& lob,
                  const std::string& where);
  void partitioning(TreeFiller& f);
  void partitionDescription(TreeFiller& f,
                            const std::string& path,
                            const Partition& p,
                            const std::string& where);
  void subpartition(TreeFiller& f,
                    const std::string& list,
                    const Partition& s,
                    std::size_t i,
                    const std::string& where,
                    std::size_t keys,
                    bool templateItem);
  std::string createIndex(const Index& x, std::size_t i);
  void localIndex(TreeFiller& f, const Index& x, const std::string& where);
  void globalIndex(TreeFiller& f,
                   const Index& x,
                   const std::vector<std::string>& keys,
                   const std::string& where);
  void comments(std::vector<std::string>& statements) const;

  const Table& m_table;
  int m_release;
  bool m_quoteAll;
  bool m_ifExists;               // CREATE ... IF NOT EXISTS
  std::size_t m_keyColumns = 0;  // of the primary key
};

void Writer::checkColumns() {
  std::vector<std::string> names;
  int longs = 0, primaryKeys = 0;
  for (std::size_t i = 0; i < m_table.columns.size(); ++i) {
    const Column& c = m_table.columns[i];
    names.push_back(c.name);
    CheckDataType(c, m_release, at("columns", i));
    if (c.type == "LONG" || c.type == "LONG RAW") ++longs;
    if (c.primary_key) {
      ++primaryKeys;
      m_keyColumns = 1;
    }
  }
  checkUnique(names, "columns", "columns");
  if (longs > 1) Refuse("columns", "a table has at most one LONG or LONG RAW column");
  for (const Constraint& c : m_table.constraints) {
    if (c.type == "PRIMARY KEY") {
      ++primaryKeys;
      m_keyColumns = c.columns.size();
    }
  }
  if (primaryKeys > 1) Refuse("constraints", "a table has at most one primary key");
  if (m_table.organization == "INDEX" && primaryKeys == 0) {
    Refuse("organization", "an index-organized table needs a primary key");
  }
}

// ---- CREATE TABLE --------------------------------------------------------------------------------

std::string Writer::createTable() {
  const Table& t = m_table;
  CSQLCreateTable statement(true, m_release);
  TreeFiller f(statement, "CREATE TABLE");
  if (t.temporary) {
    RequireRelease(m_release, 3, "temporary", "a global temporary table");
    f.Set(kRelational + ";TEMPORARY", "TEMPORARY", "temporary");
    f.Set(kRelational + ";COMMIT", t.on_commit, "temporary.on_commit");
  }
  if (!t.schema.empty()) f.Set(kRelational + ";SCHEMA", id(t.schema, "schema"), "schema");
  f.Set(kRelational + ";TABLE", id(t.name, "name"), "name");
  f.Set(kRelational + ";IF_NOT_EXISTS", m_ifExists ? "IF NOT EXISTS" : "", "--if-exists");
  for (std::size_t i = 0; i < t.columns.size(); ++i)
    column(f, t.columns[i], i);
  std::vector<std::string> names;
  for (std::size_t i = 0; i < t.constraints.size(); ++i) {
    const Constraint& c = t.constraints[i];
    names.push_back(c.name);
    if (AddedAfterIndexes(t, c)) continue;
    const std::string where = at("constraints", i);
    if (!c.state.index_name.empty()) {
      Refuse(where + ".using_index.name",
             "no index " + (c.state.index_schema.empty() ? "" : c.state.index_schema + ".") +
                 c.state.index_name + " in the document; the key of a new table uses one of its own indexes");
    }
    f.Add(kItems, make_unique<CSQLCreateTable::CSubSQLItemProp>(item("R", i).c_str(), m_release), where);
    constraint(f, kItems + ";" + item("R", i) + ";C_OUTLINE_CONSTRAINT", c, where);
  }
  for (const Column& c : t.columns)
    names.push_back(c.constraint_name);
  checkUnique(names, "constraints", "constraints");
  physical(f);
  tableProperties(f);
  return f.Write();
}

}  // namespace

namespace create {

void CheckColumnSyntax(const Column& c, int release, const std::string& where) {
  const Identity& id = c.identity;
  if (!c.collation.empty()) RequireRelease(release, 9, where + ".collation", "a column collation");
  if (c.invisible) RequireRelease(release, 8, where + ".invisible", "an invisible column");
  if (c.default_on_null) RequireRelease(release, 8, where + ".default_on_null", "DEFAULT ON NULL");
  if (!id.generated.empty()) RequireRelease(release, 8, where + ".identity", "an identity column");
  if (!c.virtual_expr.empty()) RequireRelease(release, 7, where + ".virtual", "a virtual column");
  if (c.default_on_null && c.default_value.empty())
    Refuse(where + ".default_on_null", "DEFAULT ON NULL needs the default");
  const int kinds =
      (c.default_value.empty() ? 0 : 1) + (id.generated.empty() ? 0 : 1) + (c.virtual_expr.empty() ? 0 : 1);
  if (kinds > 1) Refuse(where, "a column has one of a default, an identity and a virtual expression");
  if (!id.generated.empty() && c.type != "NUMBER" && c.type != "INTEGER" && c.type != "FLOAT")
    Refuse(where + ".identity", "an identity column is numeric, not " + c.type);
  // The identity options are written as given: whole numbers, as for a sequence.
  const long long most = 999999999999999999;
  CheckNumber(id.start_with, -most, most, where + ".identity.start_with");
  CheckNumber(id.increment_by, -most, most, where + ".identity.increment_by");
  CheckNumber(id.minvalue, -most, most, where + ".identity.minvalue");
  CheckNumber(id.maxvalue, -most, most, where + ".identity.maxvalue");
  CheckNumber(id.cache, 2, most, where + ".identity.cache");
  if (!c.virtual_expr.empty() &&
      (CSQLUtil::IsLOBType(c.type.c_str()) != 0 || c.type == "LONG" || c.type == "LONG RAW"))
    Refuse(where + ".virtual", "a virtual column cannot be of type " + c.type);
}

void ColumnSyntax(
    TreeFiller& f, const Column& c, const std::string& path, const std::string& where, int release) {
  CheckColumnSyntax(c, release, where);
  const Identity& id = c.identity;
  f.Set(path + ";COLLATE", c.collation, where + ".collation");
  f.Set(path + ";VISIBILITY", c.invisible ? "INVISIBLE" : "", where + ".invisible");
  f.Set(path + (c.default_on_null ? ";DEFAULT_ON_NULL" : ";DEFAULT"), c.default_value, where + ".default");
  f.Set(path + ";VIRTUAL", c.virtual_expr, where + ".virtual");
  const std::string identity = path + ";C_IDENTITY;GENERATED";
  f.Set(identity, id.generated, where + ".identity");
  if (id.generated.empty()) return;
  f.Set(identity + ";START", id.start_with, where + ".identity.start_with");
  f.Set(identity + ";INCREMENT", id.increment_by, where + ".identity.increment_by");
  f.Set(identity + ";MAXVALUE", id.maxvalue, where + ".identity.maxvalue");
  f.Set(identity + ";MINVALUE", id.minvalue, where + ".identity.minvalue");
  f.Set(identity + ";CACHE", id.cache, where + ".identity.cache");
  f.Set(identity + ";NOCACHE", id.nocache ? "NOCACHE" : "", where + ".identity.cache");
  f.Set(identity + ";CYCLE", id.cycle, where + ".identity.cycle");
  f.Set(identity + ";ORDER", id.order, where + ".identity.order");
}

namespace {

const Column* findColumn(const Table& t, const std::string& name) {
  for (const Column& c : t.columns) {
    if (c.name == name) return &c;
  }
  return nullptr;
}

// A column that holds no NULL: declared NOT NULL, or a column of the primary key.
bool neverNull(const Table& t, const std::string& name) {
  const Column* c = findColumn(t, name);
  if (c != nullptr && (c->not_null || c->primary_key)) return true;
  return std::any_of(t.constraints.begin(), t.constraints.end(), [&](const Constraint& k) {
    return k.type == "PRIMARY KEY" && std::find(k.columns.begin(), k.columns.end(), name) != k.columns.end();
  });
}

// Only the Oracle 11g types with a distance between values make an interval key.
bool intervalKeyType(const std::string& type) {
  return type == "NUMBER" || type == "FLOAT" || type == "INTEGER" || type == "DATE" ||
         type.rfind("TIMESTAMP", 0) == 0;
}

void checkReference(const Table& t) {
  const Partitioning& p = t.partitioning;
  const std::string where = "partitioning";
  RequireRelease(t.release, 7, where + ".type", "reference partitioning");
  const auto fk = std::find_if(t.constraints.begin(), t.constraints.end(), [&](const Constraint& c) {
    return c.name == p.constraint;
  });
  if (fk == t.constraints.end() || fk->type != "FOREIGN KEY") {
    std::vector<std::string> keys;
    for (const Constraint& c : t.constraints) {
      if (c.type == "FOREIGN KEY" && !c.name.empty()) keys.push_back(c.name);
    }
    Refuse(where + ".constraint",
           "no foreign key " + p.constraint + " among the table's constraints" +
               (keys.empty() ? std::string(" (it has none)") : "; it has " + JoinAlternatives(keys)));
  }
  for (const std::string& column : fk->columns) {
    if (!neverNull(t, column)) {
      Refuse(where + ".constraint",
             "column " + column + " of foreign key " + fk->name +
                 " can be null; reference partitioning needs NOT NULL key columns (ORA-14652)");
    }
  }
  const ConstraintState& s = fk->state;
  if (s.enable == "DISABLE" || s.validate == "NOVALIDATE" || s.deferrable == "DEFERRABLE") {
    Refuse(where + ".constraint",
           "the foreign key " + fk->name +
               " of a reference partitioning is enabled, validated and not deferrable");
  }
  if (p.count > 0 || !p.store_in.empty())
    Refuse(where + (p.count > 0 ? ".count" : ".store_in"),
           "a table partitioned by reference has its parent's partitions");
  for (std::size_t i = 0; i < p.partitions.size(); ++i) {
    const Partition& part = p.partitions[i];
    if (!part.values.empty() || !part.values_less_than.empty() || !part.subpartitions.empty() ||
        !part.logging.empty() || !part.compress.empty() || !part.segment.empty() || !part.lobs.empty()) {
      Refuse(at(where + ".partitions", i),
             "a partition of a table partitioned by reference takes a name, a tablespace and indexing only");
    }
  }
}

void checkInterval(const Table& t) {
  const Partitioning& p = t.partitioning;
  const std::string where = "partitioning";
  if (p.interval.empty())
    Refuse(where + ".interval_store_in", "STORE IN goes with an interval; give \"interval\" too");
  RequireRelease(t.release, 7, where + ".interval", "interval partitioning");
  if (p.type != "RANGE") Refuse(where + ".interval", "only range partitioning takes an interval");
  if (t.organization == "INDEX")
    Refuse(where + ".interval", "an index-organized table is not interval-partitioned");
  if (p.columns.size() != 1) Refuse(where + ".columns", "interval partitioning takes one key column");
  const Column* key = findColumn(t, p.columns[0]);
  if (key != nullptr && !intervalKeyType(key->type)) {
    Refuse(at(where + ".columns", 0),
           "the key of interval partitioning is a NUMBER, FLOAT, DATE or TIMESTAMP column, not " + key->type);
  }
  for (std::size_t i = 0; i < p.partitions.size(); ++i) {
    const std::vector<std::string>& bounds = p.partitions[i].values_less_than;
    if (std::find(bounds.begin(), bounds.end(), "MAXVALUE") != bounds.end()) {
      Refuse(at(where + ".partitions", i) + ".values_less_than",
             "an interval-partitioned table has no MAXVALUE partition: Oracle adds partitions above the "
             "highest bound");
    }
  }
}

}  // namespace

void CheckPartitioning(const Table& t) {
  const Partitioning& p = t.partitioning;
  if (p.type.empty()) return;
  const std::string where = "partitioning";
  // A virtual column is a key like any other, from the release that brought virtual columns.
  for (const auto& [list, key] :
       {std::pair{&p.columns, ".columns"}, std::pair{&p.subcolumns, ".subpartitioning.columns"}}) {
    for (std::size_t i = 0; i < list->size(); ++i) {
      const Column* c = findColumn(t, (*list)[i]);
      if (c != nullptr && !c->virtual_expr.empty())
        RequireRelease(t.release, 7, at(where + key, i), "a virtual column as partitioning key");
    }
  }
  if (p.type == "REFERENCE") checkReference(t);
  if (!p.interval.empty() || !p.interval_store_in.empty()) checkInterval(t);
  if (p.type == "LIST" && p.columns.size() > 1)
    RequireRelease(t.release, 9, where + ".columns", "list partitioning on several columns");
  if (p.automatic) {
    RequireRelease(t.release, 9, where + ".automatic", "automatic list partitioning");
    if (p.type != "LIST") Refuse(where + ".automatic", "only list partitioning is automatic");
    if (p.columns.size() > 1)
      RequireRelease(t.release, 10, where + ".columns", "automatic list partitioning on several columns");
    for (std::size_t i = 0; i < p.partitions.size(); ++i) {
      const std::vector<std::string>& values = p.partitions[i].values;
      if (std::find(values.begin(), values.end(), "DEFAULT") != values.end()) {
        Refuse(at(where + ".partitions", i) + ".values",
               "an automatic list-partitioned table has no DEFAULT partition (ORA-14851)");
      }
    }
  }
  if (!p.subtype.empty()) {
    // Range-hash and range-list composites came first; the others with Oracle 11g.
    const int since = p.type == "LIST" || p.subtype == "RANGE" ? 7 : p.subtype == "LIST" ? 4 : 3;
    RequireRelease(t.release,
                   since,
                   where + ".subpartitioning",
                   lower(p.type) + "-" + lower(p.subtype) + " composite partitioning");
  }
  for (std::size_t i = 0; i < p.partitions.size(); ++i) {
    if (p.partitions[i].indexing.empty()) continue;
    if (p.type == "HASH") {
      RequireRelease(
          t.release, 9, at(where + ".partitions", i) + ".indexing", "INDEXING of a hash partition");
    } else {
      RequireRelease(t.release, 8, at(where + ".partitions", i) + ".indexing", "INDEXING of a partition");
    }
  }
}

void CheckLobStorage(const LobStorage& lob, int release, const std::string& where) {
  CheckNumber(lob.chunk, 1, 32768, where + ".chunk");
  CheckNumber(lob.pctversion, 0, 100, where + ".pctversion");
  if (!lob.pctversion.empty() && !lob.retention.empty()) {
    Refuse(where + ".retention", "give either PCTVERSION or RETENTION, not both");
  }
  // A cached LOB is always logged: Oracle takes a logging clause only after NOCACHE or CACHE READS.
  if (!lob.logging.empty() && lob.cache != "NOCACHE" && lob.cache != "CACHE READS") {
    Refuse(where + ".logging", "LOGGING and NOLOGGING go with NOCACHE or CACHE READS");
  }
  if (lob.cache == "CACHE READS") RequireRelease(release, 2, where + ".cache", "CACHE READS");
}

std::string TypeWithInnerSizes(const Column& c) {
  auto sized = [](const std::string& size) { return size.empty() ? std::string() : " (" + size + ")"; };
  if (c.type == "TIMESTAMP WITH TIME ZONE" || c.type == "TIMESTAMP WITH LOCAL TIME ZONE")
    return "TIMESTAMP" + sized(c.length) + c.type.substr(std::string("TIMESTAMP").size());
  if (c.type == "INTERVAL YEAR TO MONTH") return "INTERVAL YEAR" + sized(c.length) + " TO MONTH";
  if (c.type == "INTERVAL DAY TO SECOND")
    return "INTERVAL DAY" + sized(c.length) + " TO SECOND" + sized(c.scale);
  return "";
}

}  // namespace create

namespace {

void Writer::column(TreeFiller& f, const Column& c, std::size_t i) {
  const std::string where = at("columns", i);
  const std::string path = kItems + ";" + item("C", i);
  f.Add(kItems, make_unique<CSQLCreateTable::CSubSQLItemProp>(item("C", i).c_str(), m_release), where);
  f.Set(path + ";COLUMN", id(c.name, where + ".name"), where + ".name");
  const std::string inner = TypeWithInnerSizes(c);
  if (!inner.empty()) {
    f.Set(path + ";DATATYPE", inner, where + ".type");
  } else {
    f.Set(path + ";DATATYPE", c.type, where + ".type");
    f.Set(path + ";DATATYPE;LENGTH", c.length, where + ".length");
    f.Set(path + ";DATATYPE;SCALE", c.scale, where + ".scale");
    f.Set(path + ";DATATYPE;UNIT", c.unit, where + ".unit");
  }
  ColumnSyntax(f, c, path, where, m_release);

  // One inline constraint each; the constraint name goes to the key or check constraint, or to NOT
  // NULL when that is the only one.
  if (c.unique && c.primary_key) Refuse(where, "a column is either unique or the primary key");
  struct Inline {
    bool given;
    const char *leaf, *key;
    std::string value;
  } const constraints[] = {{c.not_null, "NULL", "not_null", "NOT NULL"},
                           {c.unique, "UNIQUE", "unique", "UNIQUE"},
                           {c.primary_key, "PRIMARY", "primary_key", "PRIMARY"},
                           {!c.check.empty(), "CHECK", "check", c.check}};
  const Inline* named = nullptr;
  for (const Inline& k : constraints) {
    if (k.given && (named == nullptr || std::string(named->leaf) == "NULL")) named = &k;
  }
  if (!c.constraint_name.empty() && named == nullptr) {
    Refuse(where + ".constraint", "the column has no constraint to name");
  }
  std::size_t n = 0;
  for (const Inline& k : constraints) {
    if (!k.given) continue;
    const std::string name = item("K", n++);
    const std::string constraintPath = path + ";LIST;" + name;
    f.Add(path + ";LIST", make_unique<CSQLClauseInlineConstraint>(name.c_str()), where + "." + k.key);
    if (&k == named && !c.constraint_name.empty()) {
      f.Set(constraintPath + ";CONSTRAINT",
            id(c.constraint_name, where + ".constraint"),
            where + ".constraint");
    }
    f.Set(constraintPath + ";" + k.leaf, k.value, where + "." + k.key);
  }
}

// One out-of-line constraint at `base`, a C_OUTLINE_CONSTRAINT node or an item of the same class.
void Writer::constraint(TreeFiller& f,
                        const std::string& base,
                        const Constraint& c,
                        const std::string& where) {
  if (!c.name.empty()) f.Set(base + ";CONSTRAINT", id(c.name, where + ".name"), where + ".name");
  if (c.type == "CHECK" && !c.columns.empty())
    Refuse(where + ".columns", "a CHECK constraint takes no columns");
  if (c.type != "CHECK" && !c.check.empty())
    Refuse(where + ".check", "only a CHECK constraint takes a condition");
  if (c.type != "FOREIGN KEY" && !c.ref_table.empty()) {
    Refuse(where + ".references", "only a FOREIGN KEY takes references");
  }
  if (c.type == "FOREIGN KEY" && m_table.temporary) {
    Refuse(where, "a temporary table cannot have foreign keys");
  }
  const std::vector<std::string> keys = columns(c.columns, where + ".columns");
  if (c.type == "PRIMARY KEY" || c.type == "UNIQUE") {
    const std::string leaf = c.type == "UNIQUE" ? "UNIQUE" : "PRIMARY";
    f.Set(base + ";" + leaf, leaf, where + ".type");
    f.AddTexts(base + ";" + leaf + ";LIST", keys, where + ".columns");
  } else if (c.type == "FOREIGN KEY") {
    const std::string references = base + ";FOREIGN;C_REFERENCES";
    f.Set(base + ";FOREIGN", "FOREIGN", where + ".type");
    f.AddTexts(base + ";FOREIGN;LIST", keys, where + ".columns");
    if (!c.ref_schema.empty()) {
      f.Set(references + ";SCHEMA",
            id(c.ref_schema, where + ".references.schema"),
            where + ".references.schema");
    }
    f.Set(references + ";OBJECT", id(c.ref_table, where + ".references.table"), where + ".references.table");
    if (!c.ref_columns.empty() && c.ref_columns.size() != c.columns.size()) {
      Refuse(where + ".references.columns", "as many columns as the foreign key has");
    }
    f.AddTexts(references + ";LIST",
               ids(c.ref_columns, where + ".references.columns"),
               where + ".references.columns");
    if (!c.on_delete.empty()) {
      if (c.on_delete == "SET NULL")
        RequireRelease(m_release, 2, where + ".references.on_delete", "ON DELETE SET NULL");
      f.Set(references + ";DELETE", "DELETE", where + ".references.on_delete");
      f.Set(references + (c.on_delete == "CASCADE" ? ";CASCADE" : ";NULL"),
            c.on_delete == "CASCADE" ? "CASCADE" : "NULL",
            where + ".references.on_delete");
    }
  } else {
    f.Set(base + ";CHECK", c.check, where + ".check");
  }
  constraintState(f, base + ";C_CONSTRAINT_STATE", c, where);
}

// ALTER TABLE ... ADD CONSTRAINT: a key on one of the table's indexes, once the index exists, or a
// constraint that diff adds to an existing table.
std::string Writer::addConstraint(const Constraint& c, std::size_t i) {
  const std::string where = at("constraints", i);
  Constraint key = c;
  if (const Index* x = KeyIndex(m_table, c)) {
    // The index leads with the key's columns, and a unique index holds no more than them.
    std::vector<std::string> leading;
    for (std::size_t j = 0; j < x->keys.size() && j < c.columns.size(); ++j)
      leading.push_back(x->keys[j].expression.empty() ? x->keys[j].column : "");
    std::sort(leading.begin(), leading.end());
    std::vector<std::string> columns = c.columns;
    std::sort(columns.begin(), columns.end());
    if (x->bitmap || leading != columns || (x->unique && x->keys.size() != c.columns.size())) {
      Refuse(where + ".using_index.name",
             "the index " + x->name + " cannot hold the key: it must lead with the key's columns" +
                 (x->unique ? " and, being unique, hold no others" : ""));
    }
    // An index the key is simply on is named from Oracle 10g Release 2; earlier releases build the
    // key on an index of its columns by themselves.
    if (key.state.index_name.empty() && m_release >= 6) {
      key.state.index_schema = x->schema.empty() ? m_table.schema : x->schema;
      key.state.index_name = x->name;
    }
  }
  CSQLAlterTable statement(true, m_release);
  TreeFiller f(statement, "ALTER TABLE");
  if (!m_table.schema.empty()) f.Set("SCHEMA", id(m_table.schema, "schema"), "schema");
  f.Set("TABLE", id(m_table.name, "name"), "name");
  f.Add("C_CONSTRAINT;LIST", make_unique<CSQLClauseOutLineConstraint>("R1"), where);
  constraint(f, "C_CONSTRAINT;LIST;R1", key, where);
  return f.Write();
}

void Writer::constraintState(TreeFiller& f,
                             const std::string& path,
                             const Constraint& c,
                             const std::string& where) {
  const ConstraintState& s = c.state;
  if (!s.deferrable.empty()) RequireRelease(m_release, 1, where + ".deferrable", "a deferrable constraint");
  if (!s.initially.empty()) RequireRelease(m_release, 1, where + ".initially", "INITIALLY");
  if (!s.validate.empty()) RequireRelease(m_release, 1, where + ".validate", "VALIDATE and NOVALIDATE");
  if (!s.rely.empty()) RequireRelease(m_release, 2, where + ".rely", "RELY and NORELY");
  if (s.deferrable == "NOT DEFERRABLE" && s.initially == "DEFERRED") {
    Refuse(where + ".initially", "a constraint that is not deferrable cannot be initially deferred");
  }
  f.Set(path + ";DEFERRABLE", s.deferrable, where + ".deferrable");
  f.Set(path + ";INITIALLY", s.initially, where + ".initially");
  f.Set(path + ";ENABLE", s.enable, where + ".enabled");
  f.Set(path + ";VALIDATE", s.validate, where + ".validate");
  f.Set(path + ";RELY", s.rely, where + ".rely");

  const std::string usingIndex = where + ".using_index";
  const bool existing = !s.index_name.empty() || !s.index_schema.empty();
  if (!existing && s.index_tablespace.empty()) return;
  if (c.type != "PRIMARY KEY" && c.type != "UNIQUE")
    Refuse(usingIndex, "only a key constraint uses an index");
  if (existing && !s.index_tablespace.empty()) {
    Refuse(usingIndex, "give either an existing index (schema, name) or the tablespace of a new one");
  }
  if (existing) {
    RequireRelease(m_release, 6, usingIndex, "USING INDEX of an existing index");
    if (s.index_name.empty()) Refuse(usingIndex + ".name", "missing (the existing index's name)");
    if (!s.index_schema.empty()) {
      f.Set(
          path + ";C_USING_INDEX;SCHEMA", id(s.index_schema, usingIndex + ".schema"), usingIndex + ".schema");
    }
    f.Set(path + ";C_USING_INDEX;INDEX", id(s.index_name, usingIndex + ".name"), usingIndex + ".name");
  } else {
    f.Set(path + ";C_USING_INDEX;TABLESPACE",
          id(s.index_tablespace, usingIndex + ".tablespace"),
          usingIndex + ".tablespace");
  }
}

void Writer::physical(TreeFiller& f) {
  const Table& t = m_table;
  const bool iot = t.organization == "INDEX";
  std::string attributes = kPhysical + ";C_SEG_ATTRIBUTE";
  if (iot) {
    RequireRelease(m_release, 1, "organization", "an index-organized table");
    f.Set(kPhysical + ";INDEX", "INDEX", "organization");
    attributes = kPhysical + ";INDEX;C_SEG_ATTRIBUTE";
  }
  if (t.temporary) {
    if (!t.tablespace.empty())
      RequireRelease(m_release, 7, "tablespace", "the tablespace of a temporary table");
    if (!t.segment.empty()) Refuse("physical", "a temporary table takes no physical or storage attributes");
    if (!t.logging.empty()) Refuse("logging", "a temporary table takes no LOGGING or NOLOGGING");
    if (!t.compress.empty()) Refuse("compress", "a temporary table cannot be compressed");
  }
  if (!t.tablespace.empty()) {
    f.Set(attributes + ";TABLESPACE", id(t.tablespace, "tablespace"), "tablespace");
  }
  segment(f, attributes + ";C_PHYSICAL_ATTRIBUTES", t.segment, "", !iot);
  if (!t.logging.empty()) RequireRelease(m_release, 2, "logging", "LOGGING and NOLOGGING");
  f.Set(attributes + ";LOGGING", t.logging, "logging");
  if (t.compress.empty()) return;
  if (iot) {
    // An index-organized table compresses its key: COMPRESS or NOCOMPRESS of its index.
    RequireRelease(m_release, 2, "compress", "key compression of an index-organized table");
    if (CompressionSince(t.compress) != 4)
      Refuse("compress", "an index-organized table compresses its key: give true or false");
    if (t.compress == "COMPRESS" && m_keyColumns < 2) {
      Refuse("compress", "a one-column primary key has no prefix to compress");
    }
    f.SetUnrecorded(kPhysical + ";INDEX;C_IDX_ORG_TABLE;C_KEY_COMPRESSION;COMPRESS", t.compress, "compress");
  } else {
    RequireRelease(m_release, CompressionSince(t.compress), "compress", CompressionFeature(t.compress));
    f.Set(kPhysical + ";COMPRESS", t.compress, "compress");
  }
}

// The physical attributes and STORAGE of a table, partition or index, at `path` (a
// C_PHYSICAL_ATTRIBUTES node); `where` is the document's place of the owner ("" or "...].").
void Writer::segment(
    TreeFiller& f, const std::string& path, const Segment& s, const std::string& where, bool pctused) {
  const std::string physical = where + "physical.", storage = where + "storage.";
  if (!pctused && !s.pctused.empty()) {
    Refuse(physical + "pctused", "an index or an index-organized table takes no PCTUSED");
  }
  CheckNumber(s.pctfree, 0, 99, physical + "pctfree");
  CheckNumber(s.pctused, 1, 99, physical + "pctused");
  if (!s.pctfree.empty() && !s.pctused.empty() && std::stoll(s.pctfree) + std::stoll(s.pctused) > 100) {
    Refuse(physical + "pctused", "PCTFREE and PCTUSED add up to more than 100");
  }
  CheckNumber(s.initrans, 1, 255, physical + "initrans");
  CheckNumber(s.maxtrans, 1, 255, physical + "maxtrans");
  CheckSize(s.initial, m_release, storage + "initial");
  CheckSize(s.next, m_release, storage + "next");
  CheckNumber(s.minextents, 1, 2147483645, storage + "minextents");
  if (s.maxextents != "UNLIMITED") CheckNumber(s.maxextents, 1, 2147483645, storage + "maxextents");
  CheckNumber(s.pctincrease, 0, 999999999, storage + "pctincrease");
  CheckNumber(s.freelists, 1, 999999999, storage + "freelists");
  CheckNumber(s.freelist_groups, 1, 999999999, storage + "freelist_groups");
  if (!s.buffer_pool.empty()) {
    if (s.buffer_pool != "KEEP" && s.buffer_pool != "RECYCLE" && s.buffer_pool != "DEFAULT") {
      Refuse(storage + "buffer_pool", "\"" + s.buffer_pool + "\" is not one of KEEP, RECYCLE or DEFAULT");
    }
    RequireRelease(m_release, 2, storage + "buffer_pool", "BUFFER_POOL");
  }
  f.Set(path + ";PCTFREE", s.pctfree, physical + "pctfree");
  f.Set(path + ";PCTUSED", s.pctused, physical + "pctused");
  f.Set(path + ";INITRANS", s.initrans, physical + "initrans");
  f.Set(path + ";MAXTRANS", s.maxtrans, physical + "maxtrans");
  const std::string st = path + ";C_STORAGE;";
  f.Set(st + "INITIAL", s.initial, storage + "initial");
  f.Set(st + "NEXT", s.next, storage + "next");
  f.Set(st + "MINEXTENTS", s.minextents, storage + "minextents");
  f.Set(st + "MAXEXTENTS", s.maxextents, storage + "maxextents");
  f.Set(st + "PCTINCREASE", s.pctincrease, storage + "pctincrease");
  f.Set(st + "FREELISTS", s.freelists, storage + "freelists");
  f.Set(st + "FREELIST", s.freelist_groups, storage + "freelist_groups");
  f.Set(st + "BUFFER_POOL", s.buffer_pool, storage + "buffer_pool");
}

// "PARALLEL", "NOPARALLEL" or a degree, into the C_PARALLEL node at `path`, in the shape of the
// node's release.
void setParallel(TreeFiller& f,
                 const std::string& path,
                 const std::string& parallel,
                 int release,
                 const std::string& where) {
  if (parallel.empty()) return;
  const bool degree = IsDigits(parallel);
  f.Set(path + ";PARALLEL", degree ? "PARALLEL" : parallel, where);
  if (!degree) return;
  if (release >= 3) {
    f.Set(path + ";PARALLEL;VALUE", parallel, where);
  } else {
    f.Add(path + ";PARALLEL;LIST", make_unique<CSQLClauseParallel::CSubSQLItem>("DEGREE"), where);
    f.Set(path + ";PARALLEL;LIST;DEGREE;DEGREE", "DEGREE", where);
    f.Set(path + ";PARALLEL;LIST;DEGREE;DEGREE;VALUE", parallel, where);
  }
}

void Writer::tableProperties(TreeFiller& f) {
  const Table& t = m_table;
  lobs(f);
  partitioning(f);
  f.Set(kProps + ";CACHE", t.cache, "cache");
  if (!t.monitoring.empty()) RequireRelease(m_release, 2, "monitoring", "MONITORING and NOMONITORING");
  f.Set(kProps + ";MONITORING", t.monitoring, "monitoring");
  setParallel(f, kProps + ";C_PARALLEL", t.parallel, m_release, "parallel");
  if (!t.row_movement.empty()) RequireRelease(m_release, 2, "row_movement", "row movement");
  f.Set(kProps + ";MOVEMENT", t.row_movement, "row_movement");
}

void Writer::lobs(TreeFiller& f) {
  std::vector<std::size_t> stored;
  for (std::size_t i = 0; i < m_table.columns.size(); ++i) {
    if (!m_table.columns[i].lob.empty()) stored.push_back(i);
  }
  if (stored.empty()) return;
  const std::string first = at("columns", stored[0]) + ".lob";
  // The table trees have column properties from release code 6, one of them at 6.
  RequireRelease(m_release, 6, first, "the LOB storage clause of a column");
  if (stored.size() > 1) {
    RequireRelease(m_release, 7, at("columns", stored[1]) + ".lob", "LOB storage for more than one column");
  }
  for (std::size_t n = 0; n < stored.size(); ++n) {
    const Column& c = m_table.columns[stored[n]];
    const LobStorage& lob = c.lob;
    const std::string where = at("columns", stored[n]) + ".lob";
    std::string base = kProps + ";C_COLUMN_PROP;C_LOB_STORAGE";
    if (m_release >= 7) {
      f.Add(kProps + ";C_COLUMN_PROP;LISTLOB",
            make_unique<CSQLClauseColumnProp::CSubSQLItemLOB>(item("L", n).c_str()),
            where);
      base = kProps + ";C_COLUMN_PROP;LISTLOB;" + item("L", n) + ";C_LOB_STORAGE";
    }
    lobStorage(f, base, id(c.name, at("columns", stored[n]) + ".name"), lob, where);
  }
}

// LOB (column) STORE AS [segment] (parameters) below `base`, a C_LOB_STORAGE node.
void Writer::lobStorage(TreeFiller& f,
                        const std::string& base,
                        const std::string& column,
                        const LobStorage& lob,
                        const std::string& where) {
  CheckLobStorage(lob, m_release, where);

  f.Set(base + ";LOBITEM", column, where);
  std::string parameters = base + ";LOBITEM;C_LOB_PARAMETER";
  if (!lob.segment.empty()) {
    f.Set(base + ";LOBITEM;LOBSEG", id(lob.segment, where + ".segment"), where + ".segment");
    parameters = base + ";LOBITEM;LOBSEG;C_LOB_PARAMETER";
  }
  if (!lob.tablespace.empty()) {
    f.Set(parameters + ";TABLESPACE", id(lob.tablespace, where + ".tablespace"), where + ".tablespace");
  }
  f.Set(parameters + ";ENABLE", lob.in_row, where + ".in_row");
  f.Set(parameters + ";CHUNK", lob.chunk, where + ".chunk");
  f.Set(parameters + ";PCTVERSION", lob.pctversion, where + ".pctversion");
  f.Set(parameters + ";RETENTION", lob.retention, where + ".retention");
  f.Set(parameters + ";CACHE", lob.cache == "CACHE READS" ? "CACHE" : lob.cache, where + ".cache");
  f.Set(parameters + ";CACHE;READS", lob.cache == "CACHE READS" ? "READS" : "", where + ".cache");
  f.Set(parameters + ";CACHE;LOGGING", lob.logging, where + ".logging");
}

// ---- partitioning --------------------------------------------------------------------------------

void Writer::partitioning(TreeFiller& f) {
  const Partitioning& p = m_table.partitioning;
  if (p.type.empty()) return;
  const std::string where = "partitioning";
  RequireRelease(m_release, 1, where, "a partitioned table");
  if (m_table.temporary) Refuse(where, "a temporary table cannot be partitioned");
  if (m_table.organization == "INDEX") {
    RequireRelease(m_release, 2, where, "a partitioned index-organized table");
  }
  const bool composite = !p.subtype.empty();
  const bool reference = p.type == "REFERENCE";
  if (p.type == "HASH") RequireRelease(m_release, 3, where + ".type", "hash partitioning");
  if (p.type == "LIST") RequireRelease(m_release, 6, where + ".type", "list partitioning");
  CheckPartitioning(m_table);
  const std::vector<std::string> keys = columns(p.columns, where + ".columns");
  if (p.type != "HASH" && p.count > 0) Refuse(where + ".count", "only hash partitioning takes a count");
  if (p.type == "HASH" && p.count > 0 && !p.partitions.empty()) {
    Refuse(where + ".count", "give either the count or the partitions, not both");
  }
  const bool byCount = (p.type == "HASH" && p.count > 0) || (p.subtype == "HASH" && p.subcount > 0);
  if (!p.store_in.empty() && !byCount) {
    Refuse(where + ".store_in", "tablespaces are stored in by a count of hash partitions or subpartitions");
  }
  const std::vector<std::string> storeIn = ids(p.store_in, where + ".store_in");
  std::vector<std::string> names;
  for (const Partition& part : p.partitions) {
    names.push_back(part.name);
    for (const Partition& sub : part.subpartitions)
      names.push_back(sub.name);
  }
  for (const Partition& sub : p.subtemplate)
    names.push_back(sub.name);
  checkUnique(names, where + ".partitions", "partitions or subpartitions");

  std::string base;
  std::vector<std::string> subkeys;
  if (composite) {
    base = kPartitioning + (p.type == "LIST" ? ";C_COMPOSITE_LIST_PART" : ";C_COMPOSITE_PART");
    const std::string sub = where + ".subpartitioning";
    subkeys = columns(p.subcolumns, sub + ".columns");
    if (p.subcount > 0 && !p.subtemplate.empty())
      Refuse(sub + ".count", "give either the count or a template, not both");
    if (p.subtype != "HASH" && p.subcount > 0) {
      Refuse(sub + ".count", lower(p.subtype) + " subpartitions are listed, not counted");
    }
    std::string templ;
    if (p.subtype == "HASH") {
      f.AddTexts(base + ";C_SUBPART_BY_HASH;LIST", subkeys, sub + ".columns");
      f.Set(base + ";C_SUBPART_BY_HASH;QUANTITY",
            p.subcount > 0 ? std::to_string(p.subcount) : "",
            sub + ".count");
      f.AddTexts(base + ";C_SUBPART_BY_HASH;QUANTITY;LIST", storeIn, where + ".store_in");
      templ = base + ";C_SUBPART_BY_HASH;C_SUBPART_TEMPLATE;LIST";
    } else if (p.subtype == "RANGE") {
      f.AddTexts(base + ";C_SUBPART_BY_RANGE;LIST", subkeys, sub + ".columns");
      templ = base + ";C_SUBPART_BY_RANGE;C_SUBPART_TEMPLATE;LIST";
    } else {
      if (subkeys.size() != 1) Refuse(sub + ".columns", "list subpartitioning takes one column");
      f.Set(base + ";C_SUBPART_BY_LIST;COLUMN", subkeys[0], sub + ".columns");
      templ = base + ";C_SUBPART_BY_LIST;C_SUBPART_TEMPLATE;LIST";
    }
    if (!p.subtemplate.empty()) {
      RequireRelease(m_release, 4, sub + ".template", "a subpartition template");
      for (std::size_t i = 0; i < p.subtemplate.size(); ++i)
        subpartition(f, templ, p.subtemplate[i], i, at(sub + ".template", i), subkeys.size(), true);
    }
  } else if (p.type == "RANGE") {
    base = kPartitioning + ";C_RANGE_PART";
  } else if (p.type == "HASH") {
    base = kPartitioning + ";C_HASH_PART";
    f.Set(base + ";C_BY_QUANTITY;QUANTITY", p.count > 0 ? std::to_string(p.count) : "", where + ".count");
    f.AddTexts(base + ";C_BY_QUANTITY;LIST", storeIn, where + ".store_in");
  } else if (reference) {
    base = kPartitioning + ";C_REFERENCE_PART";
    f.Set(base + ";CONSTRAINT", id(p.constraint, where + ".constraint"), where + ".constraint");
  } else {
    base = kPartitioning + ";C_LIST_PART";
  }
  if (p.type == "LIST") {
    if (keys.size() == 1) {
      f.Set(base + ";COLUMN", keys[0], where + ".columns");
    } else {
      f.AddTexts(base + ";COLUMNS", keys, where + ".columns");
    }
    f.Set(base + ";AUTOMATIC", p.automatic ? "AUTOMATIC" : "", where + ".automatic");
  } else if (!reference) {
    f.AddTexts(base + ";LIST", keys, where + ".columns");
  }
  if (!p.interval.empty()) {
    f.Set(base + ";INTERVAL", p.interval, where + ".interval");
    f.AddTexts(base + ";INTERVAL;LIST",
               ids(p.interval_store_in, where + ".interval_store_in"),
               where + ".interval_store_in");
  }

  const std::string list = base + (p.type == "LIST" || reference ? ";LIST" : ";LISTSUB");
  for (std::size_t i = 0; i < p.partitions.size(); ++i) {
    const Partition& part = p.partitions[i];
    const std::string w = at(where + ".partitions", i);
    const std::string name = item("P", i);
    const std::string path = list + ";" + name;
    if (p.type == "HASH") {
      f.Add(list, make_unique<Part::CSubSQLItemHash>(name.c_str(), m_release), w);
    } else if (p.type == "LIST") {
      f.Add(list, make_unique<Part::CSubSQLItemList>(name.c_str(), m_release), w);
    } else if (reference) {
      f.Add(list, make_unique<CSQLClausePartitionSpec>(name.c_str(), m_release), w);
    } else {
      f.Add(list, make_unique<Part::CSubSQLItemRange>(name.c_str(), m_release), w);
    }
    f.Set(path + ";PARTITION", id(part.name, w + ".name"), w + ".name");
    if (p.type != "RANGE" && !part.values_less_than.empty()) {
      Refuse(w + ".values_less_than", "only a range partition has bounds");
    }
    if (p.type != "LIST" && !part.values.empty()) Refuse(w + ".values", "only a list partition has values");
    if (!composite && !part.subpartitions.empty()) {
      Refuse(w + ".subpartitions", "the table has no subpartitioning");
    }
    if (p.type == "RANGE") {
      if (part.values_less_than.size() != keys.size()) {
        Refuse(w + ".values_less_than",
               "one bound per partitioning column (" + JoinAlternatives(p.columns) + ")");
      }
      f.AddTexts(path + ";C_RANGEVALUES;LIST", part.values_less_than, w + ".values_less_than");
      for (std::size_t j = 0; j < part.subpartitions.size(); ++j) {
        subpartition(f,
                     path + ";C_SUBPART_TEMPLATE;LIST",
                     part.subpartitions[j],
                     j,
                     at(w + ".subpartitions", j),
                     subkeys.size(),
                     true);
      }
    } else if (p.type == "LIST") {
      if (part.values.empty()) Refuse(w + ".values", "missing (a list partition has values)");
      if (part.values.size() == 1 && part.values[0] == "DEFAULT") {
        f.Set(path + ";C_LISTVALUES;DEFAULT", "DEFAULT", w + ".values");
      } else {
        if (std::find(part.values.begin(), part.values.end(), "DEFAULT") != part.values.end()) {
          Refuse(w + ".values", "DEFAULT stands alone");
        }
        if (keys.size() > 1) {
          // A key of several columns takes each value as a bracketed tuple: ('EU', 1).
          for (std::size_t j = 0; j < part.values.size(); ++j) {
            if (part.values[j].empty() || part.values[j].front() != '(' || part.values[j].back() != ')')
              Refuse(at(w + ".values", j),
                     "a list key of several columns takes values in brackets: ('A', 1)");
          }
        }
        f.AddTexts(path + ";C_LISTVALUES;LIST", part.values, w + ".values");
      }
      // The subpartitions of a list partition follow its description.
      for (std::size_t j = 0; j < part.subpartitions.size(); ++j) {
        subpartition(f,
                     path + ";C_TAB_PART_DESC;C_PART_LEVEL_SUBPART;LIST",
                     part.subpartitions[j],
                     j,
                     at(w + ".subpartitions", j),
                     subkeys.size(),
                     false);
      }
    } else if (p.type == "HASH") {
      // A hash partition takes a tablespace only (and, from Oracle 12c Release 2, INDEXING).
      if (!part.logging.empty() || !part.compress.empty() || !part.segment.empty()) {
        Refuse(w, "a hash partition takes a tablespace only");
      }
      if (!part.tablespace.empty()) {
        f.Set(path + ";C_PARTITION_STORAGE;TABLESPACE",
              id(part.tablespace, w + ".tablespace"),
              w + ".tablespace");
      }
      f.Set(path + ";INDEXING", part.indexing, w + ".indexing");
      continue;
    }
    partitionDescription(f, path + ";C_TAB_PART_DESC", part, w);
  }
}

void Writer::partitionDescription(TreeFiller& f,
                                  const std::string& path,
                                  const Partition& p,
                                  const std::string& where) {
  f.Set(path + ";INDEXING", p.indexing, where + ".indexing");
  partitionSegment(f, path + ";C_SEG_ATTRIBUTE", p, where, m_table.organization != "INDEX");
  if (!p.compress.empty()) {
    RequireRelease(
        m_release, CompressionSince(p.compress), where + ".compress", CompressionFeature(p.compress));
    if (m_table.organization == "INDEX")
      Refuse(where + ".compress", "the partitions of an index-organized table compress their key");
  }
  f.Set(path + ";COMPRESS", p.compress, where + ".compress");
  // LOB storage of the partition: LOB (C) STORE AS (...) after its segment attributes.
  for (std::size_t i = 0; i < p.lobs.size(); ++i) {
    const PartitionLob& lob = p.lobs[i];
    const std::string w = at(where + ".lobs", i);
    const auto column = std::find_if(m_table.columns.begin(), m_table.columns.end(), [&](const Column& c) {
      return c.name == lob.column;
    });
    if (column == m_table.columns.end() || !isLob(column->type)) {
      Refuse(w + ".column", "no LOB column " + lob.column + " in the table");
    }
    const std::string name = item("L", i);
    f.Add(path + ";LIST", make_unique<CSQLClauseLOBStorage>(name.c_str()), w);
    lobStorage(f, path + ";LIST;" + name, id(lob.column, w + ".column"), lob.storage, w);
  }
}

// One subpartition, an item of `list`: a template item (CSubSQLItemTemplate) of the table's
// template or a range partition, or a subpartition description (CSQLClauseSubPartitionSpec) of a list
// partition. `keys` is the number of subpartitioning columns.
void Writer::subpartition(TreeFiller& f,
                          const std::string& list,
                          const Partition& s,
                          std::size_t i,
                          const std::string& where,
                          std::size_t keys,
                          bool templateItem) {
  const std::string name = item("S", i);
  const std::string path = list + ";" + name;
  if (templateItem) {
    f.Add(list, make_unique<Part::CSubSQLItemTemplate>(name.c_str(), m_release), where);
  } else {
    f.Add(list, make_unique<CSQLClauseSubPartitionSpec>(name.c_str()), where);
  }
  f.Set(path + ";SUBPARTITION", id(s.name, where + ".name"), where + ".name");
  const std::string& subtype = m_table.partitioning.subtype;
  if (subtype != "RANGE" && !s.values_less_than.empty())
    Refuse(where + ".values_less_than", "only a range subpartition has bounds");
  if (subtype != "LIST" && !s.values.empty())
    Refuse(where + ".values", "only a list subpartition has values");
  if (subtype == "RANGE") {
    if (s.values_less_than.size() != keys) {
      Refuse(
          where + ".values_less_than",
          "one bound per subpartitioning column (" + JoinAlternatives(m_table.partitioning.subcolumns) + ")");
    }
    f.AddTexts(path + ";C_RANGEVALUES;LIST", s.values_less_than, where + ".values_less_than");
  } else if (subtype == "LIST") {
    if (s.values.empty()) {
      Refuse(where + ".values", "missing (a list subpartition has values)");
    } else if (s.values.size() == 1 && s.values[0] == "DEFAULT") {
      f.Set(path + ";C_LISTVALUES;DEFAULT", "DEFAULT", where + ".values");
    } else {
      f.AddTexts(path + ";C_LISTVALUES;LIST", s.values, where + ".values");
    }
  }
  if (!s.tablespace.empty()) {
    f.Set(path + ";C_PARTITION_STORAGE;TABLESPACE",
          id(s.tablespace, where + ".tablespace"),
          where + ".tablespace");
  }
}

// ---- CREATE INDEX --------------------------------------------------------------------------------

std::string Writer::createIndex(const Index& x, std::size_t i) {
  const std::string where = at("indexes", i);
  CSQLCreateIndex statement(true, m_release);
  TreeFiller f(statement, "CREATE INDEX");
  if (x.unique && x.bitmap) Refuse(where, "an index is either unique or bitmap");
  if (x.bitmap && x.reverse) Refuse(where + ".reverse", "a bitmap index cannot be reverse");
  if (x.bitmap && !m_table.partitioning.type.empty() && !x.local) {
    Refuse(where + ".local", "a bitmap index on a partitioned table is local");
  }
  f.Set("TYPE", x.unique ? "UNIQUE" : (x.bitmap ? "BITMAP" : ""), where + (x.unique ? ".unique" : ".bitmap"));
  const std::string& schema = x.schema.empty() ? m_table.schema : x.schema;
  if (!schema.empty()) f.Set("SCHEMA", id(schema, where + ".schema"), where + ".schema");
  f.Set("INDEX", id(x.name, where + ".name"), where + ".name");
  f.Set("IF_NOT_EXISTS", m_ifExists ? "IF NOT EXISTS" : "", "--if-exists");
  if (!m_table.schema.empty()) f.Set(kOnTable + ";SCHEMA", id(m_table.schema, "schema"), "schema");
  f.Set(kOnTable + ";TABLE", id(m_table.name, "name"), "name");

  std::vector<std::string> keys;  // the key columns, as written ("" for an expression)
  for (std::size_t j = 0; j < x.keys.size(); ++j) {
    const IndexKey& k = x.keys[j];
    const std::string w = at(where + ".columns", j);
    const std::string path = kOnTable + ";LIST;" + item("K", j);
    f.Add(kOnTable + ";LIST", make_unique<CSQLCreateIndex::CSubSQLItemIndexExpr>(item("K", j).c_str()), w);
    if (k.expression.empty()) {
      keys.push_back(columns({k.column}, w).front());
      f.Set(path + ";COLUMN", keys.back(), w);
    } else {
      RequireRelease(m_release, 2, w + ".expression", "an index on an expression");
      keys.emplace_back();
      f.Set(path + ";EXPR", k.expression, w + ".expression");
    }
    f.Set(path + ";ASC", k.order, w + ".order");
  }

  segment(f, kIndexAttributes + ";C_PHYSICAL_ATTRIBUTES", x.segment, where + ".", false);
  if (!x.logging.empty()) RequireRelease(m_release, 2, where + ".logging", "LOGGING and NOLOGGING");
  f.Set(kIndexAttributes + ";LOGGING", x.logging, where + ".logging");
  if (!x.tablespace.empty()) {
    f.Set(kIndexAttributes + ";TABLESPACE", id(x.tablespace, where + ".tablespace"), where + ".tablespace");
  }
  if (!x.compress.empty()) {
    RequireRelease(m_release, 2, where + ".compress", "key compression");
    // A unique key keeps its last column out of the compressed prefix.
    const bool prefix = IsDigits(x.compress);
    const long long most = static_cast<long long>(x.keys.size()) - (x.unique ? 1 : 0);
    if (x.compress != "NOCOMPRESS" && most < 1) {
      Refuse(where + ".compress", "a unique index on one column has no prefix to compress");
    }
    if (prefix) CheckNumber(x.compress, 1, most, where + ".compress");
    const std::string compression = kIndexAttributes + ";C_KEY_COMPRESSION;COMPRESS";
    if (x.compress == "NOCOMPRESS") {
      f.SetUnrecorded(compression, x.compress, where + ".compress");
    } else {
      f.Set(compression, "COMPRESS", where + ".compress");
      f.Set(compression + ";VALUE", prefix ? x.compress : "", where + ".compress");
    }
  }
  // The attributes that are a keyword when their key is true: the release that brought each, its leaf.
  struct Keyword {
    bool given;
    int since;
    const char *key, *feature, *leaf, *value;
  } const keywords[] = {
      {x.reverse, 1, "reverse", "a reverse key index", "REVERSE", "REVERSE"},
      {x.online, 2, "online", "building an index ONLINE", "ONLINE", "ONLINE"},
      {x.invisible, 7, "invisible", "an invisible index", "VISIBLE", "INVISIBLE"},
      {x.partial, 8, "partial", "a partial index (INDEXING PARTIAL)", "INDEXING", "PARTIAL"},
  };
  for (const Keyword& k : keywords) {
    if (!k.given) continue;
    RequireRelease(m_release, k.since, where + "." + k.key, k.feature);
    f.Set(kIndexAttributes + ";" + k.leaf, k.value, where + "." + k.key);
  }
  if (IsDigits(x.parallel)) {
    // The index tree writes PARALLEL n, the form of release code 3 on.
    RequireRelease(m_release, 3, where + ".parallel", "a degree of parallelism for an index");
  }
  setParallel(f, kIndexAttributes + ";C_PARALLEL", x.parallel, kLatestRelease, where + ".parallel");
  if (x.local) localIndex(f, x, where);
  if (!x.global_type.empty()) globalIndex(f, x, keys, where);
  return f.Write();
}

void Writer::localIndex(TreeFiller& f, const Index& x, const std::string& where) {
  const Partitioning& p = m_table.partitioning;
  RequireRelease(m_release, 1, where + ".local", "a local index");
  if (p.type.empty()) Refuse(where + ".local", "a local index needs a partitioned table");
  if (x.unique) {
    std::vector<std::string> all = p.columns;
    all.insert(all.end(), p.subcolumns.begin(), p.subcolumns.end());
    for (const std::string& column : all) {
      const bool keyed =
          std::any_of(x.keys.begin(), x.keys.end(), [&](const IndexKey& k) { return k.column == column; });
      if (!keyed) Refuse(where + ".local", "a unique local index holds the partitioning column " + column);
    }
  }
  const std::string local = kOnTable + ";C_LOCAL_PARTED;LOCAL";
  f.Set(local, "LOCAL", where + ".local");
  if (x.local_partitions.empty()) return;
  const std::size_t expected =
      p.type == "HASH" && p.count > 0 ? static_cast<std::size_t>(p.count) : p.partitions.size();
  if (x.local_partitions.size() != expected) {
    Refuse(where + ".local.partitions",
           "a local index has as many partitions as the table (" + std::to_string(expected) + ")");
  }
  const bool composite = !p.subtype.empty();
  const std::string list = local + (composite           ? ";C_ON_COMP;LIST"
                                    : p.type == "RANGE" ? ";C_ON_RANGE;LIST"
                                    : p.type == "LIST"  ? ";C_ON_LIST;LIST"
                                                        : ";C_ON_HASH;LIST");
  for (std::size_t j = 0; j < x.local_partitions.size(); ++j) {
    const Partition& part = x.local_partitions[j];
    const std::string w = at(where + ".local.partitions", j);
    if (!part.values.empty() || !part.values_less_than.empty()) {
      Refuse(w, "a local index partition takes its bounds from the table");
    }
    if (composite) {
      f.Add(list, make_unique<CSQLCreateIndex::CSubSQLItemCompPartition>(item("P", j).c_str()), w);
    } else {
      f.Add(list, make_unique<CSQLCreateIndex::CSubSQLItemPartition>(item("P", j).c_str()), w);
    }
    const std::string path = list + ";" + item("P", j);
    f.Set(path + ";PARTITION", id(part.name, w + ".name"), w + ".name");
    partitionSegment(f, path + ";C_SEG_ATTRIBUTE", part, w, false);
  }
}

// The tablespace, physical attributes, storage and logging of a table or index partition, at
// `attributes` (a C_SEG_ATTRIBUTE node); `pctused` when the segment takes PCTUSED (a heap table's).
void Writer::partitionSegment(TreeFiller& f,
                              const std::string& attributes,
                              const Partition& part,
                              const std::string& where,
                              bool pctused) {
  if (!part.tablespace.empty())
    f.Set(attributes + ";TABLESPACE", id(part.tablespace, where + ".tablespace"), where + ".tablespace");
  segment(f, attributes + ";C_PHYSICAL_ATTRIBUTES", part.segment, where + ".", pctused);
  if (!part.logging.empty()) RequireRelease(m_release, 2, where + ".logging", "LOGGING and NOLOGGING");
  f.Set(attributes + ";LOGGING", part.logging, where + ".logging");
}

void Writer::globalIndex(TreeFiller& f,
                         const Index& x,
                         const std::vector<std::string>& keys,
                         const std::string& where) {
  const std::string w = where + ".global";
  const bool hash = x.global_type == "HASH";
  RequireRelease(
      m_release, hash ? 5 : 1, w, hash ? "a global hash partitioned index" : "a global partitioned index");
  if (x.bitmap) Refuse(w, "a bitmap index cannot be globally partitioned");
  const std::vector<std::string> columnsOf = columns(x.global_columns, w + ".columns");
  for (std::size_t j = 0; j < columnsOf.size(); ++j) {
    if (j >= keys.size() || keys[j] != columnsOf[j]) {
      Refuse(w + ".columns", "the partitioning columns of a global index lead its key columns");
    }
  }
  const std::string base = kOnTable + ";C_GLOBAL_PARTED;" + (hash ? "C_HASH_PART" : "C_RANGE_PART");
  f.AddTexts(base + ";LIST", columnsOf, w + ".columns");
  if (!hash && x.global_count > 0) Refuse(w + ".count", "only hash partitioning takes a count");
  if (hash && (x.global_count > 0) == !x.global_partitions.empty()) {
    Refuse(w, "give either the count or the partitions of a hash partitioned index");
  }
  if (!hash && x.global_partitions.empty())
    Refuse(w + ".partitions", "missing (range partitioning lists its partitions)");
  if (hash && x.global_count > 0)
    f.Set(base + ";C_BY_QUANTITY;QUANTITY", std::to_string(x.global_count), w + ".count");
  const std::string list = base + (hash ? ";LISTSUB" : ";LISTPART");
  for (std::size_t j = 0; j < x.global_partitions.size(); ++j) {
    const Partition& part = x.global_partitions[j];
    const std::string pw = at(w + ".partitions", j);
    const std::string path = list + ";" + item("P", j);
    if (!part.values.empty()) Refuse(pw + ".values", "a global index partition has no list values");
    if (hash) {
      if (!part.values_less_than.empty()) Refuse(pw + ".values_less_than", "a hash partition has no bounds");
      f.Add(list, make_unique<Part::CSubSQLItemHash>(item("P", j).c_str()), pw);
    } else {
      if (part.values_less_than.size() != columnsOf.size()) {
        Refuse(pw + ".values_less_than", "one bound per partitioning column");
      }
      const bool last = j + 1 == x.global_partitions.size();
      const bool open = std::all_of(part.values_less_than.begin(),
                                    part.values_less_than.end(),
                                    [](const std::string& v) { return v == "MAXVALUE"; });
      if (last && !open)
        Refuse(pw + ".values_less_than", "the last partition of a global range index is bounded by MAXVALUE");
      f.Add(list, make_unique<CSQLCreateIndex::CSubSQLItemGlobalPartitioning>(item("P", j).c_str()), pw);
      f.AddTexts(path + ";LIST", part.values_less_than, pw + ".values_less_than");
    }
    f.Set(path + ";PARTITION", id(part.name, pw + ".name"), pw + ".name");
    if (!hash) {
      partitionSegment(f, path + ";C_SEG_ATTRIBUTE", part, pw, false);
    } else if (!part.logging.empty() || !part.segment.empty()) {
      Refuse(pw, "a hash partition of an index takes only its tablespace (no physical, storage or logging)");
    } else if (!part.tablespace.empty()) {
      f.Set(path + ";C_PARTITION_STORAGE;TABLESPACE",
            id(part.tablespace, pw + ".tablespace"),
            pw + ".tablespace");
    }
  }
}

// ---- COMMENT ON ----------------------------------------------------------------------------------

void Writer::comments(std::vector<std::string>& statements) const {
  constexpr std::size_t kLongest = 4000;  // bytes of a comment
  const std::string table = qualified(m_table.schema, m_table.name);
  if (!m_table.comment.empty()) {
    if (m_table.comment.size() > kLongest) Refuse("comment", "longer than 4000 bytes");
    statements.push_back("COMMENT ON TABLE " + table + " IS " + literal(m_table.comment));
  }
  for (std::size_t i = 0; i < m_table.columns.size(); ++i) {
    const Column& c = m_table.columns[i];
    if (c.comment.empty()) continue;
    if (c.comment.size() > kLongest) Refuse(at("columns", i) + ".comment", "longer than 4000 bytes");
    statements.push_back("COMMENT ON COLUMN " + table + "." + id(c.name, at("columns", i) + ".name") +
                         " IS " + literal(c.comment));
  }
}

}  // namespace

const Index* KeyIndex(const Table& table, const Constraint& c) {
  if (c.type != "PRIMARY KEY" && c.type != "UNIQUE") return nullptr;
  const ConstraintState& s = c.state;
  if (!s.index_tablespace.empty()) return nullptr;  // a new index of its own
  for (const Index& x : table.indexes) {
    const std::string& schema = x.schema.empty() ? table.schema : x.schema;
    if (!s.index_name.empty()) {
      if (x.name == s.index_name && (s.index_schema.empty() || s.index_schema == schema)) return &x;
      continue;
    }
    // From Oracle 8i a key is built on an existing index of its columns; an index on exactly them,
    // created after the key, would be refused as a second index on one column list.
    if (table.release < 2 || x.bitmap || x.keys.size() != c.columns.size()) continue;
    bool same = true;
    for (std::size_t j = 0; j < x.keys.size() && same; ++j)
      same = x.keys[j].expression.empty() && x.keys[j].order != "DESC" && x.keys[j].column == c.columns[j];
    if (same) return &x;
  }
  return nullptr;
}

bool AddedAfterIndexes(const Table& table, const Constraint& c) {
  if (KeyIndex(table, c) != nullptr) return true;
  // A foreign key to a key of its own table that is added after its index: in the CREATE TABLE it
  // would reference a key that does not exist yet (ORA-02268, ORA-02270).
  if (c.type != "FOREIGN KEY" || c.ref_table != table.name) return false;
  if (!c.ref_schema.empty() && c.ref_schema != table.schema) return false;
  for (const Constraint& key : table.constraints) {
    if (key.type != "PRIMARY KEY" && key.type != "UNIQUE") continue;
    const bool referenced = c.ref_columns.empty() ? key.type == "PRIMARY KEY" : key.columns == c.ref_columns;
    if (referenced) return KeyIndex(table, key) != nullptr;
  }
  return false;
}

Script Create(const Table& table, const Options& options) {
  CheckExpressions(table);
  const Table resolved = ResolveNames(table, options.preserve_case);
  return Writer(resolved, options).Run();
}

std::vector<std::string> AddConstraintStatements(const Table& table,
                                                 const std::vector<std::size_t>& which,
                                                 const Options& options) {
  return Writer(table, options).AddConstraints(which);
}

std::vector<std::string> CreateIndexStatements(const Table& table,
                                               const std::vector<Index>& indexes,
                                               const Options& options) {
  return Writer(table, options).IndexStatements(indexes);
}

}  // namespace qarvelt::model
