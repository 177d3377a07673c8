// Table partition and LOB partition records: the statements a run writes, their order, error codes.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "qarvelt/info/lob_partitions.h"
#include "qarvelt/info/partitions.h"
#include "qarvelt/info/table.h"
#include "qarvelt/statements/alter_table.h"
#include "qarvelt/util/util.h"

namespace qarvelt::testing {
namespace {

using Texts = std::vector<std::string>;
using Parts = CSQLInfoPartitions;

struct Result {
  int code;
  Texts out;
};

// Runs an entry point for table S.T on a fresh statement.
template <class Record>
Result run(Record& record,
           int (*entry)(CSQLAlterTable*, std::vector<std::string>*, CSQLInfoTable*, Record*)) {
  CSQLInfoTable table;
  table.SetSQLValue("SCHEMA", "", "S");
  table.SetSQLValue("TABLE", "", "T");
  CSQLAlterTable stmt;
  Result r{0, {}};
  r.code = entry(&stmt, &r.out, &table, &record);
  std::string rest;
  stmt.GetModifiedSQL("*", rest);
  EXPECT_EQ(rest, "") << "the tree is left clear";
  return r;
}

Result run(Parts& parts) {
  return run(parts, &CSQLUtil::GenAltPartition);
}

Result run(CSQLInfoLOBPartitions& lobs) {
  return run(lobs, &CSQLUtil::GenAltLOBPartition);
}

// A range-partitioned table with partitions P1 and P2 in the database.
void rangeTable(Parts& parts) {
  parts.SetSQLValue("TYPE", "", "RANGE");
  parts.AddPartition("P1", true);
  parts.AddPartition("P2", true);
}

void set(CSQLInfoBase* record, const char* type, const char* value, const char* init = "") {
  ASSERT_NE(record, nullptr);
  record->SetSQLValue(type, value, init);
}

struct PartitionCase {
  const char* name;
  std::function<void(Parts&)> edit;
  Texts expected;
};

TEST(InfoPartitions, WritesEachOperation) {
  const PartitionCase cases[] = {
      {"range partition added above the bounds",
       [](Parts& p) {
         rangeTable(p);
         p.AddPartition("P9", false);
         p.GetPartition("P9")->VALUES().AddValue("2024", "2024", "");
         p.GetPartition("P9")->VALUES().AddValue("MAXVALUE", nullptr, nullptr);
         set(p.GetPartition("P9"), "TABLESPACE", "T9");
         set(p.GetPartition("P9"), "PCTFREE", "5");
       },
       {"ALTER TABLE S.T ADD PARTITION P9 VALUES LESS THAN (2024,MAXVALUE) TABLESPACE T9 PCTFREE 5"}},
      {"hash partition added",
       [](Parts& p) {
         p.SetSQLValue("UPDATE", "UPDATE");
         p.AddPartition("H5", false, "hash");
         set(p.GetPartition("H5"), "TABLESPACE", "T5");
       },
       {"ALTER TABLE S.T ADD PARTITION H5 TABLESPACE T5 UPDATE GLOBAL INDEXES"}},
      {"list partition added with values",
       [](Parts& p) {
         p.AddPartition("L6", false, "LIST");
         p.GetPartition("L6")->VALUES().AddValue("E", "'E'", "");
         p.GetPartition("L6")->VALUES().AddValue("F", "'F'", "");
       },
       {"ALTER TABLE S.T ADD PARTITION L6 VALUES ('E','F')"}},
      {"partition dropped updating global indexes",
       [](Parts& p) {
         rangeTable(p);
         p.SetSQLValue("UPDATE", "UPDATE");
         p.DropPartition("P1", false);
       },
       {"ALTER TABLE S.T DROP PARTITION P1 UPDATE GLOBAL INDEXES"}},
      {"hash partition dropped by coalescing",
       [](Parts& p) {
         p.SetSQLValue("TYPE", "", "HASH");
         p.AddPartition("H1", true);
         p.DropPartition("H1", false);
       },
       {"ALTER TABLE S.T COALESCE PARTITION"}},
      {"partition renamed",
       [](Parts& p) {
         rangeTable(p);
         set(p.GetPartition("P2"), "NAME", "P2X");
       },
       {"ALTER TABLE S.T RENAME PARTITION P2 TO P2X"}},
      {"partition truncated dropping storage",
       [](Parts& p) {
         rangeTable(p);
         set(p.GetPartition("P1"), "TRUNCATE", "TRUNCATE");
         set(p.GetPartition("P1"), "TRUNCATE;STORAGE", "", "DROP");
       },
       {"ALTER TABLE S.T TRUNCATE PARTITION P1 DROP STORAGE"}},
      {"partition moved, INITIAL going with the move",
       [](Parts& p) {
         rangeTable(p);
         set(p.GetPartition("P1"), "TABLESPACE", "T2", "T1");
         set(p.GetPartition("P1"), "INITIAL", "1M", "64K");
       },
       {"ALTER TABLE S.T MOVE PARTITION P1 TABLESPACE T2 STORAGE (INITIAL 1M)"}},
      {"hash partition moves with its tablespace only",
       [](Parts& p) {
         p.AddPartition("H1", true, "HASH");
         set(p.GetPartition("H1"), "TABLESPACE", "T2", "T1");
         set(p.GetPartition("H1"), "INITIAL", "1M", "64K");
       },
       {"ALTER TABLE S.T MOVE PARTITION H1 TABLESPACE T2"}},
      {"attributes changed in place",
       [](Parts& p) {
         rangeTable(p);
         set(p.GetPartition("P2"), "PCTFREE", "20", "10");
         set(p.GetPartition("P2"), "NEXT", "2M", "1M");
         set(p.GetPartition("P2"), "LOGGING", "NOLOGGING", "LOGGING");
         set(p.GetPartition("P2"), "INITRANS", "", "2");
       },
       {"ALTER TABLE S.T MODIFY PARTITION P2 PCTFREE 20 STORAGE (NEXT 2M) NOLOGGING"}},
      {"list partition takes on values",
       [](Parts& p) {
         p.AddPartition("L1", true, "LIST");
         p.GetPartition("L1")->ADD_VALUES().AddValue("C", "'C'", "");
         set(p.GetPartition("L1"), "COMPRESS", "COMPRESS", "NOCOMPRESS");
       },
       {"ALTER TABLE S.T MODIFY PARTITION L1 COMPRESS",
        "ALTER TABLE S.T MODIFY PARTITION L1 ADD VALUES ('C')"}},
      {"subpartitions dropped and renamed",
       [](Parts& p) {
         p.SetSQLValue("SUBTYPE", "", "LIST");
         rangeTable(p);
         CSQLInfoPartitions::CPartition* p1 = p.GetPartition("P1");
         p1->AddSubPartition("S1", true);
         p1->AddSubPartition("S2", true);
         p1->DropSubPartition("S1", false);
         set(p1->GetSubPartition("S2"), "NAME", "S2X");
       },
       {"ALTER TABLE S.T DROP SUBPARTITION S1", "ALTER TABLE S.T RENAME SUBPARTITION S2 TO S2X"}},
      {"hash subpartition dropped by coalescing its partition",
       [](Parts& p) {
         p.AddPartition("P1", true, "RANGE");
         p.GetPartition("P1")->AddSubPartition("S1", true, "HASH");
         p.GetPartition("P1")->DropSubPartition("S1", false);
       },
       {"ALTER TABLE S.T MODIFY PARTITION P1 COALESCE SUBPARTITION"}},
      {"partition with subpartitions: new defaults, then its subpartitions move",
       [](Parts& p) {
         p.SetSQLValue("SUBTYPE", "", "HASH");
         rangeTable(p);
         p.GetPartition("P1")->AddSubPartition("S1", true);
         set(p.GetPartition("P1"), "TABLESPACE", "T2", "T1");
         set(p.GetPartition("P1")->GetSubPartition("S1"), "TABLESPACE", "T3", "T1");
       },
       {"ALTER TABLE S.T MODIFY DEFAULT ATTRIBUTES FOR PARTITION P1 TABLESPACE T2",
        "ALTER TABLE S.T MOVE SUBPARTITION S1 TABLESPACE T3"}},
      {"partition added with its subpartitions, subpartition added to a kept one",
       [](Parts& p) {
         p.SetSQLValue("SUBTYPE", "", "LIST");
         rangeTable(p);
         p.GetPartition("P1")->AddSubPartition("S13", false);
         p.GetPartition("P1")->GetSubPartition("S13")->VALUES().AddValue("X", "'X'", "");
         p.AddPartition("P3", false);
         CSQLInfoPartitions::CPartition* p3 = p.GetPartition("P3");
         p3->VALUES().AddValue("30", "30", "");
         p3->AddSubPartition("S31", false);
         p3->GetSubPartition("S31")->VALUES().AddValue("A", "'A'", "");
         set(p3->GetSubPartition("S31"), "TABLESPACE", "T4");
         p3->AddSubPartition("S32", false);
         p3->GetSubPartition("S32")->VALUES().AddValue("DEFAULT", "DEFAULT", "");
       },
       {"ALTER TABLE S.T MODIFY PARTITION P1 ADD SUBPARTITION S13 VALUES ('X')",
        "ALTER TABLE S.T ADD PARTITION P3 VALUES LESS THAN (30) ( SUBPARTITION S31 VALUES ('A') "
        "TABLESPACE T4,SUBPARTITION S32 VALUES (DEFAULT))"}},
  };
  for (const PartitionCase& c : cases) {
    SCOPED_TRACE(c.name);
    Parts parts;
    c.edit(parts);
    const Result r = run(parts);
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, c.expected);
  }
}

// Drops, renames, truncates, moves, attribute changes, adds; after the renames every statement names
// the partition by its new name.
TEST(InfoPartitions, RunsInAnOrderOracleAccepts) {
  Parts p;
  rangeTable(p);
  p.AddPartition("P3", true);
  p.AddPartition("P4", false);
  p.GetPartition("P4")->VALUES().AddValue("40", "40", "");
  set(p.GetPartition("P1"), "PCTFREE", "30", "10");
  set(p.GetPartition("P1"), "TABLESPACE", "T2", "T1");
  set(p.GetPartition("P1"), "NAME", "P1X");
  set(p.GetPartition("P2"), "TRUNCATE", "TRUNCATE");
  p.DropPartition("P3", false);
  const Texts all = {"ALTER TABLE S.T DROP PARTITION P3",
                     "ALTER TABLE S.T RENAME PARTITION P1 TO P1X",
                     "ALTER TABLE S.T TRUNCATE PARTITION P2",
                     "ALTER TABLE S.T MOVE PARTITION P1X TABLESPACE T2",
                     "ALTER TABLE S.T MODIFY PARTITION P1X PCTFREE 30",
                     "ALTER TABLE S.T ADD PARTITION P4 VALUES LESS THAN (40)"};
  EXPECT_EQ(run(p).out, all);

  // Each selector runs its own step; the record is unchanged by a run.
  const char* const selectors[] = {"DROP", "RENAME", "TRUNCATE", "MOVE", "MOD", "ADD"};
  for (std::size_t i = 0; i < all.size(); ++i) {
    CSQLInfoTable table;
    table.SetSQLValue("SCHEMA", "", "S");
    table.SetSQLValue("TABLE", "", "T");
    CSQLAlterTable stmt;
    table.BuildSQL("TABLE", &stmt, &stmt, nullptr, nullptr);
    Texts out;
    EXPECT_EQ(p.BuildSQL(selectors[i], stmt.GetClause("C_ALTER_TAB_PART"), &stmt, &out, nullptr), 0);
    EXPECT_EQ(out, Texts{all[i]}) << selectors[i];
  }
}

TEST(InfoPartitions, Bookkeeping) {
  Parts p;
  rangeTable(p);
  EXPECT_EQ(p.AddPartition("P1", false), SQL_DUPLICATE);
  EXPECT_EQ(p.DropPartition("P7", false), SQL_NOT_FOUND);
  EXPECT_EQ(p.UnDropPartition("P7"), SQL_NOT_FOUND);
  EXPECT_EQ(p.GetPartition("P1")->AddSubPartition("S1", true, "HASH"), 0);
  EXPECT_EQ(p.GetPartition("P1")->AddSubPartition("S1", true), SQL_DUPLICATE);
  EXPECT_EQ(p.GetPartition("P1")->DropSubPartition("S9", false), SQL_NOT_FOUND);

  // A dropped partition taken back is kept again; its subpartitions go with a drop.
  p.GetPartition("P1")->DropSubPartition("S1", false);
  p.DropPartition("P1", false);
  EXPECT_EQ(run(p).out, Texts{"ALTER TABLE S.T DROP PARTITION P1"});
  p.UnDropPartition("P1");
  EXPECT_EQ(run(p).out, Texts{"ALTER TABLE S.T MODIFY PARTITION P1 COALESCE SUBPARTITION"});

  // Kinds come from the collection when the add gives none.
  p.SetSQLValue("TYPE", "LIST");
  p.AddPartition("L1", true);
  EXPECT_EQ(p.GetPartition("L1")->GetSQLValue("TYPE").GetValue(), "LIST");

  Parts none;
  EXPECT_EQ(CSQLUtil::GenAltPartition(nullptr, nullptr, nullptr, &none), SQL_RECORD_MISSING);
  CSQLInfoTable table;
  CSQLAlterTable stmt;
  Texts out;
  EXPECT_EQ(CSQLUtil::GenAltPartition(&stmt, &out, &table, nullptr), SQL_RECORD_MISSING);
  EXPECT_EQ(CSQLUtil::GenAltLOBPartition(&stmt, &out, &table, nullptr), SQL_RECORD_MISSING);
  EXPECT_TRUE(out.empty());
}

struct LOBCase {
  const char* name;
  std::function<void(CSQLInfoLOBPartitions&)> edit;
  Texts expected;
};

TEST(InfoLOBPartitions, WritesMovesAndModifications) {
  using LOBs = CSQLInfoLOBPartitions;
  const LOBCase cases[] = {
      {"a new tablespace moves the partition, taking the other changes along",
       [](LOBs& l) {
         l.SetSQLValue("UPDATE", "UPDATE");
         l.AddLOBColumn("DOC", "P1", true);
         set(l.GetLOBColumn("DOC", "P1"), "TABLESPACE", "L2", "L1");
         set(l.GetLOBColumn("DOC", "P1"), "PCTVERSION", "20", "10");
         set(l.GetLOBColumn("DOC", "P1"), "CHUNK", "", "8192");
       },
       {"ALTER TABLE S.T MOVE PARTITION P1 LOB (DOC) STORE AS (TABLESPACE L2 PCTVERSION 20) "
        "UPDATE GLOBAL INDEXES"}},
      {"in-place changes of two columns, logging restating the caching",
       [](LOBs& l) {
         l.AddLOBColumn("DOC", "P1", true);
         l.AddLOBColumn("IMG", "P1", true);
         set(l.GetLOBColumn("DOC", "P1"), "CACHE", "CACHE", "NOCACHE");
         set(l.GetLOBColumn("IMG", "P1"), "CACHE", "", "CACHE READS");
         set(l.GetLOBColumn("IMG", "P1"), "LOGGING", "NOLOGGING", "LOGGING");
         set(l.GetLOBColumn("IMG", "P1"), "MAXEXTENTS", "UNLIMITED", "100");
       },
       {"ALTER TABLE S.T MODIFY PARTITION P1 LOB (DOC) (CACHE) LOB (IMG) (STORAGE (MAXEXTENTS UNLIMITED) "
        "CACHE READS NOLOGGING)"}},
      {"a subpartition's LOB moves by tablespace, other changes in place",
       [](LOBs& l) {
         l.SetSQLValue("SUBTYPE", "", "LIST");
         l.AddLOBColumn("DOC", "S1", true, true);
         set(l.GetLOBColumn("DOC", "S1"), "TABLESPACE", "L2", "L1");
         set(l.GetLOBColumn("DOC", "S1"), "RETENTION", "RETENTION");
         set(l.GetLOBColumn("DOC", "S1"), "CHUNK", "16384", "8192");
       },
       {"ALTER TABLE S.T MOVE SUBPARTITION S1 LOB (DOC) STORE AS (TABLESPACE L2)",
        "ALTER TABLE S.T MODIFY SUBPARTITION S1 LOB (DOC) (RETENTION)"}},
      {"partitions in the order of their first kept item; dropped items left out",
       [](LOBs& l) {
         l.AddLOBColumn("DOC", "H2", true, false, "HASH");
         l.AddLOBColumn("DOC", "H1", true, false, "HASH");
         l.AddLOBColumn("IMG", "H2", true, false, "HASH");
         set(l.GetLOBColumn("DOC", "H1"), "FREEPOOLS", "4", "1");
         set(l.GetLOBColumn("IMG", "H2"), "ENABLE", "DISABLE", "ENABLE");
         set(l.GetLOBColumn("DOC", "H2"), "FREEPOOLS", "2", "1");
         l.DropLOBColumn("DOC", "H2", false);
       },
       {"ALTER TABLE S.T MODIFY PARTITION H1 LOB (DOC) (FREEPOOLS 4)",
        "ALTER TABLE S.T MOVE PARTITION H2 LOB (IMG) STORE AS (DISABLE STORAGE IN ROW)"}},
  };
  for (const LOBCase& c : cases) {
    SCOPED_TRACE(c.name);
    LOBs lobs;
    c.edit(lobs);
    const Result r = run(lobs);
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, c.expected);
  }
}

