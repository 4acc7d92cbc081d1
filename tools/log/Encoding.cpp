#include "log/Encoding.h"

#include <algorithm>

#include "text/Charset.h"

namespace logs {

namespace {

bool IsAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

bool IsUtf8(const std::string& bytes) { return !FirstInvalid(bytes, "UTF-8"); }

std::string Utf8Of(const std::string& bytes) { return IsUtf8(bytes) ? bytes : Utf8OfLatin1(bytes); }

std::string Utf8OfLatin1(const std::string& latin1) {
  return IsAscii(latin1) ? latin1 : Charset("UTF-8").FromLatin1(latin1);
}

std::optional<std::string> Latin1OfUtf8(const std::string& utf8) {
  if (IsAscii(utf8)) {
    return utf8;
  }
  const std::string latin1 = Charset("UTF-8").ToLatin1(utf8);
  return Utf8OfLatin1(latin1) == utf8 ? std::optional(latin1) : std::nullopt;
}

}  // namespace logs
