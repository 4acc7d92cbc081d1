#include <benchmark/benchmark.h>
#include <udunits2.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "Benchmarks.h"
#include "DataSet.h"

namespace bench {

namespace {

using System = std::unique_ptr<ut_system, decltype(&ut_free_system)>;
using Unit = std::unique_ptr<ut_unit, decltype(&ut_free)>;
using Converter = std::unique_ptr<cv_converter, decltype(&cv_free)>;

const std::vector<Pair> kPairs{
    {"kPa", "psi"},  {"degC", "degF"}, {"km/h", "mph"}, {"bar", "kPa"},    {"kg/h", "g/s"},
    {"L", "gallon"}, {"kg", "lb"},     {"km", "mile"},  {"N.m", "ft.lbf"}, {"degF", "degC"},
};

ut_system* UnitSystem() {
  static const System system = [] {
    ut_set_error_message_handler(ut_ignore);
    System read(ut_read_xml(nullptr), &ut_free_system);
    ut_unit* mph = ut_parse(read.get(), "mile/hour", UT_ASCII);
    ut_map_name_to_unit("mph", UT_ASCII, mph);
    ut_free(mph);
    return read;
  }();
  return system.get();
}

Converter Find(const Pair& pair) {
  const Unit from(ut_parse(UnitSystem(), pair.from.c_str(), UT_ASCII), &ut_free);
  const Unit to(ut_parse(UnitSystem(), pair.to.c_str(), UT_ASCII), &ut_free);
  Converter converter(ut_get_converter(from.get(), to.get()), &cv_free);
  if (converter == nullptr) {
    throw std::runtime_error("UDUNITS-2 does not convert " + pair.from + " to " + pair.to);
  }
  return converter;
}

void ByName(benchmark::State& state, std::size_t count) {
  std::size_t i = 0;
  for (auto iteration : state) {
    (void)iteration;
    benchmark::DoNotOptimize(cv_convert_double(Find(kPairs[i]).get(), 12.5));
    i = i + 1 < count ? i + 1 : 0;
  }
}

}  // namespace

void RegisterPeers() {
  UnitSystem();
  for (const auto& [which, count] : {std::pair{"hot", std::size_t{1}}, {"mix", kPairs.size()}}) {
    benchmark::RegisterBenchmark(("peer/UDUNITS-2 by name/own/" + std::string(which)).c_str(),
                                 ByName, count);
  }
}

}  // namespace bench
