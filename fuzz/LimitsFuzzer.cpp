// The input is any text. The scan must refuse it if and only if the parser makes a tree of it that
// is beyond the limit, also of a text that it gives up midway. The limit is low so that short texts
// go beyond it. The place is the parser's, too; but what stands before a declaration of UTF-8 the
// parser has counted in bytes, which tells no reader anything and is not followed.
#include <tinyxml.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "Require.h"
#include "xml/CheckLimits.h"
#include "xml/PlaceAt.h"

namespace {

constexpr std::size_t kLimit = 3;

std::size_t CountAttributes(const TiXmlElement& element) {
  std::size_t count = 0;
  for (const TiXmlAttribute* attribute = element.FirstAttribute(); attribute != nullptr;
       attribute = attribute->Next()) {
    ++count;
  }
  return count;
}

// The first element below `parent` that stands below more than `levels` others or has more
// attributes than the limit, or null.
const TiXmlElement* FirstBeyondLimit(const TiXmlNode& parent, std::size_t levels) {
  for (const TiXmlElement* child = parent.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    if (levels == 0 || CountAttributes(*child) > kLimit) {
      return child;
    }
    if (const TiXmlElement* found = FirstBeyondLimit(*child, levels - 1)) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  text.resize(std::strlen(text.c_str()));
  text.append(3, '\0');
  const auto excess = xml::CheckLimits(text.c_str(), kLimit);
  TiXmlDocument document;
  document.Parse(text.c_str());
  const TiXmlElement* first = FirstBeyondLimit(document, kLimit);
  Require(excess.has_value() == (first != nullptr), "the scan judges as the parser reads");
  if (excess) {
    const xml::Place place = xml::PlaceAt(text, excess->offset, excess->utf8);
    Require(place.row == first->Row(), "the row is the parser's");
    if (!excess->utf8 || text.compare(0, 3, "\xEF\xBB\xBF") == 0) {
      Require(place.column == first->Column(), "the column is the parser's");
    }
  }
  return 0;
}
