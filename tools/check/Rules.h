#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "check/Rule.h"

namespace check {

/// Every rule. Findings at one place are told in this order.
const std::vector<const Rule*>& Rules();

/// The rule of that name, or null.
const Rule* FindRule(const std::string& name);

/// That there is no rule of that name, and the nearest names.
std::string DescribeUnknownRule(const std::string& name);

/// The position of `rule` in `Rules`.
std::size_t IndexOf(const Rule& rule);

}  // namespace check
