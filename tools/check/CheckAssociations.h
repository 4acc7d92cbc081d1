#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kEmptyTounit{"empty-tounit", Severity::kError,
                                   "An association without display unit"};
inline constexpr Rule kNoConversion{"no-conversion", Severity::kError,
                                    "An association without conversion"};
inline constexpr Rule kNoWayBack{"no-way-back", Severity::kError,
                                 "An association without conversion back"};
inline constexpr Rule kNotInEverySystem{"not-in-every-system", Severity::kWarning,
                                        "A data unit associated in one system and not in another"};
inline constexpr Rule kWithoutEffect{"without-effect", Severity::kWarning,
                                     "An association without effect"};

/// Judges what the unit systems show: by the conversions that it needs, by each other, and each
/// association by what it changes.
void CheckAssociations(const model::Model& model, Findings& findings);

}  // namespace check
