#pragma once

#include <string>

#include "check/Rule.h"

namespace check {

/// The entry of `rule` in docs/check-rules.md, without its heading: its reason, an example, what is
/// found in it and the fix; Markdown in UTF-8.
std::string EntryOf(const Rule& rule);

}  // namespace check
