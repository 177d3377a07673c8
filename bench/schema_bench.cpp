// A whole schema: the script between two versions of a generated schema of 8,000 tables (about 400
// partitioned; sequences, views, foreign keys between the tables, cycles among them), beside the
// floor any tool pays for the same script, joining its statement texts into one text. Counters of
// the library side: the peak resident memory of the process, and the peak once the two schemas were
// made (run the case alone to read them).
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <string>

#include <qarvelt/model/schema.h>

#include "../tests/generated_schema.h"

namespace {

using namespace qarvelt;

double peakMegabytes();

struct Versions {
  model::Schema before, after;
  double megabytes = 0;                 // the peak once both versions are made, before any diff
  std::vector<std::string> statements;  // the script, for the hand-written side
};

const Versions& versions(int tables) {
  static Versions v = [tables] {
    Versions made;
    made.before = testing::GeneratedSchema(tables);
    made.after = testing::EditedSchema(made.before, 2026);
    made.megabytes = peakMegabytes();
    made.statements = model::DiffSchema(made.before, made.after).statements;
    return made;
  }();
  return v;
}

double peakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void SchemaDiffLibrary(benchmark::State& state) {
  const Versions& v = versions(static_cast<int>(state.range(0)));
  std::size_t statements = 0;
  for (auto _ : state) {
    const model::Script script = model::DiffSchema(v.before, v.after);
    std::string text = model::ScriptText(script);
    statements = script.statements.size();
    benchmark::DoNotOptimize(text.data());
  }
  state.counters["statements"] = static_cast<double>(statements);
  state.counters["peak_MB"] = peakMegabytes();
  state.counters["schemas_MB"] = v.megabytes;
}

void SchemaDiffHand(benchmark::State& state) {
  const Versions& v = versions(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::string text;
    for (const std::string& statement : v.statements) {
      text += statement;
      text += ";\n";
    }
    benchmark::DoNotOptimize(text.data());
  }
}

}  // namespace

BENCHMARK(SchemaDiffLibrary)->Name("schema_diff/library")->Arg(8000)->Unit(benchmark::kMillisecond);
BENCHMARK(SchemaDiffHand)->Name("schema_diff/hand")->Arg(8000)->Unit(benchmark::kMillisecond);
