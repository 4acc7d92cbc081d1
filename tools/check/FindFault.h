#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "model/File.h"

namespace check {

/// What keeps a document from being well-formed.
struct Fault {
  std::size_t at;    ///< the offset of what its author has to change
  std::size_t from;  ///< where what is read begins to differ from what was meant
  std::string text;
  bool silent = false;  ///< whether the parser takes the document nevertheless
};

/// The first fault of a parsed file. Nothing where there is none, or none that can be told.
std::optional<Fault> FindFault(const model::File& file);

}  // namespace check
