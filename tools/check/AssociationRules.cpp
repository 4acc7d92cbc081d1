#include "check/AssociationRules.h"

#include <map>

#include "Join.h"
#include "NearestNames.h"
#include "Quoted.h"

namespace check {

AssociationRules::AssociationRules(const Associations& associations, const Conversions* conversions,
                                   Findings& findings)
    : associations(associations), conversions(conversions), findings(findings) {}

void AssociationRules::Check() {
  std::map<std::string, std::vector<const UnitSystem*>> completeByBase;
  for (const auto& system : associations.Systems()) {
    CheckSystem(*system);
    if (system->complete) {
      completeByBase[system->base].push_back(system.get());
    }
  }
  for (const auto& [base, systems] : completeByBase) {
    CheckThatAllSystemsHaveTheSame(systems);
  }
}

void AssociationRules::CheckSystem(const UnitSystem& system) {
  for (const auto& [unit, association] : system.last) {
    const Place place = association.file->At(*association.element);
    const std::string& shown = system.store.findData(unit)->toUnit;
    if (shown.empty()) {
      findings.Add(place, Rule::kEmptyTounit,
                   Quoted(unit) + " has an empty \"tounit\": it is shown without label");
    } else if (shown != unit && conversions != nullptr) {
      CheckConversions(place, unit, shown);
    }
  }
}

void AssociationRules::CheckConversions(const Place& place, const std::string& unit,
                                        const std::string& shown) {
  if (conversions->Find(unit, shown) != nullptr) {
    if (conversions->Find(shown, unit) == nullptr) {
      findings.Add(place, Rule::kNoWayBack,
                   Quoted(shown) + " does not convert back into " + Quoted(unit), {unit, shown});
    }
    return;
  }
  std::vector<std::string> targets;
  if (const auto number = conversions->Find(unit)) {
    for (const int target : conversions->TargetsOf(*number)) {
      targets.push_back(conversions->NameOf(target));
    }
  }
  findings.Add(place, Rule::kNoConversion,
               Quoted(unit) + " does not convert into " + Quoted(shown) +
                   (targets.empty() ? " or anything else" : NearestNames(shown, targets)),
               {unit, ""});
}

void AssociationRules::CheckThatAllSystemsHaveTheSame(
    const std::vector<const UnitSystem*>& systems) {
  std::map<std::string, const UnitSystem*> firstWith;
  for (const UnitSystem* system : systems) {
    for (const auto& [unit, association] : system->last) {
      firstWith.emplace(unit, system);
    }
  }
  for (const auto& [unit, first] : firstWith) {
    std::vector<std::string> with;
    std::vector<std::string> without;
    for (const UnitSystem* system : systems) {
      (system->last.count(unit) != 0 ? with : without).push_back(system->name);
    }
    if (!without.empty()) {
      const Association& association = first->last.at(unit);
      findings.Add(
          association.file->At(*association.element), Rule::kNotInEverySystem,
          Quoted(unit) + " is associated in " + Join(with) + " and not in " + Join(without));
    }
  }
}

}  // namespace check
