#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Commands.h"
#include "ConversionCatalog.h"
#include "DataFolder.h"
#include "Join.h"
#include "Table.h"

namespace {

void Run(const DataFolder& data, const Charset& terminal) {
  const ConversionCatalog catalog(data.Path());
  Table table({Table::kLeft, Table::kLeft});
  for (const std::string& unit : catalog.SourceUnits()) {
    std::vector<std::string> row(1, unit);
    row.push_back(Join(catalog.TargetUnits(unit)));
    table.AddRow(std::move(row));
  }
  table.Print(terminal);
}

}  // namespace

void AddUnitsCommand(CLI::App& app, const Charset& terminal) {
  auto data = std::make_shared<DataFolder>();
  CLI::App& command =
      *app.add_subcommand("units", "List the source units and what each converts into");
  data->AddOption(command);
  command.callback([data, &terminal] { Run(*data, terminal); });
}
