#pragma once

#include <string>

class Charset;

/// Prints the entry of the rule `name`. Throws `Failure` if there is no such rule.
void ExplainRule(const std::string& name, const Charset& terminal);
