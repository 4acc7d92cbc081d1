#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/Readings.h"

namespace check {

/// Units that convert into each other, there and back, and what each of them reads for the same
/// things: so chosen that as many of the conversions as possible agree with it.
class Consensus {
 public:
  using List = std::vector<const model::Conversion*>;

  /// `members` are the conversions of the group, all of them applicable. Each unit of it can be
  /// reached from each other by conversions that have a way back.
  Consensus(const List& members, Evaluator& evaluator);

  /// The members that the rest contradicts, in their order.
  const List& Contradicted() const { return contradicted; }
  bool Contradicts(const model::Conversion& conversion) const;

  /// What may be wrong just as well as `way`, one contradicted conversion or that and its way back:
  /// other conversions, no more of them, without which nothing would contradict it. Each with its
  /// own way back, if that may be wrong with it. Nobody mistypes that a unit is another one: such
  /// conversions are none.
  std::vector<Way> Alternatives(const Way& way) const;

  /// Whether a conversion leaves values as they are.
  bool IsIdentity(const model::Conversion& conversion) const;

  /// A shortest way between two units of the group by conversions that agree; empty if there is
  /// none.
  Way FindWay(int from, int to) const;

  /// What a unit of the group reads.
  const Readings& Of(int unit) const { return readings.at(unit); }

 private:
  void ReadAlong(const List& conversions);
  bool Returns(const model::Conversion& conversion) const;
  void CollectContradicted();
  bool Vote(int unit);
  bool Agrees(const model::Conversion& conversion) const;
  Way Agreeing(int one, int other) const;
  Way FindPath(int from, int to, bool backwards, const Way& avoided) const;

  Evaluator& evaluator;
  const List& members;
  std::vector<int> units;  // in the order in which the members name them
  std::unordered_map<int, List> from;
  std::unordered_map<int, List> to;
  std::unordered_map<int, Readings> readings;
  std::unordered_set<const model::Conversion*> followed;  // those that gave a unit its readings
  List contradicted;
  std::unordered_set<const model::Conversion*> contradictedSet;
};

}  // namespace check
