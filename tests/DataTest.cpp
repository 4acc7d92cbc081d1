#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/UnitNames.h"

namespace {

constexpr long double kInch = 0.0254L;                               // m
constexpr long double kFoot = 12 * kInch;                            // m
constexpr long double kMile = 1609.344L;                             // m
constexpr long double kPound = 0.45359237L;                          // kg
constexpr long double kGravity = 9.80665L;                           // m/s2
constexpr long double kPsi = kPound * kGravity / (kInch * kInch);    // Pa
constexpr long double kBar = 100000;                                 // Pa
constexpr long double kInHg = 3386.388640341L;                       // Pa
constexpr long double kGallon = 231 * kInch * kInch * kInch * 1000;  // L
constexpr long double kImperialGallon = 4.54609L;                    // L
constexpr long double kCubicFoot = kFoot * kFoot * kFoot * 1000;     // L
constexpr long double kFahrenheit = 1 / 1.8L;                        // K
constexpr long double kPetrolAfr = 14.7L;

// A unit as the defining constants have it: base = scale x + offset, or base = scale / x for a
// reciprocal one, in a base unit common to its quantity.
struct Unit {
  std::string quantity;
  std::string identifier;
  std::string label;
  long double scale;
  long double offset = 0;
  bool reciprocal = false;
};

const std::vector<Unit> kUnits{
    {"pressure", "PRESSURE_MILLIBAR", "mbar", kBar / 1000},
    {"pressure", "PRESSURE_BAR", "bar", kBar},
    {"pressure", "PRESSURE_HPA", "hPa", kBar / 1000},
    {"pressure", "PRESSURE_MEGAPA", "MPa", 10 * kBar},
    {"pressure", "PRESSURE_KPA", "kPa", kBar / 100},
    {"pressure", "PRESSURE_PSI", "psi", kPsi},
    {"pressure", "PRESSURE_IN_HG", "inHg", kInHg},
    {"absolute pressure", "PRESSURE_BAR_A", "bar (abs)", kBar},
    {"absolute pressure", "PRESSURE_PSI_A", "psi (abs)", kPsi},
    {"gauge pressure", "PRESSURE_BAR_G", "bar (g)", kBar},
    {"gauge pressure", "PRESSURE_PSI_G", "psi (g)", kPsi},
    {"temperature", "TEMP_CEL", "\260C", 1},
    {"temperature", "TEMP_FAH", "\260F", kFahrenheit, -32 * kFahrenheit},
    {"speed", "SPEED_MPH", "mph", kMile / 1000},
    {"speed", "SPEED_KPH", "km/h", 1},
    {"length", "LENGTH_KM", "km", 1000},
    {"length", "LENGTH_MI", "mi", kMile},
    {"length", "LENGTH_MM", "mm", 0.001L},
    {"fuel use", "EFFICIENCY_MPG", "mpg (US)", kMile / 1000 / kGallon},
    {"fuel use", "", "mpg (UK)", kMile / 1000 / kImperialGallon},
    {"fuel use", "EFFICIENCY_KML", "km/L", 1},
    {"fuel use", "EFFICIENCY_L_PER_100KM", "L/100km", 100, 0, true},
    {"mass flow", "FLOW_KG_PER_HOUR", "kg/h", 1},
    {"mass flow", "FLOW_GRAM_PER_SEC", "g/s", 3.6L},
    {"mass flow", "FLOW_LB_PER_MIN", "lb/min", 60 * kPound},
    {"mass flow", "FLOW_KG_PER_MIN", "kg/min", 60},
    {"volume flow", "FLOW_ML_PER_SEC", "mL/s", 0.001L},
    {"volume flow", "FLOW_GAL_PER_MIN", "gal/min", kGallon / 60},
    {"volume flow", "FLOW_DM3_PER_SEC", "dm\263/s", 1},
    {"volume flow", "FLOW_CUBIC_FEET_PER_MIN", "ft\263/min", kCubicFoot / 60},
    {"volume flow", "FLOW_L_PER_SEC", "L/s", 1},
    {"air-fuel ratio", "RATIOS_AFR", "AFR", 1},
    {"air-fuel ratio", "RATIOS_LAMBDA", "lambda", kPetrolAfr},
    {"torque", "TORQUE_NM", "Nm", 1},
    {"torque", "TORQUE_FT_LB", "ft-lb", kPound* kGravity* kFoot},
    {"volume", "VOLUME_L", "L", 1},
    {"volume", "VOLUME_GAL", "gal (US)", kGallon},
    {"volume", "", "gal (UK)", kImperialGallon},
    {"weight", "WEIGHT_LBS", "lb", kPound},
    {"weight", "WEIGHT_KG", "kg", 1},
};

// Where long double is no wider, on ARM and under valgrind, the expectation has roundings of its
// own.
double Tolerance(bool isExact) {
  const volatile long double three = 3;
  const long double third = 1 / three;
  const bool isWide = third != static_cast<long double>(static_cast<double>(third));
  return std::numeric_limits<double>::epsilon() * (!isWide ? 8 : isExact ? 0 : 1);
}

double Expected(const Unit& from, const Unit& to, double value) {
  const bool isSame =
      from.scale == to.scale && from.offset == to.offset && from.reciprocal == to.reciprocal;
  if (from.quantity != to.quantity || isSame) {
    return value;
  }
  const long double base = from.reciprocal ? from.scale / value : from.scale * value + from.offset;
  return static_cast<double>(to.reciprocal ? to.scale / base : (base - to.offset) / to.scale);
}

class ShippedData : public testing::Test {
 protected:
  ShippedData() {
    display.SetXMLFilePath(VEHICLE_UNITS_SOURCE_DATA "/");
    std::string error;
    EXPECT_TRUE(display.ReadAndParseXMLAssociations("VEHICLE", error));
    EXPECT_EQ(error, "");
  }

