#pragma once

#include <muParser.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "util/DataHash.h"
#include "vehicle/ConversionTypes.h"

/// The floor that the library is measured against: its containers, filled from its files, and for
/// each of its calls a function that makes the same look-ups and the same arithmetic with nothing
/// around them: no class, no library boundary, no evaluator but one expression compiled before.
namespace bare {

struct Expression {
  double val = 0;
  mu::Parser parser;
};

struct Record {
  VehicleV2::ConversionTypes_e type = VehicleV2::CONVERSION_INVALID;
  std::map<VehicleV2::ConversionConstants_e, double> constants;
  std::string text;
  std::shared_ptr<Expression> expression;
};

using Targets = std::map<std::string, std::shared_ptr<Record>>;

struct Association {
  std::string toUnit;
  std::string fromUnit;
};

struct Converter {
  __gnu_cxx::hash_map<std::string, std::shared_ptr<Targets>> conversions;
  __gnu_cxx::hash_map<std::string, std::shared_ptr<Association>> associations;
  std::map<std::string, double> variables{{"pi", 3.141592653589793}, {"e", 2.718281828459045}};
  std::mutex mutex;
};

/// Adds the content of a conversion file that is well-formed and complete; throws when it is not.
void LoadConversions(Converter& converter, const std::string& path);

void ConvertUnit(Converter& converter, const std::string& from, const std::string& to,
                 double& value);
void ConvertUnit(Converter& converter, const std::string& from, const std::string& to,
                 float& value);
void DisplayUnit(Converter& converter, const std::string& unit, double& value);
void DisplayUnit(Converter& converter, const std::string& unit, float& value);
void UndisplayUnit(Converter& converter, const std::string& unit, double& value);
std::string Label(const Converter& converter, const std::string& unit);

}  // namespace bare
