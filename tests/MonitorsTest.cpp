#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "units/ConvMonitor.h"
#include "units/parse_monitors.h"

namespace {

using units::ConvMonitor;
using Trigger = std::pair<float, bool>;

TEST(ConvMonitor, SwapsLimitsInTheWrongOrderAndKeepsTheThresholdAsGiven) {
  const ConvMonitor swapped(0, "title", "units", 30, -15, 1);
  EXPECT_EQ(swapped.GetMin(), -15);
  EXPECT_EQ(swapped.GetMax(), 30);
  EXPECT_TRUE(swapped.IsMinMaxInverted());
  EXPECT_EQ(swapped.GetTriggerVal(), Trigger(30, false));
  for (const auto& [min, max] : {std::pair(1.0F, 1.0F), {NAN, -1.0F}, {1.0F, NAN}}) {
    EXPECT_FALSE(ConvMonitor(0, "title", "units", min, max, 1).IsMinMaxInverted());
  }
}

TEST(ConvMonitor, NamesTheFormatOfItsPrecision) {
  for (const auto& [precision, format] :
       {std::pair(0, "%.0f"), {1, "%.1f"}, {2, "%.2f"}, {3, "%.3f"}, {4, "%.3f"}, {-1, "%.3f"}}) {
    EXPECT_STREQ(ConvMonitor(0, "title", "units", 0, 1, precision).GetPrecisionStr(), format);
  }
}

TEST(ConvMonitor, ClearsAllOfItsTriggerButTheStatus) {
  ConvMonitor monitor(0, "title", "units", 1, 2, 0);
  EXPECT_FALSE(monitor.GetTriggerActiveStatus());
  monitor.SetTriggerActiveStatus(true);
  monitor.SetComparisonOperation(ConvMonitor::COMPARISON_GT);
  monitor.SetTriggerVal(5);
  EXPECT_EQ(monitor.GetTriggerVal(), Trigger(5, true));
  EXPECT_EQ(monitor.GetComparisonOperation(), "GT");
  monitor.ClearTriggerVals();
  EXPECT_EQ(monitor.GetTriggerVal(), Trigger(0, false));
  EXPECT_EQ(monitor.GetComparisonOperation(), "");
  EXPECT_TRUE(monitor.GetTriggerActiveStatus());
  EXPECT_EQ(ConvMonitor::COMPARISON_LT + ConvMonitor::COMPARISON_EQ, "LTEQ");
}

TEST(ParseMonitors, MakesAMonitorOfEachUsableLineInTheirOrder) {
  using Monitor = std::tuple<std::string, float, float, int>;  // units, limits, precision
  std::vector<std::shared_ptr<ConvMonitor>> monitors(3);
  std::vector<LineItem> lines;
  units::parse_monitors(nullptr, monitors);
  units::parse_monitors(&lines, monitors);
  EXPECT_EQ(monitors.size(), 3U) << "without lines the list is left alone";
  using Case = std::pair<std::vector<std::string>, std::vector<Monitor>>;
  std::vector<Monitor> expected;
  for (const auto& [fields, made] :
       {Case{{}, {}}, Case{{" ", "u", "0", "1"}, {}}, Case{{"t", "u", " ", "1"}, {}},
        Case{{"t", "u", "0"}, {}}, Case{{"t", "u", "0", " "}, {}},
        Case{{"t", "u", "-1.5", "+2e2", "2", "ignored"}, {{"u", -1.5F, 200, 2}}},
        Case{{"", " ", "0", "1", " "}, {{"", 0, 1, 0}}},
        Case{{"  ", "", "", "  ", ""}, {{"", 0, 0, 0}}},
        Case{{"t", "  ", "\t3kg", "4,5"}, {{"  ", 3, 4, 0}}},
        Case{{"t", "u", "100", "abc", "-2.9"}, {{"u", 0, 100, -2}}},
        Case{{"t", "u", "0", "1e999", "010"}, {{"u", 0, HUGE_VALF, 10}}},
        Case{{"t", "u", "0", "1", "2147483648"}, {{"u", 0, 1, INT_MAX}}},
        Case{{"t", "u", "0", "1", "-99999999999999999999"}, {{"u", 0, 1, INT_MIN}}}}) {
    lines.push_back({7, fields});
    expected.insert(expected.end(), made.begin(), made.end());
  }
  units::parse_monitors(&lines, monitors);
  std::vector<Monitor> made;
  for (const auto& monitor : monitors) {
    made.emplace_back(monitor->GetUnits(), monitor->GetMin(), monitor->GetMax(),
                      monitor->GetPrecision());
  }
  EXPECT_EQ(made, expected);
}

}  // namespace
