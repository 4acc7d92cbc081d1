#include <benchmark/benchmark.h>
#include <udunits2.h>

#include <array>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Benchmarks.h"
#include "DataSet.h"

namespace bench {

namespace {

// The same conversion, y = 1.8 x + 32, kept of the library and of UDUNITS-2.
const units::Conversion& Slope() {
  static const units::Conversion conversion = Keep(GetDataSet("shipped"), {"TEMP_CEL", "\260F"});
  return conversion;
}

const cv_converter* PeerSlope() {
  using Converter = std::unique_ptr<cv_converter, decltype(&cv_free)>;
  static const Converter converter(cv_get_galilean(1.8, 32), &cv_free);
  return converter.get();
}

template <typename Value, typename Call>
void RegisterValue(const std::string& name, Call call) {
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    for (auto iteration : state) {
      (void)iteration;
      Value value = 12.5;
      call(value);
      benchmark::DoNotOptimize(value);
    }
  });
}

void RegisterValues() {
  const auto library = [conversion = Slope()](auto& value) { conversion.Convert(value); };
  RegisterValue<double>("kept slope-int/library", library);
  RegisterValue<float>("kept slope-int float/library", library);
  RegisterValue<double>("kept slope-int/UDUNITS-2", [converter = PeerSlope()](double& value) {
    value = cv_convert_double(converter, value);
  });
  RegisterValue<float>("kept slope-int float/UDUNITS-2", [converter = PeerSlope()](float& value) {
    value = cv_convert_float(converter, value);
  });
}

void RegisterExpression() {
  DataSet& set = GetDataSet("shipped");
  const Pair& pair = set.expressions.front();
  RegisterValue<double>("kept expression/library", [conversion = Keep(set, pair)](double& value) {
    conversion.Convert(value);
  });
  RegisterValue<double>("kept expression/by name",
                        [&](double& value) { set.engine.ConvertUnit(pair.from, pair.to, value); });
}

// What a gauge shows: the value in its display unit and the label beside it.
void RegisterDisplay() {
  DataSet& set = GetDataSet("shipped");
  const std::string& unit = set.shown.front();
  RegisterValue<double>("kept display/library",
                        [display = set.display.FindDisplay(unit)](double& value) {
                          display.toDisplay.Convert(value);
                          benchmark::DoNotOptimize(display.label.c_str());
                        });
  RegisterValue<double>("kept display/by name", [&](double& value) {
    set.display.ConvertUnit(unit, value);
    benchmark::DoNotOptimize(set.display.GetActiveLabelForUnit(unit));
  });
}

struct alignas(64) CacheLine {
  std::array<double, 8> values;
};

// Two arrays of `count` values, the second behind the first, for everyone the same two: how they
// lie to each other and to the cache lines matters.
double* GetArrays(std::size_t count) {
  static std::map<std::size_t, std::vector<CacheLine>> all;
  const auto [place, isNew] = all.try_emplace(count, 2 * count / 8);
  double* const values = place->second.front().values.data();
  for (std::size_t i = 0; isNew && i < count; ++i) {
    values[i] = static_cast<double>(i % 1000) / 8;
  }
  return values;
}

template <typename Call>
void RegisterArray(const std::string& who, const std::string& label, std::size_t count, Call call) {
  benchmark::RegisterBenchmark(("kept array/" + who + '/' + label).c_str(),
                               [=](benchmark::State& state) {
                                 double* const from = GetArrays(count);
                                 for (auto iteration : state) {
                                   (void)iteration;
                                   call(from, from + count);
                                   benchmark::ClobberMemory();
                                 }
                                 state.counters["items"] = static_cast<double>(count);
                               });
}

void RegisterArrays() {
  for (const auto& [label, count] : {std::pair{"1,000", std::size_t{1000}},
                                     {"100,000", std::size_t{100'000}},
                                     {"10,000,000", std::size_t{10'000'000}}}) {
    RegisterArray("library", label, count, [count = count](const double* from, double* to) {
      Slope().Convert(from, to, count);
    });
    RegisterArray("UDUNITS-2", label, count, [count = count](const double* from, double* to) {
      cv_convert_doubles(PeerSlope(), from, count, to);
    });
    RegisterArray("memcpy", label, count, [count = count](const double* from, double* to) {
      std::memcpy(to, from, count * sizeof(double));
    });
  }
}

}  // namespace

void RegisterKept() {
  RegisterValues();
  RegisterExpression();
  RegisterDisplay();
  RegisterArrays();
}

}  // namespace bench
