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

}  // namespace

void RegisterThreads() {
  GetDataSet("shipped");
  for (const bool same : {true, false}) {
    const std::string units = same ? "one unit" : "different units";
    for (const auto& [what, pairs] : {std::pair{"threads slope-int", &DataSet::slopes},
                                      std::pair{"threads expression", &DataSet::expressions}}) {
      const std::string name = what + ("/library/shipped/" + units);
      benchmark::RegisterBenchmark(
          name.c_str(), [pairs = pairs, same](benchmark::State& state) { Run(state, pairs, same); })
          ->ThreadRange(1, 4)
          ->UseRealTime();
    }
  }
}

}  // namespace bench
