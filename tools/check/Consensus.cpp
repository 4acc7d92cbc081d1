#include "check/Consensus.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace check {

namespace {

// Magnitudes in steps of a hundred: what these miss, the comparison of two conversions there and
// back by all sample values finds.
Readings FewReadings() {
  Readings readings{{0, 0}};
  for (const double value : {3.7e-6, 3.7e-4, 3.7e-2, 3.7, 3.7e2, 3.7e4, 3.7e6}) {
    readings.push_back({value, value});
    readings.push_back({-value, value});
  }
  return readings;
}

bool Holds(const Way& way, const model::Conversion* conversion) {
  return std::find(way.begin(), way.end(), conversion) != way.end();
}

}  // namespace

Consensus::Consensus(const List& members, Evaluator& evaluator)
    : evaluator(evaluator), members(members) {
  for (const model::Conversion* member : members) {
    for (const int unit : {member->from, member->to}) {
      if (from[unit].empty() && to[unit].empty()) {
        units.push_back(unit);
      }
    }
    from[member->from].push_back(member);
    to[member->to].push_back(member);
  }
  ReadAlong(members);
  CollectContradicted();
  if (contradicted.empty()) {
    return;
  }
  List returning;
  std::copy_if(members.begin(), members.end(), std::back_inserter(returning),
               [this](const model::Conversion* member) { return Returns(*member); });
  readings.clear();
  ReadAlong(returning);
  ReadAlong(members);
  followed.clear();
  constexpr int kMostRounds = 20;
  bool changed = true;
  for (int round = 0; changed && round < kMostRounds; ++round) {
    changed = false;
    for (const int unit : units) {
      changed = Vote(unit) || changed;
    }
  }
  CollectContradicted();
}

bool Consensus::Contradicts(const model::Conversion& conversion) const {
  return contradictedSet.count(&conversion) != 0;
}

std::vector<Way> Consensus::Alternatives(const Way& way) const {
  std::vector<Way> alternatives;
  const Way path = FindPath(way.front()->from, way.front()->to, true, {});
  for (const model::Conversion* step : path) {
    const Way agreeing = Agreeing(step->from, step->to);
    if (agreeing.size() <= way.size() && !IsIdentity(*agreeing.front()) &&
        FindPath(way.front()->from, way.front()->to, true, agreeing).empty()) {
      alternatives.push_back(agreeing);
    }
  }
  return alternatives;
}

bool Consensus::IsIdentity(const model::Conversion& conversion) const {
  const Readings samples = SampleReadings();
  return Agree(Follow(conversion, samples, evaluator), samples);
}

Way Consensus::FindWay(int start, int end) const { return FindPath(start, end, false, {}); }

// Gives each unit what the first of `conversions` that leads to it from units that read something
// makes it read; the unit of most conversions is where that begins.
void Consensus::ReadAlong(const List& conversions) {
  if (readings.empty()) {
    const auto central = std::max_element(units.begin(), units.end(), [this](int a, int b) {
      return from[a].size() + to[a].size() < from[b].size() + to[b].size();
    });
    readings[*central] = FewReadings();
  }
  std::unordered_map<int, List> leading;
  for (const model::Conversion* conversion : conversions) {
    leading[conversion->from].push_back(conversion);
  }
  std::vector<int> queue;
  std::copy_if(units.begin(), units.end(), std::back_inserter(queue),
               [this](int unit) { return readings.count(unit) != 0; });
  for (std::size_t i = 0; i < queue.size(); ++i) {
    const int unit = queue[i];
    for (const model::Conversion* conversion : leading[unit]) {
      if (readings.count(conversion->to) == 0) {
        readings[conversion->to] = Follow(*conversion, readings.at(unit), evaluator);
        followed.insert(conversion);
        queue.push_back(conversion->to);
      }
    }
  }
}

