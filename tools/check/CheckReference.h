#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace check {

/// What is wrong with the reference that the "&" at `at` of `text` begins, empty where nothing is.
/// `utf8` says whether the parser takes the text for UTF-8.
std::string FaultOfReference(std::string_view text, std::size_t at, bool utf8);

}  // namespace check
