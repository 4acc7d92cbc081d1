#pragma once

#include <cstddef>

namespace xml {

/// How many bytes the parser takes the character to have that begins with `c`, in UTF-8.
inline std::size_t Utf8Length(char c) {
  const auto lead = static_cast<unsigned char>(c);
  if (lead < 0xC2 || lead > 0xF4) {
    return 1;
  }
  return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

}  // namespace xml
