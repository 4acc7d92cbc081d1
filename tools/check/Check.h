#pragma once

#include <cstddef>
#include <vector>

#include "check/Accept.h"
#include "check/Findings.h"
#include "check/Progress.h"
#include "model/Model.h"

namespace check {

/// Judges a data folder by every rule: what is found, in the order of the places. Throws `Failure`
/// if there are no association files of the base name that was asked for, if there is nothing to
/// check at all, and if `allowed` names a rule that does not exist.
std::vector<Finding> Check(const model::Model& model, const std::vector<Allowed>& allowed,
                           Progress& progress);

/// How many files of the data folder were there to be judged, its file of known values among them.
std::size_t CountFiles(const model::Model& model);

}  // namespace check
