// The input is a list of monitor lines, whose fields are separated by tabs.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "Require.h"
#include "units/parse_monitors.h"

namespace {

std::vector<LineItem> Split(const std::string& input) {
  std::vector<LineItem> lines;
  std::istringstream stream(input);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back({static_cast<std::int32_t>(lines.size()), {}});
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, '\t');) {
      lines.back().fields.push_back(field);
    }
  }
  return lines;
}

bool IsUsable(const std::vector<std::string>& fields) {
  return fields.size() >= 4 && fields[0] != " " && fields[2] != " " && fields[3] != " ";
}

void Compare(const units::ConvMonitor& monitor, const std::vector<std::string>& fields) {
  const float first = std::strtof(fields[2].c_str(), nullptr);
  const float second = std::strtof(fields[3].c_str(), nullptr);
  Require(monitor.IsMinMaxInverted() == (first > second), "limits the wrong way are inverted");
  Require(!(monitor.GetMin() > monitor.GetMax()), "the limits are in order");
  Require(std::string(monitor.GetUnits()) == (fields[1] == " " ? "" : fields[1].c_str()),
          "units as they stand, blank ones empty");
  Require(*monitor.GetName() == '\0', "no name");
  Require(!monitor.GetTriggerVal().second, "no trigger");
  Require(*monitor.GetPrecisionStr() == '%', "a format");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<LineItem> lines = Split(std::string(reinterpret_cast<const char*>(data), size));
  std::vector<std::shared_ptr<units::ConvMonitor>> monitors;
  units::parse_monitors(&lines, monitors);
  std::size_t made = 0;
  for (const LineItem& line : lines) {
    if (IsUsable(line.fields)) {
      Require(made < monitors.size() && monitors[made] != nullptr, "a monitor of each usable line");
      Compare(*monitors[made++], line.fields);
    }
  }
  Require(made == monitors.size(), "no monitor of any other line");
  return 0;
}
