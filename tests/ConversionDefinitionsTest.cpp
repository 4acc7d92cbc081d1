#include <gtest/gtest.h>
#include <tinyxml.h>

#include <limits>
#include <locale>
#include <memory>
#include <string>

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

}  // namespace
