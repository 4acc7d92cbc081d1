#include "program/FindConversion.h"

#include <algorithm>
#include <vector>

#include "text/Failure.h"
#include "text/NearestNames.h"
#include "util/Text.h"

namespace {

using Names = std::vector<std::string>;

bool Holds(const Names& sorted, const std::string& name) {
  return std::binary_search(sorted.begin(), sorted.end(), name);
}

// Whether values in `source` are the same numbers in `target`.
bool AreSameNumbers(const units::UnitConverter& converter, const std::string& source,
                    const std::string& target) {
  std::string why;
  const units::Conversion conversion = converter.FindConversion(source, target, why);
  double values[] = {0, 1, 3.7};
  conversion.Convert(values, values, std::size(values));
  return conversion && values[0] == 0 && values[1] == 1 && values[2] == 3.7;
}

// The units that convert into all of `targets`; those that hold values in the first one come first.
Names SourcesOf(const units::UnitConverter& converter, const Names& targets) {
  Names sources = converter.GetSourceUnits();
  const auto misses = [&](const std::string& source) {
    const Names into = converter.GetTargetUnits(source);
    return !std::all_of(targets.begin(), targets.end(),
                        [&into](const std::string& target) { return Holds(into, target); });
  };
  sources.erase(std::remove_if(sources.begin(), sources.end(), misses), sources.end());
  std::stable_partition(sources.begin(), sources.end(), [&](const std::string& source) {
    return AreSameNumbers(converter, source, targets.front());
  });
  return sources;
}

std::string DescribeUnknown(const units::UnitConverter& converter, const std::string& from) {
  const Names sources = SourcesOf(converter, {from});
  if (!sources.empty()) {
    return util::Quoted(from) +
           " converts into nothing; start from one that converts into it: " + util::Join(sources);
  }
  return "unknown unit " + util::Quoted(from) + NearestNames(from, converter.GetSourceUnits());
}

std::string DescribeNoSuchTarget(const units::UnitConverter& converter, const std::string& from,
                                 const std::string& to) {
  const std::string reason = util::Quoted(from) + " does not convert into " + util::Quoted(to);
  const Names sources = SourcesOf(converter, {from, to});
  if (!sources.empty()) {
    return reason + "; start from one that converts into both: " + util::Join(sources);
  }
  const Names targets = converter.GetTargetUnits(from);
  return reason + NearestNames(to, targets) + "; it converts into: " + util::Join(targets);
}

}  // namespace

units::Conversion FindConversion(const units::UnitConverter& converter, const std::string& from,
                                 const std::string& to) {
  if (!Holds(converter.GetSourceUnits(), from)) {
    throw Failure(DescribeUnknown(converter, from));
  }
  std::string why;
  const units::Conversion conversion = converter.FindConversion(from, to, why);
  if (conversion) {
    return conversion;
  }
  const Names targets = converter.GetTargetUnits(from);
  throw Failure(targets.empty() || Holds(targets, to) ? why
                                                      : DescribeNoSuchTarget(converter, from, to));
}
