#include "units/parse_monitors.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <string>

namespace units {

namespace {

enum Field : std::size_t { kTitle, kUnits, kMin, kMax, kPrecision };

bool IsBlank(const std::string& field) { return field == " "; }

bool IsUsable(const std::vector<std::string>& fields) {
  return fields.size() > kMax && !IsBlank(fields[kTitle]) && !IsBlank(fields[kMin]) &&
         !IsBlank(fields[kMax]);
}

float ParseLimit(const std::string& field) { return std::strtof(field.c_str(), nullptr); }

int ParsePrecision(const std::vector<std::string>& fields) {
  if (fields.size() <= kPrecision || IsBlank(fields[kPrecision])) {
    return 0;
  }
  const long precision = std::strtol(fields[kPrecision].c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long>(precision, std::numeric_limits<int>::min(),
                                           std::numeric_limits<int>::max()));
}

std::shared_ptr<ConvMonitor> MakeMonitor(int index, const std::vector<std::string>& fields) {
  const std::string& units = fields[kUnits];
  return std::make_shared<ConvMonitor>(index, fields[kTitle], IsBlank(units) ? "" : units,
                                       ParseLimit(fields[kMin]), ParseLimit(fields[kMax]),
                                       ParsePrecision(fields));
}

}  // namespace

void parse_monitors(std::vector<LineItem>* lines,
                    std::vector<std::shared_ptr<ConvMonitor>>& monitors) {
  if (lines == nullptr || lines->empty()) {
    return;
  }
  monitors.clear();
  monitors.resize(lines->size());
  std::size_t made = 0;
  for (std::size_t i = 0; i < lines->size(); ++i) {
    const std::vector<std::string>& fields = (*lines)[i].fields;
    if (IsUsable(fields)) {
      monitors[made++] = MakeMonitor(static_cast<int>(i), fields);
    }
  }
  monitors.resize(made);
}

}  // namespace units
