#include "report/Reports.h"
#include "text/Printable.h"

namespace report {

namespace {

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

}  // namespace

void WriteText(std::ostream& stream, const Result& result, const std::string& folder,
               const Charset& terminal) {
  const auto& findings = result.findings;
  for (const check::Finding& finding : findings) {
    const check::Rule& rule = *finding.rule;
    const Message line =
        model::ToMessage(finding.place) + ": " + check::NameOf(rule.severity) + ": " + finding.text;
    stream << line.For(terminal) << " [" << rule.name << "]\n";
  }
  stream << Counted(check::Count(findings, check::Severity::kError), "error") << " and "
         << Counted(check::Count(findings, check::Severity::kWarning), "warning") << " in "
         << Counted(result.fileCount, "file") << " of " << PrintableBytes(folder) << '\n';
}

}  // namespace report
