#include "log/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "text/Failure.h"

namespace logs {

namespace {

constexpr int kSignals[] = {SIGHUP, SIGINT, SIGTERM};

// The file that is being written, for signals to remove; it counts while `isUnfinished` says so.
char unfinished[PATH_MAX];
volatile std::sig_atomic_t isUnfinished = 0;

extern "C" void RemoveAndEnd(int signal) {
  if (isUnfinished != 0) {
    unlink(unfinished);
  }
  std::signal(signal, SIG_DFL);
  raise(signal);
}

// Where `path` leads to, through symbolic links.
std::string Resolved(const std::string& path) {
  char* const real = realpath(path.c_str(), nullptr);
  std::string resolved = real == nullptr ? path : real;
  std::free(real);
  return resolved;
}

// Gives `file` the permissions of the one at `path` that it is to replace, if there is one.
void KeepMode(int file, const std::string& path) {
  struct stat present {};
  if (stat(path.c_str(), &present) == 0) {
    fchmod(file, present.st_mode & 07777);
  }
}

bool IsNoRegularFile(const std::string& path) {
  struct stat present {};
  return stat(path.c_str(), &present) == 0 && !S_ISREG(present.st_mode);
}

}  // namespace

OutputFile::OutputFile(const std::string& path) : path(path) {
  if (path == "-") {
    file = STDOUT_FILENO;
  } else if (IsNoRegularFile(path)) {
    file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  } else {
    OpenBeside();
  }
  if (file < 0) {
    Fail();
  }
}

void OutputFile::OpenBeside() {
  path = Resolved(path);
  if (access(path.c_str(), F_OK) == 0 && access(path.c_str(), W_OK) != 0) {
    return;
  }
  const std::string name = path + '.' + std::to_string(getpid()) + ".part";
  if (name.size() >= sizeof(unfinished)) {
    errno = ENAMETOOLONG;
    return;
  }
  std::memcpy(unfinished, name.c_str(), name.size() + 1);
  isUnfinished = 1;  // before there is one: a signal may come at any time
  file = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (file < 0) {
    isUnfinished = 0;
    return;
  }
  beside = name;
  KeepMode(file, path);
}

OutputFile::~OutputFile() {
  if (file > STDOUT_FILENO) {
    close(file);
  }
  if (!beside.empty()) {
    unlink(beside.c_str());
    isUnfinished = 0;
  }
}

void OutputFile::Fail() const {
  const std::string reason = std::strerror(errno);
  throw Failure("cannot write to " + (path == "-" ? "standard output" : Message::Verbatim(path)) +
                (path == "-" ? "" : ": " + reason));
}

void OutputFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) {
      Fail();
    }
    bytes.remove_prefix(static_cast<std::size_t>(written < 0 ? 0 : written));
  }
}

void OutputFile::Finish() {
  if (file == STDOUT_FILENO) {
    return;
  }
  const int finished = file;
  file = -1;
  if (close(finished) != 0) {
    Fail();
  }
  if (beside.empty()) {
    return;
  }
  if (rename(beside.c_str(), path.c_str()) != 0) {
    Fail();
  }
  beside.clear();
  isUnfinished = 0;
}

void RemoveUnfinishedOnSignals() {
  for (const int each : kSignals) {
    struct sigaction before {};
    sigaction(each, nullptr, &before);
    if (before.sa_handler != SIG_IGN) {
      std::signal(each, RemoveAndEnd);
    }
  }
}

}  // namespace logs
