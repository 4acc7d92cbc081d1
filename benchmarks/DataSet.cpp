#include "DataSet.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>

#include "GeneratedData.h"

namespace bench {

namespace {

constexpr std::size_t kMostItems = 4096;

std::vector<std::string> NamesOf(std::string set) {
  set.erase(std::remove(set.begin(), set.end(), ','), set.end());
  const std::size_t count = std::stoul(set);
  return set.find("numbered") == std::string::npos ? RealisticNames(count) : NumberedNames(count);
}

void Write(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) {
    throw std::runtime_error("cannot write " + path);
  }
}

// Every prefix at which a conversion file of the set stands, for its associations the first one.
std::vector<std::string> WritePrefixes(const std::string& set) {
  if (set == "shipped") {
    return {VEHICLE_UNITS_SOURCE_DATA "/"};
  }
  const std::string folder = std::filesystem::path(WriteConversionFile(set)).parent_path();
  std::vector<std::string> names = NamesOf(set);
  const std::string associations = AssociationFile(names);
  for (const char* suffix : {"STD", "STD_UK", "METRIC", "GREEK"}) {
    Write(folder + "/VEHICLE_UNIT_ASSOCIATIONS_" + suffix + ".xml", associations);
  }
  names.resize(std::min(names.size(), kMostItems));
  Write(folder + "/BACK_UNIT_CONVERSIONS.xml", WayBackFile(names));
  return {folder + "/", folder + "/BACK_"};
}

void Load(DataSet& set, const std::vector<std::string>& prefixes) {
  for (const std::string& prefix : prefixes) {
    set.engine.SetXMLFilePathAndLoad(prefix);
    set.display.SetXMLFilePath(prefix);
    bare::LoadConversions(set.bare, prefix + units::UnitConverter::CONVERSION_FILENAME);
  }
  set.display.SetXMLFilePath(prefixes.front());
  std::string error;
  if (!set.display.ReadAndParseXMLAssociations("VEHICLE", error)) {
    throw std::runtime_error("no associations: " + error);
  }
  for (const auto& [unit, targets] : set.bare.conversions) {
    const std::string label = set.display.GetActiveLabelForUnit(unit);
    if (label != unit) {
      set.bare.associations[unit] =
          std::make_shared<bare::Association>(bare::Association{label, ""});
    }
  }
}

bool HasSlope(const bare::Converter& bare, const std::string& from, const std::string& to) {
  const auto found = bare.conversions.find(from);
  if (found == bare.conversions.end() || found->second->count(to) == 0) {
    return false;
  }
  return found->second->at(to)->type == VehicleV2::CONVERSION_SLOPE_INT;
}

template <typename Item, typename Less>
void Shuffle(std::vector<Item>& items, Less less) {
  std::sort(items.begin(), items.end(), less);
  std::shuffle(items.begin(), items.end(), std::mt19937(1));
  items.resize(std::min(items.size(), kMostItems));
  if (items.empty()) {
    throw std::runtime_error("nothing to convert");
  }
}

void ListItems(DataSet& set) {
  for (const auto& [from, targets] : set.bare.conversions) {
    for (const auto& [to, record] : *targets) {
      (HasSlope(set.bare, from, to) ? set.slopes : set.expressions).push_back({from, to});
    }
  }
  for (const auto& [unit, association] : set.bare.associations) {
    if (HasSlope(set.bare, unit, association->toUnit) &&
        HasSlope(set.bare, association->toUnit, unit)) {
      set.shown.push_back(unit);
    }
  }
  const auto less = [](const Pair& a, const Pair& b) {
    return a.from != b.from ? a.from < b.from : a.to < b.to;
  };
  Shuffle(set.slopes, less);
  Shuffle(set.expressions, less);
  Shuffle(set.shown, std::less<>());
}

std::string Differ(const Pair& pair) { return "results differ: " + pair.from + " to " + pair.to; }

template <typename Value>
void Compare(DataSet& set, const std::vector<Pair>& pairs) {
  for (const Pair& pair : pairs) {
    Value library = 12.5;
    Value kept = 12.5;
    Value bare = 12.5;
    set.engine.ConvertUnit(pair.from, pair.to, library);
    Keep(set, pair).Convert(kept);
    bare::ConvertUnit(set.bare, pair.from, pair.to, bare);
    if (library != bare || kept != bare) {
      throw std::runtime_error(Differ(pair));
    }
  }
}

void CompareShown(DataSet& set) {
  for (const std::string& unit : set.shown) {
    double library = 12.5;
    double bare = 12.5;
    set.display.ConvertUnit(unit, library);
    bare::DisplayUnit(set.bare, unit, bare);
    const bool same = library == bare;
    set.display.UnConvertUnit(unit, library);
    bare::UndisplayUnit(set.bare, unit, bare);
    if (!same || library != bare) {
      throw std::runtime_error("display results differ: " + unit);
    }
  }
}

std::unique_ptr<DataSet> MakeDataSet(const std::string& name) {
  auto set = std::make_unique<DataSet>();
  Load(*set, WritePrefixes(name));
  ListItems(*set);
  Compare<double>(*set, set->slopes);
  Compare<float>(*set, set->slopes);
  Compare<double>(*set, set->expressions);
  CompareShown(*set);
  return set;
}

}  // namespace

DataSet& GetDataSet(const std::string& name) {
  static std::map<std::string, std::unique_ptr<DataSet>> sets;
  auto& set = sets[name];
  set = set ? std::move(set) : MakeDataSet(name);
  return *set;
}

units::Conversion Keep(const DataSet& set, const Pair& pair) {
  std::string why;
  units::Conversion conversion = set.engine.FindConversion(pair.from, pair.to, why);
  if (!conversion) {
    throw std::runtime_error(why);
  }
  return conversion;
}

std::string WriteConversionFile(const std::string& name) {
  std::string path = ConversionFilePath(name);
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  Write(path, ConversionFile(NamesOf(name)));
  return path;
}

std::string ConversionFilePath(const std::string& name) {
  return VEHICLE_UNITS_BENCH_DATA "/" + name + '/' + units::UnitConverter::CONVERSION_FILENAME;
}

}  // namespace bench
