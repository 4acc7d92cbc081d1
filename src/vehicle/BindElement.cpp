#include "vehicle/BindElement.h"

#include "vehicle/BaseVehicleDefObj.h"

namespace vehicle {

TiXmlElement* BindElement(BaseVehicleDefObj& object, TiXmlElement*& currentElement,
                          TiXmlElement* element, bool flag) {
  if (element == nullptr) {
    return nullptr;
  }
  if (object.GetObjId().empty()) {
    return object.ReadObjId(element, flag) != nullptr ? currentElement : nullptr;
  }
  currentElement = element;
  return element;
}

}  // namespace vehicle
