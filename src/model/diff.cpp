// qarvelt diff: the ALTER script from one table document to another, built through the information
// model. The order of the script is the one the README gives:
//   1. dropped constraints (and redefined ones, which are added again in step 8);
//   2. dropped indexes (and redefined ones, created again in step 9);
//   3. dropped columns: one DROP statement;
//   4. renamed columns, then renamed constraints;
//   5. the table's own properties (physical attributes, storage, logging, caching, parallel, row
//      movement, a new tablespace) and the LOB storage of kept columns;
//   6. the column syntax of Oracle 11g and later (identity, DEFAULT ON NULL, visibility, virtual
//      expression, collation), one statement each, then added and modified columns;
//   7. partition maintenance: an interval or automatic partitioning taken away; drops, renames,
//      moves, attribute changes, then the new partitions in bound order (added, or split off the
//      partition that holds their range); the old highest partition waits until the new ones are in
//      when none is kept; INDEXING of partitions; then the LOB storage of kept partitions; last an
//      interval or automatic partitioning set, once a MAXVALUE or DEFAULT partition is gone;
//   8. added constraints, then constraint state changes;
//   9. index changes (ALTER INDEX), then new indexes, then added keys built on an index (USING INDEX
//      i), now that their index exists under its new name;
//  10. comments;
//  11. the table's rename, last, so that every statement before it names the table as it is.
#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <memory>
#include <set>

#include <qarvelt/model/expressions.h>
#include <qarvelt/qarvelt.h>

#include "commands.h"
#include "create_support.h"
#include "identifiers.h"

namespace qarvelt::model {

namespace {

using Texts = std::vector<std::string>;

// Writes what an entry point left in a statement tree: one statement per pass, at most as many
// passes as it takes (a pass that writes nothing new ends the loop).
void writeTree(CSQLClause& statement, Texts& out) {
  std::string last;
  for (int pass = 0; pass < 64; ++pass) {
    std::string text;
    statement.GetModifiedSQL("*", text);
    Trim(text);
    if (!text.empty() && text != last) out.push_back(text);
    last = text;
    statement.RefreshUsed();
    if (!statement.hasUnused() || text.empty()) break;
  }
}

std::string quoted(const std::string& text) {
  std::string out = "'";
  for (char c : text)
    out += c == '\'' ? std::string("''") : std::string(1, c);
  return out + "'";
}

// Loads a value as it is (old) and as it should be (new), the new text taken exactly, empty included.
void load(CSQLInfoBase& record, const char* type, const std::string& now, const std::string& before) {
  record.SetSQLValue(type, "", before.c_str());
  record.SetSQLValue(type, now.c_str());
}

// Loads a value that the new document may leave out: left out, it stays as it is.
void loadKept(CSQLInfoBase& record, const char* type, const std::string& now, const std::string& before) {
  load(record, type, now.empty() ? before : now, before);
}

// Physical attributes and storage parameters that Oracle changes in place (INITIAL, MINEXTENTS and
// freelist groups are set only when a segment is created), as they are and as they should be.
void loadSegment(CSQLInfoBase& record, const Segment& now, const Segment& before) {
  const std::pair<const char*, std::string Segment::*> fields[] = {{"PCTFREE", &Segment::pctfree},
                                                                   {"PCTUSED", &Segment::pctused},
                                                                   {"INITRANS", &Segment::initrans},
                                                                   {"MAXTRANS", &Segment::maxtrans},
                                                                   {"NEXT", &Segment::next},
                                                                   {"MAXEXTENTS", &Segment::maxextents},
                                                                   {"PCTINCREASE", &Segment::pctincrease},
                                                                   {"FREELISTS", &Segment::freelists},
                                                                   {"BUFFER_POOL", &Segment::buffer_pool}};
  // Records ignore the names they do not hold (an index has no PCTUSED).
  for (const auto& [type, member] : fields)
    loadKept(record, type, now.*member, before.*member);
}

// The data type families within which Oracle converts a column in place. The character types are
// one family: CHAR, VARCHAR2 and their national forms convert into each other, values and all.
int typeFamily(const std::string& type) {
  static const std::map<std::string, int> families = {{"CHAR", 1},
                                                      {"VARCHAR2", 1},
                                                      {"VARCHAR", 1},
                                                      {"NCHAR", 1},
                                                      {"NVARCHAR2", 1},
                                                      {"NUMBER", 3},
                                                      {"FLOAT", 3},
                                                      {"INTEGER", 3},
                                                      {"DECIMAL", 3},
                                                      {"DATE", 4},
                                                      {"RAW", 5},
                                                      {"LONG", 6},
                                                      {"CLOB", 6},
                                                      {"LONG RAW", 7},
                                                      {"BLOB", 7},
                                                      {"ROWID", 8},
                                                      {"UROWID", 8},
                                                      {"BINARY_FLOAT", 9},
                                                      {"BINARY_DOUBLE", 9}};
  if (type.rfind("TIMESTAMP", 0) == 0) return 4;
  const auto found = families.find(type);
  return found != families.end() ? found->second : -1;
}

long numberOr(const std::string& text, long fallback) {
  try {
    return text.empty() ? fallback : std::stol(text);
  } catch (...) {
    return fallback;
  }
}

// The names an expression uses: unquoted words in upper case, quoted ones as written; string
// literals are skipped.
std::set<std::string> namesIn(const std::string& expression) {
  std::set<std::string> names;
  for (std::size_t i = 0; i < expression.size();) {
    const unsigned char c = static_cast<unsigned char>(expression[i]);
    if (c == '\'' || c == '"') {
      const std::size_t end = expression.find(static_cast<char>(c), i + 1);
      if (c == '"') names.insert(expression.substr(i + 1, end == std::string::npos ? end : end - i - 1));
      i = end == std::string::npos ? expression.size() : end + 1;
    } else if (std::isalpha(c) || c == '_') {
      std::string word;
      while (i < expression.size() && (std::isalnum(static_cast<unsigned char>(expression[i])) ||
                                       std::string("_$#").find(expression[i]) != std::string::npos)) {
        word += static_cast<char>(std::toupper(static_cast<unsigned char>(expression[i++])));
      }
      names.insert(word);
    } else {
      ++i;
    }
  }
  return names;
}

// The partition that takes everything above the others (MAXVALUE) or every other value (DEFAULT):
// nothing can be added after it.
bool isTop(const Partition& p) {
  auto is = [](const std::vector<std::string>& values, const char* word) {
    if (values.empty()) return false;
    std::string first = values.front();
    for (char& c : first)
      c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return first == word;
  };
  return is(p.values_less_than, "MAXVALUE") || is(p.values, "DEFAULT");
}

// Compares two range bounds of the literal kinds that order as their texts do (numbers, DATE and
// TIMESTAMP literals, TO_DATE of a year-first format, strings, MAXVALUE): below 0, 0 or above 0, or
// kUnknownOrder when the texts do not tell.
constexpr int kUnknownOrder = 2;

int compareBounds(const Partition& x, const Partition& y) {
  // One bound value: its kind and the text that orders it.
  auto key = [](std::string v) -> std::pair<int, std::string> {
    Trim(v);
    std::string upper = v;
    for (char& c : upper)
      c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (upper == "MAXVALUE") return {0, ""};
    auto literal = [&](std::size_t from) {
      const std::size_t open = v.find('\'', from);
      const std::size_t close = open == std::string::npos ? open : v.find('\'', open + 1);
      std::string text = close == std::string::npos ? "" : v.substr(open + 1, close - open - 1);
      Trim(text);
      return text;
    };
    if (upper.rfind("DATE", 0) == 0 || upper.rfind("TIMESTAMP", 0) == 0) return {2, literal(0)};
    if (upper.rfind("TO_DATE", 0) == 0) {
      const std::size_t format = v.find('\'', v.find('\'', v.find('\'') + 1) + 1);
      std::string f = format == std::string::npos ? "" : upper.substr(format + 1);
      if (f.rfind("S", 0) == 0) f = f.substr(1);
      return f.rfind("YYYY-MM-DD", 0) == 0 ? std::make_pair(2, literal(0))
                                           : std::make_pair(-1, std::string());
    }
    if (!v.empty() && v.front() == '\'') return {3, literal(0)};
    try {
      std::size_t used = 0;
      std::stod(v, &used);
      if (used == v.size()) return {1, ""};  // compared as numbers below
    } catch (...) {
    }
    return {-1, ""};
  };
  const auto& a = x.values_less_than;
  const auto& b = y.values_less_than;
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    const auto ka = key(a[i]), kb = key(b[i]);
    if (ka.first == 0 || kb.first == 0) {
      if (ka.first != kb.first) return ka.first == 0 ? 1 : -1;
      continue;
    }
    if (ka.first < 0 || ka.first != kb.first) return kUnknownOrder;
    if (ka.first == 1) {
      const double da = std::stod(a[i]), db = std::stod(b[i]);
      if (da != db) return da < db ? -1 : 1;
    } else if (ka.second != kb.second) {
      return ka.second < kb.second ? -1 : 1;
    }
  }
  return 0;
}

bool isNational(const std::string& type) {
  return type == "NCHAR" || type == "NVARCHAR2";
}

// A column's type as a statement writes it: NUMBER, NUMBER(9,2), VARCHAR2(30 CHAR), TIMESTAMP (3) WITH
// TIME ZONE.
std::string typeText(const Column& c) {
  const std::string inner = create::TypeWithInnerSizes(c);
  if (!inner.empty()) return inner;
  if (c.length.empty()) return c.type;
  return c.type + "(" + c.length + (c.scale.empty() ? "" : "," + c.scale) +
         (c.unit.empty() ? "" : " " + c.unit) + ")";
}

// Oracle's default precisions of a datetime or interval type: of its length (the fractional seconds
// of a TIMESTAMP, the leading field of an INTERVAL) and of its scale (the fractional seconds of
// INTERVAL DAY TO SECOND); 0 where the type has no such precision.
struct Precisions {
  long length = 0, scale = 0;
};
Precisions defaultPrecisions(const std::string& type) {
  if (type.rfind("TIMESTAMP", 0) == 0) return {6, 0};
  if (type == "INTERVAL DAY TO SECOND") return {2, 6};
  if (type.rfind("INTERVAL", 0) == 0) return {2, 0};
  return {};
}

// Why a change within a type family can fail on a table with rows, or "" when it cannot.
std::string narrowing(const Column& old, const Column& now) {
  constexpr long kFloating = 1L << 20;  // the scale of a NUMBER without precision: any
  const bool numeric = typeFamily(old.type) == typeFamily("NUMBER");
  if (numeric && (old.type == "FLOAT") != (now.type == "FLOAT")) return "";  // binary precision
  if (numeric) {
    // Precision and scale; NUMBER alone holds any, INTEGER is NUMBER(38) and a precision of "*"
    // is the largest.
    auto precision = [](const Column& c) { return numberOr(c.length, c.type == "FLOAT" ? 126 : 38); };
    auto scale = [&](const Column& c) {
      if (c.type == "FLOAT" || (c.type == "NUMBER" && c.length.empty() && c.scale.empty())) return kFloating;
      return numberOr(c.scale, 0);
    };
    if (precision(now) >= precision(old) && scale(now) >= scale(old)) return "";
    return "Oracle refuses to decrease the precision or scale of a column that holds any value "
           "(ORA-01440): the statement runs only while the column is empty";
  }
  const Precisions defaults = defaultPrecisions(old.type);
  if (old.type == now.type && defaults.length != 0) {
    if (numberOr(now.length, defaults.length) >= numberOr(old.length, defaults.length) &&
        numberOr(now.scale, defaults.scale) >= numberOr(old.scale, defaults.scale))
      return "";
    return "Oracle refuses to decrease the precision of a datetime or interval column that holds any value "
           "(ORA-30082): the statement runs only while the column is empty";
  }
  if (!old.length.empty() && !now.length.empty() &&
      numberOr(now.length, 1L << 30) < numberOr(old.length, 1L << 30)) {
    return "values that do not fit make the statement fail";
  }
  return "";
}

class Differ {
 public:
  Differ(const Table& before, const Table& after, const Options& options)
      : m_before(before), m_after(after), m_options(options), m_release(after.release) {}

