#pragma once

#include "program/DataFolder.h"

struct GraphOptions {
  DataFolder data;
};

/// Prints the conversions as a Graphviz document. Returns the exit status, 0; throws `Failure`.
int RunGraph(const GraphOptions& options);
