#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "Benchmarks.h"
#include "DataSet.h"

namespace bench {

namespace {

// Threads that convert on one converter: all the same pair, or each a pair of its own.
void Run(benchmark::State& state, std::vector<Pair> DataSet::*pairs, bool same) {
  const DataSet& set = GetDataSet("shipped");
  const auto& [from, to] = (set.*pairs)[same ? 0 : static_cast<std::size_t>(state.thread_index())];
  for (auto iteration : state) {
    (void)iteration;
    double value = 12.5;
    set.engine.ConvertUnit(from, to, value);
    benchmark::DoNotOptimize(value);
  }
}

// Threads that convert by one kept conversion.
void RunKept(benchmark::State& state, const units::Conversion& conversion) {
  for (auto iteration : state) {
    (void)iteration;
    double value = 12.5;
    conversion.Convert(value);
    benchmark::DoNotOptimize(value);
  }
}

template <typename Run>
void Register(const std::string& what, const std::string& units, Run run) {
  benchmark::RegisterBenchmark(("threads " + what + "/library/shipped/" + units).c_str(), run)
      ->ThreadRange(1, 4)
      ->UseRealTime();
}

void RegisterWays(const std::string& what, std::vector<Pair> DataSet::*pairs) {
  const DataSet& set = GetDataSet("shipped");
  Register(what, "one unit", [=](benchmark::State& state) { Run(state, pairs, true); });
  Register(what, "different units", [=](benchmark::State& state) { Run(state, pairs, false); });
  Register(what, "one kept",
           [conversion = Keep(set, (set.*pairs).front())](benchmark::State& state) {
             RunKept(state, conversion);
           });
}

}  // namespace

void RegisterThreads() {
  RegisterWays("slope-int", &DataSet::slopes);
  RegisterWays("expression", &DataSet::expressions);
}

}  // namespace bench
