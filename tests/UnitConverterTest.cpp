#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "TempFolder.h"
#include "units/UnitConverter.h"

namespace {

class UnitConverter : public testing::Test {
 protected:
  bool Load(const std::string& text) {
    folder.Write("units.xml", text);
    return converter.LoadFromXML(folder.Path("units.xml"), error);
  }
  bool LoadDefinitions(const std::string& definitions) {
    return Load("<unit_conversions>" + definitions + "</unit_conversions>");
  }
  template <typename Value>
  Value Convert(const std::string& from, const std::string& to, Value value) const {
    converter.ConvertUnit(from, to, value);
    return value;
  }

  TempFolder folder;
  units::UnitConverter converter;
  std::string error;
};

TEST_F(UnitConverter, ConvertsByScaleAndOffsetInThePrecisionOfTheValue) {
  ASSERT_TRUE(LoadDefinitions(
      "<fromunit id='C'><tounit id='F'><conv type='slope-int' scalar='1.8' offset='32'/></tounit>"
      "</fromunit><fromunit id='F'><tounit id='C'><conv type='slope-int'"
      " scalar='0.55555555555555556' offset='-17.777777777777778'/></tounit></fromunit>"));
  EXPECT_EQ(Convert("C", "F", 100.0), 212.0);
  EXPECT_EQ(Convert("C", "F", 100.0F), 212.0F);
  // In each of these a fused multiply-add, and for float double precision too, ends in another bit.
  EXPECT_EQ(Convert("C", "F", 13.0), 0x1.bb33333333334p+5);
  EXPECT_EQ(Convert("C", "F", 9.0F), 0x1.819998p+5F);
  EXPECT_EQ(Convert("F", "C", 18.0F), -0x1.f1c72p+2F);
}

TEST_F(UnitConverter, ConvertsByExpression) {
  ASSERT_TRUE(
      LoadDefinitions("<fromunit id='A'><tounit id='B'><conv to_float='val * 2'/></tounit>"
                      "<tounit id='C'><conv to_float='val / 3'/></tounit></fromunit>"));
  EXPECT_EQ(Convert("A", "B", 21.0), 42.0);
  EXPECT_EQ(Convert("A", "B", 21.0F), 42.0F);
  EXPECT_EQ(Convert("A", "C", 0.1F), static_cast<float>(static_cast<double>(0.1F) / 3));
}

TEST_F(UnitConverter, LeavesTheValueWhereItCannotConvert) {
  EXPECT_EQ(Convert("A", "B", 1.0), 1.0) << "before any load";
  ASSERT_TRUE(LoadDefinitions(
      "<fromunit id='A'><tounit id='A'><conv to_float='2'/></tounit>"
      "<tounit id='bad'><conv to_float='2 *'/></tounit>"
      "<tounit id='unknown'><conv to_float='vol'/></tounit>"
      "<tounit id='custom'><conv type='custom' to_float='2'/></tounit></fromunit>"));
  for (const char* target : {"A", "B", "bad", "unknown", "custom", "a", "", " A"}) {
    EXPECT_EQ(Convert("A", target, 1.0), 1.0) << target;
    EXPECT_EQ(Convert("A", target, 1.0F), 1.0F) << target;
    EXPECT_EQ(Convert("unknown", target, 1.0), 1.0) << target;
  }
}

TEST_F(UnitConverter, AMissingConstantThrowsAndLeavesTheValue) {
  ASSERT_TRUE(
      LoadDefinitions("<fromunit id='A'><tounit id='B'><conv type='slope-int' offset='1'/></tounit>"
                      "<tounit id='C'><conv type='slope-int' scalar='2'/></tounit></fromunit>"));
  for (const char* target : {"B", "C"}) {
    double value = 5;
    EXPECT_THROW(converter.ConvertUnit("A", target, value), std::out_of_range);
    float single = 5;
    EXPECT_THROW(converter.ConvertUnit("A", target, single), std::out_of_range);
    EXPECT_EQ(value + single, 10);
  }
}

TEST_F(UnitConverter, ALoadThatCannotReadItsFileChangesNothing) {
  EXPECT_FALSE(Load(""));
  EXPECT_FALSE(converter.LoadFromXML(folder.Path("missing"), error));
  EXPECT_FALSE(converter.LoadFromXML(folder.Path(), error));
  EXPECT_EQ(error, "");
}

TEST_F(UnitConverter, AFileThatIsNoConversionFileLoadsNothing) {
  EXPECT_TRUE(Load("no XML at all"));
  EXPECT_TRUE(Load("<units><fromunit/></units>"));
  EXPECT_EQ(error, "");
  EXPECT_TRUE(LoadDefinitions("\n<fromunit/>"));
  EXPECT_EQ(error, folder.Path("units.xml") + ":2:1: <fromunit> lacks the tag \"id\"\n");
}

TEST_F(UnitConverter, ABrokenFileIsReadAsFarAsTheParserCame) {
  ASSERT_TRUE(
      Load("<unit_conversions><fromunit id='A'><tounit id='B'><conv to_float='val + 1'/></tounit>"
           "</fromunit><fromunit id='C'"));
  EXPECT_EQ(Convert("A", "B", 1.0), 2.0);
}

TEST_F(UnitConverter, LoadingAgainMergesIntoTheDefinitions) {
  const std::string slope = "<tounit id='B'><conv type='slope-int' offset='0' scalar='";
  ASSERT_TRUE(LoadDefinitions("<fromunit id='A'>" + slope + "2'/></tounit></fromunit>"));
  ASSERT_TRUE(
      LoadDefinitions("<fromunit id='A'>" + slope +
                      "3'/></tounit><tounit id='C'><conv to_float='9'/></tounit></fromunit>"));
  EXPECT_EQ(Convert("A", "B", 1.0), 2.0);
  EXPECT_EQ(Convert("A", "C", 1.0), 9.0);
}

TEST_F(UnitConverter, TheFilePathIsAPrefixTakenAsItStands) {
  const std::string text =
      "<unit_conversions><fromunit id='A'><tounit id='B'><conv to_float='$'/></tounit></fromunit>"
      "</unit_conversions>";
  const auto with = [&](const char* result) {
    return std::string(text).replace(text.find('$'), 1, result);
  };
  folder.Write("data/UNIT_CONVERSIONS.xml", with("1"));
  folder.Write("dataUNIT_CONVERSIONS.xml", with("2"));
  folder.Write("UNIT_CONVERSIONS.xml", with("3"));
  converter.SetXMLFilePathAndLoad(folder.Path("data/"));
  EXPECT_EQ(Convert("A", "B", 0.0), 1.0);
  converter.SetXMLFilePathAndLoad(folder.Path("data"));
  EXPECT_EQ(Convert("A", "B", 0.0), 2.0);
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  converter.SetXMLFilePathAndLoad("");
  std::filesystem::current_path(before);
  EXPECT_EQ(Convert("A", "B", 0.0), 3.0);
  EXPECT_TRUE(converter.LoadFromXML(folder.Path("dataUNIT_CONVERSIONS.xml"), error));
  EXPECT_EQ(Convert("A", "B", 0.0), 2.0);
}

TEST_F(UnitConverter, ThreadsConvertOnOneConverterAtOnce) {
  ASSERT_TRUE(LoadDefinitions(
      "<fromunit id='A'><tounit id='B'><conv type='slope-int' scalar='2' offset='1'/></tounit>"
      "<tounit id='C'><conv to_float='val * val'/></tounit>"
      "<tounit id='D'><conv to_float='vol'/></tounit></fromunit>"));
  std::vector<std::thread> threads;
  for (int first = 0; first < 4; ++first) {
    threads.emplace_back([this, first] {
      for (int i = first; i < 2000; i += 4) {
        const double value = i;
        ASSERT_EQ(Convert("A", "B", value), 2 * value + 1);
        ASSERT_EQ(Convert("A", "C", value), value * value);
        ASSERT_EQ(Convert("A", "D", value), value);
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

}  // namespace
