#include "BareConverter.h"

#include <tinyxml.h>

#include <stdexcept>

namespace bare {

namespace {

std::shared_ptr<Expression> Compile(const std::string& text) {
  auto expression = std::make_shared<Expression>();
  expression->parser.EnableOptimizer(false);
  expression->parser.DefineVar("val", &expression->val);
  expression->parser.SetExpr(text);
  expression->parser.Eval();
  return expression;
}

std::shared_ptr<Record> ReadRecord(const TiXmlElement& conv) {
  static std::map<std::string, std::shared_ptr<Expression>> compiled;
  auto record = std::make_shared<Record>();
  if (const std::string* text = conv.Attribute(std::string("to_float"))) {
    auto& expression = compiled[*text];
    expression = expression ? expression : Compile(*text);
    record->expression = expression;
    record->text = *text;
    return record;
  }
  record->type = VehicleV2::CONVERSION_SLOPE_INT;
  record->constants.emplace(VehicleV2::CONSTANT_SCALAR, std::stod(conv.Attribute("scalar")));
  record->constants.emplace(VehicleV2::CONSTANT_OFFSET, std::stod(conv.Attribute("offset")));
  return record;
}

double Apply(const Record& record, double value) {
  const double scalar = record.constants.at(VehicleV2::CONSTANT_SCALAR);
  const double offset = record.constants.at(VehicleV2::CONSTANT_OFFSET);
  return scalar * value + offset;
}

float Apply(const Record& record, float value) {
  const auto scalar = static_cast<float>(record.constants.at(VehicleV2::CONSTANT_SCALAR));
  const auto offset = static_cast<float>(record.constants.at(VehicleV2::CONSTANT_OFFSET));
  return offset + scalar * value;
}

template <typename Value>
void Convert(Converter& converter, const std::string& from, const std::string& to, Value& value) {
  const auto found = converter.conversions.find(from);
  if (found == converter.conversions.end()) {
    return;
  }
  const std::shared_ptr<Targets> targets = found->second;
  const auto target = targets->find(to);
  if (target == targets->end()) {
    return;
  }
  const Record& record = *target->second;
  if (record.type == VehicleV2::CONVERSION_SLOPE_INT) {
    value = Apply(record, value);
    return;
  }
  const std::lock_guard<std::mutex> lock(converter.mutex);
  converter.variables["val"] = value;
  record.expression->val = value;
  value = static_cast<Value>(record.expression->parser.Eval());
}

template <typename Value>
void Display(Converter& converter, const std::string& unit, Value& value) {
  const auto found = converter.associations.find(unit);
  if (found != converter.associations.end()) {
    Convert(converter, unit, found->second->toUnit, value);
  }
}

}  // namespace

void LoadConversions(Converter& converter, const std::string& path) {
  TiXmlDocument document(path);
  if (!document.LoadFile()) {
    throw std::runtime_error(path + ": " + document.ErrorDesc());
  }
  for (const TiXmlElement* element = document.RootElement()->FirstChildElement("fromunit");
       element != nullptr; element = element->NextSiblingElement()) {
    auto& targets = converter.conversions[element->Attribute("id")];
    targets = targets ? targets : std::make_shared<Targets>();
    for (const TiXmlElement* child = element->FirstChildElement("tounit"); child != nullptr;
         child = child->NextSiblingElement()) {
      targets->emplace(child->Attribute("id"), ReadRecord(*child->FirstChildElement("conv")));
    }
  }
}

void ConvertUnit(Converter& converter, const std::string& from, const std::string& to,
                 double& value) {
  Convert(converter, from, to, value);
}

void ConvertUnit(Converter& converter, const std::string& from, const std::string& to,
                 float& value) {
  Convert(converter, from, to, value);
}

void DisplayUnit(Converter& converter, const std::string& unit, double& value) {
  Display(converter, unit, value);
}

void DisplayUnit(Converter& converter, const std::string& unit, float& value) {
  Display(converter, unit, value);
}

void UndisplayUnit(Converter& converter, const std::string& unit, double& value) {
  const auto found = converter.associations.find(unit);
  if (found != converter.associations.end()) {
    Convert(converter, found->second->toUnit, unit, value);
  }
}

std::string Label(const Converter& converter, const std::string& unit) {
  const auto found = converter.associations.find(unit);
  return found != converter.associations.end() ? found->second->toUnit : unit;
}

}  // namespace bare
