// Throughput of the core: building a tree, setting values by path, writing and cloning it.
#include <benchmark/benchmark.h>

#include <string>

#include <qarvelt/qarvelt.h>

namespace {

using namespace qarvelt;

// One column item of a column list: name, data type and default.
class Column : public Cloneable<Column> {
 public:
  explicit Column(const char* name) : Cloneable(7) { setup(name, true); }
  Column(bool bInit, int nOraVersion) : Cloneable(nOraVersion) { setup("", bInit); }

 protected:
  void init() override {
    using namespace build;
    attach(this, leaf("COLUMN"), clause<CSQLAttrDataType>(7), leaf("DEFAULT", "DEFAULT "));
  }
};

std::unique_ptr<CSQLList> table(int columns) {
  auto list = std::make_unique<CSQLList>("LIST", ",\n", "(", ")");
  for (int i = 0; i < columns; ++i) {
    const std::string name = "C" + std::to_string(i);
    list->AddAttr(nullptr, std::make_unique<Column>(name.c_str()));
    list->SetValue((name + ";COLUMN").c_str(), name.c_str());
    list->SetValue((name + ";DATATYPE").c_str(), "NUMBER");
    list->SetValue((name + ";DATATYPE;LENGTH").c_str(), "10");
  }
  return list;
}

void BM_BuildAndFill(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(table(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_BuildAndFill)->Arg(10)->Arg(100);

void BM_Write(benchmark::State& state) {
  auto list = table(static_cast<int>(state.range(0)));
  std::string text;
  for (auto _ : state) {
    list->GetModifiedSQL("*", text);
    benchmark::DoNotOptimize(text.data());
  }
}
BENCHMARK(BM_Write)->Arg(10)->Arg(100);

void BM_Clone(benchmark::State& state) {
  auto list = table(static_cast<int>(state.range(0)));
  for (auto _ : state)
    benchmark::DoNotOptimize(list->Clone());
}
BENCHMARK(BM_Clone)->Arg(10)->Arg(100);

}  // namespace
