#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "ShippedUnits.h"
#include "units/UnitConverter.h"

namespace {

constexpr double kTolerance = 1e-12;

double Expected(const Unit& from, const Unit& to, double value) {
  const long double base = from.reciprocal ? from.scale / value : from.scale * value + from.offset;
  return static_cast<double>(to.reciprocal ? to.scale / base : (base - to.offset) / to.scale);
}

class ShippedConversions : public testing::Test {
 protected:
  ShippedConversions() { converter.SetXMLFilePathAndLoad(VEHICLE_UNITS_SOURCE_DATA "/"); }

  void ExpectConversion(const Unit& from, const Unit& to) const {
    for (const double value : {87.5, 0.25, 12345.678}) {
      double converted = value;
      converter.ConvertUnit(from.name, to.name, converted);
      const double expected = Expected(from, to, value);
      EXPECT_NEAR(converted, expected, kTolerance * std::abs(expected))
          << from.name << " to " << to.name;
    }
  }

  units::UnitConverter converter;
};

TEST_F(ShippedConversions, FollowFromTheDefiningConstantsThereAndBack) {
  int pairs = 0;
  for (const Unit& identifier : ShippedUnits()) {
    for (const Unit& display : ShippedUnits()) {
      if (identifier.identifier && !display.identifier && identifier.quantity == display.quantity) {
        ExpectConversion(identifier, display);
        ExpectConversion(display, identifier);
        ++pairs;
      }
    }
  }
  EXPECT_EQ(pairs, 145);
}

TEST_F(ShippedConversions, NoneCrossesFromOneQuantityIntoAnother) {
  for (const Unit& from : ShippedUnits()) {
    for (const Unit& to : ShippedUnits()) {
      if (from.quantity != to.quantity) {
        double value = 87.5;
        converter.ConvertUnit(from.name, to.name, value);
        EXPECT_EQ(value, 87.5) << from.name << " to " << to.name;
      }
    }
  }
}

TEST_F(ShippedConversions, TwoNamesOfOneUnitConvertExactly) {
  for (const Unit& from : ShippedUnits()) {
    for (const Unit& to : ShippedUnits()) {
      if (from.identifier != to.identifier && from.quantity == to.quantity &&
          from.scale == to.scale && from.reciprocal == to.reciprocal) {
        double value = 0.1;
        converter.ConvertUnit(from.name, to.name, value);
        EXPECT_EQ(value, 0.1) << from.name << " to " << to.name;
      }
    }
  }
}

}  // namespace
