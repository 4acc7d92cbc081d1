#pragma once

#include <map>
#include <stdexcept>
#include <string>

#include "host/Parser.h"
#include "util/FindLastFirst.h"

namespace units {

/// The name of the value in expressions.
inline const std::string kValueName = "val";

/// y = scalar x + offset; the product is rounded by itself.
inline double ApplySlopeInt(double scalar, double offset, double value) {
  return scalar * value + offset;
}

/// The same in single precision.
inline float ApplySlopeInt(float scalar, float offset, float value) {
  return offset + scalar * value;
}

/// The table's entry for the value, made where there is none.
inline double& ValueEntry(std::map<std::string, double>& variables) {
  const auto found = util::FindLastFirst(variables, kValueName);
  return found != variables.end() ? found->second : variables[kValueName];
}

/// Replaces `value` by what `expression` gives with it as "val"; leaves it as it is where the
/// evaluator throws `std::runtime_error`.
template <typename Value>
void Evaluate(Parser& parser, const std::string& expression, Value& value) {
  ValueEntry(parser.variables) = value;
  try {
    value = static_cast<Value>(parser.Evaluate(expression));
  } catch (const std::runtime_error&) {
    // A conversion that cannot be evaluated leaves the value unchanged.
  }
}

}  // namespace units
