#include "UnitSystems.h"

#include <tinyxml.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <set>

#include "ConversionCatalog.h"
#include "Failure.h"
#include "NearestNames.h"
#include "Quoted.h"
#include "vehicle/LoadDocument.h"

namespace {

using Converter = units::DataUnitToDisplayUnitConverter;
using AssociationStore = util::DataHash<std::string, std::shared_ptr<Converter::UnitAssociation>>;

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

// Goes through the files of one system in the order in which the library reads them.
class FileTree {
 public:
  // `messages` is what the library said of a tree that failed.
  FileTree(const std::string& folder, const std::string& messages)
      : folder(folder), messages('\n' + messages) {}

  // Returns the first file that the library passed over in silence because it cannot be read, or
  // the empty text; adds the associations of all files before it to `store`.
  std::string FindUnreadable(const std::string& path, AssociationStore& store) {
    // A file that the library has spoken of is not the one that it kept silent about.
    const bool told = messages.find('\n' + path + ':') != std::string::npos;
    if (told || !visited.insert(path).second) {
      return "";
    }
    TiXmlDocument document(path);
    std::string refusal;
    if (!vehicle::LoadDocument(document, refusal)) {
      return refusal.empty() ? path : "";
    }
    return FindUnreadable(document.FirstChildElement("unit_associations"), store);
  }

 private:
  std::string FindUnreadable(TiXmlElement* root, AssociationStore& store) {
    const TiXmlElement* include = root != nullptr ? root->FirstChildElement("include") : nullptr;
    for (; include != nullptr; include = include->NextSiblingElement("include")) {
      const char* name = include->GetText();
      std::string unreadable = name != nullptr ? FindUnreadable(folder + name, store) : "";
      if (!unreadable.empty()) {
        return unreadable;
      }
    }
    std::string told;
    vehicle::ReadHashData<Converter::UnitAssociation>(root, store, told);
    return "";
  }

  std::string folder;
  std::string messages;
  std::set<std::string> visited;
};

}  // namespace

void UnitSystemOptions::AddOptions(CLI::App& command) {
  data.AddOption(command);
  command.add_option("--name", name, "Base name of the association files")->type_name("VEHICLE");
  std::set<std::string> names;
  names.insert("all");
  for (const Loader& loader : Loaders()) {
    names.insert(loader.system.name);
  }
  command.add_option("--system", system, "Unit system to show")->check(CLI::IsMember(names));
}

UnitSystems::UnitSystems(const UnitSystemOptions& options) {
  const std::string folder = options.data.Path();
  const ConversionCatalog conversions(folder);  // says what is wrong with them
  converter.SetXMLFilePath(folder);
  Load(folder, options.name);
  for (const Loader& loader : Loaders()) {
    if (options.system == "all" || options.system == loader.system.name) {
      chosen.push_back(loader.system);
    }
  }
}

void UnitSystems::Load(const std::string& folder, const std::string& name) {
  const std::string base = folder + name + Converter::ASSOCIATION_FILENAME;
  for (const Loader& loader : Loaders()) {
    const std::string path = base + loader.suffix;
    std::string messages;
    const bool loaded = (converter.*loader.load)(base, messages);
    std::cerr << messages;
    if (loaded) {
      messages.clear();
    }
    const std::string unreadable = FileTree(folder, messages).FindUnreadable(path, associations);
    if (!unreadable.empty()) {
      throw Failure("cannot read " + unreadable);
    }
    if (!loaded) {
      throw Failure("cannot load " + path);
    }
  }
}

const units::DataUnitToDisplayUnitConverter& UnitSystems::In(const System& system) {
  converter.SetUnitType(system.type);
  return converter;
}

void UnitSystems::CheckDataUnit(const std::string& unit) const {
  if (associations.dataExists(unit)) {
    return;
  }
  std::vector<std::string> names;
  for (const auto& [name, association] : associations) {
    names.push_back(name);
  }
  throw Failure("unknown data unit " + Quoted(unit) + NearestNames(unit, names));
}
