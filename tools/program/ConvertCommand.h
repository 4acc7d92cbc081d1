#pragma once

#include <optional>
#include <string>
#include <vector>

#include "program/DataFolder.h"

class Charset;

struct ConvertOptions {
  DataFolder data;
  std::string from;
  std::string to;
  std::vector<std::string> values;  // from standard input if there are none
  bool single = false;
  bool bare = false;       // no label
  bool keepGoing = false;  // past what is no number
  std::optional<int> precision;
};

/// Prints values in another unit. Returns the exit status, 0, or 1 where it kept going past what is
/// no number. Throws `Failure`.
int RunConvert(const ConvertOptions& options, const Charset& terminal);
