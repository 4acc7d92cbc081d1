#include "text/Numbers.h"

#include <charconv>
#include <cmath>

namespace {

template <typename Number>
std::string Format(Number number) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof(text), number).ptr;
  return std::string(text, end);
}

}  // namespace

std::optional<double> ParseNumber(const std::string& text) {
  constexpr char kBlanks[] = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) {
    return std::nullopt;
  }
  const char* begin = text.data() + first;
  const char* end = text.data() + text.find_last_not_of(kBlanks) + 1;
  if (*begin == '+' && begin + 1 != end && begin[1] != '-') {
    ++begin;
  }
  double number = 0;
  const auto [stop, status] = std::from_chars(begin, end, number);
  if (status != std::errc() || stop != end || !std::isfinite(number)) {
    return std::nullopt;
  }
  return number;
}

std::string FormatNumber(double number) { return Format(number); }

std::string FormatNumber(float number) { return Format(number); }
