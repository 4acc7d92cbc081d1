#include "check/Consequences.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <tuple>

#include "check/CheckDocuments.h"
#include "check/CheckEncoding.h"
#include "check/CheckMarkup.h"

namespace check {

namespace {

constexpr const Rule* kAlwaysTold[] = {&kNotLoaded,   &kNotWellFormed,   &kWrongRoot,
                                       &kBadEncoding, &kForeignEncoding, &kMergeConflict};

bool IsAlwaysTold(const Rule* rule) {
  return std::find(std::begin(kAlwaysTold), std::end(kAlwaysTold), rule) != std::end(kAlwaysTold);
}

bool IsBehind(const Place& place, const Place& fault) {
  return std::tie(place.line, place.column) >= std::tie(fault.line, fault.column);
}

}  // namespace

std::vector<Finding> WithoutConsequences(const model::Model& model,
                                         const std::vector<Finding>& findings) {
  std::map<std::string, Place> faults;
  const auto note = [&faults](const model::File& file) {
    if (const auto place = FirstUnreliable(file)) {
      faults.emplace(place->file, *place);
    }
  };
  note(*model.conversionFile);
  for (const auto& [path, file] : model.associationFiles) {
    note(*file);
  }
  std::vector<Finding> kept;
  std::copy_if(findings.begin(), findings.end(), std::back_inserter(kept),
               [&faults](const Finding& finding) {
                 const auto fault = faults.find(finding.place.file);
                 return IsAlwaysTold(finding.rule) || fault == faults.end() ||
                        !IsBehind(finding.place, fault->second);
               });
  return kept;
}

}  // namespace check
