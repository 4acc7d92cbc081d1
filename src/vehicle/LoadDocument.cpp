#include "vehicle/LoadDocument.h"

#include <tinyxml.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "util/FileHandler.h"
#include "vehicle/FindExcess.h"
#include "vehicle/FormatError.h"

namespace vehicle {

namespace {

constexpr std::uintmax_t kLargestFile = 64 << 20;
constexpr std::size_t kMostOfAKind = 64;  // levels of elements, and attributes of one
constexpr std::size_t kLongestCharacter = 4;
constexpr int kTabSize = 4;  // as the parser counts columns

struct Place {
  int row = 1;
  int column = 1;
};

Place PlaceAt(const std::string& text, std::size_t offset) {
  Place place;
  for (std::size_t i = 0; i < offset; ++i) {
    if (text[i] == '\n' || (text[i] == '\r' && text[i + 1] != '\n')) {
      place = {place.row + 1, 1};
    } else if (text[i] == '\t') {
      place.column = ((place.column - 1) / kTabSize + 1) * kTabSize + 1;
    } else if (text[i] != '\r') {
      ++place.column;
    }
  }
  return place;
}

}  // namespace

bool LoadDocument(TiXmlDocument& document, std::string& error) {
  std::error_code notRegular;
  const std::uintmax_t size = std::filesystem::file_size(document.Value(), notRegular);
  if (notRegular) {
    return false;
  }
  if (size > kLargestFile) {
    error += FormatError(document.ValueStr(), 1, 1, "larger than 64 MiB");
    return false;
  }
  util::FileHandler file(document.Value(), "rb");
  std::string text;
  text.reserve(static_cast<std::size_t>(size) + kLongestCharacter);
  if (file.read(text) == 0) {
    return false;
  }
  // The parser may step over the text's end inside a UTF-8 character that is cut off.
  text.resize(std::strlen(text.c_str()));
  text.append(kLongestCharacter - 1, '\0');
  if (const std::optional<Excess> excess = FindExcess(text, kMostOfAKind)) {
    const Place place = PlaceAt(text, excess->offset);
    error += FormatError(document.ValueStr(), place.row, place.column, excess->what);
    return false;
  }
  document.Parse(text.c_str());
  return true;
}

}  // namespace vehicle
