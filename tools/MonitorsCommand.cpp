#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Commands.h"
#include "Failure.h"
#include "Numbers.h"
#include "Quoted.h"
#include "Table.h"
#include "UnitSystems.h"
#include "units/parse_monitors.h"

namespace {

struct Options : UnitSystemOptions {
  std::string file;
};

// One line of the file with the monitor that the library made of it.
struct Line {
  std::string title;
  std::shared_ptr<units::ConvMonitor> monitor;
  bool hasValue = false;
};

constexpr std::size_t kValueField = 5;

std::vector<std::string> Split(std::string line) {
  if (!line.empty() && line.back() == '\r') {
    line.pop_back();
  }
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; std::getline(stream, field, '\t');) {
    fields.push_back(field);
  }
  return fields;
}

std::string WhySkipped(const std::vector<std::string>& fields) {
  constexpr std::array<const char*, 4> kNames{"title", "units", "lower limit", "upper limit"};
  constexpr std::size_t kMayBeBlank = 1;
  std::size_t i = 0;
  while (i < fields.size() && (fields[i] != " " || i == kMayBeBlank)) {
    ++i;
  }
  const std::string name = kNames.at(i);
  if (i < fields.size()) {
    return "its " + name + " is blank";
  }
  return "it has no " + name;
}

// Reads the monitors of a file; what is wrong with a line goes to standard error.
class MonitorFile {
 public:
  MonitorFile(const std::string& path, const Charset& terminal) : path(path), terminal(terminal) {
    std::ifstream file(path, std::ios::binary);
    for (std::string text; std::getline(file, text);) {
      ++count;
      Add(Split(text));
    }
    if (!file.eof()) {
      throw Failure("cannot read " + path);
    }
    if (lines.size() < count) {
      Tell(" " + std::to_string(count - lines.size()) + " of " + std::to_string(count) +
           " lines skipped");
    }
    if (lines.empty()) {
      throw Failure(path + " has no usable line");
    }
  }

  const std::vector<Line>& Lines() const { return lines; }

 private:
  void Add(std::vector<std::string> fields) {
    std::vector<LineItem> items{{static_cast<std::int32_t>(count), std::move(fields)}};
    std::vector<std::shared_ptr<units::ConvMonitor>> monitors;
    units::parse_monitors(&items, monitors);
    const std::vector<std::string>& read = items.front().fields;
    if (monitors.empty()) {
      Tell(std::to_string(count) + ": skipped: " + WhySkipped(read));
      return;
    }
    lines.push_back({read.front(), monitors.front()});
    if (read.size() > kValueField) {
      SetValue(lines.back(), read[kValueField]);
    }
  }

  void SetValue(Line& line, const std::string& text) const {
    if (const auto value = ParseNumber(text)) {
      line.monitor->SetValue(static_cast<float>(*value));
      line.hasValue = true;
    } else {
      Tell(std::to_string(count) + ": the value is not a number: " + Quoted(text));
    }
  }

  void Tell(const std::string& message) const {
    std::cerr << terminal.FromLatin1(path + ':' + message) << '\n';
  }

  std::string path;
  const Charset& terminal;
  std::size_t count = 0;
  std::vector<Line> lines;
};

std::string Format(const units::ConvMonitor& monitor, float value) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), monitor.GetPrecisionStr(), static_cast<double>(value));
  return text.data();
}

std::string MarkOf(const Line& line) {
  const units::ConvMonitor& monitor = *line.monitor;
  const bool outside = line.hasValue && (monitor.GetValue() < monitor.GetMin() ||
                                         monitor.GetValue() > monitor.GetMax());
  std::string mark = outside ? "OUTSIDE" : "";
  if (monitor.IsMinMaxInverted()) {
    mark += outside ? ", limits inverted" : "limits inverted";
  }
  return mark;
}

void AddRow(Table& table, const Line& line,
            const units::DataUnitToDisplayUnitConverter& converter) {
  const units::ConvMonitor& monitor = *line.monitor;
  float value = monitor.GetValue();
  float lower = monitor.GetMin();
  float upper = monitor.GetMax();
  for (float* shown : {&value, &lower, &upper}) {
    converter.ConvertUnit(monitor.GetUnits(), *shown);
  }
  if (lower > upper) {
    std::swap(lower, upper);
  }
  table.AddRow({line.title, line.hasValue ? Format(monitor, value) : "-", Format(monitor, lower),
                Format(monitor, upper), converter.GetActiveLabelForUnit(monitor.GetUnits()),
                MarkOf(line)});
}

void Run(const Options& options, const Charset& terminal) {
  UnitSystems systems(options);
  const MonitorFile file(options.file, terminal);
  for (const UnitSystems::System& system : systems.Chosen()) {
    Table table(
        {Table::kLeft, Table::kRight, Table::kRight, Table::kRight, Table::kLeft, Table::kLeft});
    table.AddRow({system.name, "value", "lower", "upper", "unit"});
    for (const Line& line : file.Lines()) {
      AddRow(table, line, systems.In(system));
    }
    table.Print(terminal);
  }
}

}  // namespace

void AddMonitorsCommand(CLI::App& app, const Charset& terminal) {
  auto options = std::make_shared<Options>();
  CLI::App& command = *app.add_subcommand("monitors", "Show the monitors of a text file");
  options->AddOptions(command);
  command
      .add_option("FILE", options->file,
                  "Lines of tab-separated title, units, lower limit, upper limit, precision, value")
      ->required();
  command.callback([options, &terminal] { Run(*options, terminal); });
}
