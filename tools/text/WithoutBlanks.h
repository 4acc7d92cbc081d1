#pragma once

#include <string_view>

/// `text` without those of the characters `blanks` at its ends.
inline std::string_view WithoutBlanks(std::string_view text, std::string_view blanks = " \t\r\n") {
  const std::size_t first = text.find_first_not_of(blanks);
  return first == std::string_view::npos
             ? std::string_view()
             : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}
