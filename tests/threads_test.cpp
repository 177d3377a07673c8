// Unrelated statements and the data type catalogue used from several threads at once: nothing is
// shared between trees, and the catalogue is built once. CI runs this under ThreadSanitizer.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace qarvelt::testing
