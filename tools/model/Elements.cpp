#include "model/Elements.h"

namespace model {

std::vector<const TiXmlAttribute*> AttributesOf(const TiXmlElement& element) {
  std::vector<const TiXmlAttribute*> attributes;
  for (const TiXmlAttribute* attribute = element.FirstAttribute(); attribute != nullptr;
       attribute = attribute->Next()) {
    attributes.push_back(attribute);
  }
  return attributes;
}

std::vector<const TiXmlElement*> ChildrenOf(const TiXmlNode& node) {
  std::vector<const TiXmlElement*> children;
  for (const TiXmlElement* child = node.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    children.push_back(child);
  }
  return children;
}

std::vector<const TiXmlElement*> ChildrenOf(const TiXmlNode& node, const std::string& name) {
  std::vector<const TiXmlElement*> children;
  for (const TiXmlElement* child = node.FirstChildElement(name); child != nullptr;
       child = child->NextSiblingElement(name)) {
    children.push_back(child);
  }
  return children;
}

const TiXmlBase& FieldOf(const TiXmlElement& element, const std::string& name) {
  for (const TiXmlAttribute* attribute : AttributesOf(element)) {
    if (attribute->NameTStr() == name) {
      return *attribute;
    }
  }
  return *element.FirstChildElement(name);
}

}  // namespace model
