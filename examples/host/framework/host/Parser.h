#pragma once

#include <map>
#include <string>

#include "util/Export.h"

/// This host's evaluator: numbers, names, + - * / and parentheses, and nothing else.
class VEHICLE_UNITS_EXPORT Parser {
 public:
  Parser();

  /// Throws `std::runtime_error` for anything but such an expression over `variables`.
  double Evaluate(const std::string& expression);

  std::map<std::string, double> variables;
};
