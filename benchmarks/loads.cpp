#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <tinyxml.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Benchmarks.h"
#include "DataSet.h"
#include "units/parse_monitors.h"

namespace bench {

namespace {

void CountItems(benchmark::State& state, const std::string& set) {
  std::string digits = set.substr(0, set.find(' '));
  digits.erase(std::remove(digits.begin(), digits.end(), ','), digits.end());
  state.counters["items"] = std::stod(digits);
}

void Load(benchmark::State& state, const std::string& set) {
  const std::string path = WriteConversionFile(set);
  std::optional<units::UnitConverter> converter(std::in_place);
  for (auto iteration : state) {
    (void)iteration;
    std::string error;
    if (!converter->LoadFromXML(path, error) || !error.empty()) {
      throw std::runtime_error("not loaded: " + path);
    }
    state.PauseTiming();
    converter.emplace();  // destroys the old one first
    state.ResumeTiming();
  }
  CountItems(state, set);
}

// What TinyXML alone takes for the same text, from its bytes in memory until the tree is gone.
void Parse(benchmark::State& state, const std::string& set) {
  std::stringstream text;
  text << std::ifstream(WriteConversionFile(set), std::ios::binary).rdbuf();
  const std::string content = text.str();
  for (auto iteration : state) {
    (void)iteration;
    TiXmlDocument document;
    document.Parse(content.c_str());
    benchmark::DoNotOptimize(document.RootElement());
  }
  CountItems(state, set);
}

void ParseMonitors(benchmark::State& state, std::size_t count) {
  std::vector<LineItem> lines(count, {1, {"Boost", "PRESSURE_KPA", "-15", "30.5", "1"}});
  std::vector<std::shared_ptr<units::ConvMonitor>> monitors;
  for (auto iteration : state) {
    (void)iteration;
    units::parse_monitors(&lines, monitors);
  }
  state.counters["items"] = static_cast<double>(count);
}

// Starts a program that does nothing and waits for its end.
void Start(benchmark::State& state, const char* program) {
  for (auto iteration : state) {
    (void)iteration;
    std::string name = program;
    char* const arguments[] = {name.data(), nullptr};
    pid_t child = 0;
    int status = -1;
    if (posix_spawn(&child, program, nullptr, nullptr, arguments, environ) != 0 ||
        waitpid(child, &status, 0) != child || status != 0) {
      throw std::runtime_error("cannot run " + name);
    }
  }
}

}  // namespace

void RegisterLoads() {
  for (const char* size : {"100", "1,000", "10,000", "100,000"}) {
    for (const std::string names : {"", " numbered"}) {
      for (const auto& [who, run] : {std::pair{"TinyXML/", &Parse}, std::pair{"library/", &Load}}) {
        const std::string set = size + names;
        benchmark::RegisterBenchmark(("load/" + (who + set)).c_str(), run, set)
            ->Unit(benchmark::kMillisecond);
      }
    }
  }
  for (const auto& [lines, count] : {std::pair{"100", 100}, {"10,000", 10'000}}) {
    benchmark::RegisterBenchmark(("parse_monitors/library/" + std::string(lines)).c_str(),
                                 ParseMonitors, count);
  }
  benchmark::RegisterBenchmark("start/bare", Start, VEHICLE_UNITS_START_BARE)->UseRealTime();
  benchmark::RegisterBenchmark("start/library", Start, VEHICLE_UNITS_START_LIBRARY)->UseRealTime();
}

}  // namespace bench
