#include "check/Findings.h"

#include <algorithm>
#include <functional>
#include <tuple>

#include "check/Rules.h"

namespace check {

namespace {

auto KeyOf(const Finding& finding) {
  return std::make_tuple(std::cref(finding.place.file), finding.place.line, finding.place.column,
                         IndexOf(*finding.rule), std::cref(finding.text));
}

bool ComesBefore(const Finding& a, const Finding& b) { return KeyOf(a) < KeyOf(b); }

bool IsSame(const Finding& a, const Finding& b) { return KeyOf(a) == KeyOf(b); }

}  // namespace

void Findings::Add(const Place& place, const Rule& rule, const Message& text,
                   const Subject& subject) {
  findings.push_back({place, &rule, text, subject});
}

std::vector<Finding> Findings::Sorted() const {
  std::vector<Finding> sorted = findings;
  std::stable_sort(sorted.begin(), sorted.end(), ComesBefore);
  sorted.erase(std::unique(sorted.begin(), sorted.end(), IsSame), sorted.end());
  return sorted;
}

std::size_t Count(const std::vector<Finding>& findings, Severity severity) {
  return static_cast<std::size_t>(std::count_if(
      findings.begin(), findings.end(),
      [severity](const Finding& finding) { return finding.rule->severity == severity; }));
}

}  // namespace check
