#pragma once

#include "check/Findings.h"
#include "model/File.h"

namespace check {

inline constexpr Rule kMergeConflict{"merge-conflict", Severity::kError,
                                     "Lines that a merge has left"};
inline constexpr Rule kBadReference{"bad-reference", Severity::kError,
                                    "An & that is read as something else than was meant"};
inline constexpr Rule kUnquotedAttribute{"unquoted-attribute", Severity::kWarning,
                                         "The value of an attribute without quotes"};
inline constexpr Rule kStrayText{"stray-text", Severity::kWarning, "Text between elements"};

/// Judges what stands between and within the tags of a parsed file, as far as it is read.
void CheckMarkup(const model::File& file, Findings& findings);

}  // namespace check
