#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "log/ColumnMap.h"
#include "log/Dialect.h"
#include "log/Units.h"
#include "text/Message.h"

namespace logs {

/// What becomes of one column.
struct Column {
  std::string heading;  // UTF-8
  std::string name;     // the heading without a unit in brackets
  std::string becomes;  // the same as the converted log has it
  std::string unit;     // ISO 8859-1; empty where it has none
  Way way;
  std::optional<int> decimals;
  std::optional<Message> problem;  // why it has no way
  std::string meant;               // the unit that its brackets may mean and are not
};

/// What becomes of all columns of a log, and its heading, with the row of units if there is one.
struct Plan {
  std::vector<Column> columns;
  std::string heading;  // bytes
};

/// What the columns are converted by.
struct Conversions {
  const Units& units;
  std::vector<MapEntry> map;  // the last one that names a column counts
  std::optional<int> decimals;
};

/// Plans the log with the heading `heading` and the row of units `unitsRow`, each with its line
/// end; it is empty if there is none. Adds the names of those entries of the map that match to
/// `matched`.
Plan PlanColumns(std::string_view heading, std::string_view unitsRow, const Dialect& dialect,
                 const Conversions& conversions, std::set<std::string>& matched);

}  // namespace logs
