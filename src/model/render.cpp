// `qarvelt render`: any statement of the library from a statement document, which names the kind,
// the release, the items to append to lists and the values to set by attribute path:
//
//   {"kind": "ALTER TABLE", "release": "10g",
//    "values": {"SCHEMA": "SCOTT", "TABLE": "EMP"},
//    "init": {"C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE": "10"},
//    "items": [{"list": "...;LIST", "class": "...", "name": "EMPNO", "values": {...}, "items": [...]}]}
//
// Items come first (depth first), then every "init", then every "values"; an item's paths are
// relative to the item. The statement is then written pass by pass, one statement per pass, as long
// as changes are left that no pass has written.
#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include <qarvelt/qarvelt.h>

#include "commands.h"
#include "json_reader.h"
#include "qarvelt/model/statements.h"

namespace qarvelt::model {

namespace {

// More passes than any statement of the library needs; a tree that keeps writing stops here.
constexpr int kMaxPasses = 64;

using Values = std::vector<std::pair<std::string, std::string>>;

struct ItemDocument {
  std::string where;  // the item's place in the document, for messages
  std::string list;   // the list's path, relative to the statement or to the enclosing item
  const ItemClass* item_class = nullptr;
  std::string name;
  Values values, init;
  std::vector<ItemDocument> items;
  CSQLClause* node = nullptr;  // the item once appended
  std::string path;            // its path from the statement's root
};

struct StatementDocument {
  std::string where;
  const StatementKind* kind = nullptr;
  int release = 10;  // Oracle 19c, as for table documents
  Values values, init;
  std::vector<ItemDocument> items;
};

// A path-to-text object: texts, or numbers taken as their text.
Values readValues(ObjectReader& reader, const char* key) {
  Values values;
  const Json* object = reader.Raw(key);
  if (object == nullptr) return values;
  if (!object->is_object()) reader.Fail(key, std::string("expected an object, got ") + object->type_name());
  for (auto it = object->begin(); it != object->end(); ++it) {
    const Json& value = it.value();
    std::string text;
    if (value.is_string()) {
      text = value.get<std::string>();
    } else if (value.is_number_integer()) {
      text = std::to_string(value.get<long long>());
    } else if (value.is_number()) {
      text = value.dump();
    } else {
      reader.Fail(std::string(key) + "." + it.key(),
                  std::string("expected a string, got ") + value.type_name());
    }
    values.emplace_back(it.key(), text);
  }
  return values;
}

// Items inside items go no deeper than any statement's lists do; deeper documents are refused
// before they can exhaust the stack.
constexpr int kMaxItemDepth = 32;

void readItems(ObjectReader& reader, std::vector<ItemDocument>& items, int depth = 1) {
  if (depth > kMaxItemDepth && reader.Raw("items") != nullptr) {
    reader.Fail("items", "items nested deeper than " + std::to_string(kMaxItemDepth) + " levels");
  }
  reader.Each("items", [&](ObjectReader& r) {
    ItemDocument item;
    item.where = r.Where();
    item.list = r.Text("list", true);
    const std::string className = r.Text("class", true);
    item.item_class = FindItemClass(className);
    if (item.item_class == nullptr) {
      r.Fail("class",
             "unknown item class \"" + className + "\"; did you mean " +
                 JoinAlternatives(Nearest(className, ItemClassNames())) + "?");
    }
    item.name = r.Text("name", true);
    if (item.name.find(';') != std::string::npos) r.Fail("name", "an item name cannot hold \";\"");
    item.values = readValues(r, "values");
    item.init = readValues(r, "init");
    readItems(r, item.items, depth + 1);
    items.push_back(std::move(item));
  });
}

StatementDocument readDocument(const std::string& text, const std::string& source) {
  const Json json = ParseJson(text, source);
  ObjectReader r(json, source);
  StatementDocument doc;
  doc.where = source;
  const std::string kind = r.Text("kind", true);
  doc.kind = FindKind(kind);
  if (doc.kind == nullptr) {
    r.Fail("kind",
           "unknown statement kind \"" + kind + "\"; did you mean " +
               JoinAlternatives(Nearest(kind, KindNames())) + "?");
  }
  const std::string release = r.Text("release");
  if (!release.empty()) doc.release = ReadRelease(release, source + ".release");
  doc.values = readValues(r, "values");
  doc.init = readValues(r, "init");
  readItems(r, doc.items);
  r.Done();
  return doc;
}

std::string join(const std::string& base, const std::string& path) {
  if (base.empty()) return path;
  if (path.empty()) return base;
  return base + ";" + path;
}

std::string didYouMean(const std::string& word, const std::vector<std::string>& candidates) {
  if (candidates.empty()) return "";
  return "; did you mean " + JoinAlternatives(Nearest(word, candidates)) + "?";
}

// Appends an item, then its own items, below `owner` (the statement or the enclosing item).
void appendItem(
    CSQLClause& owner, const std::string& ownerPath, ItemDocument& item, int release, Script& script) {
  const std::string listPath = join(ownerPath, item.list);
  CSQLClause* list = owner.GetClause(item.list.c_str());
  if (dynamic_cast<CSQLList*>(list) == nullptr) {
    std::vector<std::string> lists;
    for (const PathEntry& entry : TreePaths(owner)) {
      if (entry.kind == PathEntry::Kind::List) lists.push_back(entry.path);
    }
    throw Failure(kExitBadInput,
                  item.where + ".list",
                  (list == nullptr ? "no list at \"" : "not a list: \"") + item.list + "\"" +
                      didYouMean(item.list, lists));
  }
  const std::vector<std::string> takes = ItemsOfList(listPath);
  const std::string className = item.item_class->class_name;
  if (!takes.empty() && std::find(takes.begin(), takes.end(), className) == takes.end()) {
    script.warnings.push_back(item.where + ": the list " + listPath + " takes " + JoinAlternatives(takes) +
                              ", not " + className);
  }
  std::unique_ptr<CSQLClause> node = item.item_class->make(item.name.c_str(), release);
  item.node = node.get();
  item.path = join(listPath, item.name);
  if (list->AddAttr(nullptr, std::move(node)) != SQL_OK) {
    throw Failure(kExitFailure, item.where + ": the list " + listPath + " refused the item");
  }
  for (ItemDocument& nested : item.items)
    appendItem(*item.node, item.path, nested, release, script);
}

enum class Slot { Init, Value };

int assign(CSQLClause& node, const char* path, const std::string& value, Slot slot) {
  return slot == Slot::Init ? node.SetInit(path, value.c_str()) : node.SetValue(path, value.c_str());
}

// Sets one value by a path relative to `node`. An unknown path is bad input; a value that the leaf's
// validator refuses is a failure of the run.
void setOne(CSQLClause& node,
            const std::string& nodePath,
            const std::string& where,
            const std::string& path,
            const std::string& value,
            Slot slot) {
  // The empty path is the item itself (a leaf item takes its value so); a statement has no value.
  const bool self = path.empty() && !nodePath.empty();
  const char* p = self ? nullptr : path.c_str();
  if (!path.empty() || self) {
    if (assign(node, p, value, slot) == SQL_OK) return;
    // The walk says 4 both for no such node and for a refusal deeper down: ask the leaf itself.
    if (CSQLClause* target = node.GetClause(p)) {
      const int result = assign(*target, nullptr, value, slot);
      if (result == SQL_OK) return;
      if (result != SQL_NOT_FOUND) {
        throw Failure(kExitFailure, where, join(nodePath, path) + " refuses the value \"" + value + "\"");
      }
    }
  }
  throw Failure(kExitBadInput,
                where,
                "unknown path \"" + path + "\"" + (nodePath.empty() ? "" : " in " + nodePath) +
                    didYouMean(path, PathNames(TreePaths(node))));
}

void setAll(CSQLClause& node,
            const std::string& nodePath,
            const std::string& where,
            const Values& values,
            Slot slot) {
  const std::string key = slot == Slot::Init ? ".init" : ".values";
  for (const auto& [path, value] : values)
    setOne(node, nodePath, where + key, path, value, slot);
}

void setItems(std::vector<ItemDocument>& items, Slot slot) {
  for (ItemDocument& item : items) {
    setAll(*item.node, item.path, item.where, slot == Slot::Init ? item.init : item.values, slot);
    setItems(item.items, slot);
  }
}

// One statement per pass. Every pass withdraws what it wrote; a tree that writes a statement again,
// or twice in a row writes nothing while changes are left, is stopped with a warning.
void writePasses(CSQLClause& root, Script& script) {
  std::set<std::string> written;
  int idle = 0;
  for (int pass = 1;; ++pass) {
    std::string statement;
    root.GetModifiedSQL("*", statement);
    Trim(statement);
    if (statement.empty()) {
      ++idle;
    } else if (!written.insert(statement).second) {
      script.warnings.push_back("pass " + std::to_string(pass) +
                                " wrote a statement already written; the rest is left out");
      break;
    } else {
      idle = 0;
      script.statements.push_back(statement);
    }
    root.RefreshUsed();
    if (!root.hasUnused()) break;
    if (idle >= 2 || pass == kMaxPasses) {
      script.warnings.push_back("changes are left that no pass writes; stopped after pass " +
                                std::to_string(pass));
      break;
    }
  }
}

}  // namespace

Script Render(const std::string& text, const std::string& source) {
  StatementDocument doc = readDocument(text, source);
  std::unique_ptr<CSQLClause> root = doc.kind->make(doc.release);
  Script script;

  for (ItemDocument& item : doc.items)
    appendItem(*root, "", item, doc.release, script);
  setAll(*root, "", doc.where, doc.init, Slot::Init);
  setItems(doc.items, Slot::Init);
  setAll(*root, "", doc.where, doc.values, Slot::Value);
  setItems(doc.items, Slot::Value);

  writePasses(*root, script);
  if (script.statements.empty()) script.warnings.push_back(doc.where + ": the statement writes nothing");
  return script;
}

// ---- the statement trees, one call at a time ----------------------------------------------------

std::unique_ptr<CSQLClause> MakeStatement(const std::string& kind, int release) {
  const StatementKind* found = FindKind(kind);
  if (found == nullptr) {
    throw Failure(
        kExitBadInput, "kind", "unknown statement kind \"" + kind + "\"" + didYouMean(kind, KindNames()));
  }
  return found->make(release);
}

namespace {

// The class of an item a host names, with its name checked: the checks of MakeItem and AddItem.
const ItemClass& checkedItem(const std::string& itemClass, const std::string& name) {
  const ItemClass* found = FindItemClass(itemClass);
  if (found == nullptr) {
    throw Failure(kExitBadInput,
                  "item class",
                  "unknown item class \"" + itemClass + "\"" + didYouMean(itemClass, ItemClassNames()));
  }
  if (name.empty() || name.find(';') != std::string::npos)
    throw Failure(kExitBadInput, "item name", "an item needs a name without \";\"");
  return *found;
}

}  // namespace

std::unique_ptr<CSQLClause> MakeItem(const std::string& itemClass, const std::string& name, int release) {
  return checkedItem(itemClass, name).make(name.c_str(), release);
}

void SetPath(CSQLClause& root, const std::string& path, const std::string& value, bool initial) {
  setOne(root, "", "", path, value, initial ? Slot::Init : Slot::Value);
}

void AddItem(CSQLClause& root,
             const std::string& listPath,
             const std::string& itemClass,
             const std::string& name,
             int release) {
  ItemDocument item;
  item.where = "item " + name;
  item.list = listPath;
  item.item_class = &checkedItem(itemClass, name);
  item.name = name;
  Script ignored;
  appendItem(root, "", item, release, ignored);
}

std::vector<std::string> Passes(CSQLClause& root) {
  Script script;
  writePasses(root, script);
  return script.statements;
}

}  // namespace qarvelt::model
