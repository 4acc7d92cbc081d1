#include "check/Check.h"

#include <algorithm>

#include "check/CheckAssociations.h"
#include "check/CheckConstants.h"
#include "check/CheckDefinitions.h"
#include "check/CheckDocuments.h"
#include "check/CheckExpressions.h"
#include "check/CheckIncludes.h"
#include "check/CheckNames.h"
#include "check/CheckUnits.h"
#include "check/CheckWays.h"
#include "check/Consequences.h"
#include "text/Failure.h"

namespace check {

namespace {

bool IsThere(const model::File& file) { return file.state != model::File::State::kUnreadable; }

void RequireSomethingToCheck(const model::Model& model) {
  if (model.base && model.bases.count(*model.base) == 0) {
    throw Failure("no association files " + Message::Verbatim(model.folder + *model.base) + "*");
  }
  if (model.bases.empty() && !IsThere(*model.conversionFile)) {
    throw Failure("no data files in " + Message::Verbatim(model.folder));
  }
}

}  // namespace

std::vector<Finding> Check(const model::Model& model, Progress& progress) {
  RequireSomethingToCheck(model);
  Findings findings;
  CheckDocuments(model, findings);
  CheckIncludes(model, findings);
  CheckNames(model, findings);
  progress.Begin("checking the conversions", 0);
  CheckDefinitions(model, findings);
  CheckConstants(model, findings);
  CheckExpressions(model, findings);
  CheckWays(model, findings, progress);
  progress.Begin("checking the associations", 0);
  CheckAssociations(model, findings);
  CheckUnits(model, findings);
  return WithoutConsequences(model, findings.Sorted());
}

std::size_t CountFiles(const model::Model& model) {
  const auto& files = model.associationFiles;
  const auto count = std::count_if(files.begin(), files.end(),
                                   [](const auto& entry) { return IsThere(*entry.second); });
  return static_cast<std::size_t>(count) + (IsThere(*model.conversionFile) ? 1 : 0);
}

}  // namespace check
