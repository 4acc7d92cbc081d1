#include "check/FindConflicts.h"

#include <string_view>

namespace check {

namespace {

constexpr std::size_t kMarkSize = 7;

// The character of the mark that the line at `at` begins with, else NUL.
char MarkAt(std::string_view text, std::size_t at) {
  const char c = text[at];
  const bool known = c == '<' || c == '=' || c == '>';
  if (!known || text.compare(at, kMarkSize, std::string(kMarkSize, c)) != 0) {
    return '\0';
  }
  const char next = at + kMarkSize < text.size() ? text[at + kMarkSize] : '\n';
  return next == '\n' || next == '\r' || (next == ' ' && c != '=') ? c : '\0';
}

std::size_t Behind(std::string_view text, std::size_t at, std::string_view end) {
  const std::size_t found = text.find(end, at);
  return found == std::string_view::npos ? text.size() : found + end.size();
}

// The next line or "<" behind `at`.
std::size_t NextStop(std::string_view text, std::size_t at) {
  const std::size_t found = text.find_first_of("<\r\n", text[at] == '<' ? at + 1 : at);
  if (found == std::string_view::npos) {
    return text.size();
  }
  return text[found] == '<' ? found : found + 1;
}

}  // namespace

std::vector<std::size_t> FindConflicts(const std::string& text) {
  std::vector<std::size_t> conflicts;
  bool open = false;
  std::size_t at = 0;
  while (at < text.size()) {
    const bool lineStart = at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r';
    const char mark = lineStart ? MarkAt(text, at) : '\0';
    if (mark == '<' || (mark != '\0' && !open)) {
      conflicts.push_back(at);
    }
    open = mark == '\0' ? open : mark != '>';
    if (text.compare(at, 4, "<!--") == 0) {
      at = Behind(text, at, "-->");
    } else if (text.compare(at, 9, "<![CDATA[") == 0) {
      at = Behind(text, at, "]]>");
    } else {
      at = NextStop(text, at);
    }
  }
  return conflicts;
}

}  // namespace check
