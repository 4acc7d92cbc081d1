#include "check/Rule.h"

#include <cstddef>

namespace check {

namespace {

constexpr Severity kError = Severity::kError;
constexpr Severity kWarning = Severity::kWarning;

const std::vector<RuleEntry> kRules{
    {Rule::kMissingFile, "missing-file", kError, "A file that the library loads is not there"},
    {Rule::kNotLoaded, "not-loaded", kError, "The library refuses to load the file"},
    {Rule::kNotWellFormed, "not-well-formed", kError, "The file is not well-formed XML"},
    {Rule::kWrongRoot, "wrong-root", kError, "The root element has another name"},
    {Rule::kBadEncoding, "bad-encoding", kError, "Bytes that are not in the declared encoding"},
    {Rule::kForeignEncoding, "foreign-encoding", kWarning,
     "Characters beyond ASCII in an encoding other than ISO 8859-1"},
    {Rule::kUnreadFile, "unread-file", kWarning, "An association file that nothing reads"},
    {Rule::kMissingInclude, "missing-include", kError, "An included file is not there or empty"},
    {Rule::kEmptyInclude, "empty-include", kError, "An include that names no file"},
    {Rule::kIncludeCycle, "include-cycle", kError, "Files that include each other in a circle"},
    {Rule::kMisspeltName, "misspelt-name", kError,
     "A name that differs from a known one by case or a letter or two"},
    {Rule::kUnreadElement, "unread-element", kWarning, "An element that the library never reads"},
    {Rule::kUnreadAttribute, "unread-attribute", kWarning,
     "An attribute that the library never reads"},
    {Rule::kReadAsTounit, "read-as-tounit", kWarning,
     "An element of another name that is read as a tounit"},
    {Rule::kFieldGivenTwice, "field-given-twice", kWarning,
     "Both an attribute and a child element for one field"},
    {Rule::kMissingId, "missing-id", kError, "A definition without identifier"},
    {Rule::kTounitWithoutId, "tounit-without-id", kError, "A tounit without the attribute id"},
    {Rule::kTounitWithoutConv, "tounit-without-conv", kError, "A tounit without conv"},
    {Rule::kSecondConv, "second-conv", kWarning, "A second conv in one tounit"},
    {Rule::kUnknownType, "unknown-type", kError, "A type that the library does not know"},
    {Rule::kUnusableType, "unusable-type", kError,
     "A type that the library knows and does not convert by"},
    {Rule::kConvWithoutFormula, "conv-without-formula", kError,
     "A conv with neither type nor to_float"},
    {Rule::kMissingConstant, "missing-constant", kError,
     "A slope-int conversion without scalar or offset"},
    {Rule::kBadNumber, "bad-number", kError, "A number with trailing or no valid text"},
    {Rule::kNumberNotFinite, "number-not-finite", kError, "A number that is not finite"},
    {Rule::kZeroScalar, "zero-scalar", kError, "A scalar of zero"},
    {Rule::kBadExpression, "bad-expression", kError, "An expression that does not compile"},
    {Rule::kUnknownVariable, "unknown-variable", kError,
     "An expression with a name that is not there"},
    {Rule::kExpressionWithoutVal, "expression-without-val", kWarning,
     "An expression that does not use val"},
    {Rule::kExpressionNotFinite, "expression-not-finite", kWarning,
     "An expression that is not finite everywhere"},
    {Rule::kRepeatedDefinition, "repeated-definition", kWarning, "A definition given twice"},
    {Rule::kNotInverse, "not-inverse", kError,
     "A way back that is not the inverse of the way there"},
    {Rule::kWaysDisagree, "ways-disagree", kError,
     "Two ways from one unit to another that disagree"},
    {Rule::kSimilarUnits, "similar-units", kWarning,
     "Unit names that differ only by case or white space"},
    {Rule::kMixedQuantities, "mixed-quantities", kWarning,
     "One display unit with different meanings"},
    {Rule::kEmptyTounit, "empty-tounit", kError, "An association without display unit"},
    {Rule::kNoConversion, "no-conversion", kError, "An association without conversion"},
    {Rule::kNoWayBack, "no-way-back", kError, "An association without conversion back"},
    {Rule::kNotInEverySystem, "not-in-every-system", kWarning,
     "A data unit associated in one system and not in another"},
    {Rule::kWithoutEffect, "without-effect", kWarning, "An association without effect"},
};

}  // namespace

const char* NameOf(Severity severity) { return severity == Severity::kError ? "error" : "warning"; }

const std::vector<RuleEntry>& Rules() { return kRules; }

const RuleEntry& EntryOf(Rule rule) { return Rules()[static_cast<std::size_t>(rule)]; }

}  // namespace check
