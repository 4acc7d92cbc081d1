#include "report/ProgressLine.h"

namespace report {

namespace {

constexpr char kClearLine[] = "\r\x1B[K";

}  // namespace

ProgressLine::ProgressLine(const check::Progress& progress, std::ostream& stream,
                           std::chrono::microseconds delay)
    : progress(progress), stream(stream), printer(&ProgressLine::Run, this, delay) {}

ProgressLine::~ProgressLine() {
  {
    const std::lock_guard<std::mutex> lock(mutex);
    end = true;
  }
  ended.notify_one();
  printer.join();
}

void ProgressLine::Run(std::chrono::microseconds delay) {
  std::unique_lock<std::mutex> lock(mutex);
  auto pause = delay;
  bool printed = false;
  while (!ended.wait_for(lock, pause, [this] { return end; })) {
    Print();
    printed = true;
    pause = delay / 5;
  }
  if (printed) {
    stream << kClearLine << std::flush;
  }
}

void ProgressLine::Print() {
  const check::Progress::State now = progress.Now();
  stream << kClearLine << now.task;
  if (now.total != 0) {
    stream << ' ' << 100 * now.done / now.total << " %";
  }
  stream << std::flush;
}

}  // namespace report
