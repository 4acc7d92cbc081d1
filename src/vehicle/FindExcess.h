#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace vehicle {

/// Where a text goes beyond what the XML parser may be given, and how.
struct Excess {
  std::size_t offset;  ///< in bytes
  std::string what;    ///< what there is too much of
};

/// The first element of `text` that stands below `limit` others or has more than `limit`
/// attributes, as TinyXML would read the text, or nothing. TinyXML calls itself for each level and
/// compares each attribute with all before it, so that a small file could overflow the stack or
/// take hours.
///
/// The scan is linear and follows the parser wherever the parser goes on; where the parser gives a
/// broken text up, the scan may go on and so find what the parser would never have come to.
///
/// `text` ends at its first NUL, behind which stand at least three more NULs: neither the parser
/// nor the scan tells the end inside a UTF-8 character that is cut off.
std::optional<Excess> FindExcess(const std::string& text, std::size_t limit);

}  // namespace vehicle
