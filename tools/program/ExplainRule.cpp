#include "program/ExplainRule.h"

#include <iostream>

#include "check/RuleEntry.h"
#include "check/Rules.h"
#include "text/Charset.h"
#include "text/Failure.h"

void ExplainRule(const std::string& name, const Charset& terminal) {
  const check::Rule* rule = check::FindRule(name);
  if (rule == nullptr) {
    throw Failure(check::DescribeUnknownRule(name));
  }
  std::cout << rule->name << " (" << check::NameOf(rule->severity) << ")\n\n";
  std::cout << terminal.FromLatin1(Charset("UTF-8").ToLatin1(check::EntryOf(*rule)));
}
