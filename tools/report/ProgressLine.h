#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

#include "check/Progress.h"

namespace report {

/// A line on a terminal that says how far something is: written when `delay` has passed since
/// its construction, again after each fifth of that, and taken away at its end. Nothing else may
/// write to `stream` meanwhile, except by `Interrupt`.
class ProgressLine {
 public:
  /// Shows what `text`, called by a thread of the line's own, says.
  ProgressLine(std::function<std::string()> text, std::ostream& stream,
               std::chrono::microseconds delay);

  /// Shows how far `progress` is.
  ProgressLine(const check::Progress& progress, std::ostream& stream,
               std::chrono::microseconds delay);
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine();

  /// Takes the line away while `write` writes to the stream.
  void Interrupt(const std::function<void()>& write);

 private:
  void Run(std::chrono::microseconds delay);
  void Print();
  void Clear();

  const std::function<std::string()> text;
  std::ostream& stream;
  std::mutex mutex;
  std::condition_variable ended;
  bool end = false;
  bool printed = false;
  std::thread printer;
};

}  // namespace report
