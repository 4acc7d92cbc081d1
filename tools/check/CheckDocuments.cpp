#include "check/CheckDocuments.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "check/CheckEncoding.h"
#include "check/CheckMarkup.h"
#include "check/CheckNames.h"
#include "check/FindConflicts.h"
#include "check/FindFault.h"
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

Place PlaceOfError(const model::File& file) {
  const TiXmlDocument& document = file.document;
  return {file.Path(), std::max(1, document.ErrorRow()), std::max(1, document.ErrorCol())};
}

std::optional<Fault> FaultOf(const model::File& file) {
  std::optional<Fault> fault = FindFault(file);
  return fault && (fault->silent || file.document.Error()) ? fault : std::nullopt;
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

void CheckParsed(const model::File& file, Findings& findings) {
  if (const std::optional<Fault> fault = FaultOf(file)) {
    findings.Add(file.At(fault->at), kNotWellFormed, fault->text);
  } else if (file.document.Error() && !IsBlank(file.Text())) {
    findings.Add(PlaceOfError(file), kNotWellFormed, file.document.ErrorDesc());
  } else {
    CheckRoot(file, findings);
  }
}

void CheckDocument(const model::File& file, Findings& findings) {
  if (file.state == model::File::State::kRefused) {
    const auto& [place, what] = file.refusal;
    findings.Add({file.Path(), place.row, place.column}, kNotLoaded, what);
  } else if (file.state == model::File::State::kParsed && !CheckWidth(file, findings)) {
    CheckEncoding(file, findings);
    CheckMarkup(file, findings);
    if (FindConflicts(file.bytes).empty()) {
      CheckParsed(file, findings);
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

std::optional<Place> FirstUnreliable(const model::File& file) {
  if (file.state != model::File::State::kParsed) {
    return std::nullopt;
  }
  const std::vector<std::size_t> conflicts = FindConflicts(file.bytes);
  if (!conflicts.empty()) {
    return file.At(conflicts.front());
  }
  if (const std::optional<Fault> fault = FaultOf(file)) {
    return file.At(fault->from);
  }
  return file.document.Error() ? std::optional(PlaceOfError(file)) : std::nullopt;
}

}  // namespace check
