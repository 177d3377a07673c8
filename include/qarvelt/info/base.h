// Information records: an object's properties as named values (initial and current text), loaded by
// the caller and turned into statement trees by BuildSQL.
//
//   record.SetSQLValue("PCTFREE", "20", "10");   // new text, old text: loads both sides at once
//   record.SetSQLValue("PCTFREE", "25");         // a later edit of the current side
//
// Unknown value names are ignored; GetSQLValue of an unknown name returns a shared empty value.
#ifndef QARVELT_INFO_BASE_H
#define QARVELT_INFO_BASE_H

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "qarvelt/info/value.h"

namespace qarvelt {

class CSQLClause;

class CSQLInfoBase {
 public:
  CSQLInfoBase();
  virtual ~CSQLInfoBase();

  CSQLInfoBase(const CSQLInfoBase&) = delete;
  CSQLInfoBase& operator=(const CSQLInfoBase&) = delete;

  std::string GetClass() const { return m_strClass; }
  std::string GetName() const { return m_strName; }

  // The registered value of that type, or the shared empty value (which callers must not change).
  CSQLValue& GetSQLValue(const char* type);
  // Loads a value. With `init` null: the current text only. Otherwise initial and current text become
  // `init`, and then a non-empty `value` becomes the current text. Unknown names are ignored.
  virtual void SetSQLValue(const char* type, const char* value, const char* init = nullptr);
  // Fills `clause` (and, for records that render statements themselves, appends finished texts of
  // `statement` to `out`). `what` selects part of the work; "" is all of it. 0 on success.
  virtual int BuildSQL(std::string what,
                       CSQLClause* clause,
                       CSQLClause* statement,
                       std::vector<std::string>* out,
                       const char* extra);
  // With a type: whether that value is modified (false for unknown names). With null: whether any is.
  virtual bool IsModified(const char* type = nullptr);
  // Whether a value whose type does not begin with `prefix` is modified.
  virtual bool IsModifiedExcept(const char* prefix);
  // Every current text goes back to its initial text.
  virtual void Reset();

  // An item's name as it exists now: its "NAME" as loaded, else the record's own name; and as it
  // will be: the current "NAME", else the existing name. A changed "NAME" is a rename.
  std::string ExistingName();
  std::string WantedName();

  // Writes `statement` along `path`, trims the text on both sides, appends it to `out` when it is not
  // empty, then clears `node` (the part of the tree just used) for the next statement.
  static void RenderAndClear(CSQLClause* statement,
                             const char* path,
                             CSQLClause* node,
                             std::vector<std::string>* out);

 protected:
  // Registers the record's properties; each record's constructor calls its own init().
  virtual void init();
  void registerValues(std::initializer_list<const char*> types);
  void registerValue(std::unique_ptr<CSQLValue> value);
  void setName(const char* name) { m_strName = name != nullptr ? name : ""; }
  // The change of a value (its current text when modified, else ""), by type.
  std::string changeOf(const char* type) { return *GetSQLValue(type); }

  std::string m_strClass;
  std::string m_strName;
  std::vector<std::unique_ptr<CSQLValue>> m_values;
};

// Change marks of collection items.
enum SQLItemMark : int {
  ITEM_EXISTING = 0,  // in the database and kept
  ITEM_ADDED = 1,     // added by the caller
  ITEM_DROPPED = 2,   // dropped by the caller
  ITEM_UNUSED = 4,    // a column set unused
};

// The bookkeeping that every collection record shares: items in the order added, one change mark
// per position, and a counter for generated names. Collections expose it under their own names
// (AddColumn, DropConstraint, GetPartition, ...).
//
// Removing an item outright leaves the marks list as it is, so the marks of later items stay at
// their old positions: remove only items you added yourself.
template <class Item>
class CSQLInfoCollection : public CSQLInfoBase {
 public:
  int GetCount() const { return static_cast<int>(m_items.size()); }
  bool IsAdd(int index) const { return markAt(index) == ITEM_ADDED; }
  bool IsAdd(const char* name) const { return markAt(indexOf(name)) == ITEM_ADDED; }
  bool IsDrop(int index) const { return markAt(index) == ITEM_DROPPED; }
  bool IsDrop(const char* name) const { return markAt(indexOf(name)) == ITEM_DROPPED; }
  int GetNewAttr() { return m_nNextAttr++; }
  int GetLastAttr() const { return m_nNextAttr; }
  std::string GetNewAttrStr() { return std::to_string(GetNewAttr()); }

  // Own values or any item modified, or any item added, dropped or set unused.
  bool IsModified(const char* type = nullptr) override {
    if (type != nullptr) return CSQLInfoBase::IsModified(type);
    if (CSQLInfoBase::IsModified(nullptr)) return true;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
      if (m_items[i]->IsModified(nullptr) || markAt(static_cast<int>(i)) != ITEM_EXISTING) return true;
    }
    return false;
  }

  // Resets the own values, then empties the collection.
  void Reset() override {
    CSQLInfoBase::Reset();
    for (auto& item : m_items)
      item->Reset();
    m_items.clear();
    m_marks.clear();
    m_nNextAttr = 0;
  }

 protected:
  // 7 when the name is taken; else appends the item with mark 0 (existing) or 1 (added).
  template <class... Args>
  int addItem(const char* name, bool existing, Args&&... args) {
    if (indexOf(name) >= 0) return 7;
    m_items.push_back(std::make_unique<Item>(name, std::forward<Args>(args)...));
    m_marks.push_back(existing ? ITEM_EXISTING : ITEM_ADDED);
    return 0;
  }
  // 4 for an unknown name; removes the item outright or marks it.
  int dropItem(const char* name, bool remove, int mark = ITEM_DROPPED) {
    const int index = indexOf(name);
    if (index < 0) return 4;
    if (remove) {
      m_items.erase(m_items.begin() + index);
    } else {
      setMark(index, mark);
    }
    return 0;
  }
  // 4 for an unknown name; a mark in `marks` goes back to existing.
  int undropItem(const char* name, std::initializer_list<int> marks = {ITEM_DROPPED}) {
    const int index = indexOf(name);
    if (index < 0) return 4;
    for (int mark : marks) {
      if (markAt(index) == mark) setMark(index, ITEM_EXISTING);
    }
    return 0;
  }
  Item* itemAt(int index) const {
    if (index < 0 || index >= GetCount()) return nullptr;
    return m_items[static_cast<std::size_t>(index)].get();
  }
  Item* itemNamed(const char* name) const { return itemAt(indexOf(name)); }
  int indexOf(const char* name) const {
    const std::string wanted = name != nullptr ? name : "";
    for (std::size_t i = 0; i < m_items.size(); ++i) {
      if (m_items[i]->GetName() == wanted) return static_cast<int>(i);
    }
    return -1;
  }
  int markAt(int index) const {
    if (index < 0 || index >= GetCount() || index >= static_cast<int>(m_marks.size())) return -1;
    return m_marks[static_cast<std::size_t>(index)];
  }
  void setMark(int index, int mark) {
    if (index >= 0 && index < static_cast<int>(m_marks.size()))
      m_marks[static_cast<std::size_t>(index)] = mark;
  }

  std::vector<std::unique_ptr<Item>> m_items;
  std::vector<int> m_marks;
  int m_nNextAttr = 0;
};

}  // namespace qarvelt

#endif  // QARVELT_INFO_BASE_H
