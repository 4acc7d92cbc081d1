#pragma once

#include <string>
#include <vector>

#include "program/UnitSystems.h"

class Charset;

struct ShowOptions {
  UnitSystemOptions systems;
  std::vector<std::string> readings;  // from standard input if there are none
};

/// Prints readings in the chosen unit systems. Returns the exit status: 1 where one could not be
/// shown; throws `Failure`.
int RunShow(const ShowOptions& options, const Charset& terminal);
