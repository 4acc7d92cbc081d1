#pragma once

#include "check/Findings.h"
#include "model/File.h"

namespace check {

inline constexpr Rule kBadEncoding{"bad-encoding", Severity::kError,
                                   "Bytes that are not in the declared encoding"};
inline constexpr Rule kForeignEncoding{
    "foreign-encoding", Severity::kError,
    "Characters beyond ASCII in an encoding other than ISO 8859-1"};
inline constexpr Rule kUnknownEncoding{"unknown-encoding", Severity::kWarning,
                                       "A declared encoding that cannot be the file's"};

/// Tells of a file whose characters have several bytes each, as in UTF-16, and returns whether it
/// is one: nothing can be read of it.
bool CheckWidth(const model::File& file, Findings& findings);

/// Judges the bytes of a parsed file by the encoding that its declaration names; without one it is
/// UTF-8.
void CheckEncoding(const model::File& file, Findings& findings);

}  // namespace check
