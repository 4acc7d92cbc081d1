#include "xml/LoadDocument.h"

#include <tinyxml.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

#include "util/FileHandler.h"
#include "xml/CheckLimits.h"
#include "xml/FormatError.h"
#include "xml/PlaceAt.h"

namespace xml {

namespace {

constexpr std::size_t kLargestFile = 64 << 20;
constexpr std::size_t kMostOfAKind = 64;  // levels of elements, and attributes of one
constexpr std::size_t kLongestCharacter = 4;

struct Text {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;
};

bool Read(const std::string& path, Text& text, Refusal& refusal) {
  // Asked before it is opened: to open a pipe would wait for its other end.
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(path, unknown)) {
    return false;
  }
  util::FileHandler file(path.c_str(), "rb");
  text.size = file.fileSize();
  if (text.size > kLargestFile) {
    refusal.what = "larger than 64 MiB";
    return false;
  }
  text.bytes.reset(new char[text.size + kLongestCharacter]);
  return file.read(text.bytes.get(), static_cast<unsigned>(text.size), 1) != 0;
}

bool Parse(TiXmlDocument& document, const Text& text, Refusal& refusal) {
  char* const bytes = text.bytes.get();
  // The parser may step over the text's end inside a UTF-8 character that is cut off.
  bytes[text.size] = '\0';
  const std::size_t length = std::strlen(bytes);
  std::fill_n(bytes + length, kLongestCharacter, '\0');
  if (const std::optional<Excess> excess = CheckLimits(bytes, kMostOfAKind)) {
    refusal = {PlaceAt({bytes, length}, excess->offset, excess->utf8), excess->what};
    return false;
  }
  document.Parse(bytes);
  return true;
}

}  // namespace

bool LoadDocument(TiXmlDocument& document, std::string& error) {
  Text text;
  Refusal refusal;
  if (Read(document.ValueStr(), text, refusal) && Parse(document, text, refusal)) {
    return true;
  }
  if (!refusal.what.empty()) {
    error +=
        FormatError(document.ValueStr(), refusal.place.row, refusal.place.column, refusal.what);
  }
  return false;
}

bool LoadDocument(TiXmlDocument& document, std::string& bytes, Refusal& refusal) {
  Text text;
  if (!Read(document.ValueStr(), text, refusal)) {
    return false;
  }
  bytes.assign(text.bytes.get(), text.size);
  return Parse(document, text, refusal);
}

}  // namespace xml
