#include "ShippedUnits.h"

namespace {

constexpr long double kInch = 0.0254L;                             // m
constexpr long double kFoot = 12 * kInch;                          // m
constexpr long double kMile = 1609.344L;                           // m
constexpr long double kPound = 0.45359237L;                        // kg
constexpr long double kGravity = 9.80665L;                         // m/s2
constexpr long double kPsi = kPound * kGravity / (kInch * kInch);  // Pa
constexpr long double kKpa = 1000;                                 // Pa
constexpr long double kBar = 100 * kKpa;                           // Pa
constexpr long double kInHg = 3.386388640341L * kKpa;
constexpr long double kGallon = 231 * kInch * kInch * kInch * 1000;  // L
constexpr long double kImperialGallon = 4.54609L;                    // L
constexpr long double kCubicFoot = kFoot * kFoot * kFoot * 1000;     // L
constexpr long double kFahrenheit = 1 / 1.8L;                        // K
constexpr long double kPetrolAfr = 14.7L;

}  // namespace

const std::vector<Unit>& ShippedUnits() {
  constexpr bool kIdentifier = true;
  constexpr bool kDisplay = false;
  constexpr bool kReciprocal = true;
  static const std::vector<Unit> units{
      {kIdentifier, "pressure", "PRESSURE_MILLIBAR", kBar / 1000},
      {kIdentifier, "pressure", "PRESSURE_BAR", kBar},
      {kIdentifier, "pressure", "PRESSURE_HPA", kKpa / 10},
      {kIdentifier, "pressure", "PRESSURE_MEGAPA", 1000 * kKpa},
      {kIdentifier, "pressure", "PRESSURE_KPA", kKpa},
      {kIdentifier, "pressure", "PRESSURE_PSI", kPsi},
      {kIdentifier, "pressure", "PRESSURE_IN_HG", kInHg},
      {kDisplay, "pressure", "psi", kPsi},
      {kDisplay, "pressure", "kPa", kKpa},
      {kDisplay, "pressure", "bar", kBar},
      {kDisplay, "pressure", "mbar", kBar / 1000},
      {kDisplay, "pressure", "hPa", kKpa / 10},
      {kDisplay, "pressure", "MPa", 1000 * kKpa},
      {kDisplay, "pressure", "inHg", kInHg},
      {kIdentifier, "absolute pressure", "PRESSURE_BAR_A", kBar},
      {kIdentifier, "absolute pressure", "PRESSURE_PSI_A", kPsi},
      {kDisplay, "absolute pressure", "bar (abs)", kBar},
      {kDisplay, "absolute pressure", "psi (abs)", kPsi},
      {kIdentifier, "gauge pressure", "PRESSURE_BAR_G", kBar},
      {kIdentifier, "gauge pressure", "PRESSURE_PSI_G", kPsi},
      {kDisplay, "gauge pressure", "bar (g)", kBar},
      {kDisplay, "gauge pressure", "psi (g)", kPsi},
      {kIdentifier, "temperature", "TEMP_CEL", 1},
      {kIdentifier, "temperature", "TEMP_FAH", kFahrenheit, -32 * kFahrenheit},
      {kDisplay, "temperature",
       "\xB0"
       "C",
       1},
      {kDisplay, "temperature",
       "\xB0"
       "F",
       kFahrenheit, -32 * kFahrenheit},
      {kIdentifier, "speed", "SPEED_MPH", kMile / 1000},
      {kIdentifier, "speed", "SPEED_KPH", 1},
      {kDisplay, "speed", "mph", kMile / 1000},
      {kDisplay, "speed", "km/h", 1},
      {kIdentifier, "length", "LENGTH_KM", 1000},
      {kIdentifier, "length", "LENGTH_MI", kMile},
      {kIdentifier, "length", "LENGTH_MM", 0.001L},
      {kDisplay, "length", "km", 1000},
      {kDisplay, "length", "mi", kMile},
      {kDisplay, "length", "mm", 0.001L},
      {kIdentifier, "fuel use", "EFFICIENCY_MPG", kMile / 1000 / kGallon},
      {kIdentifier, "fuel use", "EFFICIENCY_KML", 1},
      {kIdentifier, "fuel use", "EFFICIENCY_L_PER_100KM", 100, 0, kReciprocal},
      {kDisplay, "fuel use", "mpg (US)", kMile / 1000 / kGallon},
      {kDisplay, "fuel use", "mpg (UK)", kMile / 1000 / kImperialGallon},
      {kDisplay, "fuel use", "km/L", 1},
      {kDisplay, "fuel use", "L/100km", 100, 0, kReciprocal},
      {kIdentifier, "mass flow", "FLOW_KG_PER_HOUR", 1},
      {kIdentifier, "mass flow", "FLOW_GRAM_PER_SEC", 3.6L},
      {kIdentifier, "mass flow", "FLOW_LB_PER_MIN", 60 * kPound},
      {kIdentifier, "mass flow", "FLOW_KG_PER_MIN", 60},
      {kDisplay, "mass flow", "kg/h", 1},
      {kDisplay, "mass flow", "g/s", 3.6L},
      {kDisplay, "mass flow", "lb/min", 60 * kPound},
      {kDisplay, "mass flow", "kg/min", 60},
      {kIdentifier, "volume flow", "FLOW_ML_PER_SEC", 0.001L},
      {kIdentifier, "volume flow", "FLOW_GAL_PER_MIN", kGallon / 60},
      {kIdentifier, "volume flow", "FLOW_DM3_PER_SEC", 1},
      {kIdentifier, "volume flow", "FLOW_CUBIC_FEET_PER_MIN", kCubicFoot / 60},
      {kIdentifier, "volume flow", "FLOW_L_PER_SEC", 1},
      {kDisplay, "volume flow", "mL/s", 0.001L},
      {kDisplay, "volume flow", "gal/min", kGallon / 60},
      {kDisplay, "volume flow", "dm\xB3/s", 1},
      {kDisplay, "volume flow", "ft\xB3/min", kCubicFoot / 60},
      {kDisplay, "volume flow", "L/s", 1},
      {kIdentifier, "air-fuel ratio", "RATIOS_AFR", 1},
      {kIdentifier, "air-fuel ratio", "RATIOS_LAMBDA", kPetrolAfr},
      {kDisplay, "air-fuel ratio", "AFR", 1},
      {kDisplay, "air-fuel ratio", "lambda", kPetrolAfr},
      {kIdentifier, "torque", "TORQUE_NM", 1},
      {kIdentifier, "torque", "TORQUE_FT_LB", kPound * kGravity * kFoot},
      {kDisplay, "torque", "Nm", 1},
      {kDisplay, "torque", "ft-lb", kPound * kGravity * kFoot},
      {kIdentifier, "volume", "VOLUME_L", 1},
      {kIdentifier, "volume", "VOLUME_GAL", kGallon},
      {kDisplay, "volume", "L", 1},
      {kDisplay, "volume", "gal (US)", kGallon},
      {kDisplay, "volume", "gal (UK)", kImperialGallon},
      {kIdentifier, "weight", "WEIGHT_LBS", kPound},
      {kIdentifier, "weight", "WEIGHT_KG", 1},
      {kDisplay, "weight", "lb", kPound},
      {kDisplay, "weight", "kg", 1},
  };
  return units;
}
