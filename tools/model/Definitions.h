#pragma once

#include <tinyxml.h>

#include <memory>
#include <string>
#include <vector>

#include "model/Conversions.h"
#include "model/File.h"
#include "vehicle/DataType.h"

namespace model {

/// An element that the library reads as a <tounit>.
struct ToUnit {
  const TiXmlElement* element;
  const TiXmlElement* conv;                   ///< null where it has none
  std::shared_ptr<vehicle::DataType> record;  ///< of this element alone; null: it is skipped
};

/// A <fromunit>, as far as the library reads it.
struct Definition {
  const TiXmlElement* element;
  std::string id;  ///< empty where it has none: then nothing of it is read
  std::vector<ToUnit> toUnits;
  bool broken = false;  ///< whether the last of them ends the reading
};

/// What a conversion file defines, in the order of the file, and the conversions that the library
/// makes of it.
struct Definitions {
  std::vector<Definition> all;
  Conversions conversions;
};

Definitions ReadDefinitions(const File& file);

}  // namespace model
