#pragma once

#include <cstddef>
#include <vector>

#include "check/Formula.h"
#include "model/Conversions.h"

namespace check {

/// Conversions to be applied one after the other; none leaves the value as it is.
using Way = std::vector<const model::Conversion*>;

/// What a unit reads, and how great the values are that it comes from: a temperature near its zero
/// is a small difference of greater ones, and no more exact than those.
struct Reading {
  double value;
  double scale;
};

/// What a unit reads for each of a number of things.
using Readings = std::vector<Reading>;

/// All sample values and 0, as they are.
Readings SampleReadings();

/// What the target of a conversion, or of a way, reads for them. Throws what the host's evaluator
/// throws.
Reading Follow(const model::Conversion& conversion, const Reading& reading, Evaluator& evaluator);
Reading Follow(const Way& way, Reading reading, Evaluator& evaluator);
Readings Follow(const model::Conversion& conversion, const Readings& readings,
                Evaluator& evaluator);
Readings Follow(const Way& way, Readings readings, Evaluator& evaluator);

/// Whether `way` leads back to where it began from for all sample values, to the last digits: what
/// is quickly told. Others may agree with their values too, as far as those are exact.
bool LeadsBack(const Way& way, Evaluator& evaluator);

/// By how much `one` differs from `other`, relative to the values that they come from; 0 where
/// rounding explains it, or where one of them is not finite.
double DifferenceOf(const Reading& one, const Reading& other);

/// Whether no two of them differ.
bool Agree(const Readings& one, const Readings& other);

/// Where they differ most; the number of them where they agree.
std::size_t FindGreatestDifference(const Readings& one, const Readings& other);

}  // namespace check
