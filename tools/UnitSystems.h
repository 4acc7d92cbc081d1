#pragma once

#include <string>
#include <vector>

#include "DataFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace CLI {
class App;
}

/// The unit systems that the program's users choose, with the data that they are read from.
struct UnitSystemOptions {
  DataFolder data;
  std::string name = "VEHICLE";
  std::string system = "all";

  /// Adds the options `--data`, `--name` and `--system` to `command`.
  void AddOptions(CLI::App& command);
};

/// The chosen unit systems of a data folder, loaded by the library, with what the library keeps to
/// itself: which data units there are, and which file could not be read.
class UnitSystems {
 public:
  struct System {
    std::string name;
    units::unitTypes_e type;
  };

  /// Loads the conversions and the associations of all systems. What the library reports goes to
  /// standard error. Throws `Failure` when one cannot be loaded.
  explicit UnitSystems(const UnitSystemOptions& options);

  const std::vector<System>& Chosen() const { return chosen; }

  /// The library's converter, set to `system`.
  const units::DataUnitToDisplayUnitConverter& In(const System& system);

  /// Throws `Failure` for a data unit that no unit system associates.
  void CheckDataUnit(const std::string& unit) const;

 private:
  using Association = units::DataUnitToDisplayUnitConverter::UnitAssociation;

  void Load(const std::string& folder, const std::string& name);

  std::vector<System> chosen;
  units::DataUnitToDisplayUnitConverter converter;
  util::DataHash<std::string, std::shared_ptr<Association>> associations;
};
