#pragma once

#include <memory>
#include <string>
#include <vector>

#include "units/UnitConverter.h"

/// The conversions of a data folder with what the engine keeps to itself: which units there are,
/// and why a conversion cannot be made. The values themselves come from the engine.
class ConversionCatalog {
 public:
  /// Loads the conversion file of `folder`, which ends in a slash. What the library reports of
  /// single definitions goes to standard error. Throws `Failure` when the file cannot be read or
  /// holds no conversions.
  explicit ConversionCatalog(const std::string& folder);

  /// The source units, in ascending order.
  std::vector<std::string> SourceUnits() const;

  /// The units that `from` converts into, in ascending order. Throws `Failure` for an unknown unit.
  std::vector<std::string> TargetUnits(const std::string& from) const;

  /// `value` converted from `from` to `to`, in the precision of its type. Throws `Failure` with the
  /// reason when it cannot be converted.
  template <typename Value>
  Value Convert(const std::string& from, const std::string& to, Value value) const;

 private:
  using Definition = units::UnitConverter::UnitsToFunctionsDefObj;

  void ReadDefinitions(const std::string& path);
  const Definition& Find(const std::string& from) const;
  const vehicle::DataType& FindRecord(const std::string& from, const std::string& to) const;
  void Check(const std::string& from, const std::string& to, double value) const;
  void CheckExpression(const std::string& expression, double value) const;

  util::DataHash<std::string, std::shared_ptr<Definition>> definitions;
  units::UnitConverter converter;
  mutable Parser evaluator;  // the engine keeps quiet when an expression fails; this one says why
};
