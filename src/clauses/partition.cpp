#include "qarvelt/clauses/partition.h"

#include <algorithm>

#include "lob_lists.h"
#include "qarvelt/clauses/storage.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

// ---- the parts of a partitioning clause that have no class of their own in the interface --------

namespace {

// "C_RANGE_PART": PARTITION BY RANGE (A) (PARTITION P1 ..., PARTITION P2 ...).
class CSQLClauseRangePart : public Cloneable<CSQLClauseRangePart> {
 public:
  explicit CSQLClauseRangePart(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_RANGE_PART", bInit);
  }

 protected:
  void init() override;
};

// "C_LIST_PART": PARTITION BY LIST (C) (PARTITION P1 VALUES ( ... ), ...).
class CSQLClauseListPart : public Cloneable<CSQLClauseListPart> {
 public:
  explicit CSQLClauseListPart(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_LIST_PART", bInit);
  }

 protected:
  void init() override;
};

// "C_COMPOSITE_PART": PARTITION BY RANGE (A), the subpartitioning, then the range partitions.
class CSQLClauseCompositePart : public Cloneable<CSQLClauseCompositePart> {
 public:
  explicit CSQLClauseCompositePart(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_COMPOSITE_PART", bInit);
  }

 protected:
  void init() override;
};

// "C_COMPOSITE_LIST_PART": PARTITION BY LIST (C), the subpartitioning, then the list partitions.
class CSQLClauseCompositeListPart : public Cloneable<CSQLClauseCompositeListPart> {
 public:
  explicit CSQLClauseCompositeListPart(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_COMPOSITE_LIST_PART", bInit);
  }

 protected:
  void init() override;
};

// "C_REFERENCE_PART": PARTITION BY REFERENCE (FK) (PARTITION P1 ..., ...).
class CSQLClauseReferencePart : public Cloneable<CSQLClauseReferencePart> {
 public:
  explicit CSQLClauseReferencePart(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_REFERENCE_PART", bInit);
  }

 protected:
  void init() override;
};

// "C_BY_QUANTITY": PARTITIONS 4 STORE IN (T1,T2) and the overflow tablespaces.
class CSQLClauseByQuantity : public Cloneable<CSQLClauseByQuantity> {
 public:
  explicit CSQLClauseByQuantity(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_BY_QUANTITY", bInit);
  }

 protected:
  void init() override;
};

// "C_SUBPART_TEMPLATE": the subpartitions every partition gets (CSubSQLItemTemplate items), or a
// partition-level subpartitioning. After the table's subpartitioning (`tableLevel`) the
// descriptions are a template, opened by SUBPARTITION TEMPLATE; below a partition the same node
// lists that partition's own subpartitions in bare brackets.
class CSQLClauseSubpartTemplate : public Cloneable<CSQLClauseSubpartTemplate> {
 public:
  explicit CSQLClauseSubpartTemplate(bool bInit = true, int nOraVersion = 7, bool tableLevel = false)
      : Cloneable(nOraVersion), m_tableLevel(tableLevel) {
    setup("C_SUBPART_TEMPLATE", bInit);
  }
  // A copy stays a template of the same level, also when it is built only later.
  CSQLClause* operator*() override {
    return cloneInto(new CSQLClauseSubpartTemplate(false, 7, m_tableLevel));
  }

 protected:
  void init() override;
  // The two levels build different trees.
  bool buildsFromOwnState() const override { return true; }

 private:
  bool m_tableLevel;
};

// "C_SUBPART_BY_LIST": SUBPARTITION BY LIST (C) and a template.
class CSQLClauseSubpartByList : public Cloneable<CSQLClauseSubpartByList> {
 public:
  explicit CSQLClauseSubpartByList(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_SUBPART_BY_LIST", bInit);
  }

 protected:
  void init() override;
};

// "C_SUBPART_BY_RANGE": SUBPARTITION BY RANGE (B) and a template.
class CSQLClauseSubpartByRange : public Cloneable<CSQLClauseSubpartByRange> {
 public:
  explicit CSQLClauseSubpartByRange(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_SUBPART_BY_RANGE", bInit);
  }

