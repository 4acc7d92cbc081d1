#include <gtest/gtest.h>

#include <cmath>

#include "units/MeasurementConversions.h"

namespace {

using units::MeasurementConversions;

TEST(MeasurementConversions, AreOneOperationToTheLastBit) {
  struct Case {
    double (*convert)(double);
    double argument;
    double result;
  };
  for (const auto& [convert, argument, result] : {
           Case{MeasurementConversions::InchesToMillimeters, 1, 25.4},
           Case{MeasurementConversions::InchesToMillimeters, -0.1, -0x1.451eb851eb852p+1},
           Case{MeasurementConversions::MillimetersToInches, 25.4, 1},
           // times the reciprocal these two would end in another bit
           Case{MeasurementConversions::MillimetersToInches, 0.1, 0x1.0204081020409p-8},
           Case{MeasurementConversions::CircumferenceToDiameter, 0.3, 0x1.8723a1d588a36p-4},
           Case{MeasurementConversions::DiameterToCircumference, 1, 3.141592653589793},
           Case{MeasurementConversions::CircumferenceToDiameter, 3.141592653589793, 1},
           Case{MeasurementConversions::MillimetersToInches, 0, 0},
           Case{MeasurementConversions::DiameterToCircumference, -HUGE_VAL, -HUGE_VAL},
       }) {
    EXPECT_EQ(convert(argument), result) << argument;
  }
  EXPECT_EQ(
      MeasurementConversions::InchesToMillimeters(MeasurementConversions::MillimetersToInches(0.1)),
      0.10000000000000002);
  EXPECT_TRUE(std::isnan(MeasurementConversions::MillimetersToInches(std::nan(""))));
}

}  // namespace
