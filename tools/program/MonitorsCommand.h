#pragma once

#include <string>

#include "program/UnitSystems.h"

class Charset;

struct MonitorsOptions {
  UnitSystemOptions systems;
  std::string file;
};

/// Prints the monitors of a text file in the chosen unit systems. Returns the exit status: 1 where
/// it has complained of one; throws `Failure`.
int RunMonitors(const MonitorsOptions& options, const Charset& terminal);
