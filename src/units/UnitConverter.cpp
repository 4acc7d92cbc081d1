#include "units/UnitConverter.h"

#include <tinyxml.h>

#include <cstddef>
#include <stdexcept>

#include "vehicle/LoadDocument.h"

template class util::DataHash<std::string,
                              std::shared_ptr<units::UnitConverter::UnitsToFunctionsDefObj>>;
template bool vehicle::ReadHashData<units::UnitConverter::UnitsToFunctionsDefObj>(
    TiXmlElement*,
    util::DataHash<std::string, std::shared_ptr<units::UnitConverter::UnitsToFunctionsDefObj>>&,
    std::string&);

namespace units {

namespace {

const std::string kValueName = "val";

using Constants = decltype(vehicle::DataType::conversionConstants);

using Definitions =
    util::DataHash<std::string, std::shared_ptr<UnitConverter::UnitsToFunctionsDefObj>>;

// Whether elements know their rows and columns. Only errors tell them, and to note them takes an
// eighth of the parse: a file is read without, and if there is an error, once more.
enum class Places { kUnknown, kKnown };

std::size_t CountChildren(const TiXmlNode* parent) {
  std::size_t count = 0;
  for (const TiXmlNode* child = parent != nullptr ? parent->FirstChild() : nullptr;
       child != nullptr; child = child->NextSibling()) {
    ++count;
  }
  return count;
}

bool Load(const std::string& path, Places places, Definitions& definitions, std::string& error) {
  TiXmlDocument document(path);
  if (places == Places::kUnknown) {
    document.SetTabSize(0);
  }
  if (!vehicle::LoadDocument(document, error)) {
    return false;
  }
  TiXmlElement* root = document.FirstChildElement("unit_conversions");
  definitions.resize(definitions.size() + CountChildren(root));  // else it grows step by step
  vehicle::ReadHashData<UnitConverter::UnitsToFunctionsDefObj>(root, definitions, error);
  return true;
}

double ApplySlopeInt(const Constants& constants, double value) {
  const double scalar = constants.at(VehicleV2::CONSTANT_SCALAR);
  const double offset = constants.at(VehicleV2::CONSTANT_OFFSET);
  return scalar * value + offset;
}

float ApplySlopeInt(const Constants& constants, float value) {
  const auto scalar = static_cast<float>(constants.at(VehicleV2::CONSTANT_SCALAR));
  const auto offset = static_cast<float>(constants.at(VehicleV2::CONSTANT_OFFSET));
  return offset + scalar * value;
}

}  // namespace

const std::string UnitConverter::CONVERSION_FILENAME = "UNIT_CONVERSIONS.xml";

UnitConverter::UnitConverter() = default;

UnitConverter::~UnitConverter() = default;

bool UnitConverter::LoadFromXML(const std::string& fileName, std::string& error) {
  const std::string path = xmlFilePath + fileName;
  std::string unplaced;
  const bool loaded = Load(path, Places::kUnknown, conversions, unplaced);
  const bool placed = loaded && !unplaced.empty() && Load(path, Places::kKnown, conversions, error);
  if (!placed) {
    error += unplaced;
  }
  return loaded;
}

void UnitConverter::SetXMLFilePathAndLoad(const std::string& path) {
  xmlFilePath = path;
  std::string error;
  LoadFromXML(CONVERSION_FILENAME, error);
}

void UnitConverter::ConvertUnit(const std::string& fromUnit, const std::string& toUnit,
                                double& value) const {
  Convert(fromUnit, toUnit, value);
}

void UnitConverter::ConvertUnit(const std::string& fromUnit, const std::string& toUnit,
                                float& value) const {
  Convert(fromUnit, toUnit, value);
}

template <typename Value>
void UnitConverter::Convert(const std::string& fromUnit, const std::string& toUnit,
                            Value& value) const {
  if (fromUnit == toUnit) {
    return;
  }
  const auto found = conversions.find(fromUnit);
  if (found == conversions.end()) {
    return;
  }
  const std::shared_ptr<UnitsToFunctionsDefObj> definition = found->second;
  const auto target = definition->toUnitFunctions.find(toUnit);
  if (target == definition->toUnitFunctions.end()) {
    return;
  }
  const vehicle::DataType& record = *target->second;
  if (record.conversionType == VehicleV2::CONVERSION_SLOPE_INT) {
    value = ApplySlopeInt(record.conversionConstants, value);
  } else {
    Evaluate(record.toFloatExpression, value);
  }
}

template <typename Value>
void UnitConverter::Evaluate(const std::string& expression, Value& value) const {
  const std::lock_guard<std::mutex> lock(parserMutex);
  if (parserValue == nullptr) {
    parserValue = &parser.variables[kValueName];
  }
  *parserValue = value;
  try {
    value = static_cast<Value>(parser.Evaluate(expression));
  } catch (const std::runtime_error&) {
    // A conversion that cannot be evaluated leaves the value unchanged.
  }
}

}  // namespace units
