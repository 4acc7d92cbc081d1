#include <gtest/gtest.h>
#include <tinyxml.h>

#include <locale>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>

#include "units/UnitConverter.h"

namespace {

using Definition = units::UnitConverter::UnitsToFunctionsDefObj;
using Constants = std::map<VehicleV2::ConversionConstants_e, double>;
using Record = std::tuple<VehicleV2::ConversionTypes_e, Constants, std::string>;

// DoRead's status, and the records that one <fromunit> with these children is read into.
std::pair<int, std::map<std::string, Record>> Read(const std::string& children) {
  TiXmlDocument document;
  document.Parse(("<r><fromunit id='A'>" + children + "</fromunit></r>").c_str());
  Definition definition;
  std::string error;
  const int status = definition.DoRead(document.RootElement(), error, false);
  EXPECT_EQ(error, "");
  std::map<std::string, Record> records;
  for (const auto& [unit, read] : definition.toUnitFunctions) {
    records[unit] = {read->conversionType, read->conversionConstants, read->toFloatExpression};
  }
  return {status, records};
}

double ReadNumber(const std::string& text) {
  const auto records =
      Read("<tounit id='B'><conv type='slope-int' scalar='" + text + "'/></tounit>");
  return std::get<Constants>(records.second.at("B")).at(VehicleV2::CONSTANT_SCALAR);
}

TEST(UnitsToFunctionsDefObj, ReadsKindsInAnyCaseAndGoesOnBehindSlopeIntOnly) {
  const std::string before = "<tounit id='B'><conv type='slope-int'/></tounit><tounit id='B'>";
  using Case = std::pair<std::string, VehicleV2::ConversionTypes_e>;
  for (const auto& [type, kind] : {Case("Slope-INT", VehicleV2::CONVERSION_SLOPE_INT),
                                   Case(" slope-int", VehicleV2::CONVERSION_INVALID),
                                   Case("Direct", VehicleV2::CONVERSION_DIRECT),
                                   Case("pt-slope", VehicleV2::CONVERSION_PT_SLOPE),
                                   Case("inv-offset", VehicleV2::CONVERSION_INV_OFFSET),
                                   Case("labels", VehicleV2::CONVERSION_LABELS),
                                   Case("custom", VehicleV2::CONVERSION_CUSTOM)}) {
    const auto [status, records] = Read(std::string(before)
                                            .append("<conv type='")
                                            .append(type)
                                            .append("' to_float='val'/></tounit>"));
    EXPECT_EQ(status, kind == VehicleV2::CONVERSION_SLOPE_INT ? 0 : 1) << type;
    EXPECT_EQ(records.at("B"), Record(kind, {}, "")) << type;
  }
  EXPECT_EQ(Read("").first, 0);
}

TEST(UnitsToFunctionsDefObj, ParsesNumbersAsAStreamDoesInTheGlobalLocale) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  EXPECT_EQ(ReadNumber("0.14503773773020922"), 0.14503773773020922);
  const std::locale before;
  for (const auto& locale : {before, std::locale(before, new Comma)}) {
    std::locale::global(locale);
    for (const std::string text :
         {"-17.777777777777778", "9007199254740993", "4.9406564584124654e-324", "1e-999", "1e999",
          "-1e999", "1.5e+1", "+1.5", "-.5", "5.", "1,8", "1e", "0x10", "inf", "-nan", "-", ""}) {
      double number = 0;
      std::istringstream(text) >> number;
      EXPECT_EQ(ReadNumber(text), number) << text;
    }
  }
  std::locale::global(before);
}

TEST(UnitsToFunctionsDefObj, ReadsEverySiblingFromTheFirstToUnitOn) {
  const auto [status, records] = Read(
      "<other id='before'><conv to_float='1'/></other>"
      "<tounit id='none'/><tounit><conv to_float='2'/></tounit>"
      "<tounit id=''><conv to_float='0'/></tounit>"
      "<other id='B'><conv scalar='2'><type>slope-int</type><scalar>3</scalar><offset/>"
      "<offset>4</offset><invalid>5</invalid></conv><conv to_float='6'/></other>"
      "<tounit id='B'><conv type='slope-int' scalar='7' offset='8'/></tounit>"
      "<tounit id='C'><conv to_float='first'/></tounit>"
      "<tounit id='C'><conv><to_float> val  + 1 </to_float></conv></tounit>"
      "<tounit id='D'><conv/></tounit><tounit id='lost'><conv to_float='9'/></tounit>");
  EXPECT_EQ(status, 1) << "the <conv> of D says nothing";
  const Constants constants{{VehicleV2::CONSTANT_INVALID, 5},
                            {VehicleV2::CONSTANT_SCALAR, 2},
                            {VehicleV2::CONSTANT_OFFSET, 8}};
  EXPECT_EQ(records,
            (std::map<std::string, Record>{{"", {VehicleV2::CONVERSION_INVALID, {}, "0"}},
                                           {"B", {VehicleV2::CONVERSION_SLOPE_INT, constants, ""}},
                                           {"C", {VehicleV2::CONVERSION_INVALID, {}, "val + 1"}},
                                           {"D", {VehicleV2::CONVERSION_INVALID, {}, ""}}}));
}

TEST(UnitsToFunctionsDefObj, BindsToTheElementThatItIsHanded) {
  TiXmlDocument document;
  document.Parse(
      "<r><x/><fromunit id='A'><tounit id='B'><conv to_float='1'/></tounit></fromunit></r>");
  std::string error;
  Definition definition;
  TiXmlElement* x = document.RootElement()->FirstChildElement("x");
  EXPECT_EQ(definition.DoRead(nullptr, error, false), 1);
  EXPECT_EQ(definition.DoRead(x, error, false), 1) << "no definition below <x>";
  EXPECT_EQ(definition.DoRead(x, error, true), 0) << "the definition behind <x>";
  EXPECT_EQ(definition.DoRead(x, error, true), 0) << "named: <x> itself, which holds nothing";
  EXPECT_EQ(definition.GetTagXMLColumn(), 4);
  EXPECT_EQ(definition.toUnitFunctions.size(), 1U);
}

}  // namespace
