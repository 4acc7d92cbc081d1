#pragma once

#include <vector>

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

/// `findings` without those that only follow from a document that is not well-formed: in its file,
/// behind the fault.
std::vector<Finding> WithoutConsequences(const model::Model& model,
                                         const std::vector<Finding>& findings);

}  // namespace check
