#include "vehicle/FindExcess.h"

#include <strings.h>
#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <string_view>

namespace vehicle {

namespace {

bool IsSpace(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte <= ' ' || byte > '~') && std::isspace(byte) != 0;
}

bool IsNameStart(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || byte > '~';
}

bool IsInName(char c) {
  return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
}

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

// Walks over a text as the parser does, with a count in place of the parser's calls of itself.
class Scanner {
 public:
  Scanner(const std::string& padded, std::size_t limit) : text(padded.c_str()), limit(limit) {
    if (At(kByteOrderMark)) {
      encoding = TIXML_ENCODING_UTF8;
    }
  }

  std::optional<Excess> Scan() {
    for (SkipSpace(); position < text.size() && !excess; SkipSpace()) {
      if (Peek() == '<') {
        SkipMarkup();
      } else if (depth > 0) {
        SkipTo('<');
      } else {
        GiveUp();
      }
    }
    return excess;
  }

 private:
  static constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

  char Peek(std::size_t ahead = 0) const {
    return position + ahead < text.size() ? text[position + ahead] : '\0';
  }

  bool At(std::string_view token) const { return text.substr(position, token.size()) == token; }

  bool AtDeclaration() const { return strncasecmp(text.data() + position, "<?xml", 5) == 0; }

  void Skip(std::size_t count) { position = std::min(position + count, text.size()); }

  // The parser reads no further.
  void GiveUp() { position = text.size(); }

  void SkipSpace() {
    while (IsSpace(Peek()) || (encoding == TIXML_ENCODING_UTF8 && AtZeroWidth())) {
      Skip(IsSpace(Peek()) ? 1 : kByteOrderMark.size());
    }
  }

  bool AtZeroWidth() const {
    return At(kByteOrderMark) || At("\xEF\xBF\xBE") || At("\xEF\xBF\xBF");
  }

  void SkipName() {
    while (IsInName(Peek())) {
      ++position;
    }
  }

  // To `end`, over characters and entities, which may hold it.
  void SkipTo(char end) {
    const bool utf8 = encoding == TIXML_ENCODING_UTF8;
    while (position < text.size() && text[position] != end) {
      const char c = text[position];
      if (c == '&' && Peek(1) == '#' && Peek(2) != '\0') {
        SkipPast(";", 2);
      } else {
        Skip(utf8 ? Utf8Length(c) : 1);
      }
    }
  }

  void SkipPast(std::string_view end, std::size_t from) {
    const std::size_t found = text.find(end, std::min(position + from, text.size()));
    position = found != std::string_view::npos ? found + end.size() : text.size();
  }

  void SkipMarkup() {
    if (AtDeclaration()) {
      SkipDeclaration();
    } else if (At("<!--")) {
      SkipPast("-->", 4);
    } else if (At("<![CDATA[")) {
      SkipPast("]]>", 9);
    } else if (IsNameStart(Peek(1))) {
      SkipStartTag();
    } else {
      depth -= depth > 0 && At("</") ? 1 : 0;
      SkipPast(">", 1);
    }
  }

  void SkipDeclaration() {
    TiXmlDeclaration declaration;
    const char* end = declaration.Parse(text.data() + position, nullptr, encoding);
    end != nullptr ? Skip(static_cast<std::size_t>(end - text.data()) - position) : GiveUp();
    if (depth == 0 && encoding == TIXML_ENCODING_UNKNOWN) {
      encoding = EncodingOf(declaration);
    }
  }

  void SkipStartTag() {
    const std::size_t start = position;
    if (depth == limit) {
      excess = Excess{start, "more than " + std::to_string(limit) + " levels of elements"};
      return;
    }
    Skip(1);
    SkipSpace();
    SkipName();
    std::size_t attributes = 0;
    for (SkipSpace(); IsNameStart(Peek()); SkipSpace()) {
      if (attributes++ == limit) {
        excess = Excess{start, "more than " + std::to_string(limit) + " attributes in one element"};
        return;
      }
      SkipAttribute();
    }
    EndStartTag();
  }

  void EndStartTag() {
    if (Peek() == '>') {
      Skip(1);
      ++depth;
    } else if (At("/>")) {
      Skip(2);
    } else {
      GiveUp();
    }
  }

  void SkipAttribute() {
    SkipName();
    SkipSpace();
    if (Peek() != '=') {
      GiveUp();
    }
    Skip(1);
    SkipSpace();
    if (const char quote = Peek(); quote == '"' || quote == '\'') {
      Skip(1);
      SkipTo(quote);
      Skip(1);
    } else {
      SkipBareValue();
    }
  }

  void SkipBareValue() {
    while (position < text.size() && !IsSpace(Peek()) && Peek() != '/' && Peek() != '>') {
      ++position;
    }
  }

  const std::string_view text;
  const std::size_t limit;
  std::size_t position = 0;
  std::size_t depth = 0;
  TiXmlEncoding encoding = TIXML_ENCODING_UNKNOWN;
  std::optional<Excess> excess;
};

}  // namespace

std::optional<Excess> FindExcess(const std::string& text, std::size_t limit) {
  return Scanner(text, limit).Scan();
}

}  // namespace vehicle
