#pragma once

#include <array>
#include <string>

namespace units {

// The names that the system gives to its unit systems and units. Bytes of ISO 8859-1.

extern const std::array<std::string, 4> UNIT_SYSTEM_NAMES;

extern const std::array<std::string, 2> PRESSURE_UNIT_NAMES;

/// The data units that have a quantity: QUANTITY_UNIT.
extern const std::array<std::string, 38> UNIT_IDENTIFIERS;

/// The data units that are dimensionless or come in a single unit, each its own label.
extern const std::array<std::string, 35> UNIT_LABELS;

}  // namespace units
