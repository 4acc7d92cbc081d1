#pragma once

#include <string>

namespace xml {

/// The line `DOCUMENT:ROW:COLUMN: what`, ended.
inline std::string FormatError(const std::string& document, int row, int column,
                               const std::string& what) {
  return document + ':' + std::to_string(row) + ':' + std::to_string(column) + ": " + what + '\n';
}

}  // namespace xml
