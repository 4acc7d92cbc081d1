#include "vehicle/BaseVehicleDefObj.h"

#include <tinyxml.h>

#include "xml/FormatError.h"
#include "xml/ReadField.h"

namespace vehicle {

IBaseVehicleDefObj::~IBaseVehicleDefObj() = default;

const char* IBaseVehicleDefObj::DebugGetClassName() const { return "BaseVehicleDefObj"; }

BaseVehicleDefObj::BaseVehicleDefObj(const std::string& tagName) : tagName(tagName) {}

BaseVehicleDefObj::~BaseVehicleDefObj() = default;

int BaseVehicleDefObj::Read(TiXmlElement* element, std::string& error, bool flag) {
  if (element == nullptr) {
    return 2;
  }
  const int status = DoRead(element, error, flag);
  return status != 0 ? status : Validate();
}

int BaseVehicleDefObj::GetTagXMLRow() const {
  return currentElement != nullptr ? currentElement->Row() : 0;
}

int BaseVehicleDefObj::GetTagXMLColumn() const {
  return currentElement != nullptr ? currentElement->Column() : 0;
}

std::string BaseVehicleDefObj::GetTagDocumentName() const {
  const TiXmlDocument* document =
      currentElement != nullptr ? currentElement->GetDocument() : nullptr;
  return document != nullptr ? document->ValueStr() : std::string();
}

const std::string& BaseVehicleDefObj::GetObjId() const { return objId; }

void BaseVehicleDefObj::SetObjId(const std::string& id) { objId = id; }

TiXmlElement* BaseVehicleDefObj::ReadObjId(TiXmlElement* element, bool flag) {
  if (element == nullptr) {
    return nullptr;
  }
  TiXmlElement* found =
      flag ? element->NextSiblingElement(tagName) : element->FirstChildElement(tagName);
  if (found == nullptr) {
    return nullptr;
  }
  const char* id = xml::ReadField(*found, "id");
  objId = id != nullptr ? id : "";
  currentElement = found;
  return found;
}

bool BaseVehicleDefObj::IsObjIdRequired() const { return true; }

std::string BaseVehicleDefObj::GenerateParseErrorForMissingTag(const std::string& tag) const {
  const std::string name = currentElement != nullptr ? currentElement->ValueStr() : tagName;
  return xml::FormatError(GetTagDocumentName(), GetTagXMLRow(), GetTagXMLColumn(),
                          '<' + name + "> lacks the tag \"" + tag + '"');
}

}  // namespace vehicle
