#include "log/Jobs.h"

#include <utility>

namespace logs {

Workers::Workers(std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    threads.emplace_back(&Workers::Run, this);
  }
}

Workers::~Workers() {
  {
    const std::lock_guard<std::mutex> lock(mutex);
    end = true;
  }
  changed.notify_all();
  for (std::thread& thread : threads) {
    thread.join();
  }
}

void Workers::Start(std::function<void()> task) {
  {
    const std::lock_guard<std::mutex> lock(mutex);
    tasks.push_back(std::move(task));
  }
  changed.notify_one();
}

void Workers::Run() {
  std::unique_lock<std::mutex> lock(mutex);
  for (;;) {
    changed.wait(lock, [this] { return end || !tasks.empty(); });
    if (tasks.empty()) {
      return;
    }
    const std::function<void()> task = std::move(tasks.front());
    tasks.pop_front();
    lock.unlock();
    task();
    lock.lock();
  }
}

}  // namespace logs
