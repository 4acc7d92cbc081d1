#pragma once

#include <map>
#include <string>

/// This host's evaluator: numbers, names, + - * / and parentheses, and nothing else. Values in its
/// table count for one evaluation.
class __attribute__((visibility("default"))) Parser {
 public:
  Parser();

  /// Throws `std::runtime_error` for anything but such an expression over `variables`.
  double Evaluate(const std::string& expression);

  std::map<std::string, double> variables;
};
