#include "check/Formula.h"

#include <cmath>

#include "text/Numbers.h"

namespace check {

namespace {

std::string Describe(const vehicle::DataType& record, std::string (*format)(double)) {
  if (record.conversionType != VehicleV2::CONVERSION_SLOPE_INT) {
    return record.toFloatExpression;
  }
  std::string formula = "val";
  for (const auto& [constant, number] : record.conversionConstants) {
    if (constant == VehicleV2::CONSTANT_SCALAR && number != 1) {
      formula.insert(0, format(number) + " * ");
    } else if (constant == VehicleV2::CONSTANT_OFFSET && number != 0) {
      formula.append(number < 0 ? " - " : " + ").append(format(std::abs(number)));
    }
  }
  return formula;
}

std::vector<double> MakeSampleValues() {
  std::vector<double> values;
  for (int exponent = -6; exponent <= 6; ++exponent) {
    for (const double mantissa : {1.0, 3.7}) {
      values.push_back(mantissa * std::pow(10, exponent));
      values.push_back(-values.back());
    }
  }
  return values;
}

const std::vector<double> kSampleValues = MakeSampleValues();

}  // namespace

std::string FormulaOf(const vehicle::DataType& record) { return Describe(record, FormatNumber); }

std::string ShortFormulaOf(const vehicle::DataType& record) {
  return Describe(record, [](double number) { return FormatNumber(number, 6); });
}

const std::vector<double>& SampleValues() { return kSampleValues; }

double Evaluator::Apply(const vehicle::DataType& record, double value) {
  if (record.conversionType == VehicleV2::CONVERSION_SLOPE_INT) {
    const auto& constants = record.conversionConstants;
    return constants.at(VehicleV2::CONSTANT_SCALAR) * value +
           constants.at(VehicleV2::CONSTANT_OFFSET);
  }
  Prepare(record);
  parser->variables["val"] = value;
  return parser->Evaluate(record.toFloatExpression);
}

void Evaluator::Prepare(const vehicle::DataType& record) {
  constexpr std::size_t kMostKept = 500;
  if (&record == last) {
    return;
  }
  last = &record;
  if (compiled.insert(last).second && compiled.size() % kMostKept == 1) {
    parser.emplace();
    compiled = {last};
  }
}

}  // namespace check
