#pragma once

#include <tinyxml.h>

#include <string>

namespace xml {

/// The text of the field `name` of `element`: its attribute of that name, an empty one included;
/// otherwise the text of its first child element of that name; null when there is neither. The text
/// belongs to the document.
inline const char* ReadField(const TiXmlElement& element, const std::string& name) {
  const TiXmlAttribute* attribute = element.FirstAttribute();
  for (; attribute != nullptr; attribute = attribute->Next()) {
    if (attribute->NameTStr() == name) {
      return attribute->Value();
    }
  }
  const TiXmlElement* child = element.NoChildren() ? nullptr : element.FirstChildElement(name);
  return child != nullptr ? child->GetText() : nullptr;
}

}  // namespace xml
