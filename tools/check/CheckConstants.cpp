#include "check/CheckConstants.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "model/Elements.h"
#include "text/Numbers.h"
#include "util/Text.h"
#include "vehicle/ConversionTypes.h"
#include "xml/ReadField.h"

namespace check {

namespace {

using Constant = VehicleV2::ConversionConstants_e;

constexpr Constant kConstants[] = {VehicleV2::CONSTANT_SCALAR, VehicleV2::CONSTANT_OFFSET};

enum class Fault { kNone, kMissing, kNoNumber, kZero };

const std::string& NameOf(Constant constant) {
  const auto& names = VehicleV2::conversionConstantNames();
  return std::find_if(names.begin(), names.end(),
                      [&](const auto& entry) { return entry.first == constant; })
      ->second;
}

Fault FaultOf(const TiXmlElement& conv, Constant constant) {
  const char* text = xml::ReadField(conv, NameOf(constant));
  if (text == nullptr) {
    return Fault::kMissing;
  }
  const auto number = ParseNumber(text);
  if (!number) {
    return Fault::kNoNumber;
  }
  return *number == 0 && constant == VehicleV2::CONSTANT_SCALAR ? Fault::kZero : Fault::kNone;
}

bool IsNumberBeyondRange(const char* text) {
  char* end = nullptr;
  const double number = std::strtod(text, &end);
  return end != text && *end == '\0' && !std::isfinite(number);
}

std::string DescribeNoNumber(const std::string& name, const char* text, double read) {
  return "the " + name + ' ' + util::Quoted(text) +
         (IsNumberBeyondRange(text) ? " is not finite" : " is not a number") + ": it is read as " +
         FormatNumber(read);
}

void Check(const model::File& file, const model::ToUnit& toUnit, Constant constant,
           const Subject& subject, Findings& findings) {
  const TiXmlElement& conv = *toUnit.conv;
  const std::string& name = NameOf(constant);
  const char* text = xml::ReadField(conv, name);
  switch (FaultOf(conv, constant)) {
    case Fault::kNone:
      break;
    case Fault::kMissing:
      findings.Add(file.At(conv), kMissingConstant,
                   util::Quoted(subject.from) + " into " + util::Quoted(subject.to) + " has no " +
                       name + ": converting by it throws",
                   subject);
      break;
    case Fault::kNoNumber:
      findings.Add(file.At(model::FieldOf(conv, name)),
                   IsNumberBeyondRange(text) ? kNumberNotFinite : kBadNumber,
                   DescribeNoNumber(name, text, toUnit.record->conversionConstants.at(constant)),
                   subject);
      break;
    case Fault::kZero:
      findings.Add(file.At(model::FieldOf(conv, name)), kZeroScalar,
                   "a scalar of 0 makes every value the same", subject);
      break;
  }
}

}  // namespace

void CheckConstants(const model::Model& model, Findings& findings) {
  for (const model::Definition& definition : model.definitions.all) {
    for (const model::ToUnit& toUnit : definition.toUnits) {
      if (toUnit.record == nullptr ||
          toUnit.record->conversionType != VehicleV2::CONVERSION_SLOPE_INT) {
        continue;
      }
      const Subject subject{definition.id, toUnit.element->Attribute("id")};
      for (const Constant constant : kConstants) {
        Check(*model.conversionFile, toUnit, constant, subject, findings);
      }
    }
  }
}

bool HasSoundConstants(const TiXmlElement& conv) {
  return std::all_of(std::begin(kConstants), std::end(kConstants),
                     [&](Constant constant) { return FaultOf(conv, constant) == Fault::kNone; });
}

}  // namespace check
