#include "check/ConversionRules.h"

#include "Join.h"
#include "Quoted.h"
#include "check/Formula.h"
#include "check/ReadAlone.h"
#include "vehicle/ReadField.h"
#include "vehicle/ReadHashData.h"

namespace check {

namespace {

using Definition = units::UnitConverter::UnitsToFunctionsDefObj;

const Names kNone;
const Names kId(1, "id");
const Names kConv(1, "conv");
const Names kFromUnit(1, "fromunit");
const Names kFromUnitChildren{"id", "tounit"};
const Names kExpressionFields(1, "to_float");

Names MakeConstantFields() {
  Names fields(1, "type");
  for (const auto& [constant, name] : VehicleV2::conversionConstantNames()) {
    if (constant != VehicleV2::CONSTANT_INVALID) {
      fields.push_back(name);
    }
  }
  return fields;
}

const Names kConstantFields = MakeConstantFields();

Names MakeAllFields() {
  Names fields = kConstantFields;
  fields.insert(fields.end(), kExpressionFields.begin(), kExpressionFields.end());
  return fields;
}

const Names kAllFields = MakeAllFields();

std::string DescribeUnknownType(const char* type) {
  Names known;
  for (const auto& [value, name] : VehicleV2::conversionTypeNames()) {
    known.push_back(name);
  }
  std::string text = "the type " + Quoted(type) + " is unknown";
  const std::string meant = MisspellingOf(type, known);
  if (!meant.empty()) {
    text += " (is " + Quoted(meant) + " meant?)";
  }
  return text;
}

// The units of the elements behind `toUnit`.
std::vector<std::string> UnitsBehind(const TiXmlElement& toUnit) {
  std::vector<std::string> units;
  for (const TiXmlElement* next = toUnit.NextSiblingElement(); next != nullptr;
       next = next->NextSiblingElement()) {
    if (const char* id = next->Attribute("id")) {
      units.push_back(Quoted(id));
    }
  }
  return units;
}

std::string LabelOf(const TiXmlElement& toUnit, const std::string& from) {
  return "<" + toUnit.ValueStr() + "> of " + Quoted(from);
}

bool CanBeApplied(const vehicle::DataType& record) {
  try {
    Evaluator().Apply(record, 1);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

ConversionRules::ConversionRules(const DataFile& file, Findings& findings)
    : file(file),
      findings(findings),
      names(file, findings),
      constants(file, findings),
      expressions(findings) {}

void ConversionRules::Check(Conversions& conversions, Progress& progress) {
  TiXmlElement& root = *file.Root();
  std::string messages;
  vehicle::ReadHashData<Definition>(&root, store, messages);
  file.PassOn(messages, Rule::kMissingId, findings);
  progress.Begin("checking the conversions", store.size());
  names.CheckAttributes(root, kNone, kNone);
  for (TiXmlElement* child = root.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    if (child->ValueStr() == "fromunit") {
      CheckFromUnit(*child, conversions);
      progress.Step();
    } else {
      names.CheckChild(root, *child, kNone, kFromUnit);
    }
  }
}

void ConversionRules::CheckFromUnit(TiXmlElement& element, Conversions& conversions) {
  names.CheckAttributes(element, kId, kId);
  CheckChildNames(element);
  const char* id = vehicle::ReadField(element, "id");
  if (id == nullptr || *id == '\0') {
    return;
  }
  Definition alone;
  alone.SetObjId(id);
  std::string error;
  const bool complete = alone.Read(&element, error, false) == 0;
  for (const TiXmlElement* child = element.FirstChildElement("tounit"); child != nullptr;
       child = child->NextSiblingElement()) {
    if (child->ValueStr() != "id") {
      CheckToUnit(*child, alone, conversions);
    }
    if (!complete && ReadAlone(*child).ends) {
      const Subject subject{id, child->Attribute("id")};
      ReportEnd(*child, subject);
      return;
    }
  }
}

void ConversionRules::CheckChildNames(const TiXmlElement& fromUnit) const {
  const TiXmlElement* firstToUnit = nullptr;
  for (const TiXmlElement* child = fromUnit.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    const std::string& name = child->ValueStr();
    if (name == "tounit") {
      firstToUnit = firstToUnit != nullptr ? firstToUnit : child;
    } else if (name == "id" && fromUnit.Attribute("id") != nullptr) {
      findings.Add(file.At(*child), Rule::kFieldGivenTwice,
                   "\"id\" is given as an attribute too, which counts: the element is not read");
    } else if (name == "id") {
      names.CheckTextOnly(*child);
    } else if (firstToUnit == nullptr) {
      names.CheckChild(fromUnit, *child, kNone, kFromUnitChildren);
    } else {
      findings.Add(file.At(*child), Rule::kReadAsTounit,
                   "<" + name + "> after the first <tounit> is read as a <tounit>");
    }
  }
}

void ConversionRules::CheckToUnit(const TiXmlElement& element, const Definition& definition,
                                  Conversions& conversions) {
  const std::string& from = definition.GetObjId();
  CheckToUnitNames(element, from);
  const char* id = element.Attribute("id");
  const TiXmlElement* conv = element.FirstChildElement("conv");
  if (id == nullptr || *id == '\0') {
    const char* what =
        id == nullptr ? " lacks the attribute \"id\": it is passed over" : " has an empty \"id\"";
    findings.Add(file.At(element), Rule::kTounitWithoutId, LabelOf(element, from) + what);
  } else if (conv == nullptr) {
    findings.Add(
        file.At(element), Rule::kTounitWithoutConv,
        LabelOf(element, from) + " into " + Quoted(id) + " has no <conv>: it is passed over");
  } else {
    const Subject subject{from, id};
    const bool usable = CheckConv(element, *conv, subject, *definition.toUnitFunctions.at(id));
    Add(element, subject, usable, conversions);
  }
}

void ConversionRules::CheckToUnitNames(const TiXmlElement& element, const std::string& from) const {
  const TiXmlElement* conv = element.FirstChildElement("conv");
  names.CheckAttributes(element, kId, kId);
  for (const TiXmlElement* child = element.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    if (child->ValueStr() == "conv" && child != conv) {
      findings.Add(file.At(*child), Rule::kSecondConv,
                   LabelOf(element, from) + " has a <conv> already: this one is not read");
    } else {
      names.CheckChild(element, *child, kConv, kConv);
    }
  }
}

// Returns whether the conversion can be applied.
bool ConversionRules::CheckConv(const TiXmlElement& toUnit, const TiXmlElement& conv,
                                const Subject& subject, const vehicle::DataType& record) {
  const bool hasType = vehicle::ReadField(conv, "type") != nullptr;
  names.CheckFields(conv, hasType ? kConstantFields : kExpressionFields, kAllFields);
  if (hasType) {
    if (record.conversionType != VehicleV2::CONVERSION_SLOPE_INT) {
      return false;
    }
    const bool scalar = constants.Check(toUnit, VehicleV2::CONSTANT_SCALAR, subject);
    const bool offset = constants.Check(toUnit, VehicleV2::CONSTANT_OFFSET, subject);
    return scalar && offset;
  }
  const char* expression = vehicle::ReadField(conv, "to_float");
  if (expression == nullptr) {
    return false;
  }
  return expressions.Check(expression, file.At(FieldOf(conv, "to_float")), subject);
}

void ConversionRules::ReportEnd(const TiXmlElement& toUnit, const Subject& subject) const {
  const TiXmlElement& conv = *toUnit.FirstChildElement("conv");
  const char* type = vehicle::ReadField(conv, "type");
  Rule rule = Rule::kConvWithoutFormula;
  std::string text = "<conv> has neither \"type\" nor \"to_float\"";
  if (type != nullptr) {
    const Reading reading = ReadAlone(toUnit);
    if (reading.record->conversionType == VehicleV2::CONVERSION_INVALID) {
      rule = Rule::kUnknownType;
      text = DescribeUnknownType(type);
    } else {
      rule = Rule::kUnusableType;
      text = "the type " + Quoted(type) + " converts nothing";
    }
  }
  text += "; the reading of " + Quoted(subject.from) + " ends here";
  const std::vector<std::string> lost = UnitsBehind(toUnit);
  if (!lost.empty()) {
    text += ", so these are lost: " + Join(lost);
  }
  findings.Add(file.At(conv), rule, text, subject);
}

void ConversionRules::Add(const TiXmlElement& toUnit, const Subject& subject, bool usable,
                          Conversions& conversions) {
  const int from = conversions.NumberOf(subject.from);
  const int to = conversions.NumberOf(subject.to);
  const auto& record = store.findData(subject.from)->toUnitFunctions.at(subject.to);
  Conversion* first = conversions.Find(from, to);
  if (first == nullptr) {
    conversions.Add({from, to, &toUnit, record, usable});
    return;
  }
  first->usable = CanBeApplied(*record);
  findings.Add(file.At(toUnit), Rule::kRepeatedDefinition,
               Quoted(subject.from) + " into " + Quoted(subject.to) +
                   " is defined again; what counts is " + Quoted(FormulaOf(*record)) +
                   "; the first definition stands at " + ToString(file.At(*first->element)),
               subject);
}

}  // namespace check
