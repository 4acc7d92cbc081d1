#pragma once

#include <string>

#include "check/Findings.h"

namespace check {

/// Judges the bytes of the file at `path` by the encoding that it declares, empty where it declares
/// none, which means UTF-8. At most one finding, at the first byte that is wrong.
void CheckEncoding(const std::string& path, const std::string& bytes, const std::string& declared,
                   Findings& findings);

}  // namespace check
