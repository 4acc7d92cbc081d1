#pragma once

#include "Charset.h"

namespace CLI {
class App;
}

/// The program's commands: each adds itself to `app`, to run while the command line is parsed, and
/// speaks in the terminal's character set. They throw `Failure`.
void AddConvertCommand(CLI::App& app, const Charset& terminal);
void AddMonitorsCommand(CLI::App& app, const Charset& terminal);
void AddShowCommand(CLI::App& app, const Charset& terminal);
void AddUnitsCommand(CLI::App& app, const Charset& terminal);
void AddCheckCommand(CLI::App& app, const Charset& terminal);
void AddGraphCommand(CLI::App& app, const Charset& terminal);
