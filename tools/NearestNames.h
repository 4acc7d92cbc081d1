#pragma once

#include <string>
#include <vector>

/// `; nearest: A, B, C`: the up to three of `names` that are nearest to `name`, nearest first:
/// those that take the fewest letters and digits inserted, removed or replaced, whatever their case
/// and whatever stands between them. Empty if there are no names.
std::string NearestNames(const std::string& name, const std::vector<std::string>& names);
