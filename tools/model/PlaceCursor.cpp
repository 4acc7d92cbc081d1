#include "model/PlaceCursor.h"

#include <algorithm>

#include "xml/PlaceAt.h"

namespace model {

namespace {

bool IsPlain(char c) { return c >= ' ' && c <= '~'; }

}  // namespace

PlaceCursor::PlaceCursor(const File& file)
    : file(file), bytes(file.bytes), utf8(file.IsReadAsUtf8()), place{file.Path()} {}

Place PlaceCursor::At(std::size_t offset) {
  if (offset < begin) {
    return file.At(offset);
  }
  const xml::Place counted = xml::PlaceAt(bytes.substr(begin), offset - begin, utf8);
  const int column = counted.row == 1 ? place.column + counted.column - 1 : counted.column;
  Place found{file.Path(), place.line + counted.row - 1, column};
  const auto back = static_cast<std::size_t>((column - 1) % xml::kTabSize);
  const std::string_view passed = bytes.substr(offset - back, back + 1);
  if (offset >= begin + back && std::all_of(passed.begin(), passed.end(), IsPlain)) {
    begin = offset - back;
    place = {file.Path(), found.line, column - static_cast<int>(back)};
  }
  return found;
}

}  // namespace model
