#include "program/CheckFolder.h"

#include <unistd.h>

#include <chrono>
#include <iostream>

#include "check/Check.h"
#include "report/ProgressLine.h"

CheckedFolder CheckFolder(const std::string& folder, const std::optional<std::string>& base,
                          const std::optional<std::string>& samples,
                          const std::vector<check::Allowed>& allowed) {
  check::Progress progress;
  std::optional<report::ProgressLine> line;
  if (isatty(STDERR_FILENO) != 0) {
    line.emplace(progress, std::cerr, std::chrono::seconds(1));
  }
  CheckedFolder checked{model::ReadModel(folder, base, samples), {}};
  checked.findings = check::Check(checked.model, allowed, progress);
  return checked;
}
