#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "Commands.h"
#include "DataFolder.h"
#include "check/Checker.h"
#include "check/Graph.h"

namespace {

void Run(const DataFolder& data) {
  const std::string folder = data.Path();
  const check::Checker checker(folder, std::nullopt);
  check::WriteGraph(std::cout, checker);
}

}  // namespace

void AddGraphCommand(CLI::App& app, const Charset& /*terminal*/) {
  auto data = std::make_shared<DataFolder>();
  CLI::App& command = *app.add_subcommand("graph", "Print the conversions as a Graphviz document");
  data->AddOption(command);
  command.callback([data] { Run(*data); });
}
