#pragma once

#include <vector>

namespace check {

enum class Severity { kError, kWarning };

/// "error" or "warning".
const char* NameOf(Severity severity);

/// What the checker looks for. Each rule has its entry in docs/check-rules.md.
enum class Rule {
  kMissingFile,
  kNotLoaded,
  kNotWellFormed,
  kWrongRoot,
  kBadEncoding,
  kForeignEncoding,
  kUnreadFile,
  kMissingInclude,
  kEmptyInclude,
  kIncludeCycle,
  kMisspeltName,
  kUnreadElement,
  kUnreadAttribute,
  kReadAsTounit,
  kFieldGivenTwice,
  kMissingId,
  kTounitWithoutId,
  kTounitWithoutConv,
  kSecondConv,
  kUnknownType,
  kUnusableType,
  kConvWithoutFormula,
  kMissingConstant,
  kBadNumber,
  kNumberNotFinite,
  kZeroScalar,
  kBadExpression,
  kUnknownVariable,
  kExpressionWithoutVal,
  kExpressionNotFinite,
  kRepeatedDefinition,
  kNotInverse,
  kWaysDisagree,
  kSimilarUnits,
  kMixedQuantities,
  kEmptyTounit,
  kNoConversion,
  kNoWayBack,
  kNotInEverySystem,
  kWithoutEffect,
};

struct RuleEntry {
  Rule rule;
  const char* name;
  Severity severity;
  const char* description;
};

/// Every rule, in the order of the enumeration.
const std::vector<RuleEntry>& Rules();

const RuleEntry& EntryOf(Rule rule);

}  // namespace check
