#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "Charset.h"
#include "Commands.h"
#include "Failure.h"

namespace {

constexpr int kFailed = 1;
constexpr int kBadUsage = 2;

int Run(int argc, char** argv, const Charset& terminal) {
  CLI::App app("Converts vehicle and engine values between units");
  app.set_version_flag("--version", "vehicle-units " VEHICLE_UNITS_VERSION);
  app.require_subcommand(1);
  AddConvertCommand(app, terminal);
  AddMonitorsCommand(app, terminal);
  AddShowCommand(app, terminal);
  AddUnitsCommand(app, terminal);
  AddCheckCommand(app, terminal);
  AddGraphCommand(app, terminal);
  try {
    app.parse(argc, argv);
  } catch (const CLI::RuntimeError& end) {  // a command's own status, told already
    return end.get_exit_code();
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kBadUsage;
  }
  if (!std::cout.flush()) {
    throw Failure("cannot write to standard output");
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Charset terminal = Charset::OfTerminal();
    try {
      return Run(argc, argv, terminal);
    } catch (const Failure& failure) {
      std::cout.flush();
      std::cerr << terminal.FromLatin1(std::string("vehicle-units: ") + failure.what()) << '\n';
    }
  } catch (const std::exception& error) {
    std::cerr << "vehicle-units: " << error.what() << '\n';
  }
  return kFailed;
}
