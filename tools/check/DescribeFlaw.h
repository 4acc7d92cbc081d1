#pragma once

#include <string>
#include <string_view>

#include "model/Markup.h"

namespace check {

/// What is told of the flaw of `piece`, which has one, in the text of its document.
std::string DescribeFlaw(const model::Piece& piece, std::string_view text);

}  // namespace check
