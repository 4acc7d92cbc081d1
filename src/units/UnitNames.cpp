#include "units/UnitNames.h"

namespace units {

const std::array<std::string, 4> UNIT_SYSTEM_NAMES{"metric", "greek", "imperial", "imperial_uk"};

const std::array<std::string, 2> PRESSURE_UNIT_NAMES{"psi", "kpa"};

const std::array<std::string, 38> UNIT_IDENTIFIERS{
    "EFFICIENCY_MPG",    "EFFICIENCY_KML",    "EFFICIENCY_L_PER_100KM",
    "FLOW_KG_PER_HOUR",  "FLOW_GRAM_PER_SEC", "FLOW_ML_PER_SEC",
    "FLOW_GAL_PER_MIN",  "FLOW_DM3_PER_SEC",  "FLOW_CUBIC_FEET_PER_MIN",
    "FLOW_L_PER_SEC",    "FLOW_LB_PER_MIN",   "FLOW_KG_PER_MIN",
    "LENGTH_KM",         "LENGTH_MI",         "LENGTH_MM",
    "PRESSURE_MILLIBAR", "PRESSURE_BAR",      "PRESSURE_HPA",
    "PRESSURE_MEGAPA",   "PRESSURE_KPA",      "PRESSURE_PSI",
    "PRESSURE_BAR_A",    "PRESSURE_BAR_G",    "PRESSURE_PSI_A",
    "PRESSURE_PSI_G",    "PRESSURE_IN_HG",    "RATIOS_AFR",
    "RATIOS_LAMBDA",     "SPEED_MPH",         "SPEED_KPH",
    "TEMP_FAH",          "TEMP_CEL",          "TORQUE_NM",
    "TORQUE_FT_LB",      "VOLUME_L",          "VOLUME_GAL",
    "WEIGHT_LBS",        "WEIGHT_KG",
};

const std::array<std::string, 35> UNIT_LABELS{
    "L/min",  "RPM",   "g/rev", "V",         "mV",     "on/off",  "\xB0",    "%",     "sec",
    "ms",     "us",    "Load",  "mg/cyl",    "Gear",   "g-force", "m/s\xB2", "%/hPa", "%/hPas",
    "cm\xB2", "adder", "count", "cylinders", "dam",    "DAM",     "grams",   "mA",    "mode",
    "mult",   "ratio", "raw",   "rev_mi",    "status", "steps",   "value",   "kHz",
};

}  // namespace units
