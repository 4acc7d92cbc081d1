#include "model/Definitions.h"

#include "model/Elements.h"
#include "units/UnitConverter.h"
#include "vehicle/ReadHashData.h"
#include "xml/ReadField.h"

namespace model {

namespace {

using FromUnit = units::UnitConverter::UnitsToFunctionsDefObj;
using Store = util::DataHash<std::string, std::shared_ptr<FromUnit>>;

// Reads `element` as the library does, alone in a <fromunit>; sets `broken` where it ends the
// reading.
ToUnit ReadToUnit(const TiXmlElement& element, bool& broken) {
  TiXmlElement fromUnit("fromunit");
  fromUnit.InsertEndChild(element)->SetValue("tounit");
  FromUnit alone;
  alone.SetObjId("alone");
  std::string error;
  broken = alone.Read(&fromUnit, error, false) != 0;
  const auto& records = alone.toUnitFunctions;
  const bool named = !records.empty() && !records.begin()->first.empty();
  return {&element, element.FirstChildElement("conv"), named ? records.begin()->second : nullptr};
}

Definition ReadDefinition(const TiXmlElement& element) {
  const char* id = xml::ReadField(element, "id");
  Definition definition{&element, id != nullptr ? id : "", {}};
  const TiXmlElement* child = definition.id.empty() ? nullptr : element.FirstChildElement("tounit");
  for (; child != nullptr && !definition.broken; child = child->NextSiblingElement()) {
    definition.toUnits.push_back(ReadToUnit(*child, definition.broken));
  }
  return definition;
}

void AddConversions(const Definition& definition, const Store& store, Conversions& conversions) {
  for (const ToUnit& toUnit : definition.toUnits) {
    if (toUnit.record == nullptr) {
      continue;
    }
    const std::string to = toUnit.element->Attribute("id");
    const int fromNumber = conversions.NumberOf(definition.id);
    const int toNumber = conversions.NumberOf(to);
    if (Conversion* first = conversions.Find(fromNumber, toNumber)) {
      first->again.push_back(toUnit.element);
    } else {
      const auto& records = store.findData(definition.id)->toUnitFunctions;
      conversions.Add({fromNumber, toNumber, toUnit.element, {}, records.at(to)});
    }
  }
}

}  // namespace

Definitions ReadDefinitions(const File& file) {
  Definitions definitions;
  if (file.root == nullptr) {
    return definitions;
  }
  Store store;
  std::string told;
  vehicle::ReadHashData<FromUnit>(file.root, store, told);
  for (const TiXmlElement* element : ChildrenOf(*file.root, "fromunit")) {
    definitions.all.push_back(ReadDefinition(*element));
    AddConversions(definitions.all.back(), store, definitions.conversions);
  }
  return definitions;
}

}  // namespace model
