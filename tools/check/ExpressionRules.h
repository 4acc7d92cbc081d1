#pragma once

#include <optional>
#include <string>

#include "check/Findings.h"
#include "host/Parser.h"

namespace check {

/// Judges expressions by what the host's evaluator makes of them.
class ExpressionRules {
 public:
  explicit ExpressionRules(Findings& findings) : findings(findings) {}

  /// Returns whether `expression` can be evaluated at all.
  bool Check(const std::string& expression, const Place& place, const Subject& subject);

 private:
  Parser& Evaluator();
  bool CheckThatItCompiles(const std::string& expression, const Place& place,
                           const Subject& subject);
  bool UsesVal(const std::string& expression);
  void CheckThatItIsFinite(const std::string& expression, const Place& place,
                           const Subject& subject);

  Findings& findings;
  std::optional<Parser> parser;
  int used = 0;
};

}  // namespace check
