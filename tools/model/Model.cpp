#include "model/Model.h"

#include <iterator>

#include "model/DataFiles.h"
#include "units/UnitConverter.h"
#include "util/FileHandler.h"

namespace model {

namespace {

bool HoldsAssociations(const std::string& path) {
  std::string text;
  util::FileHandler(path.c_str(), "rb").read(text);
  return text.find("<unit_associations") != std::string::npos;
}

std::vector<std::string> FindStrays(const std::string& folder, const AssociationFiles& known) {
  std::vector<std::string> strays;
  for (const std::string& path : FindXmlFiles(folder)) {
    if (known.count(IdentityOf(path)) == 0 && HoldsAssociations(path)) {
      strays.push_back(path);
    }
  }
  return strays;
}

std::optional<Samples> ReadSamplesOf(const std::string& folder,
                                     const std::optional<std::string>& named) {
  const std::string path = named.value_or(folder + "samples.tsv");
  return named || std::filesystem::exists(path) ? std::optional(ReadSamples(path)) : std::nullopt;
}

}  // namespace

Model ReadModel(const std::string& folder, const std::optional<std::string>& base,
                const std::optional<std::string>& samples) {
  Model model;
  model.folder = folder;
  model.bases = BaseNames(folder);
  model.base = base;
  model.conversionFile = std::make_unique<File>(folder + units::UnitConverter::CONVERSION_FILENAME,
                                                "unit_conversions");
  model.definitions = ReadDefinitions(*model.conversionFile);
  for (const std::string& each : base ? std::set<std::string>{*base} : model.bases) {
    std::vector<UnitSystem> systems = ReadUnitSystems(folder, each, model.associationFiles);
    std::move(systems.begin(), systems.end(), std::back_inserter(model.systems));
  }
  if (!base) {
    model.strays = FindStrays(folder, model.associationFiles);
  }
  model.samples = ReadSamplesOf(folder, samples);
  return model;
}

}  // namespace model
