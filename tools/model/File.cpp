#include "model/File.h"

namespace model {

File::File(const std::string& path, const std::string& rootName)
    : document(path), rootName(rootName) {
  if (xml::LoadDocument(document, bytes, refusal)) {
    state = State::kParsed;
    root = document.FirstChildElement(rootName);
  } else {
    state = refusal.what.empty() ? State::kUnreadable : State::kRefused;
  }
}

}  // namespace model
