#pragma once

#include <string>
#include <vector>

/// A unit of the data set that ships, as the defining constants have it: base = scale x + offset,
/// or base = scale / x for a reciprocal unit, in a base unit common to its quantity.
struct Unit {
  bool identifier;  ///< an identifier such as PRESSURE_KPA; otherwise a display unit
  std::string quantity;
  std::string name;
  long double scale;
  long double offset = 0;
  bool reciprocal = false;
};

const std::vector<Unit>& ShippedUnits();
