#include "check/CheckAssociations.h"

#include <map>
#include <string>
#include <unordered_set>
#include <vector>

#include "check/CheckDefinitions.h"
#include "check/MissingConversions.h"
#include "util/Text.h"

namespace check {

namespace {

using model::Association;
using model::UnitSystem;

void CheckConversions(const model::Conversions& conversions, const Place& place,
                      const std::string& unit, const std::string& shown,
                      MissingConversions& missing, Findings& findings) {
  if (conversions.Find(unit, shown) == nullptr) {
    findings.Add(place, kNoConversion, missing.Describe(unit, shown), {unit, shown});
  } else if (conversions.Find(shown, unit) == nullptr) {
    findings.Add(place, kNoWayBack,
                 util::Quoted(shown) + " does not convert back into " + util::Quoted(unit),
                 {unit, shown});
  }
}

void CheckDisplays(const model::Model& model, const UnitSystem& system, MissingConversions& missing,
                   Findings& findings) {
  for (const auto& [unit, display] : system.displays) {
    const Place place = display.association->At();
    if (display.label.empty()) {
      findings.Add(place, kEmptyTounit,
                   util::Quoted(unit) + " has an empty \"tounit\": it is shown without label",
                   {unit, ""});
    } else if (display.label != unit && model.conversionFile->root != nullptr) {
      CheckConversions(model.definitions.conversions, place, unit, display.label, missing,
                       findings);
    }
  }
}

void CheckThatAllHaveTheSame(const std::vector<const UnitSystem*>& systems, Findings& findings) {
  std::map<std::string, const Association*> first;
  for (const UnitSystem* system : systems) {
    for (const auto& [unit, display] : system->displays) {
      first.emplace(unit, display.association);
    }
  }
  for (const auto& [unit, association] : first) {
    std::vector<std::string> with;
    std::vector<std::string> without;
    for (const UnitSystem* system : systems) {
      (system->displays.count(unit) != 0 ? with : without).push_back(system->name);
    }
    if (!without.empty()) {
      findings.Add(association->At(), kNotInEverySystem,
                   util::Quoted(unit) + " is associated in " + util::Join(with) + " and not in " +
                       util::Join(without),
                   {unit, ""});
    }
  }
}

// Finds the associations that change nothing, in the order in which the library reads them.
class Effects {
 public:
  Effects(const model::Model& model, Findings& findings) : model(model), findings(findings) {}

  void Check() {
    for (const auto& [path, file] : model.associationFiles) {
      CheckRepeated(*file);
    }
    for (const UnitSystem& system : model.systems) {
      MarkEffective(system);
    }
    if (model.base) {  // another base name may need them
      return;
    }
    for (const auto& [path, file] : model.associationFiles) {
      for (const Association& association : file->associations) {
        Report(association);
      }
    }
  }

 private:
  void CheckRepeated(const model::AssociationFile& file) {
    std::map<std::string, const Association*> before;
    for (const Association& association : file.associations) {
      const Association*& earlier = before[association.unit];
      if (earlier != nullptr) {
        repeated.insert({earlier, &association});
        findings.Add(association.At(), kRepeatedDefinition,
                     util::Quoted(association.unit) +
                         " is associated again, and what is given here counts; the association "
                         "before stands at " +
                         ToMessage(earlier->At()),
                     {association.unit, ""});
      }
      earlier = &association;
    }
  }

  void MarkEffective(const UnitSystem& system) {
    std::map<std::string, std::string> shown;
    for (const model::AssociationFile* file : system.reading) {
      for (const Association& association : file->associations) {
        std::string& now = shown[association.unit];
        if (association.shown && *association.shown != now) {
          now = *association.shown;
          if (system.displays.at(association.unit).association == &association) {
            effective.insert(&association);
          }
        }
      }
    }
  }

  void Report(const Association& association) const {
    if (association.shown.value_or("").empty() ||
        effective.count(&association) + repeated.count(&association) != 0) {
      return;
    }
    findings.Add(association.At(), kWithoutEffect,
                 util::Quoted(association.unit) + " as " + util::Quoted(*association.shown) +
                     " has no effect: every unit system that reads it has the same from an "
                     "included file or overrides it",
                 {association.unit, ""});
  }

  const model::Model& model;
  Findings& findings;
  std::unordered_set<const Association*> effective;
  std::unordered_set<const Association*> repeated;
};

}  // namespace

void CheckAssociations(const model::Model& model, Findings& findings) {
  MissingConversions missing(model.definitions.conversions);
  std::map<std::string, std::vector<const UnitSystem*>> completeByBase;
  for (const UnitSystem& system : model.systems) {
    CheckDisplays(model, system, missing, findings);
    if (system.obstacles.empty()) {
      completeByBase[system.base].push_back(&system);
    }
  }
  for (const auto& [base, systems] : completeByBase) {
    CheckThatAllHaveTheSame(systems, findings);
  }
  Effects(model, findings).Check();
}

}  // namespace check
