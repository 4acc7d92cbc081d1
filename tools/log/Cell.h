#pragma once

#include <optional>
#include <string_view>

namespace logs {

/// The number in a cell, and where it stands.
struct Number {
  double value;
  std::string_view place;  // without quotes and blanks around it
};

/// The finite number that `cell` is, quotes and blanks around it aside; nothing if it is no such
/// number.
std::optional<Number> ReadNumber(std::string_view cell, char decimal);

/// Whether `cell` is text and means to be: it holds no digit.
bool IsText(std::string_view cell);

}  // namespace logs
