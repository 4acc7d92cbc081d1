#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace logs {

/// Threads that do what is handed to them, in any order.
class Workers {
 public:
  explicit Workers(std::size_t count);
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  /// Waits until all is done.
  ~Workers();

  void Start(std::function<void()> task);

 private:
  void Run();

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::function<void()>> tasks;
  bool end = false;
  std::vector<std::thread> threads;
};

/// A piece of work and whether it is done.
template <typename Item>
class Job {
 public:
  explicit Job(std::unique_ptr<Item> item) : item(std::move(item)) {}

  void Begin() { done = false; }
  void Do(const std::function<void(Item&)>& work) {
    try {
      work(*item);
    } catch (...) {
      failure = std::current_exception();
    }
    const std::lock_guard<std::mutex> lock(mutex);
    done = true;
    changed.notify_one();
  }

  /// Waits until it is done, and throws what the work has thrown.
  Item& Await() {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return done; });
    if (failure) {
      std::rethrow_exception(failure);
    }
    return *item;
  }

  Item& Get() { return *item; }

 private:
  std::unique_ptr<Item> item;
  std::mutex mutex;
  std::condition_variable changed;
  bool done = false;
  std::exception_ptr failure;
};

/// Reads items, works on them by `jobs` threads and writes them in the order in which they were
/// read, until `read` or `write` returns false. Reading and writing are done by this thread; with
/// one job, all is. Holds two items more than jobs, each made by `make` and used again.
template <typename Item>
void RunInOrder(std::size_t jobs, const std::function<std::unique_ptr<Item>()>& make,
                const std::function<bool(Item&)>& read, const std::function<void(Item&)>& work,
                const std::function<bool(Item&)>& write) {
  if (jobs < 2) {
    const std::unique_ptr<Item> item = make();
    while (read(*item)) {
      work(*item);
      if (!write(*item)) {
        return;
      }
    }
    return;
  }
  std::deque<std::unique_ptr<Job<Item>>> idle;
  for (std::size_t i = 0; i < jobs + 2; ++i) {
    idle.push_back(std::make_unique<Job<Item>>(make()));
  }
  std::deque<std::unique_ptr<Job<Item>>> busy;
  Workers workers(jobs);  // the last, so that its threads end first
  const auto writeOldest = [&] {
    const bool goOn = write(busy.front()->Await());
    idle.push_back(std::move(busy.front()));
    busy.pop_front();
    return goOn;
  };
  while (read(idle.front()->Get())) {
    Job<Item>* const job = idle.front().get();
    busy.push_back(std::move(idle.front()));
    idle.pop_front();
    job->Begin();
    workers.Start([job, &work] { job->Do(work); });
    if (idle.empty() && !writeOldest()) {
      return;
    }
  }
  while (!busy.empty() && writeOldest()) {
  }
}

}  // namespace logs
