// The statement trees by name: the library's statement kinds, the item classes a host appends to
// lists and which lists take which items, with the calls that make, fill and write a tree by name
// and path. `qarvelt kinds`, `paths` and `render`, the Python module and the README's tables are
// derived from these tables; a new statement or item class is added here and nowhere else.
#ifndef QARVELT_MODEL_REGISTRY_H
#define QARVELT_MODEL_REGISTRY_H

#include <memory>
#include <string>
#include <vector>

#include "qarvelt/core/clause.h"
#include "qarvelt/model/script.h"

namespace qarvelt::model {

// A statement kind: its Oracle name ("CREATE TABLE"), its class ("CSQLCreateTable") and a factory
// that builds its tree for a release code.
struct StatementKind {
  const char* name;
  const char* class_name;
  std::unique_ptr<CSQLClause> (*make)(int release);
};

// A class whose objects a host appends to a list: built under the item's name (a column item is
// named after its column); the release code reaches the classes whose constructor takes one.
struct ItemClass {
  const char* class_name;
  std::unique_ptr<CSQLClause> (*make)(const char* name, int release);
};

// Which item classes a list takes. The list is recognised by the end of its path: `tail` is matched
// segment by segment against the last segments of the path, "*" matching any one segment (the name
// of an item on the way). The longest matching tail wins.
struct ListItems {
  const char* tail;
  std::vector<const char*> classes;
};

const std::vector<StatementKind>& StatementKinds();
const std::vector<ItemClass>& ItemClasses();
const std::vector<ListItems>& ListItemTable();

// The statement kind named `name` (Oracle name, blanks and letter case aside, or class name); null
// when there is none.
const StatementKind* FindKind(const std::string& name);
// The item class named `name` (letter case aside); null when there is none.
const ItemClass* FindItemClass(const std::string& name);
// The Oracle names of the statement kinds, and the class names of the item classes: the candidates
// of "did you mean".
std::vector<std::string> KindNames();
std::vector<std::string> ItemClassNames();
// The item classes that the list at `path` takes; empty when the table does not know the list.
std::vector<std::string> ItemsOfList(const std::string& path);

// One attribute path of a tree, with the node it reaches.
struct PathEntry {
  enum class Kind { Leaf, Clause, List };
  std::string path;
  Kind kind;
  const CSQLClause* node;
};

// Every attribute path below `root` in tree order, list items included; containers give no path of
// their own. A path is given once: where two nodes share one, only the first is reached by it.
std::vector<PathEntry> TreePaths(const CSQLClause& root);
// The paths alone, for "did you mean".
std::vector<std::string> PathNames(const std::vector<PathEntry>& entries);
// One line of the `paths` listing: path, kind, texts and, for a list, the items it takes. `context`
// is the path of the tree that the listed one stands in, when it is an item ("" for a statement).
std::string DescribePath(const PathEntry& entry, const std::string& context = "");

// ---- a statement tree, one call at a time (what `qarvelt render` does with a document) ----------

// A new tree of the statement kind `kind` (as KindNames() gives it, or its class name). Throws Error
// (BadInput) naming the nearest kinds.
std::unique_ptr<CSQLClause> MakeStatement(const std::string& kind, int release);
// A new item of `itemClass` named `name`. Throws Error (BadInput) naming the nearest classes.
std::unique_ptr<CSQLClause> MakeItem(const std::string& itemClass, const std::string& name, int release);
// Sets the value (or, with `initial`, the initial value) at `path` below `root`. An unknown path
// throws Error (BadInput) naming the nearest paths; a value the leaf refuses, Error (Refused).
void SetPath(CSQLClause& root, const std::string& path, const std::string& value, bool initial = false);
// Appends a new item of `itemClass` named `name` to the list at `listPath` below `root`. No list
// there, or an unknown class, throws Error (BadInput).
void AddItem(CSQLClause& root,
             const std::string& listPath,
             const std::string& itemClass,
             const std::string& name,
             int release);
// The statements of every writing pass: write, RefreshUsed, again while changes are left unwritten.
std::vector<std::string> Passes(CSQLClause& root);

// `qarvelt render`: a statement from a statement document (see the README).
Script Render(const std::string& json, const std::string& source = "document");
// The listings of `qarvelt paths`, `qarvelt kinds` and `qarvelt types`, one entry per line.
std::string PathListing(const std::string& kind, int release);
std::string KindListing();
std::string TypeListing(int release);

}  // namespace qarvelt::model

#endif  // QARVELT_MODEL_REGISTRY_H
