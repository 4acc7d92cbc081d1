// A host of one page: it shows values in the unit system that the driver chose, takes back what the
// driver set, and reads its monitors from lines of text.
#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <utility>
#include <vector>

#include "StartUp.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/parse_monitors.h"

namespace {

struct Reading {
  double value;
  std::string label;
};

// Any number of threads may show and take back values while another chooses the unit system.
class Panel {
 public:
  explicit Panel(const std::string& folder) { Load(display, folder); }

  void Choose(units::unitTypes_e system) {
    const std::unique_lock<std::shared_mutex> lock(mutex);
    display.SetUnitType(system);
  }

  Reading Show(const std::string& dataUnit, double value) const {
    const std::shared_lock<std::shared_mutex> lock(mutex);
    display.ConvertUnit(dataUnit, value);
    return {value, display.GetActiveLabelForUnit(dataUnit)};
  }

  // What the driver set, as shown, in the unit that the engine controller counts in.
  double TakeBack(const std::string& dataUnit, double shown) const {
    const std::shared_lock<std::shared_mutex> lock(mutex);
    display.UnConvertUnit(dataUnit, shown);
    return shown;
  }

 private:
  units::DataUnitToDisplayUnitConverter display;
  mutable std::shared_mutex mutex;
};

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

void Print(const char* title, const Reading& reading) {
  std::printf("  %-12s %8.2f %s\n", title, reading.value, ToUtf8(reading.label).c_str());
}

void ShowMonitors(const Panel& panel) {
  std::vector<LineItem> lines(2);
  lines[0].fields = {"Boost", "PRESSURE_KPA", "0", "250", "1"};
  lines[1].fields = {"Coolant", "TEMP_CEL", " ", "130"};  // a blank limit: no monitor
  std::vector<std::shared_ptr<units::ConvMonitor>> monitors;
  units::parse_monitors(&lines, monitors);
  for (const auto& monitor : monitors) {
    const Reading min = panel.Show(monitor->GetUnits(), monitor->GetMin());
    const Reading max = panel.Show(monitor->GetUnits(), monitor->GetMax());
    std::printf("  %d monitor, from %.1f to %.1f %s\n", static_cast<int>(monitors.size()),
                min.value, max.value, ToUtf8(max.label).c_str());
  }
}

}  // namespace

int main(int argc, char** argv) try {
  Panel panel(argc > 1 ? argv[1] : "/usr/share/vehicle-units/");
  for (const auto& [system, title] : {std::pair(units::UNIT_TYPE_STD, "standard"),
                                      std::pair(units::UNIT_TYPE_METRIC, "metric")}) {
    panel.Choose(system);
    std::printf("%s\n", title);
    Print("coolant", panel.Show("TEMP_CEL", 92));
    Print("fuel use", panel.Show("EFFICIENCY_MPG", 31));
    Print("engine speed", panel.Show("RPM", 2400));
    ShowMonitors(panel);
  }
  panel.Choose(units::UNIT_TYPE_STD);
  std::printf("a limit of 20 psi is %.3f kPa\n", panel.TakeBack("PRESSURE_KPA", 20));
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
