#include "check/Rules.h"

#include <algorithm>

#include "check/Accept.h"
#include "check/CheckAssociations.h"
#include "check/CheckConstants.h"
#include "check/CheckDefinitions.h"
#include "check/CheckDocuments.h"
#include "check/CheckEncoding.h"
#include "check/CheckExpressions.h"
#include "check/CheckIncludes.h"
#include "check/CheckMarkup.h"
#include "check/CheckNames.h"
#include "check/CheckSamples.h"
#include "check/CheckUnits.h"
#include "check/CheckWays.h"
#include "text/NearestNames.h"
#include "util/Text.h"

namespace check {

const char* NameOf(Severity severity) { return severity == Severity::kError ? "error" : "warning"; }

const std::vector<const Rule*>& Rules() {
  static const std::vector<const Rule*> rules{
      &kMissingFile,         &kNotLoaded,
      &kNotWellFormed,       &kWrongRoot,
      &kMergeConflict,       &kBadReference,
      &kUnquotedAttribute,   &kStrayText,
      &kBadEncoding,         &kForeignEncoding,
      &kUnknownEncoding,     &kUnreadFile,
      &kMissingInclude,      &kEmptyInclude,
      &kIncludeCycle,        &kMisspeltName,
      &kUnreadElement,       &kUnreadAttribute,
      &kReadAsTounit,        &kFieldGivenTwice,
      &kMissingId,           &kTounitWithoutId,
      &kIntoItself,          &kTounitWithoutConv,
      &kSecondConv,          &kUnknownType,
      &kUnusableType,        &kConvWithoutFormula,
      &kMissingConstant,     &kBadNumber,
      &kNumberNotFinite,     &kZeroScalar,
      &kBadExpression,       &kUnknownVariable,
      &kStrayComma,          &kAssignment,
      &kConstantExpression,  &kExpressionWithoutVal,
      &kExpressionNotFinite, &kRepeatedDefinition,
      &kNotInverse,          &kWaysDisagree,
      &kSimilarUnits,        &kMixedQuantities,
      &kKnownValueDiffers,   &kNoSuchConversion,
      &kBadSample,           &kEmptyTounit,
      &kNoConversion,        &kNoWayBack,
      &kNotInEverySystem,    &kUnreachable,
      &kWithoutEffect,       &kUnusedAllowance,
  };
  return rules;
}

const Rule* FindRule(const std::string& name) {
  const auto found = std::find_if(Rules().begin(), Rules().end(),
                                  [&name](const Rule* rule) { return rule->name == name; });
  return found != Rules().end() ? *found : nullptr;
}

std::string DescribeUnknownRule(const std::string& name) {
  std::vector<std::string> names;
  for (const Rule* rule : Rules()) {
    names.emplace_back(rule->name);
  }
  return "unknown rule " + util::Quoted(name) + NearestNames(name, names);
}

std::size_t IndexOf(const Rule& rule) {
  return static_cast<std::size_t>(std::find(Rules().begin(), Rules().end(), &rule) -
                                  Rules().begin());
}

}  // namespace check
