#include "units/UnitConverter.h"

#include <tinyxml.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>

#include "units/Arithmetic.h"
#include "units/ThreadParser.h"
#include "util/PlainArithmetic.h"
#include "util/Text.h"
#include "xml/LoadDocument.h"

template class util::DataHash<std::string,
                              std::shared_ptr<units::UnitConverter::UnitsToFunctionsDefObj>>;
template bool vehicle::ReadHashData<units::UnitConverter::UnitsToFunctionsDefObj>(
    TiXmlElement*,
    util::DataHash<std::string, std::shared_ptr<units::UnitConverter::UnitsToFunctionsDefObj>>&,
    std::string&);

namespace units {

namespace {

using util::Join;
using util::Quoted;

using Constants = decltype(vehicle::DataType::conversionConstants);

std::size_t CountDefinitions(const TiXmlElement* root) {
  std::size_t count = 0;
  const TiXmlElement* child = root != nullptr ? root->FirstChildElement("fromunit") : nullptr;
  for (; child != nullptr; child = child->NextSiblingElement("fromunit")) {
    ++count;
  }
  return count;
}

template <typename Value>
Value ApplyConstants(const Constants& constants, Value value) {
  const auto scalar = static_cast<Value>(constants.at(VehicleV2::CONSTANT_SCALAR));
  const auto offset = static_cast<Value>(constants.at(VehicleV2::CONSTANT_OFFSET));
  return ApplySlopeInt(scalar, offset, value);
}

template <typename Map>
std::vector<std::string> KeysOf(const Map& map) {
  std::vector<std::string> keys;
  keys.reserve(map.size());
  for (const auto& entry : map) {
    keys.push_back(entry.first);
  }
  return keys;
}

// What keeps a "slope-int" record from being applied, or nothing.
std::string WhatIsMissing(const Constants& constants) {
  const bool scalar = constants.count(VehicleV2::CONSTANT_SCALAR) != 0;
  const bool offset = constants.count(VehicleV2::CONSTANT_OFFSET) != 0;
  if (scalar && offset) {
    return "";
  }
  if (scalar) {
    return "its offset";
  }
  return offset ? "its scalar" : "its scalar and its offset";
}

// What the evaluator says against `expression`, or nothing.
std::string WhyItFails(const std::string& expression) {
  const util::PlainArithmetic arithmetic;  // the caller has asked for no arithmetic yet
  Parser& parser = ThreadParser();
  parser.variables[kValueName] = 1;
  try {
    parser.Evaluate(expression);
    return "";
  } catch (const std::runtime_error& error) {
    return "the expression " + Quoted(expression) + " fails: " + error.what();
  }
}

}  // namespace

const std::string UnitConverter::CONVERSION_FILENAME = "UNIT_CONVERSIONS.xml";

UnitConverter::UnitConverter() = default;

UnitConverter::~UnitConverter() = default;

bool UnitConverter::LoadFromXML(const std::string& fileName, std::string& error) {
  TiXmlDocument document(xmlFilePath + fileName);
  if (!xml::LoadDocument(document, error)) {
    return false;
  }
  TiXmlElement* root = document.FirstChildElement("unit_conversions");
  conversions.resize(conversions.size() + CountDefinitions(root));  // else it grows step by step
  vehicle::ReadHashData<UnitsToFunctionsDefObj>(root, conversions, error);
  return true;
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
    value = ApplyConstants(record.conversionConstants, value);
  } else {
    const std::lock_guard<std::mutex> lock(parserMutex);
    Evaluate(parser, record.toFloatExpression, value);
  }
}

Conversion UnitConverter::FindConversion(const std::string& fromUnit, const std::string& toUnit,
                                         std::string& why) const {
  why.clear();
  if (fromUnit == toUnit) {
    return Conversion(Conversion::Kind::kSameUnit);
  }
  const auto found = conversions.find(fromUnit);
  if (found == conversions.end()) {
    why = "unknown unit " + Quoted(fromUnit);
    return {};
  }
  const auto& targets = found->second->toUnitFunctions;
  const auto target = targets.find(toUnit);
  if (target == targets.end()) {
    why = Quoted(fromUnit) + " does not convert into " + Quoted(toUnit) +
          (targets.empty() ? " or anything else" : "; it converts into: " + Join(KeysOf(targets)));
    return {};
  }
  return MakeConversion(*target->second,
                        "the conversion of " + Quoted(fromUnit) + " into " + Quoted(toUnit), why);
}

std::vector<std::string> UnitConverter::GetSourceUnits() const {
  std::vector<std::string> units = KeysOf(conversions);
  std::sort(units.begin(), units.end());
  return units;
}

std::vector<std::string> UnitConverter::GetTargetUnits(const std::string& fromUnit) const {
  const auto found = conversions.find(fromUnit);
  return found != conversions.end() ? KeysOf(found->second->toUnitFunctions)
                                    : std::vector<std::string>();
}

// `name` is what messages call the conversion by.
Conversion UnitConverter::MakeConversion(const vehicle::DataType& record, const std::string& name,
                                         std::string& why) {
  if (record.conversionType == VehicleV2::CONVERSION_SLOPE_INT) {
    const Constants& constants = record.conversionConstants;
    const std::string missing = WhatIsMissing(constants);
    if (missing.empty()) {
      return {constants.at(VehicleV2::CONSTANT_SCALAR), constants.at(VehicleV2::CONSTANT_OFFSET)};
    }
    why = name + " lacks " + missing;
    return {};
  }
  why = record.toFloatExpression.empty() ? name + " has neither a scale nor an expression"
                                         : WhyItFails(record.toFloatExpression);
  return why.empty() ? Conversion(record.toFloatExpression) : Conversion();
}

}  // namespace units
