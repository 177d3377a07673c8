// The ALTER script between two schemas. Objects are paired by name, or by a declared rename, and
// the script runs in an order Oracle accepts:
//   1. triggers, synonyms, materialized views and views that go away (or are dropped to be created
//      anew);
//   2. sequences: drops, renames, changes, new ones (a column default may name a new sequence);
//   3. foreign keys of kept tables that go away or change, so that no key they reference is held;
//   4. tables that go away (DROP TABLE ... CASCADE CONSTRAINTS), with a warning of the data lost;
//   5. each kept table's own changes and renames, without the foreign keys it gains;
//   6. new tables in foreign-key order;
//   7. the foreign keys kept tables gain, now that every table they may reference is there;
//   8. views renamed, then created or replaced in the order their queries name each other;
//   9. materialized views created or altered; synonyms; triggers created or replaced.
#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <tuple>

#include <qarvelt/qarvelt.h>

#include "commands.h"
#include "create_support.h"
#include "qarvelt/model/expressions.h"
#include "schema_support.h"

namespace qarvelt::model {

namespace {

std::string at(const char* list, std::size_t i) {
  return std::string(list) + "[" + std::to_string(i) + "]";
}

// Old and new objects of one kind, paired by name or declared rename.
struct Pairing {
  std::vector<std::optional<std::size_t>> oldOf;  // per new object: its old one
  std::vector<bool> kept;                         // per old object: paired with a new one
};

// `key` gives an object's name as a statement writes it; `renamedFrom` its declared old name ("" for
// none, or for kinds that cannot be renamed).
template <class T, class Key, class RenamedFrom>
Pairing pair(const std::vector<T>& before,
             const std::vector<T>& after,
             const char* list,
             Key key,
             RenamedFrom renamedFrom) {
  std::map<std::string, std::size_t> oldByName;
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!oldByName.emplace(key(before[i]), i).second)
      throw Failure(kExitBadInput, "old " + at(list, i) + ".name", "a second object named " + key(before[i]));
  }
  Pairing p{std::vector<std::optional<std::size_t>>(after.size()), std::vector<bool>(before.size())};
  std::set<std::string> newNames;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (!newNames.insert(key(after[i])).second)
      throw Failure(kExitBadInput, at(list, i) + ".name", "a second object named " + key(after[i]));
  }
  for (std::size_t i = 0; i < after.size(); ++i) {
    const std::string from = renamedFrom(after[i]);
    const auto found = oldByName.find(from.empty() ? key(after[i]) : from);
    if (found == oldByName.end()) {
      if (!from.empty()) {
        throw Failure(
            kExitBadInput, at(list, i) + ".renamed_from", "names nothing of the old schema: " + from);
      }
      continue;
    }
    if (p.kept[found->second]) {
      throw Failure(kExitBadInput,
                    at(list, i) + (from.empty() ? ".name" : ".renamed_from"),
                    found->first + " is claimed by two objects of the new schema");
    }
    if (!from.empty() && newNames.count(from) != 0 && from != key(after[i])) {
      throw Failure(kExitBadInput,
                    at(list, i) + ".renamed_from",
                    from + " is renamed, but the new schema still has an object of that name");
    }
    p.oldOf[i] = found->second;
    p.kept[found->second] = true;
  }
  return p;
}

// A foreign key's definition, without its name and state: what a change of it drops and adds.
auto definition(const Constraint& k) {
  return std::tie(k.type, k.columns, k.ref_schema, k.ref_table, k.ref_columns, k.on_delete);
}

bool sameView(const View& a, const View& b) {
  return std::tie(a.columns, a.query, a.force, a.read_only, a.check_option) ==
         std::tie(b.columns, b.query, b.force, b.read_only, b.check_option);
}

bool sameTrigger(const Trigger& a, const Trigger& b) {
  return std::tie(a.timing,
                  a.events,
                  a.table,
                  a.for_each_row,
                  a.referencing_old,
                  a.referencing_new,
                  a.when,
                  a.body,
                  a.enabled) == std::tie(b.timing,
                                         b.events,
                                         b.table,
                                         b.for_each_row,
                                         b.referencing_old,
                                         b.referencing_new,
                                         b.when,
                                         b.body,
                                         b.enabled);
}

