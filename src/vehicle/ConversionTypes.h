#pragma once

#include <cstdint>
#include <string>

#include "../util/enum_map.h"

namespace VehicleV2 {

/// The kinds of a conversion. The library applies `CONVERSION_SLOPE_INT` (y = scalar x + offset)
/// itself; every other kind is evaluated as an expression.
enum ConversionTypes_e : std::int32_t {
  CONVERSION_INVALID = -1,
  CONVERSION_DIRECT = 0,
  CONVERSION_SLOPE_INT = 1,
  CONVERSION_PT_SLOPE = 2,
  CONVERSION_INV_OFFSET = 3,
  CONVERSION_LABELS = 4,
  CONVERSION_CUSTOM = 5,
};

/// The named constants of a "slope-int" conversion.
enum ConversionConstants_e : std::int32_t {
  CONSTANT_INVALID = -1,
  CONSTANT_SCALAR = 0,
  CONSTANT_OFFSET = 1,
};

/// The kinds' names in the conversion file. Made at first use, which several threads may share.
inline const util::enum_map<ConversionTypes_e, std::string>& conversionTypeNames() {
  static const util::enum_map<ConversionTypes_e, std::string> names{
      {CONVERSION_INVALID, "invalid"},       {CONVERSION_DIRECT, "direct"},
      {CONVERSION_SLOPE_INT, "slope-int"},   {CONVERSION_PT_SLOPE, "pt-slope"},
      {CONVERSION_INV_OFFSET, "inv-offset"}, {CONVERSION_LABELS, "labels"},
      {CONVERSION_CUSTOM, "custom"},
  };
  return names;
}

/// The constants' names in the conversion file. Made at first use, which several threads may share.
inline const util::enum_map<ConversionConstants_e, std::string>& conversionConstantNames() {
  static const util::enum_map<ConversionConstants_e, std::string> names{
      {CONSTANT_INVALID, "invalid"},
      {CONSTANT_SCALAR, "scalar"},
      {CONSTANT_OFFSET, "offset"},
  };
  return names;
}

}  // namespace VehicleV2
