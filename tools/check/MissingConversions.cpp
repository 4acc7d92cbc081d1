#include "check/MissingConversions.h"

#include <vector>

#include "text/NearestNames.h"
#include "util/Text.h"

namespace check {

bool MissingConversions::Converts(const std::string& from) const {
  const auto number = conversions.Find(from);
  return number && !conversions.TargetsOf(*number).empty();
}

std::string MissingConversions::Describe(const std::string& from, const std::string& to) {
  constexpr int kMostSought = 100;
  const bool converts = Converts(from);
  std::string text = converts ? util::Quoted(from) + " does not convert into " + util::Quoted(to)
                              : "nothing converts from " + util::Quoted(from);
  if (++sought > kMostSought) {
    return text;
  }
  std::vector<std::string> names;
  if (converts) {
    for (const int target : conversions.TargetsOf(*conversions.Find(from))) {
      names.push_back(conversions.NameOf(target));
    }
  } else {
    for (int unit = 0; unit < conversions.UnitCount(); ++unit) {
      if (!conversions.TargetsOf(unit).empty()) {
        names.push_back(conversions.NameOf(unit));
      }
    }
  }
  return text + NearestNames(converts ? to : from, names);
}

}  // namespace check