// Whether the way back leads to where `conversion` began.
bool Consensus::Returns(const model::Conversion& conversion) const {
  const List& back = from.at(conversion.to);
  const auto found = std::find_if(back.begin(), back.end(), [&](const model::Conversion* each) {
    return each->to == conversion.from;
  });
  const Readings samples = SampleReadings();
  return found != back.end() && Agree(Follow({&conversion, *found}, samples, evaluator), samples);
}

void Consensus::CollectContradicted() {
  contradicted.clear();
  std::copy_if(members.begin(), members.end(), std::back_inserter(contradicted),
               [this](const model::Conversion* member) { return !Agrees(*member); });
  contradictedSet = {contradicted.begin(), contradicted.end()};
}

// Gives `unit` what most of its conversions agree with; says whether that is something new.
bool Consensus::Vote(int unit) {
  std::vector<std::pair<Readings, int>> candidates{{readings.at(unit), 0}};
  for (const model::Conversion* conversion : to.at(unit)) {
    const Readings read = Follow(*conversion, readings.at(conversion->from), evaluator);
    const auto same =
        std::find_if(candidates.begin(), candidates.end(),
                     [&read](const auto& candidate) { return Agree(candidate.first, read); });
    if (same != candidates.end()) {
      ++same->second;
    } else {
      candidates.emplace_back(read, 1);
    }
  }
  if (candidates.size() == 1) {
    return false;
  }
  for (auto& [read, votes] : candidates) {
    for (const model::Conversion* conversion : from.at(unit)) {
      votes += Agree(Follow(*conversion, read, evaluator), readings.at(conversion->to)) ? 1 : 0;
    }
  }
  const auto best =
      std::max_element(candidates.begin(), candidates.end(),
                       [](const auto& a, const auto& b) { return a.second < b.second; });
  if (best == candidates.begin()) {
    return false;
  }
  readings.at(unit) = best->first;
  return true;
}

bool Consensus::Agrees(const model::Conversion& conversion) const {
  return followed.count(&conversion) != 0 ||
         Agree(Follow(conversion, readings.at(conversion.from), evaluator),
               readings.at(conversion.to));
}

// The conversions between two units, in both directions, that agree.
Way Consensus::Agreeing(int one, int other) const {
  Way agreeing;
  for (const auto& [start, end] : {std::pair(one, other), std::pair(other, one)}) {
    for (const model::Conversion* conversion : from.at(start)) {
      if (conversion->to == end && !Contradicts(*conversion)) {
        agreeing.push_back(conversion);
      }
    }
  }
  return agreeing;
}

// A shortest path by conversions that agree and are not `avoided`; `backwards` lets it take them
// against their direction, too.
Way Consensus::FindPath(int start, int end, bool backwards, const Way& avoided) const {
  std::unordered_map<int, const model::Conversion*> reachedBy{{start, nullptr}};
  std::vector<int> queue{start};
  const auto visit = [&](const model::Conversion* conversion, int unit) {
    if (reachedBy.count(unit) == 0 && !Contradicts(*conversion) && !Holds(avoided, conversion)) {
      reachedBy[unit] = conversion;
      queue.push_back(unit);
    }
  };
  for (std::size_t i = 0; i < queue.size() && reachedBy.count(end) == 0; ++i) {
    const int unit = queue[i];
    if (const auto leading = from.find(unit); leading != from.end()) {
      for (const model::Conversion* conversion : leading->second) {
        visit(conversion, conversion->to);
      }
    }
    if (const auto leading = to.find(unit); backwards && leading != to.end()) {
      for (const model::Conversion* conversion : leading->second) {
        visit(conversion, conversion->from);
      }
    }
  }
  Way path;
  if (reachedBy.count(end) == 0) {
    return path;
  }
  for (int unit = end; unit != start;) {
    const model::Conversion* step = reachedBy.at(unit);
    path.insert(path.begin(), step);
    unit = step->to == unit ? step->from : step->to;
  }
  return path;
}

}  // namespace check
