#include "program/InputLines.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace {

constexpr std::size_t kBlock = 1 << 16;
constexpr std::size_t kLongestLine = 1 << 20;

Failure InLine(std::size_t number, const Message& what) {
  return Failure("line " + std::to_string(number) + " of standard input: " + what);
}

}  // namespace

bool InputLines::Next(std::string_view& line) {
  while (!HasNext() && Read()) {
  }
  if (begin == end) {
    return false;
  }
  ++number;
  line = std::string_view(buffer).substr(begin, lineEnd - begin);
  begin = std::min(lineEnd + 1, end);
  FindLineEnd(begin);
  return true;
}

Failure InputLines::Here(const Failure& failure) const { return InLine(number, failure.Told()); }

bool InputLines::Read() {
  if (atEnd) {
    return false;
  }
  MakeRoom();
  ssize_t count = -1;
  do {
    count = read(STDIN_FILENO, &buffer[end], buffer.size() - end);
  } while (count < 0 && errno == EINTR);
  if (count < 0) {
    throw Failure("cannot read standard input");
  }
  atEnd = count == 0;
  const std::size_t unread = end;
  end += static_cast<std::size_t>(count);
  FindLineEnd(unread);
  return !atEnd;
}

void InputLines::MakeRoom() {
  buffer.erase(0, begin);
  end -= begin;
  begin = 0;
  if (end > kLongestLine) {
    throw InLine(number + 1, "longer than 1 MiB");
  }
  buffer.resize(end < kBlock / 2 ? kBlock : std::min(2 * end, kLongestLine + 1));
}

void InputLines::FindLineEnd(std::size_t from) {
  lineEnd = std::min(std::string_view(buffer).substr(0, end).find('\n', from), end);
}

void ForEachInputLine(const std::function<void(const std::string&)>& take) {
  InputLines input;
  for (std::string_view line; input.Next(line);) {
    try {
      take(std::string(line));
    } catch (const Failure& failure) {
      throw input.Here(failure);
    }
  }
}
