// DROP statements of a schema's objects, ALTER SEQUENCE and RENAME.
#include <gtest/gtest.h>

#include <qarvelt/statements/alter_sequence.h>
#include <qarvelt/statements/drop.h>
#include <qarvelt/statements/rename.h>

#include "support.h"

namespace qarvelt::testing {
namespace {

class DropStatements : public ::testing::TestWithParam<TreeCase> {};
TEST_P(DropStatements, WriteExactText) {
  checkTreeCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    DropStatements,
    ::testing::Values(
        TreeCase{
            "table with its foreign keys, purged",
            make<CSQLDropTable>(10),
            {{"SCHEMA", "HR"}, {"TABLE", "JOBS"}, {"CASCADE", "CASCADE CONSTRAINTS"}, {"PURGE", "PURGE"}},
            "DROP TABLE HR.JOBS CASCADE CONSTRAINTS PURGE"},
        TreeCase{"table if it exists",
                 make<CSQLDropTable>(12),
                 {{"IF_EXISTS", "IF EXISTS"}, {"TABLE", "T"}},
                 "DROP TABLE IF EXISTS T"},
        TreeCase{"index online",
                 make<CSQLDropIndex>(8),
                 {{"INDEX", "I"}, {"ONLINE", "ONLINE"}},
                 "DROP INDEX I ONLINE"},
        TreeCase{"domain index forced",
                 make<CSQLDropIndex>(2),
                 {{"SCHEMA", "S"}, {"INDEX", "DOC_IX"}, {"FORCE", "FORCE"}},
                 "DROP INDEX S.DOC_IX FORCE"},
        TreeCase{"view and the constraints on it",
                 make<CSQLDropView>(3),
                 {{"VIEW", "V"}, {"CASCADE", "CASCADE CONSTRAINTS"}},
                 "DROP VIEW V CASCADE CONSTRAINTS"},
        TreeCase{"sequence if it exists",
                 make<CSQLDropSequence>(12),
                 {{"IF_EXISTS", "IF EXISTS"}, {"SCHEMA", "S"}, {"SEQUENCE", "Q"}},
                 "DROP SEQUENCE IF EXISTS S.Q"},
        TreeCase{"public synonym forced",
                 make<CSQLDropSynonym>(12),
                 {{"PUBLIC", "PUBLIC"}, {"IF_EXISTS", "IF EXISTS"}, {"SYNONYM", "EMP"}, {"FORCE", "FORCE"}},
                 "DROP PUBLIC SYNONYM IF EXISTS EMP FORCE"},
        TreeCase{"materialized view keeping its table",
                 make<CSQLDropMaterializedView>(5),
                 {{"SCHEMA", "S"}, {"VIEW", "MV"}, {"PRESERVE", "PRESERVE"}},
                 "DROP MATERIALIZED VIEW S.MV PRESERVE TABLE"},
        TreeCase{"snapshot before Oracle8i",
                 make<CSQLDropMaterializedView>(1),
                 {{"VIEW", "MV"}},
                 "DROP SNAPSHOT MV"},
        TreeCase{"trigger", make<CSQLDropTrigger>(0), {{"TRIGGER", "T_BIU"}}, "DROP TRIGGER T_BIU"},
        TreeCase{
            "nothing named writes nothing", make<CSQLDropTable>(7), {{"CASCADE", "CASCADE CONSTRAINTS"}}, ""},
        TreeCase{"sequence options",
                 make<CSQLAlterSequence>(7),
                 {{"SEQUENCE", "Q"},
                  {"INCREMENT", "5"},
                  {"MINVALUE", "NOMINVALUE"},
                  {"CYCLE", "NOCYCLE"},
                  {"CACHE", "NOCACHE"},
                  {"ORDER", "ORDER"}},
                 "ALTER SEQUENCE Q INCREMENT BY 5 NOMINVALUE NOCYCLE NOCACHE ORDER"},
        TreeCase{"sequence restarted",
                 make<CSQLAlterSequence>(9),
                 {{"SCHEMA", "S"}, {"SEQUENCE", "Q"}, {"RESTART", "RESTART"}, {"RESTART;START", "500"}},
                 "ALTER SEQUENCE S.Q RESTART START WITH 500"},
        TreeCase{"sequence unchanged writes nothing", make<CSQLAlterSequence>(9), {{"SEQUENCE", "Q"}}, ""},
        TreeCase{"rename",
                 make<CSQLRename>(0),
                 {{"OBJECT", "ORDER_SEQ"}, {"TO", "ORDERS_SEQ"}},
                 "RENAME ORDER_SEQ TO ORDERS_SEQ"},
        TreeCase{"rename without the old name writes nothing", make<CSQLRename>(10), {{"TO", "B"}}, ""}),
    caseName);

TEST(DropStatements, SyntaxArrivesWithItsRelease) {
  checkGates({
      {built<CSQLDropTable>(), "IF_EXISTS", 12},
      {built<CSQLDropTable>(), "PURGE", 5},
      {built<CSQLDropIndex>(), "ONLINE", 8},
      {built<CSQLDropView>(), "CASCADE", 3},
      {built<CSQLDropSynonym>(), "IF_EXISTS", 12},
      {built<CSQLDropMaterializedView>(), "PRESERVE", 5},
      {built<CSQLAlterSequence>(), "RESTART", 9},
      {built<CSQLAlterSequence>(), "START", 99},  // only under RESTART
  });
}

}  // namespace
}  // namespace qarvelt::testing
