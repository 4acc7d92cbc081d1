#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// This host's line of text: beside what the library needs, it remembers where it was read.
struct LineItem {
  std::int32_t number = 0;
  std::vector<std::string> fields;
  std::string source;
};