 protected:
  void init() override;
};

// "C_SUBPART_BY_HASH": SUBPARTITION BY HASH (B), then a number of subpartitions or a template.
class CSQLClauseSubpartByHash : public Cloneable<CSQLClauseSubpartByHash> {
 public:
  explicit CSQLClauseSubpartByHash(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_SUBPART_BY_HASH", bInit);
  }

 protected:
  void init() override;
};

// A bracketed, comma-separated list: key columns, bounds, tablespaces, partitions.
Node commaList(const char* name, const char* prefix = "(") {
  return list(name, ",", prefix, ")");
}

// SUBPARTITIONS 4 STORE IN (T1,T2): "QUANTITY" and its tablespaces "QUANTITY;LIST".
Node subpartitionsByQuantity() {
  return And({"SUBPARTITIONS", ""}, leaf("QUANTITY").with(commaList("LIST", "STORE IN (")));
}

// SUBPARTITIONS 4 STORE IN (T1,T2), or the subpartitions one by one ("LIST", opened by `open`).
Node subpartitionsOfPartition(const char* open) {
  return Or(leaf("SUBPARTITIONS", "SUBPARTITIONS ").with(commaList("LIST", "STORE IN (")),
            commaList("LIST", open));
}

// The template of the table's subpartitioning.
Node subpartitionTemplate() {
  return node(new CSQLClauseSubpartTemplate(true, 7, true));
}

// INTERVAL (expr) STORE IN (T1,T2) of a range partitioning, from Oracle 11g: "INTERVAL" holds the
// expression and its "LIST" the tablespaces.
Node interval(int v) {
  return when(v >= 7, leaf("INTERVAL", "INTERVAL (", ")").with(commaList("LIST", "STORE IN (")));
}

// The key of a list partitioning: one column ("COLUMN"), or from Oracle 12c Release 2 several
// ("COLUMNS"), then AUTOMATIC ("AUTOMATIC" set to AUTOMATIC).
Node listKey(int v) {
  return And(
      leaf("COLUMN", "(", "", ")"), when(v >= 9, commaList("COLUMNS")), when(v >= 9, leaf("AUTOMATIC")));
}

// The subpartitioning of a composite table: by list, by hash, or from Oracle 11g by range.
Node subpartitioning(int v) {
  return Or(clause<CSQLClauseSubpartByList>(7),
            clause<CSQLClauseSubpartByHash>(7),
            when(v >= 7, clause<CSQLClauseSubpartByRange>(7)));
}

// Nested clauses are built in the shape of Oracle 11g up to that release, and for the item's own
// release from Oracle 12c on.
int nested(const CSQLClause* item) {
  return std::max(item->GetOraVersion(), kLatestRelease);
}

// What the attributes of a partition, and of its overflow segment, may change.
Node segmentChanges(int nOraVersion) {
  return And(clause<CSQLClausePhysicalAttr>(nOraVersion),
             leaf("LOGGING"),
             clause<CSQLClauseAllocateExtent>(7),
             clause<CSQLClauseDeallocateUnused>(7));
}

}  // namespace

// ---- PARTITION BY ... ---------------------------------------------------------------------------

CSQLClauseTablePartition::CSQLClauseTablePartition(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_TABLE_PART", bInit);
}

void CSQLClauseTablePartition::init() {
  const int v = GetOraVersion();
  if (v < 3) {
    attach(this, clause<CSQLClauseRangePart>(v));
    return;
  }
  attach(this,
         Or(clause<CSQLClauseRangePart>(v),
            clause<CSQLClauseHashPart>(v),
            when(v >= 6, clause<CSQLClauseListPart>(v)),
            clause<CSQLClauseCompositePart>(v),
            when(v >= 7, clause<CSQLClauseCompositeListPart>(v)),
            when(v >= 7, clause<CSQLClauseReferencePart>(v))));
}

