#include "check/CheckDefinitions.h"

#include <string>
#include <vector>

#include "check/Formula.h"
#include "model/Elements.h"
#include "text/NearestNames.h"
#include "util/Text.h"
#include "vehicle/ConversionTypes.h"
#include "xml/ReadField.h"

namespace check {

namespace {

std::string DescribeUnknownType(const char* type) {
  std::vector<std::string> known;
  for (const auto& [value, name] : VehicleV2::conversionTypeNames()) {
    known.push_back(name);
  }
  std::string text = "the type " + util::Quoted(type) + " is unknown";
  const std::string meant = MisspellingOf(type, known);
  if (!meant.empty()) {
    text += " (is " + util::Quoted(meant) + " meant?)";
  }
  return text;
}

// The units of the elements behind `toUnit`.
std::vector<std::string> UnitsBehind(const TiXmlElement& toUnit) {
  std::vector<std::string> units;
  for (const TiXmlElement* next = toUnit.NextSiblingElement(); next != nullptr;
       next = next->NextSiblingElement()) {
    if (const char* id = next->Attribute("id")) {
      units.push_back(util::Quoted(id));
    }
  }
  return units;
}

void CheckIds(const model::File& file, const std::string& name, Findings& findings) {
  if (file.root == nullptr) {
    return;
  }
  for (const TiXmlElement* element : model::ChildrenOf(*file.root, name)) {
    const char* id = xml::ReadField(*element, "id");
    if (id == nullptr || *id == '\0') {
      findings.Add(file.At(*element), kMissingId, "<" + name + "> lacks the tag \"id\"");
    }
  }
}

void CheckToUnit(const model::File& file, const model::ToUnit& toUnit, const std::string& from,
                 Findings& findings) {
  const TiXmlElement& element = *toUnit.element;
  const std::string label = "<" + element.ValueStr() + "> of " + util::Quoted(from);
  const char* id = element.Attribute("id");
  if (id == nullptr || *id == '\0') {
    const char* what =
        id == nullptr ? " lacks the attribute \"id\": it is skipped" : " has an empty \"id\"";
    findings.Add(file.At(element), kTounitWithoutId, label + what, {from, ""});
  } else if (toUnit.conv == nullptr) {
    findings.Add(file.At(element), kTounitWithoutConv,
                 label + " into " + util::Quoted(id) + " has no <conv>: it is skipped", {from, id});
  }
  for (const TiXmlElement* conv : model::ChildrenOf(element, "conv")) {
    if (conv != toUnit.conv) {
      findings.Add(file.At(*conv), kSecondConv,
                   label + " has a <conv> already: this one is not read");
    }
  }
}

void ReportBreak(const model::File& file, const model::ToUnit& toUnit, const std::string& from,
                 Findings& findings) {
  const char* type = xml::ReadField(*toUnit.conv, "type");
  const Rule* rule = &kConvWithoutFormula;
  std::string text = "<conv> has neither \"type\" nor \"to_float\"";
  if (type != nullptr && toUnit.record->conversionType == VehicleV2::CONVERSION_INVALID) {
    rule = &kUnknownType;
    text = DescribeUnknownType(type);
  } else if (type != nullptr) {
    rule = &kUnusableType;
    text = "the type " + util::Quoted(type) + " converts nothing";
  }
  text += "; the reading of " + util::Quoted(from) + " ends here";
  const std::vector<std::string> lost = UnitsBehind(*toUnit.element);
  if (!lost.empty()) {
    text += ", so these are lost: " + util::Join(lost);
  }
  findings.Add(file.At(*toUnit.conv), *rule, text, {from, toUnit.element->Attribute("id")});
}

// One that leaves each value as it is, is not used either, but does no harm.
void CheckIntoItself(const model::File& file, const model::Conversions& conversions,
                     const model::Conversion& conversion, Findings& findings) {
  const std::string& unit = conversions.NameOf(conversion.from);
  if (conversion.from == conversion.to && FormulaOf(*conversion.record) != "val") {
    findings.Add(file.At(*conversion.element), kIntoItself,
                 util::Quoted(unit) + " into itself is never used: the value stays as it is",
                 {unit, unit});
  }
}

void CheckRepeated(const model::File& file, const model::Conversions& conversions,
                   const model::Conversion& conversion, Findings& findings) {
  const std::string& from = conversions.NameOf(conversion.from);
  const std::string& to = conversions.NameOf(conversion.to);
  for (const TiXmlElement* element : conversion.again) {
    findings.Add(file.At(*element), kRepeatedDefinition,
                 util::Quoted(from) + " into " + util::Quoted(to) +
                     " is defined again; what counts is " +
                     util::Quoted(FormulaOf(*conversion.record)) +
                     "; the first definition stands at " + ToMessage(file.At(*conversion.element)),
                 {from, to});
  }
}

}  // namespace

void CheckDefinitions(const model::Model& model, Findings& findings) {
  const model::File& file = *model.conversionFile;
  CheckIds(file, "fromunit", findings);
  for (const auto& [path, associations] : model.associationFiles) {
    CheckIds(*associations, "unitassoc", findings);
  }
  for (const model::Definition& definition : model.definitions.all) {
    for (const model::ToUnit& toUnit : definition.toUnits) {
      if (toUnit.element->ValueStr() != "id") {
        CheckToUnit(file, toUnit, definition.id, findings);
      }
    }
    if (definition.broken) {
      ReportBreak(file, definition.toUnits.back(), definition.id, findings);
    }
  }
  for (const model::Conversion& conversion : model.definitions.conversions.All()) {
    CheckIntoItself(file, model.definitions.conversions, conversion, findings);
    CheckRepeated(file, model.definitions.conversions, conversion, findings);
  }
}

}  // namespace check
