#include "units/DataUnitToDisplayUnitConverter.h"

#include <tinyxml.h>

#include <algorithm>
#include <cstddef>
#include <list>

#include "units/MostFiles.h"
#include "xml/FormatError.h"
#include "xml/LoadDocument.h"

template class util::DataHash<
    std::string, std::shared_ptr<units::DataUnitToDisplayUnitConverter::UnitAssociation>>;
template bool vehicle::ReadHashData<units::DataUnitToDisplayUnitConverter::UnitAssociation>(
    TiXmlElement*,
    util::DataHash<std::string,
                   std::shared_ptr<units::DataUnitToDisplayUnitConverter::UnitAssociation>>&,
    std::string&);

namespace units {

namespace {

using UnitAssociation = DataUnitToDisplayUnitConverter::UnitAssociation;
using AssociationStore = util::DataHash<std::string, std::shared_ptr<UnitAssociation>>;

// Loads one file with all that it includes. `chain` holds the files from the first one to the one
// being read; each of them is waiting for what it includes. It stands in place of calls within
// calls, so that no chain can overflow the stack.
class TreeLoader {
 public:
  TreeLoader(const std::string& prefix, AssociationStore& store, std::string& error)
      : prefix(prefix), store(store), error(error) {}

  bool Load(const std::string& path) {
    bool loading = Open(path);
    while (loading && !chain.empty()) {
      File& file = chain.back();
      if (const TiXmlElement* include = file.include) {
        file.include = include->NextSiblingElement("include");
        loading = Include(*include);
      } else {
        vehicle::ReadHashData<UnitAssociation>(file.root, store, error);
        chain.pop_back();
      }
    }
    return loading;
  }

 private:
  struct File {
    explicit File(const std::string& path) : document(path) {}
    TiXmlDocument document;
    TiXmlElement* root = nullptr;
    const TiXmlElement* include = nullptr;  // the next to follow
  };

  bool Open(const std::string& path) {
    File& file = chain.emplace_back(path);
    if (!xml::LoadDocument(file.document, error)) {
      return false;
    }
    file.root = file.document.FirstChildElement("unit_associations");
    file.include = file.root != nullptr ? file.root->FirstChildElement("include") : nullptr;
    return true;
  }

  bool Include(const TiXmlElement& include) {
    const char* name = include.GetText();
    if (name == nullptr || *name == '\0') {
      return Fail(include, "<include> names no file");
    }
    const std::string path = prefix + name;
    if (std::any_of(chain.begin(), chain.end(),
                    [&](const File& file) { return file.document.ValueStr() == path; })) {
      return Fail(include, "include cycle: " + DescribeChain() + path);
    }
    if (++files > kMostFiles) {
      return Fail(include, "more than " + std::to_string(kMostFiles) + " files in one load");
    }
    return Open(path);
  }

  bool Fail(const TiXmlElement& include, const std::string& what) {
    error +=
        xml::FormatError(include.GetDocument()->ValueStr(), include.Row(), include.Column(), what);
    return false;
  }

  std::string DescribeChain() const {
    std::string text;
    for (const File& file : chain) {
      text += file.document.ValueStr() + " -> ";
    }
    return text;
  }

