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

bool Findings::Has(const Predicate& isMeant) const {
  return std::any_of(findings.begin(), findings.end(), isMeant);
}

void Findings::HoldBack(const Predicate& isMeant) {
  for (Finding& finding : findings) {
    finding.follows = finding.follows || isMeant(finding);
  }
}

bool Findings::Accept(const Predicate& isMeant, const Acceptance& acceptance) {
  bool any = false;
  for (Finding& finding : findings) {
    if (isMeant(finding)) {
      any = true;
      finding.accepted = acceptance;
    }
  }
  return any;
}

void Findings::Sort() {
  std::stable_sort(findings.begin(), findings.end(), ComesBefore);
  findings.erase(std::unique(findings.begin(), findings.end(), IsSame), findings.end());
}

std::size_t Count(const std::vector<Finding>& findings, Severity severity) {
  return static_cast<std::size_t>(
      std::count_if(findings.begin(), findings.end(), [severity](const Finding& finding) {
        return finding.IsOpen() && finding.rule->severity == severity;
      }));
}

}  // namespace check
