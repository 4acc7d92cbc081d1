#include "check/ExpressionRules.h"

#include <cmath>
#include <stdexcept>
#include <vector>

#include "Join.h"
#include "Numbers.h"
#include "Quoted.h"
#include "check/Formula.h"

namespace check {

namespace {

constexpr char kVal[] = "val";

// Those of names and of numbers, which begin with one of the digits.
constexpr char kNameCharacters[] =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz";

bool IsCalled(const std::string& expression, std::size_t end) {
  const std::size_t next = expression.find_first_not_of(" \t\r\n", end);
  return next != std::string::npos && expression[next] == '(';
}

// The words of `expression` that may be names of variables.
std::vector<std::string> WordsOf(const std::string& expression) {
  std::vector<std::string> words;
  std::size_t start = expression.find_first_of(kNameCharacters);
  while (start != std::string::npos) {
    const std::size_t end = expression.find_first_not_of(kNameCharacters, start);
    if (expression[start] > '9' && !IsCalled(expression, end)) {
      words.push_back(expression.substr(start, end - start));
    }
    start = expression.find_first_of(kNameCharacters, end);
  }
  return words;
}

// The words that the evaluator takes for variables and does not have: with values given to them,
// the expression can be evaluated. Empty where that does not help.
std::vector<std::string> UnknownVariables(const std::string& expression) {
  Parser trial;
  trial.variables[kVal] = 1;
  std::vector<std::string> unknown;
  for (const std::string& word : WordsOf(expression)) {
    if (trial.variables.emplace(word, 1).second) {
      unknown.push_back(word);
    }
  }
  try {
    trial.Evaluate(expression);
  } catch (const std::runtime_error&) {
    unknown.clear();
  }
  return unknown;
}

}  // namespace

bool ExpressionRules::Check(const std::string& expression, const Place& place,
                            const Subject& subject) {
  if (!CheckThatItCompiles(expression, place, subject)) {
    return false;
  }
  if (!UsesVal(expression)) {
    findings.Add(place, Rule::kExpressionWithoutVal,
                 "the expression " + Quoted(expression) + " does not use " + Quoted(kVal), subject);
  }
  CheckThatItIsFinite(expression, place, subject);
  return true;
}

// The evaluator keeps every expression that it has compiled; a file may have very many.
Parser& ExpressionRules::Evaluator() {
  constexpr int kMostKept = 100;
  if (used++ % kMostKept == 0) {
    parser.emplace();
  }
  return *parser;
}

bool ExpressionRules::CheckThatItCompiles(const std::string& expression, const Place& place,
                                          const Subject& subject) {
  Parser& evaluator = Evaluator();
  evaluator.variables[kVal] = 1;
  try {
    evaluator.Evaluate(expression);
    return true;
  } catch (const std::runtime_error& error) {
    const std::vector<std::string> unknown = UnknownVariables(expression);
    if (unknown.empty()) {
      findings.Add(place, Rule::kBadExpression,
                   "the expression " + Quoted(expression) + " fails: " + error.what(), subject);
    } else {
      findings.Add(place, Rule::kUnknownVariable,
                   "the expression " + Quoted(expression) +
                       " uses names that are not there: " + Join(unknown),
                   subject);
    }
    return false;
  }
}

bool ExpressionRules::UsesVal(const std::string& expression) {
  parser->variables.erase(kVal);
  try {
    parser->Evaluate(expression);
    return false;
  } catch (const std::runtime_error&) {
    return true;
  }
}

void ExpressionRules::CheckThatItIsFinite(const std::string& expression, const Place& place,
                                          const Subject& subject) {
  double& val = parser->variables[kVal];
  for (const double value : SampleValues()) {
    val = value;
    const double result = parser->Evaluate(expression);
    if (!std::isfinite(result)) {
      std::string given = FormatNumber(result);
      if (std::isnan(result)) {
        given = "no number";
      }
      findings.Add(place, Rule::kExpressionNotFinite,
                   "the expression " + Quoted(expression) + " is not finite: it gives " + given +
                       " for " + FormatNumber(value),
                   subject);
      return;
    }
  }
}

}  // namespace check