  Script run();

 private:
  std::string id(const std::string& name, const std::string& where) {
    return Identifier(name, m_release, m_options.quote_all, where);
  }
  std::string tableName(const Table& t) {
    return (t.schema.empty() ? "" : id(t.schema, "schema") + ".") + id(t.name, "name");
  }
  [[noreturn]] void refuse(const std::string& what) {
    m_why = what;
    throw Failure(kExitNeedsRecreate,
                  tableName(m_before) + ": " + what +
                      "; no ALTER statement does this (--allow-recreate drops and creates the table)");
  }
  // Refuses a statement that the table's release lacks, naming the release that brought it.
  void requireRelease(int since, const std::string& what) {
    if (m_release >= since) return;
    m_why = what + " needs " + create::ReleaseLabel(since);
    throw Failure(kExitNeedsRecreate,
                  tableName(m_before) + ": " + what + " needs " + create::ReleaseLabel(since) +
                      "; the table is for " + create::ReleaseLabel(m_release) +
                      " (--allow-recreate drops and creates the table)");
  }
  void warn(const std::string& what) { m_script.warnings.push_back(what); }
  // DROP INDEX, DROP TABLE ...: [IF EXISTS (--if-exists)] [schema.]name and the leaves `more` sets.
  template <class Drop>
  std::string drop(const std::string& schema,
                   const std::string& name,
                   std::initializer_list<std::pair<const char*, const char*>> more = {}) {
    Drop statement(true, m_release);
    create::TreeFiller f(statement, statement.verb());
    if (m_options.if_exists) f.Set("IF_EXISTS", "IF EXISTS", "--if-exists");
    if (!schema.empty()) f.Set("SCHEMA", id(schema, "schema"), "schema");
    f.Set(Drop::kNameLeaf, id(name, name), name);
    for (const auto& [leaf, value] : more)
      f.Set(leaf, value, name);
    return f.Write();
  }
  // A statement that loses data: a warning, or a refusal with --fail-on-data-loss.
  void dataLoss(const std::string& what) {
    warn(what);
    m_lost.push_back(what);
  }

  // Warns of the storage parameters that only a new segment takes.
  void segmentFixed(const Segment& now, const Segment& before, const std::string& what) {
    const std::pair<const char*, std::string Segment::*> fixed[] = {
        {"INITIAL", &Segment::initial},
        {"MINEXTENTS", &Segment::minextents},
        {"FREELIST GROUPS", &Segment::freelist_groups}};
    for (const auto& [name, member] : fixed) {
      if (!(now.*member).empty() && now.*member != before.*member)
        warn(std::string(name) + " of " + what +
             " is set when its segment is created; the change is left out");
    }
  }
  void checkRecreate();
  Script alter();
  Script recreate();
  void matchColumns();
  void loadTable(CSQLInfoTable& table);
  void loadColumns(CSQLInfoColumns& columns, CSQLInfoColumns& followUp);
  void loadConstraints(CSQLInfoConstraints& constraints, CSQLInfoConstraints& followUp, Texts& redefined);
  void scriptIndexes(Texts& dropped, Texts& altered, Texts& created);
  void loadIndexPartitions(CSQLInfoIndex& record, const Index& old, const Index& now);
  void scriptPartitions(CSQLInfoTable& table, Texts& out);
  void scriptPartitionChanges(CSQLInfoTable& table, Texts& out);
  void scriptPartitioningMethod(Texts& first, Texts& last);
  std::string alterPartitioning(const std::string& path, const std::string& value, const std::string& what);
  void scriptPartitionLobs(CSQLInfoTable& table, Texts& out);
  void loadSubpartitions(CSQLInfoPartitions::CPartition& record,
                         const Partition& old,
                         const Partition& now,
                         const std::string& where);
  void addPartition(CSQLInfoTable& table, const Partition& now, const std::string& where, Texts& out);
  void splitPartition(const std::string& from, const Partition& now, const std::string& where, Texts& out);
  void scriptComments(Texts& out);
  void scriptColumnSyntax(const Column& old, const Column& now, const std::string& where);
  std::string modifyColumn(const Column& now,
                           const std::string& where,
                           const std::function<void(create::TreeFiller&, const std::string&)>& fill);
  void addedColumnSyntax(CSQLAlterTable& tree);

  const Table& m_before;
  const Table& m_after;
  const Options& m_options;
  int m_release;
  Script m_script;
  // New column index -> old column index (absent: added).
  std::map<std::size_t, std::size_t> m_columnOf;
  std::set<std::string> m_droppedColumns;
  // Old names of the kept columns whose type, length, precision or scale changes.
  std::set<std::string> m_retyped;
  // Old column name -> new column name, for the columns the new table keeps.
  std::map<std::string, std::string> m_newName;
  std::vector<std::string> m_lost;
  // Added constraints (positions in the new table) written by the create writer: keys on an index
  // of the table, which follow the new indexes, and keys with a USING INDEX clause of their own.
  std::vector<std::size_t> m_keysOnIndexes, m_keysWithIndex;
  // Foreign keys of the table to its own keys on indexes: added after those keys.
  std::vector<std::size_t> m_referencesToKeysOnIndexes;
  // Why the table has to be created anew, for the warning of --allow-recreate.
  std::string m_why;
  // A changed degree of parallelism in the bracketed form of the older releases, or "".
  std::string m_parallel;
  // ALTER TABLE ... MODIFY statements of the column syntax of Oracle 11g and later (identity,
  // DEFAULT ON NULL, visibility, virtual expression, collation), one change each.
  Texts m_columnSyntax;

