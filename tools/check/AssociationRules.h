#pragma once

#include <set>
#include <string>
#include <vector>

#include "check/Associations.h"
#include "check/Conversions.h"
#include "check/Findings.h"

namespace check {

/// Judges what the unit systems show: by the conversions that it needs, and by each other.
class AssociationRules {
 public:
  /// `conversions` are null where there is no conversion file to judge by.
  AssociationRules(const Associations& associations, const Conversions* conversions,
                   Findings& findings);

  void Check();

 private:
  void CheckSystem(const UnitSystem& system);
  void CheckConversions(const Place& place, const std::string& unit, const std::string& shown);
  void CheckThatAllSystemsHaveTheSame(const std::vector<const UnitSystem*>& systems);

  const Associations& associations;
  const Conversions* conversions;
  Findings& findings;
};

}  // namespace check
