#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kSimilarUnits{"similar-units", Severity::kWarning,
                                    "Unit names that differ only by case or white space"};
inline constexpr Rule kMixedQuantities{"mixed-quantities", Severity::kWarning,
                                       "One display unit with different meanings"};
inline constexpr Rule kUnreachable{"unreachable", Severity::kWarning,
                                   "A unit that no unit system uses"};

/// Judges the units by their names, by what they connect and by whether they are used.
void CheckUnits(const model::Model& model, Findings& findings);

}  // namespace check
