#include "log/Columns.h"

#include "log/Encoding.h"
#include "log/Heading.h"
#include "log/Rows.h"
#include "text/Failure.h"

namespace logs {

namespace {

class Planner {
 public:
  Planner(const Dialect& dialect, const Conversions& conversions, std::set<std::string>& matched)
      : dialect(dialect), conversions(conversions), matched(matched) {}

  // Notes the heading of a column, for entries of the map that name it wholly.
  void Note(const std::string& cell) { headings.insert(Utf8(TextOf(cell))); }

  // Plans the column under `cell`, and gives `cell` and `unitsCell` the unit that it gets.
  Column Take(std::string& cell, std::string* unitsCell) {
    const Heading heading = Read(cell);
    const Heading below = Read(unitsCell == nullptr ? "" : *unitsCell);
    const MapEntry* entry = Find(heading);
    Column column;
    column.heading = column.becomes = heading.Text();
    column.name = heading.Bare();
    try {
      column.unit = UnitOf(heading, below, entry);
      column.way = column.unit.empty() ? Way() : FindWay(column.unit, heading, below, entry);
    } catch (const Failure& failure) {
      column.problem = failure.Told();
    }
    if (column.problem) {
      return column;
    }
    if (column.unit.empty()) {
      column.meant = Meant(heading);
      return column;
    }
    column.decimals = entry != nullptr && entry->decimals ? entry->decimals : conversions.decimals;
    const std::string label = Utf8OfLatin1(column.way.label);
    if (unitsCell != nullptr && heading.Unit().empty()) {
      *unitsCell = Write(below.Unit().empty() ? label : below.With(label), *unitsCell);
    } else {
      column.becomes = heading.With(label);
      cell = Write(column.becomes, cell);
    }
    return column;
  }

 private:
  std::string Utf8(const std::string& bytes) const {
    return dialect.utf8 ? bytes : Utf8OfLatin1(bytes);
  }

  Heading Read(const std::string& cell) const {
    return {Utf8(TextOf(cell)), [this](const std::string& text) {
              const auto unit = Latin1OfUtf8(text);
              return unit && conversions.units.IsUnit(*unit);
            }};
  }

  // Leaves the cell as it is where it says the same already.
  std::string Write(const std::string& text, const std::string& cell) const {
    const std::string bytes = dialect.utf8 ? text : *Latin1OfUtf8(text);
    return bytes == TextOf(cell) ? cell : CellOf(bytes, IsQuoted(cell), dialect);
  }

  bool IsNamed(const Heading& heading, const std::string& name) const {
    return headings.count(name) == 0 ? heading.Bare() == name : heading.Text() == name;
  }

  const MapEntry* Find(const Heading& heading) {
    const MapEntry* found = nullptr;
    for (const MapEntry& entry : conversions.map) {
      if (IsNamed(heading, entry.name)) {
        matched.insert(entry.name);
        found = &entry;
      }
    }
    return found;
  }

  std::string Meant(const Heading& heading) const {
    const std::string& text = heading.InBrackets();
    const bool telling = text.size() > 2 && heading.Unit().empty();
    return telling ? conversions.units.MisspellingOf(text) : "";
  }

  static std::string Named(const Heading& heading, const Heading& below) {
    std::string named = below.Unit().empty() ? heading.Unit() : below.Unit();
    return named.empty() ? named : *Latin1OfUtf8(named);
  }

  // Whether the entry's unit is the data unit that the heading's is taken through.
  bool IsThrough(const std::string& named, const MapEntry& entry) const {
    return !named.empty() && named != entry.unit && !conversions.units.IsDataUnit(named) &&
           conversions.units.IsDataUnit(entry.unit) &&
           conversions.units.Converts(named, entry.unit);
  }

  std::string UnitOf(const Heading& heading, const Heading& below, const MapEntry* entry) const {
    std::string named = Named(heading, below);
    if (entry == nullptr) {
      return named;
    }
    if (entry->hasNoUnit) {
      return "";
    }
    if (named.empty() && entry->unit.empty()) {
      throw Failure("neither its heading nor the map names its unit");
    }
    return entry->unit.empty() || IsThrough(named, *entry) ? named : entry->unit;
  }

  Way FindWay(const std::string& unit, const Heading& heading, const Heading& below,
              const MapEntry* entry) const {
    if (entry != nullptr && !entry->target.empty()) {
      return conversions.units.Between(unit, entry->target);
    }
    const bool through = entry != nullptr && IsThrough(Named(heading, below), *entry);
    return conversions.units.ToSystem(unit, through ? entry->unit : "");
  }

  const Dialect& dialect;
  const Conversions& conversions;
  std::set<std::string>& matched;
  std::set<std::string> headings;
};

std::vector<std::string> Cells(std::string_view row, const Dialect& dialect) {
  const std::vector<std::string_view> cells = CellsOf(row, dialect);
  return {cells.begin(), cells.end()};
}

// `cells` as a row with the line end of `row`.
std::string Joined(const std::vector<std::string>& cells, std::string_view row,
                   const Dialect& dialect) {
  std::string joined;
  for (const std::string& cell : cells) {
    joined += (&cell == &cells.front() ? "" : std::string(1, dialect.separator)) + cell;
  }
  return joined.append(row.substr(WithoutLineEnd(row, dialect).size()));
}

}  // namespace

Plan PlanColumns(std::string_view heading, std::string_view unitsRow, const Dialect& dialect,
                 const Conversions& conversions, std::set<std::string>& matched) {
  std::vector<std::string> cells = Cells(heading, dialect);
  std::vector<std::string> units = Cells(unitsRow, dialect);
  Planner planner(dialect, conversions, matched);
  for (const std::string& cell : cells) {
    planner.Note(cell);
  }
  Plan plan;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const bool below = !unitsRow.empty() && i < units.size();
    plan.columns.push_back(planner.Take(cells[i], below ? &units[i] : nullptr));
  }
  plan.heading = Joined(cells, heading, dialect);
  if (!unitsRow.empty()) {
    plan.heading += Joined(units, unitsRow, dialect);
  }
  return plan;
}

}  // namespace logs
