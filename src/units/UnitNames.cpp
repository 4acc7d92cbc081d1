#include "units/UnitNames.h"

#include <cstddef>

namespace units {

namespace {

// The names packed one behind the other, each ended by a NUL: a loop over them takes a tenth of the
// code that as many constructor calls would.
template <std::size_t count>
std::array<std::string, count> Unpack(const char* packed) {
  std::array<std::string, count> names;
  for (std::string& name : names) {
    name = packed;
    packed += name.size() + 1;
  }
  return names;
}

}  // namespace

const std::array<std::string, 4> UNIT_SYSTEM_NAMES = Unpack<4>(
    "metric\0"
    "greek\0"
    "imperial\0"
    "imperial_uk\0");

const std::array<std::string, 2> PRESSURE_UNIT_NAMES = Unpack<2>(
    "psi\0"
    "kpa\0");

const std::array<std::string, 38> UNIT_IDENTIFIERS = Unpack<38>(
    "EFFICIENCY_MPG\0"
    "EFFICIENCY_KML\0"
    "EFFICIENCY_L_PER_100KM\0"
    "FLOW_KG_PER_HOUR\0"
    "FLOW_GRAM_PER_SEC\0"
    "FLOW_ML_PER_SEC\0"
    "FLOW_GAL_PER_MIN\0"
    "FLOW_DM3_PER_SEC\0"
    "FLOW_CUBIC_FEET_PER_MIN\0"
    "FLOW_L_PER_SEC\0"
    "FLOW_LB_PER_MIN\0"
    "FLOW_KG_PER_MIN\0"
    "LENGTH_KM\0"
    "LENGTH_MI\0"
    "LENGTH_MM\0"
    "PRESSURE_MILLIBAR\0"
    "PRESSURE_BAR\0"
    "PRESSURE_HPA\0"
    "PRESSURE_MEGAPA\0"
    "PRESSURE_KPA\0"
    "PRESSURE_PSI\0"
    "PRESSURE_BAR_A\0"
    "PRESSURE_BAR_G\0"
    "PRESSURE_PSI_A\0"
    "PRESSURE_PSI_G\0"
    "PRESSURE_IN_HG\0"
    "RATIOS_AFR\0"
    "RATIOS_LAMBDA\0"
    "SPEED_MPH\0"
    "SPEED_KPH\0"
    "TEMP_FAH\0"
    "TEMP_CEL\0"
    "TORQUE_NM\0"
    "TORQUE_FT_LB\0"
    "VOLUME_L\0"
    "VOLUME_GAL\0"
    "WEIGHT_LBS\0"
    "WEIGHT_KG\0");

const std::array<std::string, 35> UNIT_LABELS = Unpack<35>(
    "L/min\0"
    "RPM\0"
    "g/rev\0"
    "V\0"
    "mV\0"
    "on/off\0"
    "\xB0\0"
    "%\0"
    "sec\0"
    "ms\0"
    "us\0"
    "Load\0"
    "mg/cyl\0"
    "Gear\0"
    "g-force\0"
    "m/s\xB2\0"
    "%/hPa\0"
    "%/hPas\0"
    "cm\xB2\0"
    "adder\0"
    "count\0"
    "cylinders\0"
    "dam\0"
    "DAM\0"
    "grams\0"
    "mA\0"
    "mode\0"
    "mult\0"
    "ratio\0"
    "raw\0"
    "rev_mi\0"
    "status\0"
    "steps\0"
    "value\0"
    "kHz\0");

}  // namespace units
