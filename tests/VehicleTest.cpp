#include <gtest/gtest.h>
#include <tinyxml.h>

#include <memory>
#include <string>
#include <vector>

#include "vehicle/BaseVehicleDefObj.h"
#include "vehicle/DataType.h"
#include "vehicle/ReadHashData.h"

namespace {

// Reads <thing> elements; the attribute "status" is what DoRead returns.
struct Thing : vehicle::BaseVehicleDefObj {
  Thing() : BaseVehicleDefObj("thing") {}
  int Validate() override { return 7; }
  int DoRead(TiXmlElement* element, std::string& error, bool flag) override {
    flags.push_back(flag);
    error += "[read " + GetObjId() + ']';
    int status = 0;
    element->QueryIntAttribute("status", &status);
    return status;
  }
  std::vector<bool> flags;
};

struct AnonymousThing : Thing {
  bool IsObjIdRequired() const override { return false; }
};

class Definitions : public testing::Test {
 protected:
  TiXmlElement* Parse(const std::string& text) {
    document.Clear();
    document.Parse(text.c_str());
    return document.RootElement();
  }

  TiXmlDocument document{"/data/things.xml"};
  std::string error;
};

TEST_F(Definitions, AreReadInOrderIntoOneObjectAnIdentifierAndNoneWithoutIt) {
  util::DataHash<std::string, std::shared_ptr<Thing>> things;
  EXPECT_TRUE(vehicle::ReadHashData<Thing>(nullptr, things, error));
  TiXmlElement* root = Parse(
      "<root><other id='x'/><thing id='a'/>\n  <thing/><other/><thing><id>b</id></thing>"
      "<thing id='a'/></root>");
  EXPECT_FALSE(vehicle::ReadHashData<Thing>(root, things, error));
  EXPECT_EQ(error, "[read a]/data/things.xml:2:3: <thing> lacks the tag \"id\"\n[read b][read a]");
  EXPECT_EQ(things.size(), 2U);
  EXPECT_EQ(things.findData("a")->flags, (std::vector<bool>{false, true}));
  EXPECT_EQ(things.findData("b")->flags, std::vector<bool>{true});
}

TEST_F(Definitions, AreKeptUnlessTheyReadNothingAndMayLackAnIdentifierThatIsNotRequired) {
  util::DataHash<std::string, std::shared_ptr<AnonymousThing>> things;
  TiXmlElement* root =
      Parse("<root><thing id='a' status='2'/><thing status='1'/><thing id=''/></root>");
  EXPECT_TRUE(vehicle::ReadHashData<AnonymousThing>(root, things, error));
  EXPECT_EQ(things.size(), 1U);
  EXPECT_EQ(things.findData("")->flags.size(), 2U);
}

TEST_F(Definitions, BindToAnElementWhoseAttributeIdWinsAndTellWhereItStands) {
  Thing thing;
  EXPECT_EQ(thing.GenerateParseErrorForMissingTag("id"), ":0:0: <thing> lacks the tag \"id\"\n");
  TiXmlElement* root = Parse("<root>\n <thing id=''><id>child</id></thing></root>");
  thing.SetObjId("before");
  EXPECT_EQ(thing.ReadObjId(nullptr, false), nullptr);
  EXPECT_EQ(thing.ReadObjId(root, true), nullptr);
  EXPECT_EQ(thing.GetObjId() + thing.GetTagDocumentName(), "before");
  EXPECT_EQ(thing.ReadObjId(root, false), root->FirstChildElement());
  EXPECT_EQ(thing.GetObjId() + thing.GetTagDocumentName(), "/data/things.xml");
  EXPECT_EQ(thing.GetTagXMLRow(), 2);
  EXPECT_EQ(thing.GetTagXMLColumn(), 2);
}

TEST_F(Definitions, ReadWithTheFirstStatusThatIsNot0) {
  Thing thing;
  EXPECT_EQ(thing.Read(nullptr, error, false), 2);
  EXPECT_EQ(thing.Read(Parse("<thing/>"), error, false), 7);
  EXPECT_EQ(thing.Read(Parse("<thing status='5'/>"), error, false), 5);
  EXPECT_EQ(vehicle::DataType().conversionType, VehicleV2::CONVERSION_INVALID);
}

}  // namespace
