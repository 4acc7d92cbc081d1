#include "program/CheckCommand.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "check/Check.h"
#include "program/CheckFolder.h"
#include "program/ExplainRule.h"
#include "program/InstalledPath.h"
#include "program/TellException.h"
#include "report/Reports.h"
#include "text/Charset.h"
#include "text/Failure.h"

namespace {

constexpr int kFindings = 1;
constexpr int kCouldNotRun = 2;

std::vector<check::Allowed> Allowed(const CheckOptions& options, const Charset& terminal) {
  std::vector<check::Allowed> allowed;
  for (const std::string& word : options.allowed) {
    const std::size_t colon = word.find(':');
    const std::string unit = colon == std::string::npos ? "" : word.substr(colon + 1);
    allowed.push_back({word.substr(0, colon), terminal.ToLatin1(unit)});
  }
  return allowed;
}

int Run(const CheckOptions& options, const Charset& terminal) {
  const std::string folder = options.data.Path();
  const CheckedFolder checked =
      CheckFolder(folder, options.base, options.samples, Allowed(options, terminal));
  const report::Result result{checked.findings, check::CountFiles(checked.model), options.all};
  if (options.format == "json") {
    report::WriteJson(std::cout, result, InstalledPath(VEHICLE_UNITS_DOCS "/check-rules.md"));
  } else if (options.format == "sarif") {
    report::WriteSarif(std::cout, result);
  } else {
    report::WriteText(std::cout, result, options.data.RealPath(), terminal);
  }
  if (!std::cout.flush()) {
    throw Failure("cannot write to standard output");
  }
  const bool failed = Count(result.findings, check::Severity::kError) > 0 ||
                      (options.strict && Count(result.findings, check::Severity::kWarning) > 0);
  return failed ? kFindings : 0;
}

}  // namespace

int RunCheck(const CheckOptions& options, const Charset& terminal) {
  try {
    if (!options.explain.empty()) {
      ExplainRule(options.explain, terminal);
      return 0;
    }
    return Run(options, terminal);
  } catch (const std::exception&) {
    TellException(terminal);
    return kCouldNotRun;
  }
}
