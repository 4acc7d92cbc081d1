#include "check/CheckWays.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "check/CheckConstants.h"
#include "check/Comparison.h"
#include "check/Formula.h"
#include "text/Numbers.h"
#include "util/Text.h"

namespace check {

namespace {

using Pair = std::pair<int, int>;

Pair PairOf(const model::Conversion* conversion) {
  return std::minmax(conversion->from, conversion->to);
}

std::string Describe(const Difference& difference) {
  char error[32];
  std::snprintf(error, sizeof(error), "%.2g", difference.error);
  return std::string("by a relative error of ") + error + " at " + FormatNumber(difference.at);
}

bool IsLinear(const model::Conversion& conversion) {
  return conversion.record->conversionType == VehicleV2::CONVERSION_SLOPE_INT;
}

Way Both(const Way& one, const Way& other) {
  Way both = one;
  both.insert(both.end(), other.begin(), other.end());
  return both;
}

// Whether `conversion` leads to another unit and can be applied as its author has written it.
bool CanBeApplied(const model::Conversion& conversion, Evaluator& evaluator) {
  if (conversion.from == conversion.to) {
    return false;
  }
  try {
    evaluator.Apply(*conversion.record, 1);
  } catch (const std::exception&) {
    return false;
  }
  return !conversion.again.empty() || !IsLinear(conversion) ||
         HasSoundConstants(*conversion.element->FirstChildElement("conv"));
}

class Ways {
 public:
  Ways(const model::Model& model, Findings& findings)
      : file(*model.conversionFile),
        conversions(model.definitions.conversions),
        findings(findings) {}

  void Check(Progress& progress);

 private:
  // Two ways from one unit to another that disagree.
  struct Loop {
    Way one;
    Way other;
    const model::Conversion* closing;  // the one to blame where nothing else tells
    Difference difference;
  };

  // A tree of two-way conversions over all units; the root of each group has no parent.
  struct Tree {
    std::vector<int> parents;
    std::vector<int> depths;
  };

  void CheckWayBack(const model::Conversion& there, const model::Conversion& back);
  Tree GrowTree() const;
  void CheckAgainstTree(const Tree& tree, const model::Conversion& conversion);
  void CheckTriangles(const model::Conversion& first);
  void AddLoop(const Way& one, const Way& other, const model::Conversion& closing);
  void ReportLoops();
  void Report(const Loop& loop, const model::Conversion& blamed);

  std::size_t PositionOf(const model::Conversion& conversion) const;
  bool IsSound(const model::Conversion* conversion) const;
  bool IsTwoWay(const model::Conversion& conversion) const;
  std::string NamesOf(const Way& way) const;

  // A conversion is sound when it can be applied, leads to another unit, and is not at odds with
  // its way back: it is then blamed for that alone.
  const model::File& file;
  const model::Conversions& conversions;
  Findings& findings;
  Comparison comparison;
  std::vector<bool> sound;  // by position in the conversions
  std::vector<Loop> loops;
};

void Ways::Check(Progress& progress) {
  const auto& all = conversions.All();
  Evaluator evaluator;
  for (const model::Conversion& conversion : all) {
    sound.push_back(CanBeApplied(conversion, evaluator));
  }
  progress.Begin("comparing ways there and back", 2 * all.size());
  for (const model::Conversion& conversion : all) {
    const model::Conversion* back = conversions.Find(conversion.to, conversion.from);
    if (IsSound(&conversion) && IsSound(back) && back > &conversion) {
      CheckWayBack(conversion, *back);
    }
    progress.Step();
  }
  const Tree tree = GrowTree();
  for (const model::Conversion& conversion : all) {
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

void Ways::CheckWayBack(const model::Conversion& there, const model::Conversion& back) {
  const model::Conversion* start = &there;
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
  findings.Add(file.At(*back.element), kNotInverse,
               util::Quoted(to) + " into " + util::Quoted(from) + " is not the inverse of " +
                   util::Quoted(from) + " into " + util::Quoted(to) + " at " +
                   ToMessage(file.At(*there.element)) + ": there and back differs " +
                   Describe(difference) + " " + util::Quoted(conversions.NameOf(start->from)),
               {to, from});
}

Ways::Tree Ways::GrowTree() const {
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
void Ways::CheckAgainstTree(const Tree& tree, const model::Conversion& conversion) {
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
void Ways::CheckTriangles(const model::Conversion& first) {
  const std::vector<int>& fromA = conversions.TargetsOf(first.from);
  const std::vector<int>& fromB = conversions.TargetsOf(first.to);
  for (const int c : fromA.size() < fromB.size() ? fromA : fromB) {
    const model::Conversion* second = conversions.Find(first.to, c);
    const model::Conversion* direct = conversions.Find(first.from, c);
    if (IsSound(second) && IsSound(direct) &&
        !(IsTwoWay(first) && IsTwoWay(*second) && IsTwoWay(*direct))) {
      AddLoop({&first, second}, {direct}, *direct);
    }
  }
}

void Ways::AddLoop(const Way& one, const Way& other, const model::Conversion& closing) {
  const Difference difference = comparison.Compare(one, other);
  if (difference.error > 0) {
    loops.push_back({one, other, &closing, difference});
  }
}

// A wrong conversion spoils every loop that it is part of: the one that is in most of them is
// blamed, once, for all of them.
void Ways::ReportLoops() {
  std::map<Pair, int> counts;
  for (const Loop& loop : loops) {
    for (const model::Conversion* conversion : Both(loop.one, loop.other)) {
      ++counts[PairOf(conversion)];
    }
  }
  const auto blamedOf = [&counts](const Loop& loop) {
    const model::Conversion* blamed = loop.closing;
    for (const model::Conversion* conversion : Both(loop.one, loop.other)) {
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
    const bool explained = std::any_of(
        both.begin(), both.end(),
        [&](const model::Conversion* conversion) { return blamed.count(PairOf(conversion)) != 0; });
    if (!explained) {
      const model::Conversion* most = blamedOf(loop);
      blamed.insert(PairOf(most));
      Report(loop, *most);
    }
  }
}

void Ways::Report(const Loop& loop, const model::Conversion& blamed) {
  const std::string from = conversions.NameOf(blamed.from);
  const std::string to = conversions.NameOf(blamed.to);
  findings.Add(file.At(*blamed.element), kWaysDisagree,
               util::Quoted(from) + " into " + util::Quoted(to) +
                   " does not fit: " + NamesOf(loop.one) + " and " + NamesOf(loop.other) +
                   " differ " + Describe(loop.difference),
               {from, to});
}

std::size_t Ways::PositionOf(const model::Conversion& conversion) const {
  return static_cast<std::size_t>(&conversion - conversions.All().data());
}

bool Ways::IsSound(const model::Conversion* conversion) const {
  return conversion != nullptr && sound[PositionOf(*conversion)];
}

bool Ways::IsTwoWay(const model::Conversion& conversion) const {
  return IsSound(&conversion) && IsSound(conversions.Find(conversion.to, conversion.from));
}

std::string Ways::NamesOf(const Way& way) const {
  std::string names = util::Quoted(conversions.NameOf(way.front()->from));
  for (const model::Conversion* conversion : way) {
    names += " -> " + util::Quoted(conversions.NameOf(conversion->to));
  }
  return names;
}

}  // namespace

void CheckWays(const model::Model& model, Findings& findings, Progress& progress) {
  Ways(model, findings).Check(progress);
}

}  // namespace check
