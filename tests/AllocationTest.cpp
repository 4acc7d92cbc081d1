// Each kind of operation, with each of its allocations failing in turn: `std::bad_alloc` comes out
// or the operation succeeds, the object works afterwards, and nothing leaks.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>

#include "Allocations.h"
#include "TempFolder.h"
#include "host/Parser.h"
#include "units/ConvMonitor.h"
#include "units/DataUnitToDisplayUnitConverter.h"

// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizer's own name
extern "C" void __lsan_disable() __attribute__((weak));
// NOLINTEND(bugprone-reserved-identifier)

namespace {

using Display = units::DataUnitToDisplayUnitConverter;

const std::string kLong(100, 'l');  // no text that a string keeps inside itself

// Has each allocation of `operate` on a new state fail, repeats the operation where it did not come
// through, and requires that `check` then holds.
template <typename State>
void FailEachAllocation(
    const std::function<void(State&)>& operate, const std::function<bool(State&)>& check,
    const std::function<void(State&)>& prepare = [](State&) {}, bool leaks = false) {
  int failing = 0;  // the first round fails nothing: it makes what is made once
  for (bool hit = true; hit; ++failing) {
    const int before = livingAllocations;
    {
      State state;
      prepare(state);
      allocationsLeft = failing;
      try {
        operate(state);
      } catch (const std::bad_alloc&) {
        operate(state);
      }
      hit = failing == 0 || allocationsLeft == 0;
      allocationsLeft = 0;
      EXPECT_TRUE(check(state)) << "allocation " << failing;
    }
    EXPECT_TRUE(failing == 0 || leaks || livingAllocations == before) << "allocation " << failing;
  }
  EXPECT_GT(failing, 2) << "nothing was allocated";
}

TEST(AllocationFailure, InTheEvaluator) {
  const std::string zeros(400, '0');
  const std::string text = "val > 3 ? " + kLong + " * .2e+1 + sin(val) * 0 + .5e-400 + ." + zeros +
                           "1 + 1" + zeros + "e-800 : 0";
  FailEachAllocation<Parser>(
      [&](Parser& parser) {
        parser.variables["val"] = parser.variables[kLong] = 21;
        parser.Evaluate(text);
      },
      [&](Parser& parser) { return parser.Evaluate(text) == 42; });
}

std::string Refusal(Parser& parser, const std::string& text) {
  try {
    return std::to_string(parser.Evaluate(text));
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

TEST(AllocationFailure, InRefusingAnExpressionIsNotTakenForItsFault) {
  for (const std::string& text : {'(' + kLong, kLong, "val * ." + kLong, "1e999 * val" + kLong}) {
    Parser fresh;
    const std::string why = Refusal(fresh, text);
    FailEachAllocation<Parser>([&](Parser& parser) { EXPECT_EQ(Refusal(parser, text), why); },
                               [](Parser& parser) { return parser.Evaluate("6 * 7") == 42; });
    const int before = livingAllocations;
    const int made = allocationsMade;
    EXPECT_EQ(Refusal(fresh, text), why);
    EXPECT_LT(allocationsMade - made, 10) << "compiled once more";
    Refusal(fresh, std::string(20000, ' '));
    EXPECT_EQ(livingAllocations, before) << "kept once, and not at all where it is too long";
  }
}

TEST(AllocationFailure, InLoadsAndUses) {
  const TempFolder folder;
  folder.Write("UNIT_CONVERSIONS.xml",
               "<unit_conversions><fromunit id='A'/><fromunit/><fromunit id='A'><tounit id='" +
                   kLong +
                   "'><conv to_float='val * 2 + 1 - 1 + 1 - 1'/></tounit></fromunit>"
                   "<fromunit id='" +
                   kLong +
                   "'><tounit id='A'><conv type='slope-int'"
                   " scalar=' 0.5' offset='0'/></tounit></fromunit></unit_conversions>");
  const std::string own = "<unitassoc id='A' tounit='" + kLong + "'/></unit_associations>";
  folder.Write("included", "<unit_associations>" + own);
  folder.Write("file", "<unit_associations><include>included</include>" + own);
  folder.Write("cycle", "<unit_associations><include>cycle</include></unit_associations>");
  const auto load = [&](Display& display) {
    double value = 0;
    display.GetConverter().ConvertUnit("A", kLong, value);  // also with what a failed load left
    std::string error;
    display.SetXMLFilePath(folder.Path());
    EXPECT_TRUE(display.RecursiveLoad(folder.Path("file"), units::UNIT_TYPE_STD, error));
    EXPECT_FALSE(display.RecursiveLoad(folder.Path("cycle"), units::UNIT_TYPE_STD, error));
  };
  const auto isLoaded = [](Display& display) {
    double value = 21;
    display.ConvertUnit("A", value);
    double back = 21;
    display.UnConvertUnit("A", back);
    return value + back == 52.5 && display.GetActiveLabelForUnit("A") == kLong;
  };
  const auto use = [&](Display& display) {
    EXPECT_TRUE(isLoaded(display));
    float single = 21;
    display.FindDisplay("A").toDisplay.Convert(single);
    display.ConvertUnit("A", single);
    EXPECT_EQ(single, 84);
    EXPECT_EQ(display.GetActiveLabelForUnit(kLong), kLong);
  };
  FailEachAllocation<Display>(use, isLoaded, load);
  if (__lsan_disable != nullptr) {
    __lsan_disable();  // of what leaks now, TinyXML's parser is the owner
  }
  FailEachAllocation<Display>(
      load, isLoaded, [](Display&) {}, true);
}

TEST(AllocationFailure, InAnAssignmentOfAMonitorLeavesItAsItWas) {
  units::ConvMonitor other(0, "", kLong, 0, 1, 0);
  other.SetComparisonOperation(kLong);
  FailEachAllocation<std::optional<units::ConvMonitor>>(
      [&](auto& monitor) {
        EXPECT_STREQ(monitor->GetUnits(), "kPa");
        EXPECT_EQ(monitor->GetMin(), 2);
        *monitor = other;
      },
      [&](auto& monitor) { return monitor->GetUnits() == kLong; },
      [](auto& monitor) { monitor.emplace(0, "", "kPa", 2.0F, 3.0F, 0); });
}

}  // namespace
