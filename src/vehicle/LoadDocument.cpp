#include "vehicle/LoadDocument.h"

#include <tinyxml.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "util/FileHandler.h"
#include "vehicle/FindExcess.h"

namespace vehicle {

namespace {

constexpr std::uintmax_t kLargestFile = 64 << 20;
constexpr std::size_t kMostOfAKind = 64;  // levels of elements, and attributes of one
constexpr std::size_t kLongestCharacter = 4;

struct Place {
  int row = 1;
  int column = 1;
};

Place PlaceAt(const std::string& text, std::size_t offset, int tabSize) {
  Place place;
  for (std::size_t i = 0; i < offset; ++i) {
    if (text[i] == '\n' || (text[i] == '\r' && text[i + 1] != '\n')) {
      place = {place.row + 1, 1};
    } else if (text[i] == '\t') {
      place.column = ((place.column - 1) / tabSize + 1) * tabSize + 1;
    } else if (text[i] != '\r') {
      ++place.column;
    }
  }
  return place;
}

void Report(const TiXmlDocument& document, Place place, const std::string& what,
            std::string& error) {
  error += document.ValueStr() + ':' + std::to_string(place.row) + ':' +
           std::to_string(place.column) + ": " + what + '\n';
}

}  // namespace

bool LoadDocument(TiXmlDocument& document, std::string& error) {
  const std::filesystem::path path(document.Value());
  std::error_code failure;
  if (!std::filesystem::is_regular_file(path, failure)) {
    return false;
  }
  if (std::filesystem::file_size(path, failure) > kLargestFile) {
    Report(document, {}, "larger than 64 MiB", error);
    return false;
  }
  util::FileHandler file(document.Value(), "rb");
  std::string text;
  if (file.read(text) == 0) {
    return false;
  }
  // The parser may step over the text's end inside a UTF-8 character that is cut off.
  text.resize(std::strlen(text.c_str()));
  text.append(kLongestCharacter - 1, '\0');
  if (const std::optional<Excess> excess = FindExcess(text, kMostOfAKind)) {
    Report(document, PlaceAt(text, excess->offset, document.TabSize()), excess->what, error);
    return false;
  }
  document.Parse(text.c_str());
  return true;
}

}  // namespace vehicle
