#include "program/MonitorsCommand.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "program/Complaints.h"
#include "program/Table.h"
#include "text/Failure.h"
#include "text/Numbers.h"
#include "units/parse_monitors.h"
#include "util/Text.h"
#include "xml/PlaceAt.h"

namespace {

// One line of the file with the monitor that the library made of it.
struct Line {
  std::string title;
  std::shared_ptr<units::ConvMonitor> monitor;
  bool hasValue = false;
  Message unitsPlace;
};

enum Field : std::size_t { kTitle, kUnits, kMin, kMax, kPrecision, kValue };

constexpr const char* kNames[] = {"title", "units", "lower limit", "upper limit"};

std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; std::getline(stream, field, '\t');) {
    fields.push_back(field);
  }
  return fields;
}

// Whether the library reads all of `text` as a limit.
bool IsNumber(const std::string& text) {
  char* end = nullptr;
  const float number = std::strtof(text.c_str(), &end);
  return end != text.c_str() &&
         text.find_first_not_of(' ', static_cast<std::size_t>(end - text.c_str())) == text.npos &&
         !std::isnan(number);
}

// Reads the monitors of a file and tells what is wrong with its lines.
class MonitorFile {
 public:
  MonitorFile(const std::string& path, const UnitSystems& systems, Complaints& notes,
              Complaints& complaints)
      : path(path), systems(systems), notes(notes), complaints(complaints) {
    std::ifstream file(path, std::ios::binary);
    while (std::getline(file, text)) {
      ++count;
      Add();
    }
    if (!file.eof()) {
      throw Failure("cannot read " + Message::Verbatim(path));
    }
    if (lines.size() < count) {
      notes.Tell(Message::Verbatim(path) + ": " + std::to_string(count - lines.size()) + " of " +
                 std::to_string(count) + " lines skipped");
    }
    if (lines.empty()) {
      throw Failure(Message::Verbatim(path) + " has no usable line");
    }
  }

  const std::vector<Line>& Lines() const { return lines; }

 private:
  void Add() {
    if (!text.empty() && text.back() == '\r') {
      text.pop_back();
    }
    std::vector<LineItem> items{{static_cast<std::int32_t>(count), Split(text)}};
    std::vector<std::shared_ptr<units::ConvMonitor>> monitors;
    units::parse_monitors(&items, monitors);
    fields = items.front().fields;
    if (monitors.empty()) {
      TellWhySkipped();
      return;
    }
    lines.push_back({fields[kTitle], monitors.front(), false, PlaceOf(kUnits)});
    CheckFields(monitors.front()->GetUnits());
    if (fields.size() > kValue) {
      SetValue(lines.back());
    }
  }

  void TellWhySkipped() {
    std::size_t i = 0;
    while (i < fields.size() && (fields[i] != " " || i == kUnits)) {
      ++i;
    }
    const std::string name(kNames[i]);
    notes.Tell(PlaceOf(i) + ": skipped: " +
               (i < fields.size() ? "its " + name + " is blank" : "it has no " + name));
  }

  void CheckFields(const std::string& units) {
    for (const Field limit : {kMin, kMax}) {
      if (!IsNumber(fields[limit])) {
        complaints.Tell(PlaceOf(limit) + ": the " + kNames[limit] +
                        " is not a number: " + util::Quoted(fields[limit]));
      }
    }
    try {
      if (!units.empty()) {
        systems.CheckUnit(units);
      }
    } catch (const Failure& failure) {
      complaints.Tell(PlaceOf(kUnits) + ": " + failure.Told());
    }
  }

  void SetValue(Line& line) {
    if (const auto value = ParseNumber(fields[kValue])) {
      line.monitor->SetValue(static_cast<float>(*value));
      line.hasValue = true;
    } else {
      notes.Tell(PlaceOf(kValue) + ": the value is not a number: " + util::Quoted(fields[kValue]));
    }
  }

  // Where the field `index` begins, or would.
  Message PlaceOf(std::size_t index) const {
    std::size_t offset = 0;
    for (std::size_t i = 0; i < index && i < fields.size(); ++i) {
      offset += fields[i].size() + 1;
    }
    const int column = xml::PlaceAt(text, std::min(offset, text.size()), false).column;
    return Message::Verbatim(path) + ":" + std::to_string(count) + ":" + std::to_string(column);
  }

  const std::string& path;
  const UnitSystems& systems;
  Complaints& notes;
  Complaints& complaints;
  std::string text;
  std::vector<std::string> fields;
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

// The cells of a row from the value on; a row of values that cannot be converted has none.
std::vector<std::string> CellsOf(const Line& line,
                                 const units::DataUnitToDisplayUnitConverter::Display& display) {
  const units::ConvMonitor& monitor = *line.monitor;
  float value = monitor.GetValue();
  float lower = monitor.GetMin();
  float upper = monitor.GetMax();
  for (float* shown : {&value, &lower, &upper}) {
    display.toDisplay.Convert(*shown);
  }
  if (lower > upper) {
    std::swap(lower, upper);
  }
  return {line.hasValue ? Format(monitor, value) : "-", Format(monitor, lower),
          Format(monitor, upper), display.label, MarkOf(line)};
}

void AddRow(Table& table, const Line& line, const UnitSystems::System& system, UnitSystems& systems,
            Complaints& complaints) {
  std::vector<std::string> row{"-", "-", "-"};
  try {
    row = CellsOf(line, systems.Find(system, line.monitor->GetUnits()));
  } catch (const Failure& failure) {
    complaints.Tell(line.unitsPlace + ": " + failure.Told());
  }
  row.insert(row.begin(), line.title);
  table.AddRow(row);
}

}  // namespace

int RunMonitors(const MonitorsOptions& options, const Charset& terminal) {
  UnitSystems systems(options.systems, terminal);
  Complaints notes(terminal);
  Complaints complaints(terminal);
  const MonitorFile file(options.file, systems, notes, complaints);
  for (const UnitSystems::System& system : systems.Chosen()) {
    Table table(
        {Table::kLeft, Table::kRight, Table::kRight, Table::kRight, Table::kLeft, Table::kLeft});
    table.AddRow({system.name, "value", "lower", "upper", "unit"});
    for (const Line& line : file.Lines()) {
      AddRow(table, line, system, systems, complaints);
    }
    table.Print(terminal);
  }
  return complaints.Status();
}
