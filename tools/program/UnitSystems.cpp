#include "program/UnitSystems.h"

#include <algorithm>

#include "model/Associations.h"
#include "program/FindConversion.h"
#include "program/LoadConversions.h"
#include "program/TellLines.h"
#include "text/Failure.h"
#include "text/NearestNames.h"
#include "util/Text.h"

namespace {

using Converter = units::DataUnitToDisplayUnitConverter;

struct Loader {
  UnitSystems::System system;
  bool (Converter::*load)(const std::string&, std::string&);
  const std::string& suffix;
};

// In the order in which the library loads them.
const std::vector<Loader>& Loaders() {
  static const std::vector<Loader> loaders{
      {{"std", units::UNIT_TYPE_STD}, &Converter::LoadSTDUnits, Converter::STD_SUFFIX},
      {{"std_uk", units::UNIT_TYPE_STD_UK}, &Converter::LoadSTDUKUnits, Converter::STD_UK_SUFFIX},
      {{"metric", units::UNIT_TYPE_METRIC}, &Converter::LoadMetricUnits, Converter::METRIC_SUFFIX},
      {{"greek", units::UNIT_TYPE_GREEK}, &Converter::LoadGreekUnits, Converter::GREEK_SUFFIX},
  };
  return loaders;
}

// Why the library does not load the unit system whose file is `path`.
Message WhyNotLoaded(const std::string& folder, const std::string& name, const std::string& path) {
  model::AssociationFiles files;
  for (const model::UnitSystem& system : model::ReadUnitSystems(folder, name, files)) {
    if (system.path == path && !system.obstacles.empty()) {
      const model::Obstacle& first = system.obstacles.front();
      if (first.kind == model::Obstacle::Kind::kUnreadable) {
        return "cannot read " + Message::Verbatim(first.files.front());
      }
    }
  }
  return "cannot load " + Message::Verbatim(path);
}

}  // namespace

std::set<std::string> UnitSystems::Names() {
  std::set<std::string> names{"all"};
  for (const Loader& loader : Loaders()) {
    names.insert(loader.system.name);
  }
  return names;
}

UnitSystems::UnitSystems(const UnitSystemOptions& options, const Charset& terminal) {
  const std::string folder = options.data.Path();
  converter.SetXMLFilePath(folder);
  if (converter.GetConverter().GetSourceUnits().empty()) {
    units::UnitConverter trial;
    LoadConversions(trial, folder, terminal);  // says what is wrong with them
  }
  LoadAssociations(folder, options.name, terminal);
  for (const Loader& loader : Loaders()) {
    converter.SetUnitType(loader.system.type);
    const std::vector<std::string> units = converter.GetDataUnits();
    dataUnits.insert(units.begin(), units.end());
    if (options.system == "all" || options.system == loader.system.name) {
      chosen.push_back(loader.system);
    }
  }
}

void UnitSystems::LoadAssociations(const std::string& folder, const std::string& name,
                                   const Charset& terminal) {
  const std::string base = folder + name + Converter::ASSOCIATION_FILENAME;
  for (const Loader& loader : Loaders()) {
    const std::string path = base + loader.suffix;
    std::string messages;
    const bool loaded = (converter.*loader.load)(base, messages);
    TellLines(messages, terminal);
    if (!loaded) {
      throw Failure(WhyNotLoaded(folder, name, path));
    }
  }
}

const Converter& UnitSystems::In(const System& system) {
  converter.SetUnitType(system.type);
  return converter;
}

Converter::Display UnitSystems::Find(const System& system, const std::string& unit) {
  converter.SetUnitType(system.type);
  Converter::Display display = converter.FindDisplay(unit);
  if (!display.toDisplay && display.label != unit) {
    FindConversion(converter.GetConverter(), unit, display.label);
  }
  return display;
}

void UnitSystems::CheckDataUnit(const std::string& unit) const {
  if (dataUnits.count(unit) == 0) {
    throw Failure("unknown data unit " + util::Quoted(unit) +
                  NearestNames(unit, {dataUnits.begin(), dataUnits.end()}));
  }
}

void UnitSystems::CheckUnit(const std::string& unit) const {
  const units::UnitConverter& conversions = converter.GetConverter();
  const std::vector<std::string> sources = conversions.GetSourceUnits();
  const bool known = std::any_of(sources.begin(), sources.end(), [&](const std::string& source) {
    const std::vector<std::string> targets = conversions.GetTargetUnits(source);
    return source == unit || std::binary_search(targets.begin(), targets.end(), unit);
  });
  if (!known) {
    CheckDataUnit(unit);
  }
}
