#pragma once

#include <cstddef>
#include <string_view>

namespace xml {

/// A tab leads to the next of the columns 5, 9, 13 and so on.
inline constexpr int kTabSize = 4;

/// Where something stands in a text; both count from 1.
struct Place {
  int row = 1;
  int column = 1;
};

/// The place of the byte at `offset` of `text`, counted as TinyXML counts the places of elements: a
/// character takes one column in a text
/// that is read as UTF-8, else a byte does.
Place PlaceAt(std::string_view text, std::size_t offset, bool utf8);

}  // namespace xml
