#pragma once

#include <string>

namespace vehicle {

/// The line `DOCUMENT:ROW:COLUMN: what`, ended.
std::string FormatError(const std::string& document, int row, int column, const std::string& what);

}  // namespace vehicle
