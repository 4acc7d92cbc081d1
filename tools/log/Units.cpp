#include "log/Units.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "log/Encoding.h"
#include "text/Failure.h"
#include "text/NearestNames.h"
#include "util/Text.h"

namespace logs {

namespace {

using Names = std::vector<std::string>;

std::string NoWay(const std::string& unit, const std::string& target) {
  return util::Quoted(unit) + " does not convert into " + util::Quoted(target);
}

}  // namespace

Units::Units(const units::DataUnitToDisplayUnitConverter& converter)
    : display(converter), conversions(converter.GetConverter()) {
  const Names associated = display.GetDataUnits();
  dataUnits.insert(associated.begin(), associated.end());
  names = dataUnits;
  for (const std::string& source : conversions.GetSourceUnits()) {
    const Names targets = conversions.GetTargetUnits(source);
    names.insert(source);
    names.insert(targets.begin(), targets.end());
  }
}

void Units::CheckUnit(const std::string& name) const {
  if (!IsUnit(name)) {
    throw Failure("unknown unit " + util::Quoted(name) +
                  NearestNames(name, {names.begin(), names.end()}));
  }
}

std::string Units::MisspellingOf(const std::string& utf8) const {
  const auto name = Latin1OfUtf8(utf8);
  return name ? ::MisspellingOf(*name, {names.begin(), names.end()}) : "";
}

units::Conversion Units::Find(const std::string& unit, const std::string& target) const {
  std::string why;
  const units::Conversion conversion = conversions.FindConversion(unit, target, why);
  if (!conversion) {
    const Names targets = conversions.GetTargetUnits(unit);
    throw Failure(std::binary_search(targets.begin(), targets.end(), target) ? why
                                                                             : NoWay(unit, target));
  }
  return conversion;
}

bool Units::Converts(const std::string& unit, const std::string& target) const {
  std::string why;
  return bool(conversions.FindConversion(unit, target, why));
}

bool Units::AreSameNumbers(const std::string& unit, const std::string& target) const {
  const double values[] = {0, 1, 3.7};
  double converted[std::size(values)];
  Find(unit, target).Convert(values, converted, std::size(values));
  return std::equal(std::begin(values), std::end(values), converted);
}

bool Units::IsShown(const std::string& unit, const std::string& through) const {
  return std::any_of(dataUnits.begin(), dataUnits.end(), [&](const std::string& each) {
    return (through.empty() || each == through) && display.GetActiveLabelForUnit(each) == unit;
  });
}

Names Units::DataUnitsOf(const std::string& unit, const std::string& through) const {
  if (!through.empty()) {
    return {through};
  }
  Names found;
  std::copy_if(dataUnits.begin(), dataUnits.end(), std::back_inserter(found),
               [&](const std::string& each) { return each != unit && Converts(unit, each); });
  std::stable_partition(found.begin(), found.end(),
                        [&](const std::string& each) { return AreSameNumbers(unit, each); });
  return found;
}

Way Units::ToSystem(const std::string& unit, const std::string& through) const {
  if (through.empty() && IsDataUnit(unit)) {
    const std::string label = display.GetActiveLabelForUnit(unit);
    return label == unit ? Way{label, {}} : Way{label, {Find(unit, label)}};
  }
  if (IsShown(unit, through)) {
    return {unit, {}};
  }
  std::map<std::string, Names> shown;  // the data units by what they are shown in
  const Names ways = DataUnitsOf(unit, through);
  for (const std::string& each : ways) {
    shown[display.GetActiveLabelForUnit(each)].push_back(each);
  }
  if (shown.size() > 1) {
    Names choices;
    for (const auto& [label, through] : shown) {
      choices.push_back(label + " (through " + util::Join(through) + ')');
    }
    throw Failure(util::Quoted(unit) + " may become " + util::Join(choices) +
                  "; choose one by a map: NAME=" + ways.front());
  }
  if (ways.empty()) {
    return {unit, {}};
  }
  const std::string& label = shown.begin()->first;
  Way way{label, {Find(unit, ways.front())}};
  if (label != ways.front()) {
    way.steps.push_back(Find(ways.front(), label));
  }
  return way;
}

Way Units::Between(const std::string& unit, const std::string& target) const {
  if (unit == target) {
    return {target, {}};
  }
  const Names targets = conversions.GetTargetUnits(unit);
  if (std::binary_search(targets.begin(), targets.end(), target)) {
    return {target, {Find(unit, target)}};
  }
  Names ways;
  std::copy_if(
      targets.begin(), targets.end(), std::back_inserter(ways),
      [&](const std::string& each) { return Converts(unit, each) && Converts(each, target); });
  if (ways.empty()) {
    throw Failure(NoWay(unit, target) + NearestNames(target, targets) +
                  (targets.empty() ? "" : "; it converts into: " + util::Join(targets)));
  }
  const auto same = std::find_if(ways.begin(), ways.end(), [&](const std::string& each) {
    return AreSameNumbers(unit, each) || AreSameNumbers(each, target);
  });
  const std::string& through = same == ways.end() ? ways.front() : *same;
  return {target, {Find(unit, through), Find(through, target)}};
}

}  // namespace logs
