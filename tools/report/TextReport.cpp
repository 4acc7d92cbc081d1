#include "report/Reports.h"
#include "text/Printable.h"

namespace report {

namespace {

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string Note(const check::Finding& finding, const Charset& terminal) {
  if (finding.accepted) {
    const std::string& why = finding.accepted->why;
    return why.empty() ? " (accepted)" : " (accepted: " + Message(why).For(terminal) + ')';
  }
  return finding.follows ? " (follows)" : "";
}

}  // namespace

void WriteText(std::ostream& stream, const Result& result, const std::string& folder,
               const Charset& terminal) {
  const auto& findings = result.findings;
  std::size_t accepted = 0;
  std::size_t following = 0;
  for (const check::Finding& finding : findings) {
    accepted += finding.accepted ? 1 : 0;
    following += !finding.accepted && finding.follows ? 1 : 0;
    if (!finding.IsOpen() && !result.all) {
      continue;
    }
    const check::Rule& rule = *finding.rule;
    const Message line =
        model::ToMessage(finding.place) + ": " + check::NameOf(rule.severity) + ": " + finding.text;
    stream << line.For(terminal) << " [" << rule.name << "]" << Note(finding, terminal) << '\n';
  }
  stream << Counted(check::Count(findings, check::Severity::kError), "error") << " and "
         << Counted(check::Count(findings, check::Severity::kWarning), "warning") << " in "
         << Counted(result.fileCount, "file") << " of " << PrintableBytes(folder);
  if (accepted > 0) {
    stream << "; " << accepted << " accepted";
  }
  if (following > 0) {
    stream << "; " << following << (following == 1 ? " more follows" : " more follow")
           << " from these";
  }
  if (accepted + following > 0 && !result.all) {
    stream << " (--all tells them)";
  }
  stream << '\n';
}

}  // namespace report
