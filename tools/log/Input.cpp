#include "log/Input.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "log/Rows.h"
#include "text/Failure.h"

namespace logs {

namespace {

constexpr std::size_t kBlock = std::size_t{128} * 1024;
constexpr std::size_t kLongestRow = std::size_t{8} * 1024 * 1024;
constexpr std::size_t kLongestBeginning = std::size_t{64} * 1024;
constexpr std::ptrdiff_t kFirstLines = 64;

std::string Reason() { return std::strerror(errno); }

bool HoldsLines(const std::string& text, std::ptrdiff_t lines) {
  return std::count(text.begin(), text.end(), '\n') >= lines;
}

}  // namespace

Input::Input(const std::string& path, std::atomic<std::uint64_t>& bytesRead)
    : path(path),
      bytesRead(bytesRead),
      file(path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (file < 0) {
    throw Failure("cannot read " + Name() + ": " + Reason());
  }
}

Input::~Input() {
  if (file != STDIN_FILENO) {
    close(file);
  }
}

Message Input::Name() const { return path == "-" ? "standard input" : Message::Verbatim(path); }

bool Input::Read() {
  if (atEnd) {
    return false;
  }
  const std::size_t before = left.size();
  left.resize(before + kBlock);
  ssize_t count = 0;
  do {
    count = read(file, left.data() + before, kBlock);
  } while (count < 0 && errno == EINTR);
  left.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  if (count < 0) {
    throw Failure("cannot read " + Name() + ": " + Reason());
  }
  bytesRead += static_cast<std::uint64_t>(count);
  atEnd = count == 0;
  return !atEnd;
}

std::string_view Input::Beginning(std::size_t preamble) {
  const auto lines = static_cast<std::ptrdiff_t>(preamble) + kFirstLines;
  const std::size_t most = preamble == 0 ? kLongestBeginning : kLongestRow;
  while (left.size() < most && !HoldsLines(left, lines) && Read()) {
  }
  std::size_t length = 0;
  for (std::ptrdiff_t line = 0; line < lines && length < left.size(); ++line) {
    length = std::min(left.find('\n', length), left.size() - 1) + 1;
  }
  const std::string_view beginning = std::string_view(left).substr(0, std::min(length, most));
  const std::size_t last = beginning.rfind('\n');
  const bool isCut = length > beginning.size() && last != std::string_view::npos;
  return isCut ? beginning.substr(0, last + 1) : beginning;
}

std::string Input::TakeBytes(std::size_t count) {
  std::string taken = left.substr(0, count);
  left.erase(0, count);
  return taken;
}

void Input::CheckRow() const {
  if (left.size() > kLongestRow) {
    throw Failure(Name() + ": a row is longer than 8 MiB; is a quote not closed?");
  }
}

std::string Input::TakeRow(const Dialect& dialect) {
  for (;;) {
    const char* const begin = left.data();
    const char* const stop = EndOfRow(begin, begin + left.size(), dialect);
    if (stop != nullptr) {
      return TakeBytes(static_cast<std::size_t>(stop - begin));
    }
    CheckRow();
    if (!Read()) {
      return TakeBytes(left.size());
    }
  }
}

bool Input::NextRows(const Dialect& dialect, std::string& rows) {
  for (;;) {
    if (const std::size_t whole = WholeRows(left, dialect)) {
      rows.assign(left, 0, whole);
      left.erase(0, whole);
      return true;
    }
    CheckRow();
    if (!Read()) {
      rows.swap(left);
      left.clear();
      return !rows.empty();
    }
  }
}

}  // namespace logs
