#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace check {

/// The lines that a merge has left in a text: of each conflict the first of its marks that is still
/// there, as an offset. Those in comments and CDATA sections are none.
std::vector<std::size_t> FindConflicts(const std::string& text);

}  // namespace check
