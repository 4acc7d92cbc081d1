#pragma once

#include <string>
#include <vector>

/// The one of `names` that `name` is a misspelling of: its letters and digits differ only by case,
/// or by one or two that are inserted, removed, replaced or swapped with their neighbours. Empty if
/// there is none.
std::string MisspellingOf(const std::string& name, const std::vector<std::string>& names);

/// `; nearest: A, B, C`: the up to three of `names` that are most like `name`, nearest first: those
/// of the same letters, those that hold it or are held by it, those that differ by one letter in
/// three and by no more than four. Empty if there are none.
std::string NearestNames(const std::string& name, const std::vector<std::string>& names);
