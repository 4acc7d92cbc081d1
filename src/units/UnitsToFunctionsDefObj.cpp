#include <cctype>
#include <charconv>
#include <cstring>
#include <ios>
#include <locale>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>

#include "units/UnitConverter.h"
#include "vehicle/BindElement.h"
#include "xml/ReadField.h"

namespace units {

namespace {

const std::string kType = "type";
const std::string kToFloat = "to_float";

// A text that is a plain decimal number from its first byte to its last, read without a stream: in
// the classic locale a stream would extract the same number, at many times the cost.
std::optional<double> ParsePlainNumber(const char* text) {
  const bool negative = *text == '-';
  if (std::isdigit(static_cast<unsigned char>(text[negative ? 1 : 0])) == 0) {
    return std::nullopt;
  }
  const char* end = text + std::strlen(text);
  double number = 0;
  const auto [rest, failure] = std::from_chars(text, end, number);
  return failure == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

double ExtractNumber(const char* text) {
  std::istringstream stream(text);
  stream.exceptions(std::ios::badbit);  // else an extraction would swallow an allocation failure
  double number = 0;
  stream >> number;
  return number;
}

VehicleV2::ConversionTypes_e ParseType(std::string name) {
  const auto& names = VehicleV2::conversionTypeNames();
  if (const auto type = names.find(name)) {
    return *type;
  }
  for (char& c : name) {
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return names.find(name).value_or(VehicleV2::CONVERSION_INVALID);
}

// Reads the "conv" elements of one definition. The locale is asked once for all their numbers.
class ConversionReader {
 public:
  bool Read(const TiXmlElement& conv, vehicle::DataType& record) const {
    if (const char* type = xml::ReadField(conv, kType)) {
      record.conversionType = ParseType(type);
      if (record.conversionType != VehicleV2::CONVERSION_SLOPE_INT) {
        return false;
      }
      ReadConstants(conv, record);
      return true;
    }
    if (const char* expression = xml::ReadField(conv, kToFloat)) {
      record.toFloatExpression = expression;
      return true;
    }
    return false;
  }

 private:
  void ReadConstants(const TiXmlElement& conv, vehicle::DataType& record) const {
    for (const auto& [constant, name] : VehicleV2::conversionConstantNames()) {
      if (const char* text = xml::ReadField(conv, name)) {
        record.conversionConstants.emplace(constant, ParseNumber(text));
      }
    }
  }

  double ParseNumber(const char* text) const {
    const std::optional<double> number = classicLocale ? ParsePlainNumber(text) : std::nullopt;
    return number ? *number : ExtractNumber(text);
  }

  const bool classicLocale = std::locale() == std::locale::classic();
};

}  // namespace

UnitConverter::UnitsToFunctionsDefObj::UnitsToFunctionsDefObj() : BaseVehicleDefObj("fromunit") {}

UnitConverter::UnitsToFunctionsDefObj::~UnitsToFunctionsDefObj() = default;

int UnitConverter::UnitsToFunctionsDefObj::Validate() { return 0; }

int UnitConverter::UnitsToFunctionsDefObj::DoRead(TiXmlElement* element, std::string& /*error*/,
                                                  bool flag) {
  element = vehicle::BindElement(*this, currentElement, element, flag);
  if (element == nullptr) {
    return 1;
  }
  const ConversionReader reader;
  for (const TiXmlElement* child = element->FirstChildElement("tounit"); child != nullptr;
       child = child->NextSiblingElement()) {
    const char* target = child->Attribute("id");
    const TiXmlElement* conv = child->FirstChildElement("conv");
    if (target == nullptr || conv == nullptr) {
      continue;
    }
    const auto entry = toUnitFunctions.emplace(target, std::make_shared<vehicle::DataType>()).first;
    if (!reader.Read(*conv, *entry->second)) {
      return 1;
    }
  }
  return 0;
}

}  // namespace units
