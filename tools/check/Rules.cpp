#include "check/Rules.h"

#include <algorithm>

#include "check/CheckAssociations.h"
#include "check/CheckConstants.h"
#include "check/CheckDefinitions.h"
#include "check/CheckDocuments.h"
#include "check/CheckEncoding.h"
#include "check/CheckExpressions.h"
#include "check/CheckIncludes.h"
#include "check/CheckMarkup.h"
#include "check/CheckNames.h"
#include "check/CheckUnits.h"
#include "check/CheckWays.h"

namespace check {

const char* NameOf(Severity severity) { return severity == Severity::kError ? "error" : "warning"; }

const std::vector<const Rule*>& Rules() {
  static const std::vector<const Rule*> rules{
      &kMissingFile,          &kNotLoaded,           &kNotWellFormed,      &kWrongRoot,
      &kMergeConflict,        &kBadReference,        &kUnquotedAttribute,  &kStrayText,
      &kBadEncoding,          &kForeignEncoding,     &kUnreadFile,         &kMissingInclude,
      &kEmptyInclude,         &kIncludeCycle,        &kMisspeltName,       &kUnreadElement,
      &kUnreadAttribute,      &kReadAsTounit,        &kFieldGivenTwice,    &kMissingId,
      &kTounitWithoutId,      &kTounitWithoutConv,   &kSecondConv,         &kUnknownType,
      &kUnusableType,         &kConvWithoutFormula,  &kMissingConstant,    &kBadNumber,
      &kNumberNotFinite,      &kZeroScalar,          &kBadExpression,      &kUnknownVariable,
      &kExpressionWithoutVal, &kExpressionNotFinite, &kRepeatedDefinition, &kNotInverse,
      &kWaysDisagree,         &kSimilarUnits,        &kMixedQuantities,    &kEmptyTounit,
      &kNoConversion,         &kNoWayBack,           &kNotInEverySystem,   &kWithoutEffect,
  };
  return rules;
}

std::size_t IndexOf(const Rule& rule) {
  return static_cast<std::size_t>(std::find(Rules().begin(), Rules().end(), &rule) -
                                  Rules().begin());
}

}  // namespace check
