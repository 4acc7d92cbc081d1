#include "check/ReadAlone.h"

#include "units/UnitConverter.h"

namespace check {

Reading ReadAlone(const TiXmlElement& toUnit) {
  TiXmlElement fromUnit("fromunit");
  fromUnit.InsertEndChild(toUnit)->SetValue("tounit");
  units::UnitConverter::UnitsToFunctionsDefObj definition;
  definition.SetObjId("alone");
  std::string error;
  const bool ends = definition.Read(&fromUnit, error, false) != 0;
  const auto& records = definition.toUnitFunctions;
  if (records.empty()) {
    return {nullptr, ends};
  }
  return {records.begin()->second, ends};
}

const TiXmlBase& FieldOf(const TiXmlElement& element, const std::string& name) {
  for (const TiXmlAttribute* attribute = element.FirstAttribute(); attribute != nullptr;
       attribute = attribute->Next()) {
    if (attribute->NameTStr() == name) {
      return *attribute;
    }
  }
  return *element.FirstChildElement(name);
}

}  // namespace check
