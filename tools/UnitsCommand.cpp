#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "ConversionCatalog.h"
#include "DataFolder.h"
#include "Join.h"

namespace {

void Run(const DataFolder& data, const Charset& terminal) {
  const ConversionCatalog catalog(data.Path());
  const std::vector<std::string> units = catalog.SourceUnits();
  std::size_t width = 0;
  for (const std::string& unit : units) {
    width = std::max(width, unit.size());
  }
  for (const std::string& unit : units) {
    const std::string padding(width - unit.size() + 2, ' ');
    std::cout << terminal.FromLatin1(unit + padding + Join(catalog.TargetUnits(unit))) << '\n';
  }
}

}  // namespace

void AddUnitsCommand(CLI::App& app, const Charset& terminal) {
  auto data = std::make_shared<DataFolder>();
  CLI::App& command =
      *app.add_subcommand("units", "List the source units and what each converts into");
  data->AddOption(command);
  command.callback([data, &terminal] { Run(*data, terminal); });
}
