#include "check/CheckWays.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <exception>
#include <iterator>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/CheckConstants.h"
#include "check/Consensus.h"
#include "check/Readings.h"
#include "text/Numbers.h"
#include "util/Text.h"

namespace check {

namespace {

bool IsLinear(const model::Conversion& conversion) {
  return conversion.record->conversionType == VehicleV2::CONVERSION_SLOPE_INT;
}

// A value for which two ways differ, and what it becomes.
struct Example {
  double value;
  double got;
  double expected;
};

// `number` with as many digits as tell it from `other`, six at least.
std::string Brief(double number, double other) {
  for (int digits = 6; digits < 17; ++digits) {
    std::string text = FormatNumber(number, digits);
    if (text != FormatNumber(other, digits)) {
      return text;
    }
  }
  return FormatNumber(number);
}

// " (1 % off)"
std::string Off(const Example& example) {
  const double error = std::abs(example.got - example.expected);
  if (example.expected == 0) {
    return "";
  }
  const double percent = 100 * error / std::abs(example.expected);
  char text[32];
  std::snprintf(text, sizeof(text), percent >= 10 && percent < 1e6 ? "%.0f" : "%.2g", percent);
  return std::string(" (") + text + " % off)";
}

// To seek other ways takes long where there are very many conversions and most are wrong.
constexpr int kMostExplained = 200;

// Two steps, and the conversion that does the same at once.
using Triangle = std::array<const model::Conversion*, 3>;

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
  Ways(const model::Model& model, Findings& findings, Progress& progress)
      : file(*model.conversionFile),
        conversions(model.definitions.conversions),
        findings(findings),
        progress(progress),
        usable(conversions.All().size()),
        borneOut(conversions.All().size()),
        heads(static_cast<std::size_t>(conversions.UnitCount())),
        groups(heads.size()) {}

  void Check();

 private:
  using List = std::vector<const model::Conversion*>;

  std::vector<List> GroupsOf(const List& list);
  int HeadOf(int unit);
  void CheckGroup(const List& members);
  void CheckContradicted(const Consensus& consensus, const model::Conversion& conversion);
  void CheckPair(const model::Conversion& there, const model::Conversion& back);
  void ReportContradiction(const Consensus& consensus, const Way& way);
  void FindTriangles(const model::Conversion& first);
  void CheckTriangles();
  void Report(const Rule& rule, const List& suspects, const std::string& text);

  std::optional<Example> ExampleOf(const Way& one, const Way& other);
  Example ExampleOf(const Consensus& consensus, const model::Conversion& conversion);
  std::string DescribeReturn(const model::Conversion& there, const Example& example) const;
  std::string Describe(const model::Conversion& conversion, const Way& other,
                       const Example& example);
  bool IsUsable(const model::Conversion* conversion);
  bool AreInOneGroup(const Triangle& triangle) const;

  const model::Conversion* BackOf(const model::Conversion& conversion) const {
    return conversions.Find(conversion.to, conversion.from);
  }
  std::size_t PositionOf(const model::Conversion& conversion) const {
    return static_cast<std::size_t>(&conversion - conversions.All().data());
  }
  int& At(std::vector<int>& numbers, int unit) { return numbers[static_cast<std::size_t>(unit)]; }
  Subject SubjectOf(const model::Conversion& conversion) const {
    return {conversions.NameOf(conversion.from), conversions.NameOf(conversion.to)};
  }
  Place PlaceOf(const model::Conversion& conversion) const { return file.At(*conversion.element); }
  std::string LineOf(const model::Conversion& conversion) const {
    return std::to_string(PlaceOf(conversion).line);
  }
  bool IsTold(const model::Conversion* conversion) const { return told.count(conversion) != 0; }

