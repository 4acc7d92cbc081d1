#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "units/ConvMonitor.h"
#include "units/parse_monitors.h"

namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

TEST(ConvMonitor, SwapsLimitsInTheWrongOrderAndKeepsTheThresholdAsGiven) {
  const units::ConvMonitor swapped(0, "title", "units", 30, -15, 1);
  EXPECT_EQ(swapped.GetMin(), -15);
  EXPECT_EQ(swapped.GetMax(), 30);
  EXPECT_TRUE(swapped.IsMinMaxInverted());
  EXPECT_EQ(swapped.GetTriggerVal(), std::make_pair(30.0F, false));

  const units::ConvMonitor equal(0, "title", "units", 1, 1, 1);
  EXPECT_FALSE(equal.IsMinMaxInverted());
  EXPECT_EQ(equal.GetTriggerVal(), std::make_pair(1.0F, false));

  for (const auto& [min, max] : {std::pair(kNan, -1.0F), std::pair(1.0F, kNan)}) {
    const units::ConvMonitor monitor(0, "title", "units", min, max, 1);
    EXPECT_FALSE(monitor.IsMinMaxInverted());
    EXPECT_EQ(std::isnan(monitor.GetMin()), std::isnan(min));
  }
}

TEST(ConvMonitor, NamesTheFormatOfItsPrecision) {
  for (const auto& [precision, format] :
       {std::pair(0, "%.0f"), std::pair(1, "%.1f"), std::pair(2, "%.2f"), std::pair(3, "%.3f"),
        std::pair(7, "%.3f"), std::pair(-1, "%.3f")}) {
    const units::ConvMonitor monitor(0, "title", "units", 0, 1, precision);
    EXPECT_STREQ(monitor.GetPrecisionStr(), format);
    EXPECT_EQ(monitor.GetPrecision(), precision);
  }
}

TEST(ConvMonitor, KeepsWhatItsSettersAreGiven) {
  units::ConvMonitor monitor(0, "title", "units", 0, 1, 0);
  EXPECT_STREQ(monitor.GetName(), "");
  EXPECT_STREQ(monitor.GetUnits(), "units");
  EXPECT_EQ(monitor.GetValue(), 0);
  EXPECT_FALSE(monitor.GetTriggerActiveStatus());
  EXPECT_EQ(monitor.GetComparisonOperation(), "");
  monitor.SetName("name");
  monitor.SetValue(1000);
  monitor.SetTriggerActiveStatus(true);
  monitor.SetTriggerSummary("summary");
  monitor.SetComparisonOperation("any text");
  EXPECT_STREQ(monitor.GetName(), "name");
  EXPECT_EQ(monitor.GetValue(), 1000);
  EXPECT_EQ(monitor.GetComparisonOperation(), "any text");

  monitor.SetTriggerVal(5);
  EXPECT_EQ(monitor.GetTriggerVal(), std::make_pair(5.0F, true));
  monitor.ClearTriggerVals();
  EXPECT_EQ(monitor.GetTriggerVal(), std::make_pair(0.0F, false));
  EXPECT_EQ(monitor.GetComparisonOperation(), "");
  EXPECT_TRUE(monitor.GetTriggerActiveStatus());

  monitor = units::ConvMonitor(0, "title", "other", 0, 1, 0);
  EXPECT_STREQ(units::ConvMonitor(monitor).GetUnits(), "other");
}

TEST(ConvMonitor, NamesTheComparisonOperations) {
  EXPECT_EQ(units::ConvMonitor::COMPARISON_GT, "GT");
  EXPECT_EQ(units::ConvMonitor::COMPARISON_LT, "LT");
  EXPECT_EQ(units::ConvMonitor::COMPARISON_EQ, "EQ");
}

using Monitors = std::vector<std::shared_ptr<units::ConvMonitor>>;

Monitors Parse(const std::vector<std::vector<std::string>>& lines) {
  std::vector<LineItem> items;
  for (const auto& fields : lines) {
    items.push_back({7, fields});
  }
  Monitors monitors{nullptr, nullptr, nullptr};
  units::parse_monitors(&items, monitors);
  return monitors;
}

TEST(ParseMonitors, SkipsLinesThatLackAFieldOrHaveItBlank) {
  for (const auto& fields : std::vector<std::vector<std::string>>{
           {},
           {" ", "u", "0", "1"},
           {"t"},
           {"t", "u"},
           {"t", "u", " ", "1"},
           {"t", "u", "0"},
           {"t", "u", "0", " "},
       }) {
    EXPECT_TRUE(Parse({fields}).empty()) << testing::PrintToString(fields);
  }
}

TEST(ParseMonitors, ReadsUsableLines) {
  struct Case {
    std::vector<std::string> fields;
    const char* units;
    float min;
    float max;
    int precision;
  };
  for (const Case& line : std::vector<Case>{
           {{"t", "u", "0", "100"}, "u", 0, 100, 0},
           {{"t", "u", "-1.5", "+2e2", "2", "ignored"}, "u", -1.5F, 200, 2},
           {{"", " ", "0", "1", " "}, "", 0, 1, 0},
           {{"  ", "", "", "  ", ""}, "", 0, 0, 0},
           {{"t", "  ", "\t3kg", "4,5", "2.9"}, "  ", 3, 4, 2},
           {{"t", "u", "100", "0", "-1"}, "u", 0, 100, -1},
           {{"t", "u", "abc", "1e999", "abc"}, "u", 0, HUGE_VALF, 0},
           {{"t", "u", "0", "1", "2147483647"}, "u", 0, 1, INT_MAX},
           {{"t", "u", "0", "1", "2147483648"}, "u", 0, 1, INT_MAX},
           {{"t", "u", "0", "1", "-2147483649"}, "u", 0, 1, INT_MIN},
           {{"t", "u", "0", "1", "99999999999999999999"}, "u", 0, 1, INT_MAX},
       }) {
    const Monitors monitors = Parse({line.fields});
    ASSERT_EQ(monitors.size(), 1U) << testing::PrintToString(line.fields);
    EXPECT_EQ(monitors[0]->GetUnits(), std::string(line.units));
    EXPECT_EQ(monitors[0]->GetMin(), line.min) << testing::PrintToString(line.fields);
    EXPECT_EQ(monitors[0]->GetMax(), line.max) << testing::PrintToString(line.fields);
    EXPECT_EQ(monitors[0]->GetPrecision(), line.precision) << testing::PrintToString(line.fields);
  }
}

TEST(ParseMonitors, KeepsTheOrderOfTheUsableLines) {
  const Monitors monitors = Parse({{}, {"t", "a", "1", "0"}, {"t"}, {"t", "b", "0", "1"}});
  ASSERT_EQ(monitors.size(), 2U);
  EXPECT_STREQ(monitors[0]->GetUnits(), "a");
  EXPECT_TRUE(monitors[0]->IsMinMaxInverted());
  EXPECT_STREQ(monitors[1]->GetUnits(), "b");
}

TEST(ParseMonitors, WithoutLinesLeavesTheListAlone) {
  Monitors monitors(3);
  std::vector<LineItem> none;
  units::parse_monitors(nullptr, monitors);
  units::parse_monitors(&none, monitors);
  EXPECT_EQ(monitors.size(), 3U);
}

}  // namespace
