#include "model/Place.h"

namespace model {

Message ToMessage(const Place& place) {
  return Message::Verbatim(place.file) + ":" + std::to_string(place.line) + ":" +
         std::to_string(place.column);
}

}  // namespace model