  const model::File& file;
  const model::Conversions& conversions;
  Findings& findings;
  Progress& progress;
  Evaluator evaluator;
  std::vector<std::optional<bool>> usable;  // by position in the conversions, once it is asked
  std::vector<bool> borneOut;               // by position: whether others agree with it
  std::vector<int> heads;                   // by unit: another one of its group, or itself
  std::vector<int> groups;                  // by unit: the number of its group; 0 for none
  std::unordered_set<const model::Conversion*> told;
  int contradictions = 0;
  std::vector<Triangle> disagreeing;
};

void Ways::Check() {
  const auto& all = conversions.All();
  progress.Begin("comparing ways there and back", 2 * all.size());
  List list;
  for (const model::Conversion& conversion : all) {
    list.push_back(&conversion);
  }
  int count = 0;
  for (const List& linked : GroupsOf(list)) {
    List applicable;
    std::copy_if(linked.begin(), linked.end(), std::back_inserter(applicable),
                 [this](const model::Conversion* each) { return IsUsable(each); });
    for (const List& members : GroupsOf(applicable)) {
      ++count;
      for (const model::Conversion* member : members) {
        At(groups, member->from) = At(groups, member->to) = count;
        progress.Step();
      }
      CheckGroup(members);
    }
  }
  for (const model::Conversion& conversion : all) {
    FindTriangles(conversion);
    progress.Step();
  }
  CheckTriangles();
}

// The conversions among the units of each group that conversions there and back link; those that
// are not known to be unusable count.
std::vector<Ways::List> Ways::GroupsOf(const List& list) {
  for (const model::Conversion* conversion : list) {
    At(heads, conversion->from) = conversion->from;
    At(heads, conversion->to) = conversion->to;
  }
  for (const model::Conversion* conversion : list) {
    const model::Conversion* back = BackOf(*conversion);
    if (back != nullptr && usable[PositionOf(*back)].value_or(true)) {
      At(heads, HeadOf(conversion->from)) = HeadOf(conversion->to);
    }
  }
  std::unordered_map<int, std::size_t> numbers;
  std::vector<List> found;
  for (const model::Conversion* conversion : list) {
    const int head = HeadOf(conversion->from);
    if (conversion->from != conversion->to && head == HeadOf(conversion->to)) {
      const auto [entry, added] = numbers.emplace(head, found.size());
      if (added) {
        found.emplace_back();
      }
      found[entry->second].push_back(conversion);
    }
  }
  return found;
}

int Ways::HeadOf(int unit) {
  while (At(heads, unit) != unit) {
    unit = At(heads, unit) = At(heads, At(heads, unit));
  }
  return unit;
}

void Ways::CheckGroup(const List& members) {
  const Consensus consensus(members, evaluator);
  for (const model::Conversion* conversion : consensus.Contradicted()) {
    if (!IsTold(conversion)) {
      CheckContradicted(consensus, *conversion);
    }
  }
  for (const model::Conversion* there : members) {
    const model::Conversion* back = BackOf(*there);
    if (IsUsable(back)) {
      if (back > there && !IsTold(there) && !IsTold(back)) {
        CheckPair(*there, *back);
      }
      borneOut[PositionOf(*there)] = !IsTold(there);
    }
  }
}

// It stands alone against the others, or they contradict its way back with it.
void Ways::CheckContradicted(const Consensus& consensus, const model::Conversion& conversion) {
  const model::Conversion* back = BackOf(conversion);
  if (!IsUsable(back)) {
    ReportContradiction(consensus, {&conversion});
    return;
  }
  const std::optional<Example> gone = ExampleOf({&conversion, back}, {});
  if (!gone && consensus.Contradicts(*back)) {
    ReportContradiction(consensus, {&conversion, back});
  } else if (!gone || consensus.Contradicts(*back)) {
    ReportContradiction(consensus, {&conversion});
  } else if (++contradictions <= kMostExplained && consensus.Alternatives({&conversion}).empty()) {
    told.insert(&conversion);
    const std::string reason =
        consensus.IsIdentity(*back)
            ? ""
            : "; the other conversions agree with the way back in line " + LineOf(*back);
    findings.Add(PlaceOf(conversion), kNotInverse, DescribeReturn(conversion, *gone) + reason,
                 SubjectOf(conversion));
  } else {
    Report(kNotInverse, {&conversion, back}, DescribeReturn(conversion, *gone));
  }
}

void Ways::CheckPair(const model::Conversion& there, const model::Conversion& back) {
  if (LeadsBack({&there, &back}, evaluator)) {
    return;
  }
  if (const auto example = ExampleOf({&there, &back}, {})) {
    Report(kNotInverse, {&there, &back}, DescribeReturn(there, *example));
  } else if (!(IsLinear(there) && IsLinear(back))) {
    if (const auto other = ExampleOf({&back, &there}, {})) {
      Report(kNotInverse, {&there, &back}, DescribeReturn(back, *other));
    }
  }
}

void Ways::ReportContradiction(const Consensus& consensus, const Way& way) {
  const bool explained = ++contradictions <= kMostExplained;
  const model::Conversion& first = *way.front();
  const Way other = explained ? consensus.FindWay(first.from, first.to) : Way();
  const std::optional<Example> example = ExampleOf({&first}, other);
  std::string text = other.empty() || !example ? Describe(first, other, ExampleOf(consensus, first))
                                               : Describe(first, other, *example);
  List suspects;
  for (const Way& alternative : explained ? consensus.Alternatives(way) : std::vector<Way>()) {
    suspects.push_back(alternative.front());
    told.insert(alternative.begin(), alternative.end());
  }
  if (suspects.empty() || !consensus.IsIdentity(first)) {
    suspects.insert(suspects.begin(), &first);
  }
  if (suspects.size() == 1 && way.size() > 1) {
    text += "; its way back in line " + LineOf(*way.back()) + " is wrong in the same way";
  }
  told.insert(way.begin(), way.end());
  Report(kWaysDisagree, suspects, text);
}

void Ways::Report(const Rule& rule, const List& suspects, const std::string& text) {
  for (const model::Conversion* suspect : suspects) {
    std::string others;
    for (const model::Conversion* other : suspects) {
      if (other != suspect) {
        const Subject subject = SubjectOf(*other);
        others += (others.empty() ? "; this is wrong, or " : ", or ") + util::Quoted(subject.from) +
                  " into " + util::Quoted(subject.to) + " in line " + LineOf(*other);
      }
    }
    told.insert(suspect);
    findings.Add(PlaceOf(*suspect), rule, text + others, SubjectOf(*suspect));
  }
}

// Those of one group have been judged by it.
void Ways::FindTriangles(const model::Conversion& first) {
  const std::vector<int>& fromA = conversions.TargetsOf(first.from);
  const std::vector<int>& fromB = conversions.TargetsOf(first.to);
  for (const int c : fromA.size() < fromB.size() ? fromA : fromB) {
    const Triangle triangle{&first, conversions.Find(first.to, c), conversions.Find(first.from, c)};
    if (triangle[1] == nullptr || triangle[2] == nullptr || AreInOneGroup(triangle) ||
        !std::all_of(triangle.begin(), triangle.end(),
                     [this](const model::Conversion* each) { return IsUsable(each); })) {
      continue;
    }
    if (ExampleOf({triangle[0], triangle[1]}, {triangle[2]})) {
      disagreeing.push_back(triangle);
    } else {
      for (const model::Conversion* each : triangle) {
        borneOut[PositionOf(*each)] = true;
      }
    }
  }
}

// A wrong conversion spoils every triangle that it is part of: those that nothing bears out and
// that are in most of them are blamed, once, for all of them.
void Ways::CheckTriangles() {
  std::unordered_map<const model::Conversion*, int> counts;
  for (const Triangle& triangle : disagreeing) {
    for (const model::Conversion* each : triangle) {
      counts[each] += borneOut[PositionOf(*each)] ? 0 : 1;
    }
  }
  const auto most = [&counts](const Triangle& triangle) {
    return std::max({counts[triangle[0]], counts[triangle[1]], counts[triangle[2]]});
  };
  std::stable_sort(disagreeing.begin(), disagreeing.end(),
                   [&most](const Triangle& a, const Triangle& b) { return most(a) > most(b); });
  for (const Triangle& triangle : disagreeing) {
    if (std::none_of(triangle.begin(), triangle.end(),
                     [this](const model::Conversion* each) { return IsTold(each); })) {
      List suspects;
      std::copy_if(triangle.rbegin(), triangle.rend(), std::back_inserter(suspects),
                   [&](const model::Conversion* each) { return counts[each] == most(triangle); });
      const Way steps{triangle[0], triangle[1]};
      Report(kWaysDisagree, suspects,
             Describe(*triangle[2], steps, *ExampleOf({triangle[2]}, steps)));
    }
  }
}

// A round value, if it shows the difference.
std::optional<Example> Ways::ExampleOf(const Way& one, const Way& other) {
  for (const double value : {100.0, -100.0}) {
    const Reading got = Follow(one, {value, std::abs(value)}, evaluator);
    const Reading expected = Follow(other, {value, std::abs(value)}, evaluator);
    if (DifferenceOf(got, expected) > 0) {
      return Example{value, got.value, expected.value};
    }
  }
  const Readings samples = SampleReadings();
  const Readings all = Follow(one, samples, evaluator);
  const Readings allExpected = Follow(other, samples, evaluator);
  const std::size_t at = FindGreatestDifference(all, allExpected);
  if (at == samples.size()) {
    return std::nullopt;
  }
  return Example{samples[at].value, all[at].value, allExpected[at].value};
}

Example Ways::ExampleOf(const Consensus& consensus, const model::Conversion& conversion) {
  const Readings& values = consensus.Of(conversion.from);
  const Readings got = Follow(conversion, values, evaluator);
  const Readings& expected = consensus.Of(conversion.to);
  // Of the values that show it, the one of the most usual magnitude.
  const auto strangeness = [&](std::size_t i) {
    return DifferenceOf(got[i], expected[i]) > 0
               ? std::abs(std::log(std::abs(values[i].value) / 100))
               : HUGE_VAL;
  };
  std::size_t at = 0;
  for (std::size_t i = 1; i < values.size(); ++i) {
    at = strangeness(i) < strangeness(at) ? i : at;
  }
  return {values[at].value, got[at].value, expected[at].value};
}

std::string Ways::DescribeReturn(const model::Conversion& there, const Example& example) const {
  return FormatNumber(example.value, 6) + ' ' + conversions.NameOf(there.from) + " to " +
         conversions.NameOf(there.to) + " and back gives " + Brief(example.got, example.value) +
         Off(example);
}

std::string Ways::Describe(const model::Conversion& conversion, const Way& other,
                           const Example& example) {
  std::vector<std::string> between;
  for (const model::Conversion* step : other) {
    if (step != other.back()) {
      between.push_back(conversions.NameOf(step->to));
    }
  }
  return FormatNumber(example.value, 6) + ' ' + conversions.NameOf(conversion.from) + " to " +
         conversions.NameOf(conversion.to) + " gives " + Brief(example.got, example.expected) +
         ", but " +
         (between.empty() ? "by the other conversions" : "by way of " + util::Join(between)) + ' ' +
         Brief(example.expected, example.got) + Off(example);
}

bool Ways::IsUsable(const model::Conversion* conversion) {
  if (conversion == nullptr) {
    return false;
  }
  std::optional<bool>& known = usable[PositionOf(*conversion)];
  if (!known) {
    known = CanBeApplied(*conversion, evaluator);
  }
  return *known;
}

bool Ways::AreInOneGroup(const Triangle& triangle) const {
  const auto groupOf = [this](int unit) { return groups[static_cast<std::size_t>(unit)]; };
  const int group = groupOf(triangle[0]->from);
  return group != 0 && group == groupOf(triangle[1]->from) && group == groupOf(triangle[2]->to);
}

}  // namespace

void CheckWays(const model::Model& model, Findings& findings, Progress& progress) {
  Ways(model, findings, progress).Check();
}

}  // namespace check
