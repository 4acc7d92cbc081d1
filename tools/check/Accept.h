#pragma once

#include <string>
#include <vector>

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kUnusedAllowance{"unused-allowance", Severity::kWarning,
                                       "An allowance that accepts nothing"};

/// What is accepted on the command line: the findings of a rule, or those about one unit.
struct Allowed {
  std::string rule;
  std::string unit;  ///< empty: all
};

/// Marks the findings that the data allow in comments, or the command line does, as accepted. Adds
/// one for each allowance that accepts nothing. Throws `Failure` if `allowed` names a rule that
/// does not exist.
void Accept(const model::Model& model, const std::vector<Allowed>& allowed, Findings& findings);

}  // namespace check
