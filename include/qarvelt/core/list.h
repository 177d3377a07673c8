// A list of repeated items of one kind (columns of ADD ( ... ), degrees of a parallel clause, ...).
//
// The host builds each item from the item class nested in the clause that owns the list, names it
// (a column item is named after its column) and appends it with AddAttr on the list's path. An item is
// addressed by the list's name, the item's name and the path inside the item: "LIST;EMPNO;DEFAULT".
//
// Items are written in order between the list's prefix and postfix: the first item's text as it
// stands, then for every later item that writes something the separator and its trimmed text. The
// separator is written before every later item even when an earlier one wrote nothing, so with prefix
// "ADD (" and separator "," a first item without text gives ADD (,ENAME DATE).
#ifndef QARVELT_CORE_LIST_H
#define QARVELT_CORE_LIST_H

#include "qarvelt/core/clause.h"

namespace qarvelt {

class CSQLList : public CSQLClause {
 public:
  explicit CSQLList(const char* name,
                    const char* separator = " ",
                    const char* prefix = "",
                    const char* postfix = "");
  // An empty list named "LIST" with the separator " ".
  explicit CSQLList(bool bInit = true, int nOraVersion = kLatestRelease);
  ~CSQLList() override;

  int GetModifiedSQL(const char* path, std::string& text) override;
  // Removes and deletes the first item named by the path's first segment (case-sensitive); 4 when no
  // item has that name.
  int RemoveAttr(const char* path) override;
  // Deletes every item; the list keeps its own texts.
  void Clear() override;
  void Copy(CSQLClause* target) override;
  CSQLClause* operator*() override;

  std::string GetSeparator() const { return m_strSeparator; }

 protected:
  int preModifiedSQL(const char* path, std::string& text) override;
  int postModifiedSQL(const char* path, std::string& text) override;

 private:
  std::string m_strSeparator = " ";
};

}  // namespace qarvelt

#endif  // QARVELT_CORE_LIST_H
