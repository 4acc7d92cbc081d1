#pragma once

#include "check/Findings.h"
#include "check/Progress.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kNotInverse{"not-inverse", Severity::kError,
                                  "A way back that is not the inverse of the way there"};
inline constexpr Rule kWaysDisagree{"ways-disagree", Severity::kError,
                                    "Two ways from one unit to another that disagree"};

/// Judges conversions by each other: the way back must be the inverse of the way there, and all
/// ways from one unit to another must give the same.
void CheckWays(const model::Model& model, Findings& findings, Progress& progress);

}  // namespace check
