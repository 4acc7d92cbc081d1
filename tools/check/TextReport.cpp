#include "check/Reports.h"

namespace check {

namespace {

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

}  // namespace

void WriteText(std::ostream& stream, const Checker& checker, const Charset& terminal) {
  const auto& findings = checker.GetFindings();
  for (const Finding& finding : findings) {
    const RuleEntry& rule = EntryOf(finding.rule);
    stream << ToString(finding.place) << ": " << NameOf(rule.severity) << ": "
           << terminal.FromLatin1(finding.text) << " [" << rule.name << "]\n";
  }
  stream << Counted(Count(findings, Severity::kError), "error") << " and "
         << Counted(Count(findings, Severity::kWarning), "warning") << " in "
         << Counted(checker.FileCount(), "file") << '\n';
}

}  // namespace check
