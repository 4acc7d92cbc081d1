#include <gtest/gtest.h>
#include <tinyxml.h>

#include <filesystem>
#include <limits>
#include <locale>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "TempFolder.h"
#include "units/UnitConverter.h"

namespace {

using Definition = units::UnitConverter::UnitsToFunctionsDefObj;

// The definition that one <fromunit> with these children is read into, and DoRead's status.
struct ReadResult {
  Definition definition;
  int status;
};

std::unique_ptr<ReadResult> ReadDefinition(const std::string& children) {
  TiXmlDocument document;
  document.Parse(
      ("<unit_conversions><fromunit id='A'>" + children + "</fromunit></unit_conversions>")
          .c_str());
  auto result = std::make_unique<ReadResult>();
  std::string error;
  result->status = result->definition.DoRead(document.RootElement(), error, false);
  EXPECT_EQ(error, "");
  return result;
}

const vehicle::DataType& RecordOf(const ReadResult& result, const std::string& target) {
  return *result.definition.toUnitFunctions.at(target);
}

TEST(UnitsToFunctionsDefObj, ReadsKindsInAnyCaseAndNothingElseOfTheirText) {
  struct Case {
    const char* type;
    VehicleV2::ConversionTypes_e kind;
    int status;
  };
  for (const auto& [type, kind, status] : {
           Case{"slope-int", VehicleV2::CONVERSION_SLOPE_INT, 0},
           Case{"Slope-INT", VehicleV2::CONVERSION_SLOPE_INT, 0},
           Case{" slope-int", VehicleV2::CONVERSION_INVALID, 1},
           Case{"", VehicleV2::CONVERSION_INVALID, 1},
           Case{"invalid", VehicleV2::CONVERSION_INVALID, 1},
           Case{"Direct", VehicleV2::CONVERSION_DIRECT, 1},
           Case{"pt-slope", VehicleV2::CONVERSION_PT_SLOPE, 1},
           Case{"inv-offset", VehicleV2::CONVERSION_INV_OFFSET, 1},
           Case{"labels", VehicleV2::CONVERSION_LABELS, 1},
           Case{"custom", VehicleV2::CONVERSION_CUSTOM, 1},
       }) {
    const auto read = ReadDefinition(
        "<tounit id='first'><conv to_float='val'/></tounit>"
        "<tounit id='B'><conv type='" +
        std::string(type) +
        "' scalar='2' to_float='val'/></tounit>"
        "<tounit id='last'><conv to_float='val'/></tounit>");
    EXPECT_EQ(read->status, status) << type;
    EXPECT_EQ(RecordOf(*read, "B").conversionType, kind) << type;
    EXPECT_EQ(RecordOf(*read, "B").toFloatExpression, "") << type;
    EXPECT_EQ(read->definition.toUnitFunctions.count("first"), 1U) << type;
    EXPECT_EQ(read->definition.toUnitFunctions.count("last"), status == 0 ? 1U : 0U) << type;
  }
}

TEST(UnitsToFunctionsDefObj, ParsesNumbersAsAStreamDoes) {
  struct Case {
    const char* text;
    double number;
  };
  for (const auto& [text, number] : {
           Case{"1.8", 1.8},
           Case{" \t2.5kg", 2.5},
           Case{"-17.777777777777778", -17.777777777777778},
           Case{"1,8", 1},
           Case{"abc", 0},
           Case{"", 0},
           Case{"1e", 0},
           Case{"1e999", std::numeric_limits<double>::max()},
           Case{"-1e999", -std::numeric_limits<double>::max()},
           Case{"1e-999", 0},
           Case{"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()},
           Case{"9007199254740993", 9007199254740992},
           Case{"0x10", 0},
           Case{"+1.5", 1.5},
           Case{".5", 0.5},
           Case{"5.", 5},
           Case{"1.5e+1", 15},
           Case{"-", 0},
           Case{"-.e", 0},
           Case{"inf", 0},
           Case{"-nan", 0},
       }) {
    const auto read = ReadDefinition("<tounit id='B'><conv type='slope-int' scalar='" +
                                     std::string(text) + "'/></tounit>");
    EXPECT_EQ(RecordOf(*read, "B").conversionConstants.at(VehicleV2::CONSTANT_SCALAR), number)
        << text;
  }
}

TEST(UnitsToFunctionsDefObj, ParsesNumbersInTheGlobalLocale) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale(), new Comma));
  const auto read =
      ReadDefinition("<tounit id='B'><conv type='slope-int' scalar='1,8' offset='2.5'/></tounit>");
  std::locale::global(before);
  const auto& constants = RecordOf(*read, "B").conversionConstants;
  EXPECT_EQ(constants.at(VehicleV2::CONSTANT_SCALAR), 1.8);
  EXPECT_EQ(constants.at(VehicleV2::CONSTANT_OFFSET), 2);
}

