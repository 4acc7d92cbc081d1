#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

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

TEST_F(UnitConverter, ConvertsByExpressionInDoublePrecision) {
  ASSERT_TRUE(LoadDefinitions(
      "<fromunit id='A'><tounit id='B'><conv to_float='val / 3'/></tounit></fromunit>"));
  EXPECT_EQ(Convert("A", "B", 21.0), 7.0);
  EXPECT_EQ(Convert("A", "B", 0.1F), static_cast<float>(static_cast<double>(0.1F) / 3));
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

TEST_F(UnitConverter, AFileThatIsNoConversionFileLoadsNothing) {
  EXPECT_TRUE(Load("no XML at all"));
  EXPECT_TRUE(Load("<units><fromunit/></units>"));
  EXPECT_EQ(error, "");
}

TEST_F(UnitConverter, TheFilePathIsAPrefixTakenAsItStands) {
  const auto write = [this](const std::string& name, const std::string& result) {
    folder.Write(name, "<unit_conversions><fromunit id='A'><tounit id='B'><conv to_float='" +
                           result + "'/></tounit></fromunit></unit_conversions>");
  };
  write("data/UNIT_CONVERSIONS.xml", "1");
  write("dataUNIT_CONVERSIONS.xml", "2");
  write("data/more.xml", "3");
  converter.SetXMLFilePathAndLoad(folder.Path("data"));
  EXPECT_EQ(Convert("A", "B", 0.0), 2.0);
  converter.SetXMLFilePathAndLoad(folder.Path("data/"));
  EXPECT_EQ(Convert("A", "B", 0.0), 1.0);
  EXPECT_TRUE(converter.LoadFromXML("more.xml", error));
  EXPECT_EQ(Convert("A", "B", 0.0), 3.0);
}

}  // namespace
