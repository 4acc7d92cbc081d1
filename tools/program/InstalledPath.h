#pragma once

#include <string>

/// The path of what stands at `fromProgram`, seen from the folder of the program.
std::string InstalledPath(const std::string& fromProgram);
