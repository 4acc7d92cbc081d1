#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kSimilarUnits{"similar-units", Severity::kWarning,
                                    "Unit names that differ only by case or white space"};
inline constexpr Rule kMixedQuantities{"mixed-quantities", Severity::kWarning,
                                       "One display unit with different meanings"};

/// Judges the units by their names and by what they connect.
void CheckUnits(const model::Model& model, Findings& findings);

}  // namespace check