TEST(InfoLOBPartitions, Bookkeeping) {
  CSQLInfoLOBPartitions l;
  EXPECT_EQ(l.AddLOBColumn("DOC", "P1", true), 0);
  EXPECT_EQ(l.AddLOBColumn("DOC", "P2", false), 0);
  EXPECT_EQ(l.AddLOBColumn("DOC", "P1", false), SQL_DUPLICATE);
  EXPECT_EQ(l.DropLOBColumn("DOC", "P9", false), SQL_NOT_FOUND);
  EXPECT_EQ(l.DropLOBColumn("IMG", "P1", false), SQL_NOT_FOUND);
  EXPECT_EQ(l.UnDropLOBColumn("DOC", "P9"), SQL_NOT_FOUND);
  EXPECT_TRUE(l.IsAdd("DOC", "P2"));
  EXPECT_EQ(l.DropLOBColumn("DOC", "P1", false), 0);
  EXPECT_TRUE(l.IsDrop("DOC", "P1"));
  EXPECT_FALSE(l.IsDrop("DOC", "P2"));
  EXPECT_EQ(l.UnDropLOBColumn("DOC", "P1"), 0);
  EXPECT_FALSE(l.IsDrop("DOC", "P1"));
  EXPECT_EQ(l.GetLOBColumn("DOC", "P2")->GetPartition(), "P2");
  EXPECT_EQ(l.GetLOBColumn("DOC", "P3"), nullptr);
}

}  // namespace
}  // namespace qarvelt::testing
