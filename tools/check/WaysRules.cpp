#include "check/WaysRules.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <utility>

#include "Numbers.h"
#include "Quoted.h"

namespace check {

namespace {

using Pair = std::pair<int, int>;

Pair PairOf(const Conversion* conversion) { return std::minmax(conversion->from, conversion->to); }

std::string Describe(const Difference& difference) {
  char error[32];
  std::snprintf(error, sizeof(error), "%.2g", difference.error);
  return std::string("by a relative error of ") + error + " at " + FormatNumber(difference.at);
}

bool IsLinear(const Conversion& conversion) {
  return conversion.record->conversionType == VehicleV2::CONVERSION_SLOPE_INT;
}

Way Both(const Way& one, const Way& other) {
  Way both = one;
  both.insert(both.end(), other.begin(), other.end());
  return both;
}

}  // namespace

WaysRules::WaysRules(const DataFile& file, const Conversions& conversions, Findings& findings)
    : file(file), conversions(conversions), findings(findings) {
  for (const Conversion& conversion : conversions.All()) {
    sound.push_back(conversion.usable && conversion.from != conversion.to);
  }
}

void WaysRules::Check(Progress& progress) {
  const auto& all = conversions.All();
  progress.Begin("comparing ways there and back", 2 * all.size());
  for (const Conversion& conversion : all) {
    const Conversion* back = conversions.Find(conversion.to, conversion.from);
    if (IsSound(&conversion) && IsSound(back) && back > &conversion) {
      CheckWayBack(conversion, *back);
    }
    progress.Step();
  }
  const Tree tree = GrowTree();
  for (const Conversion& conversion : all) {
    if (IsTwoWay(conversion)) {
      CheckAgainstTree(tree, conversion);
    }
    if (IsSound(&conversion)) {
      CheckTriangles(conversion);
    }
    progress.Step();
  }
  ReportLoops();
}

void WaysRules::CheckWayBack(const Conversion& there, const Conversion& back) {
  const Conversion* start = &there;
  Difference difference = comparison.Compare({&there, &back}, {});
  if (difference.error == 0 && !(IsLinear(there) && IsLinear(back))) {
    start = &back;
    difference = comparison.Compare({&back, &there}, {});
  }
  if (difference.error == 0) {
    return;
  }
  sound[PositionOf(there)] = false;
  sound[PositionOf(back)] = false;
  const std::string from = conversions.NameOf(there.from);
  const std::string to = conversions.NameOf(there.to);
  findings.Add(file.At(*back.element), Rule::kNotInverse,
               Quoted(to) + " into " + Quoted(from) + " is not the inverse of " + Quoted(from) +
                   " into " + Quoted(to) + " at " + ToString(file.At(*there.element)) +
                   ": there and back differs " + Describe(difference) + ' ' +
                   Quoted(conversions.NameOf(start->from)),
               {to, from});
}

WaysRules::Tree WaysRules::GrowTree() const {
  const auto count = static_cast<std::size_t>(conversions.UnitCount());
  Tree tree{std::vector<int>(count, -1), std::vector<int>(count, -1)};
  std::vector<int> queue;
  for (int root = 0; root < conversions.UnitCount(); ++root) {
    if (tree.depths[static_cast<std::size_t>(root)] >= 0) {
      continue;
    }
    tree.depths[static_cast<std::size_t>(root)] = 0;
    queue.assign(1, root);
    for (std::size_t i = 0; i < queue.size(); ++i) {
      const int unit = queue[i];
      for (const int next : conversions.TargetsOf(unit)) {
        int& depth = tree.depths[static_cast<std::size_t>(next)];
        if (depth < 0 && IsTwoWay(*conversions.Find(unit, next))) {
          depth = tree.depths[static_cast<std::size_t>(unit)] + 1;
          tree.parents[static_cast<std::size_t>(next)] = unit;
          queue.push_back(next);
        }
      }
    }
  }
  return tree;
}

// A conversion outside of the tree closes a loop with the branches of its two units.
void WaysRules::CheckAgainstTree(const Tree& tree, const Conversion& conversion) {
  int from = conversion.from;
  int to = conversion.to;
  const auto parentOf = [&tree](int unit) { return tree.parents[static_cast<std::size_t>(unit)]; };
  const auto depthOf = [&tree](int unit) { return tree.depths[static_cast<std::size_t>(unit)]; };
  if (from >= to || parentOf(from) == to || parentOf(to) == from) {
    return;
  }
  Way one{&conversion};
  Way other;
  const auto climb = [&](int& unit, Way& way) {
    way.insert(way.begin(), conversions.Find(parentOf(unit), unit));
    unit = parentOf(unit);
  };
  while (from != to) {
    if (depthOf(from) >= depthOf(to)) {
      climb(from, one);
    } else {
      climb(to, other);
    }
  }
  AddLoop(one, other, conversion);
}

// Loops of two-way conversions are found by the tree; here are those with others in them.
void WaysRules::CheckTriangles(const Conversion& first) {
  const std::vector<int>& fromA = conversions.TargetsOf(first.from);
  const std::vector<int>& fromB = conversions.TargetsOf(first.to);
  for (const int c : fromA.size() < fromB.size() ? fromA : fromB) {
    const Conversion* second = conversions.Find(first.to, c);
    const Conversion* direct = conversions.Find(first.from, c);
    if (IsSound(second) && IsSound(direct) &&
        !(IsTwoWay(first) && IsTwoWay(*second) && IsTwoWay(*direct))) {
      AddLoop({&first, second}, {direct}, *direct);
    }
  }
}

void WaysRules::AddLoop(const Way& one, const Way& other, const Conversion& closing) {
  const Difference difference = comparison.Compare(one, other);
  if (difference.error > 0) {
    loops.push_back({one, other, &closing, difference});
  }
}

// A wrong conversion spoils every loop that it is part of: the one that is in most of them is
// blamed, once, for all of them.
void WaysRules::ReportLoops() {
  std::map<Pair, int> counts;
  for (const Loop& loop : loops) {
    for (const Conversion* conversion : Both(loop.one, loop.other)) {
      ++counts[PairOf(conversion)];
    }
  }
  const auto blamedOf = [&counts](const Loop& loop) {
    const Conversion* blamed = loop.closing;
    for (const Conversion* conversion : Both(loop.one, loop.other)) {
      blamed = counts[PairOf(conversion)] > counts[PairOf(blamed)] ? conversion : blamed;
    }
    return blamed;
  };
  std::stable_sort(loops.begin(), loops.end(), [&](const Loop& a, const Loop& b) {
    return counts[PairOf(blamedOf(a))] > counts[PairOf(blamedOf(b))];
  });
  std::set<Pair> blamed;
  for (const Loop& loop : loops) {
    const Way both = Both(loop.one, loop.other);
    const bool explained = std::any_of(both.begin(), both.end(), [&](const Conversion* conversion) {
      return blamed.count(PairOf(conversion)) != 0;
    });
    if (!explained) {
      const Conversion* most = blamedOf(loop);
      blamed.insert(PairOf(most));
      Report(loop, *most);
    }
  }
}

void WaysRules::Report(const Loop& loop, const Conversion& blamed) {
  const std::string from = conversions.NameOf(blamed.from);
  const std::string to = conversions.NameOf(blamed.to);
  findings.Add(file.At(*blamed.element), Rule::kWaysDisagree,
               Quoted(from) + " into " + Quoted(to) + " does not fit: " + NamesOf(loop.one) +
                   " and " + NamesOf(loop.other) + " differ " + Describe(loop.difference),
               {from, to});
}

std::size_t WaysRules::PositionOf(const Conversion& conversion) const {
  return static_cast<std::size_t>(&conversion - conversions.All().data());
}

bool WaysRules::IsSound(const Conversion* conversion) const {
  return conversion != nullptr && sound[PositionOf(*conversion)];
}

bool WaysRules::IsTwoWay(const Conversion& conversion) const {
  return IsSound(&conversion) && IsSound(conversions.Find(conversion.to, conversion.from));
}

std::string WaysRules::NamesOf(const Way& way) const {
  std::string names = Quoted(conversions.NameOf(way.front()->from));
  for (const Conversion* conversion : way) {
    names += " -> " + Quoted(conversions.NameOf(conversion->to));
  }
  return names;
}

}  // namespace check
