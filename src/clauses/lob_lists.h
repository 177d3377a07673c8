// Lists of LOB and varray items, used inside the library.
//
// Oracle writes the same LOB item in two ways, by the place where it stands. Where storage is
// described (a partition's description, MOVE) the parameters follow STORE AS:
//   LOB (C) STORE AS (CHUNK 8192)         VARRAY V STORE AS LOB (CHUNK 8192)
// where the attributes of a partition, a subpartition or a column change (MODIFY DEFAULT ATTRIBUTES,
// MODIFY PARTITION, MODIFY SUBPARTITION, the MODIFY of columns) they follow the item alone:
//   LOB (C) (CACHE)                       VARRAY V (CACHE)
// An item class is the same whichever list a host appends it to, so the list gives every item it
// takes the keywords of its place, once, when the item is appended. The keywords are prefixes of the
// item's own nodes, so clones of the item keep them.
#ifndef QARVELT_SRC_CLAUSES_LOB_LISTS_H
#define QARVELT_SRC_CLAUSES_LOB_LISTS_H

#include "qarvelt/core/builder.h"
#include "qarvelt/core/list.h"

namespace qarvelt {

enum class LOBPlace {
  Storage,     // LOB (C) STORE AS (...)
  Attributes,  // LOB (C) (...)
};

// Gives a LOB or varray item the keywords of `place`: CSQLClauseLOBItem and CSQLClauseLOBItemB,
// CSQLClauseModifyLOBStorage (MODIFY LOB (C) becomes LOB (C) among attributes), CSQLClauseLOBStorage
// and the items that hold one ("C_LOB_STORAGE"). Any other node is left as it is.
void PlaceLOBItem(CSQLClause* item, LOBPlace place);

class CSQLLOBItemList : public CSQLList {
 public:
  CSQLLOBItemList(const char* name, const char* separator, LOBPlace place);
  explicit CSQLLOBItemList(bool bInit = true, int nOraVersion = kLatestRelease);

  using CSQLList::AddAttr;
  // An item appended to this list itself (a null path) takes the keywords of the list's place.
  int AddAttr(const char* path, CSQLClause* node) override;
  void Copy(CSQLClause* target) override;
  CSQLClause* operator*() override;

 private:
  LOBPlace m_place = LOBPlace::Storage;
};

namespace build {

// A list of LOB and varray items for `place`, without brackets: the builder word for the lists above.
Node lobItems(const char* name, const char* separator, LOBPlace place);

}  // namespace build

}  // namespace qarvelt

#endif  // QARVELT_SRC_CLAUSES_LOB_LISTS_H