TEST(UnitsToFunctionsDefObj, AFieldIsTheAttributeOrTheTextOfTheFirstChildOfItsName) {
  const auto read = ReadDefinition(
      "<tounit id='B'><conv scalar='2'><type>slope-int</type><scalar>3</scalar><offset/>"
      "<offset>4</offset><invalid>5</invalid></conv></tounit>"
      "<tounit id='C'><conv><to_float> val  + 1 </to_float></conv></tounit>");
  EXPECT_EQ(read->status, 0);
  EXPECT_EQ(RecordOf(*read, "B").conversionConstants,
            (std::map<VehicleV2::ConversionConstants_e, double>{{VehicleV2::CONSTANT_INVALID, 5},
                                                                {VehicleV2::CONSTANT_SCALAR, 2}}));
  EXPECT_EQ(RecordOf(*read, "C").toFloatExpression, "val + 1") << "as the XML parser condenses it";
}

TEST(UnitsToFunctionsDefObj, ReadsEverySiblingFromTheFirstToUnitOn) {
  const auto read = ReadDefinition(
      "<other id='before'><conv to_float='1'/></other>"
      "<tounit id='none'/><tounit><conv to_float='2'/></tounit>"
      "<other id='B'><conv to_float='3'/><conv to_float='4'/></other>"
      "<tounit id='C'><conv/></tounit><tounit id='lost'><conv to_float='5'/></tounit>");
  EXPECT_EQ(read->status, 1) << "the <conv> of C says nothing";
  ASSERT_EQ(read->definition.toUnitFunctions.size(), 2U);
  EXPECT_EQ(RecordOf(*read, "B").toFloatExpression, "3");
  EXPECT_EQ(RecordOf(*read, "C").toFloatExpression, "");
  EXPECT_EQ(ReadDefinition("")->status, 0);
}

TEST(UnitsToFunctionsDefObj, FirstConstantWinsLastKindAndExpressionWin) {
  const auto read = ReadDefinition(
      "<tounit id='B'><conv type='slope-int' scalar='2'/></tounit>"
      "<tounit id='B'><conv to_float='first'/></tounit>"
      "<tounit id='B'><conv to_float='last'/></tounit>"
      "<tounit id='B'><conv type='slope-int' scalar='3' offset='1'/></tounit>"
      "<tounit id='B'><conv type='custom'/></tounit>");
  const vehicle::DataType& record = RecordOf(*read, "B");
  EXPECT_EQ(record.conversionConstants.at(VehicleV2::CONSTANT_SCALAR), 2);
  EXPECT_EQ(record.conversionConstants.at(VehicleV2::CONSTANT_OFFSET), 1);
  EXPECT_EQ(record.toFloatExpression, "last");
  EXPECT_EQ(record.conversionType, VehicleV2::CONVERSION_CUSTOM);
}

TEST(UnitsToFunctionsDefObj, BindsToTheElementThatItIsHanded) {
  TiXmlDocument document;
  document.Parse(
      "<r><x/><fromunit id='A'><tounit id='B'><conv to_float='1'/></tounit></fromunit></r>");
  std::string error;
  Definition definition;
  EXPECT_EQ(definition.DoRead(nullptr, error, false), 1);
  TiXmlElement* x = document.RootElement()->FirstChildElement("x");
  EXPECT_EQ(definition.DoRead(x, error, false), 1) << "no definition below <x>";
  EXPECT_EQ(definition.DoRead(x, error, true), 0) << "the definition behind <x>";
  EXPECT_EQ(definition.GetObjId(), "A");
  EXPECT_EQ(definition.DoRead(x, error, true), 0) << "named: <x> itself, which holds nothing";
  EXPECT_EQ(definition.GetTagXMLColumn(), 4);
  EXPECT_EQ(definition.toUnitFunctions.size(), 1U);
}

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
