// What a host pays for a statement: the library beside a hand-written std::string concatenation of
// exactly the same text, measured in the same binary. Each pair is registered as "<case>/library" and
// "<case>/hand"; the reporter below prints library time / hand time for every pair once the run ends
// (and, with --benchmark_repetitions, for the mean and the median, with the spread of each side).
// Every setup checks that both sides write the same text and aborts if they do not.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <qarvelt/qarvelt.h>

namespace {

using namespace qarvelt;

const char* const kList = "C_RELATIONAL_TABLE;C_RELATIONAL_PROP;LIST";
const char* const kPctFree = "C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE";

// The columns of the measured tables: C0 VARCHAR2 (10), C1 VARCHAR2 (11), ...; names and lengths
// are made once, so that neither side pays for formatting numbers.
struct ColumnText {
  std::string item, name, length, pathColumn, pathType, pathLength;
};

const std::vector<ColumnText>& columns() {
  static const std::vector<ColumnText> all = [] {
    std::vector<ColumnText> v;
    for (int i = 0; i < 1000; ++i) {
      ColumnText c;
      c.item = "I" + std::to_string(i);
      c.name = "C" + std::to_string(i);
      c.length = std::to_string(10 + i % 90);
      const std::string base = std::string(kList) + ";" + c.item + ";";
      c.pathColumn = base + "COLUMN";
      c.pathType = base + "DATATYPE";
      c.pathLength = base + "DATATYPE;LENGTH";
      v.push_back(std::move(c));
    }
    return v;
  }();
  return all;
}

void check(const std::string& what, const std::string& library, const std::string& hand) {
  if (library == hand) return;
  std::fprintf(stderr,
               "%s: the two sides write different texts\nlibrary: [%s]\nhand:    [%s]\n",
               what.c_str(),
               library.c_str(),
               hand.c_str());
  std::abort();
}

// ---- CREATE TABLE SCOTT.T with n columns ----

void appendColumn(CSQLCreateTable& table, const ColumnText& c) {
  table.AddAttr(kList, std::make_unique<CSQLCreateTable::CSubSQLItemProp>(c.item.c_str()));
  table.SetValue(c.pathColumn.c_str(), c.name.c_str());
  table.SetValue(c.pathType.c_str(), "VARCHAR2");
  table.SetValue(c.pathLength.c_str(), c.length.c_str());
}

std::unique_ptr<CSQLCreateTable> buildCreate(int n) {
  auto table = std::make_unique<CSQLCreateTable>();
  table->SetValue("C_RELATIONAL_TABLE;SCHEMA", "SCOTT");
  table->SetValue("C_RELATIONAL_TABLE;TABLE", "T");
  for (int i = 0; i < n; ++i)
    appendColumn(*table, columns()[static_cast<std::size_t>(i)]);
  return table;
}

std::string libraryCreate(int n) {
  auto table = buildCreate(n);
  std::string text;
  table->GetModifiedSQL("*", text);
  return text;
}

std::string handCreate(int n) {
  std::string text = "CREATE TABLE SCOTT.T (";
  for (int i = 0; i < n; ++i) {
    const ColumnText& c = columns()[static_cast<std::size_t>(i)];
    if (i > 0) text += ",\n";
    text += c.name;
    text += " VARCHAR2 (";
    text += c.length;
    text += ')';
  }
  text += ')';
  return text;
}

// ---- ALTER TABLE SCOTT.EMP PCTFREE 20 ----

std::unique_ptr<CSQLAlterTable> buildAlter() {
  auto alter = std::make_unique<CSQLAlterTable>();
  alter->SetValue("SCHEMA", "SCOTT");
  alter->SetValue("TABLE", "EMP");
  alter->SetInit(kPctFree, "10");
  alter->SetValue(kPctFree, "20");
  return alter;
}

std::string libraryAlter() {
  auto alter = buildAlter();
  std::string text;
  alter->GetModifiedSQL("*", text);
  return text;
}

std::string handAlter(const char* schema, const char* table, const char* pctfree) {
  std::string text = "ALTER TABLE ";
  text += schema;
  text += '.';
  text += table;
  text += " PCTFREE ";
  text += pctfree;
  return text;
}

// ---- a small tree of 20 nodes: ALTER TABLE with a handful of table properties ----

class SmallAttributes : public Cloneable<SmallAttributes> {
 public:
  explicit SmallAttributes(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_PHYSICAL_ATTRIBUTES", bInit);
  }

