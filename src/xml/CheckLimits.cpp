#include "xml/CheckLimits.h"

#include <strings.h>
#include <tinyxml.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "xml/ByteClasses.h"
#include "xml/Utf8Length.h"

namespace xml {

namespace {

TiXmlEncoding EncodingOf(const TiXmlDeclaration& declaration) {
  const char* name = declaration.Encoding();
  const bool utf8 =
      *name == '\0' || strncasecmp(name, "UTF-8", 5) == 0 || strncasecmp(name, "UTF8", 4) == 0;
  return utf8 ? TIXML_ENCODING_UTF8 : TIXML_ENCODING_LEGACY;
}

// Walks over a text as the parser does, with the names of the open elements in place of the
// parser's calls of itself, and stops where the parser gives the text up. What ends a text is a
// NUL, and there are enough of them that a step over a character that is cut off still comes to
// one.
//
// A scan that is not exact skims over what tags hold, at two thirds of the cost. It goes wherever
// the parser goes, and maybe further: it finds too much wherever there is, and maybe elsewhere.
class Scanner {
 public:
  Scanner(const char* text, std::size_t limit, bool exact)
      : text(text), limit(limit), exact(exact), at(text) {
    open.reserve(limit);
    if (At(kByteOrderMark)) {
      encoding = TIXML_ENCODING_UTF8;
    }
  }

  std::optional<Excess> Scan() {
    for (SkipSpace(); *at != '\0' && tooMany == nullptr; SkipSpace()) {
      if (*at == '<') {
        SkipMarkup();
      } else if (!open.empty()) {
        SkipTo('<');
      } else {
        GiveUp();
      }
    }
    if (tooMany == nullptr) {
      return std::nullopt;
    }
    return Excess{static_cast<std::size_t>(element - text), encoding == TIXML_ENCODING_UTF8,
                  "more than " + std::to_string(limit) + tooMany};
  }

 private:
  static constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  static constexpr const char* kTooManyAttributes = " attributes in one element";

  // The parser reads no further.
  void GiveUp() { at = ""; }

  bool At(std::string_view token) const {
    return std::strncmp(at, token.data(), token.size()) == 0;
  }

  void SkipSpace() {
    at = SkipAll(at, IsSpace);
    while (encoding == TIXML_ENCODING_UTF8 && AtZeroWidth()) {
      at = SkipAll(at + kByteOrderMark.size(), IsSpace);
    }
  }

  bool AtZeroWidth() const {
    return At(kByteOrderMark) || At("\xEF\xBF\xBE") || At("\xEF\xBF\xBF");
  }

  std::string_view SkipName() {
    const char* start = at;
    at = IsNameStart(*start) ? SkipAll(start, IsInName) : start;
    return {start, static_cast<std::size_t>(at - start)};
  }

  // To `end`, over characters and entities, which may hold it.
  void SkipTo(char end) {
    const std::array<bool, 256>& plain = PlainUpTo(end);
    const bool utf8 = encoding == TIXML_ENCODING_UTF8;
    while (true) {
      at = SkipAll(at, [&plain](char c) { return plain[static_cast<unsigned char>(c)]; });
      if (*at == end || *at == '\0') {
        return;
      }
      if (*at == '&' && at[1] == '#' && at[2] != '\0') {
        SkipCharacterReference();
      } else {
        at += utf8 ? Utf8Length(*at) : 1;
      }
    }
  }

  // The parser reads the digits from the last one back to the mark that stands before them.
  void SkipCharacterReference() {
    const char* end = std::strchr(at + 2, ';');
    if (end == nullptr) {
      GiveUp();
      return;
    }
    const bool hexadecimal = at[2] == 'x';
    const char* digit = end - 1;
    while (hexadecimal ? std::isxdigit(static_cast<unsigned char>(*digit)) != 0
                       : *digit >= '0' && *digit <= '9') {
      --digit;
    }
    if (*digit == (hexadecimal ? 'x' : '#')) {
      at = end + 1;
    } else {
      GiveUp();
    }
  }

  void SkipPast(const char* end) {
    if (const char* found = std::strstr(at, end)) {
      at = found + std::strlen(end);
    } else {
      GiveUp();
    }
  }