bool sameSynonym(const Synonym& a, const Synonym& b) {
  return std::tie(a.target_schema, a.target, a.dblink) == std::tie(b.target_schema, b.target, b.dblink);
}

// Every declared rename of a table taken away: the table, once renamed, is diffed with itself.
Table withoutRenames(Table t) {
  t.renamed_from.clear();
  for (Column& c : t.columns)
    c.renamed_from.clear();
  for (Constraint& k : t.constraints)
    k.renamed_from.clear();
  for (Index& x : t.indexes)
    x.renamed_from.clear();
  for (Partition& p : t.partitioning.partitions)
    p.renamed_from.clear();
  return t;
}

class SchemaDiffer {
 public:
  // Every name is resolved once, here, so that objects compare as the statements write them.
  SchemaDiffer(const Schema& before, const Schema& after, const Options& options)
      : m_before(ResolveSchemaNames(before, options.preserve_case)),
        m_after(ResolveSchemaNames(after, options.preserve_case)),
        m_options(options),
        m_resolved(resolved(options)),
        m_w(m_after.name, m_after.release, m_resolved) {}

  Script run();

 private:
  // The plan for one kept table: which foreign keys are dropped before any table changes and which
  // are held back until every table is there. The tables of each step are made when they are
  // diffed, so that a schema of thousands of tables is held once, not once per step.
  struct KeptTable {
    std::size_t before, after;
    std::vector<Constraint> oldKeys;  // the old constraints, foreign keys following table renames
    std::vector<bool> keptOld;        // per old constraint: it stays until the table's own changes
    std::vector<bool> heldNew;        // per new constraint: added after every table is there
    bool dropsKeys() const { return std::find(keptOld.begin(), keptOld.end(), false) != keptOld.end(); }
    bool holdsKeys() const { return std::find(heldNew.begin(), heldNew.end(), true) != heldNew.end(); }
  };
  // The old table as it is (with its foreign keys following renames), after the foreign keys that go
  // away are dropped, the new table without the keys it gains, and the new table.
  Table oldTable(const KeptTable& k) const {
    Table t = m_oldTables[k.before];
    t.constraints = k.oldKeys;
    return t;
  }
  Table keysDropped(const KeptTable& k) const {
    Table t = m_oldTables[k.before];
    t.constraints.clear();
    for (std::size_t c = 0; c < k.oldKeys.size(); ++c) {
      if (k.keptOld[c]) t.constraints.push_back(k.oldKeys[c]);
    }
    return t;
  }
  Table keysHeld(const KeptTable& k) const {
    Table t = m_newTables[k.after];
    t.constraints.clear();
    for (std::size_t c = 0; c < k.heldNew.size(); ++c) {
      if (!k.heldNew[c]) t.constraints.push_back(m_newTables[k.after].constraints[c]);
    }
    return t;
  }

  std::string fold(const std::string& name) const { return m_w.Fold(name); }
  bool inSchema(const Constraint& k) const {
    return k.type == "FOREIGN KEY" && (k.ref_schema.empty() || k.ref_schema == fold(m_after.name));
  }
  void emit(const std::string& text) {
    if (!text.empty()) m_script.statements.push_back(text);
  }
  void emit(const Script& part) {
    m_script.statements.insert(m_script.statements.end(), part.statements.begin(), part.statements.end());
    for (const std::string& warning : part.warnings)
      warn(warning);
  }
  void warn(const std::string& warning) {
    if (std::find(m_script.warnings.begin(), m_script.warnings.end(), warning) == m_script.warnings.end())
      m_script.warnings.push_back(warning);
  }
  // RENAME takes no schema: it renames an object of the user who runs the script.
  void rename(const std::string& from, const std::string& to, const std::string& where) {
    emit(m_w.Rename(from, to, where));
    if (!m_after.name.empty())
      warn("RENAME acts in the schema of the user who runs it: run the script as " + fold(m_after.name));
  }
  void lose(const std::string& warning) {
    warn(warning);
    m_lost.push_back(warning);
  }

  void pairTables();
  void planTables(const std::set<std::string>& recreated);
  void dropObjects();
  void sequences();
  void tables();
  void views();
  void laterObjects();

