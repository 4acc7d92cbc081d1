#pragma once

#include <optional>
#include <string>
#include <vector>

#include "log/Units.h"

namespace logs {

/// What is said of the columns of one name: of those with that heading, or if there are none of
/// those with that name before their brackets. Written `NAME=UNIT`, `NAME=UNIT:TARGET`, each with
/// `:DECIMALS` behind it if need be. Without UNIT it is the heading's; `NAME=` alone says that the
/// column has none.
struct MapEntry {
  std::string name;    // UTF-8
  std::string unit;    // these two as the library has them
  std::string target;  // a unit system's if empty
  std::optional<int> decimals;
  bool hasNoUnit = false;
  bool mustMatch = true;  // whether there must be such a column
};

/// Reads an entry from bytes in UTF-8 or ISO 8859-1. Throws `Failure` if it is none or names a unit
/// that is none.
MapEntry ParseMapEntry(const std::string& bytes, const Units& units);

/// Reads the entries of the file at `path`, one a line; blank lines and those that begin with `#`
/// are none. They need not match. Throws `Failure`, with file and line.
std::vector<MapEntry> ReadMapFile(const std::string& path, const Units& units);

}  // namespace logs
