#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <stdexcept>
#include <string>

#include "ShippedUnits.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/UnitConverter.h"
#include "units/UnitNames.h"

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

const Unit& FindShippedUnit(const std::string& name) {
  for (const Unit& unit : ShippedUnits()) {
    if (unit.name == name) {
      return unit;
    }
  }
  throw std::out_of_range(name);
}

class ShippedAssociations : public testing::TestWithParam<units::unitTypes_e> {
 protected:
  ShippedAssociations() {
    display.SetXMLFilePath(VEHICLE_UNITS_SOURCE_DATA "/");
    std::string error;
    EXPECT_TRUE(display.ReadAndParseXMLAssociations("VEHICLE", error));
    EXPECT_EQ(error, "");
    display.SetUnitType(GetParam());
  }

  units::DataUnitToDisplayUnitConverter display;
};

TEST_P(ShippedAssociations, NoValueIsShownUnderALabelThatItWasNotConvertedTo) {
  for (const std::string& identifier : units::UNIT_IDENTIFIERS) {
    const Unit& from = FindShippedUnit(identifier);
    const Unit& to = FindShippedUnit(display.GetActiveLabelForUnit(identifier));
    EXPECT_FALSE(to.identifier) << identifier;
    EXPECT_EQ(to.quantity, from.quantity) << identifier;
    double value = 87.5;
    display.ConvertUnit(identifier, value);
    const double expected = Expected(from, to, 87.5);
    EXPECT_NEAR(value, expected, kTolerance * std::abs(expected)) << identifier;
    display.UnConvertUnit(identifier, value);
    EXPECT_NEAR(value, 87.5, kTolerance * 87.5) << identifier;
  }
}

TEST_P(ShippedAssociations, UnitsWithoutAlternativesAreTheirOwnLabels) {
  for (const std::string& label : units::UNIT_LABELS) {
    ASSERT_NE(label, "");
    EXPECT_EQ(display.GetActiveLabelForUnit(label), label);
  }
}

TEST_P(ShippedAssociations, ShowTheCustomaryUnits) {
  struct Case {
    const char* unit;
    std::array<const char*, 4> labels;  // by unitTypes_e: standard, metric, UK, Greek
  };
  for (const auto& [unit, labels] : {
           Case{"PRESSURE_IN_HG", {"psi", "kPa", "psi", "bar"}},
           Case{"PRESSURE_PSI_A", {"psi (abs)", "bar (abs)", "psi (abs)", "bar (abs)"}},
           Case{"PRESSURE_BAR_G", {"psi (g)", "bar (g)", "psi (g)", "bar (g)"}},
           Case{"TEMP_FAH",
                {"\xB0"
                 "F",
                 "\xB0"
                 "C",
                 "\xB0"
                 "C",
                 "\xB0"
                 "C"}},
           Case{"SPEED_KPH", {"mph", "km/h", "mph", "km/h"}},
           Case{"LENGTH_MI", {"mi", "km", "mi", "km"}},
           Case{"EFFICIENCY_KML", {"mpg (US)", "L/100km", "mpg (UK)", "km/L"}},
           Case{"VOLUME_L", {"gal (US)", "L", "gal (UK)", "L"}},
           Case{"FLOW_GRAM_PER_SEC", {"lb/min", "g/s", "lb/min", "g/s"}},
           Case{"FLOW_L_PER_SEC", {"ft\xB3/min", "L/s", "L/s", "L/s"}},
           Case{"RATIOS_AFR", {"AFR", "lambda", "AFR", "lambda"}},
           Case{"TORQUE_NM", {"ft-lb", "Nm", "ft-lb", "Nm"}},
           Case{"WEIGHT_KG", {"lb", "kg", "lb", "kg"}},
       }) {
    EXPECT_EQ(display.GetActiveLabelForUnit(unit), labels.at(static_cast<std::size_t>(GetParam())))
        << unit;
  }
}

INSTANTIATE_TEST_SUITE_P(InEverySystem, ShippedAssociations,
                         testing::Values(units::UNIT_TYPE_STD, units::UNIT_TYPE_METRIC,
                                         units::UNIT_TYPE_STD_UK, units::UNIT_TYPE_GREEK));

}  // namespace