  static Options resolved(Options options) {
    options.preserve_case = true;
    return options;
  }

  const Schema m_before;
  const Schema m_after;
  const Options& m_options;
  Options m_resolved;
  ObjectWriter m_w;
  Script m_script;
  std::vector<std::string> m_lost;

  std::vector<Table> m_oldTables, m_newTables;
  Pairing m_tablePairs;
  std::map<std::string, std::string> m_renamedTables;  // old name -> new name
  std::set<std::string> m_droppedTables;
  std::vector<KeptTable> m_kept;
  std::set<std::string> m_recreated;  // kept tables the script drops and creates anew
  Pairing m_triggers, m_synonyms, m_mviews, m_views;
  std::vector<bool> m_mviewRecreated;  // per new materialized view
};

void SchemaDiffer::pairTables() {
  m_oldTables = m_w.Tables(m_before);
  m_newTables = m_w.Tables(m_after);
  for (Table& t : m_newTables)
    t.renamed_from = fold(t.renamed_from);
  m_tablePairs = pair(
      m_oldTables,
      m_newTables,
      "tables",
      [](const Table& t) { return t.name; },
      [](const Table& t) { return t.renamed_from; });
  for (std::size_t i = 0; i < m_newTables.size(); ++i) {
    if (m_tablePairs.oldOf[i] && !m_newTables[i].renamed_from.empty())
      m_renamedTables[m_newTables[i].renamed_from] = m_newTables[i].name;
  }
  for (std::size_t i = 0; i < m_oldTables.size(); ++i) {
    if (!m_tablePairs.kept[i]) m_droppedTables.insert(m_oldTables[i].name);
  }
  // A foreign key of the new schema cannot reference a table the script drops.
  for (std::size_t i = 0; i < m_newTables.size(); ++i) {
    const std::vector<Constraint>& keys = m_newTables[i].constraints;
    for (std::size_t k = 0; k < keys.size(); ++k) {
      if (inSchema(keys[k]) && m_droppedTables.count(keys[k].ref_table) != 0 &&
          m_renamedTables.count(keys[k].ref_table) == 0) {
        bool stays = false;
        for (const Table& t : m_newTables)
          stays = stays || t.name == keys[k].ref_table;
        if (!stays) {
          throw Failure(kExitBadInput,
                        at("tables", i) + "." + at("constraints", k) + ".references",
                        "table " + keys[k].ref_table + " is dropped by this script");
        }
      }
    }
  }
}

// Splits each kept table's change around the foreign keys: those that go away or change are
// dropped before any table changes, those that come or change are added after every table is there.
// A foreign key to a table created anew is dropped with it (CASCADE CONSTRAINTS), so it is added
// again.
void SchemaDiffer::planTables(const std::set<std::string>& recreated) {
  m_kept.clear();
  for (std::size_t i = 0; i < m_newTables.size(); ++i) {
    if (!m_tablePairs.oldOf[i]) continue;
    const Table& target = m_newTables[i];
    KeptTable k{*m_tablePairs.oldOf[i], i, m_oldTables[*m_tablePairs.oldOf[i]].constraints, {}, {}};
    for (Constraint& c : k.oldKeys) {
      const auto renamed = m_renamedTables.find(c.ref_table);
      if (inSchema(c) && renamed != m_renamedTables.end()) c.ref_table = renamed->second;
    }
    auto counterpart = [&](const Constraint& now) -> const Constraint* {
      const std::string& name = now.renamed_from.empty() ? now.name : now.renamed_from;
      for (const Constraint& c : k.oldKeys) {
        if (c.name == name && c.type == "FOREIGN KEY") return &c;
      }
      return nullptr;
    };
    std::set<std::string> keptKeys;  // old names of the foreign keys that stay
    for (const Constraint& now : target.constraints) {
      bool held = false;
      if (now.type == "FOREIGN KEY") {
        const Constraint* before = counterpart(now);
        held = before == nullptr || definition(*before) != definition(now) ||
               (inSchema(now) && recreated.count(now.ref_table) != 0 && now.ref_table != target.name);
        if (!held) keptKeys.insert(now.renamed_from.empty() ? now.name : now.renamed_from);
      }
      k.heldNew.push_back(held);
    }
    for (const Constraint& c : k.oldKeys)
      k.keptOld.push_back(c.type != "FOREIGN KEY" || keptKeys.count(c.name) != 0);
    m_kept.push_back(std::move(k));
  }
}

