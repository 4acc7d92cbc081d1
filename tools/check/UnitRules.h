#pragma once

#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "check/Associations.h"
#include "check/Conversions.h"
#include "check/DataFile.h"
#include "check/Findings.h"

namespace check {

/// Judges the units by their names and by what they connect.
class UnitRules {
 public:
  /// `conversionFile` is where `conversions` stand.
  UnitRules(const DataFile& conversionFile, const Conversions& conversions,
            const Associations& associations, Findings& findings);

  void Check();

 private:
  void Collect();
  void CheckSpelling() const;
  void Name(const std::string& unit, const Place& place);
  void CheckMeaning(const std::string& shown, const std::set<int>& shownUnits) const;
  std::set<int> ReachableWithout(int start, int avoided, const std::set<int>& sought) const;

  const DataFile& conversionFile;
  const Conversions& conversions;
  const Associations& associations;
  Findings& findings;

  std::vector<std::string> names;                  // of all units, as they come
  std::unordered_map<std::string, Place> places;   // where each unit is named first
  std::set<std::string> declared;                  // associated with themselves
  std::map<std::string, std::set<int>> dataUnits;  // that a display unit shows
};

}  // namespace check
