#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>

namespace check {

/// Says on standard error, if that is a terminal, what is being done and how far it is, from one
/// second after its construction until its end.
class Progress {
 public:
  Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  /// Takes the line away again.
  void End();

  /// Begins a task of `total` steps; 0 where that is not known. `task` must stay.
  void Begin(const char* task, std::size_t total);
  void Step() { done.fetch_add(1, std::memory_order_relaxed); }

 private:
  void Run();
  void Print() const;

  std::atomic<const char*> task{"reading the data"};
  std::atomic<std::size_t> total{0};
  std::atomic<std::size_t> done{0};
  std::mutex mutex;
  std::condition_variable ended;
  bool end = false;
  std::thread printer;
};

}  // namespace check
