#include "ConversionCatalog.h"

#include <tinyxml.h>

#include <algorithm>
#include <iostream>
#include <stdexcept>

#include "Failure.h"
#include "Join.h"
#include "NearestNames.h"
#include "Quoted.h"
#include "vehicle/LoadDocument.h"

ConversionCatalog::ConversionCatalog(const std::string& folder) {
  const std::string path = folder + units::UnitConverter::CONVERSION_FILENAME;
  std::string messages;
  const bool loaded = converter.LoadFromXML(path, messages);
  std::cerr << messages;
  if (!loaded) {
    throw Failure((messages.empty() ? "cannot read " : "cannot load ") + path);
  }
  ReadDefinitions(path);
  if (definitions.empty()) {
    throw Failure(path + " holds no conversions");
  }
}

void ConversionCatalog::ReadDefinitions(const std::string& path) {
  TiXmlDocument document(path);
  std::string told;
  vehicle::LoadDocument(document, told);
  vehicle::ReadHashData<Definition>(document.FirstChildElement("unit_conversions"), definitions,
                                    told);
}

std::vector<std::string> ConversionCatalog::SourceUnits() const {
  std::vector<std::string> names;
  for (const auto& [name, definition] : definitions) {
    names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> ConversionCatalog::TargetUnits(const std::string& from) const {
  std::vector<std::string> names;
  for (const auto& [name, record] : Find(from).toUnitFunctions) {
    names.push_back(name);
  }
  return names;
}

template <typename Value>
Value ConversionCatalog::Convert(const std::string& from, const std::string& to,
                                 Value value) const {
  if (from != to || !definitions.dataExists(from)) {
    Check(from, to, value);
  }
  converter.ConvertUnit(from, to, value);
  return value;
}

template double ConversionCatalog::Convert(const std::string&, const std::string&, double) const;
template float ConversionCatalog::Convert(const std::string&, const std::string&, float) const;

void ConversionCatalog::Check(const std::string& from, const std::string& to, double value) const {
  const vehicle::DataType& record = FindRecord(from, to);
  const std::string subject = "the conversion of " + Quoted(from) + " into " + Quoted(to);
  if (record.conversionType == VehicleV2::CONVERSION_SLOPE_INT) {
    const auto& constants = record.conversionConstants;
    if (constants.count(VehicleV2::CONSTANT_SCALAR) == 0 ||
        constants.count(VehicleV2::CONSTANT_OFFSET) == 0) {
      throw Failure(subject + " lacks its scalar or its offset");
    }
  } else if (record.toFloatExpression.empty()) {
    throw Failure(subject + " has neither a scale nor an expression");
  } else {
    CheckExpression(record.toFloatExpression, value);
  }
}

const ConversionCatalog::Definition& ConversionCatalog::Find(const std::string& from) const {
  const auto found = definitions.find(from);
  if (found == definitions.end()) {
    throw Failure("unknown unit " + Quoted(from) + NearestNames(from, SourceUnits()));
  }
  return *found->second;
}

const vehicle::DataType& ConversionCatalog::FindRecord(const std::string& from,
                                                       const std::string& to) const {
  const Definition& definition = Find(from);
  const auto found = definition.toUnitFunctions.find(to);
  if (found != definition.toUnitFunctions.end()) {
    return *found->second;
  }
  std::string reason = Quoted(from) + " does not convert into " + Quoted(to);
  if (definition.toUnitFunctions.empty()) {
    throw Failure(reason + " or anything else");
  }
  throw Failure(reason + "; it converts into: " + Join(TargetUnits(from)));
}

void ConversionCatalog::CheckExpression(const std::string& expression, double value) const {
  evaluator.variables["val"] = value;
  try {
    evaluator.Evaluate(expression);
  } catch (const std::runtime_error& error) {
    throw Failure("the expression " + Quoted(expression) + " fails: " + error.what());
  }
}
