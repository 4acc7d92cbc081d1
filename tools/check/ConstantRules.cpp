#include "check/ConstantRules.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "Numbers.h"
#include "Quoted.h"
#include "check/ReadAlone.h"
#include "vehicle/ReadField.h"

namespace check {

namespace {

const std::string& NameOf(VehicleV2::ConversionConstants_e constant) {
  const auto& names = VehicleV2::conversionConstantNames();
  return std::find_if(names.begin(), names.end(),
                      [&](const auto& entry) { return entry.first == constant; })
      ->second;
}

bool IsNumberBeyondRange(const char* text) {
  char* end = nullptr;
  const double number = std::strtod(text, &end);
  return end != text && *end == '\0' && !std::isfinite(number);
}

}  // namespace

bool ConstantRules::Check(const TiXmlElement& toUnit, VehicleV2::ConversionConstants_e constant,
                          const Subject& subject) const {
  const TiXmlElement& conv = *toUnit.FirstChildElement("conv");
  const std::string& name = NameOf(constant);
  const char* text = vehicle::ReadField(conv, name);
  if (text == nullptr) {
    findings.Add(file.At(conv), Rule::kMissingConstant,
                 Quoted(subject.from) + " into " + Quoted(subject.to) + " has no " + name +
                     ": converting by it throws",
                 subject);
    return false;
  }
  const auto number = ParseNumber(text);
  if (!number) {
    ReportBadNumber(toUnit, constant, subject);
    return false;
  }
  if (*number == 0 && constant == VehicleV2::CONSTANT_SCALAR) {
    findings.Add(file.At(FieldOf(conv, name)), Rule::kZeroScalar,
                 "a scalar of 0 makes every value the same", subject);
    return false;
  }
  return true;
}

void ConstantRules::ReportBadNumber(const TiXmlElement& toUnit,
                                    VehicleV2::ConversionConstants_e constant,
                                    const Subject& subject) const {
  const TiXmlElement& conv = *toUnit.FirstChildElement("conv");
  const std::string& name = NameOf(constant);
  const char* text = vehicle::ReadField(conv, name);
  const bool beyond = IsNumberBeyondRange(text);
  const double read = ReadAlone(toUnit).record->conversionConstants.at(constant);
  findings.Add(file.At(FieldOf(conv, name)), beyond ? Rule::kNumberNotFinite : Rule::kBadNumber,
               "the " + name + ' ' + Quoted(text) +
                   (beyond ? " is not finite" : " is not a number") + ": it is read as " +
                   FormatNumber(read),
               subject);
}

}  // namespace check
