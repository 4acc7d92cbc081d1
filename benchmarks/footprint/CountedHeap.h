#pragma once

#include <cstddef>

// The C library's allocator, counted, for the program and every library in it. A block costs what
// it can hold, and the word in front of it.
extern std::size_t held;  // bytes
extern std::size_t peak;  // the most since it was last set
