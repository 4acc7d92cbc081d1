#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One line of text as the host hands it over, split into its fields.
struct LineItem {
  std::int32_t number;              ///< The host's own number of the line; the library ignores it.
  std::vector<std::string> fields;  ///< The fields in the order in which they stand on the line.
};
