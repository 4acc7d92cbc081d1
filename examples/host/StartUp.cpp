#include "StartUp.h"

#include <clocale>
#include <cmath>
#include <cstdio>
#include <locale>
#include <stdexcept>

#include "units/UnitConverter.h"

namespace {

// While it lives, numbers have a decimal point; then the process has the locales that it had.
class ClassicLocale {
 public:
  ClassicLocale()
      : c(std::setlocale(LC_ALL, nullptr)), cpp(std::locale::global(std::locale::classic())) {}
  ClassicLocale(const ClassicLocale&) = delete;
  ClassicLocale& operator=(const ClassicLocale&) = delete;
  ~ClassicLocale() {
    std::locale::global(cpp);
    std::setlocale(LC_ALL, c.c_str());  // std::locale::global may have changed it
  }

 private:
  const std::string c;
  const std::locale cpp;
};

// SetXMLFilePath does not tell whether the conversions could be read, LoadFromXML does.
bool CanReadConversions(const std::string& folder, std::string& error) {
  units::UnitConverter probe;
  return probe.LoadFromXML(folder + units::UnitConverter::CONVERSION_FILENAME, error);
}

struct Known {
  units::unitTypes_e system;
  const char* dataUnit;
  double value;
  double shown;
  const char* label;
};

// Each data unit that this host shows, in each system that it offers. Labels are bytes of ISO
// 8859-1, in which the degree sign is \260.
constexpr Known kKnown[] = {
    {units::UNIT_TYPE_STD, "TEMP_CEL", 92, 197.6, "\260F"},
    {units::UNIT_TYPE_STD, "PRESSURE_KPA", 250, 36.259434432552304, "psi"},
    {units::UNIT_TYPE_STD, "EFFICIENCY_MPG", 31, 31, "mpg (US)"},
    {units::UNIT_TYPE_STD, "RPM", 2400, 2400, "RPM"},
    {units::UNIT_TYPE_METRIC, "TEMP_CEL", 92, 92, "\260C"},
    {units::UNIT_TYPE_METRIC, "PRESSURE_KPA", 250, 250, "kPa"},
    {units::UNIT_TYPE_METRIC, "EFFICIENCY_MPG", 31, 7.587567204301076, "L/100km"},
    {units::UNIT_TYPE_METRIC, "RPM", 2400, 2400, "RPM"},
};

bool IsNear(double value, double expected) {
  return std::fabs(value - expected) <= 1e-9 * std::fabs(expected);
}

bool ComesOutRight(const units::DataUnitToDisplayUnitConverter& display, const Known& known) try {
  double value = known.value;
  display.ConvertUnit(known.dataUnit, value);
  const bool isShown = IsNear(value, known.shown);
  display.UnConvertUnit(known.dataUnit, value);
  return isShown && IsNear(value, known.value) &&
         display.GetActiveLabelForUnit(known.dataUnit) == known.label;
} catch (const std::out_of_range&) {
  return false;  // the conversion lacks a constant
}

}  // namespace

void Load(units::DataUnitToDisplayUnitConverter& display, const std::string& folder) {
  const ClassicLocale locale;
  const std::string failure = "cannot load the units of " + folder + ": ";
  std::string error;
  const bool readable = CanReadConversions(folder, error);
  display.SetXMLFilePath(folder);
  if (!readable || !display.ReadAndParseXMLAssociations("VEHICLE", error)) {
    throw std::runtime_error(failure + (error.empty() ? "a file is missing or empty" : error));
  }
  for (const Known& known : kKnown) {
    display.SetUnitType(known.system);
    if (!ComesOutRight(display, known)) {
      std::string what = failure;
      what.append(known.dataUnit).append(" does not come out right\n").append(error);
      throw std::runtime_error(what);
    }
  }
  std::fprintf(stderr, "%s", error.c_str());  // what was skipped, and is not shown here
}
