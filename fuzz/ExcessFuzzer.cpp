// The input is any text. What the scan passes, the parser must read within the limit; what it
// refuses and the parser reads without an error, must be beyond it. The limit is low so that short
// texts go beyond it.
#include <tinyxml.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "vehicle/FindExcess.h"

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

// The levels of elements below `parent`, or the most attributes that one has, if that is more.
std::size_t Extent(const TiXmlNode& parent) {
  std::size_t extent = 0;
  for (const TiXmlElement* child = parent.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    extent = std::max({extent, 1 + Extent(*child), CountAttributes(*child)});
  }
  return extent;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  text = text.c_str() + std::string(3, '\0');
  const auto excess = vehicle::FindExcess(text, kLimit);
  TiXmlDocument document;
  document.Parse(text.c_str());
  if (!excess) {
    Require(Extent(document) <= kLimit, "what passes is within the limit");
  } else if (!document.Error()) {
    Require(Extent(document) > kLimit, "what is refused is beyond the limit");
  }
  Require(!excess || text[excess->offset] == '<', "the place is that of a tag");
  return 0;
}
