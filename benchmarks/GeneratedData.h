#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

/// Distinct names of source units, at most 100,000: QUANTITY_PLACE_PART_UNIT.
std::vector<std::string> RealisticNames(std::size_t count);

/// UNIT_000001, UNIT_000002, …
std::vector<std::string> NumberedNames(std::size_t count);

/// The text of a conversion file that converts each unit into four targets: "psi", "kPa" and "bar"
/// by scale and offset, "L/100km" by one of 50 expressions.
std::string ConversionFile(const std::vector<std::string>& names);

/// The text of a conversion file with the way back from "psi" to each unit.
std::string WayBackFile(const std::vector<std::string>& names);

/// The text of an association file that shows every unit in "psi".
std::string AssociationFile(const std::vector<std::string>& names);

}  // namespace bench
