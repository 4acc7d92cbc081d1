#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "units/DataUnitToDisplayUnitConverter.h"

namespace logs {

/// How values get from one unit into another: by the steps in their order. Without steps they are
/// there already.
struct Way {
  std::string label;  // the unit that they get into
  std::vector<units::Conversion> steps;
};

/// The units of the data, in ISO 8859-1, and the ways between them in one unit system.
class Units {
 public:
  /// Asks `converter`, which must stay as it is, in its chosen system.
  explicit Units(const units::DataUnitToDisplayUnitConverter& converter);

  bool IsUnit(const std::string& name) const { return names.count(name) != 0; }
  bool IsDataUnit(const std::string& name) const { return dataUnits.count(name) != 0; }

  /// Throws `Failure` for what is no unit, with the nearest.
  void CheckUnit(const std::string& name) const;

  /// The unit that `utf8` is a misspelling of; empty if there is none.
  std::string MisspellingOf(const std::string& utf8) const;

  /// From `unit` into the unit that the system shows. A data unit has a display unit there. A
  /// display unit that the system shows stays, as does one that converts into no data unit; another
  /// is taken through the data unit `through`, or any that it converts into where all of those are
  /// shown in the same unit. Throws `Failure` where they are shown in several, and where there is
  /// no way.
  Way ToSystem(const std::string& unit, const std::string& through = "") const;

  /// From `unit` into `target`, through a data unit where there is no conversion between them.
  /// Throws `Failure` where there is no way.
  Way Between(const std::string& unit, const std::string& target) const;

  bool Converts(const std::string& unit, const std::string& target) const;

 private:
  std::vector<std::string> DataUnitsOf(const std::string& unit, const std::string& through) const;
  bool IsShown(const std::string& unit, const std::string& through) const;
  bool AreSameNumbers(const std::string& unit, const std::string& target) const;
  units::Conversion Find(const std::string& unit, const std::string& target) const;

  const units::DataUnitToDisplayUnitConverter& display;
  const units::UnitConverter& conversions;
  std::set<std::string> dataUnits;
  std::set<std::string> names;
};

}  // namespace logs
