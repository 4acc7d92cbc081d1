#pragma once

#include "PlainUnits.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/UnitConverter.h"

/// Requires of every conversion of `plain`, and of some that are none, that `converter` gives the
/// same value bit for bit.
void CompareConversions(const PlainUnits& plain, const units::UnitConverter& converter);

/// Requires of every association of `plain` that `display` shows it alike.
void CompareAssociations(const PlainUnits& plain,
                         const units::DataUnitToDisplayUnitConverter& display);
