#include "vehicle/BaseVehicleDefObj.h"

#include <tinyxml.h>

#include <set>

namespace vehicle {

namespace {

// This host loads on one thread only, so the names need no lock.
const std::string* Kept(const std::string& tagName) {
  static std::set<std::string> names;
  return &*names.insert(tagName).first;
}

}  // namespace

IBaseVehicleDefObj::~IBaseVehicleDefObj() = default;

const char* IBaseVehicleDefObj::DebugGetClassName() const { return "BaseVehicleDefObj"; }

BaseVehicleDefObj::BaseVehicleDefObj(const std::string& tagName) : tagName(Kept(tagName)) {}

BaseVehicleDefObj::~BaseVehicleDefObj() = default;

int BaseVehicleDefObj::Read(TiXmlElement* element, std::string& error, bool flag) {
  if (element == nullptr) {
    return 2;
  }
  const int status = DoRead(element, error, flag);
  return status != 0 ? status : Validate();
}

int BaseVehicleDefObj::GetTagXMLRow() const { return currentElement ? currentElement->Row() : 0; }

int BaseVehicleDefObj::GetTagXMLColumn() const {
  return currentElement ? currentElement->Column() : 0;
}

std::string BaseVehicleDefObj::GetTagDocumentName() const {
  const TiXmlDocument* document = currentElement ? currentElement->GetDocument() : nullptr;
  return document ? document->Value() : "";
}

const std::string& BaseVehicleDefObj::GetObjId() const { return objId; }

void BaseVehicleDefObj::SetObjId(const std::string& id) { objId = id; }

// This host takes identifiers from the attribute only.
TiXmlElement* BaseVehicleDefObj::ReadObjId(TiXmlElement* element, bool flag) {
  if (element == nullptr) {
    return nullptr;
  }
  TiXmlElement* found =
      flag ? element->NextSiblingElement(*tagName) : element->FirstChildElement(*tagName);
  if (found != nullptr) {
    const char* id = found->Attribute("id");
    objId = id != nullptr ? id : "";
    currentElement = found;
  }
  return found;
}

bool BaseVehicleDefObj::IsObjIdRequired() const { return true; }

std::string BaseVehicleDefObj::GenerateParseErrorForMissingTag(const std::string& tag) const {
  return GetTagDocumentName() + ": line " + std::to_string(GetTagXMLRow()) + ": <" + *tagName +
         "> has no \"" + tag + "\"\n";
}

}  // namespace vehicle
