#include <gtest/gtest.h>

#include <string>

#include "Allocations.h"
#include "TempFolder.h"
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

TEST(Heap, AFileWithoutDefinitionsLeavesNothing) {
  TempFolder folder;
  std::string text = "<unit_conversions>";
  for (int i = 0; i < 1000; ++i) {
    text += "<!---->text<other/>";
  }
  const std::string path = folder.Write("units.xml", text + "</unit_conversions>");
  units::UnitConverter engine;
  std::string error;
  const std::ptrdiff_t before = livingBytes;
  ASSERT_TRUE(engine.LoadFromXML(path, error));
  EXPECT_EQ(livingBytes, before);
}

TEST(Heap, NoUseOfAPairAllocatesAfterItsFirst) {
  units::DataUnitToDisplayUnitConverter display;
  display.SetXMLFilePath(VEHICLE_UNITS_SOURCE_DATA "/");
  std::string error;
  ASSERT_TRUE(display.ReadAndParseXMLAssociations("VEHICLE", error)) << error;
  const std::string target = "a unit that there is not";
  for (const std::string unit : {"PRESSURE_KPA", "EFFICIENCY_L_PER_100KM", "no such unit, here"}) {
    double value = 2;
    float single = 2;
    EXPECT_EQ(AllocationsOfLaterUse([&] {
                display.ConvertUnit(unit, value);
                display.ConvertUnit(unit, single);
                display.UnConvertUnit(unit, value);
                display.GetConverter().ConvertUnit(unit, target, value);
                display.GetConverter().ConvertUnit(unit, unit, single);
                display.GetActiveLabelForUnit("PRESSURE_KPA");  // fits into the string itself
              }),
              0)
        << unit;
  }
}

}  // namespace
