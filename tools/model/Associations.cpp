#include "model/Associations.h"

#include <algorithm>
#include <filesystem>

#include "model/DataFiles.h"
#include "model/Elements.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/MostFiles.h"
#include "vehicle/ReadHashData.h"
#include "xml/ReadField.h"

namespace model {

namespace {

using Converter = units::DataUnitToDisplayUnitConverter;
using Kind = Obstacle::Kind;

constexpr const std::string* kSuffixes[] = {&Converter::STD_SUFFIX, &Converter::STD_UK_SUFFIX,
                                            &Converter::METRIC_SUFFIX, &Converter::GREEK_SUFFIX};

// "STD" of "_STD.xml".
std::string SystemName(const std::string& suffix) {
  return suffix.substr(1, suffix.rfind('.') - 1);
}

bool EndsWith(const std::string& text, const std::string& ending) {
  return text.size() >= ending.size() &&
         text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

// Goes through the files of one unit system as the library does.
class Walk {
 public:
  Walk(const std::string& folder, AssociationFiles& files, UnitSystem& system)
      : folder(folder), files(files), system(system) {}

  void Begin() {
    const AssociationFile& file = Open(system.path);
    if (file.state != File::State::kParsed) {
      Stop(KindOf(file), {system.path}, {system.path}, false);
    }
    Read(file, system.path);
  }

 private:
  static Kind KindOf(const File& file) {
    return file.state == File::State::kUnreadable ? Kind::kUnreadable : Kind::kRefused;
  }

  void Stop(Kind kind, const Place& place, const std::vector<std::string>& paths, bool included) {
    system.obstacles.push_back({kind, place, paths, included});
  }

  const AssociationFile& Open(const std::string& path) {
    auto& file = files[IdentityOf(path)];
    if (file == nullptr) {
      file = std::make_unique<AssociationFile>(path);
    }
    return *file;
  }

  // `path` is as it was written, and so compared by the library.
  void Read(const AssociationFile& file, const std::string& path) {
    if (file.root == nullptr) {
      return;
    }
    chain.push_back(path);
    for (const TiXmlElement* include : ChildrenOf(*file.root, "include")) {
      Follow(file.At(*include), include->GetText());
    }
    chain.pop_back();
    system.reading.push_back(&file);
  }

  void Follow(const Place& place, const char* name) {
    if (name == nullptr || *name == '\0') {
      Stop(Kind::kUnnamed, place, {}, true);
      return;
    }
    const std::string path = folder + name;
    const auto link = std::find(chain.begin(), chain.end(), path);
    if (link != chain.end()) {
      Stop(Kind::kCircle, place, {link, chain.end()}, true);
      return;
    }
    if (++count >= units::kMostFiles) {
      if (count == units::kMostFiles) {
        Stop(Kind::kTooManyFiles, place, {path}, true);
      }
      return;
    }
    const AssociationFile& file = Open(path);
    if (file.state != File::State::kParsed) {
      Stop(KindOf(file), place, {path}, true);
    }
    Read(file, path);
  }

  const std::string& folder;
  AssociationFiles& files;
  UnitSystem& system;
  std::vector<std::string> chain;  // the paths from the first file to the one being read
  int count = 0;                   // of the files included
};

// Those of all files together, in the order of their reading.
void ReadDisplays(UnitSystem& system) {
  util::DataHash<std::string, std::shared_ptr<Converter::UnitAssociation>> store;
  std::string told;
  for (const AssociationFile* file : system.reading) {
    vehicle::ReadHashData<Converter::UnitAssociation>(file->root, store, told);
    for (const Association& association : file->associations) {
      Display& display = system.displays[association.unit];
      if (display.association == nullptr || association.shown) {
        display.association = &association;
      }
    }
  }
  for (auto& [unit, display] : system.displays) {
    display.label = store.findData(unit)->toUnit;
  }
}

}  // namespace

Place Association::At() const { return file->At(*element); }

AssociationFile::AssociationFile(const std::string& path) : File(path, "unit_associations") {
  if (root == nullptr) {
    return;
  }
  for (const TiXmlElement* element : ChildrenOf(*root, "unitassoc")) {
    const char* unit = xml::ReadField(*element, "id");
    const char* shown = xml::ReadField(*element, "tounit");
    if (unit != nullptr && *unit != '\0') {
      associations.push_back({this, element, unit,
                              shown != nullptr ? std::optional<std::string>(shown) : std::nullopt});
    }
  }
}

std::set<std::string> BaseNames(const std::string& folder) {
  std::set<std::string> bases;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (!IsData(entry)) {
      continue;
    }
    for (const std::string* suffix : kSuffixes) {
      const std::string ending = Converter::ASSOCIATION_FILENAME + *suffix;
      if (EndsWith(name, ending)) {
        bases.insert(name.substr(0, name.size() - ending.size()));
      }
    }
  }
  return bases;
}

std::vector<UnitSystem> ReadUnitSystems(const std::string& folder, const std::string& base,
                                        AssociationFiles& files) {
  std::vector<UnitSystem> systems;
  for (const std::string* suffix : kSuffixes) {
    UnitSystem& system = systems.emplace_back();
    system.base = base;
    system.path = folder;
    system.path.append(base).append(Converter::ASSOCIATION_FILENAME).append(*suffix);
    system.name = SystemName(*suffix);
    Walk(folder, files, system).Begin();
    ReadDisplays(system);
  }
  return systems;
}

}  // namespace model
