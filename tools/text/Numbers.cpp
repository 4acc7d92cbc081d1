#include "text/Numbers.h"

#include <strings.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>

#include "text/WithoutBlanks.h"

namespace {

constexpr std::size_t kLongestNumber = 336;  // -1.8e308 with 17 decimals

template <typename Number>
void Append(Number number, std::optional<int> decimals, std::string& text) {
  char digits[kLongestNumber];
  char* const end = digits + sizeof(digits);
  const auto result = decimals
                          ? std::to_chars(digits, end, number, std::chars_format::fixed, *decimals)
                          : std::to_chars(digits, end, number);
  text.append(digits, static_cast<std::size_t>(result.ptr - digits));
}

template <typename Number>
std::string Format(Number number) {
  std::string text;
  Append(number, std::nullopt, text);
  return text;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
  text = WithoutBlanks(text);
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
    text.remove_prefix(1);
  }
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, status] = std::from_chars(text.data(), end, number);
  if (status != std::errc() || stop != end || !std::isfinite(number)) {
    return std::nullopt;
  }
  return number;
}

bool IsNoValue(std::string_view text) {
  text = WithoutBlanks(text);
  if (text.size() == 4 && (text.front() == '+' || text.front() == '-')) {
    text.remove_prefix(1);
  }
  return text.empty() || (text.size() == 3 && strncasecmp(text.data(), "nan", 3) == 0);
}

std::string FormatNumber(double number) { return Format(number); }

std::string FormatNumber(float number) { return Format(number); }

std::string FormatNumber(double number, int digits) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.*g", digits, number);
  return text;
}

void AppendNumber(double number, std::optional<int> decimals, std::string& text) {
  Append(number, decimals, text);
}

void AppendNumber(float number, std::optional<int> decimals, std::string& text) {
  Append(number, decimals, text);
}
