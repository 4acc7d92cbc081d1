#include "units/MeasurementConversions.h"

namespace units {

namespace {

constexpr double kMillimetersPerInch = 25.4;
constexpr double kPi = 3.141592653589793;

}  // namespace

double MeasurementConversions::InchesToMillimeters(double inches) {
  return inches * kMillimetersPerInch;
}

double MeasurementConversions::MillimetersToInches(double millimeters) {
  return millimeters / kMillimetersPerInch;
}

double MeasurementConversions::DiameterToCircumference(double diameter) { return diameter * kPi; }

double MeasurementConversions::CircumferenceToDiameter(double circumference) {
  return circumference / kPi;
}

}  // namespace units
