#pragma once

#include <cstddef>

// A program that links this counts its allocations by `new`, in each thread.

extern thread_local int allocationsLeft;  ///< The allocation that takes this to 0 fails.
extern thread_local int allocationsMade;
extern thread_local int livingAllocations;
extern thread_local std::ptrdiff_t livingBytes;
