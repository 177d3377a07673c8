// Unrelated statements and the data type catalogue used from several threads at once: nothing is
// shared between trees, and the catalogue is built once. CI runs this under ThreadSanitizer.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support.h"

namespace qarvelt::testing {
namespace {

TEST(Threads, DistinctStatementsAndTheCatalogue) {
  constexpr int kThreads = 4;
  std::vector<std::string> texts(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([t, &texts] {
      for (int round = 0; round < 20; ++round) {
        const int code = (t + round) % (kLatestRelease + 1);
        const auto& types = CSQLUtil::GetDataTypes(code);
        if (types.empty() || types.front() != "CHAR") return;
        CSQLAlterTable alter(true, 7);
        alter.SetValue("SCHEMA", "SCOTT");
        alter.SetValue("TABLE", ("T" + std::to_string(t)).c_str());
        alter.SetInit("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE", "10");
        alter.SetValue("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE", std::to_string(20 + t).c_str());
        auto clone = alter.Clone();
        std::string text;
        clone->GetModifiedSQL("*", text);
        texts[static_cast<std::size_t>(t)] = trimmed(text);
      }
    });
  }
  for (auto& thread : threads)
    thread.join();
  for (int t = 0; t < kThreads; ++t)
    EXPECT_EQ(texts[static_cast<std::size_t>(t)],
              "ALTER TABLE SCOTT.T" + std::to_string(t) + " PCTFREE " + std::to_string(20 + t));
}

// Trees made on one thread and written, cloned and destroyed on another, by threads that end while
// others go on: nodes move between the threads' free blocks and those of ended threads are reused.
TEST(Threads, TreesHandedBetweenThreads) {
  constexpr int kRounds = 6;
  for (int round = 0; round < kRounds; ++round) {
    std::vector<std::unique_ptr<CSQLCreateTable>> made(8);
    std::thread maker([&made, round] {
      for (std::size_t i = 0; i < made.size(); ++i) {
        made[i] = std::make_unique<CSQLCreateTable>();
        made[i]->SetValue("C_RELATIONAL_TABLE;TABLE", ("T" + std::to_string(round)).c_str());
        const std::string item = "C" + std::to_string(i);
        made[i]->AddAttr("C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST",
                         std::make_unique<CSQLCreateTable::CSubSQLItemProp>(item.c_str()));
        made[i]->SetValue(("C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;" + item + ";COLUMN").c_str(),
                          item.c_str());
        made[i]->SetValue(("C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST;" + item + ";DATATYPE").c_str(),
                          "DATE");
      }
    });
    maker.join();  // the maker has ended: its free blocks went to the shared reserve
    std::vector<std::string> texts(made.size());
    std::thread user([&made, &texts] {
      for (std::size_t i = 0; i < made.size(); ++i) {
        auto clone = made[i]->Clone();
        made[i].reset();  // freed on a thread other than the one that made it
        clone->GetModifiedSQL("*", texts[i]);
      }
    });
    user.join();
    for (std::size_t i = 0; i < texts.size(); ++i)
      EXPECT_EQ(trimmed(texts[i]),
                "CREATE TABLE T" + std::to_string(round) + " (C" + std::to_string(i) + " DATE)");
  }
}

}  // namespace
}  // namespace qarvelt::testing
