#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>

namespace check {

/// What is being done and how far it is: told by the thread that does it, read by any.
class Progress {
 public:
  struct State {
    const char* task;
    std::size_t done;
    std::size_t total;  // 0 where that is not known
  };

  /// Begins a task of `total` steps; 0 where that is not known. `task` must stay.
  void Begin(const char* task, std::size_t total);
  void Step() { done.fetch_add(1, std::memory_order_relaxed); }

  State Now() const;

 private:
  mutable std::mutex mutex;
  const char* task = "reading the data";
  std::size_t total = 0;
  std::atomic<std::size_t> done{0};
};

}  // namespace check
