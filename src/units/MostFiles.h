#pragma once

namespace units {

/// How many files one load of a unit system reads, the first included.
constexpr int kMostFiles = 1000;

}  // namespace units
