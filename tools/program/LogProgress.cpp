#include "program/LogProgress.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>

namespace {

namespace fs = std::filesystem;

constexpr double kMegabyte = 1e6;

// 0 where one of them has no size: standard input, a pipe.
std::uint64_t SizeOf(const std::vector<std::string>& files) {
  std::uint64_t total = 0;
  for (const std::string& file : files) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (file == "-" || fs::is_fifo(status)) {
      return 0;
    }
    const std::uint64_t size = fs::file_size(file, error);
    total += error ? 0 : size;
  }
  return total;
}

}  // namespace

LogProgress::LogProgress(const std::vector<std::string>& files, bool shown) : total(SizeOf(files)) {
  if (shown) {
    line.emplace([this] { return Describe(); }, std::cerr, std::chrono::seconds(1));
  }
}

void LogProgress::Interrupt(const std::function<void()>& write) {
  if (line) {
    line->Interrupt(write);
  } else {
    write();
  }
}

std::string LogProgress::Describe() const {
  const double done = static_cast<double>(bytesRead);
  const double rate = done / std::chrono::duration<double>(Clock::now() - begin).count();
  char text[128];
  if (total == 0 || done == 0) {
    std::snprintf(text, sizeof(text), "converting, %.0f MB, %.1f MB/s", done / kMegabyte,
                  rate / kMegabyte);
  } else {
    const double all = std::max(static_cast<double>(total), done);
    std::snprintf(text, sizeof(text), "converting %.0f %%, %.1f MB/s, %.0f s left",
                  100 * done / all, rate / kMegabyte, (all - done) / rate);
  }
  return text;
}
