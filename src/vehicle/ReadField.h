#pragma once

#include <tinyxml.h>

#include <string>

namespace vehicle {

/// The text of the field `name` of `element`: its attribute of that name, an empty one included;
/// otherwise the text of its first child element of that name; null when there is neither. The text
/// belongs to the document.
inline const char* ReadField(const TiXmlElement& element, const std::string& name) {
  if (const std::string* attribute = element.Attribute(name)) {
    return attribute->c_str();
  }
  const TiXmlElement* child = element.FirstChildElement(name);
  return child != nullptr ? child->GetText() : nullptr;
}

}  // namespace vehicle
