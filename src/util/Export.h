#pragma once

/// Marks what the shared libraries export; everything else stays inside them.
#define VEHICLE_UNITS_EXPORT __attribute__((visibility("default")))
