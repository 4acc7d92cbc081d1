#pragma once

#include <tinyxml.h>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/File.h"

namespace model {

struct AssociationFile;

/// One <unitassoc> that has an identifier.
struct Association {
  const AssociationFile* file;
  const TiXmlElement* element;
  std::string unit;
  std::optional<std::string> shown;  ///< its display unit

  Place At() const;
};

struct AssociationFile : File {
  explicit AssociationFile(const std::string& path);

  std::vector<Association> associations;
};

/// What keeps the library from loading a unit system.
struct Obstacle {
  enum class Kind { kUnreadable, kRefused, kUnnamed, kCircle, kTooManyFiles };

  Kind kind;
  Place place;                     ///< of the include or, where none leads there, of the file
  std::vector<std::string> files;  ///< the one that is not loaded, or those of a circle
  bool included;                   ///< whether an include leads there
};

/// How a unit system shows a data unit.
struct Display {
  const Association* association;  ///< what settles it
  std::string label;
};

/// One unit system of a base name.
struct UnitSystem {
  std::string base;
  std::string path;                             ///< of the file that the library loads
  std::string name;                             ///< "STD" and so on, from the name of its file
  std::vector<const AssociationFile*> reading;  ///< as the library reads them, as often as it does
  std::vector<Obstacle> obstacles;              ///< the library stops at the first
  std::map<std::string, Display> displays;      ///< by data unit
};

/// The association files of a folder by `IdentityOf` their paths, those that could not be read too.
using AssociationFiles = std::map<std::string, std::unique_ptr<AssociationFile>>;

/// The base names of the association files that stand in `folder` itself, as `IsData` has them.
std::set<std::string> BaseNames(const std::string& folder);

/// Reads the four unit systems of the base name `base` in `folder`, which ends in a slash, and adds
/// the files that are new to `files`. What stands behind an obstacle is read too.
std::vector<UnitSystem> ReadUnitSystems(const std::string& folder, const std::string& base,
                                        AssociationFiles& files);

}  // namespace model
