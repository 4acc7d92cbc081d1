#include "xml/PlaceAt.h"

#include "xml/Utf8Length.h"

namespace xml {

namespace {

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

bool HasNoWidth(std::string_view text, std::size_t at) {
  return text.compare(at, 3, "\xEF\xBB\xBF") == 0 || text.compare(at, 3, "\xEF\xBF\xBE") == 0 ||
         text.compare(at, 3, "\xEF\xBF\xBF") == 0;
}

}  // namespace

Place PlaceAt(std::string_view text, std::size_t offset, bool utf8) {
  Place place;
  std::size_t i = 0;
  while (i < offset) {
    const char c = text[i];
    if (IsLineEnd(c)) {
      place = {place.row + 1, 1};
      const char next = i + 1 < text.size() ? text[i + 1] : '\0';
      i += IsLineEnd(next) && next != c ? 2 : 1;
    } else if (c == '\t') {
      place.column += kTabSize - (place.column - 1) % kTabSize;
      ++i;
    } else {
      place.column += utf8 && HasNoWidth(text, i) ? 0 : 1;
      i += utf8 ? Utf8Length(c) : 1;
    }
  }
  return place;
}

}  // namespace xml