 protected:
  void init() override {
    using namespace build;
    attach(this,
           leaf("PCTFREE", "PCTFREE "),
           leaf("PCTUSED", "PCTUSED "),
           leaf("INITRANS", "INITRANS "),
           leaf("MAXTRANS", "MAXTRANS "));
  }
};

class SmallStorage : public Cloneable<SmallStorage> {
 public:
  explicit SmallStorage(bool bInit = true, int nOraVersion = 7) : Cloneable(nOraVersion) {
    setup("C_STORAGE", bInit);
  }

 protected:
  void init() override {
    using namespace build;
    attach(this,
           And({"STORAGE (", ")"},
               leaf("INITIAL", "INITIAL "),
               leaf("NEXT", "NEXT "),
               leaf("MINEXTENTS", "MINEXTENTS "),
               leaf("MAXEXTENTS", "MAXEXTENTS ")));
  }
};

class SmallAlter : public AlterStatement<SmallAlter> {
 public:
  static constexpr const char* kVerb = "ALTER TABLE";
  static constexpr const char* kNameLeaf = "TABLE";
  explicit SmallAlter(bool bInit = true, int nOraVersion = 7) : AlterStatement(nOraVersion) {
    setup("C_SMALL_ALTER", bInit);
  }

 protected:
  void init() override {
    using namespace build;
    attach(this,
           leaf("SCHEMA", "", "", "."),
           leaf("TABLE"),
           clause<SmallAttributes>(GetOraVersion()),
           clause<SmallStorage>(GetOraVersion()),
           leaf("LOGGING"),
           leaf("CACHE"),
           leaf("PARALLEL", "PARALLEL "),
           leaf("MONITORING"),
           leaf("ROWDEPENDENCIES"),
           leaf("COMPRESS"));
  }
};

int countNodes(const CSQLClause& node) {
  int n = 1;
  for (int i = 0; i < node.GetLength(); ++i)
    n += countNodes(*node.GetChild(i));
  return n;
}

// ---- the reporter: prints library / hand for every pair ----

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(OutputOptions options) : ConsoleReporter(options) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.error_occurred) continue;
      const std::string name = run.run_name.str();
      const std::string kind = run.run_type == Run::RT_Aggregate ? run.aggregate_name : "";
      m_times[{name, kind}] = run.GetAdjustedRealTime();
      m_unit = run.time_unit;
      if (m_order.empty() || m_order.back() != name) m_order.push_back(name);
    }
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\n%-32s %10s %14s %14s %10s\n", "pair", "statistic", "library", "hand", "ratio");
    for (const std::string& name : m_order) {
      const std::string::size_type slash = name.rfind("/library");
      if (slash == std::string::npos) continue;
      const std::string base = name.substr(0, slash);
      const std::string hand = base + "/hand" + name.substr(slash + 8);
      for (const char* kind : {"", "mean", "median"}) {
        auto l = m_times.find({name, kind});
        auto h = m_times.find({hand, kind});
        if (l == m_times.end() || h == m_times.end() || h->second <= 0) continue;
        const std::string cvL = cv(name), cvH = cv(hand);
        std::printf("%-32s %10s %11.3f %s %11.3f %s %10.1f",
                    (base + name.substr(slash + 8)).c_str(),
                    *kind ? kind : "single",
                    l->second,
                    benchmark::GetTimeUnitString(m_unit),
                    h->second,
                    benchmark::GetTimeUnitString(m_unit),
                    l->second / h->second);
        if (*kind && !cvL.empty()) std::printf("   (spread: library %s, hand %s)", cvL.c_str(), cvH.c_str());
        std::printf("\n");
      }
    }
  }

 private:
  // The spread of a side: standard deviation over mean of its repetitions.
  std::string cv(const std::string& name) const {
    auto mean = m_times.find({name, "mean"});
    auto stddev = m_times.find({name, "stddev"});
    if (mean == m_times.end() || stddev == m_times.end() || mean->second <= 0) return "";
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.1f%%", stddev->second / mean->second * 100.0);
    return buffer;
  }

  std::map<std::pair<std::string, std::string>, double> m_times;
  std::vector<std::string> m_order;
  benchmark::TimeUnit m_unit = benchmark::kMicrosecond;
};

// ---- (a) the 21-column CREATE TABLE, build + fill + render ----

void CreateTable21Library(benchmark::State& state) {
  check("create21", libraryCreate(21), handCreate(21));
  for (auto _ : state) {
    std::string text = libraryCreate(21);
    benchmark::DoNotOptimize(text.data());
  }
}

void CreateTable21Hand(benchmark::State& state) {
  for (auto _ : state) {
    std::string text = handCreate(21);
    benchmark::DoNotOptimize(text.data());
  }
}

// ---- a clone of the filled 21-column CREATE TABLE, written ----
// A host that keeps a statement as a template and clones it per use. The hand-written side copies
// the finished text: the floor of any clone, not an equivalent.

