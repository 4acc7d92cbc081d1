#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "check/Comparison.h"
#include "check/Conversions.h"
#include "check/DataFile.h"
#include "check/Findings.h"
#include "check/Progress.h"

namespace check {

/// Judges conversions by each other: the way back must be the inverse of the way there, and all
/// ways from one unit to another must give the same.
class WaysRules {
 public:
  WaysRules(const DataFile& file, const Conversions& conversions, Findings& findings);

  void Check(Progress& progress);

 private:
  // Two ways from one unit to another that disagree.
  struct Loop {
    Way one;
    Way other;
    const Conversion* closing;  // the one to blame where nothing else tells
    Difference difference;
  };

  // A tree of two-way conversions over all units; the root of each group has no parent.
  struct Tree {
    std::vector<int> parents;
    std::vector<int> depths;
  };

  void CheckWayBack(const Conversion& there, const Conversion& back);
  Tree GrowTree() const;
  void CheckAgainstTree(const Tree& tree, const Conversion& conversion);
  void CheckTriangles(const Conversion& first);
  void AddLoop(const Way& one, const Way& other, const Conversion& closing);
  void ReportLoops();
  void Report(const Loop& loop, const Conversion& blamed);

  std::size_t PositionOf(const Conversion& conversion) const;
  bool IsSound(const Conversion* conversion) const;
  bool IsTwoWay(const Conversion& conversion) const;
  std::string NamesOf(const Way& way) const;

  // A conversion is sound when it can be applied, leads to another unit, and is not at odds with
  // its way back: it is then blamed for that alone.
  const DataFile& file;
  const Conversions& conversions;
  Findings& findings;
  Comparison comparison;
  std::vector<bool> sound;  // by position in the conversions
  std::vector<Loop> loops;
};

}  // namespace check
