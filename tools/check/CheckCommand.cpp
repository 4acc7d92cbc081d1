#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "Charset.h"
#include "Commands.h"
#include "DataFolder.h"
#include "Failure.h"
#include "check/Reports.h"

namespace {

constexpr int kFindings = 1;
constexpr int kCouldNotRun = 2;

struct Options {
  DataFolder data;
  std::optional<std::string> base;
  std::string format = "text";
  bool strict = false;
};

int Run(const Options& options, const Charset& terminal) {
  const std::string folder = options.data.Path();
  const check::Checker checker(folder, options.base);
  if (options.format == "json") {
    check::WriteJson(std::cout, checker);
  } else if (options.format == "sarif") {
    check::WriteSarif(std::cout, checker);
  } else {
    check::WriteText(std::cout, checker, terminal);
  }
  if (!std::cout.flush()) {
    throw Failure("cannot write to standard output");
  }
  const auto& findings = checker.GetFindings();
  const bool failed =
      Count(findings, check::Severity::kError) > 0 || (options.strict && !findings.empty());
  return failed ? kFindings : 0;
}

int RunOrTell(const Options& options, const Charset& terminal) {
  try {
    return Run(options, terminal);
  } catch (const std::exception& error) {
    std::cerr << "vehicle-units: " << terminal.FromLatin1(error.what()) << '\n';
    return kCouldNotRun;
  }
}

}  // namespace

void AddCheckCommand(CLI::App& app, const Charset& terminal) {
  auto options = std::make_shared<Options>();
  CLI::App& command = *app.add_subcommand("check", "Find the mistakes in the data");
  options->data.AddOption(command);
  command.add_option("--name", options->base, "Base name of the association files; all if none")
      ->type_name("BASE");
  command.add_option("--format", options->format, "How to tell what was found")
      ->check(CLI::IsMember({"text", "json", "sarif"}))
      ->capture_default_str();
  command.add_flag("--strict", options->strict, "Count warnings as errors");
  command.callback([options, &terminal] {
    if (const int status = RunOrTell(*options, terminal)) {
      throw CLI::RuntimeError(status);
    }
  });
}
