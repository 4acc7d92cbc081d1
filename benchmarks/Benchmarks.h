#pragma once

namespace bench {

/// Each registers the benchmarks of one file, named WHAT/WHO/DATA/WHICH.
void RegisterConversions();
void RegisterThreads();
void RegisterKept();
void RegisterPeers();
void RegisterLoads();

}  // namespace bench
