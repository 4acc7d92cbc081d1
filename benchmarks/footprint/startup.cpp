// startup LIBRARY: loads and unloads the library many times and prints the shortest time that one
// load takes, in microseconds, and the bytes of heap that are held while it is loaded.
#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "CountedHeap.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    return 2;
  }
  double shortest = 1e9;
  std::size_t loaded = 0;
  for (int i = 0; i < 300; ++i) {
    const std::size_t before = held;
    const auto start = std::chrono::steady_clock::now();
    void* library = dlopen(argv[1], RTLD_LAZY);
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
    if (library == nullptr) {
      std::fprintf(stderr, "%s\n", dlerror());
      return 1;
    }
    shortest = std::min(shortest, time.count());
    loaded = held - before;
    dlclose(library);
  }
  std::printf("%.1f %zu\n", shortest, loaded);
}
