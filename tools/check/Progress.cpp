#include "check/Progress.h"

namespace check {

void Progress::Begin(const char* newTask, std::size_t newTotal) {
  const std::lock_guard<std::mutex> lock(mutex);
  task = newTask;
  total = newTotal;
  done = 0;
}

Progress::State Progress::Now() const {
  const std::lock_guard<std::mutex> lock(mutex);
  return {task, done, total};
}

}  // namespace check
