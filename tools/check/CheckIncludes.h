#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kMissingFile{"missing-file", Severity::kError,
                                   "A file that the library loads is not there"};
inline constexpr Rule kUnreadFile{"unread-file", Severity::kWarning,
                                  "An association file that nothing reads"};
inline constexpr Rule kMissingInclude{"missing-include", Severity::kError,
                                      "An included file is not there or empty"};
inline constexpr Rule kEmptyInclude{"empty-include", Severity::kError,
                                    "An include that names no file"};
inline constexpr Rule kIncludeCycle{"include-cycle", Severity::kError,
                                    "Files that include each other in a circle"};

/// What is told of an include of the file at `path` that is not there.
Message MissingIncludeOf(const std::string& path);

/// Judges which files there are, and how they include each other.
void CheckIncludes(const model::Model& model, Findings& findings);

}  // namespace check
