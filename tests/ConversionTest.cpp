#include <gtest/gtest.h>

#include <array>
#include <cfenv>
#include <cstdint>
#include <cstring>
#include <future>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "TempFolder.h"
#include "units/UnitConverter.h"

namespace {

constexpr char kTargets[] =
    "<tounit id='slope'><conv type='slope-int' scalar='0.55555555555555556' offset='-17.7'/>"
    "</tounit><tounit id='expression'><conv to_float='(val - 32) / 1.8 + 235.2 / val'/></tounit>"
    "<tounit id='no scalar'><conv type='slope-int' offset='1'/></tounit>"
    "<tounit id='no offset'><conv type='slope-int' scalar='1'/></tounit>"
    "<tounit id='neither'><conv type='slope-int'/></tounit>"
    "<tounit id='vol'><conv to_float='2 * vol'/></tounit>"
    "<tounit id='no formula'><conv type='custom'/></tounit>";

class Conversion : public testing::Test {
 protected:
  Conversion() { Load(kTargets); }

  void Load(const std::string& targets) {
    folder.Write("units.xml",
                 "<unit_conversions><fromunit id='A'>" + targets +
                     "</fromunit><fromunit id='AA'/><fromunit id='B'/></unit_conversions>");
    EXPECT_TRUE(converter->LoadFromXML(folder.Path("units.xml"), why));
  }
  units::Conversion Find(const std::string& to) { return converter->FindConversion("A", to, why); }

  TempFolder folder;
  std::string why;
  std::unique_ptr<units::UnitConverter> converter = std::make_unique<units::UnitConverter>();
};

// The special values, then random bits and ordinary ones in turn.
template <typename Value>
std::vector<Value> MakeValues(std::size_t count) {
  using Bits = std::conditional_t<sizeof(Value) == 8, std::uint64_t, std::uint32_t>;
  using Limits = std::numeric_limits<Value>;
  std::vector<Value> values{-Value(0),           Limits::infinity(),  -Limits::infinity(),
                            Limits::max(),       Limits::quiet_NaN(), Limits::signaling_NaN(),
                            Limits::denorm_min()};
  std::mt19937_64 random(1);
  while (values.size() < count) {
    const auto bits = static_cast<Bits>(random());
    values.push_back(static_cast<Value>(static_cast<std::int32_t>(bits)) / 65536);
    std::memcpy(&values.emplace_back(), &bits, sizeof(bits));
  }
  return values;
}

template <typename Value>
void ExpectTheBitsOfConvertUnit(const units::UnitConverter& converter, const std::string& to,
                                const std::vector<Value>& values) {
  std::string why;
  const units::Conversion conversion = converter.FindConversion("A", to, why);
  std::vector<Value> byName = values;
  std::vector<Value> single = values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    converter.ConvertUnit("A", to, byName[i]);
    conversion.Convert(single[i]);
  }
  std::vector<Value> inPlace = values;
  conversion.Convert(inPlace.data(), inPlace.data(), values.size());
  std::vector<Value> apart(values.size());
  conversion.Convert(values.data(), apart.data(), values.size());
  for (const auto& converted : {single, inPlace, apart}) {
    EXPECT_EQ(std::memcmp(converted.data(), byName.data(), values.size() * sizeof(Value)), 0) << to;
  }
}

TEST_F(Conversion, GivesTheBitsOfConvertUnitForAMillionValuesOfEachKind) {
  for (const std::string to : {"slope", "expression", "A", "nowhere", "vol"}) {
    const std::size_t count = to == "slope" || to == "expression" ? 1000000 : 100;
    ExpectTheBitsOfConvertUnit(*converter, to, MakeValues<double>(count));
    ExpectTheBitsOfConvertUnit(*converter, to, MakeValues<float>(count));
  }
}

TEST_F(Conversion, SaysWhyThereIsNone) {
  const std::string targets = "expression, neither, no formula, no offset, no scalar, slope, vol";
  const std::string conversion = "the conversion of \"A\" into ";
  for (const auto& [from, to, expected] : std::vector<std::array<std::string, 3>>{
           {"a", "slope", "unknown unit \"a\""},
           {"A", "x", "\"A\" does not convert into \"x\"; it converts into: " + targets},
           {"B", "A", "\"B\" does not convert into \"A\" or anything else"},
           {"A", "no scalar", conversion + "\"no scalar\" lacks its scalar"},
           {"A", "no offset", conversion + "\"no offset\" lacks its offset"},
           {"A", "neither", conversion + "\"neither\" lacks its scalar and its offset"},
           {"A", "no formula", conversion + "\"no formula\" has neither a scale nor an expression"},
           {"A", "vol", "the expression \"2 * vol\" fails: no variable \"vol\""},
           {"unknown", "unknown", ""},
           {"A", "expression", ""},
       }) {
    EXPECT_EQ(static_cast<bool>(converter->FindConversion(from, to, why)), expected.empty());
    EXPECT_EQ(why, expected);
  }
  EXPECT_EQ(converter->GetSourceUnits(), (std::vector<std::string>{"A", "AA", "B"}));
  EXPECT_TRUE(converter->GetTargetUnits("unknown").empty());
}

TEST_F(Conversion, LeavesTheFloatingPointEnvironmentAloneWhenItIsFound) {
  std::feclearexcept(FE_ALL_EXCEPT);
  std::feraiseexcept(FE_DIVBYZERO);
  Find("expression");
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_DIVBYZERO);
  std::feclearexcept(FE_ALL_EXCEPT);
}

TEST_F(Conversion, OutlivesItsConverterAndServesManyThreadsAtOnce) {
  units::Conversion original = Find("slope");
  const units::Conversion copy = original = Find("expression");
  Load("<tounit id='expression'><conv to_float='0'/></tounit>");
  original = units::Conversion();
  converter.reset();
  std::vector<std::future<void>> threads(8);
  for (std::future<void>& thread : threads) {
    thread = std::async(std::launch::async, [&copy] {
      for (int i = 1; i < 20000; ++i) {
        double value = i;
        copy.Convert(value);
        ASSERT_EQ(value, (i - 32) / 1.8 + 235.2 / i);
      }
    });
  }
}

}  // namespace
