#include "model/File.h"

#include <strings.h>

#include <cstring>

#include "xml/PlaceAt.h"

namespace model {

namespace {

bool HasPrefix(const std::string& text, const char* prefix) {
  return strncasecmp(text.c_str(), prefix, std::strlen(prefix)) == 0;
}

}  // namespace

File::File(const std::string& path, const std::string& rootName)
    : document(path), rootName(rootName) {
  if (xml::LoadDocument(document, bytes, refusal)) {
    state = State::kParsed;
    root = document.FirstChildElement(rootName);
  } else {
    state = refusal.what.empty() ? State::kUnreadable : State::kRefused;
  }
}

Place File::At(std::size_t offset) const {
  const xml::Place place = xml::PlaceAt(bytes, offset, IsReadAsUtf8());
  return {Path(), place.row, place.column};
}

std::optional<std::string> File::DeclaredEncoding() const {
  for (const TiXmlNode* node = document.FirstChild(); node != nullptr; node = node->NextSibling()) {
    if (const TiXmlDeclaration* declaration = node->ToDeclaration()) {
      return declaration->Encoding();
    }
  }
  return std::nullopt;
}

bool File::IsReadAsUtf8() const {
  const std::optional<std::string> declared = DeclaredEncoding();
  return bytes.rfind("\xEF\xBB\xBF", 0) == 0 ||
         (declared &&
          (declared->empty() || HasPrefix(*declared, "UTF-8") || HasPrefix(*declared, "UTF8")));
}

bool File::IsReadInPart() const {
  return state == State::kRefused ||
         (state == State::kParsed && (document.Error() || root == nullptr));
}

}  // namespace model
