#include "log/Encoding.h"

#include "text/Charset.h"

namespace logs {

bool IsUtf8(const std::string& bytes) { return !FirstInvalid(bytes, "UTF-8"); }

std::string Utf8Of(const std::string& bytes) { return IsUtf8(bytes) ? bytes : Utf8OfLatin1(bytes); }

std::string Utf8OfLatin1(const std::string& latin1) { return Charset("UTF-8").FromLatin1(latin1); }

std::optional<std::string> Latin1OfUtf8(const std::string& utf8) {
  const std::string latin1 = Charset("UTF-8").ToLatin1(utf8);
  return Utf8OfLatin1(latin1) == utf8 ? std::optional(latin1) : std::nullopt;
}

}  // namespace logs
