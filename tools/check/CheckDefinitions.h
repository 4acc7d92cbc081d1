#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kMissingId{"missing-id", Severity::kError, "A definition without identifier"};
inline constexpr Rule kTounitWithoutId{"tounit-without-id", Severity::kError,
                                       "A tounit without the attribute id"};
inline constexpr Rule kIntoItself{"into-itself", Severity::kError,
                                  "A conversion of a unit into itself"};
inline constexpr Rule kTounitWithoutConv{"tounit-without-conv", Severity::kError,
                                         "A tounit without conv"};
inline constexpr Rule kSecondConv{"second-conv", Severity::kWarning, "A second conv in one tounit"};
inline constexpr Rule kUnknownType{"unknown-type", Severity::kError,
                                   "A type that the library does not know"};
inline constexpr Rule kUnusableType{"unusable-type", Severity::kError,
                                    "A type that the library knows and does not convert by"};
inline constexpr Rule kConvWithoutFormula{"conv-without-formula", Severity::kError,
                                          "A conv with neither type nor to_float"};
inline constexpr Rule kRepeatedDefinition{"repeated-definition", Severity::kWarning,
                                          "A definition given twice"};

/// Judges the elements of the conversion file, and whether those of all files have identifiers.
void CheckDefinitions(const model::Model& model, Findings& findings);

}  // namespace check