  const std::string& prefix;
  AssociationStore& store;
  std::string& error;
  std::list<File> chain;
  int files = 1;
};

bool IsUnitType(unitTypes_e type) { return type >= UNIT_TYPE_STD && type <= UNIT_TYPE_GREEK; }

}  // namespace

const std::string DataUnitToDisplayUnitConverter::ASSOCIATION_FILENAME = "_UNIT_ASSOCIATIONS";
const std::string DataUnitToDisplayUnitConverter::STD_SUFFIX = "_STD.xml";
const std::string DataUnitToDisplayUnitConverter::STD_UK_SUFFIX = "_STD_UK.xml";
const std::string DataUnitToDisplayUnitConverter::METRIC_SUFFIX = "_METRIC.xml";
const std::string DataUnitToDisplayUnitConverter::METRIC_TUNER_SUFFIX = "_METRIC_TUNER.xml";
const std::string DataUnitToDisplayUnitConverter::GREEK_SUFFIX = "_GREEK.xml";

DataUnitToDisplayUnitConverter::DataUnitToDisplayUnitConverter() = default;

DataUnitToDisplayUnitConverter::~DataUnitToDisplayUnitConverter() = default;

void DataUnitToDisplayUnitConverter::SetXMLFilePath(const std::string& path) {
  xmlFilePath = path;
  converter.SetXMLFilePathAndLoad(path);
}

bool DataUnitToDisplayUnitConverter::ReadAndParseXMLAssociations(const std::string& name,
                                                                 std::string& error) {
  const std::string base = xmlFilePath + name + ASSOCIATION_FILENAME;
  const bool loaded =
      LoadSTDUnits(base, error) && LoadSTDUKUnits(base, error) && LoadMetricUnits(base, error);
  LoadTunerMetricUnits(base, error);
  return loaded && LoadGreekUnits(base, error);
}

bool DataUnitToDisplayUnitConverter::LoadSTDUnits(const std::string& base, std::string& error) {
  return RecursiveLoad(base + STD_SUFFIX, UNIT_TYPE_STD, error);
}

bool DataUnitToDisplayUnitConverter::LoadSTDUKUnits(const std::string& base, std::string& error) {
  return RecursiveLoad(base + STD_UK_SUFFIX, UNIT_TYPE_STD_UK, error);
}

bool DataUnitToDisplayUnitConverter::LoadMetricUnits(const std::string& base, std::string& error) {
  return RecursiveLoad(base + METRIC_SUFFIX, UNIT_TYPE_METRIC, error);
}

bool DataUnitToDisplayUnitConverter::LoadGreekUnits(const std::string& base, std::string& error) {
  return RecursiveLoad(base + GREEK_SUFFIX, UNIT_TYPE_GREEK, error);
}

bool DataUnitToDisplayUnitConverter::LoadTunerMetricUnits(const std::string& /*base*/,
                                                          std::string& /*error*/) {
  return true;
}

bool DataUnitToDisplayUnitConverter::RecursiveLoad(const std::string& path, unitTypes_e type,
                                                   std::string& error) {
  return IsUnitType(type) &&
         TreeLoader(xmlFilePath, associations[static_cast<std::size_t>(type)], error).Load(path);
}

void DataUnitToDisplayUnitConverter::SetUnitType(unitTypes_e type) {
  if (IsUnitType(type)) {
    unitType = type;
  }
}

void DataUnitToDisplayUnitConverter::SetStdUnits(bool std) {
  SetUnitType(std ? UNIT_TYPE_STD : UNIT_TYPE_METRIC);
}

bool DataUnitToDisplayUnitConverter::IsStdUnits() const {
  return unitType == UNIT_TYPE_STD || unitType == UNIT_TYPE_STD_UK;
}

bool DataUnitToDisplayUnitConverter::IsMetricUnits() const { return !IsStdUnits(); }

std::string DataUnitToDisplayUnitConverter::GetActiveLabelForUnit(const std::string& unit) const {
  const std::string* label = FindDisplayUnit(unit);
  return label != nullptr ? *label : unit;
}

void DataUnitToDisplayUnitConverter::ConvertUnit(const std::string& unit, double& value) const {
  if (const std::string* displayUnit = FindOtherDisplayUnit(unit)) {
    converter.ConvertUnit(unit, *displayUnit, value);
  }
}

void DataUnitToDisplayUnitConverter::ConvertUnit(const std::string& unit, float& value) const {
  if (const std::string* displayUnit = FindOtherDisplayUnit(unit)) {
    converter.ConvertUnit(unit, *displayUnit, value);
  }
}

void DataUnitToDisplayUnitConverter::UnConvertUnit(const std::string& unit, double& value) const {
  if (const std::string* displayUnit = FindOtherDisplayUnit(unit)) {
    converter.ConvertUnit(*displayUnit, unit, value);
  }
}

DataUnitToDisplayUnitConverter::Display DataUnitToDisplayUnitConverter::FindDisplay(
    const std::string& unit) const {
  const std::string* displayUnit = FindDisplayUnit(unit);
  if (displayUnit == nullptr) {
    return {unit, {}, {}};
  }
  std::string why;
  return {*displayUnit, converter.FindConversion(unit, *displayUnit, why),
          converter.FindConversion(*displayUnit, unit, why)};
}

std::vector<std::string> DataUnitToDisplayUnitConverter::GetDataUnits() const {
  std::vector<std::string> units;
  for (const auto& association : associations[static_cast<std::size_t>(unitType)]) {
    units.push_back(association.first);
  }
  std::sort(units.begin(), units.end());
  return units;
}

const UnitConverter& DataUnitToDisplayUnitConverter::GetConverter() const { return converter; }

// The display unit of `unit` where it has one, else null.
const std::string* DataUnitToDisplayUnitConverter::FindDisplayUnit(const std::string& unit) const {
  const AssociationStore& store = associations[static_cast<std::size_t>(unitType)];
  const auto found = store.find(unit);
  return found != store.end() ? &found->second->toUnit : nullptr;
}

// The same, but null where it is `unit` itself.
const std::string* DataUnitToDisplayUnitConverter::FindOtherDisplayUnit(
    const std::string& unit) const {
  const std::string* displayUnit = FindDisplayUnit(unit);
  return displayUnit != nullptr && *displayUnit != unit ? displayUnit : nullptr;
}

}  // namespace units
