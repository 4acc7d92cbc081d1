#include "vehicle/FindExcess.h"

#include <strings.h>
#include <tinyxml.h>

#include <array>
#include <cctype>
#include <cstring>
#include <string_view>

namespace vehicle {

namespace {

constexpr bool IsNameStart(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || byte > '~';
}

// For each byte whether it is one of those that `Is` says.
template <typename Is>
constexpr std::array<bool, 256> TableOf(Is is) {
  std::array<bool, 256> table{};
  for (int byte = 0; byte < 256; ++byte) {
    table[byte] = is(static_cast<char>(byte));
  }
  return table;
}

constexpr auto kSpaces = TableOf([](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); });
constexpr auto kNameBytes = TableOf([](char c) {
  return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
});

bool IsSpace(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return kSpaces[byte] || (byte > '~' && std::isspace(byte) != 0);
}

bool IsInName(char c) { return kNameBytes[static_cast<unsigned char>(c)]; }

std::size_t Utf8Length(char c) {
  const auto lead = static_cast<unsigned char>(c);
  if (lead < 0xC2 || lead > 0xF4) {
    return 1;
  }
  return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

TiXmlEncoding EncodingOf(const TiXmlDeclaration& declaration) {
  const char* name = declaration.Encoding();
  const bool utf8 =
      *name == '\0' || strncasecmp(name, "UTF-8", 5) == 0 || strncasecmp(name, "UTF8", 4) == 0;
  return utf8 ? TIXML_ENCODING_UTF8 : TIXML_ENCODING_LEGACY;
}

// Walks over a text as the parser does, with a count in place of the parser's calls of itself. What
// ends a text is a NUL, and there are enough of them that a step over a character that is cut off
// still comes to one.
class Scanner {
 public:
  Scanner(const char* text, std::size_t limit) : text(text), limit(limit), at(text) {
    if (At(kByteOrderMark)) {
      encoding = TIXML_ENCODING_UTF8;
    }
  }

  std::optional<Excess> Scan() {
    for (SkipSpace(); *at != '\0' && tooMany == nullptr; SkipSpace()) {
      if (*at == '<') {
        SkipMarkup();
      } else if (depth > 0) {
        SkipTo('<');
      } else {
        at = kNothing;
      }
    }
    if (tooMany == nullptr) {
      return std::nullopt;
    }
    return Excess{static_cast<std::size_t>(element - text),
                  "more than " + std::to_string(limit) + tooMany};
  }

 private:
  static constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  static constexpr const char* kNothing = "";  // where the parser reads no further

  bool At(std::string_view token) const {
    return std::strncmp(at, token.data(), token.size()) == 0;
  }

  void SkipSpace() {
    while (true) {
      if (IsSpace(*at)) {
        ++at;
      } else if (encoding == TIXML_ENCODING_UTF8 && AtZeroWidth()) {
        at += kByteOrderMark.size();
      } else {
        return;
      }
    }
  }

  bool AtZeroWidth() const {
    return At(kByteOrderMark) || At("\xEF\xBF\xBE") || At("\xEF\xBF\xBF");
  }

  void SkipName() {
    while (IsInName(*at)) {
      ++at;
    }
  }

  // To `end`, over characters and entities, which may hold it.
  void SkipTo(char end) {
    const bool utf8 = encoding == TIXML_ENCODING_UTF8;
    while (*at != end && *at != '\0') {
      if (*at == '&' && at[1] == '#' && at[2] != '\0') {
        SkipPast(";");
      } else if (utf8) {
        at += Utf8Length(*at);
      } else {
        ++at;
      }
    }
  }

  void SkipPast(const char* end) {
    const char* found = std::strstr(at, end);
    at = found != nullptr ? found + std::strlen(end) : kNothing;
  }

  void SkipMarkup() {
    if (IsNameStart(at[1])) {
      SkipStartTag();
    } else if (at[1] == '/') {
      depth -= depth > 0 ? 1 : 0;
      SkipPast(">");
    } else if (strncasecmp(at, "<?xml", 5) == 0) {
      SkipDeclaration();
    } else if (At("<!--")) {
      at += 4;
      SkipPast("-->");
    } else if (At("<![CDATA[")) {
      SkipPast("]]>");
    } else {
      SkipPast(">");
    }
  }

  void SkipDeclaration() {
    TiXmlDeclaration declaration;
    const char* end = declaration.Parse(at, nullptr, encoding);
    at = end != nullptr ? end : kNothing;
    if (depth == 0 && encoding == TIXML_ENCODING_UNKNOWN) {
      encoding = EncodingOf(declaration);
    }
  }

  void SkipStartTag() {
    element = at;
    if (depth == limit) {
      tooMany = " levels of elements";
      return;
    }
    ++at;
    SkipSpace();
    SkipName();
    std::size_t attributes = 0;
    for (SkipSpace(); IsNameStart(*at); SkipSpace()) {
      if (attributes++ == limit) {
        tooMany = " attributes in one element";
        return;
      }
      SkipAttribute();
    }
    EndStartTag();
  }

  void EndStartTag() {
    if (*at == '>') {
      ++at;
      ++depth;
    } else if (*at == '/' && at[1] == '>') {
      at += 2;
    } else {
      at = kNothing;
    }
  }

  void SkipAttribute() {
    SkipName();
    SkipSpace();
    if (*at != '=') {
      at = kNothing;
      return;
    }
    ++at;
    SkipSpace();
    if (const char quote = *at; quote == '"' || quote == '\'') {
      ++at;
      SkipTo(quote);
      at += *at != '\0' ? 1 : 0;
    } else {
      SkipBareValue();
    }
  }

  void SkipBareValue() {
    while (*at != '\0' && !IsSpace(*at) && *at != '/' && *at != '>') {
      ++at;
    }
  }

  const char* const text;
  const std::size_t limit;
  const char* at;
  std::size_t depth = 0;
  TiXmlEncoding encoding = TIXML_ENCODING_UNKNOWN;
  const char* element = nullptr;
  const char* tooMany = nullptr;
};

}  // namespace

std::optional<Excess> FindExcess(const std::string& text, std::size_t limit) {
  return Scanner(text.c_str(), limit).Scan();
}

}  // namespace vehicle
