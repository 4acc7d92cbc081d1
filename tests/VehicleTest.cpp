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
class Thing : public vehicle::BaseVehicleDefObj {
 public:
  Thing() : BaseVehicleDefObj("thing") {}
  int Validate() override { return validateStatus; }
  int DoRead(TiXmlElement* element, std::string& error, bool flag) override {
    flags.push_back(flag);
    error += "[read " + GetObjId() + ']';
    int status = 0;
    element->QueryIntAttribute("status", &status);
    return status;
  }
  std::vector<bool> flags;
  int validateStatus = 0;
};

class AnonymousThing : public Thing {
 public:
  bool IsObjIdRequired() const override { return false; }
};

class ReadHashData : public testing::Test {
 protected:
  template <typename T = Thing>
  bool Read(const std::string& children, util::DataHash<std::string, std::shared_ptr<T>>& into) {
    document.SetValue("/data/things.xml");
    document.Parse(("<root>" + children + "</root>").c_str());
    return vehicle::ReadHashData<T>(document.FirstChildElement("root"), into, error);
  }
  bool Read(const std::string& children) { return Read(children, things); }

  TiXmlDocument document;
  util::DataHash<std::string, std::shared_ptr<Thing>> things;
  std::string error;
};

TEST_F(ReadHashData, ReadsEachElementOnceInOrderWithTheFlagThatFoundIt) {
  EXPECT_TRUE(Read("<other id='x'/><thing id='a'/><other/><thing><id>b</id></thing>"));
  EXPECT_EQ(things.size(), 2U);
  EXPECT_EQ(things.findData("a")->flags, std::vector<bool>{false});
  EXPECT_EQ(things.findData("b")->flags, std::vector<bool>{true});
  EXPECT_EQ(error, "[read a][read b]");
}

TEST_F(ReadHashData, ReadsARepeatedIdentifierIntoTheStoredObject) {
  const auto before = std::make_shared<Thing>();
  before->SetObjId("a");
  things.addData("a", before);
  EXPECT_TRUE(Read("<thing id='a'/><thing id='a'/>"));
  EXPECT_EQ(things.size(), 1U);
  EXPECT_EQ(before->flags, (std::vector<bool>{false, true}));
}

TEST_F(ReadHashData, SkipsAnElementWithoutItsRequiredIdentifier) {
  EXPECT_FALSE(Read("<thing id='a'/>\n  <thing/><thing id='b'/>"));
  EXPECT_EQ(error,
            "[read a]/data/things.xml:2:3: <thing> lacks the tag \"id\"\n"
            "[read b]");
  EXPECT_EQ(things.size(), 2U);
}

TEST_F(ReadHashData, StoresUnderTheEmptyKeyWhereNoIdentifierIsRequired) {
  util::DataHash<std::string, std::shared_ptr<AnonymousThing>> anonymous;
  EXPECT_TRUE(Read<AnonymousThing>("<thing/><thing id=''/>", anonymous));
  EXPECT_EQ(anonymous.size(), 1U);
  EXPECT_EQ(anonymous.findData("")->flags.size(), 2U);
}

TEST_F(ReadHashData, OnlyStatus2KeepsAnObjectOut) {
  EXPECT_TRUE(Read("<thing id='a' status='2'/><thing id='b' status='1'/>"));
  EXPECT_FALSE(things.dataExists("a"));
  EXPECT_TRUE(things.dataExists("b"));
}

TEST_F(ReadHashData, ANullParentHasNoElements) {
  EXPECT_TRUE(vehicle::ReadHashData<Thing>(nullptr, things, error));
  EXPECT_TRUE(Read("<other/>"));
  EXPECT_TRUE(things.empty());
  EXPECT_EQ(error, "");
}

TEST(BaseVehicleDefObj, ReadYieldsTheFirstStatusThatIsNot0) {
  TiXmlElement sound("thing");
  TiXmlElement ended("thing");
  ended.SetAttribute("status", 5);
  Thing thing;
  std::string error;
  EXPECT_EQ(thing.Read(nullptr, error, false), 2);
  EXPECT_EQ(thing.Read(&sound, error, false), 0);
  thing.validateStatus = 7;
  EXPECT_EQ(thing.Read(&sound, error, false), 7);
  EXPECT_EQ(thing.Read(&ended, error, false), 5);
}

TEST(BaseVehicleDefObj, TheAttributeIdWinsEvenWhenItIsEmpty) {
  TiXmlDocument document;
  document.Parse("<root><thing id=''><id>child</id></thing></root>");
  Thing thing;
  thing.SetObjId("before");
  ASSERT_NE(thing.ReadObjId(document.RootElement(), false), nullptr);
  EXPECT_EQ(thing.GetObjId(), "");
  EXPECT_EQ(thing.ReadObjId(nullptr, false), nullptr);
}

TEST(BaseVehicleDefObj, TellsWhereItsElementStands) {
  TiXmlDocument document("/data/things.xml");
  document.Parse("<root>\n <thing id='a'/></root>");
  Thing thing;
  thing.ReadObjId(document.RootElement(), false);
  EXPECT_EQ(thing.GetTagDocumentName(), "/data/things.xml");
  EXPECT_EQ(thing.GetTagXMLRow(), 2);
  EXPECT_EQ(thing.GetTagXMLColumn(), 2);
  EXPECT_EQ(Thing().GenerateParseErrorForMissingTag("id"), ":0:0: <thing> lacks the tag \"id\"\n");
  EXPECT_STREQ(thing.DebugGetClassName(), "BaseVehicleDefObj");
}

TEST(DataType, ANewRecordIsOfNoKind) {
  vehicle::DataType record;
  EXPECT_EQ(record.conversionType, VehicleV2::CONVERSION_INVALID);
  TiXmlElement element("conv");
  std::string error;
  EXPECT_EQ(record.Read(&element, error, false), 0);
}

}  // namespace
