#pragma once

#include "program/DataFolder.h"

class Charset;

struct UnitsOptions {
  DataFolder data;
};

/// Prints the source units and what each converts into. Returns the exit status, 0; throws
/// `Failure`.
int RunUnits(const UnitsOptions& options, const Charset& terminal);
