#pragma once

#include <optional>
#include <string>

/// The finite number that `text` is, white space around it aside; nothing if it is no such number.
/// The decimal sign is the point, whatever the locale.
std::optional<double> ParseNumber(const std::string& text);

/// The shortest text that reads back to the same number.
std::string FormatNumber(double number);
std::string FormatNumber(float number);
