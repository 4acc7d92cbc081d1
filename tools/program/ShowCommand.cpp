#include "program/ShowCommand.h"

#include <string>
#include <vector>

#include "program/Complaints.h"
#include "program/InputLines.h"
#include "program/Table.h"
#include "text/Charset.h"
#include "text/Failure.h"
#include "text/Numbers.h"
#include "util/Text.h"

namespace {

class Readings {
 public:
  Readings(const ShowOptions& options, const Charset& terminal)
      : systems(options.systems, terminal), complaints(terminal), table(Columns()) {
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
      throw Failure("not DATAUNIT=VALUE: " + util::Quoted(reading));
    }
    const std::string unit = reading.substr(0, equals);
    const auto value = ParseNumber(reading.substr(equals + 1));
    if (!value) {
      throw Failure("not a number: " + util::Quoted(reading.substr(equals + 1)));
    }
    systems.CheckDataUnit(unit);
    AddRow(unit, *value);
  }

  void Print(const Charset& terminal) const { table.Print(terminal); }

  int Status() const { return complaints.Status(); }

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
      try {
        const auto display = systems.Find(system, unit);
        double shown = value;
        display.toDisplay.Convert(shown);
        row.push_back(FormatNumber(shown, 6));
        row.push_back(display.label);
      } catch (const Failure& failure) {
        complaints.Tell("vehicle-units: " + failure.Told());
        row.insert(row.end(), {"-", ""});
      }
    }
    table.AddRow(row);
  }

  UnitSystems systems;
  Complaints complaints;
  Table table;
};

}  // namespace

int RunShow(const ShowOptions& options, const Charset& terminal) {
  Readings readings(options, terminal);
  for (const std::string& reading : options.readings) {
    readings.Add(terminal.ToLatin1(reading));
  }
  if (options.readings.empty()) {
    ForEachInputLine([&](const std::string& line) { readings.Add(terminal.ToLatin1(line)); });
  }
  readings.Print(terminal);
  return readings.Status();
}
