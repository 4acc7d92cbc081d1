#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "TempFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

class DisplayUnits : public testing::Test {
 protected:
  DisplayUnits() { display.SetXMLFilePath(folder.Path()); }

  std::string Write(const std::string& name, const std::string& children) const {
    return folder.Write(name, "<unit_associations>" + children + "</unit_associations>");
  }

  // Writes the association file of a system that shows A as `label`.
  void WriteSystem(const std::string& suffix, const std::string& label) const {
    Write("CAR_UNIT_ASSOCIATIONS" + suffix, "<unitassoc id='A' tounit='" + label + "'/>");
  }

  bool LoadSystems() { return display.ReadAndParseXMLAssociations("CAR", error); }

  bool Load(const std::string& name) {
    return display.RecursiveLoad(folder.Path(name), units::UNIT_TYPE_STD, error);
  }

  std::string LabelIn(units::unitTypes_e type, const std::string& unit = "A") {
    display.SetUnitType(type);
    return display.GetActiveLabelForUnit(unit);
  }

  TempFolder folder;
  units::DataUnitToDisplayUnitConverter display;
  std::string error;
};

TEST_F(DisplayUnits, AFreshConverterShowsEverythingAsItIs) {
  const units::DataUnitToDisplayUnitConverter fresh;
  double value = 1;
  fresh.ConvertUnit("A", value);
  fresh.UnConvertUnit("A", value);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(fresh.GetActiveLabelForUnit("A"), "A");
  EXPECT_TRUE(fresh.IsStdUnits());
  EXPECT_FALSE(fresh.IsMetricUnits());
}

TEST_F(DisplayUnits, EachSystemHasItsOwnLabelValueAndKind) {
  folder.Write("UNIT_CONVERSIONS.xml",
               "<unit_conversions><fromunit id='A'>"
               "<tounit id='s'><conv type='slope-int' scalar='1.8' offset='32'/></tounit>"
               "<tounit id='m'><conv to_float='val * 3'/></tounit></fromunit>"
               "<fromunit id='s'><tounit id='A'><conv to_float='(val - 32) / 1.8'/></tounit>"
               "</fromunit></unit_conversions>");
  WriteSystem("_STD.xml", "s");
  WriteSystem("_STD_UK.xml", "no such unit");
  WriteSystem("_METRIC.xml", "m");
  WriteSystem("_GREEK.xml", "A");
  display.SetXMLFilePath(folder.Path());
  ASSERT_TRUE(LoadSystems());
  struct Case {
    units::unitTypes_e type;
    const char* label;
    double shown;
    double back;
    bool std;
  };
  for (const auto& [type, label, shown, back, std] :
       {Case{units::UNIT_TYPE_STD, "s", 212, 100, true},
        Case{units::UNIT_TYPE_STD_UK, "no such unit", 100, 100, true},
        Case{units::UNIT_TYPE_METRIC, "m", 300, 300, false},
        Case{units::UNIT_TYPE_GREEK, "A", 100, 100, false}}) {
    EXPECT_EQ(LabelIn(type), label);
    double value = 100;
    display.ConvertUnit("A", value);
    EXPECT_EQ(value, shown) << label;
    display.UnConvertUnit("A", value);
    EXPECT_EQ(value, back) << label;
    float single = 100;
    display.ConvertUnit("A", single);
    EXPECT_EQ(single, static_cast<float>(shown)) << label;
    EXPECT_EQ(display.IsStdUnits(), std) << label;
    EXPECT_EQ(display.IsMetricUnits(), !std) << label;
  }
}

