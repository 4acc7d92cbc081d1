#include "check/Findings.h"

#include <algorithm>
#include <tuple>

namespace check {

namespace {

auto KeyOf(const Finding& finding) {
  return std::tie(finding.place.file, finding.place.line, finding.place.column, finding.rule,
                  finding.text);
}

}  // namespace

std::string ToString(const Place& place) {
  return place.file + ':' + std::to_string(place.line) + ':' + std::to_string(place.column);
}

void Findings::Add(const Place& place, Rule rule, const std::string& text, const Subject& subject) {
  findings.push_back({place, rule, text, subject});
}

std::vector<Finding> Findings::Sorted() const {
  std::vector<Finding> sorted = findings;
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const Finding& a, const Finding& b) { return KeyOf(a) < KeyOf(b); });
  const auto same = [](const Finding& a, const Finding& b) { return KeyOf(a) == KeyOf(b); };
  sorted.erase(std::unique(sorted.begin(), sorted.end(), same), sorted.end());
  return sorted;
}

std::size_t Count(const std::vector<Finding>& findings, Severity severity) {
  return static_cast<std::size_t>(std::count_if(
      findings.begin(), findings.end(),
      [severity](const Finding& finding) { return EntryOf(finding.rule).severity == severity; }));
}

}  // namespace check
