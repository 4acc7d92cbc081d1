#include <gtest/gtest.h>

#include "units/MeasurementConversions.h"

namespace {

using units::MeasurementConversions;

// Each of these ends in another bit by any other operation, as times the reciprocal or over it.
TEST(MeasurementConversions, AreOneOperationToTheLastBit) {
  EXPECT_EQ(MeasurementConversions::InchesToMillimeters(-0.3), -0x1.e7ae147ae147ap+2);
  EXPECT_EQ(MeasurementConversions::MillimetersToInches(0.1), 0x1.0204081020409p-8);
  EXPECT_EQ(MeasurementConversions::DiameterToCircumference(0.3), 0x1.e28c731eb695p-1);
  EXPECT_EQ(MeasurementConversions::CircumferenceToDiameter(0.3), 0x1.8723a1d588a36p-4);
}

}  // namespace