void CSQLClauseRangePart::init() {
  const int v = GetOraVersion();
  attach(this, And({"PARTITION BY RANGE", ""}, commaList("LIST"), interval(v), commaList("LISTSUB")));
}

CSQLClauseHashPart::CSQLClauseHashPart(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_HASH_PART", bInit);
}

void CSQLClauseHashPart::init() {
  attach(this,
         And({"PARTITION BY HASH", ""},
             commaList("LIST"),
             Or(commaList("LISTSUB"), clause<CSQLClauseByQuantity>(7))));
}

void CSQLClauseByQuantity::init() {
  attach(this,
         leaf("QUANTITY", "PARTITIONS "),
         commaList("LIST", "STORE IN ("),
         commaList("LISTOVERFLOW", "OVERFLOW STORE IN ("));
}

void CSQLClauseListPart::init() {
  attach(this, And({"PARTITION BY LIST", ""}, listKey(GetOraVersion()), commaList("LIST")));
}

void CSQLClauseCompositePart::init() {
  const int v = GetOraVersion();
  attach(this,
         And({"PARTITION BY RANGE", ""},
             commaList("LIST"),
             interval(v),
             subpartitioning(v),
             commaList("LISTSUB")));
}

// The partitions are CSubSQLItemList items, their subpartitions in "C_TAB_PART_DESC;C_PART_LEVEL_SUBPART".
void CSQLClauseCompositeListPart::init() {
  const int v = GetOraVersion();
  attach(this, And({"PARTITION BY LIST", ""}, listKey(v), subpartitioning(v), commaList("LIST")));
}

// The key is the name of a foreign key of the table; the partitions follow the parent table's.
void CSQLClauseReferencePart::init() {
  attach(this, And({"PARTITION BY REFERENCE", ""}, leaf("CONSTRAINT", "(", ")"), commaList("LIST")));
}

// The column leaf closes its own bracket, so the template follows it as a sibling.
void CSQLClauseSubpartByList::init() {
  attach(this, leaf("COLUMN", "SUBPARTITION BY LIST (", "", ")"), subpartitionTemplate());
}

void CSQLClauseSubpartByRange::init() {
  attach(this, And({"SUBPARTITION BY RANGE", ""}, commaList("LIST"), subpartitionTemplate()));
}

void CSQLClauseSubpartByHash::init() {
  attach(this,
         And({"SUBPARTITION BY HASH", ""},
             commaList("LIST"),
             Or(subpartitionsByQuantity(), subpartitionTemplate())));
}

// At table level the descriptions in either list, "LIST" or "C_PART_LEVEL_SUBPART;LIST", open the
// template: SUBPARTITION TEMPLATE (SUBPARTITION S1 VALUES ('A'), ...).
void CSQLClauseSubpartTemplate::init() {
  constexpr const char* kTemplate = "SUBPARTITION TEMPLATE (";
  if (m_tableLevel) {
    attach(
        this,
        Or(commaList("LIST", kTemplate), named("C_PART_LEVEL_SUBPART", subpartitionsOfPartition(kTemplate))));
  } else {
    attach(this, Or(commaList("LIST"), clause<CSQLClausePartLevelSubpart>(7)));
  }
}

CSQLClausePartLevelSubpart::CSQLClausePartLevelSubpart(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_PART_LEVEL_SUBPART", bInit);
}

void CSQLClausePartLevelSubpart::init() {
  attach(this, subpartitionsOfPartition("("));
}

// ---- partition items ----------------------------------------------------------------------------

