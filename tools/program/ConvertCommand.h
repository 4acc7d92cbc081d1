#pragma once

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
};

/// Prints values in another unit. Returns the exit status, 0; throws `Failure`.
int RunConvert(const ConvertOptions& options, const Charset& terminal);
