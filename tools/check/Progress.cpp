#include "check/Progress.h"

#include <unistd.h>

#include <chrono>
#include <iostream>

namespace check {

namespace {

constexpr char kClearLine[] = "\r\x1B[K";

}  // namespace

Progress::Progress() {
  if (isatty(STDERR_FILENO) != 0) {
    printer = std::thread(&Progress::Run, this);
  }
}

Progress::~Progress() { End(); }

void Progress::End() {
  {
    const std::lock_guard<std::mutex> lock(mutex);
    end = true;
  }
  ended.notify_one();
  if (printer.joinable()) {
    printer.join();
  }
}

void Progress::Begin(const char* newTask, std::size_t newTotal) {
  task = newTask;
  done = 0;
  total = newTotal;
}

void Progress::Run() {
  std::unique_lock<std::mutex> lock(mutex);
  auto pause = std::chrono::milliseconds(1000);
  bool printed = false;
  while (!ended.wait_for(lock, pause, [this] { return end; })) {
    Print();
    printed = true;
    pause = std::chrono::milliseconds(200);
  }
  if (printed) {
    std::cerr << kClearLine << std::flush;
  }
}

void Progress::Print() const {
  std::cerr << kClearLine << task;
  if (const std::size_t all = total) {
    std::cerr << ' ' << 100 * done / all << " %";
  }
  std::cerr << std::flush;
}

}  // namespace check
