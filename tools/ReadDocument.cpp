#include "ReadDocument.h"

#include <tinyxml.h>

#include "util/FileHandler.h"

bool ReadDocument(TiXmlDocument& document, std::string& text) {
  const bool read = util::FileHandler(document.Value(), "rb").read(text) != 0;
  text.append(3, '\0');  // the parser may step over the end inside a character that is cut off
  document.Parse(text.c_str());
  return read;
}
