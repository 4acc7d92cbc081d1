#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <ostream>
#include <thread>

#include "check/Progress.h"

namespace report {

/// A line on a terminal that says how far `progress` is: written when `delay` has passed since its
/// construction, again after each fifth of that, and taken away at its end. Nothing else may write
/// to `stream` meanwhile.
class ProgressLine {
 public:
  ProgressLine(const check::Progress& progress, std::ostream& stream,
               std::chrono::microseconds delay);
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine();

 private:
  void Run(std::chrono::microseconds delay);
  void Print();

  const check::Progress& progress;
  std::ostream& stream;
  std::mutex mutex;
  std::condition_variable ended;
  bool end = false;
  std::thread printer;
};

}  // namespace report
