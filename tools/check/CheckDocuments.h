#pragma once

#include <optional>

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

/// The place in a file from which on what is read may differ from what was meant, as the document
/// is not well-formed or holds a merge conflict. Nothing where there is none.
std::optional<Place> FirstUnreliable(const model::File& file);

}  // namespace check
