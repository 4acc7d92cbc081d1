#include "log/Heading.h"

namespace logs {

namespace {

constexpr char kBlanks[] = " \t";
constexpr std::size_t kLongestUnit = 256;

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  return first == std::string::npos
             ? std::string()
             : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

char Opening(char closing) { return closing == ']' ? '[' : closing == ')' ? '(' : '\0'; }

}  // namespace

Heading::Heading(const std::string& text, const std::function<bool(const std::string&)>& isUnit)
    : text(text), bare(Trimmed(text)) {
  FindUnit(isUnit);
}

bool Heading::Take(std::size_t first, std::size_t last,
                   const std::function<bool(const std::string&)>& isUnit) {
  const std::string unit = Trimmed(text.substr(first, last - first));
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
    bare = Trimmed(text.substr(0, at));
    inBrackets = Trimmed(text.substr(at + 1, last - at - 1));
  }
}

std::string Heading::With(const std::string& unit) const {
  return length == 0 ? text + " [" + unit + ']'
                     : text.substr(0, begin) + unit + text.substr(begin + length);
}

}  // namespace logs
