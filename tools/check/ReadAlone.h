#pragma once

#include <tinyxml.h>

#include <memory>
#include <string>

#include "vehicle/DataType.h"

namespace check {

/// What the library makes of one <tounit> that stands alone in a <fromunit>.
struct Reading {
  std::shared_ptr<vehicle::DataType> record;  ///< null where it makes none
  bool ends;                                  ///< whether the reading ends with it
};

Reading ReadAlone(const TiXmlElement& toUnit);

/// Where the field `name` of `element`, which must have it, stands: the attribute or the child
/// element.
const TiXmlBase& FieldOf(const TiXmlElement& element, const std::string& name);

}  // namespace check
