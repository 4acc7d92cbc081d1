#pragma once

#include "check/Findings.h"
#include "model/File.h"

namespace check {

inline constexpr Rule kBadEncoding{"bad-encoding", Severity::kError,
                                   "Bytes that are not in the declared encoding"};
inline constexpr Rule kForeignEncoding{
    "foreign-encoding", Severity::kWarning,
    "Characters beyond ASCII in an encoding other than ISO 8859-1"};

/// Judges the bytes of a parsed file by the encoding that its declaration names; without one it is
/// UTF-8. At most one finding, at the first byte that is wrong.
void CheckEncoding(const model::File& file, Findings& findings);

}  // namespace check