void SchemaDiffer::dropObjects() {
  for (std::size_t i = 0; i < m_before.triggers.size(); ++i) {
    if (!m_triggers.kept[i]) emit(m_w.Dropping<CSQLDropTrigger>(m_before.triggers[i].name));
  }
  for (std::size_t i = 0; i < m_after.synonyms.size(); ++i) {
    const auto old = m_synonyms.oldOf[i];
    if (old && !sameSynonym(m_before.synonyms[*old], m_after.synonyms[i])) {
      const Synonym& s = m_before.synonyms[*old];
      emit(s.is_public ? m_w.Dropping<CSQLDropSynonym>(s.name, {{"PUBLIC", "PUBLIC"}})
                       : m_w.Dropping<CSQLDropSynonym>(s.name));
    }
  }
  for (std::size_t i = 0; i < m_before.synonyms.size(); ++i) {
    const Synonym& s = m_before.synonyms[i];
    if (!m_synonyms.kept[i]) {
      emit(s.is_public ? m_w.Dropping<CSQLDropSynonym>(s.name, {{"PUBLIC", "PUBLIC"}})
                       : m_w.Dropping<CSQLDropSynonym>(s.name));
    }
  }
  // Materialized views: gone, or changed in what no ALTER MATERIALIZED VIEW sets.
  m_mviewRecreated.assign(m_after.materialized_views.size(), false);
  for (std::size_t i = 0; i < m_after.materialized_views.size(); ++i) {
    const auto old = m_mviews.oldOf[i];
    if (!old) continue;
    const MaterializedView &a = m_before.materialized_views[*old], &b = m_after.materialized_views[i];
    std::string why;
    if (a.query != b.query) why = "its query changes";
    if (a.tablespace != b.tablespace) why = "its tablespace changes";
    if (a.build != b.build && why.empty())
      warn("materialized view " + fold(b.name) +
           ": BUILD only matters when it is created; nothing to change");
    if (why.empty()) continue;
    if (!m_options.allow_recreate) {
      throw Failure(kExitNeedsRecreate,
                    at("materialized_views", i),
                    "materialized view " + b.name + ": " + why +
                        ", which no ALTER MATERIALIZED VIEW can do; --allow-recreate drops it and creates it "
                        "anew");
    }
    m_mviewRecreated[i] = true;
    emit(m_w.Dropping<CSQLDropMaterializedView>(a.name));
    lose("materialized view " + fold(b.name) + " is dropped and created anew (" + why +
         "): its rows are built again");
  }
  for (std::size_t i = 0; i < m_before.materialized_views.size(); ++i) {
    if (m_mviews.kept[i]) continue;
    emit(m_w.Dropping<CSQLDropMaterializedView>(m_before.materialized_views[i].name));
    lose("materialized view " + fold(m_before.materialized_views[i].name) + " is dropped: its data is lost");
  }
  for (std::size_t i = 0; i < m_before.views.size(); ++i) {
    if (!m_views.kept[i]) emit(m_w.Dropping<CSQLDropView>(m_before.views[i].name));
  }
}

void SchemaDiffer::sequences() {
  const std::vector<Sequence>& before = m_before.sequences;
  const std::vector<Sequence>& after = m_after.sequences;
  const Pairing p = pair(
      before,
      after,
      "sequences",
      [&](const Sequence& s) { return fold(s.name); },
      [&](const Sequence& s) { return fold(s.renamed_from); });
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!p.kept[i]) emit(m_w.Dropping<CSQLDropSequence>(before[i].name));
  }
  std::vector<Sequence> created;
  for (std::size_t i = 0; i < after.size(); ++i) {
    const std::string where = at("sequences", i);
    if (!p.oldOf[i]) {
      emit(m_w.Sequence(after[i], where));
      continue;
    }
    const Sequence& old = before[*p.oldOf[i]];
    if (fold(old.name) != fold(after[i].name)) rename(old.name, after[i].name, where);
    if (old.start_with != after[i].start_with && m_after.release < 9) {
      if (!m_options.allow_recreate) {
        throw Failure(
            kExitNeedsRecreate,
            where + ".start_with",
            "sequence " + after[i].name +
                ": START WITH changes, and ALTER SEQUENCE ... RESTART came with Oracle 12c Release 2 "
                "(18c); --allow-recreate drops the sequence and creates it anew");
      }
      emit(m_w.Dropping<CSQLDropSequence>(after[i].name));
      emit(m_w.Sequence(after[i], where));
      warn("sequence " + after[i].name + " is dropped and created anew: it starts again at " +
           (after[i].start_with.empty() ? std::string("its MINVALUE") : after[i].start_with));
      continue;
    }
    emit(m_w.AlterSequence(old, after[i], where));
  }
}

