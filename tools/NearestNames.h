#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// How many letters and digits must be inserted, removed or replaced to make one name into the
/// other, whatever their case and whatever stands between them.
std::size_t NameDistance(const std::string& a, const std::string& b);

/// `; nearest: A, B, C`: the up to three of `names` that are nearest to `name`, nearest first.
/// Empty if there are no names.
std::string NearestNames(const std::string& name, const std::vector<std::string>& names);
