#include "program/GraphCommand.h"

#include <iostream>
#include <optional>

#include "program/CheckFolder.h"
#include "report/Graph.h"

int RunGraph(const GraphOptions& options) {
  const CheckedFolder checked = CheckFolder(options.data.Path(), std::nullopt, std::nullopt, {});
  report::WriteGraph(std::cout, checked.model.definitions.conversions, checked.findings);
  return 0;
}
