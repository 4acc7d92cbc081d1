#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "TempFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

constexpr int kThreads = 8;
constexpr int kUses = 1000000 / kThreads;

// One use of `display` and whether it gave what it should: the `i`-th, each kind in turn.
bool Use(const units::DataUnitToDisplayUnitConverter& display, int i) {
  double value = i;
  auto single = static_cast<float>(i % 4096);
  const float before = single;
  switch (i % 6) {
    case 0:
      display.ConvertUnit("SLOPE", value);
      return value == 2.0 * i + 1;
    case 1:
      display.ConvertUnit("SLOPE", single);
      return single == 2 * before + 1;
    case 2:
      display.ConvertUnit("EXPRESSION", value);
      return value == static_cast<double>(i) * i + 3;
    case 3:
      display.UnConvertUnit("EXPRESSION", value);
      return value == static_cast<double>(i) / 4;
    case 4:
      display.ConvertUnit("BROKEN", value);
      return value == i;
    default:
      return display.GetActiveLabelForUnit("SLOPE") == "S" &&
             display.GetActiveLabelForUnit("none") == "none";
  }
}

TEST(Threads, AMillionUsesOfOneConverterByEightThreadsGiveExactValues) {
  TempFolder folder;
  folder.Write("UNIT_CONVERSIONS.xml",
               "<unit_conversions><fromunit id='SLOPE'><tounit id='S'><conv type='slope-int'"
               " scalar='2' offset='1'/></tounit></fromunit><fromunit id='EXPRESSION'>"
               "<tounit id='E'><conv to_float='val * val + 3'/></tounit></fromunit>"
               "<fromunit id='E'><tounit id='EXPRESSION'><conv to_float='val / 4'/></tounit>"
               "</fromunit><fromunit id='BROKEN'><tounit id='B'><conv to_float='vol'/></tounit>"
               "</fromunit></unit_conversions>");
  folder.Write("associations.xml",
               "<unit_associations><unitassoc id='SLOPE' tounit='S'/><unitassoc id='EXPRESSION'"
               " tounit='E'/><unitassoc id='BROKEN' tounit='B'/></unit_associations>");
  units::DataUnitToDisplayUnitConverter display;
  display.SetXMLFilePath(folder.Path());
  std::string error;
  ASSERT_TRUE(display.RecursiveLoad(folder.Path("associations.xml"), units::UNIT_TYPE_STD, error));

  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&display, &wrong, thread] {
      for (int i = 0; i < kUses; ++i) {
        wrong += Use(display, i * kThreads + thread) ? 0 : 1;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(wrong, 0);
}

}  // namespace
