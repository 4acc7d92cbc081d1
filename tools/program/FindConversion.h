#pragma once

#include <string>

#include "units/UnitConverter.h"

/// The conversion from `from` to `to`. Throws `Failure` where there is none, with the reason and
/// what may have been meant; units of the same name must be known.
units::Conversion FindConversion(const units::UnitConverter& converter, const std::string& from,
                                 const std::string& to);