TEST_F(DisplayUnits, OnlyTheFourSystemsCanBeChosenAndLoaded) {
  display.SetStdUnits(false);
  Write("f.xml", "<unitassoc id='A' tounit='B'/>");
  ASSERT_TRUE(display.RecursiveLoad(folder.Path("f.xml"), units::UNIT_TYPE_METRIC, error));
  for (const int value : {-1, 4, 1000}) {
    const auto type = static_cast<units::unitTypes_e>(value);
    EXPECT_EQ(LabelIn(type), "B") << "still metric after " << value;
    EXPECT_FALSE(display.RecursiveLoad(folder.Path("f.xml"), type, error));
  }
  display.SetStdUnits(true);
  EXPECT_EQ(display.GetActiveLabelForUnit("A"), "A");
}

TEST_F(DisplayUnits, LoadsTheSystemsInOrderAndStopsAtTheFirstThatFails) {
  const std::vector<std::pair<std::string, units::unitTypes_e>> order{
      {"_STD.xml", units::UNIT_TYPE_STD},
      {"_STD_UK.xml", units::UNIT_TYPE_STD_UK},
      {"_METRIC.xml", units::UNIT_TYPE_METRIC},
      {"_GREEK.xml", units::UNIT_TYPE_GREEK}};
  for (std::size_t missing = 0; missing < order.size(); ++missing) {
    const TempFolder partial;
    units::DataUnitToDisplayUnitConverter converter;
    converter.SetXMLFilePath(partial.Path());
    for (std::size_t i = 0; i < order.size(); ++i) {
      if (i != missing) {
        partial.Write("CAR_UNIT_ASSOCIATIONS" + order[i].first,
                      "<unit_associations><unitassoc id='A' tounit='B'/></unit_associations>");
      }
    }
    EXPECT_FALSE(converter.ReadAndParseXMLAssociations("CAR", error));
    for (std::size_t i = 0; i < order.size(); ++i) {
      converter.SetUnitType(order[i].second);
      EXPECT_EQ(converter.GetActiveLabelForUnit("A"), i < missing ? "B" : "A")
          << order[i].first << " without " << order[missing].first;
    }
  }
  EXPECT_EQ(error, "");
  EXPECT_TRUE(display.LoadTunerMetricUnits("", error));
}

TEST_F(DisplayUnits, IncludesAreNamedFromTheFilePathNotFromTheirIncluder) {
  Write("sub/f.xml", "<include>common/x.xml</include>");
  Write("common/x.xml", "<unitassoc id='A' tounit='B'/>");
  EXPECT_TRUE(Load("sub/f.xml"));
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD), "B");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_GREEK), "A") << "in the system loaded only";
}

TEST_F(DisplayUnits, OwnAssociationsOverrideIncludedOnesWhereverTheIncludeStands) {
  Write("f.xml",
        "<unitassoc id='A' tounit='own'/><include>one.xml</include><other/>"
        "<include>two.xml</include>");
  Write("one.xml", "<unitassoc id='A' tounit='one'/><unitassoc id='B' tounit='one'/>");
  Write("two.xml", "<unitassoc id='A' tounit='two'/><unitassoc id='B' tounit='two'/>");
  EXPECT_TRUE(Load("f.xml"));
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "A"), "own");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "B"), "two");
}

TEST_F(DisplayUnits, ARepeatedAssociationReplacesTheFieldsThatItGives) {
  Write("f.xml",
        "<unitassoc id='A' tounit='B'/><unitassoc id='A' fromunit='X'/>"
        "<unitassoc id='A'><tounit/></unitassoc>"
        "<unitassoc id='C' tounit='D'/><unitassoc id='C' tounit=''><tounit>E</tounit></unitassoc>"
        "<unitassoc id='F'><tounit>G</tounit></unitassoc>");
  EXPECT_TRUE(Load("f.xml"));
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "A"), "B");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "C"), "");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "F"), "G");
  Write("f.xml", "<unitassoc id='A' tounit='new'/>");
  EXPECT_TRUE(Load("f.xml"));
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "A"), "new");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "F"), "G") << "no longer in the file, still in the store";
}

