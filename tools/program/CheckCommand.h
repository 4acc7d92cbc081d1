#pragma once

#include <optional>
#include <string>
#include <vector>

#include "program/DataFolder.h"

class Charset;

struct CheckOptions {
  DataFolder data;
  std::optional<std::string> base;
  std::optional<std::string> samples;
  std::string format = "text";  // or "json", "sarif"
  bool strict = false;
  bool all = false;
  std::vector<std::string> allowed;  // RULE or RULE:UNIT
  std::string explain;               // the name of a rule to explain instead
};

/// Prints the mistakes in the data. Returns the exit status: 1 where there are errors or, if it is
/// strict, warnings; 2 where it could not run, told on standard error.
int RunCheck(const CheckOptions& options, const Charset& terminal);
