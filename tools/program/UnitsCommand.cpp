#include "program/UnitsCommand.h"

#include <string>
#include <utility>
#include <vector>

#include "program/LoadConversions.h"
#include "program/Table.h"
#include "util/Text.h"

int RunUnits(const UnitsOptions& options, const Charset& terminal) {
  units::UnitConverter converter;
  LoadConversions(converter, options.data.Path(), terminal);
  Table table({Table::kLeft, Table::kLeft});
  for (const std::string& unit : converter.GetSourceUnits()) {
    std::vector<std::string> row(1, unit);
    row.push_back(util::Join(converter.GetTargetUnits(unit)));
    table.AddRow(std::move(row));
  }
  table.Print(terminal);
  return 0;
}
