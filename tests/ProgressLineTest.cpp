#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <regex>
#include <sstream>

#include "report/ProgressLine.h"

namespace {

// What a terminal is sent; read it when nobody writes any more.
class Terminal : public std::stringbuf {
 public:
  // Waits until `count` more lines have been sent.
  void Await(int count) {
    std::unique_lock<std::mutex> lock(mutex);
    const int enough = flushed + count;
    flush.wait(lock, [&] { return flushed >= enough; });
  }

 protected:
  int sync() override {
    const std::lock_guard<std::mutex> lock(mutex);
    ++flushed;
    flush.notify_one();
    return 0;
  }

 private:
  std::mutex mutex;
  std::condition_variable flush;
  int flushed = 0;
};

TEST(ProgressLine, FollowsTheProgressAndIsTakenAway) {
  Terminal terminal;
  std::ostream stream(&terminal);
  check::Progress progress;
  progress.Begin("comparing", 4);
  progress.Step();
  {
    const report::ProgressLine line(progress, stream, std::chrono::milliseconds(1));
    terminal.Await(1);
    progress.Begin("sorting", 0);
    terminal.Await(2);  // the first of them may have been on its way
  }
  const std::regex shown("(\r\x1B\\[Kcomparing 25 %)+(\r\x1B\\[Ksorting)+\r\x1B\\[K");
  EXPECT_TRUE(std::regex_match(terminal.str(), shown)) << terminal.str();
}

TEST(ProgressLine, IsNotWrittenBeforeItsTime) {
  std::ostringstream stream;
  const check::Progress progress;
  { const report::ProgressLine line(progress, stream, std::chrono::hours(1)); }
  EXPECT_EQ(stream.str(), "");
}

}  // namespace
