#pragma once

#include "../util/Export.h"

namespace units {

/// Four fixed conversions of lengths. They need no data and no object.
///
/// Each is one multiplication or division of doubles, rounded to nearest: there and back need not
/// return the very same value. Zero, negative values, infinities and not-a-numbers go through by
/// the rules of IEEE 754. Nothing throws.
///
/// Threads: any number may call them at the same time.
class VEHICLE_UNITS_EXPORT MeasurementConversions {
 public:
  MeasurementConversions() = delete;

  /// inches * 25.4: the inch is 25.4 mm by definition (international yard and pound agreement,
  /// 1959).
  static double InchesToMillimeters(double inches);

  /// millimeters / 25.4
  static double MillimetersToInches(double millimeters);

  /// diameter * pi, with pi = 3.141592653589793, in the unit of the diameter.
  static double DiameterToCircumference(double diameter);

  /// circumference / pi
  static double CircumferenceToDiameter(double circumference);
};

}  // namespace units
