#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kMisspeltName{
    "misspelt-name", Severity::kError,
    "A name that differs from a known one by case or a letter or two"};
inline constexpr Rule kUnreadElement{"unread-element", Severity::kWarning,
                                     "An element that the library never reads"};
inline constexpr Rule kUnreadAttribute{"unread-attribute", Severity::kWarning,
                                       "An attribute that the library never reads"};
inline constexpr Rule kReadAsTounit{"read-as-tounit", Severity::kWarning,
                                    "An element of another name that is read as a tounit"};
inline constexpr Rule kFieldGivenTwice{"field-given-twice", Severity::kWarning,
                                       "Both an attribute and a child element for one field"};

/// Judges the names of the elements and attributes in all files, as far as the library reads them.
void CheckNames(const model::Model& model, Findings& findings);

}  // namespace check
