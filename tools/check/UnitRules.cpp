#include "check/UnitRules.h"

#include <cctype>
#include <vector>

#include "Quoted.h"

namespace check {

namespace {

// What is left of a name without white space and case.
std::string Folded(const std::string& name) {
  std::string folded;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isspace(byte) == 0 && byte != 0xA0) {
      folded += static_cast<char>(std::tolower(byte));
    }
  }
  return folded;
}

}  // namespace

UnitRules::UnitRules(const DataFile& conversionFile, const Conversions& conversions,
                     const Associations& associations, Findings& findings)
    : conversionFile(conversionFile),
      conversions(conversions),
      associations(associations),
      findings(findings) {
  Collect();
}

void UnitRules::Collect() {
  for (const Conversion& conversion : conversions.All()) {
    const TiXmlElement& element = *conversion.element;
    Name(conversions.NameOf(conversion.from), conversionFile.At(*element.Parent()));
    Name(conversions.NameOf(conversion.to), conversionFile.At(element));
  }
  for (const auto& system : associations.Systems()) {
    for (const auto& [unit, association] : system->last) {
      Name(unit, association.file->At(*association.element));
      const std::string& shown = system->store.findData(unit)->toUnit;
      const Conversion* conversion = conversions.Find(unit, shown);
      if (shown == unit) {
        declared.insert(unit);
      } else if (conversion != nullptr) {
        dataUnits[shown].insert(conversion->from);
      }
    }
  }
}

void UnitRules::Name(const std::string& unit, const Place& place) {
  if (places.emplace(unit, place).second) {
    names.push_back(unit);
  }
}

void UnitRules::Check() {
  CheckSpelling();
  for (const auto& [shown, units] : dataUnits) {
    if (units.size() > 1) {
      CheckMeaning(shown, units);
    }
  }
}

// Two names that are both associated with themselves are meant to be two units.
void UnitRules::CheckSpelling() const {
  std::unordered_map<std::string, std::string> spellings;
  for (const std::string& unit : names) {
    const auto [first, added] = spellings.emplace(Folded(unit), unit);
    const std::string& other = first->second;
    if (!added && declared.count(unit) + declared.count(other) < 2) {
      findings.Add(places.at(unit), Rule::kSimilarUnits,
                   Quoted(unit) + " differs only by case or white space from " + Quoted(other) +
                       " at " + ToString(places.at(other)),
                   {unit, ""});
    }
  }
}

// A display unit means two things when, without it, the data units that it shows fall apart into
// groups which have other units of their own.
void UnitRules::CheckMeaning(const std::string& shown, const std::set<int>& shownUnits) const {
  const int avoided = *conversions.Find(shown);
  std::set<int> left = shownUnits;
  std::vector<int> groups;  // one unit of each
  while (!left.empty() && groups.size() < 2) {
    const int unit = *left.begin();
    const std::set<int> group = ReachableWithout(unit, avoided, left);
    if (group.size() > 1) {
      groups.push_back(unit);
    }
    for (const int member : group) {
      left.erase(member);
    }
  }
  if (groups.size() == 2) {
    findings.Add(places.at(shown), Rule::kMixedQuantities,
                 Quoted(shown) + " is all that connects " + Quoted(conversions.NameOf(groups[0])) +
                     " with " + Quoted(conversions.NameOf(groups[1])) +
                     ": does it mean the same for both?",
                 {shown, ""});
  }
}

// The units around `start` that are connected without `avoided`, as far as it takes to find all of
// `sought` and another one.
std::set<int> UnitRules::ReachableWithout(int start, int avoided,
                                          const std::set<int>& sought) const {
  std::set<int> reached{start};
  std::vector<int> queue{start};
  std::size_t found = sought.count(start);
  const auto enough = [&] { return found == sought.size() && reached.size() > 1; };
  for (std::size_t i = 0; i < queue.size() && !enough(); ++i) {
    for (const int next : conversions.NeighboursOf(queue[i])) {
      if (next != avoided && reached.insert(next).second) {
        queue.push_back(next);
        found += sought.count(next);
      }
    }
  }
  return reached;
}

}  // namespace check
