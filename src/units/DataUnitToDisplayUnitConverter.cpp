#include "units/DataUnitToDisplayUnitConverter.h"

#include <tinyxml.h>

#include <algorithm>
#include <vector>

#include "vehicle/LoadDocument.h"

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

constexpr int kMostFiles = 1000;

std::string PlaceOf(const TiXmlElement& element) {
  return element.GetDocument()->ValueStr() + ':' + std::to_string(element.Row()) + ':' +
         std::to_string(element.Column()) + ": ";
}

// Loads one file with all that it includes. `chain` holds the files from the first one to the one
// being read; each of them is waiting for what it includes.
class TreeLoader {
 public:
  TreeLoader(const std::string& prefix, AssociationStore& store, std::string& error)
      : prefix(prefix), store(store), error(error) {}

  bool Load(const std::string& path) {
    TiXmlDocument document(path);
    if (!vehicle::LoadDocument(document, error)) {
      return false;
    }
    TiXmlElement* root = document.FirstChildElement("unit_associations");
    chain.push_back(path);
    const bool included = root == nullptr || LoadIncludes(*root);
    chain.pop_back();
    if (included) {
      vehicle::ReadHashData<UnitAssociation>(root, store, error);
    }
    return included;
  }

 private:
  bool LoadIncludes(const TiXmlElement& root) {
    for (const TiXmlElement* include = root.FirstChildElement("include"); include != nullptr;
         include = include->NextSiblingElement("include")) {
      const char* name = include->GetText();
      if (name == nullptr) {
        error += PlaceOf(*include) + "<include> names no file\n";
        return false;
      }
      const std::string path = prefix + name;
      if (std::find(chain.begin(), chain.end(), path) != chain.end()) {
        ReportCycle(*include, path);
        return false;
      }
      if (++files > kMostFiles) {
        error +=
            PlaceOf(*include) + "more than " + std::to_string(kMostFiles) + " files in one load\n";
        return false;
      }
      if (!Load(path)) {
        return false;
      }
    }
    return true;
  }

  void ReportCycle(const TiXmlElement& include, const std::string& path) {
    error += PlaceOf(include) + "include cycle: ";
    for (const std::string& file : chain) {
      error += file + " -> ";
    }
    error += path + '\n';
  }

  const std::string& prefix;
  AssociationStore& store;
  std::string& error;
  std::vector<std::string> chain;
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
  return IsUnitType(type) && TreeLoader(xmlFilePath, associations[type], error).Load(path);
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
  const std::string* label = FindOtherDisplayUnit(unit);
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

// The display unit of `unit` where it has one that is not `unit` itself, else null.
const std::string* DataUnitToDisplayUnitConverter::FindOtherDisplayUnit(
    const std::string& unit) const {
  const AssociationStore& store = associations[unitType];
  const auto found = store.find(unit);
  return found != store.end() && found->second->toUnit != unit ? &found->second->toUnit : nullptr;
}

}  // namespace units
