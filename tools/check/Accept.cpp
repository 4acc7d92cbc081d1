#include "check/Accept.h"

#include "check/Rules.h"
#include "model/Allowances.h"
#include "text/Failure.h"

namespace check {

namespace {

void AcceptInFile(const model::File& file, Findings& findings) {
  for (const model::Allowance& allowance : model::ReadAllowances(file)) {
    for (const std::string& name : allowance.rules) {
      const Rule* rule = FindRule(name);
      const auto isMeant = [&](const Finding& finding) {
        return finding.rule == rule && allowance.HoldsAt(finding.place);
      };
      if (rule == nullptr) {
        findings.Add(allowance.place, kUnusedAllowance, DescribeUnknownRule(name));
      } else if (!findings.Accept(isMeant, {Acceptance::Kind::kInSource, allowance.why})) {
        findings.Add(allowance.place, kUnusedAllowance, name + " is not found here");
      }
    }
  }
}

bool IsAbout(const Finding& finding, const std::string& unit) {
  return unit.empty() || finding.subject.from == unit || finding.subject.to == unit;
}

}  // namespace

void Accept(const model::Model& model, const std::vector<Allowed>& allowed, Findings& findings) {
  AcceptInFile(*model.conversionFile, findings);
  for (const auto& [path, file] : model.associationFiles) {
    AcceptInFile(*file, findings);
  }
  for (const Allowed& each : allowed) {
    const Rule* rule = FindRule(each.rule);
    if (rule == nullptr) {
      throw Failure(DescribeUnknownRule(each.rule));
    }
    const auto isMeant = [&](const Finding& finding) {
      return finding.rule == rule && IsAbout(finding, each.unit);
    };
    if (!findings.Accept(isMeant, {Acceptance::Kind::kExternal, ""})) {
      findings.Add(
          {model.folder}, kUnusedAllowance,
          "--allow " + each.rule + (each.unit.empty() ? "" : ':' + each.unit) + " accepts nothing");
    }
  }
}

}  // namespace check
