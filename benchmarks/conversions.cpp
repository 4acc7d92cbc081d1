#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "Benchmarks.h"
#include "DataSet.h"

namespace bench {

namespace {

// Calls with one item again and again, or with all of them in turn.
template <typename Value, typename Item, typename Call>
void Run(benchmark::State& state, const std::vector<Item>& items, bool mix, Call call) {
  const std::size_t count = mix ? items.size() : 1;
  std::size_t i = 0;
  for (auto iteration : state) {
    (void)iteration;
    Value value = 12.5;
    call(items[i], value);
    benchmark::DoNotOptimize(value);
    i = i + 1 < count ? i + 1 : 0;
  }
}

std::string Name(const std::string& what, const std::string& who, const std::string& data,
                 bool mix) {
  return what + '/' + who + '/' + data + (mix ? "/mix" : "/hot");
}

// `items(set)` are handed one by one to `library(set, item, value)` and to `bare(set, item,
// value)`.
template <typename Value, typename Items, typename Library, typename Bare>
void Register(const std::string& what, Items items, Library library, Bare bare) {
  for (const std::string data : {"shipped", "100", "10,000", "100,000"}) {
    for (const bool mix : {false, true}) {
      const auto add = [&](const char* who, auto call) {
        const std::string name = Name(what, who, data, mix);
        benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
          DataSet& set = GetDataSet(data);
          Run<Value>(state, items(set), mix,
                     [&](const auto& item, Value& value) { call(set, item, value); });
        });
      };
      add("bare", bare);
      add("library", library);
    }
  }
}

const auto kSlopes = [](const DataSet& set) -> auto& { return set.slopes; };
const auto kExpressions = [](const DataSet& set) -> auto& { return set.expressions; };
const auto kShown = [](const DataSet& set) -> auto& { return set.shown; };

const auto kEngine = [](DataSet& set, const Pair& pair, auto& value) {
  set.engine.ConvertUnit(pair.from, pair.to, value);
};
const auto kBareEngine = [](DataSet& set, const Pair& pair, auto& value) {
  bare::ConvertUnit(set.bare, pair.from, pair.to, value);
};
const auto kDisplay = [](DataSet& set, const std::string& unit, auto& value) {
  set.display.ConvertUnit(unit, value);
};
const auto kBareDisplay = [](DataSet& set, const std::string& unit, auto& value) {
  bare::DisplayUnit(set.bare, unit, value);
};

void RegisterEngine() {
  Register<double>("slope-int", kSlopes, kEngine, kBareEngine);
  Register<float>("slope-int float", kSlopes, kEngine, kBareEngine);
  Register<double>("expression", kExpressions, kEngine, kBareEngine);
  Register<float>("expression float", kExpressions, kEngine, kBareEngine);
  static const std::string unknown = "PRESSURE_UNKNOWN";
  Register<double>(
      "no such target", kSlopes,
      [](DataSet& set, const Pair& pair, double& value) {
        set.engine.ConvertUnit(pair.from, unknown, value);
      },
      [](DataSet& set, const Pair& pair, double& value) {
        bare::ConvertUnit(set.bare, pair.from, unknown, value);
      });
  Register<double>(
      "no such source", kSlopes,
      [](DataSet& set, const Pair& pair, double& value) {
        set.engine.ConvertUnit(unknown, pair.to, value);
      },
      [](DataSet& set, const Pair& pair, double& value) {
        bare::ConvertUnit(set.bare, unknown, pair.to, value);
      });
}

void RegisterDisplay() {
  Register<double>("display", kShown, kDisplay, kBareDisplay);
  Register<float>("display float", kShown, kDisplay, kBareDisplay);
  Register<double>(
      "display back", kShown,
      [](DataSet& set, const std::string& unit, double& value) {
        set.display.UnConvertUnit(unit, value);
      },
      [](DataSet& set, const std::string& unit, double& value) {
        bare::UndisplayUnit(set.bare, unit, value);
      });
  Register<double>(
      "label", kShown,
      [](DataSet& set, const std::string& unit, double&) {
        benchmark::DoNotOptimize(set.display.GetActiveLabelForUnit(unit));
      },
      [](DataSet& set, const std::string& unit, double&) {
        benchmark::DoNotOptimize(bare::Label(set.bare, unit));
      });
}

}  // namespace

void RegisterConversions() {
  RegisterEngine();
  RegisterDisplay();
  // The hash of numbered names clusters: the same look-ups beside those of realistic names.
  for (const char* names : {"100,000", "100,000 numbered"}) {
    benchmark::RegisterBenchmark(
        ("names/library/" + std::string(names) + "/mix").c_str(), [=](benchmark::State& state) {
          DataSet& set = GetDataSet(names);
          Run<double>(state, set.slopes, true,
                      [&](const Pair& pair, double& value) { kEngine(set, pair, value); });
        });
  }
}

}  // namespace bench
