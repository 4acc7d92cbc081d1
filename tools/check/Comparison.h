#pragma once

#include <cstddef>
#include <vector>

#include "check/Formula.h"
#include "model/Conversions.h"

namespace check {

/// Conversions to be applied one after the other; none leaves the value as it is.
using Way = std::vector<const model::Conversion*>;

/// Where two ways are farthest apart: the error relative to the value or, where that comes from the
/// difference of greater ones, to those.
struct Difference {
  double error = 0;
  double at = 0;
};

/// Compares two ways from one unit to another by all sample values and 0.
class Comparison {
 public:
  /// The greatest difference above what rounding explains; none where the ways agree. Values for
  /// which one of them is not finite do not count.
  Difference Compare(const Way& one, const Way& other);

 private:
  double Follow(const Way& way, std::size_t first, double value);
  double Scale(const Way& way, double value, double result);
  void CompareAt(const Way& one, const Way& other, double value, Difference& worst);

  Evaluator evaluator;
};

}  // namespace check