void Clone21Library(benchmark::State& state) {
  auto table = buildCreate(21);
  std::string text;
  table->GetModifiedSQL("*", text);
  check("clone21", text, handCreate(21));
  for (auto _ : state) {
    auto clone = table->Clone();
    std::string copied;
    clone->GetModifiedSQL("*", copied);
    benchmark::DoNotOptimize(copied.data());
  }
}

void Clone21Hand(benchmark::State& state) {
  const std::string text = handCreate(21);
  for (auto _ : state) {
    std::string copied = text;
    benchmark::DoNotOptimize(copied.data());
  }
}

// ---- (b) ALTER TABLE with one changed PCTFREE, build + fill + render ----

void AlterPctFreeLibrary(benchmark::State& state) {
  check("alter_pctfree", libraryAlter(), handAlter("SCOTT", "EMP", "20"));
  for (auto _ : state) {
    std::string text = libraryAlter();
    benchmark::DoNotOptimize(text.data());
  }
}

void AlterPctFreeHand(benchmark::State& state) {
  for (auto _ : state) {
    std::string text = handAlter("SCOTT", "EMP", "20");
    benchmark::DoNotOptimize(text.data());
  }
}

// ---- (c) rendering alone ----

void RenderCreateLibrary(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  auto table = buildCreate(n);
  std::string text;
  table->GetModifiedSQL("*", text);
  check("render_create", text, handCreate(n));
  for (auto _ : state) {
    table->GetModifiedSQL("*", text);
    benchmark::DoNotOptimize(text.data());
  }
  state.counters["nodes"] = countNodes(*table);
}

void RenderCreateHand(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  for (auto _ : state) {
    std::string text = handCreate(n);
    benchmark::DoNotOptimize(text.data());
  }
}

void RenderAlterLibrary(benchmark::State& state) {
  auto alter = buildAlter();
  std::string text;
  alter->GetModifiedSQL("*", text);
  check("render_alter", text, handAlter("SCOTT", "EMP", "20"));
  for (auto _ : state) {
    alter->GetModifiedSQL("*", text);
    benchmark::DoNotOptimize(text.data());
  }
  state.counters["nodes"] = countNodes(*alter);
}

void RenderSmallAlterLibrary(benchmark::State& state) {
  SmallAlter alter;
  alter.SetValue("SCHEMA", "SCOTT");
  alter.SetValue("TABLE", "EMP");
  alter.SetInit("C_PHYSICAL_ATTRIBUTES;PCTFREE", "10");
  alter.SetValue("C_PHYSICAL_ATTRIBUTES;PCTFREE", "20");
  if (countNodes(alter) != 20) {
    std::fprintf(stderr, "the small tree holds %d nodes, not 20\n", countNodes(alter));
    std::abort();
  }
  std::string text;
  alter.GetModifiedSQL("*", text);
  check("render_small_alter", text, handAlter("SCOTT", "EMP", "20"));
  for (auto _ : state) {
    alter.GetModifiedSQL("*", text);
    benchmark::DoNotOptimize(text.data());
  }
  state.counters["nodes"] = countNodes(alter);
}

// ---- (d) the parts ----

void ConstructCreateTableLibrary(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(std::make_unique<CSQLCreateTable>());
  state.counters["nodes"] = countNodes(CSQLCreateTable());
}

void ConstructCreateTableHand(benchmark::State& state) {
  for (auto _ : state) {
    std::string text = "CREATE TABLE SCOTT.T (";
    benchmark::DoNotOptimize(text.data());
  }
}

// One column item constructed on its own (its subtree, nothing set).
void ColumnItemLibrary(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(std::make_unique<CSQLCreateTable::CSubSQLItemProp>("I0"));
  state.counters["nodes"] = countNodes(CSQLCreateTable::CSubSQLItemProp("I0"));
}

void ColumnItemHand(benchmark::State& state) {
  const ColumnText& c = columns()[0];
  for (auto _ : state) {
    std::string text = c.name;
    text += " VARCHAR2 (";
    text += c.length;
    text += ')';
    benchmark::DoNotOptimize(text.data());
  }
}

// 21 column items appended to a table made outside the timed region, and filled (name, type,
// length); divide by 21 for one item.
void ColumnFill21Library(benchmark::State& state) {
  {
    auto table = buildCreate(21);
    std::string text;
    table->GetModifiedSQL("*", text);
    check("column_fill21", text, handCreate(21));
  }
  std::unique_ptr<CSQLCreateTable> table;
  for (auto _ : state) {
    state.PauseTiming();
    table = buildCreate(0);
    state.ResumeTiming();
    for (std::size_t i = 0; i < 21; ++i)
      appendColumn(*table, columns()[i]);
  }
}

