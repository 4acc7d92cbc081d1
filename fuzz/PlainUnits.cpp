#include "PlainUnits.h"

#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "host/Parser.h"

namespace {

bool Parse(const std::string& path, TiXmlDocument& document) {
  if (!std::filesystem::is_regular_file(path)) {
    return false;
  }
  std::ifstream file(path, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(file)), {});
  if (text.empty()) {
    return false;
  }
  text = text.c_str();
  document.Parse((text + std::string(3, '\0')).c_str());
  return true;
}

std::optional<std::string> Field(const TiXmlElement& element, const char* name) {
  if (element.Attribute(name) != nullptr) {
    return element.Attribute(name);
  }
  const TiXmlElement* child = element.FirstChildElement(name);
  if (child == nullptr || child->GetText() == nullptr) {
    return {};
  }
  return child->GetText();
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

void TakeFirst(std::optional<double>& constant, const std::optional<std::string>& text) {
  if (text && !constant) {
    double number = 0;
    std::istringstream(*text) >> number;
    constant = number;
  }
}

// False where the reading of the source unit ends.
bool ReadConversion(const TiXmlElement& conv, PlainUnits::Conversion& conversion) {
  if (const auto kind = Field(conv, "type")) {
    conversion.kind = Lower(*kind);
    if (conversion.kind != "slope-int") {
      return false;
    }
    TakeFirst(conversion.scalar, Field(conv, "scalar"));
    TakeFirst(conversion.offset, Field(conv, "offset"));
    return true;
  }
  const auto expression = Field(conv, "to_float");
  conversion.expression = expression.value_or(conversion.expression);
  return expression.has_value();
}

double Slope(const PlainUnits::Conversion& conversion, double value) {
  return *conversion.scalar * value + *conversion.offset;
}

float Slope(const PlainUnits::Conversion& conversion, float value) {
  return static_cast<float>(*conversion.offset) + static_cast<float>(*conversion.scalar) * value;
}

}  // namespace

bool PlainUnits::ReadConversions(const std::string& path) {
  TiXmlDocument document;
  if (!Parse(path, document)) {
    return false;
  }
  const TiXmlElement* root = document.FirstChildElement("unit_conversions");
  const TiXmlElement* source = root != nullptr ? root->FirstChildElement("fromunit") : nullptr;
  for (; source != nullptr; source = source->NextSiblingElement("fromunit")) {
    const std::string id = Field(*source, "id").value_or("");
    if (!id.empty()) {
      ReadTargets(*source, conversions[id]);
    }
  }
  return true;
}

void PlainUnits::ReadTargets(const TiXmlElement& source,
                             std::map<std::string, Conversion>& targets) {
  bool begun = false;
  for (const TiXmlElement* target = source.FirstChildElement(); target != nullptr;
       target = target->NextSiblingElement()) {
    begun = begun || target->ValueStr() == "tounit";
    const TiXmlElement* conv = target->FirstChildElement("conv");
    if (begun && target->Attribute("id") != nullptr && conv != nullptr &&
        !ReadConversion(*conv, targets[target->Attribute("id")])) {
      return;
    }
  }
}

bool PlainUnits::ReadAssociations(const std::string& path, const std::string& prefix) {
  if (chain.empty()) {
    files = 0;
  }
  TiXmlDocument document;
  if (std::find(chain.begin(), chain.end(), path) != chain.end() || ++files > 1000 ||
      !Parse(path, document)) {
    return false;
  }
  const TiXmlElement* root = document.FirstChildElement("unit_associations");
  const TiXmlElement* child = root != nullptr ? root->FirstChildElement("include") : nullptr;
  chain.push_back(path);
  for (; child != nullptr; child = child->NextSiblingElement("include")) {
    if (child->GetText() == nullptr || !ReadAssociations(prefix + child->GetText(), prefix)) {
      chain.pop_back();
      return false;
    }
  }
  chain.pop_back();
  child = root != nullptr ? root->FirstChildElement("unitassoc") : nullptr;
  for (; child != nullptr; child = child->NextSiblingElement("unitassoc")) {
    const std::string id = Field(*child, "id").value_or("");
    if (!id.empty()) {
      Association& association = associations[id];
      association.fromUnit = Field(*child, "fromunit").value_or(association.fromUnit);
      association.toUnit = Field(*child, "tounit").value_or(association.toUnit);
    }
  }
  return true;
}

template <typename Value>
bool PlainUnits::Convert(const std::string& from, const std::string& to, Value& value) const {
  if (from == to || conversions.count(from) == 0 || conversions.at(from).count(to) == 0) {
    return true;
  }
  const Conversion& conversion = conversions.at(from).at(to);
  if (conversion.kind == "slope-int") {
    if (!conversion.scalar || !conversion.offset) {
      return false;
    }
    value = Slope(conversion, value);
    return true;
  }
  Parser parser;
  parser.variables["val"] = value;
  try {
    value = static_cast<Value>(parser.Evaluate(conversion.expression));
  } catch (const std::runtime_error&) {
    return true;
  }
  return true;
}

template bool PlainUnits::Convert(const std::string&, const std::string&, double&) const;
template bool PlainUnits::Convert(const std::string&, const std::string&, float&) const;
