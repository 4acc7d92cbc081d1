#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "Failure.h"
#include "Numbers.h"
#include "Quoted.h"
#include "Table.h"
#include "UnitSystems.h"

namespace {

struct Options : UnitSystemOptions {
  std::vector<std::string> readings;
};

std::string ForReading(double value) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.6g", value);
  return text;
}

class Readings {
 public:
  explicit Readings(const Options& options) : systems(options), table(Columns()) {
    std::vector<std::string> heading{"data unit", "value"};
    for (const UnitSystems::System& system : systems.Chosen()) {
      heading.emplace_back();
      heading.push_back(system.name);
    }
    table.AddRow(heading);
  }

  void Add(const std::string& reading) {
    const auto equals = reading.rfind('=');
    if (equals == std::string::npos) {
      throw Failure("not DATAUNIT=VALUE: " + Quoted(reading));
    }
    const std::string unit = reading.substr(0, equals);
    const auto value = ParseNumber(reading.substr(equals + 1));
    if (!value) {
      throw Failure("not a number: " + Quoted(reading.substr(equals + 1)));
    }
    systems.CheckDataUnit(unit);
    AddRow(unit, *value);
  }

  void Print(const Charset& terminal) const { table.Print(terminal); }

 private:
  std::vector<Table::Alignment> Columns() const {
    std::vector<Table::Alignment> columns{Table::kLeft, Table::kRight};
    for (std::size_t i = 0; i < systems.Chosen().size(); ++i) {
      columns.insert(columns.end(), {Table::kRight, Table::kLeft});
    }
    return columns;
  }

  void AddRow(const std::string& unit, double value) {
    std::vector<std::string> row(1, unit);
    row.push_back(FormatNumber(value));
    for (const UnitSystems::System& system : systems.Chosen()) {
      const auto& converter = systems.In(system);
      double shown = value;
      converter.ConvertUnit(unit, shown);
      row.push_back(ForReading(shown));
      row.push_back(converter.GetActiveLabelForUnit(unit));
    }
    table.AddRow(row);
  }

  UnitSystems systems;
  Table table;
};

void Run(const Options& options, const Charset& terminal) {
  Readings readings(options);
  for (const std::string& reading : options.readings) {
    readings.Add(terminal.ToLatin1(reading));
  }
  if (options.readings.empty()) {
    for (std::string line; std::getline(std::cin, line);) {
      readings.Add(terminal.ToLatin1(line));
    }
  }
  readings.Print(terminal);
}

}  // namespace

void AddShowCommand(CLI::App& app, const Charset& terminal) {
  auto options = std::make_shared<Options>();
  CLI::App& command = *app.add_subcommand("show", "Show readings as a driver would see them");
  options->AddOptions(command);
  command.add_option("DATAUNIT=VALUE", options->readings,
                     "Readings; from standard input, one a line, if none are given");
  command.callback([options, &terminal] { Run(*options, terminal); });
}
