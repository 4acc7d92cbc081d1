#include "report/ProgressLine.h"

#include <utility>

namespace report {

namespace {

constexpr char kClearLine[] = "\r\x1B[K";

std::string Describe(const check::Progress::State& now) {
  const std::string task = now.task;
  return now.total == 0 ? task : task + ' ' + std::to_string(100 * now.done / now.total) + " %";
}

}  // namespace

ProgressLine::ProgressLine(std::function<std::string()> text, std::ostream& stream,
                           std::chrono::microseconds delay)
    : text(std::move(text)), stream(stream), printer(&ProgressLine::Run, this, delay) {}

ProgressLine::ProgressLine(const check::Progress& progress, std::ostream& stream,
                           std::chrono::microseconds delay)
    : ProgressLine([&progress] { return Describe(progress.Now()); }, stream, delay) {}

ProgressLine::~ProgressLine() {
  {
    const std::lock_guard<std::mutex> lock(mutex);
    end = true;
  }
  ended.notify_one();
  printer.join();
}

void ProgressLine::Interrupt(const std::function<void()>& write) {
  const std::lock_guard<std::mutex> lock(mutex);
  Clear();
  write();
}

void ProgressLine::Run(std::chrono::microseconds delay) {
  std::unique_lock<std::mutex> lock(mutex);
  auto pause = delay;
  while (!ended.wait_for(lock, pause, [this] { return end; })) {
    Print();
    pause = delay / 5;
  }
  Clear();
}

void ProgressLine::Print() {
  stream << kClearLine << text() << std::flush;
  printed = true;
}

void ProgressLine::Clear() {
  if (printed) {
    stream << kClearLine << std::flush;
    printed = false;
  }
}

}  // namespace report
