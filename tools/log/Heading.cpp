#include "log/Heading.h"

#include "text/WithoutBlanks.h"

namespace logs {

namespace {

constexpr char kBlanks[] = " \t";
constexpr std::size_t kLongestUnit = 256;

char Opening(char closing) { return closing == ']' ? '[' : closing == ')' ? '(' : '\0'; }

}  // namespace

Heading::Heading(const std::string& text, const std::function<bool(const std::string&)>& isUnit)
    : text(text), bare(WithoutBlanks(text, kBlanks)) {
  FindUnit(isUnit);
}

bool Heading::Take(std::size_t first, std::size_t last,
                   const std::function<bool(const std::string&)>& isUnit) {
  const std::string unit(
      WithoutBlanks(std::string_view(text).substr(first, last - first), kBlanks));
  if (unit.empty() || !isUnit(unit)) {
    return false;
  }
  begin = text.find(unit, first);
  length = unit.size();
  return true;
}

void Heading::FindUnit(const std::function<bool(const std::string&)>& isUnit) {
  if (bare.empty() || (bare.size() < kLongestUnit && Take(0, text.size(), isUnit))) {
    return;
  }
  const std::size_t last = text.find_last_not_of(kBlanks);
  const char opening = Opening(text[last]);
  if (opening == '\0') {
    return;
  }
  std::size_t at = text.find(opening, last > kLongestUnit ? last - kLongestUnit : 0);
  while (at != std::string::npos && !Take(at + 1, last, isUnit)) {
    at = text.find(opening, at + 1);
  }
  at = at == std::string::npos ? text.rfind(opening) : at;
  if (at != std::string::npos) {
    bare = WithoutBlanks(std::string_view(text).substr(0, at), kBlanks);
    inBrackets = WithoutBlanks(std::string_view(text).substr(at + 1, last - at - 1), kBlanks);
  }
}

std::string Heading::With(const std::string& unit) const {
  return length == 0 ? text + " [" + unit + ']'
                     : text.substr(0, begin) + unit + text.substr(begin + length);
}

}  // namespace logs
