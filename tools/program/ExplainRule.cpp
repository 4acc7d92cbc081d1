#include "program/ExplainRule.h"

#include <algorithm>
#include <iostream>
#include <vector>

#include "check/RuleEntry.h"
#include "check/Rules.h"
#include "text/Charset.h"
#include "text/Failure.h"
#include "text/NearestNames.h"
#include "util/Text.h"

namespace {

const check::Rule& FindRule(const std::string& name) {
  std::vector<std::string> names;
  for (const check::Rule* rule : check::Rules()) {
    if (rule->name == name) {
      return *rule;
    }
    names.emplace_back(rule->name);
  }
  throw Failure("unknown rule " + util::Quoted(name) + NearestNames(name, names));
}

}  // namespace

void ExplainRule(const std::string& name, const Charset& terminal) {
  const check::Rule& rule = FindRule(name);
  std::cout << rule.name << " (" << check::NameOf(rule.severity) << ")\n\n";
  std::cout << terminal.FromLatin1(Charset("UTF-8").ToLatin1(check::EntryOf(rule)));
}
