#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/Associations.h"
#include "model/Definitions.h"
#include "model/File.h"
#include "model/Samples.h"

namespace model {

/// A data folder as it was written. Everything in it points into its files, which stay where they
/// are when the model is moved.
struct Model {
  std::string folder;               ///< ends in a slash
  std::set<std::string> bases;      ///< the base names that association files in it have
  std::optional<std::string> base;  ///< the one that was asked for; otherwise all are read
  std::unique_ptr<File> conversionFile;
  Definitions definitions;
  AssociationFiles associationFiles;
  std::vector<UnitSystem> systems;
  std::vector<std::string> strays;  ///< files with associations that none of `bases` reads
  std::optional<Samples> samples;   ///< nothing where there is no file of known values
};

/// Reads a data folder, each file once, with the unit systems of one base name or of all, and with
/// the known values of the file `samples` or, if none is named, of samples.tsv in the folder.
/// Throws what `ReadSamples` throws.
Model ReadModel(const std::string& folder, const std::optional<std::string>& base,
                const std::optional<std::string>& samples);

}  // namespace model
