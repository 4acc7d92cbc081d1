#pragma once

#include "check/Findings.h"
#include "model/Model.h"

namespace check {

inline constexpr Rule kNotLoaded{"not-loaded", Severity::kError,
                                 "The library refuses to load the file"};
inline constexpr Rule kNotWellFormed{"not-well-formed", Severity::kError,
                                     "The file is not well-formed XML"};
inline constexpr Rule kWrongRoot{"wrong-root", Severity::kError,
                                 "The root element has another name"};

/// Judges the files as XML documents, their encoding too.
void CheckDocuments(const model::Model& model, Findings& findings);

}  // namespace check