void ColumnFill21Hand(benchmark::State& state) {
  std::string text;
  for (auto _ : state) {
    state.PauseTiming();
    text = "CREATE TABLE SCOTT.T (";
    state.ResumeTiming();
    for (std::size_t i = 0; i < 21; ++i) {
      const ColumnText& c = columns()[i];
      if (i > 0) text += ",\n";
      text += c.name;
      text += " VARCHAR2 (";
      text += c.length;
      text += ')';
    }
    benchmark::DoNotOptimize(text.data());
  }
}

void ConstructAlterTableLibrary(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(std::make_unique<CSQLAlterTable>());
  state.counters["nodes"] = countNodes(CSQLAlterTable());
}

void ConstructAlterTableHand(benchmark::State& state) {
  for (auto _ : state) {
    std::string text = "ALTER TABLE SCOTT.EMP";
    benchmark::DoNotOptimize(text.data());
  }
}

// ---- memory: heap bytes held per filled column item ----

// Heap bytes in use: the global allocator's, less what it holds for the node allocator's chunks, plus
// the node allocator's blocks in use.
std::size_t heapInUse() {
  const detail::NodeMemory nodes = detail::NodeMemoryInUse();
  return mallinfo2().uordblks - nodes.reserved + static_cast<std::size_t>(nodes.in_use);
}

void ColumnItemMemory(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  double perItem = 0, perTable = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const std::size_t before = heapInUse();
    auto table = buildCreate(0);
    const std::size_t empty = heapInUse();
    for (int i = 0; i < n; ++i)
      appendColumn(*table, columns()[static_cast<std::size_t>(i)]);
    const std::size_t filled = heapInUse();
    perTable = static_cast<double>(empty - before);
    perItem = static_cast<double>(filled - empty) / n;
    table.reset();
    state.ResumeTiming();
  }
  state.counters["table_bytes"] = perTable;
  state.counters["bytes_per_item"] = perItem;
  state.counters["text_bytes_per_item"] = static_cast<double>(handCreate(n).size()) / n;
}

}  // namespace

int main(int argc, char** argv) {
  using benchmark::RegisterBenchmark;
  const auto us = benchmark::kMicrosecond;
  RegisterBenchmark("create21/library", CreateTable21Library)->Unit(us);
  RegisterBenchmark("create21/hand", CreateTable21Hand)->Unit(us);
  RegisterBenchmark("clone21/library", Clone21Library)->Unit(us);
  RegisterBenchmark("clone21/hand", Clone21Hand)->Unit(us);
  RegisterBenchmark("alter_pctfree/library", AlterPctFreeLibrary)->Unit(us);
  RegisterBenchmark("alter_pctfree/hand", AlterPctFreeHand)->Unit(us);
  for (int n : {1, 1000}) {
    RegisterBenchmark("render_create/library", RenderCreateLibrary)->Arg(n)->Unit(us);
    RegisterBenchmark("render_create/hand", RenderCreateHand)->Arg(n)->Unit(us);
  }
  RegisterBenchmark("render_alter/library", RenderAlterLibrary)->Unit(us);
  RegisterBenchmark("render_alter/hand", AlterPctFreeHand)->Unit(us);
  RegisterBenchmark("render_small_alter20/library", RenderSmallAlterLibrary)->Unit(us);
  RegisterBenchmark("render_small_alter20/hand", AlterPctFreeHand)->Unit(us);
  RegisterBenchmark("part_construct_create/library", ConstructCreateTableLibrary)->Unit(us);
  RegisterBenchmark("part_construct_create/hand", ConstructCreateTableHand)->Unit(us);
  RegisterBenchmark("part_column_item/library", ColumnItemLibrary)->Unit(us);
  RegisterBenchmark("part_column_item/hand", ColumnItemHand)->Unit(us);
  RegisterBenchmark("part_column_fill21/library", ColumnFill21Library)->Unit(us);
  RegisterBenchmark("part_column_fill21/hand", ColumnFill21Hand)->Unit(us);
  RegisterBenchmark("part_construct_alter/library", ConstructAlterTableLibrary)->Unit(us);
  RegisterBenchmark("part_construct_alter/hand", ConstructAlterTableHand)->Unit(us);
  RegisterBenchmark("memory_column_item", ColumnItemMemory)->Arg(1000)->Iterations(3)->Unit(us);

  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RatioReporter reporter(isatty(fileno(stdout)) != 0 ? benchmark::ConsoleReporter::OO_ColorTabular
                                                     : benchmark::ConsoleReporter::OO_Tabular);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
