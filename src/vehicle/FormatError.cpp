#include "vehicle/FormatError.h"

namespace vehicle {

std::string FormatError(const std::string& document, int row, int column, const std::string& what) {
  return document + ':' + std::to_string(row) + ':' + std::to_string(column) + ": " + what + '\n';
}

}  // namespace vehicle