  units::DataUnitToDisplayUnitConverter display;
};

TEST_F(ShippedData, ConvertsByTheDefiningConstantsThereAndBackAndAcrossNoQuantities) {
  for (const Unit& from : kUnits) {
    for (const Unit& to : kUnits) {
      for (const double value : {87.5, 0.25, 12345.678}) {
        const double expected = Expected(from, to, value);
        const bool isExact = from.quantity != to.quantity || from.scale == to.scale;
        for (const auto& [source, target] :
             {std::pair(from.identifier, to.label), std::pair(from.label, to.identifier)}) {
          double converted = source.empty() || target.empty() ? expected : value;
          display.GetConverter().ConvertUnit(source, target, converted);
          EXPECT_NEAR(converted, expected, Tolerance(isExact) * std::abs(expected))
              << source << " to " << target;
        }
      }
    }
  }
}

TEST_F(ShippedData, ShowsEachDataUnitUnderALabelOfItsQuantityInEverySystem) {
  std::vector<std::string> names(units::UNIT_IDENTIFIERS.begin(), units::UNIT_IDENTIFIERS.end());
  names.insert(names.end(), units::UNIT_LABELS.begin(), units::UNIT_LABELS.end());
  std::sort(names.begin(), names.end());
  for (int system = units::UNIT_TYPE_STD; system <= units::UNIT_TYPE_GREEK; ++system) {
    display.SetUnitType(static_cast<units::unitTypes_e>(system));
    EXPECT_EQ(display.GetDataUnits(), names) << system;
    for (const std::string& name : names) {
      const std::string label = display.GetActiveLabelForUnit(name);
      const auto unit = std::find_if(kUnits.begin(), kUnits.end(),
                                     [&](const Unit& unit) { return unit.identifier == name; });
      const bool isRight = unit == kUnits.end()
                               ? label == name
                               : std::any_of(kUnits.begin(), kUnits.end(), [&](const Unit& shown) {
                                   return shown.label == label && shown.quantity == unit->quantity;
                                 });
      EXPECT_TRUE(isRight) << name << " as " << label;
    }
  }
}

TEST_F(ShippedData, ShowsTheCustomaryUnits) {
  for (const auto& labels : std::vector<std::vector<std::string>>{
           // standard, metric, UK and Greek, by unitTypes_e
           {"PRESSURE_IN_HG", "psi", "kPa", "psi", "bar"},
           {"PRESSURE_PSI_A", "psi (abs)", "bar (abs)", "psi (abs)", "bar (abs)"},
           {"PRESSURE_BAR_G", "psi (g)", "bar (g)", "psi (g)", "bar (g)"},
           {"TEMP_FAH", "\260F", "\260C", "\260C", "\260C"},
           {"SPEED_KPH", "mph", "km/h", "mph", "km/h"},
           {"LENGTH_MI", "mi", "km", "mi", "km"},
           {"EFFICIENCY_KML", "mpg (US)", "L/100km", "mpg (UK)", "km/L"},
           {"VOLUME_L", "gal (US)", "L", "gal (UK)", "L"},
           {"FLOW_GRAM_PER_SEC", "lb/min", "g/s", "lb/min", "g/s"},
           {"FLOW_L_PER_SEC", "ft\263/min", "L/s", "L/s", "L/s"},
           {"RATIOS_AFR", "AFR", "lambda", "AFR", "lambda"},
           {"TORQUE_NM", "ft-lb", "Nm", "ft-lb", "Nm"},
           {"WEIGHT_KG", "lb", "kg", "lb", "kg"},
       }) {
    for (int system = units::UNIT_TYPE_STD; system <= units::UNIT_TYPE_GREEK; ++system) {
      display.SetUnitType(static_cast<units::unitTypes_e>(system));
      EXPECT_EQ(display.GetActiveLabelForUnit(labels[0]),
                labels.at(static_cast<std::size_t>(system) + 1));
    }
  }
}

TEST(UnitNames, OfSystemsAndPressuresAreThoseOfTheHost) {
  using testing::PrintToString;
  EXPECT_EQ(PrintToString(units::UNIT_SYSTEM_NAMES),
            R"({ "metric", "greek", "imperial", "imperial_uk" })");
  EXPECT_EQ(PrintToString(units::PRESSURE_UNIT_NAMES), R"({ "psi", "kpa" })");
}

}  // namespace