TEST_F(DisplayUnits, AnIncludeThatCannotBeReadFailsItsIncluderInSilence) {
  Write("f.xml",
        "<include>one.xml</include><include>missing.xml</include><include>two.xml</include>"
        "<unitassoc id='A' tounit='own'/>");
  Write("one.xml", "<unitassoc id='B' tounit='one'/>");
  Write("two.xml", "<unitassoc id='B' tounit='two'/>");
  EXPECT_FALSE(Load("f.xml"));
  EXPECT_EQ(error, "");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "A"), "A");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD, "B"), "one");
}

TEST_F(DisplayUnits, AnIncludeWithoutTextFailsWithOneLine) {
  Write("f.xml", "\n <include/><unitassoc id='A' tounit='B'/>");
  EXPECT_FALSE(Load("f.xml"));
  EXPECT_EQ(error, folder.Path("f.xml") + ":2:2: <include> names no file\n");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD), "A");
}

TEST_F(DisplayUnits, IncludeCyclesFailWithOneLineThatNamesTheChain) {
  Write("1.xml", "<include>1.xml</include>");
  Write("2a.xml", "<include>2b.xml</include>");
  Write("2b.xml", "<include>2a.xml</include>");
  Write("3a.xml", "<include>3b.xml</include>");
  Write("3b.xml", "<include>3c.xml</include>");
  Write("3c.xml", "<unitassoc id='A' tounit='B'/><include>3a.xml</include>");
  const std::string at = folder.Path();
  EXPECT_FALSE(Load("1.xml"));
  EXPECT_FALSE(Load("2a.xml"));
  EXPECT_FALSE(Load("3a.xml"));
  EXPECT_EQ(error, at + "1.xml:1:20: include cycle: " + at + "1.xml -> " + at + "1.xml\n" +  //
                       at + "2b.xml:1:20: include cycle: " + at + "2a.xml -> " + at + "2b.xml -> " +
                       at + "2a.xml\n" +  //
                       at + "3c.xml:1:50: include cycle: " + at + "3a.xml -> " + at + "3b.xml -> " +
                       at + "3c.xml -> " + at + "3a.xml\n");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD), "A");
}

TEST_F(DisplayUnits, AFileIncludedTwiceWithoutACycleIsReadTwice) {
  Write("f.xml",
        "<include>one.xml</include><include>other.xml</include><include>one.xml</include>");
  Write("one.xml", "<unitassoc id='A' tounit='one'/>");
  Write("other.xml", "<include>one.xml</include><unitassoc id='A' tounit='other'/>");
  EXPECT_TRUE(Load("f.xml"));
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD), "one");
}

TEST_F(DisplayUnits, AFileThatIsNoAssociationFileLoadsNothing) {
  folder.Write("text", "no XML");
  folder.Write("root.xml", "<other><include>missing</include></other>");
  folder.Write("broken.xml", "<unit_associations><unitassoc id='A' tounit='B'/><unitassoc id=");
  folder.Write("empty", "");
  EXPECT_TRUE(Load("text"));
  EXPECT_TRUE(Load("root.xml"));
  EXPECT_TRUE(Load("broken.xml"));
  EXPECT_FALSE(Load("empty"));
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD), "B") << "what the parser could deliver";
}

TEST_F(DisplayUnits, AnAssociationWithoutIdentifierIsToldAndSkipped) {
  Write("f.xml", "<unitassoc tounit='B'/><unitassoc id='A' tounit='C'/>");
  EXPECT_TRUE(Load("f.xml"));
  EXPECT_EQ(error, folder.Path("f.xml") + ":1:20: <unitassoc> lacks the tag \"id\"\n");
  EXPECT_EQ(LabelIn(units::UNIT_TYPE_STD), "C");
}

TEST(UnitAssociation, WithoutAnElementReadsNothing) {
  units::DataUnitToDisplayUnitConverter::UnitAssociation association;
  std::string error;
  EXPECT_EQ(association.DoRead(nullptr, error, false), 1);
}

}  // namespace
