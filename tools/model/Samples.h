#pragma once

#include <string>
#include <vector>

#include "model/Place.h"

namespace model {

/// One line of a file of known values: what a published source says that a value is in another
/// unit.
struct Sample {
  struct Field {
    Place place;       ///< where it begins; at the end of a line that has it not
    std::string text;  ///< in ISO 8859-1
  };

  Field from;
  Field value;  ///< in the unit `from`
  Field to;
  Field expected;   ///< the same in the unit `to`
  Field tolerance;  ///< by how much, in the unit `to`, the data may differ
  Field source;
  Field rest;  ///< what stands behind the source, as a rule nothing
};

/// The known values of a file, in its order.
struct Samples {
  std::string path;
  std::vector<Sample> all;
};

/// Reads a file of known values: lines of tab-separated fields, without those that are empty or
/// begin with `#`. Text that is valid UTF-8 is read as UTF-8, any other as ISO 8859-1. Throws
/// `Failure` for what is no regular file, cannot be read or is larger than 1 MiB.
Samples ReadSamples(const std::string& path);

}  // namespace model
