#pragma once

#include <cstddef>
#include <string_view>

#include "model/File.h"
#include "model/Place.h"

namespace model {

/// Finds the places of bytes of a file one after another, without counting its lines anew.
class PlaceCursor {
 public:
  /// `file` must outlive this.
  explicit PlaceCursor(const File& file);

  /// The place of the byte at `offset`; at once where it stands soon behind that of the last call.
  Place At(std::size_t offset);

 private:
  const File& file;
  const std::string_view bytes;
  const bool utf8;
  std::size_t begin = 0;  // from where on is counted, a column that tabs lead to
  Place place;            // of `begin`
};

}  // namespace model
