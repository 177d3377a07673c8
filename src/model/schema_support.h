// What the CREATE and the ALTER scripts of a schema share: the dependency order, the names a query
// mentions, and the statements of the objects beside tables.
#ifndef QARVELT_MODEL_SCHEMA_SUPPORT_H
#define QARVELT_MODEL_SCHEMA_SUPPORT_H

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "create_support.h"
#include "qarvelt/model/schema.h"

namespace qarvelt::model {

// Orders `count` items so that each comes after the items it depends on (positions; an item's own
// position is ignored), and otherwise in the order of their positions. When every item left waits
// on another, the first one that is part of a cycle is placed all the same, after `breakCycle` is
// told which items it still waits on (it may throw to refuse the cycle).
std::vector<std::size_t> DependencyOrder(
    std::size_t count,
    const std::function<std::set<std::size_t>(std::size_t)>& dependsOn,
    const std::function<void(std::size_t, const std::set<std::size_t>&)>& breakCycle);

// The names a query or condition mentions: words in upper case, quoted names as they are; string
// literals are skipped.
std::set<std::string> NamesIn(const std::string& text);

// The statements of one schema's objects, for its release and options.
class ObjectWriter {
 public:
  ObjectWriter(std::string schema, int release, const Options& options);

  // `name` folded as the options say, and as a statement writes it.
  std::string Fold(const std::string& name) const;
  std::string Id(const std::string& name, const std::string& where) const;

  std::string Sequence(const model::Sequence& s, const std::string& where);
  std::string View(const model::View& v, const std::string& where, bool orReplace);
  std::string MaterializedView(const model::MaterializedView& m, const std::string& where);
  std::string Synonym(const model::Synonym& s, const std::string& where);
  std::string Trigger(const model::Trigger& t, const std::string& where, bool orReplace);
  // RENAME from TO to (objects of the user who runs the script: RENAME takes no schema).
  std::string Rename(const std::string& from, const std::string& to, const std::string& where);
  // ALTER SEQUENCE with the options that change (one left out goes back to Oracle's default), and
  // RESTART START WITH for a changed start; "" when nothing changes.
  std::string AlterSequence(const model::Sequence& before,
                            const model::Sequence& after,
                            const std::string& where);
  // ALTER MATERIALIZED VIEW statements for a changed refresh and query rewrite.
  std::vector<std::string> AlterMaterializedView(const model::MaterializedView& before,
                                                 const model::MaterializedView& after,
                                                 const std::string& where);
  // DROP statements; `more` sets further leaves (CASCADE, PUBLIC, ...).
  template <class Drop>
  std::string Dropping(const std::string& name, std::vector<std::pair<const char*, std::string>> more = {});

  // The schema's tables with the schema-level indexes attached to them and every name resolved.
  std::vector<Table> Tables(const Schema& schema) const;
  // CREATE statements of `tables` in foreign-key order; the foreign keys that close a cycle are added
  // by ALTER TABLE afterwards.
  void CreateTables(const std::vector<Table>& tables, Script& script) const;

 private:
  void qualify(create::TreeFiller& f,
               const char* nameLeaf,
               const std::string& name,
               const std::string& where) const;

  void guard(create::TreeFiller& f) const;

  std::string m_schema;
  int m_release;
  const Options& m_options;
};

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_SCHEMA_SUPPORT_H
