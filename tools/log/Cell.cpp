#include "log/Cell.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "text/WithoutBlanks.h"

namespace logs {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::optional<double> Parse(std::string_view text) {
  if (text.front() == '+' && text.size() > 1 && text[1] != '-') {
    text.remove_prefix(1);
  }
  double value = 0;
  const auto [stop, status] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool all = status == std::errc() && stop == text.data() + text.size();
  return all && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> ParseWithComma(std::string_view text) {
  char copy[128];
  if (text.size() > std::size(copy) || text.find('.') != std::string_view::npos) {
    return std::nullopt;
  }
  std::replace_copy(text.begin(), text.end(), copy, ',', '.');
  return Parse({copy, text.size()});
}

}  // namespace

std::optional<Number> ReadNumber(std::string_view cell, char decimal) {
  std::string_view place = WithoutBlanks(cell, kBlanks);
  if (place.size() > 1 && place.front() == '"' && place.back() == '"' && cell.front() == '"') {
    place = WithoutBlanks(place.substr(1, place.size() - 2), kBlanks);
  }
  if (place.empty()) {
    return std::nullopt;
  }
  const auto value = decimal == ',' ? ParseWithComma(place) : Parse(place);
  return value ? std::optional(Number{*value, place}) : std::nullopt;
}

bool IsText(std::string_view cell) {
  return std::none_of(cell.begin(), cell.end(), [](char c) { return '0' <= c && c <= '9'; });
}

}  // namespace logs
