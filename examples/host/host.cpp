// A host of one page: it shows values in the unit system that the driver chose, takes back what the
// driver set, and reads its monitors from lines of text.
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/parse_monitors.h"

namespace {

// Unit names are bytes of ISO 8859-1; this terminal shows UTF-8.
std::string ToUtf8(const std::string& latin1) {
  std::string utf8;
  for (const char c : latin1) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xC0 | byte >> 6);
      utf8 += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return utf8;
}

void Load(units::DataUnitToDisplayUnitConverter& display, const std::string& folder) {
  display.SetXMLFilePath(folder);
  std::string error;
  const bool loaded = display.ReadAndParseXMLAssociations("VEHICLE", error);
  if (!loaded) {
    throw std::runtime_error("cannot load the units of " + folder + ": " + error);
  }
  if (!error.empty()) {
    std::fprintf(stderr, "%s", error.c_str());  // loaded, but for the definitions named here
  }
}

void Show(const units::DataUnitToDisplayUnitConverter& display, const char* title,
          const std::string& dataUnit, double value) {
  display.ConvertUnit(dataUnit, value);
  const std::string label = display.GetActiveLabelForUnit(dataUnit);
  std::printf("  %-12s %8.2f %s\n", title, value, ToUtf8(label).c_str());
}

// What the driver set, as shown, in the unit that the engine controller counts in.
double TakeBack(const units::DataUnitToDisplayUnitConverter& display, const std::string& dataUnit,
                double shown) {
  display.UnConvertUnit(dataUnit, shown);
  return shown;
}

void ShowMonitors(const units::DataUnitToDisplayUnitConverter& display) {
  std::vector<LineItem> lines(2);
  lines[0].fields = {"Boost", "PRESSURE_KPA", "0", "250", "1"};
  lines[1].fields = {"Coolant", "TEMP_CEL", " ", "130"};  // a blank limit: no monitor
  std::vector<std::shared_ptr<units::ConvMonitor>> monitors;
  units::parse_monitors(&lines, monitors);
  for (const auto& monitor : monitors) {
    const std::string dataUnit = monitor->GetUnits();
    float min = monitor->GetMin();
    float max = monitor->GetMax();
    display.ConvertUnit(dataUnit, min);
    display.ConvertUnit(dataUnit, max);
    std::printf("  %d monitor, from %.1f to %.1f %s\n", static_cast<int>(monitors.size()), min, max,
                ToUtf8(display.GetActiveLabelForUnit(dataUnit)).c_str());
  }
}

}  // namespace

int main(int argc, char** argv) try {
  units::DataUnitToDisplayUnitConverter display;
  Load(display, argc > 1 ? argv[1] : "/usr/share/vehicle-units/");
  for (const auto system : {units::UNIT_TYPE_STD, units::UNIT_TYPE_METRIC}) {
    display.SetUnitType(system);
    std::printf("%s\n", display.IsMetricUnits() ? "metric" : "standard");
    Show(display, "coolant", "TEMP_CEL", 92);
    Show(display, "fuel use", "EFFICIENCY_MPG", 31);
    Show(display, "engine speed", "RPM", 2400);
    ShowMonitors(display);
  }
  display.SetStdUnits(true);
  std::printf("a limit of 20 psi is %.3f kPa\n", TakeBack(display, "PRESSURE_KPA", 20));
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
