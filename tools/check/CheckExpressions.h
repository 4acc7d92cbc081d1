#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kBadExpression{"bad-expression", Severity::kError,
                                     "An expression that does not compile"};
inline constexpr Rule kUnknownVariable{"unknown-variable", Severity::kError,
                                       "An expression with a name that is not there"};
inline constexpr Rule kStrayComma{"stray-comma", Severity::kError,
                                  "An expression of which only the part after a comma counts"};
inline constexpr Rule kAssignment{"assignment", Severity::kError,
                                  "An expression that assigns where it should compare or subtract"};
inline constexpr Rule kConstantExpression{"constant-expression", Severity::kError,
                                          "An expression that gives the same for every value"};
inline constexpr Rule kExpressionWithoutVal{"expression-without-val", Severity::kWarning,
                                            "An expression that does not use val"};
inline constexpr Rule kExpressionNotFinite{"expression-not-finite", Severity::kWarning,
                                           "An expression that is not finite everywhere"};

/// Judges expressions by what the host's evaluator makes of them.
void CheckExpressions(const model::Model& model, Findings& findings);

}  // namespace check
