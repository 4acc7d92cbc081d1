#pragma once

#include <tinyxml.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/DataFile.h"
#include "check/Findings.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace check {

/// One element of an association file.
struct Association {
  const DataFile* file = nullptr;
  const TiXmlElement* element = nullptr;
};

/// The associations of one unit system as the library holds them.
struct UnitSystem {
  using Store =
      util::DataHash<std::string,
                     std::shared_ptr<units::DataUnitToDisplayUnitConverter::UnitAssociation>>;

  std::string base;
  std::string name;
  bool complete = true;  ///< whether the library can load all of its files
  int includes = 0;      ///< files read by including them, as often as they are
  Store store;
  std::map<std::string, Association> last;  ///< what settles the display unit of each data unit
};

/// The association files of a data folder, read as the library reads them.
class Associations {
 public:
  /// `folder` ends in a slash.
  Associations(const std::string& folder, Findings& findings);

  /// Reads the four systems of the base name `base`.
  void Read(const std::string& base);

  const std::vector<std::unique_ptr<UnitSystem>>& Systems() const { return systems; }

  /// The files that were read, by path; those that could not be read too.
  const std::map<std::string, std::unique_ptr<DataFile>>& Files() const { return files; }

  /// Reports the associations without effect in all systems that were read.
  void ReportThoseWithoutEffect();

  /// The ending of a system's file, behind the base name: "_UNIT_ASSOCIATIONS_STD.xml".
  static std::vector<std::string> FileEndings();

 private:
  using Chain = std::vector<std::string>;

  const DataFile& Open(const std::string& path);
  void ReadTree(const DataFile& file, UnitSystem& system, Chain& chain);
  void ReadInclude(const DataFile& file, const TiXmlElement& include, UnitSystem& system,
                   Chain& chain);
  bool CanGoOn(const DataFile& top, UnitSystem& system);
  void ReportCycle(const Place& place, const Chain& circle);
  void ReadOwn(const DataFile& file, UnitSystem& system);
  void ReportRepeated(const DataFile& file, const TiXmlElement& element,
                      const TiXmlElement& earlier);
  void MarkEffective(const UnitSystem& system);

  std::string folder;
  Findings& findings;
  std::vector<std::unique_ptr<UnitSystem>> systems;
  std::map<std::string, std::unique_ptr<DataFile>> files;
  std::set<std::set<std::string>> circles;  // the include cycles reported

  // Of the elements in all files: those that differ from what was associated before them, by
  // system; those that change what a system shows; those that the same file overrides.
  std::unordered_map<const UnitSystem*, std::unordered_set<const TiXmlElement*>> changing;
  std::unordered_set<const TiXmlElement*> effective;
  std::unordered_set<const TiXmlElement*> repeated;
};

}  // namespace check
