#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program as a crash, which the fuzzer keeps the input of, unless `holds`.
inline void Require(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "violated: %s\n", what);
    std::abort();
  }
}
