#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

/// Holds back the findings that only follow from others: what stands behind the place where a file
/// breaks off, what needs a file or a definition that is lost, and the second and further places
/// where one and the same conversion is missing.
void HoldBack(const model::Model& model, Findings& findings);

}  // namespace check
