#pragma once

#include <set>
#include <string>
#include <vector>

#include "program/DataFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"

class Charset;

/// The unit systems that the program's users choose, with the data that they are read from.
struct UnitSystemOptions {
  DataFolder data;
  std::string name = "VEHICLE";
  std::string system = "all";
};

/// The chosen unit systems of a data folder, loaded by the library, with the reason where it could
/// not load them.
class UnitSystems {
 public:
  struct System {
    std::string name;
    units::unitTypes_e type;
  };

  /// What `UnitSystemOptions::system` may be.
  static std::set<std::string> Names();

  /// Loads the conversions and the associations of all systems. What the library reports of the
  /// associations goes to standard error. Throws `Failure` when one cannot be loaded.
  UnitSystems(const UnitSystemOptions& options, const Charset& terminal);

  const std::vector<System>& Chosen() const { return chosen; }

  /// The converter, in `system`.
  const units::DataUnitToDisplayUnitConverter& In(const System& system);

  /// How `unit` is shown in `system`. Throws `Failure` where it has a display unit there into which
  /// it does not convert.
  units::DataUnitToDisplayUnitConverter::Display Find(const System& system,
                                                      const std::string& unit);

  /// Throws `Failure` for a unit that no unit system associates.
  void CheckDataUnit(const std::string& unit) const;

  /// The same for one that the conversions do not know either.
  void CheckUnit(const std::string& unit) const;

 private:
  void LoadAssociations(const std::string& folder, const std::string& name,
                        const Charset& terminal);

  std::vector<System> chosen;
  units::DataUnitToDisplayUnitConverter converter;
  std::set<std::string> dataUnits;  // of all systems
};
