#pragma once

/// Marks what the shared libraries export; everything else stays inside them.
#define VEHICLE_UNITS_EXPORT __attribute__((visibility("default")))

/// Marks a private member of an exported class that stays inside all the same.
#define VEHICLE_UNITS_LOCAL __attribute__((visibility("hidden")))
