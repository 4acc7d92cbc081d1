#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "BareConverter.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/UnitConverter.h"

namespace bench {

struct Pair {
  std::string from;
  std::string to;
};

/// One set of data in the library and in the bare containers beside it, with what to convert: lists
/// of at most 4,096 in a shuffled order that is always the same.
struct DataSet {
  units::UnitConverter engine;
  units::DataUnitToDisplayUnitConverter display;
  bare::Converter bare;
  std::vector<Pair> slopes;        ///< Pairs converted by scale and offset.
  std::vector<Pair> expressions;   ///< Pairs converted by expression.
  std::vector<std::string> shown;  ///< Data units shown in another unit, by scale and offset.
};

/// The set called `name`: "shipped", or "100", "10,000" and so on for as many generated units with
/// realistic names, or the same with " numbered" behind it. Made when it is first asked for; throws
/// when library and bare containers differ in a single bit of a result.
DataSet& GetDataSet(const std::string& name);

/// The conversion of `pair`, which `set` has, kept.
units::Conversion Keep(const DataSet& set, const Pair& pair);

/// Writes the conversion file of the set of generated units `name` and returns its path.
std::string WriteConversionFile(const std::string& name);
std::string ConversionFilePath(const std::string& name);

}  // namespace bench
