// Each public operation, with each of its allocations failing in turn: `std::bad_alloc` comes out
// or the operation succeeds, the object works afterwards, and nothing leaks.
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Allocations.h"
#include "TempFolder.h"
#include "host/Parser.h"
#include "units/ConvMonitor.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/UnitConverter.h"
#include "units/parse_monitors.h"
#include "util/FileHandler.h"

// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizer's own names
extern "C" {
void __lsan_disable() __attribute__((weak));
void __lsan_enable() __attribute__((weak));
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

const std::string kLong(100, 'l');  // no text that a string keeps inside itself

template <typename Object, typename... Arguments>
void FailEachAllocationOfConstructor(const Arguments&... arguments) {
  using State = std::optional<Object>;
  FailEachAllocation<State>([&](State& state) { state.emplace(arguments...); },
                            [](State& state) { return state.has_value(); });
}

TEST(AllocationFailure, InMakingTheNameTables) {
  int failing = 0;
  for (bool made = false; !made;) {
    allocationsLeft = ++failing;
    try {
      VehicleV2::conversionTypeNames();
      VehicleV2::conversionConstantNames();
      made = true;
    } catch (const std::bad_alloc&) {
    }
  }
  allocationsLeft = 0;
  EXPECT_GT(failing, 7) << "each name is an allocation";
  EXPECT_EQ(VehicleV2::conversionTypeNames().find("custom"), VehicleV2::CONVERSION_CUSTOM);
  EXPECT_EQ(VehicleV2::conversionConstantNames().find("offset"), VehicleV2::CONSTANT_OFFSET);
}

TEST(AllocationFailure, InConstructors) {
  FailEachAllocationOfConstructor<Parser>();
  FailEachAllocationOfConstructor<units::UnitConverter>();
  FailEachAllocationOfConstructor<units::DataUnitToDisplayUnitConverter>();
  FailEachAllocationOfConstructor<units::ConvMonitor>(0, kLong, kLong, 0.0F, 1.0F, 0);
}

TEST(AllocationFailure, InTheEvaluator) {
  for (const std::string text : {"val * 2", "val > 3 ? sin(val) * 0 + max(1.5, val) * 2 : 0",
                                 "a_long_name_that_no_string_keeps_inside_itself * 2"}) {
    FailEachAllocation<Parser>(
        [&](Parser& parser) {
          parser.variables["val"] = 21;
          parser.variables["a_long_name_that_no_string_keeps_inside_itself"] = 21;
          parser.Evaluate(text);
        },
        [&](Parser& parser) { return parser.Evaluate(text) == 42; });
  }
  FailEachAllocation<Parser>(
      [](Parser& parser) {
        try {
          parser.Evaluate("no_such_name * 2 + another_name_that_no_string_keeps_inside_itself");
        } catch (const std::runtime_error&) {  // what the caller of a conversion never sees
        }
      },
      [](Parser& parser) { return parser.Evaluate("6 * 7") == 42; });
}

using DefinitionStore =
    util::DataHash<std::string, std::shared_ptr<units::UnitConverter::UnitsToFunctionsDefObj>>;
using AssociationStore =
    util::DataHash<std::string,
                   std::shared_ptr<units::DataUnitToDisplayUnitConverter::UnitAssociation>>;

TEST(AllocationFailure, InTheStore) {
  const auto value = std::make_shared<units::UnitConverter::UnitsToFunctionsDefObj>();
  FailEachAllocation<DefinitionStore>(
      [&](DefinitionStore& store) {
        if (!store.dataExists(kLong)) {
          store.addData(kLong, value);  // which is beyond the first 193 buckets
        }
        store.setData(kLong, value);
        store.setData("another " + kLong, value);
      },
      [&](DefinitionStore& store) {
        return store.size() == 195 && store.findData(kLong) == value &&
               store.removeData(kLong) == 1 && store.removeData(kLong) == 0;
      },
      [] {
        auto store = std::make_unique<DefinitionStore>();
        for (int i = 0; i < 193; ++i) {
          store->addData(std::to_string(i), nullptr);
        }
        return store;
      });
}

// TinyXML loses nodes when an allocation fails while it parses. Here the failures begin after it.
TEST(AllocationFailure, InReadingAParsedDocument) {
  TiXmlDocument document;
  document.Parse(("<r><fromunit/><fromunit id='" + kLong + "'><tounit id='" + kLong +
                  "'><conv type='slope-int'><scalar>1.8</scalar><offset>32</offset></conv></tounit>"
                  "<tounit id='B'><conv to_float='val + 1 - 1 + 1 - 1 + 1 - 1'/></tounit>"
                  "</fromunit><unitassoc id='" +
                  kLong + "' tounit='" + kLong + "' fromunit='" + kLong + "'/></r>")
                     .c_str());
  TiXmlElement* root = document.RootElement();
  FailEachAllocation<DefinitionStore>(
      [&](DefinitionStore& store) {
        std::string error;
        vehicle::ReadHashData<units::UnitConverter::UnitsToFunctionsDefObj>(root, store, error);
        EXPECT_EQ(error, ":1:4: <fromunit> lacks the tag \"id\"\n");
      },
      [](DefinitionStore& store) {
        const auto& records = store.findData(kLong)->toUnitFunctions;
        return store.size() == 1 && records.size() == 2 &&
               records.at(kLong)->conversionConstants.size() == 2 &&
               !records.at("B")->toFloatExpression.empty();
      });
  FailEachAllocation<AssociationStore>(
      [&](AssociationStore& store) {
        std::string error;
        vehicle::ReadHashData<units::DataUnitToDisplayUnitConverter::UnitAssociation>(root, store,
                                                                                      error);
      },
      [](AssociationStore& store) {
        return store.findData(kLong)->toUnit == kLong && store.findData(kLong)->fromUnit == kLong;
      });
}

class Files : public testing::Test {
 protected:
  Files() {
    folder.Write("UNIT_CONVERSIONS.xml",
                 "<?xml version='1.0'?><unit_conversions><fromunit/><fromunit id='A'>"
                 "<tounit id='" +
                     kLong +
                     "'><conv to_float='val * 2'/></tounit></fromunit>"
                     "<fromunit id='" +
                     kLong +
                     "'><tounit id='A'><conv type='slope-int' scalar='0.5'"
                     " offset='0'/></tounit></fromunit></unit_conversions>");
    const std::string own = "<unitassoc id='A' tounit='" + kLong + "'/></unit_associations>";
    folder.Write("included", "<unit_associations>" + own);
    for (const char* suffix : {"STD", "STD_UK", "METRIC", "GREEK"}) {
      folder.Write(std::string("V_UNIT_ASSOCIATIONS_") + suffix + ".xml",
                   "<unit_associations><include>included</include>" + own);
    }
    folder.Write("cycle", "<unit_associations><include>cycle</include></unit_associations>");
    folder.Write("unnamed", "<unit_associations><include/></unit_associations>");
  }

  TempFolder folder;
};

// Of what leaks here, TinyXML's parser is the owner.
TEST_F(Files, AllocationFailureInLoads) {
  using units::DataUnitToDisplayUnitConverter;
  if (__lsan_disable != nullptr) {
    __lsan_disable();
  }
  const std::string base = folder.Path();
  FailEachAllocation<DataUnitToDisplayUnitConverter>(
      [&](DataUnitToDisplayUnitConverter& display) {
        std::string error;
        display.SetXMLFilePath(base);
        EXPECT_TRUE(display.ReadAndParseXMLAssociations("V", error)) << error;
        EXPECT_FALSE(display.RecursiveLoad(base + "cycle", units::UNIT_TYPE_STD, error));
        EXPECT_FALSE(display.RecursiveLoad(base + "unnamed", units::UNIT_TYPE_STD, error));
        EXPECT_FALSE(display.RecursiveLoad(base + "missing", units::UNIT_TYPE_STD, error));
      },
      [](DataUnitToDisplayUnitConverter& display) {
        double value = 21;
        display.ConvertUnit("A", value);
        return value == 42 && display.GetActiveLabelForUnit("A") == kLong;
      },
      [] { return std::make_unique<DataUnitToDisplayUnitConverter>(); }, true);
  if (__lsan_enable != nullptr) {
    __lsan_enable();
  }
}

TEST_F(Files, AllocationFailureInConversionsAndLabels) {
  using units::DataUnitToDisplayUnitConverter;
  FailEachAllocation<DataUnitToDisplayUnitConverter>(
      [](DataUnitToDisplayUnitConverter& display) {
        double value = 21;
        display.ConvertUnit("A", value);
        display.UnConvertUnit("A", value);
        float single = 21;
        display.ConvertUnit("A", single);
        EXPECT_EQ(value + single, 63);
      },
      [](DataUnitToDisplayUnitConverter& display) {
        return display.GetActiveLabelForUnit("A") == kLong;
      },
      [this] {
        auto display = std::make_unique<DataUnitToDisplayUnitConverter>();
        std::string error;
        display->SetXMLFilePath(folder.Path());
        EXPECT_TRUE(display->ReadAndParseXMLAssociations("V", error));
        return display;
      });
  FailEachAllocation<DataUnitToDisplayUnitConverter>(
      [](DataUnitToDisplayUnitConverter& display) { display.GetActiveLabelForUnit(kLong); },
      [](DataUnitToDisplayUnitConverter& display) {
        return display.GetActiveLabelForUnit(kLong) == kLong;
      });
}

TEST_F(Files, AllocationFailureInFileReads) {
  const std::string path = folder.Write("file", kLong);
  FailEachAllocation<util::FileHandler>(
      [&](util::FileHandler& file) {
        std::string text;
        std::vector<unsigned char> bytes;
        file.open(path.c_str(), "rb");
        EXPECT_EQ(file.read(text), 1U);
        file.open(path.c_str(), "rb");
        EXPECT_EQ(file.read(bytes), 1U);
        EXPECT_EQ(text, std::string(bytes.begin(), bytes.end()));
      },
      [](util::FileHandler& file) { return file.fileSize() == kLong.size(); });
}

TEST(AllocationFailure, InMonitors) {
  using Monitors = std::vector<std::shared_ptr<units::ConvMonitor>>;
  std::vector<LineItem> lines{{1, {kLong, kLong, "0", "1", "2"}}, {2, {kLong, " ", "0", "1"}}};
  FailEachAllocation<Monitors>(
      [&](Monitors& monitors) { units::parse_monitors(&lines, monitors); },
      [](Monitors& monitors) { return monitors.size() == 2 && monitors[0]->GetUnits() == kLong; });

  FailEachAllocation<units::ConvMonitor>(
      [](units::ConvMonitor& monitor) {
        monitor.SetName(kLong);
        monitor.SetComparisonOperation(kLong);
        monitor.SetTriggerSummary(kLong);
        units::ConvMonitor copy(monitor);
        copy = monitor;
        EXPECT_EQ(copy.GetComparisonOperation(), kLong);
      },
      [](units::ConvMonitor& monitor) { return monitor.GetName() == kLong; },
      [] { return std::make_unique<units::ConvMonitor>(0, "", "", 0.0F, 1.0F, 0); });
}

}  // namespace
