#include "check/CheckExpressions.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "check/Formula.h"
#include "host/Parser.h"
#include "model/Elements.h"
#include "text/Numbers.h"
#include "util/Text.h"
#include "xml/ReadField.h"

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

// A single unknown name in an expression without "val" probably stands in its place.
std::string DescribeUnknown(const std::string& expression,
                            const std::vector<std::string>& unknown) {
  std::string names;
  for (const std::string& name : unknown) {
    names += (names.empty() ? "" : ", ") + util::Quoted(name);
  }
  const std::vector<std::string> words = WordsOf(expression);
  const bool meansVal =
      unknown.size() == 1 && std::find(words.begin(), words.end(), kVal) == words.end();
  return (unknown.size() == 1 ? "unknown name " : "unknown names ") + names +
         " in the expression " + util::Quoted(expression) +
         (meansVal ? "; is " + util::Quoted(kVal) + " meant?" : "");
}

// The last comma outside of parentheses: what stands before it does not count.
std::size_t FindStrayComma(const std::string& expression) {
  int open = 0;
  std::size_t comma = std::string::npos;
  for (std::size_t i = 0; i < expression.size(); ++i) {
    open += expression[i] == '(' ? 1 : expression[i] == ')' ? -1 : 0;
    comma = expression[i] == ',' && open == 0 ? i : comma;
  }
  return comma;
}

// An equals sign that is not part of a comparison.
std::size_t FindAssignment(const std::string& expression) {
  std::size_t at = expression.find('=');
  while (at != std::string::npos) {
    if (at + 1 < expression.size() && expression[at + 1] == '=') {
      ++at;
    } else if (at == 0 || std::strchr("<>!", expression[at - 1]) == nullptr) {
      return at;
    }
    at = expression.find('=', at + 1);
  }
  return at;
}

bool IsDigit(const std::string& text, std::size_t at) {
  return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

// Judges one expression after the other.
class Expressions {
 public:
  explicit Expressions(Findings& findings) : findings(findings) {}

  void Check(const std::string& expression, const Place& place, const Subject& subject) {
    if (!CheckThatItCompiles(expression, place, subject)) {
      return;
    }
    if (!CheckThatAllOfItCounts(expression, place, subject)) {
      return;
    }
    const std::vector<double> results = Results(expression);
    if (std::all_of(results.begin(), results.end(),
                    [&results](double result) { return result == results.front(); })) {
      ReportConstant(expression, results.front(), place, subject);
    } else {
      CheckThatItIsFinite(expression, results, place, subject);
    }
  }

 private:
  // The evaluator keeps every expression that it has compiled; a file may have very many.
  Parser& Evaluator() {
    constexpr int kMostKept = 100;
    if (used++ % kMostKept == 0) {
      parser.emplace();
    }
    return *parser;
  }

  bool CheckThatItCompiles(const std::string& expression, const Place& place,
                           const Subject& subject) {
    Parser& evaluator = Evaluator();
    evaluator.variables[kVal] = 1;
    try {
      evaluator.Evaluate(expression);
      return true;
    } catch (const std::runtime_error& error) {
      const std::vector<std::string> unknown = UnknownVariables(expression);
      if (unknown.empty()) {
        findings.Add(place, kBadExpression,
                     "the expression " + util::Quoted(expression) + " fails: " + error.what(),
                     subject);
      } else {
        findings.Add(place, kUnknownVariable, DescribeUnknown(expression, unknown), subject);
      }
      return false;
    }
  }

  bool CheckThatAllOfItCounts(const std::string& expression, const Place& place,
                              const Subject& subject) {
    if (const std::size_t at = FindAssignment(expression); at != std::string::npos) {
      findings.Add(place, kAssignment,
                   "the = in the expression " + util::Quoted(expression) +
                       " gives a new value to what stands before it; is == or - meant?",
                   subject);
      return false;
    }
    const std::size_t at = FindStrayComma(expression);
    if (at == std::string::npos) {
      return true;
    }
    const bool decimal = at > 0 && IsDigit(expression, at - 1) && IsDigit(expression, at + 1);
    findings.Add(place, kStrayComma,
                 "of the expression " + util::Quoted(expression) +
                     " only what follows the comma counts" +
                     (decimal ? "; is a decimal point meant?" : ""),
                 subject);
    return false;
  }

  std::vector<double> Results(const std::string& expression) {
    double& val = parser->variables[kVal];
    std::vector<double> results;
    for (const double value : SampleValues()) {
      val = value;
      results.push_back(parser->Evaluate(expression));
    }
    return results;
  }

  void ReportConstant(const std::string& expression, double result, const Place& place,
                      const Subject& subject) {
    if (UsesVal(expression)) {
      findings.Add(place, kConstantExpression,
                   "the expression " + util::Quoted(expression) + " gives " + FormatNumber(result) +
                       " for every value",
                   subject);
    } else {
      findings.Add(
          place, kExpressionWithoutVal,
          "the expression " + util::Quoted(expression) + " does not use " + util::Quoted(kVal),
          subject);
    }
  }

  bool UsesVal(const std::string& expression) {
    parser->variables.erase(kVal);
    try {
      parser->Evaluate(expression);
      return false;
    } catch (const std::runtime_error&) {
      return true;
    }
  }

  void CheckThatItIsFinite(const std::string& expression, const std::vector<double>& results,
                           const Place& place, const Subject& subject) {
    const auto found = std::find_if(results.begin(), results.end(),
                                    [](double result) { return !std::isfinite(result); });
    if (found != results.end()) {
      const std::string given = std::isnan(*found) ? "no number" : FormatNumber(*found);
      const double value = SampleValues()[static_cast<std::size_t>(found - results.begin())];
      findings.Add(place, kExpressionNotFinite,
                   "the expression " + util::Quoted(expression) + " is not finite: it gives " +
                       given + " for " + FormatNumber(value),
                   subject);
    }
  }

  Findings& findings;
  std::optional<Parser> parser;
  int used = 0;
};

}  // namespace

void CheckExpressions(const model::Model& model, Findings& findings) {
  Expressions expressions(findings);
  for (const model::Definition& definition : model.definitions.all) {
    for (const model::ToUnit& toUnit : definition.toUnits) {
      if (toUnit.record == nullptr || xml::ReadField(*toUnit.conv, "type") != nullptr) {
        continue;
      }
      if (const char* expression = xml::ReadField(*toUnit.conv, "to_float")) {
        expressions.Check(expression,
                          model.conversionFile->At(model::FieldOf(*toUnit.conv, "to_float")),
                          {definition.id, toUnit.element->Attribute("id")});
      }
    }
  }
}

}  // namespace check