void SchemaDiffer::tables() {
  // Foreign keys that go away or change, on every kept table, before any key they hold is touched.
  for (const KeptTable& k : m_kept) {
    if (k.dropsKeys()) emit(Diff(oldTable(k), keysDropped(k), m_resolved));
  }
  for (std::size_t i = 0; i < m_oldTables.size(); ++i) {
    if (m_tablePairs.kept[i]) continue;
    const Table& t = m_oldTables[i];
    emit(m_w.Dropping<CSQLDropTable>(t.name, {{"CASCADE", "CASCADE CONSTRAINTS"}}));
    lose("table " + (t.schema.empty() ? "" : t.schema + ".") + t.name + " is dropped: its data is lost");
  }
  std::vector<Table> created;
  for (std::size_t i = 0; i < m_newTables.size(); ++i) {
    if (!m_tablePairs.oldOf[i]) created.push_back(m_newTables[i]);
  }
  for (const KeptTable& k : m_kept)
    emit(Diff(keysDropped(k), keysHeld(k), m_resolved));
  m_w.CreateTables(created, m_script);
  for (const KeptTable& k : m_kept) {
    if (k.holdsKeys())
      emit(Diff(withoutRenames(keysHeld(k)), withoutRenames(m_newTables[k.after]), m_resolved));
  }
}

void SchemaDiffer::views() {
  const std::vector<View>& after = m_after.views;
  std::vector<bool> write(after.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    const auto old = m_views.oldOf[i];
    if (old && fold(m_before.views[*old].name) != fold(after[i].name))
      rename(m_before.views[*old].name, after[i].name, at("views", i));
    write[i] = !old || !sameView(m_before.views[*old], after[i]);
  }
  // A view that names a table the script drops, or a table by its old name, is left invalid.
  for (std::size_t i = 0; i < after.size(); ++i) {
    for (const std::string& name : NamesIn(after[i].query)) {
      const bool dropped = (m_droppedTables.count(name) != 0 || m_renamedTables.count(name) != 0) &&
                           std::none_of(m_newTables.begin(), m_newTables.end(), [&](const Table& t) {
                             return t.name == name;
                           });
      if (dropped) {
        warn("view " + fold(after[i].name) + " names table " + name +
             ", which the script drops or renames: the view is left invalid" +
             (write[i] && !after[i].force ? ", and CREATE VIEW fails without force" : ""));
      }
    }
  }
  std::map<std::string, std::size_t> byName;
  for (std::size_t i = 0; i < after.size(); ++i)
    byName.emplace(fold(after[i].name), i);
  const std::vector<std::size_t> order = DependencyOrder(
      after.size(),
      [&](std::size_t v) {
        std::set<std::size_t> needs;
        for (const std::string& name : NamesIn(after[v].query)) {
          const auto found = byName.find(name);
          if (found != byName.end()) needs.insert(found->second);
        }
        return needs;
      },
      [&](std::size_t v, const std::set<std::size_t>&) {
        throw Failure(kExitBadInput,
                      at("views", v) + ".query",
                      "view " + after[v].name + " is part of a cycle of views naming each other");
      });
  for (std::size_t v : order) {
    if (write[v]) emit(m_w.View(after[v], at("views", v), m_views.oldOf[v].has_value()));
  }
}

