#pragma once

#include <functional>
#include <string>

/// Hands the lines of standard input to `take`, one after the other. A `Failure` of `take` is
/// thrown on with the number of its line.
void ForEachInputLine(const std::function<void(const std::string&)>& take);
