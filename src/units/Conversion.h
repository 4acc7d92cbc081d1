#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "../util/Export.h"

namespace units {

/// One conversion, resolved once and used many times: a copy of what the data said when it was
/// made. `UnitConverter::FindConversion` and `DataUnitToDisplayUnitConverter::FindDisplay` make it.
///
///     std::string why;
///     const units::Conversion toPsi = converter.FindConversion("PRESSURE_KPA", "psi", why);
///     if (!toPsi) {
///       // why says what is missing
///     }
///     double value = 220;
///     toPsi.Convert(value);                               // 31.9...
///     toPsi.Convert(samples.data(), plot.data(), samples.size());
///
/// It outlives its converter, and later loads do not reach it. Each result is to the last bit what
/// `UnitConverter::ConvertUnit` gives for the value. Nothing here throws but `std::bad_alloc` and
/// what the host's evaluator throws that is not a `std::runtime_error`; the value at which that
/// happens and those behind it are then as they were.
///
/// Threads: any number may use one object at once; it takes no lock. Expressions are evaluated by
/// an evaluator of the thread's own, made when the thread first finds one or converts by one, and
/// destroyed with the thread. It keeps each expression that it has compiled: the stand-in's takes
/// about 8 KB with the first one and 6 KB for each other short one (on 32-bit ARM 5 and 4 KB).
class VEHICLE_UNITS_EXPORT Conversion {
 public:
  /// No conversion: it is false, and values stay as they are.
  Conversion();
  Conversion(const Conversion&) noexcept;             ///< The same conversion.
  Conversion& operator=(const Conversion&) noexcept;  ///< Becomes the same conversion.
  ~Conversion();

  /// Whether there is a conversion. One between units of the same name is one: it changes nothing.
  explicit operator bool() const;

  /// Converts `value`, which stays as it is where its expression cannot be evaluated.
  void Convert(double& value) const;
  /// The same in single precision, as `UnitConverter::ConvertUnit` says.
  void Convert(float& value) const;

  /// Converts the `count` values at `from` into those at `to`: the same place, or places that do
  /// not overlap. A value whose expression cannot be evaluated for it arrives as it was; without a
  /// conversion, all do.
  void Convert(const double* from, double* to, std::size_t count) const;
  /// The same in single precision.
  void Convert(const float* from, float* to, std::size_t count) const;

 private:
  friend class UnitConverter;

  enum class Kind { kNone, kSameUnit, kSlopeInt, kExpression };

  VEHICLE_UNITS_LOCAL explicit Conversion(Kind kind);
  VEHICLE_UNITS_LOCAL Conversion(double scalar, double offset);
  VEHICLE_UNITS_LOCAL explicit Conversion(const std::string& expression);

  template <typename Value>
  VEHICLE_UNITS_LOCAL void ConvertOther(Value& value) const;
  template <typename Value>
  VEHICLE_UNITS_LOCAL void ConvertOthers(const Value* from, Value* to, std::size_t count) const;

  // The constants count where `kind` is kSlopeInt, in the precision of the value, and `expression`
  // where it is kExpression: copies share it.
  Kind kind = Kind::kNone;
  float singleScalar = 0;
  float singleOffset = 0;
  double scalar = 0;
  double offset = 0;
  std::shared_ptr<const std::string> expression;
};

}  // namespace units
