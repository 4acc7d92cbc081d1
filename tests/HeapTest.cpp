#include <gtest/gtest.h>

#include <string>

#include "Allocations.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/UnitConverter.h"

namespace {

// How many allocations the second of two calls makes.
template <typename Call>
int AllocationsOfLaterUse(Call call) {
  call();
  const int before = allocationsMade;
  call();
  return allocationsMade - before;
}

TEST(Heap, NoConversionAndNoMissAllocatesAfterAPairsFirstUse) {
  const std::string path = VEHICLE_UNITS_SOURCE_DATA "/";
  units::UnitConverter engine;
  engine.SetXMLFilePathAndLoad(path);
  struct Case {
    std::string from, to;
    bool converts;
  };
  for (const auto& [from, to, converts] : {
           Case{"PRESSURE_KPA", "psi", true},
           Case{"EFFICIENCY_MPG", "L/100km", true},
           Case{"PRESSURE_KPA", "a unit that there is not", false},
           Case{"a unit that there is not", "psi", false},
           Case{"PRESSURE_KPA", "PRESSURE_KPA", false},
       }) {
    double value = 0;
    float single = 0;
    const auto convert = [&, &from = from, &to = to](auto& number) {
      number = 1;
      engine.ConvertUnit(from, to, number);
    };
    EXPECT_EQ(AllocationsOfLaterUse([&] { convert(value); }), 0) << from << to;
    EXPECT_EQ(AllocationsOfLaterUse([&] { convert(single); }), 0) << from << to;
    EXPECT_EQ(value != 1, converts) << from << to;
    EXPECT_EQ(single != 1, converts) << from << to;
  }
}

TEST(Heap, ThePathOfADisplayedValueAllocatesNothingAfterItsFirstUse) {
  units::DataUnitToDisplayUnitConverter display;
  display.SetXMLFilePath(VEHICLE_UNITS_SOURCE_DATA "/");
  std::string error;
  ASSERT_TRUE(display.ReadAndParseXMLAssociations("VEHICLE", error)) << error;
  for (const std::string unit : {"PRESSURE_KPA", "EFFICIENCY_L_PER_100KM", "no such unit, here"}) {
    double value = 2;
    float single = 2;
    EXPECT_EQ(AllocationsOfLaterUse([&] { display.ConvertUnit(unit, value); }), 0) << unit;
    EXPECT_EQ(AllocationsOfLaterUse([&] { display.ConvertUnit(unit, single); }), 0) << unit;
    EXPECT_EQ(AllocationsOfLaterUse([&] { display.UnConvertUnit(unit, value); }), 0) << unit;
  }
  EXPECT_EQ(AllocationsOfLaterUse([&] { display.GetActiveLabelForUnit("PRESSURE_KPA"); }), 0)
      << "a label within the string itself";
}

}  // namespace
