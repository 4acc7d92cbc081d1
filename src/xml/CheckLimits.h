#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace xml {

/// Where a text goes beyond what the XML parser may be given, and how.
struct Excess {
  std::size_t offset;  ///< in bytes
  bool utf8;           ///< whether the text is read as UTF-8 there
  std::string what;    ///< what there is too much of
};

/// The first element of `text` that stands below `limit` others or has more than `limit`
/// attributes, as TinyXML would read the text, or nothing. TinyXML calls itself for each level and
/// compares each attribute with all before it, so that a small file could overflow the stack or
/// take hours.
///
/// The scan is linear and ends where the parser gives a broken text up: an excess behind that place
/// is none.
///
/// `text` ends at its first NUL, behind which stand at least three more NULs: neither the parser
/// nor the scan tells the end inside a UTF-8 character that is cut off.
std::optional<Excess> CheckLimits(const char* text, std::size_t limit);

}  // namespace xml
