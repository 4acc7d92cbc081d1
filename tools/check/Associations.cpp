#include "check/Associations.h"

#include <algorithm>

#include "Quoted.h"
#include "check/NameRules.h"
#include "vehicle/ReadField.h"
#include "vehicle/ReadHashData.h"

namespace check {

namespace {

using Converter = units::DataUnitToDisplayUnitConverter;

constexpr char kRoot[] = "unit_associations";

const Names kFields{"id", "fromunit", "tounit"};
const Names kChildren{"unitassoc", "include"};

constexpr const std::string* kSuffixes[] = {&Converter::STD_SUFFIX, &Converter::STD_UK_SUFFIX,
                                            &Converter::METRIC_SUFFIX, &Converter::GREEK_SUFFIX};

// "STD" of "_STD.xml".
std::string SystemName(const std::string& suffix) {
  return suffix.substr(1, suffix.rfind('.') - 1);
}

// The text of a field, empty where there is none.
std::string TextOf(const TiXmlElement& element, const char* field) {
  const char* text = vehicle::ReadField(element, field);
  return std::string(text != nullptr ? text : "");
}

void CheckNames(const DataFile& file, Findings& findings) {
  const NameRules names(file, findings);
  const TiXmlElement& root = *file.Root();
  names.CheckAttributes(root, {}, {});
  for (const TiXmlElement* child = root.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    if (child->ValueStr() == "unitassoc") {
      names.CheckFields(*child, kFields, kFields);
    } else if (child->ValueStr() == "include") {
      names.CheckTextOnly(*child);
    } else {
      names.CheckChild(root, *child, {}, kChildren);
    }
  }
}

}  // namespace

Associations::Associations(const std::string& folder, Findings& findings)
    : folder(folder), findings(findings) {}

std::vector<std::string> Associations::FileEndings() {
  std::vector<std::string> endings;
  for (const std::string* suffix : kSuffixes) {
    endings.push_back(Converter::ASSOCIATION_FILENAME + *suffix);
  }
  return endings;
}

void Associations::Read(const std::string& base) {
  const std::string start = folder + base + Converter::ASSOCIATION_FILENAME;
  for (const std::string* suffix : kSuffixes) {
    systems.push_back(std::make_unique<UnitSystem>());
    UnitSystem& system = *systems.back();
    system.base = base;
    system.name = SystemName(*suffix);
    Chain chain;
    chain.push_back(start + *suffix);
    const DataFile& file = Open(chain.front());
    if (file.GetState() == DataFile::State::kUnreadable) {
      findings.Add({chain.front()}, Rule::kMissingFile,
                   "the file of the unit system " + system.name + " is missing or empty");
    }
    ReadTree(file, system, chain);
    MarkEffective(system);
  }
}

const DataFile& Associations::Open(const std::string& path) {
  auto& file = files[path];
  if (file == nullptr) {
    file = std::make_unique<DataFile>(path, kRoot, findings);
    if (file->Root() != nullptr) {
      CheckNames(*file, findings);
    }
  }
  return *file;
}

void Associations::ReadTree(const DataFile& file, UnitSystem& system, Chain& chain) {
  if (file.GetState() != DataFile::State::kLoaded) {
    system.complete = false;
  }
  if (file.Root() == nullptr) {
    return;
  }
  for (const TiXmlElement* include = file.Root()->FirstChildElement("include"); include != nullptr;
       include = include->NextSiblingElement("include")) {
    ReadInclude(file, *include, system, chain);
  }
  ReadOwn(file, system);
}

void Associations::ReadInclude(const DataFile& file, const TiXmlElement& include,
                               UnitSystem& system, Chain& chain) {
  const char* name = include.GetText();
  if (name == nullptr) {
    system.complete = false;
    findings.Add(file.At(include), Rule::kEmptyInclude, "<include> names no file");
    return;
  }
  const std::string path = folder + name;
  const auto link = std::find(chain.begin(), chain.end(), path);
  if (link != chain.end()) {
    system.complete = false;
    ReportCycle(file.At(include), {link, chain.end()});
    return;
  }
  if (!CanGoOn(Open(chain.front()), system)) {
    return;
  }
  const DataFile& included = Open(path);
  if (included.GetState() == DataFile::State::kUnreadable) {
    findings.Add(file.At(include), Rule::kMissingInclude,
                 "the included file " + path + " is missing or empty");
  }
  chain.push_back(path);
  ReadTree(included, system, chain);
  chain.pop_back();
}

// Files that include each other over and over make endless work, which the library refuses: it
// loads this many files at once and, where there are more, says so itself.
bool Associations::CanGoOn(const DataFile& top, UnitSystem& system) {
  constexpr int kMostFiles = 1000;
  if (++system.includes == kMostFiles) {
    Converter converter;
    converter.SetXMLFilePath(folder);
    std::string messages;
    system.complete = converter.RecursiveLoad(top.Path(), units::UNIT_TYPE_STD, messages);
    top.PassOn(messages, Rule::kNotLoaded, findings);
  }
  return system.includes < kMostFiles;
}

void Associations::ReportCycle(const Place& place, const Chain& circle) {
  if (!circles.insert(std::set<std::string>(circle.begin(), circle.end())).second) {
    return;
  }
  std::string text = "include cycle: ";
  for (const std::string& path : circle) {
    text += path + " -> ";
  }
  findings.Add(place, Rule::kIncludeCycle, text + circle.front());
}

void Associations::ReadOwn(const DataFile& file, UnitSystem& system) {
  struct Earlier {
    const TiXmlElement* element = nullptr;
    std::string toUnit;
  };
  std::map<std::string, Earlier> own;
  for (const TiXmlElement* element = file.Root()->FirstChildElement("unitassoc");
       element != nullptr; element = element->NextSiblingElement("unitassoc")) {
    const std::string id = TextOf(*element, "id");
    if (id.empty()) {
      continue;
    }
    Earlier& earlier = own[id];
    const auto stored = system.store.find(id);
    if (earlier.element != nullptr) {
      ReportRepeated(file, *element, *earlier.element);
    } else if (stored != system.store.end()) {
      earlier.toUnit = stored->second->toUnit;
    }
    earlier.element = element;
    Association& last = system.last[id];
    const char* shown = vehicle::ReadField(*element, "tounit");
    if (shown == nullptr && last.element != nullptr) {
      continue;
    }
    last = {&file, element};
    if (shown != nullptr && shown != earlier.toUnit) {
      changing[&system].insert(element);
      earlier.toUnit = shown;
    }
  }
  std::string messages;
  vehicle::ReadHashData<Converter::UnitAssociation>(file.Root(), system.store, messages);
  file.PassOn(messages, Rule::kMissingId, findings);
}

void Associations::ReportRepeated(const DataFile& file, const TiXmlElement& element,
                                  const TiXmlElement& earlier) {
  repeated.insert(&earlier);
  repeated.insert(&element);
  findings.Add(file.At(element), Rule::kRepeatedDefinition,
               Quoted(TextOf(element, "id")) +
                   " is associated again, and what is given here counts; the association before "
                   "stands at " +
                   ToString(file.At(earlier)));
}

void Associations::MarkEffective(const UnitSystem& system) {
  for (const auto& [id, association] : system.last) {
    if (changing[&system].count(association.element) != 0) {
      effective.insert(association.element);
    }
  }
}

void Associations::ReportThoseWithoutEffect() {
  for (const auto& [path, file] : files) {
    if (file->Root() == nullptr) {
      continue;
    }
    for (const TiXmlElement* element = file->Root()->FirstChildElement("unitassoc");
         element != nullptr; element = element->NextSiblingElement("unitassoc")) {
      const std::string id = TextOf(*element, "id");
      const std::string shown = TextOf(*element, "tounit");
      if (!id.empty() && !shown.empty() &&
          effective.count(element) + repeated.count(element) == 0) {
        findings.Add(file->At(*element), Rule::kWithoutEffect,
                     Quoted(id) + " as " + Quoted(shown) +
                         " has no effect: every unit system that reads it has the same from an "
                         "included file or overrides it");
      }
    }
  }
}

}  // namespace check
