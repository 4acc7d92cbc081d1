#pragma once

#include <string>

#include "units/DataUnitToDisplayUnitConverter.h"

/// Loads the units from `folder`, which ends in a slash, and tries what this host shows. Throws
/// `std::runtime_error` unless all of it comes out right. To be called before other threads start.
void Load(units::DataUnitToDisplayUnitConverter& display, const std::string& folder);