CSQLClauseTablePartition::CSubSQLItemRange::CSubSQLItemRange(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseTablePartition::CSubSQLItemRange::CSubSQLItemRange(const char* name, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLClauseTablePartition::CSubSQLItemRange::CSubSQLItemRange(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseTablePartition::CSubSQLItemRange::init() {
  attach(this,
         And({"PARTITION", ""},
             leaf("PARTITION"),
             clause<CSQLClauseRangeValues>(7),
             clause<CSQLClauseTabPartitionDesc>(nested(this)),
             Or(subpartitionsByQuantity(), clause<CSQLClauseSubpartTemplate>(7))));
}

CSQLClauseTablePartition::CSubSQLItemHash::CSubSQLItemHash(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseTablePartition::CSubSQLItemHash::CSubSQLItemHash(const char* name, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLClauseTablePartition::CSubSQLItemHash::CSubSQLItemHash(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseTablePartition::CSubSQLItemHash::init() {
  attach(this,
         leaf("PARTITION", "PARTITION "),
         when(GetOraVersion() >= 9, leaf("INDEXING", "INDEXING ")),
         clause<CSQLClausePartitionStorage>(7));
}

CSQLClauseTablePartition::CSubSQLItemList::CSubSQLItemList(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseTablePartition::CSubSQLItemList::CSubSQLItemList(const char* name, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLClauseTablePartition::CSubSQLItemList::CSubSQLItemList(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseTablePartition::CSubSQLItemList::init() {
  attach(this,
         And({"PARTITION", ""},
             leaf("PARTITION"),
             clause<CSQLClauseListValues>(7),
             clause<CSQLClauseTabPartitionDesc>(nested(this))));
}

CSQLClauseTablePartition::CSubSQLItemTemplate::CSubSQLItemTemplate(const char* name)
    : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseTablePartition::CSubSQLItemTemplate::CSubSQLItemTemplate(const char* name, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLClauseTablePartition::CSubSQLItemTemplate::CSubSQLItemTemplate(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClauseTablePartition::CSubSQLItemTemplate::init() {
  attach(this,
         leaf("SUBPARTITION", "SUBPARTITION "),
         clause<CSQLClauseListValues>(7),
         when(GetOraVersion() >= 7, clause<CSQLClauseRangeValues>(7)),
         clause<CSQLClausePartitionStorage>(7));
}

// ---- new partitions and subpartitions, named by ADD, SPLIT and MERGE ---------------------------

CSQLClausePartitionSpec::CSQLClausePartitionSpec(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClausePartitionSpec::CSQLClausePartitionSpec(const char* name, int nOraVersion) : Cloneable(nOraVersion) {
  setup(name, true);
}

CSQLClausePartitionSpec::CSQLClausePartitionSpec(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_PARTITION_SPEC", bInit);
}

void CSQLClausePartitionSpec::init() {
  attach(this, And({"PARTITION", ""}, leaf("PARTITION"), clause<CSQLClauseTabPartitionDesc>(nested(this))));
}

CSQLClauseSubPartitionSpec::CSQLClauseSubPartitionSpec(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClauseSubPartitionSpec::CSQLClauseSubPartitionSpec(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_SUBPARTITION_SPEC", bInit);
}

void CSQLClauseSubPartitionSpec::init() {
  attach(this,
         And({"SUBPARTITION", ""},
             leaf("SUBPARTITION"),
             clause<CSQLClauseListValues>(7),
             when(GetOraVersion() >= 7, clause<CSQLClauseRangeValues>(7)),
             clause<CSQLClausePartitionStorage>(7)));
}

// ---- bounds -------------------------------------------------------------------------------------

CSQLClauseRangeValues::CSQLClauseRangeValues(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_RANGEVALUES", bInit);
}

void CSQLClauseRangeValues::init() {
  attach(this, commaList("LIST", "VALUES LESS THAN ("));
}

CSQLClauseListValues::CSQLClauseListValues(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_LISTVALUES", bInit);
}

void CSQLClauseListValues::init() {
  attach(this, Or({"VALUES (", ")"}, list("LIST", ",", "", ""), leaf("DEFAULT")));
}

// ---- storage and attributes of a partition ------------------------------------------------------

CSQLClausePartitionStorage::CSQLClausePartitionStorage(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_PARTITION_STORAGE", bInit);
}

// VARRAY V STORE AS [SECUREFILE | BASICFILE] LOB SEG: the segment name brings the LOB keyword, as
// Oracle 11g's SECUREFILE or BASICFILE ("SECUREFILE") comes between STORE AS and LOB.
void CSQLClausePartitionStorage::init() {
  attach(this,
         leaf("TABLESPACE", "TABLESPACE "),
         leaf("OVERFLOW").with(leaf("TABLESPACE", "TABLESPACE ")),
         list("LIST", " ", "", ""),
         leaf("VARRAY", "VARRAY ", " STORE AS")
             .with(when(GetOraVersion() >= 7, leaf("SECUREFILE")), leaf("LOB_SEGNAME", "LOB ")));
}

CSQLClausePartitionStorage::CSubSQLItemLOB::CSubSQLItemLOB(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLClausePartitionStorage::CSubSQLItemLOB::CSubSQLItemLOB(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLClausePartitionStorage::CSubSQLItemLOB::init() {
  attach(this,
         leaf("LOB").with(leaf("LOBITEM", "LOB (", "", ") STORE AS"),
                          Or(leaf("LOB_SEGNAME").with(leaf("TABLESPACE", "(TABLESPACE ", "", ")")),
                             leaf("TABLESPACE", "(TABLESPACE ", "", ")"))));
}

CSQLClausePartitionAttribute::CSQLClausePartitionAttribute(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_PARTITION_ATTRIBUTE", bInit);
}

void CSQLClausePartitionAttribute::init() {
  attach(this,
         segmentChanges(GetOraVersion()),
         leaf("OVERFLOW").with(segmentChanges(GetOraVersion())),
         leaf("COMPRESS"),
         lobItems("LIST", " ", LOBPlace::Attributes));
}

CSQLClauseTabPartitionDesc::CSQLClauseTabPartitionDesc(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("C_TAB_PART_DESC", bInit);
}

void CSQLClauseTabPartitionDesc::init() {
  attach(this,
         when(GetOraVersion() >= 8, leaf("INDEXING", "INDEXING ")),
         clause<CSQLClauseSegmentAttribute>(7),
         leaf("COMPRESS"),
         clause<CSQLClauseKeyCompression>(7),
         leaf("OVERFLOW", "OVERFLOW ").with(clause<CSQLClauseSegmentAttribute>(7)),
         lobItems("LIST", " ", LOBPlace::Storage),
         clause<CSQLClausePartLevelSubpart>(7));
}

// ---- global partitioned indexes -----------------------------------------------------------------

CSQLClauseGlobalPartitioning::CSQLClauseGlobalPartitioning(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_GLOBAL_PARTITIONING", bInit);
}

void CSQLClauseGlobalPartitioning::init() {
  attach(this,
         And({"PARTITION ", ""},
             leaf("PARTITION"),
             commaList("LIST", "VALUES LESS THAN ("),
             clause<CSQLClauseSegmentAttribute>(7)));
}

CSQLClauseGlobalPartitionIndex::CSQLClauseGlobalPartitionIndex(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_GLOBAL_PART_IDX", bInit);
}

void CSQLClauseGlobalPartitionIndex::init() {
  attach(this,
         And({"GLOBAL PARTITION BY RANGE ", ""},
             commaList("LIST"),
             And({"(", ")"}, clause<CSQLClauseGlobalPartitioning>(7))));
}

// ---- ADD SUBPARTITION ---------------------------------------------------------------------------

CSQLClauseAddHashSubPartition::CSQLClauseAddHashSubPartition(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_ADD_HASH_SUBPART", bInit);
}

void CSQLClauseAddHashSubPartition::init() {
  attach(this,
         And({"ADD ", ""},
             clause<CSQLClauseSubPartitionSpec>(7),
             leaf("UPDATE", "", " GLOBAL INDEXES"),
             clause<CSQLClauseParallel>(7)));
}

CSQLClauseAddListSubPartition::CSQLClauseAddListSubPartition(bool bInit, int nOraVersion)
    : Cloneable(nOraVersion) {
  setup("C_ADD_LIST_SUBPART", bInit);
}

void CSQLClauseAddListSubPartition::init() {
  attach(this, And({"ADD ", ""}, clause<CSQLClauseSubPartitionSpec>(7)));
}

}  // namespace qarvelt
