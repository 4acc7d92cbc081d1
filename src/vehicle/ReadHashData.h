#pragma once

#include <memory>
#include <string>

#include "../util/DataHash.h"
#include "../util/Export.h"

class TiXmlElement;

namespace vehicle {

/// Reads the definition elements below `parent`, in document order, into `store` under their
/// identifiers.
///
/// `T` is derived from `BaseVehicleDefObj` and constructed without arguments; which children of
/// `parent` are its elements, its `ReadObjId` says. An identifier that is already stored, from this
/// document or before, is read into the stored object, which decides how the two merge.
///
/// Returns false if an element lacked a required identifier: such an element is skipped and its
/// missing-tag message appended to `error`, which is never cleared. An object whose `Read` returns
/// 2 is not stored and changes nothing in the result. A null `parent` has no elements.
///
/// Catches nothing: what `Read`, the store or an allocation throws leaves the store with all
/// entries added before. Threads: takes no lock; nobody else may use `store` meanwhile.
template <typename T>
VEHICLE_UNITS_EXPORT bool ReadHashData(TiXmlElement* parent,
                                       util::DataHash<std::string, std::shared_ptr<T>>& store,
                                       std::string& error) {
  bool complete = true;
  std::string id;
  bool flag = false;
  auto object = std::make_shared<T>();
  TiXmlElement* element = object->ReadObjId(parent, flag);
  while (element != nullptr) {
    id = object->GetObjId();
    if (id.empty() && object->IsObjIdRequired()) {
      error += object->GenerateParseErrorForMissingTag("id");
      complete = false;
    } else {
      const bool stored = store.dataExists(id);
      if (stored) {
        object = store.findData(id);
      }
      if (object->Read(element, error, flag) != 2 && !stored) {
        store.addData(id, object);
      }
    }
    flag = true;
    object = std::make_shared<T>();
    element = object->ReadObjId(element, flag);
  }
  return complete;
}

}  // namespace vehicle
