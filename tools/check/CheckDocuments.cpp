#include "check/CheckDocuments.h"

#include <algorithm>

#include "check/CheckEncoding.h"
#include "check/CheckNames.h"
#include "model/Elements.h"

namespace check {

namespace {

void CheckRoot(const model::File& file, Findings& findings) {
  const TiXmlDocument& document = file.document;
  const TiXmlElement* first = document.FirstChildElement();
  if (first == nullptr) {
    findings.Add({file.Path()}, kWrongRoot, "there is no <" + file.rootName + ">: nothing is read");
  } else if (file.root == nullptr) {
    findings.Add(
        file.At(*first), kWrongRoot,
        "the root is <" + first->ValueStr() + ">, not <" + file.rootName + ">: nothing is read");
  }
  for (const TiXmlElement* element : model::ChildrenOf(document)) {
    if (file.root != nullptr && element != file.root) {
      findings.Add(file.At(*element), kUnreadElement,
                   "<" + element->ValueStr() + "> is not read beside <" + file.rootName + ">");
    }
  }
}

void CheckDocument(const model::File& file, Findings& findings) {
  if (file.state == model::File::State::kRefused) {
    const auto& [place, what] = file.refusal;
    findings.Add({file.Path(), place.row, place.column}, kNotLoaded, what);
  } else if (file.state == model::File::State::kParsed) {
    const TiXmlDocument& document = file.document;
    CheckEncoding(file, findings);
    if (document.Error()) {
      findings.Add(
          {file.Path(), std::max(1, document.ErrorRow()), std::max(1, document.ErrorCol())},
          kNotWellFormed, document.ErrorDesc());
    } else {
      CheckRoot(file, findings);
    }
  }
}

}  // namespace

void CheckDocuments(const model::Model& model, Findings& findings) {
  CheckDocument(*model.conversionFile, findings);
  for (const auto& [path, file] : model.associationFiles) {
    CheckDocument(*file, findings);
  }
}

}  // namespace check