void SchemaDiffer::laterObjects() {
  for (std::size_t i = 0; i < m_after.materialized_views.size(); ++i) {
    const std::string where = at("materialized_views", i);
    const auto old = m_mviews.oldOf[i];
    if (!old || m_mviewRecreated[i]) {
      emit(m_w.MaterializedView(m_after.materialized_views[i], where));
    } else {
      for (const std::string& text :
           m_w.AlterMaterializedView(m_before.materialized_views[*old], m_after.materialized_views[i], where))
        emit(text);
    }
  }
  for (std::size_t i = 0; i < m_after.synonyms.size(); ++i) {
    const auto old = m_synonyms.oldOf[i];
    if (!old || !sameSynonym(m_before.synonyms[*old], m_after.synonyms[i]))
      emit(m_w.Synonym(m_after.synonyms[i], at("synonyms", i)));
  }
  for (std::size_t i = 0; i < m_after.triggers.size(); ++i) {
    const auto old = m_triggers.oldOf[i];
    const Trigger& t = m_after.triggers[i];
    // A trigger goes with its table when the table is created anew.
    const bool lost = m_recreated.count(fold(t.table)) != 0;
    if (!old || lost || !sameTrigger(m_before.triggers[*old], t))
      emit(m_w.Trigger(t, at("triggers", i), old.has_value() && !lost));
  }
}

Script SchemaDiffer::run() {
  if (fold(m_before.name) != fold(m_after.name)) {
    throw Failure(kExitNeedsRecreate,
                  "schema",
                  "the schema changes from " + m_before.name + " to " + m_after.name +
                      ": a script cannot move objects between schemas");
  }
  if (m_after.release < 0 || m_after.release > kNewestRelease)
    create::Refuse("release", "unknown release code");
  if (m_options.if_exists) create::RequireRelease(m_after.release, 12, "--if-exists", "IF [NOT] EXISTS");
  if (m_before.release != m_after.release)
    warn("the documents name different releases; the script is written for the new one's");

  pairTables();
  auto name = [&](const auto& o) { return fold(o.name); };
  auto none = [](const auto&) { return std::string(); };
  m_triggers = pair(m_before.triggers, m_after.triggers, "triggers", name, none);
  m_synonyms = pair(
      m_before.synonyms,
      m_after.synonyms,
      "synonyms",
      [&](const Synonym& s) { return (s.is_public ? "PUBLIC " : "") + fold(s.name); },
      none);
  m_mviews = pair(m_before.materialized_views, m_after.materialized_views, "materialized_views", name, none);
  m_views =
      pair(m_before.views, m_after.views, "views", name, [&](const View& v) { return fold(v.renamed_from); });
  // Which kept tables the changes drop and create anew: their first statement is the DROP TABLE.
  planTables({});
  if (m_options.allow_recreate) {
    for (const KeptTable& k : m_kept) {
      Options probe = m_resolved;
      probe.allow_recreate = false;
      try {
        Diff(keysDropped(k), keysHeld(k), probe);
      } catch (const Failure& error) {
        if (error.code() == kExitNeedsRecreate) m_recreated.insert(m_newTables[k.after].name);
      }
    }
    if (!m_recreated.empty()) planTables(m_recreated);
  }

  dropObjects();
  sequences();
  tables();
  views();
  laterObjects();
  if (m_options.fail_on_data_loss) create::RefuseDataLoss(m_lost);
  return m_script;
}

}  // namespace

std::string ObjectWriter::Rename(const std::string& from, const std::string& to, const std::string& where) {
  CSQLRename statement(true, m_release);
  create::TreeFiller f(statement, "RENAME");
  f.Set("OBJECT", Id(from, where + ".renamed_from"), where + ".renamed_from");
  f.Set("TO", Id(to, where + ".name"), where + ".name");
  return f.Write();
}