  // Old column names as the new table calls them.
  std::vector<std::string> renamed(std::vector<std::string> names) const {
    for (std::string& name : names) {
      const auto found = m_newName.find(name);
      if (found != m_newName.end()) name = found->second;
    }
    return names;
  }
};

// ---- what no ALTER can do -----------------------------------------------------------------------

void Differ::checkRecreate() {
  const Partitioning& a = m_before.partitioning;
  const Partitioning& b = m_after.partitioning;
  auto describe = [](const Partitioning& p) {
    if (p.type.empty()) return std::string("none");
    std::string text = p.type + " (" + p.constraint;
    for (std::size_t i = 0; i < p.columns.size(); ++i)
      text += (i > 0 ? "," : "") + p.columns[i];
    return text + ")" + (p.subtype.empty() ? "" : " with " + p.subtype + " subpartitions");
  };
  // The foreign key of a reference partitioning under its new name, when the new document renames it.
  std::string reference = a.constraint;
  for (const Constraint& c : m_after.constraints) {
    if (!a.constraint.empty() && c.renamed_from == a.constraint) reference = c.name;
  }
  if (a.type != b.type || renamed(a.columns) != b.columns || a.subtype != b.subtype ||
      renamed(a.subcolumns) != b.subcolumns || reference != b.constraint) {
    refuse("the partitioning changes from " + describe(a) + " to " + describe(b));
  }
  if ((m_before.organization.empty() ? "HEAP" : m_before.organization) !=
      (m_after.organization.empty() ? "HEAP" : m_after.organization)) {
    refuse("the organization changes");
  }
  if (m_before.temporary != m_after.temporary || m_before.on_commit != m_after.on_commit) {
    refuse("the table changes between temporary and permanent");
  }
  if (m_before.schema != m_after.schema) refuse("the schema changes to " + m_after.schema);
}

Script Differ::recreate() {
  Script script;
  if (m_after.release != m_before.release) script.warnings.push_back(m_script.warnings.front());
  script.statements.push_back(
      drop<CSQLDropTable>(m_before.schema, m_before.name, {{"CASCADE", "CASCADE CONSTRAINTS"}}));
  script.warnings.push_back(tableName(m_before) + " is dropped and created anew: its data is lost (" + m_why +
                            ")");
  if (m_options.fail_on_data_loss) {
    throw Failure(kExitFailure, "refused, the script loses data: " + script.warnings.back());
  }
  Script create = Create(m_after, m_options);
  script.statements.insert(script.statements.end(), create.statements.begin(), create.statements.end());
  script.warnings.insert(script.warnings.end(), create.warnings.begin(), create.warnings.end());
  return script;
}

// ---- columns ------------------------------------------------------------------------------------

void Differ::matchColumns() {
  std::set<std::size_t> taken;
  for (std::size_t n = 0; n < m_after.columns.size(); ++n) {
    const Column& column = m_after.columns[n];
    const std::string& oldName = column.renamed_from.empty() ? column.name : column.renamed_from;
    for (std::size_t o = 0; o < m_before.columns.size(); ++o) {
      if (m_before.columns[o].name != oldName || taken.count(o) != 0) continue;
      m_columnOf[n] = o;
      m_newName[m_before.columns[o].name] = column.name;
      taken.insert(o);
      break;
    }
    if (!column.renamed_from.empty() && m_columnOf.count(n) == 0) {
      throw Failure(kExitBadInput,
                    "column " + column.name +
                        ": renamed_from names no column of the old table: " + column.renamed_from);
    }
  }
  for (std::size_t o = 0; o < m_before.columns.size(); ++o) {
    if (taken.count(o) == 0) m_droppedColumns.insert(m_before.columns[o].name);
  }
}

void Differ::loadColumns(CSQLInfoColumns& columns, CSQLInfoColumns& followUp) {
  // Types whose sizes stand inside their names go to the records as one text, without sizes.
  auto typeOf = [](const Column& c) {
    const std::string inner = create::TypeWithInnerSizes(c);
    return inner.empty() ? c.type : inner;
  };
  auto lengthOf = [](const Column& c) {
    if (!create::TypeWithInnerSizes(c).empty()) return std::string();
    return c.unit.empty() || c.length.empty() ? c.length : c.length + " " + c.unit;
  };
  auto scaleOf = [](const Column& c) {
    return create::TypeWithInnerSizes(c).empty() ? c.scale : std::string();
  };
  auto loadLob =
      [](CSQLInfoColumns::CColumn& record, const LobStorage& now, const LobStorage& before, bool keep) {
        const std::pair<const char*, std::string LobStorage::*> values[] = {
            {"LOB;TABLESPACE", &LobStorage::tablespace},
            {"LOB;CHUNK", &LobStorage::chunk},
            {"LOB;PCTVERSION", &LobStorage::pctversion},
            {"LOB;RETENTION", &LobStorage::retention},
            {"LOB;CACHE", &LobStorage::cache},
            {"LOB;LOGGING", &LobStorage::logging},
            {"LOB;ENABLE", &LobStorage::in_row}};
        for (const auto& [type, member] : values) {
          if (keep) {
            loadKept(record, type, now.*member, before.*member);
          } else {
            load(record, type, now.*member, before.*member);
          }
        }
        // Oracle takes a logging clause only after its cache keyword (NOCACHE NOLOGGING): a change
        // of logging writes the keyword too.
        if (!now.logging.empty() && now.logging != before.logging) {
          load(record, "LOB;CACHE", now.cache.empty() && keep ? before.cache : now.cache, "");
        }
      };
  const LobStorage none;
  // The old table's columns, kept (renamed or changed) or dropped.
  for (std::size_t o = 0; o < m_before.columns.size(); ++o) {
    const Column& old = m_before.columns[o];
    const std::string oldId = id(old.name, "columns[" + std::to_string(o) + "]");
    columns.AddColumn(old.name.c_str(), true);
    CSQLInfoColumns::CColumn& record = *columns.GetColumn(old.name.c_str());
    if (m_droppedColumns.count(old.name) != 0) {
      requireRelease(2, "dropping column " + old.name + " (DROP COLUMN)");
      load(record, "NAME", oldId, oldId);
      columns.DropColumn(old.name.c_str(), false, false);
      dataLoss("DROP COLUMN " + old.name + " of " + tableName(m_before) + " loses the column's data");
      continue;
    }
    const auto kept =
        std::find_if(m_columnOf.begin(), m_columnOf.end(), [&](const auto& p) { return p.second == o; });
    const Column& now = m_after.columns[kept->first];
    const std::string where = "columns[" + std::to_string(kept->first) + "] " + now.name;
    if (now.type != old.type && (typeFamily(now.type) < 0 || typeFamily(now.type) != typeFamily(old.type))) {
      refuse("column " + now.name + " changes its type from " + old.type + " to " + now.type);
    }
    create::CheckColumnSyntax(now, m_release, "columns[" + std::to_string(kept->first) + "]");
    if (now.type == "VECTOR" && old.type == now.type && (now.length != old.length || now.scale != old.scale))
      refuse("column " + now.name + " changes its VECTOR dimensions or format");
    auto moves = [](const std::string& after, const std::string& before) {
      return !after.empty() && after != before;
    };
    if (moves(now.lob.tablespace, old.lob.tablespace) || moves(now.lob.chunk, old.lob.chunk) ||
        moves(now.lob.in_row, old.lob.in_row)) {
      requireRelease(2, "moving the LOB storage of column " + old.name + " (MOVE LOB)");
    }
    if (now.type != old.type || now.length != old.length || now.scale != old.scale || now.unit != old.unit) {
      create::CheckDataType(now, m_release, "columns[" + std::to_string(kept->first) + "]");
      m_retyped.insert(old.name);
    }
    if (!now.lob.empty())
      create::CheckLobStorage(now.lob, m_release, "columns[" + std::to_string(kept->first) + "].lob");
    const std::string narrows = narrowing(old, now);
    if (!narrows.empty()) {
      dataLoss("column " + now.name + " of " + tableName(m_before) + " narrows from " + typeText(old) +
               " to " + typeText(now) + ": " + narrows);
    }
    if (isNational(old.type) && !isNational(now.type)) {
      dataLoss("column " + now.name + " of " + tableName(m_before) + " changes from " + old.type + " to " +
               now.type + ": characters that the database character set lacks are replaced");
    }
    // Everything but the name, as it is and as it should be.
    auto loadChanges = [&](CSQLInfoColumns::CColumn& r) {
      load(r, "DATATYPE", typeOf(now), typeOf(old));
      load(r, "LENGTH", lengthOf(now), lengthOf(old));
      load(r, "SCALE", scaleOf(now), scaleOf(old));
      // DEFAULT ON NULL goes with the column syntax below, and makes the column NOT NULL.
      if (!now.default_on_null && !old.default_on_null)
        load(r, "DEFAULT", now.default_value, old.default_value);
      // (A column that becomes DEFAULT ON NULL is NOT NULL by that statement already.)
      const bool wasNotNull = old.not_null || old.default_on_null;
      const bool notNull = now.not_null || now.default_on_null;
      if (!(now.default_on_null && !wasNotNull))
        load(*r.CONSTRAINT(), "NULL", notNull ? "NOT NULL" : "", wasNotNull ? "NOT NULL" : "");
      if (now.unique && !old.unique) load(*r.CONSTRAINT(), "UNIQUE", "UNIQUE", "");
      if (now.primary_key && !old.primary_key) load(*r.CONSTRAINT(), "PRIMARY", "PRIMARY", "");
      if (now.check != old.check && !now.check.empty()) load(*r.CONSTRAINT(), "CHECK", now.check, "");
      loadLob(r, now.lob, old.lob, true);
    };
    const std::string nowId = id(now.name, where);
    if (nowId != oldId) requireRelease(4, "renaming column " + old.name + " (RENAME COLUMN)");
    load(record, "NAME", nowId, oldId);
    if (nowId == oldId) {
      loadChanges(record);
    } else {
      // A renamed column's other changes follow its rename, under its new name.
      followUp.AddColumn(now.name.c_str(), true);
      CSQLInfoColumns::CColumn& renamed = *followUp.GetColumn(now.name.c_str());
      load(renamed, "NAME", nowId, nowId);
      loadChanges(renamed);
    }
    scriptColumnSyntax(old, now, where);
    if (!old.constraint_name.empty() && !now.constraint_name.empty() &&
        old.constraint_name != now.constraint_name) {
      warn("column " + now.name + ": its inline constraint is renamed from " + old.constraint_name + " to " +
           now.constraint_name +
           "; not scripted: declare it among the table's constraints with renamed_from");
    }
    if ((old.unique && !now.unique) || (old.primary_key && !now.primary_key) ||
        (!old.check.empty() && now.check.empty())) {
      warn("column " + now.name +
           ": an inline constraint that is taken away has no name of its own to drop it by; "
           "declare it among the table's constraints");
    }
  }
  // Columns of the new table only.
  for (std::size_t n = 0; n < m_after.columns.size(); ++n) {
    if (m_columnOf.count(n) != 0) continue;
    const Column& now = m_after.columns[n];
    create::CheckDataType(now, m_release, "columns[" + std::to_string(n) + "]");
    if (!now.lob.empty())
      create::CheckLobStorage(now.lob, m_release, "columns[" + std::to_string(n) + "].lob");
    const std::string itemName = "+" + now.name;  // never the name of an old column's item
    columns.AddColumn(itemName.c_str(), false);
    CSQLInfoColumns::CColumn& record = *columns.GetColumn(itemName.c_str());
    load(record, "NAME", id(now.name, "columns[" + std::to_string(n) + "]"), "");
    load(record, "DATATYPE", typeOf(now), "");
    load(record, "LENGTH", lengthOf(now), "");
    load(record, "SCALE", scaleOf(now), "");
    if (!now.default_on_null) load(record, "DEFAULT", now.default_value, "");
    if (now.not_null) load(*record.CONSTRAINT(), "NULL", "NOT NULL", "");
    if (now.not_null && now.default_value.empty() && now.identity.generated.empty() &&
        now.virtual_expr.empty()) {
      // Not data loss, but a statement that fails on any table with rows; --fail-on-data-loss
      // refuses it too.
      dataLoss("column " + now.name + " is added to " + tableName(m_before) +
               " NOT NULL without a default: Oracle refuses this on a table with rows (ORA-01758); add it "
               "nullable, fill it, then make it NOT NULL");
    }
    if (now.unique) load(*record.CONSTRAINT(), "UNIQUE", "UNIQUE", "");
    if (now.primary_key) load(*record.CONSTRAINT(), "PRIMARY", "PRIMARY", "");
    if (!now.check.empty()) load(*record.CONSTRAINT(), "CHECK", now.check, "");
    if (!now.constraint_name.empty())
      load(*record.CONSTRAINT(), "NAME", id(now.constraint_name, "constraint"), "");
    loadLob(record, now.lob, none, false);
  }
}

// ---- the column syntax of Oracle 11g and later --------------------------------------------------

// ALTER TABLE t MODIFY (c ...) with the leaves `fill` sets in the column item at the path it is given.
std::string Differ::modifyColumn(const Column& now,
                                 const std::string& where,
                                 const std::function<void(create::TreeFiller&, const std::string&)>& fill) {
  CSQLAlterTable statement(true, std::max(m_release, kLatestRelease));
  create::TreeFiller f(statement, "ALTER TABLE");
  const std::string list = "C_COLUMN;C_MOD_COLUMN;C_MOD_COL_PROP;LIST";
  if (!m_before.schema.empty()) f.Set("SCHEMA", id(m_before.schema, "schema"), "schema");
  f.Set("TABLE", id(m_before.name, "name"), "name");
  f.Add(list, std::make_unique<CSQLClauseModifyColProp::CSubSQLClauseColumn>("C", m_release), where);
  f.Set(list + ";C;COLUMN", id(now.name, where), where);
  fill(f, list + ";C");
  return f.Write();
}

// Each change is a statement of its own: Oracle takes a column's properties, its visibility and its
// virtual expression as separate items.
void Differ::scriptColumnSyntax(const Column& old, const Column& now, const std::string& where) {
  const Identity &a = old.identity, &b = now.identity;
  auto write = [&](const std::function<void(create::TreeFiller&, const std::string&)>& fill) {
    m_columnSyntax.push_back(modifyColumn(now, where, fill));
  };
  if (a.generated.empty() && !b.generated.empty()) {
    refuse("column " + now.name +
           " becomes an identity column, which Oracle does only for a new column (ORA-30673)");
  }
  if (!a.generated.empty() && b.generated.empty()) {
    write([&](create::TreeFiller& f, const std::string& item) {
      f.Set(item + ";DROP_IDENTITY", "DROP IDENTITY", where + ".identity");
    });
  } else if (!b.generated.empty()) {
    // Only what changed: a START WITH restates where the numbers go on from. An option the new
    // document leaves out goes back to Oracle's default.
    struct Option {
      std::string now, before;
      const char* leaf;
      std::string fallback;
      const char* fallbackLeaf;
    };
    const std::string cacheNow = b.nocache ? "NOCACHE" : b.cache,
                      cacheBefore = a.nocache ? "NOCACHE" : a.cache;
    const Option options[] = {{b.start_with, a.start_with, "START", "", "START"},
                              {b.increment_by, a.increment_by, "INCREMENT", "1", "INCREMENT"},
                              {b.maxvalue, a.maxvalue, "MAXVALUE", "NOMAXVALUE", "NOMAXVALUE"},
                              {b.minvalue, a.minvalue, "MINVALUE", "NOMINVALUE", "NOMINVALUE"},
                              {b.nocache ? "" : b.cache, a.nocache ? "" : a.cache, "CACHE", "", "CACHE"},
                              {b.cycle, a.cycle, "CYCLE", "NOCYCLE", "CYCLE"},
                              {b.order, a.order, "ORDER", "NOORDER", "ORDER"}};
    bool changed = a.generated != b.generated || cacheNow != cacheBefore;
    for (const Option& o : options)
      changed = changed || o.now != o.before;
    if (changed) {
      write([&](create::TreeFiller& f, const std::string& item) {
        const std::string identity = item + ";C_IDENTITY;GENERATED";
        f.Set(identity, b.generated, where + ".identity");
        for (const Option& o : options) {
          if (o.now == o.before) continue;
          f.Set(identity + ";" + (o.now.empty() ? o.fallbackLeaf : o.leaf),
                o.now.empty() ? o.fallback : o.now,
                where + ".identity");
        }
        if (cacheNow != cacheBefore && b.nocache)
          f.Set(identity + ";NOCACHE", "NOCACHE", where + ".identity");
        if (cacheNow != cacheBefore && cacheNow.empty())
          f.Set(identity + ";CACHE", "20", where + ".identity");
      });
    }
  }
  if (old.default_on_null != now.default_on_null ||
      ((old.default_on_null || now.default_on_null) && old.default_value != now.default_value)) {
    write([&](create::TreeFiller& f, const std::string& item) {
      if (now.default_on_null) {
        f.Set(item + ";DEFAULT_ON_NULL", now.default_value, where + ".default");
      } else {
        f.Set(item + ";DEFAULT", now.default_value.empty() ? "NULL" : now.default_value, where + ".default");
      }
    });
  }
  if (old.invisible != now.invisible) {
    write([&](create::TreeFiller& f, const std::string& item) {
      f.Set(item + ";VISIBILITY", now.invisible ? "INVISIBLE" : "VISIBLE", where + ".invisible");
    });
  }
  if (old.virtual_expr.empty() != now.virtual_expr.empty()) {
    refuse("column " + now.name + (now.virtual_expr.empty() ? " stops being" : " becomes") +
           " a virtual column");
  }
  if (old.virtual_expr != now.virtual_expr) {
    write([&](create::TreeFiller& f, const std::string& item) {
      f.Set(item + ";VIRTUAL", now.virtual_expr, where + ".virtual");
    });
  }
  if (!old.collation.empty() && now.collation.empty()) {
    refuse("column " + now.name + " loses its collation " + old.collation +
           "; name the one it should have (USING_NLS_COMP is the default)");
  }
  if (old.collation != now.collation) {
    write([&](create::TreeFiller& f, const std::string& item) {
      f.Set(item + ";COLLATE", now.collation, where + ".collation");
    });
  }
}

// The column syntax of the added columns, in their items of the ALTER TABLE ... ADD tree.
void Differ::addedColumnSyntax(CSQLAlterTable& tree) {
  create::TreeFiller f(tree, "ALTER TABLE");
  for (std::size_t n = 0; n < m_after.columns.size(); ++n) {
    if (m_columnOf.count(n) != 0) continue;
    const Column& now = m_after.columns[n];
    create::ColumnSyntax(
        f, now, "C_COLUMN;C_ADD_COLUMN;LIST;+" + now.name, "columns[" + std::to_string(n) + "]", m_release);
  }
}

// ---- the table ----------------------------------------------------------------------------------

void Differ::loadTable(CSQLInfoTable& table) {
  load(table,
       "SCHEMA",
       m_before.schema.empty() ? "" : id(m_before.schema, "schema"),
       m_before.schema.empty() ? "" : id(m_before.schema, "schema"));
  load(table, "TABLE", id(m_before.name, "name"), id(m_before.name, "name"));
  // What the release lacks, among the changes below.
  auto changes = [](const std::string& now, const std::string& before) {
    return !now.empty() && now != before;
  };
  if (changes(m_after.tablespace, m_before.tablespace))
    requireRelease(2, "moving the table to another tablespace (MOVE)");
  if (changes(m_after.logging, m_before.logging)) requireRelease(2, "LOGGING and NOLOGGING");
  if (changes(m_after.compress, m_before.compress))
    requireRelease(CompressionSince(m_after.compress), CompressionFeature(m_after.compress));
  if (changes(m_after.monitoring, m_before.monitoring)) requireRelease(2, "MONITORING and NOMONITORING");
  if (changes(m_after.row_movement, m_before.row_movement)) requireRelease(2, "row movement");
  if (changes(m_after.segment.buffer_pool, m_before.segment.buffer_pool)) requireRelease(2, "BUFFER_POOL");
  loadKept(table, "TABLESPACE", m_after.tablespace, m_before.tablespace);
  const Segment& a = m_before.segment;
  const Segment& b = m_after.segment;
  loadSegment(table, b, a);
  segmentFixed(b, a, "the table");
  loadKept(table, "LOGGING", m_after.logging, m_before.logging);
  loadKept(table, "COMPRESS", m_after.compress, m_before.compress);
  loadKept(table, "CACHE", m_after.cache, m_before.cache);
  loadKept(table, "MONITORING", m_after.monitoring, m_before.monitoring);
  loadKept(table, "ROW_MOVEMENT", m_after.row_movement, m_before.row_movement);
  // PARALLEL n, NOPARALLEL: a changed degree restates PARALLEL.
  auto keyword = [](const std::string& p) {
    return p.empty() || p == "NOPARALLEL" || p == "PARALLEL" ? p : "PARALLEL";
  };
  auto degree = [](const std::string& p) { return p == "NOPARALLEL" || p == "PARALLEL" ? "" : p; };
  const std::string parallel = m_after.parallel.empty() ? m_before.parallel : m_after.parallel;
  if (parallel != m_before.parallel && m_release < 3) {
    // The older releases take the degree in brackets, PARALLEL (DEGREE n), which the ALTER TABLE
    // tree does not write: the clause of the table's release writes it, as a statement of its own.
    CSQLClauseParallel clause(true, m_release);
    clause.SetValue("PARALLEL", keyword(parallel).c_str());
    if (!degree(parallel).empty()) {
      clause.AddAttr("PARALLEL;LIST", std::make_unique<CSQLClauseParallel::CSubSQLItem>("DEGREE"));
      clause.SetValue("PARALLEL;LIST;DEGREE;DEGREE", "DEGREE");
      clause.SetValue("PARALLEL;LIST;DEGREE;DEGREE;VALUE", degree(parallel).c_str());
    }
    std::string text;
    clause.GetModifiedSQL("*", text);
    Trim(text);
    m_parallel = "ALTER TABLE " + tableName(m_before) + " " + text;
  } else if (parallel != m_before.parallel) {
    load(table,
         "PARALLEL",
         keyword(parallel),
         keyword(parallel) == keyword(m_before.parallel) ? "" : keyword(m_before.parallel));
    load(table, "PARALLEL;VALUE", degree(parallel), degree(m_before.parallel));
  }
}

// ---- constraints --------------------------------------------------------------------------------

void Differ::loadConstraints(CSQLInfoConstraints& constraints,
                             CSQLInfoConstraints& followUp,
                             Texts& redefined) {
  auto stateOf = [](const ConstraintState& s) {
    // What Oracle assumes when the document says nothing.
    return std::vector<std::string>{
        s.initially.empty() ? "IMMEDIATE" : s.initially,
        s.enable.empty() ? "ENABLE" : s.enable,
        s.validate.empty() ? (s.enable == "DISABLE" ? "NOVALIDATE" : "VALIDATE") : s.validate,
        s.rely.empty() ? "NORELY" : s.rely};
  };
  // The index a key is built on, under the new table's name for it: another index means the key
  // is dropped and added again.
  auto keyIndex = [this](const Table& t, const Constraint& c) {
    const Index* x = KeyIndex(t, c);
    const std::string name = x != nullptr ? x->name : c.state.index_name;
    for (const Index& now : m_after.indexes) {
      if (&t == &m_before && !name.empty() && now.renamed_from == name) return now.name;
    }
    return name;
  };
  // x is the old constraint: its columns are compared under their new names.
  auto sameDefinition = [this, keyIndex](const Constraint& x, const Constraint& y) {
    return x.type == y.type && renamed(x.columns) == y.columns && x.ref_schema == y.ref_schema &&
           x.ref_table == y.ref_table && x.ref_columns == y.ref_columns && x.on_delete == y.on_delete &&
           x.check == y.check &&
           (x.state.deferrable == "DEFERRABLE") == (y.state.deferrable == "DEFERRABLE") &&
           keyIndex(m_before, x) == keyIndex(m_after, y);
  };
  auto fill = [&](CSQLInfoConstraints::CConstraint& c, const Constraint& d, const std::string& where) {
    load(c, "NAME", d.name.empty() ? "" : id(d.name, where), "");
    load(c, "TYPE", d.type, "");
    std::string columns;
    for (const std::string& col : d.columns)
      columns += (columns.empty() ? "" : ",") + id(col, where + " columns");
    c.SetColumnsString(columns);
    load(c, "REF_SCHEMA", d.ref_schema.empty() ? "" : id(d.ref_schema, where), "");
    load(c, "REF_TABLE", d.ref_table.empty() ? "" : id(d.ref_table, where), "");
    std::string refs;
    for (const std::string& col : d.ref_columns)
      refs += (refs.empty() ? "" : ",") + id(col, where + " references");
    load(c, "REF_COLUMNS", refs, "");
    load(c, "REF_DELETE", d.on_delete, "");
    load(c, "CHECK", d.check, "");
    const ConstraintState& s = d.state;
    for (const auto& [type, text] : {std::pair<const char*, std::string>{"DEFERRABLE", s.deferrable},
                                     {"INITIALLY", s.initially},
                                     {"ENABLE", s.enable},
                                     {"VALIDATE", s.validate},
                                     {"RELY", s.rely}}) {
      load(*c.STATE(), type, text, "");
    }
  };
  std::set<std::size_t> matched;
  for (std::size_t n = 0; n < m_after.constraints.size(); ++n) {
    const Constraint& now = m_after.constraints[n];
    const std::string where = "constraints[" + std::to_string(n) + "]";
    const std::string oldName = now.renamed_from.empty() ? now.name : now.renamed_from;
    std::size_t o = m_before.constraints.size();
    for (std::size_t i = 0; i < m_before.constraints.size(); ++i) {
      const Constraint& old = m_before.constraints[i];
      const bool byName = !oldName.empty() && old.name == oldName;
      const bool byDefinition = oldName.empty() && old.name.empty() && sameDefinition(old, now);
      if ((byName || byDefinition) && matched.count(i) == 0) {
        o = i;
        break;
      }
    }
    if (!now.renamed_from.empty() && o == m_before.constraints.size()) {
      throw Failure(kExitBadInput,
                    where + ": renamed_from names no constraint of the old table: " + now.renamed_from);
    }
    bool redefine = o < m_before.constraints.size() && !sameDefinition(m_before.constraints[o], now);
    for (const std::string& col : now.columns) {
      if (m_droppedColumns.count(col) != 0)
        throw Failure(kExitBadInput, where + " names the dropped column " + col);
    }
    if (o < m_before.constraints.size() && !redefine) {
      // Kept: a rename and state changes.
      matched.insert(o);
      const Constraint& old = m_before.constraints[o];
      const std::string key = "=" + std::to_string(o);
      constraints.AddConstraint(key.c_str(), true);
      CSQLInfoConstraints::CConstraint& c = *constraints.GetConstraint(key.c_str());
      const std::string oldId = old.name.empty() ? "" : id(old.name, "constraint");
      const std::string nowId = now.name.empty() ? oldId : id(now.name, where);
      load(c, "NAME", nowId, oldId);
      // A renamed constraint's state changes follow its rename, under its new name.
      CSQLInfoConstraints::CConstraint* target = &c;
      if (nowId != oldId) {
        requireRelease(4, "renaming constraint " + old.name + " (RENAME CONSTRAINT)");
        followUp.AddConstraint(key.c_str(), true);
        target = followUp.GetConstraint(key.c_str());
        load(*target, "NAME", nowId, nowId);
      }
      const auto a = stateOf(old.state), b = stateOf(now.state);
      const char* names[] = {"INITIALLY", "ENABLE", "VALIDATE", "RELY"};
      for (std::size_t i = 0; i < a.size(); ++i) {
        load(*target->STATE(), names[i], a[i] == b[i] ? "" : b[i], "");
      }
      if (target->STATE()->IsModified(nullptr) && old.name.empty()) {
        throw Failure(kExitBadInput,
                      where + ": the state of an unnamed constraint cannot be changed; name it");
      }
      if (target->STATE()->IsModified(nullptr))
        requireRelease(2, "changing the state of constraint " + old.name + " (MODIFY CONSTRAINT)");
      continue;
    }
    if (redefine) {
      matched.insert(o);
      redefined.push_back(m_before.constraints[o].name);
    }
    if (KeyIndex(m_after, now) != nullptr || !now.state.index_name.empty()) {
      m_keysOnIndexes.push_back(n);
      continue;
    }
    if (AddedAfterIndexes(m_after, now)) {
      m_referencesToKeysOnIndexes.push_back(n);
      continue;
    }
    if (!now.state.index_tablespace.empty()) {
      m_keysWithIndex.push_back(n);
      continue;
    }
    const std::string key = "+" + std::to_string(n);
    constraints.AddConstraint(key.c_str(), false);
    fill(*constraints.GetConstraint(key.c_str()), now, where);
  }
  // Old constraints that are gone, or redefined: dropped first.
  for (std::size_t o = 0; o < m_before.constraints.size(); ++o) {
    const Constraint& old = m_before.constraints[o];
    const bool redefinedNow =
        std::find(redefined.begin(), redefined.end(), old.name) != redefined.end() && !old.name.empty();
    if (matched.count(o) != 0 && !redefinedNow) continue;
    if (old.name.empty()) {
      throw Failure(kExitBadInput,
                    "the old table's constraints[" + std::to_string(o) + "] has no name to drop it by");
    }
    const std::string key = "-" + std::to_string(o);
    constraints.AddConstraint(key.c_str(), true);
    CSQLInfoConstraints::CConstraint& c = *constraints.GetConstraint(key.c_str());
    const std::string oldId = id(old.name, "constraint");
    load(c, "NAME", oldId, oldId);
    constraints.DropConstraint(key.c_str(), false);
  }
}

// ---- indexes ------------------------------------------------------------------------------------

void Differ::scriptIndexes(Texts& dropped, Texts& altered, Texts& created) {
  // x is the old index: its columns are compared under their new names.
  auto sameDefinition = [this](const Index& x, const Index& y) {
    auto keys = [this](const Index& i) {
      std::vector<std::string> k;
      for (const IndexKey& key : i.keys) {
        k.push_back(renamed({key.column}).front() + "|" + key.expression + "|" + key.order);
      }
      return k;
    };
    // The partitions of a global index, by their old names, with their bounds: a changed bound, or
    // a partition more or less, makes the index anew (renames and tablespaces change in place).
    auto bounds = [](const Index& i) {
      std::vector<std::pair<std::string, std::vector<std::string>>> b;
      for (const Partition& p : i.global_partitions)
        b.emplace_back(p.renamed_from.empty() ? p.name : p.renamed_from, p.values_less_than);
      return b;
    };
    // Partial indexing is not altered in place: a change drops and creates the index.
    return x.unique == y.unique && x.bitmap == y.bitmap && x.partial == y.partial && keys(x) == keys(y) &&
           x.local == y.local && x.global_type == y.global_type &&
           renamed(x.global_columns) == y.global_columns && bounds(x) == bounds(y) &&
           x.global_count == y.global_count;
  };
  // Oracle refuses to change the type or length of a column that a function-based index uses
  // (ORA-30556); a descending key is one such index too. The index goes before the change and comes
  // back after it.
  auto retypedUnder = [this](const Index& x) -> std::string {
    for (const IndexKey& key : x.keys) {
      std::set<std::string> used = namesIn(key.expression);
      if (key.order == "DESC" && !key.column.empty()) used.insert(key.column);
      for (const std::string& column : m_retyped) {
        if (used.count(column) != 0) return column;
      }
    }
    return "";
  };
  auto dropIndex = [&](const Index& x) {
    return drop<CSQLDropIndex>(x.schema.empty() ? m_before.schema : x.schema, x.name);
  };
  std::vector<Index> toCreate;
  std::set<std::size_t> matched;
  for (const Index& now : m_after.indexes) {
    const std::string oldName = now.renamed_from.empty() ? now.name : now.renamed_from;
    const Index* old = nullptr;
    for (std::size_t i = 0; i < m_before.indexes.size(); ++i) {
      if (m_before.indexes[i].name == oldName && matched.count(i) == 0) {
        old = &m_before.indexes[i];
        matched.insert(i);
        break;
      }
    }
    if (!now.renamed_from.empty() && old == nullptr) {
      throw Failure(
          kExitBadInput,
          "index " + now.name + ": renamed_from names no index of the old table: " + now.renamed_from);
    }
    if (old == nullptr) {
      toCreate.push_back(now);
      continue;
    }
    const std::string column = retypedUnder(*old);
    if (!column.empty()) {
      warn("index " + old->name + " is dropped before column " + column +
           " changes and created again after: Oracle does not change the type or length of a column "
           "that a function-based index uses (ORA-30556)");
    }
    if (!sameDefinition(*old, now) || !column.empty()) {
      dropped.push_back(dropIndex(*old));
      toCreate.push_back(now);
      continue;
    }
    // Kept: rename, rebuild into a new tablespace, attribute changes.
    CSQLInfoIndex record;
    const std::string schema = old->schema.empty() ? m_before.schema : old->schema;
    load(record,
         "SCHEMA",
         schema.empty() ? "" : id(schema, "schema"),
         schema.empty() ? "" : id(schema, "schema"));
    if (now.name != old->name) requireRelease(1, "renaming index " + old->name + " (RENAME TO)");
    load(record, "INDEX", id(now.name, "index " + now.name), id(old->name, "index " + old->name));
    loadKept(record, "TABLESPACE", now.tablespace, old->tablespace);
    loadKept(record, "LOGGING", now.logging, old->logging);
    loadSegment(record, now.segment, old->segment);
    segmentFixed(now.segment, old->segment, "index " + now.name);
    if (now.reverse != old->reverse) {
      requireRelease(2, "rebuilding index " + old->name + " REVERSE or NOREVERSE");
      load(record, "REVERSE", now.reverse ? "REVERSE" : "NOREVERSE", old->reverse ? "REVERSE" : "NOREVERSE");
    }
    if (!now.compress.empty() && now.compress != old->compress) {
      requireRelease(2, "key compression of index " + old->name);
      auto keyword = [](const std::string& c) { return c == "NOCOMPRESS" || c.empty() ? c : "COMPRESS"; };
      auto prefix = [](const std::string& c) { return c == "NOCOMPRESS" || c == "COMPRESS" ? "" : c; };
      load(record, "COMPRESS", keyword(now.compress), keyword(old->compress));
      load(record, "COMPRESS;VALUE", prefix(now.compress), prefix(old->compress));
    }
    loadIndexPartitions(record, *old, now);
    // An index the document builds ONLINE, or any with --online, is rebuilt ONLINE too.
    if (now.online || m_options.online) load(record, "ONLINE", "ONLINE", "ONLINE");
    const std::string parallel = now.parallel.empty() ? old->parallel : now.parallel;
    if (parallel != old->parallel) {
      const bool degree = parallel != "PARALLEL" && parallel != "NOPARALLEL";
      // The ALTER INDEX tree writes PARALLEL n only, the form of release code 3 on.
      if (degree) requireRelease(3, "a degree of parallelism for index " + old->name);
      load(record, "PARALLEL", degree ? "PARALLEL" : parallel, "");
      load(record, "PARALLEL;VALUE", degree ? parallel : "", "");
    }
    CSQLAlterIndex statement;
    Texts out;
    if (const int result = CSQLUtil::GenAltIndex(&statement, &out, &record)) {
      throw Failure(kExitFailure,
                    "index " + now.name + ": the change script failed with code " + std::to_string(result));
    }
    altered.insert(altered.end(), out.begin(), out.end());
    if (now.invisible != old->invisible) {
      requireRelease(7, "making index " + old->name + " VISIBLE or INVISIBLE");
      CSQLAlterIndex visibility(true, std::max(m_release, kLatestRelease));
      create::TreeFiller f(visibility, "ALTER INDEX");
      if (!schema.empty()) f.Set("SCHEMA", id(schema, "schema"), "schema");
      f.Set("INDEX", id(now.name, "index " + now.name), "index " + now.name);
      f.Set("VISIBILITY", now.invisible ? "INVISIBLE" : "VISIBLE", "index " + now.name + ".invisible");
      altered.push_back(f.Write());
    }
  }
  for (std::size_t i = 0; i < m_before.indexes.size(); ++i) {
    if (matched.count(i) == 0) dropped.push_back(dropIndex(m_before.indexes[i]));
  }
  if (!toCreate.empty()) {
    Texts made = CreateIndexStatements(m_after, toCreate, m_options);
    created.insert(created.end(), made.begin(), made.end());
  }
}

// The partitions of a kept index: renames and new tablespaces (REBUILD PARTITION). The partitions
// of a local index follow the table's: one the table gains or loses is not the index's to script.
void Differ::loadIndexPartitions(CSQLInfoIndex& record, const Index& old, const Index& now) {
  if (old.local) load(record, "LOCAL", "LOCAL", "LOCAL");
  const std::vector<Partition>& before = old.local ? old.local_partitions : old.global_partitions;
  const std::vector<Partition>& listed = now.local ? now.local_partitions : now.global_partitions;
  // A list the new document leaves out is left as it is.
  const std::vector<Partition>& after = listed.empty() ? before : listed;
  const std::string where = "index " + now.name + " partition";
  if (old.local && before.empty() && !now.tablespace.empty() && now.tablespace != old.tablespace) {
    // Its partitions were made in the index's tablespace, under the names of the table's.
    for (const Partition& p : m_before.partitioning.partitions) {
      record.AddPartition(p.name.c_str(), true);
      load(*record.GetPartition(p.name.c_str()), "NAME", id(p.name, where), id(p.name, where));
      load(*record.GetPartition(p.name.c_str()), "TABLESPACE", now.tablespace, old.tablespace);
    }
    if (m_before.partitioning.partitions.empty()) {
      warn("index " + now.name +
           ": its partitions have no names to rebuild them by; only new partitions "
           "go to tablespace " +
           now.tablespace);
      record.AddPartition("", true);  // a partitioned index: the tablespace is its partitions' default
    }
    return;
  }
  std::set<std::string> matched;
  for (const Partition& p : after) {
    const std::string oldName = p.renamed_from.empty() ? p.name : p.renamed_from;
    const auto found =
        std::find_if(before.begin(), before.end(), [&](const Partition& b) { return b.name == oldName; });
    if (found == before.end()) {
      if (!p.renamed_from.empty()) {
        throw Failure(
            kExitBadInput,
            where + " " + p.name + ": renamed_from names no partition of the old index: " + p.renamed_from);
      }
      warn(where + " " + p.name +
           " is made by Oracle with the table's partition; its name and tablespace "
           "are Oracle's choice");
      continue;
    }
    matched.insert(found->name);
    record.AddPartition(found->name.c_str(), true);
    CSQLInfoIndex::CPartition& r = *record.GetPartition(found->name.c_str());
    load(r, "NAME", id(p.name, where), id(found->name, where));
    loadKept(r,
             "TABLESPACE",
             p.tablespace.empty() ? now.tablespace : p.tablespace,
             found->tablespace.empty() ? old.tablespace : found->tablespace);
    loadSegment(r, p.segment, found->segment);
    segmentFixed(p.segment, found->segment, where + " " + p.name);
    loadKept(r, "LOGGING", p.logging, found->logging);
  }
  for (const Partition& p : before) {
    if (matched.count(p.name) == 0 && old.local)
      warn(where + " " + p.name + " goes with the table's partition; the index's list leaves it out");
  }
}

// ---- partitions ---------------------------------------------------------------------------------

// How the table makes partitions by itself: an interval (Oracle 11g) or automatic list partitioning
// (Oracle 12c Release 2). What is turned off comes before the partition maintenance, which may then
// add a MAXVALUE or DEFAULT partition; what is turned on or changed comes after it, once a MAXVALUE
// or DEFAULT partition is gone.
void Differ::scriptPartitions(CSQLInfoTable& table, Texts& out) {
  Texts first, last;
  scriptPartitioningMethod(first, last);
  out.insert(out.end(), first.begin(), first.end());
  scriptPartitionChanges(table, out);
  out.insert(out.end(), last.begin(), last.end());
}

// ALTER TABLE with one value of the partition maintenance set at `path`; an empty value is written as
// an emptied leaf, SET INTERVAL ().
std::string Differ::alterPartitioning(const std::string& path,
                                      const std::string& value,
                                      const std::string& what) {
  CSQLAlterTable statement(true, std::max(m_release, kLatestRelease));
  create::TreeFiller f(statement, "ALTER TABLE");
  if (!m_before.schema.empty()) f.Set("SCHEMA", id(m_before.schema, "schema"), "schema");
  f.Set("TABLE", id(m_before.name, "name"), "name");
  if (value.empty()) {
    statement.SetInit(path.c_str(), "()");
    statement.SetValue(path.c_str(), "");
  } else {
    f.Set(path, value, what);
  }
  return f.Write();
}

void Differ::scriptPartitioningMethod(Texts& first, Texts& last) {
  const Partitioning& a = m_before.partitioning;
  const Partitioning& b = m_after.partitioning;
  const std::string prefix = "C_ALTER_TAB_PART;";
  if (a.interval != b.interval) {
    requireRelease(7, "SET INTERVAL");
    const std::string path = prefix + "C_ALTER_INTERVAL_PART;INTERVAL";
    if (b.interval.empty()) {
      first.push_back(alterPartitioning(path, "", "partitioning.interval"));
    } else {
      last.push_back(alterPartitioning(path, b.interval, "partitioning.interval"));
    }
  }
  if (!b.interval.empty() && a.interval_store_in != b.interval_store_in) {
    if (b.interval_store_in.empty()) {
      warn("the STORE IN tablespaces of the interval partitions of " + tableName(m_before) +
           " are left out; not scripted: Oracle keeps using the last ones (give the tablespaces to use)");
    } else {
      CSQLAlterTable statement(true, std::max(m_release, kLatestRelease));
      create::TreeFiller f(statement, "ALTER TABLE");
      if (!m_before.schema.empty()) f.Set("SCHEMA", id(m_before.schema, "schema"), "schema");
      f.Set("TABLE", id(m_before.name, "name"), "name");
      std::vector<std::string> tablespaces;
      for (const std::string& name : b.interval_store_in)
        tablespaces.push_back(id(name, "partitioning.interval_store_in"));
      f.AddTexts(prefix + "C_ALTER_INTERVAL_PART;LIST", tablespaces, "partitioning.interval_store_in");
      last.push_back(f.Write());
    }
  }
  if (a.automatic != b.automatic) {
    requireRelease(9, "SET PARTITIONING AUTOMATIC or MANUAL");
    const std::string path = prefix + "C_ALTER_AUTOMATIC_PART;PARTITIONING";
    if (b.automatic) {
      last.push_back(alterPartitioning(path, "AUTOMATIC", "partitioning.automatic"));
    } else {
      first.push_back(alterPartitioning(path, "MANUAL", "partitioning.automatic"));
    }
  }
}

void Differ::scriptPartitionChanges(CSQLInfoTable& table, Texts& out) {
  const Partitioning& a = m_before.partitioning;
  const Partitioning& b = m_after.partitioning;
  if (b.type.empty()) return;
  // The partitions of a table partitioned by reference follow its parent's: a document may leave
  // them out, and when both list them, only renames and moves are scripted.
  if (b.type == "REFERENCE" && (a.partitions.empty() || b.partitions.empty())) return;
  // An interval-partitioned table makes its partitions above the range section itself.
  const bool interval = !a.interval.empty() && !b.interval.empty();
  const std::string head = "ALTER TABLE " + tableName(m_before);
  // Hash partitions given by number change by adding or coalescing.
  if (b.type == "HASH" && b.partitions.empty() && a.partitions.empty()) {
    for (int i = a.count; i < b.count; ++i)
      out.push_back(head + " ADD PARTITION");
    for (int i = b.count; i < a.count; ++i) {
      out.push_back(head + " COALESCE PARTITION");
      warn("COALESCE PARTITION of " + tableName(m_before) + " redistributes rows; no data is lost");
    }
    if (a.store_in != b.store_in) {
      warn("the STORE IN tablespaces of " + tableName(m_before) +
           " change; not scripted: Oracle keeps existing hash partitions where they are (move them with "
           "ALTER TABLE ... MOVE PARTITION)");
    }
    return;
  }
  if (a.subcount != b.subcount || a.subtemplate.size() != b.subtemplate.size() ||
      !std::equal(a.subtemplate.begin(),
                  a.subtemplate.end(),
                  b.subtemplate.begin(),
                  [](const Partition& x, const Partition& y) {
                    return x.name == y.name && x.values == y.values &&
                           x.values_less_than == y.values_less_than && x.tablespace == y.tablespace;
                  })) {
    warn(
        "the subpartition template of " + tableName(m_before) +
        " changes; it is not scripted: a partition added without subpartitions of its own takes the old one");
  }
  CSQLInfoPartitions partitions;
  load(partitions, "TYPE", b.type, a.type);
  load(partitions, "SUBTYPE", b.subtype, a.subtype);
  std::set<std::size_t> matched;
  // New partition index -> old partition index, for the kept ones; the others are added.
  std::map<std::size_t, std::size_t> keptOf;
  for (std::size_t n = 0; n < b.partitions.size(); ++n) {
    const Partition& now = b.partitions[n];
    const std::string where = "partitioning.partitions[" + std::to_string(n) + "]";
    const std::string oldName = now.renamed_from.empty() ? now.name : now.renamed_from;
    std::size_t o = a.partitions.size();
    for (std::size_t i = 0; i < a.partitions.size(); ++i) {
      if (a.partitions[i].name == oldName && matched.count(i) == 0) o = i;
    }
    if (!now.renamed_from.empty() && o == a.partitions.size()) {
      throw Failure(kExitBadInput,
                    where + ": renamed_from names no partition of the old table: " + now.renamed_from);
    }
    if (o == a.partitions.size()) continue;
    matched.insert(o);
    keptOf[n] = o;
    const Partition& old = a.partitions[o];
    if (old.values_less_than != now.values_less_than || old.values != now.values) {
      refuse("partition " + now.name + " changes its bounds (split or merge the partitions instead)");
    }
    partitions.AddPartition(old.name.c_str(), true);
    CSQLInfoPartitions::CPartition& p = *partitions.GetPartition(old.name.c_str());
    load(p, "NAME", id(now.name, where), id(old.name, where));
    loadKept(p, "TABLESPACE", now.tablespace, old.tablespace);
    loadKept(p, "LOGGING", now.logging, old.logging);
    loadKept(p, "COMPRESS", now.compress, old.compress);
    loadSegment(p, now.segment, old.segment);
    segmentFixed(now.segment, old.segment, "partition " + now.name);
    loadSubpartitions(p, old, now, where);
  }
  for (std::size_t n = 0; n < b.partitions.size(); ++n) {
    if (keptOf.count(n) != 0) continue;
    if (b.type == "REFERENCE") {
      refuse("partition " + b.partitions[n].name +
             " is added to a table partitioned by reference, whose partitions follow its parent table's "
             "(add the partition to the parent)");
    }
    if (interval) {
      refuse("partition " + b.partitions[n].name +
             " is added by name to an interval-partitioned table, where Oracle makes the partitions itself "
             "as rows arrive (ADD PARTITION fails with ORA-14760)");
    }
  }
  for (std::size_t o = 0; o < a.partitions.size(); ++o) {
    if (matched.count(o) != 0) continue;
    if (b.type == "REFERENCE") {
      refuse("partition " + a.partitions[o].name +
             " is dropped from a table partitioned by reference, whose partitions follow its parent table's "
             "(drop the partition of the parent)");
    }
    if (interval && o + 1 == a.partitions.size()) {
      refuse("partition " + a.partitions[o].name +
             " is the last of the range section of an interval-partitioned table and cannot be dropped "
             "(ORA-14758)");
    }
  }
  // A table keeps at least one partition (ORA-14083): when none is kept, the old table's highest
  // partition is dropped last, once the new ones are there.
  const bool ordered = b.type != "HASH";
  std::size_t held = a.partitions.size();
  if (ordered && keptOf.empty() && !b.partitions.empty()) {
    for (std::size_t o = a.partitions.size(); o-- > 0;) {
      if (matched.count(o) == 0) {
        held = o;
        break;
      }
    }
  }
  for (std::size_t o = 0; o < a.partitions.size(); ++o) {
    if (matched.count(o) != 0) continue;
    const std::string what = std::string(b.type == "HASH" ? "COALESCE" : "DROP") + " PARTITION " +
                             a.partitions[o].name + " of " + tableName(m_before);
    if (b.type == "HASH") {
      warn(what + " redistributes its rows");
    } else {
      dataLoss(what + " loses the partition's data");
    }
    if (o == held) continue;
    partitions.AddPartition(a.partitions[o].name.c_str(), true);
    load(*partitions.GetPartition(a.partitions[o].name.c_str()),
         "NAME",
         id(a.partitions[o].name, "partition"),
         id(a.partitions[o].name, "partition"));
    partitions.DropPartition(a.partitions[o].name.c_str(), false);
  }

  // How each new partition comes: added above the highest bound, or split off the partition whose
  // range holds it (a kept one above it, the MAXVALUE or DEFAULT partition, or the held-back one).
  struct Step {
    std::size_t partition;  // in the new table
    std::string from;       // the partition split, or "" to add
  };
  std::vector<Step> steps;
  bool splitsHeld = false, dropHeldFirst = false;
  const Partition* heldPartition = held < a.partitions.size() ? &a.partitions[held] : nullptr;
  for (std::size_t n = 0; n < b.partitions.size(); ++n) {
    if (keptOf.count(n) != 0) continue;
    const Partition& now = b.partitions[n];
    std::string from;
    if (b.type == "RANGE") {
      // The first kept partition above it in the new table holds its range.
      for (std::size_t k = n + 1; k < b.partitions.size() && from.empty(); ++k) {
        if (keptOf.count(k) != 0) from = b.partitions[k].name;
      }
    } else if (b.type == "LIST") {
      for (const auto& [k, o] : keptOf) {
        if (isTop(b.partitions[k])) from = b.partitions[k].name;
      }
    }
    if (from.empty() && heldPartition != nullptr && !isTop(now)) {
      const int order = b.type == "RANGE" ? compareBounds(now, *heldPartition) : kUnknownOrder;
      if (isTop(*heldPartition) || order < 0) {
        from = heldPartition->name;
        splitsHeld = true;
      }
    }
    steps.push_back({n, from});
  }
  // A new MAXVALUE or DEFAULT partition comes last; when the held-back partition is one too, it
  // takes its place, after the others are in.
  std::stable_partition(
      steps.begin(), steps.end(), [&](const Step& x) { return !isTop(b.partitions[x.partition]); });
  if (heldPartition != nullptr && isTop(*heldPartition) && !steps.empty() &&
      isTop(b.partitions[steps.back().partition])) {
    if (steps.size() == 1) refuse("partition " + heldPartition->name + " would be the last one dropped");
    dropHeldFirst = true;
  }
  if (splitsHeld) {
    // Split off an emptied partition, so that the rows it held are gone as the script says.
    partitions.AddPartition(heldPartition->name.c_str(), true);
    CSQLInfoPartitions::CPartition& p = *partitions.GetPartition(heldPartition->name.c_str());
    load(p, "NAME", id(heldPartition->name, "partition"), id(heldPartition->name, "partition"));
    load(p, "TRUNCATE", "TRUNCATE", "");
  }

  CSQLAlterTable statement;
  if (const int result = CSQLUtil::GenAltPartition(&statement, &out, &table, &partitions)) {
    throw Failure(kExitFailure, "partitions: the change script failed with code " + std::to_string(result));
  }
  const std::string dropHeld =
      heldPartition == nullptr ? "" : head + " DROP PARTITION " + id(heldPartition->name, "partition");
  for (const Step& step : steps) {
    const Partition& now = b.partitions[step.partition];
    if (dropHeldFirst && isTop(now)) out.push_back(dropHeld);
    const std::string where = "partitioning.partitions[" + std::to_string(step.partition) + "]";
    if (step.from.empty()) {
      addPartition(table, now, where, out);
      continue;
    }
    splitPartition(step.from, now, where, out);
    if (heldPartition == nullptr || step.from != heldPartition->name) {
      warn("SPLIT PARTITION " + step.from + " of " + tableName(m_before) + " moves its rows " +
           (b.type == "LIST" ? "with the listed values" : "below the new bound") + " into " + now.name +
           "; no data is lost");
    }
  }
  if (heldPartition != nullptr && !dropHeldFirst) out.push_back(dropHeld);
  // INDEXING ON or OFF (Oracle 12c) of kept partitions that change it and of new ones, which ADD and
  // SPLIT write without it.
  const char* variant = b.type == "HASH"   ? "C_MOD_HASH_PART"
                        : b.type == "LIST" ? "C_MOD_LIST_PART"
                                           : "C_MOD_RANGE_PART";
  for (std::size_t n = 0; n < b.partitions.size(); ++n) {
    const Partition& now = b.partitions[n];
    const auto kept = keptOf.find(n);
    if (now.indexing.empty() || (kept != keptOf.end() && a.partitions[kept->second].indexing == now.indexing))
      continue;
    const std::string where = "partitioning.partitions[" + std::to_string(n) + "]";
    CSQLAlterTable statement(true, std::max(m_release, kLatestRelease));
    create::TreeFiller f(statement, "ALTER TABLE");
    if (!m_before.schema.empty()) f.Set("SCHEMA", id(m_before.schema, "schema"), "schema");
    f.Set("TABLE", id(m_before.name, "name"), "name");
    f.Set("C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION", id(now.name, where), where);
    f.Set(std::string("C_ALTER_TAB_PART;C_MOD_TAB_PART;PARTITION;") + variant + ";INDEXING",
          now.indexing,
          where + ".indexing");
    out.push_back(f.Write());
  }
  scriptPartitionLobs(table, out);
}

// The subpartitions of a kept partition: renamed, moved, added or dropped. A list the new document
// leaves out is left as it is.
void Differ::loadSubpartitions(CSQLInfoPartitions::CPartition& record,
                               const Partition& old,
                               const Partition& now,
                               const std::string& where) {
  if (now.subpartitions.empty()) return;
  const std::string at = where + " subpartition";
  std::set<std::string> matched;
  for (const Partition& s : now.subpartitions) {
    const std::string oldName = s.renamed_from.empty() ? s.name : s.renamed_from;
    const auto found = std::find_if(old.subpartitions.begin(),
                                    old.subpartitions.end(),
                                    [&](const Partition& o) { return o.name == oldName; });
    if (found == old.subpartitions.end()) {
      if (!s.renamed_from.empty()) {
        throw Failure(kExitBadInput,
                      at + " " + s.name + ": renamed_from names no subpartition of partition " + old.name +
                          ": " + s.renamed_from);
      }
      const auto fallback = std::find_if(old.subpartitions.begin(), old.subpartitions.end(), isTop);
      if ((!s.values.empty() || !s.values_less_than.empty()) && fallback != old.subpartitions.end()) {
        refuse("subpartition " + s.name + " is added to partition " + old.name + ", whose " +
               (s.values.empty() ? "MAXVALUE" : "DEFAULT") + " subpartition " + fallback->name +
               " holds its " + (s.values.empty() ? "range" : "values") +
               " (split that subpartition instead)");
      }
      const std::string key = "+" + s.name;
      record.AddSubPartition(key.c_str(), false);
      load(*record.GetSubPartition(key.c_str()), "NAME", id(s.name, at), "");
      load(*record.GetSubPartition(key.c_str()), "TABLESPACE", s.tablespace, "");
      for (const std::string& v : s.values.empty() ? s.values_less_than : s.values)
        record.GetSubPartition(key.c_str())->VALUES().AddValue(v.c_str(), v.c_str(), "");
      continue;
    }
    if (found->values != s.values || found->values_less_than != s.values_less_than)
      refuse("subpartition " + s.name + " changes its " + (s.values.empty() ? "bounds" : "values"));
    matched.insert(found->name);
    record.AddSubPartition(found->name.c_str(), true);
    load(*record.GetSubPartition(found->name.c_str()), "NAME", id(s.name, at), id(found->name, at));
    loadKept(*record.GetSubPartition(found->name.c_str()), "TABLESPACE", s.tablespace, found->tablespace);
  }
  for (const Partition& s : old.subpartitions) {
    if (matched.count(s.name) != 0) continue;
    record.AddSubPartition(s.name.c_str(), true);
    load(*record.GetSubPartition(s.name.c_str()), "NAME", id(s.name, at), id(s.name, at));
    record.DropSubPartition(s.name.c_str(), false);
    if (m_before.partitioning.subtype == "HASH") {
      warn("COALESCE SUBPARTITION of partition " + old.name + " of " + tableName(m_before) +
           " redistributes the rows of its last subpartition; no data is lost");
    } else {
      dataLoss("DROP SUBPARTITION " + s.name + " of " + tableName(m_before) +
               " loses the subpartition's data");
    }
  }
}

// ADD PARTITION, through the partition information.
void Differ::addPartition(CSQLInfoTable& table, const Partition& now, const std::string& where, Texts& out) {
  const Partitioning& a = m_before.partitioning;
  const Partitioning& b = m_after.partitioning;
  CSQLInfoPartitions partitions;
  load(partitions, "TYPE", b.type, a.type);
  load(partitions, "SUBTYPE", b.subtype, a.subtype);
  const std::string key = "+" + now.name;
  partitions.AddPartition(key.c_str(), false);
  CSQLInfoPartitions::CPartition& p = *partitions.GetPartition(key.c_str());
  load(p, "NAME", id(now.name, where), "");
  load(p, "TABLESPACE", now.tablespace, "");
  for (const std::string& v : b.type == "LIST" ? now.values : now.values_less_than)
    p.VALUES().AddValue(v.c_str(), v.c_str(), "");
  for (const Partition& s : now.subpartitions) {
    p.AddSubPartition(s.name.c_str(), false);
    load(*p.GetSubPartition(s.name.c_str()), "NAME", id(s.name, where + " subpartition"), "");
    load(*p.GetSubPartition(s.name.c_str()), "TABLESPACE", s.tablespace, "");
    for (const std::string& v : s.values.empty() ? s.values_less_than : s.values)
      p.GetSubPartition(s.name.c_str())->VALUES().AddValue(v.c_str(), v.c_str(), "");
  }
  CSQLAlterTable statement;
  if (const int result = CSQLUtil::GenAltPartition(&statement, &out, &table, &partitions)) {
    throw Failure(kExitFailure, "partitions: the change script failed with code " + std::to_string(result));
  }
}

// SPLIT PARTITION from AT (bound) | VALUES (values) INTO (PARTITION now ..., PARTITION from): the
// new partition takes the lower part of the range, or the listed values.
void Differ::splitPartition(const std::string& from,
                            const Partition& now,
                            const std::string& where,
                            Texts& out) {
  const Partitioning& b = m_after.partitioning;
  CSQLAlterTable statement;
  create::TreeFiller f(statement, "ALTER TABLE");
  const std::string split = "C_ALTER_TAB_PART;C_SPLIT_TABLE_PART;PARTITION";
  const std::string partDesc = split + ";SPEC1;C_TAB_PART_DESC;";
  const std::string physical = partDesc + "C_SEG_ATTRIBUTE;C_PHYSICAL_ATTRIBUTES;";
  if (!m_before.schema.empty()) f.Set("SCHEMA", id(m_before.schema, "schema"), "schema");
  f.Set("TABLE", id(m_before.name, "name"), "name");
  f.Set(split, id(from, "partition"), where);
  f.Set(split + (b.type == "LIST" ? ";VALUES" : ";AT"), b.type == "LIST" ? "VALUES" : "AT", where);
  f.AddTexts(split + ";LIST", b.type == "LIST" ? now.values : now.values_less_than, where);
  f.Set(split + ";SPEC1;PARTITION", id(now.name, where), where);
  f.Set(partDesc + "C_SEG_ATTRIBUTE;TABLESPACE", now.tablespace, where + ".tablespace");
  const std::pair<const char*, std::string Segment::*> fields[] = {
      {"PCTFREE", &Segment::pctfree},
      {"PCTUSED", &Segment::pctused},
      {"INITRANS", &Segment::initrans},
      {"MAXTRANS", &Segment::maxtrans},
      {"C_STORAGE;INITIAL", &Segment::initial},
      {"C_STORAGE;NEXT", &Segment::next},
      {"C_STORAGE;MINEXTENTS", &Segment::minextents},
      {"C_STORAGE;MAXEXTENTS", &Segment::maxextents},
      {"C_STORAGE;PCTINCREASE", &Segment::pctincrease},
      {"C_STORAGE;FREELISTS", &Segment::freelists},
      {"C_STORAGE;FREELIST", &Segment::freelist_groups},
      {"C_STORAGE;BUFFER_POOL", &Segment::buffer_pool}};
  for (const auto& [path, member] : fields)
    f.Set(physical + path, now.segment.*member, where);
  f.Set(partDesc + "C_SEG_ATTRIBUTE;LOGGING", now.logging, where + ".logging");
  f.Set(partDesc + "COMPRESS", now.compress, where + ".compress");
  f.Set(split + ";SPEC2;PARTITION", id(from, "partition"), where);
  out.push_back(f.Write());
  if (!now.subpartitions.empty()) {
    warn("partition " + now.name + " is split off " + from +
         " and takes the subpartitions of the table's template; its own list is left out");
  }
}

// The LOB storage of kept partitions, after the partitions have their new names.
void Differ::scriptPartitionLobs(CSQLInfoTable& table, Texts& out) {
  const Partitioning& a = m_before.partitioning;
  const Partitioning& b = m_after.partitioning;
  CSQLInfoLOBPartitions lobs;
  load(lobs, "TYPE", b.type, a.type);
  const std::pair<const char*, std::string LobStorage::*> values[] = {{"TABLESPACE", &LobStorage::tablespace},
                                                                      {"CHUNK", &LobStorage::chunk},
                                                                      {"PCTVERSION", &LobStorage::pctversion},
                                                                      {"RETENTION", &LobStorage::retention},
                                                                      {"CACHE", &LobStorage::cache},
                                                                      {"LOGGING", &LobStorage::logging},
                                                                      {"ENABLE", &LobStorage::in_row}};
  bool any = false;
  for (std::size_t n = 0; n < b.partitions.size(); ++n) {
    const Partition& now = b.partitions[n];
    const std::string oldName = now.renamed_from.empty() ? now.name : now.renamed_from;
    const auto old = std::find_if(
        a.partitions.begin(), a.partitions.end(), [&](const Partition& p) { return p.name == oldName; });
    const std::string where = "partitioning.partitions[" + std::to_string(n) + "]";
    if (old == a.partitions.end()) {
      if (!now.lobs.empty())
        warn("partition " + now.name + " is added with the table's LOB storage; its own is left out");
      continue;
    }
    for (const PartitionLob& lob : now.lobs) {
      const LobStorage none;
      const LobStorage* before = &none;
      for (const PartitionLob& o : old->lobs) {
        if (renamed({o.column}).front() == lob.column) before = &o.storage;
      }
      const std::string column = id(lob.column, where + " lobs"), partition = id(now.name, where);
      lobs.AddLOBColumn(column.c_str(), partition.c_str(), true);
      CSQLInfoLOBPartitions::CLOBColumn& record = *lobs.GetLOBColumn(column.c_str(), partition.c_str());
      for (const auto& [type, member] : values)
        loadKept(record, type, lob.storage.*member, before->*member);
      any = any || record.IsModified(nullptr);
    }
  }
  if (!any) return;
  CSQLAlterTable statement;
  if (const int result = CSQLUtil::GenAltLOBPartition(&statement, &out, &table, &lobs)) {
    throw Failure(kExitFailure,
                  "partition LOB storage: the change script failed with code " + std::to_string(result));
  }
}

// ---- comments -----------------------------------------------------------------------------------

void Differ::scriptComments(Texts& out) {
  const std::string table = tableName(m_before);
  if (m_after.comment != m_before.comment)
    out.push_back("COMMENT ON TABLE " + table + " IS " + quoted(m_after.comment));
  for (std::size_t n = 0; n < m_after.columns.size(); ++n) {
    const Column& now = m_after.columns[n];
    const auto kept = m_columnOf.find(n);
    const std::string before = kept == m_columnOf.end() ? "" : m_before.columns[kept->second].comment;
    if (now.comment == before) continue;
    out.push_back("COMMENT ON COLUMN " + table + "." + id(now.name, "column") + " IS " + quoted(now.comment));
  }
}

// ---- the whole run ------------------------------------------------------------------------------

Script Differ::run() {
  if (m_options.if_exists) create::RequireRelease(m_release, 12, "--if-exists", "IF [NOT] EXISTS");
  if (m_after.release != m_before.release) {
    warn("the documents name different releases; the script is written for the new one's");
  }
  matchColumns();
  // Whatever no ALTER statement can do, found anywhere in the comparison, drops the table and
  // creates it anew when the caller allows it.
  try {
    return alter();
  } catch (const Failure& error) {
    if (!m_options.allow_recreate || error.code() != kExitNeedsRecreate) throw;
    return recreate();
  }
}

Script Differ::alter() {
  create::CheckPartitioning(m_after);
  checkRecreate();

  CSQLInfoTable table;
  loadTable(table);
  CSQLInfoColumns columns, renamedColumns;
  loadColumns(columns, renamedColumns);
  CSQLInfoConstraints constraints, renamedConstraints;
  Texts redefined;
  loadConstraints(constraints, renamedConstraints, redefined);

  // Constraints: drops, state changes and renames come back in `out`, adds stay in the tree.
  Texts constraintOut;
  CSQLAlterTable constraintTree;
  if (const int result = CSQLUtil::GenAltConstraint(&constraintTree, &constraintOut, &table, &constraints)) {
    throw Failure(kExitFailure, "constraints: the change script failed with code " + std::to_string(result));
  }
  CSQLAlterTable renamedConstraintTree;
  CSQLUtil::GenAltConstraint(&renamedConstraintTree, &constraintOut, &table, &renamedConstraints);
  Texts constraintAdds;
  writeTree(constraintTree, constraintAdds);
  for (const std::string& text : AddConstraintStatements(m_after, m_keysWithIndex, m_options))
    constraintAdds.push_back(text);
  Texts keysOnIndexes = AddConstraintStatements(m_after, m_keysOnIndexes, m_options);
  for (const std::string& text : AddConstraintStatements(m_after, m_referencesToKeysOnIndexes, m_options))
    keysOnIndexes.push_back(text);
  Texts constraintDrops, constraintModifies, constraintRenames;
  for (const std::string& text : constraintOut) {
    Texts& bucket = text.find(" DROP CONSTRAINT ") != std::string::npos     ? constraintDrops
                    : text.find(" RENAME CONSTRAINT ") != std::string::npos ? constraintRenames
                                                                            : constraintModifies;
    bucket.push_back(text);
  }

  // Columns: renames and drops come back in `out`, adds and modifications stay in the tree.
  // Their items take the column syntax of the table's release.
  Texts columnOut;
  CSQLAlterTable columnTree(true, std::max(m_release, kLatestRelease));
  if (const int result = CSQLUtil::GenAltColumn(&columnTree, &columnOut, &table, &columns)) {
    throw Failure(kExitFailure, "columns: the change script failed with code " + std::to_string(result));
  }
  addedColumnSyntax(columnTree);
  Texts columnChanges = m_columnSyntax;
  writeTree(columnTree, columnChanges);
  CSQLAlterTable renamedTree;
  CSQLUtil::GenAltColumn(&renamedTree, &columnOut, &table, &renamedColumns);
  writeTree(renamedTree, columnChanges);
  Texts columnRenames, columnDrops;
  for (const std::string& text : columnOut) {
    (text.find(" RENAME COLUMN ") != std::string::npos ? columnRenames : columnDrops).push_back(text);
  }

  // The table's own properties; its rename is held back to the end, in a record of its own.
  const bool renamed = m_before.name != m_after.name;
  Texts properties;
  CSQLAlterTable propertyTree;
  CSQLUtil::GenAltTableProperty(&propertyTree, &properties, &table);
  if (m_options.online && propertyTree.IsModified("C_MOVE_TABLE;*")) {
    // Oracle8i moves an index-organized table ONLINE, Oracle 12c Release 2 any table.
    const bool iot = m_after.organization == "INDEX";
    create::RequireRelease(m_release,
                           iot ? 2 : 9,
                           "--online",
                           iot ? "MOVE ONLINE of an index-organized table" : "MOVE ONLINE of a table");
    propertyTree.SetValue("C_MOVE_TABLE;ONLINE", "ONLINE");
  }
  writeTree(propertyTree, properties);
  if (!m_parallel.empty()) properties.push_back(m_parallel);
  Texts rename;
  if (renamed) {
    requireRelease(2, "renaming the table (RENAME TO)");
    CSQLInfoTable renaming;
    load(renaming,
         "SCHEMA",
         m_before.schema.empty() ? "" : id(m_before.schema, "schema"),
         m_before.schema.empty() ? "" : id(m_before.schema, "schema"));
    load(renaming, "TABLE", id(m_after.name, "name"), id(m_before.name, "name"));
    CSQLAlterTable renameTree;
    CSQLUtil::GenAltTableProperty(&renameTree, &rename, &renaming);
    writeTree(renameTree, rename);
  }

  Texts partitionScript;
  scriptPartitions(table, partitionScript);
  Texts indexDrops, indexChanges, indexCreates;
  scriptIndexes(indexDrops, indexChanges, indexCreates);
  Texts comments;
  scriptComments(comments);

  for (const Texts* part : {&constraintDrops,
                            &indexDrops,
                            &columnDrops,
                            &columnRenames,
                            &constraintRenames,
                            &properties,
                            &columnChanges,
                            &partitionScript,
                            &constraintAdds,
                            &constraintModifies,
                            &indexChanges,
                            &indexCreates,
                            &keysOnIndexes,
                            &comments,
                            &rename}) {
    m_script.statements.insert(m_script.statements.end(), part->begin(), part->end());
  }
  if (m_options.fail_on_data_loss) create::RefuseDataLoss(m_lost);
  return m_script;
}

// Leaves out the precisions of datetime and interval columns that are Oracle's defaults (TIMESTAMP
// (6), INTERVAL DAY (2) TO SECOND (6)), so that a description that writes them and one that does not
// (an export against a hand-written document) compare equal.
void dropDefaultPrecisions(Table& t) {
  for (Column& c : t.columns) {
    const Precisions defaults = defaultPrecisions(c.type);
    if (defaults.length != 0 && c.length == std::to_string(defaults.length)) c.length.clear();
    if (defaults.scale != 0 && c.scale == std::to_string(defaults.scale)) c.scale.clear();
  }
}

// A named inline key or check of an old column that the new column no longer has becomes a
// constraint of the old table, so that it is dropped by its name like one. (With two of them on one
// column the name is the first's only, and diff warns instead.)
void liftRemovedInlineConstraints(Table& before, const Table& after) {
  for (Column& old : before.columns) {
    const int kinds = int{old.primary_key} + int{old.unique} + int{!old.check.empty()};
    if (old.constraint_name.empty() || kinds != 1) continue;
    const auto now = std::find_if(after.columns.begin(), after.columns.end(), [&](const Column& c) {
      return c.renamed_from.empty() ? c.name == old.name : c.renamed_from == old.name;
    });
    if (now == after.columns.end()) continue;  // the column goes, and its constraints with it
    Constraint lifted;
    lifted.name = old.constraint_name;
    lifted.columns = {old.name};
    if (old.primary_key && !now->primary_key) {
      lifted.type = "PRIMARY KEY";
      old.primary_key = false;
    } else if (old.unique && !now->unique) {
      lifted.type = "UNIQUE";
      old.unique = false;
    } else if (!old.check.empty() && now->check.empty()) {
      lifted.type = "CHECK";
      lifted.check = old.check;
      lifted.columns.clear();
      old.check.clear();
    } else {
      continue;
    }
    old.constraint_name.clear();
    before.constraints.push_back(lifted);
  }
}

}  // namespace

Script Diff(const Table& before, const Table& after, const Options& options) {
  if (!after.renamed_from.empty() && after.renamed_from != before.name) {
    throw Failure(
        kExitBadInput,
        "renamed_from",
        "the new table is renamed from " + after.renamed_from + ", but the old one is " + before.name);
  }
  CheckExpressions(before, "old");
  CheckExpressions(after, "new");
  Table oldTable = ResolveNames(before, options.preserve_case);
  Table newTable = ResolveNames(after, options.preserve_case);
  dropDefaultPrecisions(oldTable);
  dropDefaultPrecisions(newTable);
  liftRemovedInlineConstraints(oldTable, newTable);
  return Differ(oldTable, newTable, options).run();
}

}  // namespace qarvelt::model
