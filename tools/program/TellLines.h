#pragma once

#include <string>

class Charset;

/// Writes what the library reports to standard error, line by line. Its lines are paths and ASCII.
void TellLines(const std::string& lines, const Charset& terminal);
