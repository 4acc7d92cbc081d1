#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kMissingConstant{"missing-constant", Severity::kError,
                                       "A slope-int conversion without scalar or offset"};
inline constexpr Rule kBadNumber{"bad-number", Severity::kError,
                                 "A number with trailing or no valid text"};
inline constexpr Rule kNumberNotFinite{"number-not-finite", Severity::kError,
                                       "A number that is not finite"};
inline constexpr Rule kZeroScalar{"zero-scalar", Severity::kError, "A scalar of zero"};

/// Judges the constants of "slope-int" conversions.
void CheckConstants(const model::Model& model, Findings& findings);

/// Whether the constants of the <conv> of a "slope-int" conversion are numbers, the scalar not 0.
bool HasSoundConstants(const TiXmlElement& conv);

}  // namespace check
