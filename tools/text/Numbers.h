#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The finite number that `text` is, white space around it aside; nothing if it is no such number.
/// The decimal sign is the point, whatever the locale.
std::optional<double> ParseNumber(std::string_view text);

/// Whether `text`, white space around it aside, says that there is no number: it is empty, or `nan`
/// in letters of either case, with or without a sign.
bool IsNoValue(std::string_view text);

/// The shortest text that reads back to the same number.
std::string FormatNumber(double number);
std::string FormatNumber(float number);

/// `number` rounded to `digits` significant digits, 17 at most, as C's "%g" writes it.
std::string FormatNumber(double number, int digits);

/// Appends that text to `text`; with `decimals`, 17 at most, the number with so many of them.
void AppendNumber(double number, std::optional<int> decimals, std::string& text);
void AppendNumber(float number, std::optional<int> decimals, std::string& text);
