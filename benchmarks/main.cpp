#include <benchmark/benchmark.h>
#include <malloc.h>

#include <limits>
#include <thread>

#include "Benchmarks.h"

namespace {

// As in a host that has run for a while: the heap keeps the memory that it has (else every round of
// a load would pay the system for it again), and shared references are counted as among threads.
void SettleDown() {
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_MMAP_MAX, 0);
  std::thread([] {}).join();
}

}  // namespace

int main(int argc, char** argv) {
  SettleDown();
  bench::RegisterConversions();
  bench::RegisterThreads();
  bench::RegisterKept();
  bench::RegisterPeers();
  bench::RegisterLoads();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  benchmark::RunSpecifiedBenchmarks();
}
