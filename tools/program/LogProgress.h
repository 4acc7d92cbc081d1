#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "report/ProgressLine.h"

/// How far the conversion of logs is, on a terminal.
class LogProgress {
 public:
  /// Shows it if `shown`, once it takes longer than a second.
  LogProgress(const std::vector<std::string>& files, bool shown);

  /// Where to count the bytes that are read.
  std::atomic<std::uint64_t>& BytesRead() { return bytesRead; }

  /// Lets `write` write to standard error.
  void Interrupt(const std::function<void()>& write);

 private:
  using Clock = std::chrono::steady_clock;

  std::string Describe() const;

  std::atomic<std::uint64_t> bytesRead{0};
  std::uint64_t total;  // 0 where it is not known
  const Clock::time_point begin = Clock::now();
  std::optional<report::ProgressLine> line;  // the last: it reads the others
};
