#pragma once

#include <tinyxml.h>

#include <string>
#include <vector>

namespace model {

/// The attributes of an element, in their order.
std::vector<const TiXmlAttribute*> AttributesOf(const TiXmlElement& element);

/// The child elements of a node, in their order; of all names or of one.
std::vector<const TiXmlElement*> ChildrenOf(const TiXmlNode& node);
std::vector<const TiXmlElement*> ChildrenOf(const TiXmlNode& node, const std::string& name);

/// Where the field `name` of `element`, which must have it, stands: the attribute or the child
/// element.
const TiXmlBase& FieldOf(const TiXmlElement& element, const std::string& name);

}  // namespace model
