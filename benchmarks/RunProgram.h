#pragma once

#include <cstdio>
#include <exception>

namespace bench {

/// What `run` returns for the arguments of the program `name`; 1, with a line on standard error,
/// where it throws.
inline int RunProgram(const char* name, int (*run)(int, char**), int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", name, error.what());
    return 1;
  }
}

}  // namespace bench
