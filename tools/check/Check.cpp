#include "check/Check.h"

#include <algorithm>

#include "check/CheckAssociations.h"
#include "check/CheckConstants.h"
#include "check/CheckDefinitions.h"
#include "check/CheckDocuments.h"
#include "check/CheckExpressions.h"
#include "check/CheckIncludes.h"
#include "check/CheckNames.h"
#include "check/CheckSamples.h"
#include "check/CheckUnits.h"
#include "check/CheckWays.h"
#include "check/HoldBack.h"
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

bool HasSamplesOfItsOwn(const model::Model& model) {
  return model.samples && model.samples->path.rfind(model.folder, 0) == 0;
}

}  // namespace

std::vector<Finding> Check(const model::Model& model, const std::vector<Allowed>& allowed,
                           Progress& progress) {
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
  CheckSamples(model, findings);
  progress.Begin("checking the associations", 0);
  CheckAssociations(model, findings);
  CheckUnits(model, findings);
  findings.Sort();
  HoldBack(model, findings);
  Accept(model, allowed, findings);
  findings.Sort();
  return findings.All();
}

std::size_t CountFiles(const model::Model& model) {
  const auto& files = model.associationFiles;
  const auto count = std::count_if(files.begin(), files.end(),
                                   [](const auto& entry) { return IsThere(*entry.second); });
  return static_cast<std::size_t>(count) + (IsThere(*model.conversionFile) ? 1 : 0) +
         (HasSamplesOfItsOwn(model) ? 1 : 0);
}

}  // namespace check
