#include "check/CheckEncoding.h"

#include <strings.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

#include "text/Charset.h"
#include "xml/PlaceAt.h"

namespace check {

namespace {

constexpr char kUtf8[] = "UTF-8";

bool IsBeyondAscii(char c) { return static_cast<unsigned char>(c) >= 0x80; }

bool IsC1Control(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 && byte < 0xA0;
}

bool IsLatin1(const std::string& encoding) {
  return strcasecmp(encoding.c_str(), "ISO-8859-1") == 0 ||
         strcasecmp(encoding.c_str(), "latin1") == 0;
}

bool HasPrefix(const std::string& text, const char* prefix) {
  return strncasecmp(text.c_str(), prefix, std::strlen(prefix)) == 0;
}

// Nothing where there is no declaration, empty where it names no encoding.
std::optional<std::string> DeclaredEncoding(const TiXmlDocument& document) {
  for (const TiXmlNode* node = document.FirstChild(); node != nullptr; node = node->NextSibling()) {
    if (const TiXmlDeclaration* declaration = node->ToDeclaration()) {
      return declaration->Encoding();
    }
  }
  return std::nullopt;
}

// Whether the XML parser takes the file for UTF-8.
bool IsReadAsUtf8(const std::string& bytes, const std::optional<std::string>& declared) {
  return bytes.rfind("\xEF\xBB\xBF", 0) == 0 ||
         (declared &&
          (declared->empty() || HasPrefix(*declared, kUtf8) || HasPrefix(*declared, "UTF8")));
}

std::optional<std::size_t> FirstBeyondAsciiOutsideComments(const std::string& bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes.compare(i, 4, "<!--") == 0) {
      i = std::min(bytes.find("-->", i), bytes.size());
    } else if (IsBeyondAscii(bytes[i])) {
      return i;
    }
  }
  return std::nullopt;
}

struct Bytes {
  const std::string& path;
  const std::string& bytes;
  bool utf8;  // as the XML parser takes it

  Place At(std::size_t offset) const {
    const xml::Place place = xml::PlaceAt(bytes, offset, utf8);
    return {path, place.row, place.column};
  }
};

void CheckLatin1(const Bytes& file, std::size_t first, Findings& findings) {
  const std::string& bytes = file.bytes;
  const auto control = std::find_if(bytes.begin(), bytes.end(), IsC1Control);
  if (!FirstInvalid(bytes, kUtf8)) {
    findings.Add(file.At(first), kBadEncoding,
                 "the bytes are UTF-8, but the declared encoding is ISO-8859-1");
  } else if (control != bytes.end()) {
    findings.Add(file.At(static_cast<std::size_t>(control - bytes.begin())), kBadEncoding,
                 "the byte is a control character in ISO-8859-1");
  }
}

void CheckOther(const Bytes& file, const std::string& encoding, Findings& findings) {
  if (const auto invalid = FirstInvalid(file.bytes, encoding)) {
    findings.Add(file.At(*invalid), kBadEncoding,
                 "the byte is no character of the encoding " + encoding);
  } else if (const auto foreign = FirstBeyondAsciiOutsideComments(file.bytes)) {
    findings.Add(
        file.At(*foreign), kForeignEncoding,
        "the library takes the bytes of this character as ISO 8859-1, but they are " + encoding);
  }
}

}  // namespace

void CheckEncoding(const model::File& file, Findings& findings) {
  const std::string& bytes = file.bytes;
  const auto first = std::find_if(bytes.begin(), bytes.end(), IsBeyondAscii);
  if (first == bytes.end()) {
    return;
  }
  const std::optional<std::string> declared = DeclaredEncoding(file.document);
  const Bytes text{file.Path(), bytes, IsReadAsUtf8(bytes, declared)};
  const std::string encoding = declared.value_or("");
  if (IsLatin1(encoding)) {
    CheckLatin1(text, static_cast<std::size_t>(first - bytes.begin()), findings);
  } else {
    CheckOther(text, encoding.empty() ? kUtf8 : encoding, findings);
  }
}

}  // namespace check
