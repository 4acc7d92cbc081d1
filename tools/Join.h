#pragma once

#include <string>
#include <vector>

/// The texts in their order, with ", " between them.
std::string Join(const std::vector<std::string>& texts);
