#pragma once

#include <string>

namespace vehicle {

/// The line `DOCUMENT:ROW:COLUMN: what`, ended.
inline std::string FormatError(const std::string& document, int row, int column,
                               const std::string& what) {
  std::string line = document;
  line.append(":").append(std::to_string(row)).append(":").append(std::to_string(column));
  return line.append(": ").append(what).append("\n");
}

}  // namespace vehicle
