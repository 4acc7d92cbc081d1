#pragma once

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "host/Parser.h"
#include "vehicle/DataType.h"

namespace check {

/// The formula of a record over "val".
std::string FormulaOf(const vehicle::DataType& record);

/// The same with the constants of a "slope-int" record rounded to six digits.
std::string ShortFormulaOf(const vehicle::DataType& record);

/// The values that conversions are tried with: every magnitude that a value of a vehicle may have,
/// of both signs, without 0.
const std::vector<double>& SampleValues();

/// Computes conversions as the engine does.
class Evaluator {
 public:
  /// `value` converted by `record`, which must stay. Throws what the host's evaluator throws.
  double Apply(const vehicle::DataType& record, double value);

 private:
  void Prepare(const vehicle::DataType& record);

  // The host's evaluator keeps every expression that it has compiled, and a file may have very
  // many: it is renewed now and then.
  std::optional<Parser> parser;
  std::unordered_set<const vehicle::DataType*> compiled;
  const vehicle::DataType* last = nullptr;
};

}  // namespace check
