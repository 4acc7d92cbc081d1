#include "check/DataFile.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "check/Encoding.h"
#include "util/FileHandler.h"
#include "vehicle/LoadDocument.h"

namespace check {

namespace {

std::string DeclaredEncoding(const TiXmlDocument& document) {
  for (const TiXmlNode* node = document.FirstChild(); node != nullptr; node = node->NextSibling()) {
    if (const TiXmlDeclaration* declaration = node->ToDeclaration()) {
      return declaration->Encoding();
    }
  }
  return "";
}

}  // namespace

DataFile::DataFile(const std::string& path, const std::string& rootName, Findings& findings)
    : document(path) {
  document.SetTabSize(1);
  std::string messages;
  if (!vehicle::LoadDocument(document, messages)) {
    state = messages.empty() ? State::kUnreadable : State::kRefused;
    PassOn(messages, Rule::kNotLoaded, findings);
    return;
  }
  state = State::kLoaded;
  std::string text;
  util::FileHandler(path.c_str(), "rb").read(text);
  root = document.FirstChildElement(rootName);
  CheckDocument(text, rootName, findings);
}

void DataFile::CheckDocument(const std::string& text, const std::string& rootName,
                             Findings& findings) {
  CheckEncoding(Path(), text, DeclaredEncoding(document), findings);
  if (document.Error()) {
    const Place place{Path(), std::max(1, document.ErrorRow()), std::max(1, document.ErrorCol())};
    findings.Add(place, Rule::kNotWellFormed, document.ErrorDesc());
    return;
  }
  const TiXmlElement* element = document.FirstChildElement();
  if (element == nullptr) {
    findings.Add({Path()}, Rule::kWrongRoot, "there is no <" + rootName + ">: nothing is read");
  } else if (root == nullptr) {
    findings.Add(
        At(*element), Rule::kWrongRoot,
        "the root is <" + element->ValueStr() + ">, not <" + rootName + ">: nothing is read");
  }
  for (; element != nullptr; element = element->NextSiblingElement()) {
    if (root != nullptr && element != root) {
      findings.Add(At(*element), Rule::kUnreadElement,
                   "<" + element->ValueStr() + "> is not read beside <" + rootName + ">");
    }
  }
}

void DataFile::PassOn(const std::string& messages, Rule rule, Findings& findings) const {
  std::istringstream lines(messages);
  for (std::string line; std::getline(lines, line);) {
    Place place{Path()};
    if (line.compare(0, Path().size() + 1, Path() + ':') == 0) {
      char* rest = nullptr;
      place.line = static_cast<int>(std::strtol(line.c_str() + Path().size() + 1, &rest, 10));
      place.column = static_cast<int>(std::strtol(rest + 1, &rest, 10));
      line.erase(0, static_cast<std::size_t>(rest + 2 - line.c_str()));
    }
    findings.Add(place, rule, line);
  }
}

}  // namespace check
