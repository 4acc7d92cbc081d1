#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

TEST(Threads, OfOneConverterGetTheValuesThatOneAloneGets) {
  units::DataUnitToDisplayUnitConverter display;
  display.SetXMLFilePath(VEHICLE_UNITS_SOURCE_DATA "/");
  std::string error;
  ASSERT_TRUE(display.ReadAndParseXMLAssociations("VEHICLE", error)) << error;
  const auto convert = [&display](int i) {
    double value = i % 1000 + 2;
    display.ConvertUnit(i % 4 == 0 ? "PRESSURE_KPA" : "EFFICIENCY_L_PER_100KM", value);
    return value;
  };
  std::vector<double> alone;
  for (int i = 0; i < 1000; ++i) {
    alone.push_back(convert(i));
  }
  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int first = 0; first < 8; ++first) {
    threads.emplace_back([&, first] {
      for (int i = first; i < first + 50000; ++i) {
        wrong += convert(i) == alone[static_cast<std::size_t>(i % 1000)] ? 0 : 1;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(wrong, 0);
}

}  // namespace