std::string ObjectWriter::AlterSequence(const model::Sequence& before,
                                        const model::Sequence& after,
                                        const std::string& where) {
  CSQLAlterSequence statement(true, m_release);
  create::TreeFiller f(statement, "ALTER SEQUENCE");
  if (!m_schema.empty()) f.Set("SCHEMA", Id(m_schema, "schema"), "schema");
  f.Set("SEQUENCE", Id(after.name, where + ".name"), where + ".name");
  bool changed = false;
  // An option the new description leaves out goes back to Oracle's default.
  auto option = [&](const std::string& old, const std::string& now, const char* key, auto write) {
    if (old == now) return;
    changed = true;
    write(where + "." + key);
  };
  option(before.increment_by, after.increment_by, "increment_by", [&](const std::string& w) {
    create::CheckNumber(after.increment_by, -999999999999999999, 999999999999999999, w);
    f.Set("INCREMENT", after.increment_by.empty() ? "1" : after.increment_by, w);
  });
  for (const auto& [old, now, leaf, key] : {std::tuple<std::string, std::string, std::string, const char*>{
                                                before.maxvalue, after.maxvalue, "MAXVALUE", "maxvalue"},
                                            {before.minvalue, after.minvalue, "MINVALUE", "minvalue"}}) {
    option(old, now, key, [&, now = now, leaf = leaf](const std::string& w) {
      create::CheckNumber(now, -999999999999999999, 999999999999999999, w);
      f.Set(leaf, now.empty() ? "NO" + leaf : leaf, w);
      f.Set(leaf + ";VALUE", now, w);
    });
  }
  option(before.cycle, after.cycle, "cycle", [&](const std::string& w) {
    f.Set("CYCLE", after.cycle.empty() ? "NOCYCLE" : after.cycle, w);
  });
  option(before.cache, after.cache, "cache", [&](const std::string& w) {
    if (after.cache == "NOCACHE") {
      f.Set("CACHE", "NOCACHE", w);
      return;
    }
    if (!after.cache.empty()) create::CheckNumber(after.cache, 2, 999999999999999999, w);
    f.Set("CACHE", "CACHE", w);
    f.Set("CACHE;VALUE", after.cache.empty() ? "20" : after.cache, w);
  });
  option(before.order, after.order, "order", [&](const std::string& w) {
    f.Set("ORDER", after.order.empty() ? "NOORDER" : after.order, w);
  });
  option(before.start_with, after.start_with, "start_with", [&](const std::string& w) {
    create::RequireRelease(m_release, 9, w, "ALTER SEQUENCE ... RESTART");
    f.Set("RESTART", "RESTART", w);
    create::CheckNumber(after.start_with, -999999999999999999, 999999999999999999, w);
    f.Set("RESTART;START", after.start_with, w);
  });
  return changed ? f.Write() : std::string();
}

std::vector<std::string> ObjectWriter::AlterMaterializedView(const model::MaterializedView& before,
                                                             const model::MaterializedView& after,
                                                             const std::string& where) {
  std::vector<std::string> out;
  auto alter = [&](auto fill) {
    CSQLAlterMaterializedView statement(true, m_release);
    create::TreeFiller f(statement, "ALTER MATERIALIZED VIEW");
    qualify(f, "MVIEW", after.name, where);
    fill(f);
    out.push_back(f.Write());
  };
  if (before.refresh_method != after.refresh_method || before.refresh_on != after.refresh_on) {
    alter([&](create::TreeFiller& f) {
      // A refresh the new description leaves out goes back to Oracle's default, FORCE ON DEMAND.
      f.Set("C_REFRESH;FAST",
            after.refresh_method.empty() ? "FORCE" : after.refresh_method,
            where + ".refresh.method");
      if (m_release >= 2 || !after.refresh_on.empty()) {
        create::RequireRelease(m_release, 2, where + ".refresh.on", "REFRESH ON DEMAND or COMMIT");
        f.Set("C_REFRESH;ON", after.refresh_on.empty() ? "DEMAND" : after.refresh_on, where + ".refresh.on");
      }
    });
  }
  if (before.query_rewrite != after.query_rewrite) {
    create::RequireRelease(m_release, 2, where + ".query_rewrite", "QUERY REWRITE");
    alter([&](create::TreeFiller& f) {
      f.Set(
          "REWRITE", after.query_rewrite.empty() ? "DISABLE" : after.query_rewrite, where + ".query_rewrite");
    });
  }
  return out;
}

Script DiffSchema(const Schema& before, const Schema& after, const Options& options) {
  // No value of a host-built description may carry a second statement into the script.
  CheckExpressions(before, "old");
  CheckExpressions(after, "new");
  return SchemaDiffer(before, after, options).run();
}

}  // namespace qarvelt::model
