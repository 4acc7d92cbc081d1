#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "check/Rule.h"

namespace check {

/// Every rule. Findings at one place are told in this order.
const std::vector<const Rule*>& Rules();

/// The position of `rule` in `Rules`.
std::size_t IndexOf(const Rule& rule);

}  // namespace check
