#include "check/HoldBack.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "check/CheckAssociations.h"
#include "check/CheckConstants.h"
#include "check/CheckDefinitions.h"
#include "check/CheckDocuments.h"
#include "check/CheckEncoding.h"
#include "check/CheckExpressions.h"
#include "check/CheckIncludes.h"
#include "check/CheckMarkup.h"
#include "check/CheckNames.h"
#include "check/CheckReference.h"
#include "check/CheckSamples.h"
#include "check/CheckUnits.h"
#include "check/CheckWays.h"
#include "text/NearestNames.h"

namespace check {

namespace {

using Rules = std::initializer_list<const Rule*>;

bool IsOneOf(const Finding& finding, Rules rules) {
  return std::find(rules.begin(), rules.end(), finding.rule) != rules.end();
}

bool IsWhole(const model::File& file) {
  return file.state != model::File::State::kUnreadable && !file.IsReadInPart();
}

bool HoldsBeyondAscii(const Message& message) {
  const std::string text = message.Bytes();
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

bool IsAtOrBehind(const Place& place, const Place& other) {
  return place.file == other.file &&
         std::tie(place.line, place.column) >= std::tie(other.line, other.column);
}

void HoldBackBehindFault(const model::File& file, Findings& findings) {
  if (const std::optional<Place> fault = FirstUnreliable(file)) {
    findings.HoldBack([&fault](const Finding& finding) {
      return IsAtOrBehind(finding.place, *fault) &&
             !IsOneOf(finding, {&kNotLoaded, &kNotWellFormed, &kWrongRoot, &kBadEncoding,
                                &kForeignEncoding, &kMergeConflict});
    });
  }
}

// What says that something is not there, though it may only not have been read.
void HoldBackWhereFilesAreLost(const model::Model& model, Findings& findings) {
  const auto isWhole = [&findings](const model::File& file) {
    return IsWhole(file) && !findings.Has([&file](const Finding& finding) {
      return finding.place.file == file.Path() &&
             IsOneOf(finding, {&kMergeConflict, &kNotWellFormed});
    });
  };
  if (!isWhole(*model.conversionFile)) {
    findings.HoldBack([](const Finding& finding) {
      return IsOneOf(finding, {&kNoConversion, &kNoWayBack, &kNoSuchConversion, &kMixedQuantities,
                               &kSimilarUnits, &kUnreachable});
    });
  }
  const bool allThere =
      std::all_of(model.systems.begin(), model.systems.end(),
                  [](const model::UnitSystem& system) { return system.obstacles.empty(); }) &&
      std::all_of(model.associationFiles.begin(), model.associationFiles.end(),
                  [&](const auto& entry) { return isWhole(*entry.second); });
  if (!allThere) {
    findings.HoldBack([](const Finding& finding) {
      return IsOneOf(finding, {&kNotInEverySystem, &kWithoutEffect, &kUnreadFile, &kMixedQuantities,
                               &kSimilarUnits, &kUnreachable});
    });
  }
}

// A definition that is skipped takes along what needs it. Some do not say whose it is.
void HoldBackWhereDefinitionsAreLost(const model::Model& model, Findings& findings) {
  const std::string& path = model.conversionFile->Path();
  std::set<std::string> units;
  for (const Finding& cause : findings.All()) {
    if (cause.place.file == path && !cause.follows &&
        IsOneOf(cause, {&kMissingId, &kMisspeltName, &kTounitWithoutId, &kTounitWithoutConv,
                        &kUnknownType, &kUnusableType, &kConvWithoutFormula, &kIntoItself})) {
      units.insert(cause.subject.from);
    }
  }
  const bool isRelatedToAll = units.count("") != 0;
  findings.HoldBack([&](const Finding& finding) {
    const bool isRelated = isRelatedToAll || units.count(finding.subject.from) != 0 ||
                           units.count(finding.subject.to) != 0;
    return !units.empty() &&
           ((isRelated && IsOneOf(finding, {&kNoConversion, &kNoWayBack, &kNoSuchConversion,
                                            &kMixedQuantities})) ||
            finding.rule == &kUnreachable);
  });
}

using Pairs = std::set<std::pair<std::string, std::string>>;

Pairs SubjectsOf(Rules rules, const Findings& findings) {
  Pairs pairs;
  for (const Finding& finding : findings.All()) {
    if (IsOneOf(finding, rules)) {
      pairs.emplace(finding.subject.from, finding.subject.to);
    }
  }
  return pairs;
}

using Lines = std::set<std::pair<std::string, int>>;

Lines LinesOf(Rules rules, const Findings& findings) {
  Lines lines;
  for (const Finding& finding : findings.All()) {
    if (IsOneOf(finding, rules)) {
      lines.emplace(finding.place.file, finding.place.line);
    }
  }
  return lines;
}

bool IsOnOneOf(const Lines& lines, const Finding& finding) {
  return lines.count({finding.place.file, finding.place.line}) != 0;
}

// What is misspelt is missing; without a formula nothing else of it is read.
void HoldBackBesideLostNames(const std::string& conversionFile, Findings& findings) {
  const Lines misspelt = LinesOf({&kMisspeltName}, findings);
  const Lines formless = LinesOf({&kConvWithoutFormula}, findings);
  findings.HoldBack([&](const Finding& finding) {
    return (IsOnOneOf(misspelt, finding) &&
            IsOneOf(finding, {&kMissingId, &kTounitWithoutId, &kTounitWithoutConv, &kEmptyTounit,
                              &kMissingConstant, &kConvWithoutFormula, &kUnreadAttribute})) ||
           (IsOnOneOf(formless, finding) && finding.rule == &kUnreadAttribute);
  });
  if (findings.Has([&conversionFile](const Finding& finding) {
        return finding.place.file != conversionFile &&
               IsOneOf(finding, {&kMissingId, &kMisspeltName});
      })) {
    findings.HoldBack([](const Finding& finding) { return finding.rule == &kNotInEverySystem; });
  }
}

// Names that are the same to the eye and differ in their bytes.
void HoldBackWhatEncodingsBreak(Findings& findings) {
  const bool broken = findings.Has([](const Finding& finding) {
    return IsOneOf(finding, {&kBadEncoding, &kForeignEncoding});
  });
  if (broken) {
    findings.HoldBack([](const Finding& finding) {
      return HoldsBeyondAscii(finding.text) &&
             IsOneOf(finding, {&kNoConversion, &kNoWayBack, &kNoSuchConversion, &kNotInEverySystem,
                               &kSimilarUnits, &kWithoutEffect, &kUnreachable});
    });
  }
}

// What one missing conversion is told for: a unit that converts into nothing, one that nothing
// converts into, or the pair of them.
Subject MissingOf(const model::Conversions& conversions, const std::set<int>& targets,
                  const Finding& finding) {
  const bool back = finding.rule == &kNoWayBack;
  const std::string& from = back ? finding.subject.to : finding.subject.from;
  const std::string& to = back ? finding.subject.from : finding.subject.to;
  const auto source = conversions.Find(from);
  if (!source || conversions.TargetsOf(*source).empty()) {
    return {from, ""};
  }
  const auto target = conversions.Find(to);
  return target && targets.count(*target) != 0 ? Subject{from, to} : Subject{"", to};
}

void HoldBackRepetitions(const model::Conversions& conversions, Findings& findings) {
  std::set<int> targets;
  for (const model::Conversion& conversion : conversions.All()) {
    targets.insert(conversion.to);
  }
  Pairs missing;
  std::set<std::pair<int, int>> wrong;
  findings.HoldBack([&](const Finding& finding) {
    if (finding.follows) {
      return false;
    }
    if (finding.rule == &kKnownValueDiffers) {
      return !wrong.emplace(finding.place.line, finding.place.column).second;
    }
    if (!IsOneOf(finding, {&kNoConversion, &kNoWayBack, &kNoSuchConversion})) {
      return false;
    }
    const Subject subject = MissingOf(conversions, targets, finding);
    return !missing.emplace(subject.from, subject.to).second;
  });
}

// A name that is written wrong in one place is missing in another. To compare names takes long
// where there are very many.
void HoldBackWhatMisspellingsBreak(Findings& findings) {
  constexpr std::size_t kMostNames = 200;
  std::vector<std::string> names;
  for (const Finding& finding : findings.All()) {
    if (finding.rule == &kNoConversion && !finding.follows && names.size() < kMostNames) {
      names.insert(names.end(), {finding.subject.from, finding.subject.to});
    }
  }
  if (names.empty()) {
    return;
  }
  findings.HoldBack([&names](const Finding& finding) {
    return IsOneOf(finding, {&kNotInEverySystem, &kSimilarUnits}) &&
           (!MisspellingOf(finding.subject.from, names).empty() ||
            (!finding.subject.to.empty() && !MisspellingOf(finding.subject.to, names).empty()));
  });
}

// A reference that is read as something else is part of a name that then is not there.
void HoldBackWhatReferencesBreak(const std::string& conversionFile, Findings& findings) {
  const Lines lines = LinesOf({&kBadReference}, findings);
  const bool everywhere = !lines.empty() && lines.begin()->first == conversionFile;
  findings.HoldBack([&](const Finding& finding) {
    return IsOneOf(finding, {&kNoConversion, &kNoWayBack, &kUnreachable, &kNoSuchConversion,
                             &kNotInEverySystem}) &&
           (everywhere || IsOnOneOf(lines, finding));
  });
}

// A formula that is wrong by itself, or by a published value, disagrees with others.
void HoldBackWhatFormulasBreak(Findings& findings) {
  const Pairs broken = SubjectsOf({&kStrayComma, &kAssignment, &kConstantExpression, &kZeroScalar,
                                   &kBadNumber, &kNumberNotFinite},
                                  findings);
  Pairs wrong = SubjectsOf({&kKnownValueDiffers}, findings);
  wrong.insert(broken.begin(), broken.end());
  findings.HoldBack([&](const Finding& finding) {
    const auto& [from, to] = finding.subject;
    return (IsOneOf(finding, {&kNotInverse, &kWaysDisagree}) && wrong.count({from, to}) != 0) ||
           (finding.rule == &kNotInverse && wrong.count({to, from}) != 0) ||
           (finding.rule == &kKnownValueDiffers && broken.count({from, to}) != 0);
  });
}

// One file may be asked for in several places.
void HoldBackRepeatedIncludes(Findings& findings) {
  std::set<std::string> missing;
  for (const Finding& finding : findings.All()) {
    if (finding.rule == &kMissingFile) {
      missing.insert(MissingIncludeOf(finding.place.file).Bytes());
    }
  }
  findings.HoldBack([&missing](const Finding& finding) {
    return finding.rule == &kMissingInclude && !missing.insert(finding.text.Bytes()).second;
  });
}

// Nothing uses a name that is written wrong.
void HoldBackWhatSimilarNamesShow(Findings& findings) {
  std::set<std::string> names;
  for (const Finding& finding : findings.All()) {
    if (finding.rule == &kSimilarUnits && !finding.follows) {
      names.insert(finding.subject.from);
    }
  }
  findings.HoldBack([&names](const Finding& finding) {
    return finding.rule == &kUnreachable && names.count(finding.subject.from) != 0;
  });
}

}  // namespace

void HoldBack(const model::Model& model, Findings& findings) {
  HoldBackBehindFault(*model.conversionFile, findings);
  for (const auto& [path, file] : model.associationFiles) {
    HoldBackBehindFault(*file, findings);
  }
  HoldBackWhereFilesAreLost(model, findings);
  HoldBackWhereDefinitionsAreLost(model, findings);
  HoldBackBesideLostNames(model.conversionFile->Path(), findings);
  HoldBackWhatEncodingsBreak(findings);
  HoldBackWhatReferencesBreak(model.conversionFile->Path(), findings);
  HoldBackWhatFormulasBreak(findings);
  HoldBackRepeatedIncludes(findings);
  HoldBackRepetitions(model.definitions.conversions, findings);
  HoldBackWhatMisspellingsBreak(findings);
  HoldBackWhatSimilarNamesShow(findings);
}

}  // namespace check
