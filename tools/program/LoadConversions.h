#pragma once

#include <string>

#include "units/UnitConverter.h"

class Charset;

/// Loads the conversion file of `folder`, which ends in a slash, into `converter`. What the library
/// reports of single definitions goes to standard error. Throws `Failure` when the file cannot be
/// read or holds no conversions.
void LoadConversions(units::UnitConverter& converter, const std::string& folder,
                     const Charset& terminal);
