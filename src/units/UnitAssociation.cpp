#include "units/DataUnitToDisplayUnitConverter.h"
#include "vehicle/BindElement.h"
#include "xml/ReadField.h"

namespace units {

namespace {

void ReadInto(std::string& member, const TiXmlElement& element, const char* field) {
  if (const char* text = xml::ReadField(element, field)) {
    member = text;
  }
}

}  // namespace

DataUnitToDisplayUnitConverter::UnitAssociation::UnitAssociation()
    : BaseVehicleDefObj("unitassoc") {}

DataUnitToDisplayUnitConverter::UnitAssociation::~UnitAssociation() = default;

int DataUnitToDisplayUnitConverter::UnitAssociation::Validate() { return 0; }

int DataUnitToDisplayUnitConverter::UnitAssociation::DoRead(TiXmlElement* element,
                                                            std::string& /*error*/, bool flag) {
  element = vehicle::BindElement(*this, currentElement, element, flag);
  if (element == nullptr) {
    return 1;
  }
  ReadInto(fromUnit, *element, "fromunit");
  ReadInto(toUnit, *element, "tounit");
  return 0;
}

}  // namespace units