  void SkipMarkup() {
    if (IsNameStart(at[1])) {
      SkipStartTag();
    } else if (at[1] == '/' && !open.empty()) {
      SkipEndTag();
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

  void SkipEndTag() {
    at += 2;
    if (!exact) {
      at = SkipAll(at, IsPlainInTag);
    } else if (At(open.back())) {
      at += open.back().size();
      SkipSpace();
    } else {
      GiveUp();
    }
    open.pop_back();
    SkipOne('>');
  }

  void SkipOne(char expected) {
    if (*at == expected) {
      ++at;
    } else {
      GiveUp();
    }
  }

  void SkipDeclaration() {
    TiXmlDeclaration declaration;
    if (const char* end = declaration.Parse(at, nullptr, encoding)) {
      at = end;
    } else {
      GiveUp();
    }
    if (open.empty() && encoding == TIXML_ENCODING_UNKNOWN) {
      encoding = EncodingOf(declaration);
    }
  }

  void SkipStartTag() {
    element = at;
    if (open.size() == limit) {
      tooMany = " levels of elements";
      return;
    }
    if (exact) {
      SkipNameAndAttributes();
    } else {
      SkimNameAndAttributes();
    }
    if (tooMany == nullptr) {
      EndStartTag();
    }
  }

  void SkipNameAndAttributes() {
    ++at;
    SkipSpace();
    name = SkipName();
    attributes.clear();
    for (SkipSpace(); IsNameStart(*at) && attributes.size() <= limit; SkipSpace()) {
      SkipAttribute();
    }
    if (attributes.size() > limit) {
      tooMany = kTooManyAttributes;
    } else if (name.empty()) {
      GiveUp();
    }
  }

  // Where the parser does not give up, quotes stand around values only, and a slash or a bracket
  // outside of them ends the tag. An attribute has two bytes, one of them a sign.
  void SkimNameAndAttributes() {
    for (at = SkipAll(at, IsPlainInTag); IsQuote(*at); at = SkipAll(at, IsPlainInTag)) {
      SkipQuoted();
    }
    if (*at == '\0' || MayHoldTooMany({element, static_cast<std::size_t>(at - element)})) {
      tooMany = kTooManyAttributes;
    }
  }

  bool MayHoldTooMany(std::string_view tag) const {
    return tag.size() > 2 * limit &&
           static_cast<std::size_t>(std::count(tag.begin(), tag.end(), '=')) > limit;
  }

  void EndStartTag() {
    if (*at == '>') {
      ++at;
      open.push_back(name);
    } else {
      SkipOne('/');
      SkipOne('>');
    }
  }

  void SkipAttribute() {
    const std::string_view attribute = SkipName();
    SkipSpace();
    SkipOne('=');
    SkipSpace();
    if (IsQuote(*at)) {
      SkipQuoted();
    } else {
      SkipBareValue();
    }
    if (std::find(attributes.begin(), attributes.end(), attribute) != attributes.end()) {
      GiveUp();
    }
    if (*at != '\0') {
      attributes.push_back(attribute);
    }
  }

  void SkipQuoted() {
    const char quote = *at++;
    SkipTo(quote);
    SkipOne(quote);
  }

  void SkipBareValue() {
    while (*at != '\0' && !IsSpace(*at) && *at != '/' && *at != '>') {
      if (IsQuote(*at)) {
        GiveUp();
        return;
      }
      ++at;
    }
  }

  const char* const text;
  const std::size_t limit;
  const bool exact;
  const char* at;
  std::vector<std::string_view> open;        // names of the elements that are not ended
  std::string_view name;                     // of the element whose tag is being read
  std::vector<std::string_view> attributes;  // names in that tag
  TiXmlEncoding encoding = TIXML_ENCODING_UNKNOWN;
  const char* element = nullptr;
  const char* tooMany = nullptr;
};

}  // namespace

std::optional<Excess> CheckLimits(const char* text, std::size_t limit) {
  std::optional<Excess> excess = Scanner(text, limit, false).Scan();
  return excess ? Scanner(text, limit, true).Scan() : excess;
}

}  // namespace xml
