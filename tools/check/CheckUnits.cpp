#include "check/CheckUnits.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "util/Text.h"

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

class Units {
 public:
  Units(const model::Model& model, Findings& findings)
      : model(model), conversions(model.definitions.conversions), findings(findings) {}

  void Check();

 private:
  void Collect();
  void CheckSpelling() const;
  void CheckThatTheyAreUsed() const;
  void Name(const std::string& unit, const Place& place);
  void CheckMeaning(const std::string& label, const std::set<int>& shownUnits) const;
  std::set<int> ReachableWithout(int start, int avoided, const std::set<int>& sought) const;

  const model::Model& model;
  const model::Conversions& conversions;
  Findings& findings;

  std::vector<std::string> names;                  // of all units, as they come
  std::unordered_map<std::string, Place> places;   // where each unit is named first
  std::set<std::string> declared;                  // associated with themselves
  std::set<std::string> received;                  // data units
  std::set<std::string> shown;                     // display units
  std::map<std::string, std::set<int>> dataUnits;  // that a display unit shows
};

void Units::Collect() {
  for (const model::Conversion& conversion : conversions.All()) {
    const TiXmlElement& element = *conversion.element;
    Name(conversions.NameOf(conversion.from), model.conversionFile->At(*element.Parent()));
    Name(conversions.NameOf(conversion.to), model.conversionFile->At(element));
  }
  for (const model::UnitSystem& system : model.systems) {
    for (const auto& [unit, display] : system.displays) {
      Name(unit, display.association->At());
      received.insert(unit);
      shown.insert(display.label);
      const model::Conversion* conversion = conversions.Find(unit, display.label);
      if (display.label == unit) {
        declared.insert(unit);
      } else if (conversion != nullptr) {
        dataUnits[display.label].insert(conversion->from);
      }
    }
  }
}

void Units::Name(const std::string& unit, const Place& place) {
  if (places.emplace(unit, place).second) {
    names.push_back(unit);
  }
}

void Units::Check() {
  Collect();
  CheckSpelling();
  CheckThatTheyAreUsed();
  for (const auto& [label, units] : dataUnits) {
    if (units.size() > 1) {
      CheckMeaning(label, units);
    }
  }
}

// Two names that are both associated with themselves are meant to be two units.
void Units::CheckSpelling() const {
  std::unordered_map<std::string, std::string> spellings;
  for (const std::string& unit : names) {
    const auto [first, added] = spellings.emplace(Folded(unit), unit);
    const std::string& other = first->second;
    if (!added && declared.count(unit) + declared.count(other) < 2) {
      findings.Add(places.at(unit), kSimilarUnits,
                   util::Quoted(unit) + " differs only by case or white space from " +
                       util::Quoted(other) + " at " + ToMessage(places.at(other)),
                   {unit, other});
    }
  }
}

// A value arrives in a data unit and is shown in one that this converts into. Another base name may
// have other data units.
void Units::CheckThatTheyAreUsed() const {
  const bool whole = std::all_of(model.systems.begin(), model.systems.end(),
                                 [](const auto& system) { return system.obstacles.empty(); });
  if (model.systems.empty() || model.base || !whole) {
    return;
  }
  std::vector<bool> isTarget(static_cast<std::size_t>(conversions.UnitCount()));
  for (const model::Conversion& conversion : conversions.All()) {
    if (received.count(conversions.NameOf(conversion.from)) != 0) {
      isTarget[static_cast<std::size_t>(conversion.to)] = true;
    }
  }
  for (int unit = 0; unit < conversions.UnitCount(); ++unit) {
    const std::string& name = conversions.NameOf(unit);
    if (received.count(name) + shown.count(name) == 0 &&
        !isTarget[static_cast<std::size_t>(unit)]) {
      findings.Add(places.at(name), kUnreachable,
                   "no unit system associates " + util::Quoted(name) +
                       ", and no data unit converts into it: its conversions are never used",
                   {name, ""});
    }
  }
}

// A display unit means two things when, without it, the data units that it shows fall apart into
// groups which have other units of their own.
void Units::CheckMeaning(const std::string& label, const std::set<int>& shownUnits) const {
  const int avoided = *conversions.Find(label);
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
    findings.Add(places.at(label), kMixedQuantities,
                 util::Quoted(label) + " is all that connects " +
                     util::Quoted(conversions.NameOf(groups[0])) + " with " +
                     util::Quoted(conversions.NameOf(groups[1])) +
                     ": does it mean the same for both?",
                 {label, ""});
  }
}

// The units around `start` that are connected without `avoided`, as far as it takes to find all of
// `sought` and another one.
std::set<int> Units::ReachableWithout(int start, int avoided, const std::set<int>& sought) const {
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

}  // namespace

void CheckUnits(const model::Model& model, Findings& findings) { Units(model, findings).Check(); }

}  // namespace check
