#include "GeneratedData.h"

#include <array>
#include <cstdio>
#include <stdexcept>

namespace bench {

namespace {

constexpr std::array kQuantities{"PRESSURE", "TEMP",   "FLOW",   "SPEED",      "TORQUE",
                                 "VOLUME",   "WEIGHT", "LENGTH", "EFFICIENCY", "RATIOS"};
constexpr std::array kPlaces{
    "INTAKE", "EXHAUST", "FUEL",  "OIL",  "COOLANT",  "BOOST",  "AMBIENT", "CABIN",   "BRAKE",
    "CLUTCH", "GEARBOX", "FRONT", "REAR", "LEFT",     "RIGHT",  "PRIMARY", "BATTERY", "CYLINDER",
    "CRANK",  "CAM",     "WHEEL", "AXLE", "STEERING", "HYBRID", "PEDAL"};
constexpr std::array kParts{"MANIFOLD", "PUMP",   "RAIL",   "COOLER",  "FILTER", "TURBINE", "VALVE",
                            "TANK",     "SENSOR", "INLET",  "OUTLET",  "BYPASS", "BEARING", "CASE",
                            "LINE",     "RETURN", "SUPPLY", "CHAMBER", "HOSE",   "SHAFT"};
constexpr std::array kUnits{"KPA", "PSI", "BAR",   "HPA", "CEL",    "FAH", "KPH",
                            "MPH", "NM",  "FT_LB", "KG",  "LBS",    "L",   "GAL",
                            "KM",  "MI",  "MM",    "AFR", "LAMBDA", "MPG"};
constexpr std::size_t kNames = kQuantities.size() * kPlaces.size() * kParts.size() * kUnits.size();

std::string RealisticName(std::size_t i) {
  std::size_t n = i * 61'813 % kNames;  // coprime to kNames: every name once, in no order
  std::string name = kUnits[n % kUnits.size()];
  n /= kUnits.size();
  name = kParts[n % kParts.size()] + ('_' + name);
  n /= kParts.size();
  name = kPlaces[n % kPlaces.size()] + ('_' + name);
  n /= kPlaces.size();
  return kQuantities[n] + ('_' + name);
}

std::string NumberedName(std::size_t i) {
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "UNIT_%06zu", i + 1);
  return name.data();
}

template <typename Name>
std::vector<std::string> Names(std::size_t count, Name name) {
  if (count > kNames) {
    throw std::out_of_range("there are not so many names");
  }
  std::vector<std::string> names;
  names.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    names.push_back(name(i));
  }
  return names;
}

std::string Number(double number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.17g", number);
  return text.data();
}

std::string SlopeInt(const std::string& target, double scalar, double offset) {
  return "    <tounit id=\"" + target + R"("><conv type="slope-int" scalar=")" + Number(scalar) +
         "\" offset=\"" + Number(offset) + "\"/></tounit>\n";
}

std::string Document(const std::string& root, const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<" + root + ">\n" + content + "</" +
         root + ">\n";
}

}  // namespace

std::vector<std::string> RealisticNames(std::size_t count) { return Names(count, RealisticName); }

std::vector<std::string> NumberedNames(std::size_t count) { return Names(count, NumberedName); }

std::string ConversionFile(const std::vector<std::string>& names) {
  std::string content;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto step = static_cast<double>(i + 1);
    content += "  <fromunit id=\"" + names[i] + "\">\n" +
               SlopeInt("psi", 0.14503773773020922 * step, 0) +
               SlopeInt("kPa", 6.8947572931683613 / step, 0) +
               SlopeInt("bar", 0.55555555555555556 * step, -17.777777777777778) +
               R"(    <tounit id="L/100km"><conv to_float=")" +
               Number(235.21458333333333 + static_cast<double>(i % 50)) +
               " / val\"/></tounit>\n  </fromunit>\n";
  }
  return Document("unit_conversions", content);
}

std::string WayBackFile(const std::vector<std::string>& names) {
  std::string content = "  <fromunit id=\"psi\">\n";
  for (const std::string& name : names) {
    content += SlopeInt(name, 6.8947572931683613, 0);
  }
  return Document("unit_conversions", content + "  </fromunit>\n");
}

std::string AssociationFile(const std::vector<std::string>& names) {
  std::string content;
  for (const std::string& name : names) {
    content += "  <unitassoc id=\"" + name + "\" tounit=\"psi\"/>\n";
  }
  return Document("unit_associations", content);
}

}  // namespace bench
