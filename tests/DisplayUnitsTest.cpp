#include <gtest/gtest.h>
#include <tinyxml.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <utility>

#include "TempFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

using units::DataUnitToDisplayUnitConverter;

// In a folder of its own, which is the current one.
class DisplayUnits : public testing::Test {
 protected:
  DisplayUnits() { std::filesystem::current_path(folder.Path()); }
  ~DisplayUnits() override { std::filesystem::current_path(before); }

  void Write(const std::string& name, const std::string& children) const {
    folder.Write(name, "<unit_associations>" + children + "</unit_associations>");
  }
  bool Load(units::unitTypes_e type = units::UNIT_TYPE_STD) {
    return display.RecursiveLoad("f.xml", type, error);
  }
  std::string Labels() const {
    return display.GetActiveLabelForUnit("A") + ' ' + display.GetActiveLabelForUnit("B") + ' ' +
           display.GetActiveLabelForUnit("C");
  }

  const std::filesystem::path before = std::filesystem::current_path();
  TempFolder folder;
  DataUnitToDisplayUnitConverter display;
  std::string error;
};

TEST_F(DisplayUnits, FindsWhatItConvertsByThereAndBack) {
  folder.Write("UNIT_CONVERSIONS.xml",
               "<unit_conversions><fromunit id='A'><tounit id='F'><conv to_float='val + 7'/>"
               "</tounit></fromunit><fromunit id='F'><tounit id='A'><conv to_float='val - 7'/>"
               "</tounit></fromunit><fromunit id='B'><tounit id='one way'>"
               "<conv to_float='val * 3'/></tounit></fromunit></unit_conversions>");
  display.SetXMLFilePath("");
  Write("f.xml",
        "<unitassoc id='A' tounit='F'/><unitassoc id='B' tounit='one way'/>"
        "<unitassoc id='AA' tounit='AA'/><unitassoc id='C' tounit='no such unit'/>");
  ASSERT_TRUE(Load());
  std::string found;
  for (const auto& [unit, shown, back] :
       {std::tuple("A", 107, 100), std::tuple("AA", 100, 100), std::tuple("B", 300, 300),
        std::tuple("C", 100, 100), std::tuple("D", 100, 100)}) {
    const auto by = display.FindDisplay(unit);
    found += by.label + (by.toDisplay ? ">" : "") + (by.toData ? "< " : " ");
    float single = 100;
    display.ConvertUnit(unit, single);
    EXPECT_EQ(single, shown) << unit;
    by.toDisplay.Convert(single = 100);
    EXPECT_EQ(single, shown) << unit;
    double value = shown;
    display.UnConvertUnit(unit, value);
    EXPECT_EQ(value, back) << unit;
    by.toData.Convert(value = shown);
    EXPECT_EQ(value, back) << unit;
  }
  EXPECT_EQ(found, "F>< AA>< one way> no such unit D ");
}

TEST_F(DisplayUnits, OnlyTheFourSystemsCanBeChosenAndLoaded) {
  display.SetUnitType(units::UNIT_TYPE_STD_UK);
  EXPECT_TRUE(display.IsStdUnits());
  EXPECT_FALSE(display.IsMetricUnits());
  display.SetUnitType(units::UNIT_TYPE_GREEK);
  EXPECT_FALSE(display.IsStdUnits());
  EXPECT_TRUE(display.IsMetricUnits());
  Write("f.xml", "<unitassoc id='A' tounit='B'/>");
  EXPECT_TRUE(Load(units::UNIT_TYPE_METRIC));
  display.SetStdUnits(false);
  for (const int value : {-1, 4}) {
    const auto none = static_cast<units::unitTypes_e>(value);
    display.SetUnitType(none);
    EXPECT_EQ(Labels(), "B B C") << "still metric";
    EXPECT_FALSE(Load(none));
  }
  display.SetStdUnits(true);
  EXPECT_EQ(Labels(), "A B C");
}

TEST_F(DisplayUnits, LoadsTheSystemsInOrderAndStopsAtTheFirstThatFails) {
  std::string files[] = {"STD", "STD_UK", "METRIC", "GREEK"};
  for (std::string& file : files) {
    file.insert(0, "CAR_UNIT_ASSOCIATIONS_").append(".xml");
    Write(file, "<unitassoc/>");
  }
  std::string lines;
  for (const std::string& missing : files) {
    std::filesystem::remove(missing);
    error.clear();
    EXPECT_FALSE(display.ReadAndParseXMLAssociations("CAR", error));
    EXPECT_EQ(error, lines);
    Write(missing, "<unitassoc/>");
    lines.append(missing).append(":1:20: <unitassoc> lacks the tag \"id\"\n");
  }
}

TEST_F(DisplayUnits, IncludesAreReadFirstInTheirOrderAndNamedFromTheFilePath) {
  Write("sub/one.xml", "<include>common/x.xml</include><unitassoc id='B' tounit='one'/>");
  Write("two.xml",
        "<include>common/x.xml</include><unitassoc id='A' tounit='two'/>"
        "<unitassoc id='B' tounit='two'/><unitassoc id='C' tounit='two'/>");
  Write("common/x.xml", "<unitassoc id='C' tounit='x'/>");
  Write("f.xml",
        "<unitassoc id='A' tounit='own'/><include>sub/one.xml</include><other/>"
        "<include>two.xml</include><include>sub/one.xml</include>");
  EXPECT_TRUE(Load());
  EXPECT_EQ(Labels(), "own one x");
  Write("f.xml",
        "<include>two.xml</include><include>missing.xml</include><include>sub/one.xml</include>"
        "<unitassoc id='A' tounit='own'/>");
  EXPECT_FALSE(Load());
  EXPECT_EQ(Labels(), "two two two") << "up to the missing one";
  folder.Write("f.xml", "<other><unitassoc id='A' tounit='B'/><include/></other>");
  EXPECT_TRUE(Load());
  EXPECT_EQ(Labels() + error, "two two two");
}

TEST_F(DisplayUnits, AnIncludeThatCannotBeFollowedFailsWithOneLine) {
  Write("b.xml", "<include>c.xml</include>");
  Write("c.xml", "<unitassoc id='A' tounit='B'/><include>b.xml</include>");
  for (const auto& [text, line] :
       {std::pair("\n <include/>", "f.xml:2:2: <include> names no file\n"),
        {"<include><![CDATA[]]></include>", "f.xml:1:20: <include> names no file\n"},
        {"<include>f.xml</include>", "f.xml:1:20: include cycle: f.xml -> f.xml\n"},
        {"<include>b.xml</include>",
         "c.xml:1:50: include cycle: f.xml -> b.xml -> c.xml -> b.xml\n"}}) {
    Write("f.xml", std::string(text) + "<unitassoc id='A' tounit='B'/>");
    error.clear();
    EXPECT_FALSE(Load());
    EXPECT_EQ(error, line);
    EXPECT_EQ(Labels(), "A B C");
  }
}

TEST(UnitAssociation, KeepsTheSourceUnit) {
  TiXmlElement element("unitassoc");
  element.SetAttribute("fromunit", "A");
  DataUnitToDisplayUnitConverter::UnitAssociation association;
  association.SetObjId("A");
  std::string error;
  EXPECT_EQ(association.DoRead(nullptr, error, false), 1);
  EXPECT_EQ(association.DoRead(&element, error, false), 0);
  EXPECT_EQ(association.fromUnit, "A");
}

}  // namespace
