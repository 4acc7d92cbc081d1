#include "vehicle/LoadDocument.h"

#include <tinyxml.h>

#include <string>

#include "util/FileHandler.h"

namespace vehicle {

bool LoadDocument(TiXmlDocument& document) {
  util::FileHandler file(document.Value(), "rb");
  std::string text;
  if (file.read(text) == 0) {
    return false;
  }
  document.Parse(text.c_str());
  return true;
}

}  // namespace vehicle
