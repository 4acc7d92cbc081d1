#pragma once

class TiXmlElement;

namespace vehicle {

class BaseVehicleDefObj;

/// The first step of every `DoRead`: settles which element `object` reads from and makes it
/// `currentElement`, the object's own member. An object without identifier looks for its element
/// from `element` with `ReadObjId(element, flag)`; one that has an identifier reads `element`
/// itself. Returns the element, or null when there is none.
TiXmlElement* BindElement(BaseVehicleDefObj& object, TiXmlElement*& currentElement,
                          TiXmlElement* element, bool flag);

}  // namespace vehicle
