#include "check/CheckReference.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include "model/Markup.h"
#include "util/Text.h"
#include "xml/ByteClasses.h"

namespace check {

namespace {

constexpr std::array<const char*, 5> kEntities{"amp", "lt", "gt", "quot", "apos"};

constexpr unsigned long kLargestCharacter = 0x10FFFF;

bool IsControl(unsigned long character) {
  const bool space = character == '\t' || character == '\n' || character == '\r';
  return (character < 0x20 && !space) || (character >= 0x7F && character < 0xA0);
}

std::string InUtf8(unsigned long character) {
  const auto part = [character](int shift) {
    return static_cast<char>(0x80 | (character >> shift & 0x3F));
  };
  if (character < 0x800) {
    return {static_cast<char>(0xC0 | character >> 6), part(0)};
  }
  if (character < 0x10000) {
    return {static_cast<char>(0xE0 | character >> 12), part(6), part(0)};
  }
  return {static_cast<char>(0xF0 | character >> 18), part(12), part(6), part(0)};
}

std::string FaultOfNumber(const std::string& reference, bool utf8) {
  const bool hexadecimal = reference[2] == 'x';
  const unsigned long character =
      std::strtoul(reference.c_str() + (hexadecimal ? 3 : 2), nullptr, hexadecimal ? 16 : 10);
  const std::string quoted = util::Quoted(reference);
  if (character == 0) {
    return quoted + " ends the text: nothing after it is shown";
  }
  if (character > kLargestCharacter) {
    return quoted + " is no character";
  }
  if (character > 0xFF) {
    return quoted + " is no character of ISO 8859-1, and is shown as " +
           util::Quoted(utf8 ? InUtf8(character)
                             : std::string(1, static_cast<char>(character & 0xFF)));
  }
  if (IsControl(character)) {
    return quoted + " is a control character, which cannot be shown";
  }
  if (utf8 && character >= 0x80) {
    return quoted + " is shown as " + util::Quoted(InUtf8(character)) +
           " in a file that is read as UTF-8: declare ISO-8859-1";
  }
  return {};
}

std::string FaultOfEntity(const std::string& name, bool closed) {
  const auto* const known =
      std::find_if(kEntities.begin(), kEntities.end(),
                   [&name](const char* entity) { return strcasecmp(entity, name.c_str()) == 0; });
  if (closed && known != kEntities.end() && *known == name) {
    return {};
  }
  if (known != kEntities.end()) {
    const std::string written = "&" + name + (closed ? ";" : "");
    return util::Quoted(written) + " is read as " + util::Quoted(written.substr(1)) + ": write " +
           util::Quoted(std::string("&") + *known + ";");
  }
  if (closed && !name.empty()) {
    return "the entity " + util::Quoted("&" + name + ";") + " is unknown and read as " +
           util::Quoted(name + ";") + ": write the character itself";
  }
  return "\"&\" is left out where it is read: write \"&amp;\"";
}

}  // namespace

std::string FaultOfReference(std::string_view text, std::size_t at, bool utf8) {
  if (text.compare(at, 2, "&#") == 0) {
    if (const std::size_t end = model::EndOfNumber(text, at)) {
      return FaultOfNumber(std::string(text.substr(at, end - at)), utf8);
    }
  }
  std::size_t end = at + 1;
  while (end < text.size() && xml::IsInName(text[end])) {
    ++end;
  }
  const bool closed = end < text.size() && text[end] == ';';
  return FaultOfEntity(std::string(text.substr(at + 1, end - at - 1)), closed);
}

}  // namespace check
