#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kKnownValueDiffers{"known-value-differs", Severity::kError,
                                         "A conversion that misses a published value"};
inline constexpr Rule kNoSuchConversion{"no-such-conversion", Severity::kError,
                                        "A known value for which there is no conversion"};
inline constexpr Rule kBadSample{"bad-sample", Severity::kError,
                                 "A line of known values that cannot be used"};

/// Judges the conversions by known values. What all conversions have wrong alike agrees with
/// itself; only a value from elsewhere shows it. A conversion that fails is left to other judges.
void CheckSamples(const model::Model& model, Findings& findings);

}  // namespace check
