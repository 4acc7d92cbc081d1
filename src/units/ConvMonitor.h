#pragma once

#include <string>
#include <utility>

#include "../util/Export.h"

namespace units {

/// A monitor: one watched value with its units, its limits, the decimals to show and an optional
/// trigger.
///
///     units::ConvMonitor boost(0, "Boost", "PRESSURE_KPA", 30, -15, 1);
///     boost.GetMin();              // -15: limits given in the wrong order are swapped
///     boost.IsMinMaxInverted();    // true
///     boost.GetTriggerVal();       // {30, false}: the lower limit as it was given, not yet set
///     boost.SetTriggerVal(25);
///     boost.SetComparisonOperation(units::ConvMonitor::COMPARISON_GT);
///     std::printf(boost.GetPrecisionStr(), boost.GetValue());
///
/// A monitor keeps what it is given: it compares nothing with its trigger, converts no unit and
/// clamps no value. Nothing throws but `std::bad_alloc` where texts are copied, which leaves the
/// monitor as it was, also one that is assigned to.
///
/// Threads: a monitor has no lock; reading it may overlap reading, nothing else.
class VEHICLE_UNITS_EXPORT ConvMonitor {
 public:
  static const std::string COMPARISON_GT;  ///< "GT": greater than
  static const std::string COMPARISON_LT;  ///< "LT": less than
  static const std::string COMPARISON_EQ;  ///< "EQ": equal

  /// A monitor of the value 0 without name, whose trigger is not active and stands, not set, at
  /// `min` as given. `index` is the position of its line in the list that it comes from,
  /// `precision` the number of decimals to show, `min` and `max` are in `units`. Limits with `min`
  /// greater than `max` are swapped; one that is not a number never causes a swap.
  ConvMonitor(int index, const std::string& title, const std::string& units, float min, float max,
              int precision);

  /// A monitor of its own, equal in all it holds.
  ConvMonitor(const ConvMonitor&);
  /// The same; a monitor that was moved from is only good to be assigned to or destroyed.
  ConvMonitor(ConvMonitor&&) noexcept;
  ConvMonitor& operator=(const ConvMonitor&);      ///< Takes over all that the other holds.
  ConvMonitor& operator=(ConvMonitor&&) noexcept;  ///< The same.
  ~ConvMonitor();

  /// The text stays valid while the monitor lives, its name is unchanged and nothing is assigned to
  /// it.
  const char* GetName() const;
  void SetName(const std::string& name);  ///< Replaces the name.

  /// The text stays valid while the monitor lives and nothing is assigned to it.
  const char* GetUnits() const;

  float GetMin() const;  ///< The lower limit, in `GetUnits()`, after a swap.
  float GetMax() const;  ///< The upper limit, in `GetUnits()`, after a swap.

  float GetValue() const;  ///< The watched value, in `GetUnits()`; 0 until one is set.
  /// Takes any value, also one outside the limits.
  void SetValue(float value);

  /// Whether the limits were given in the wrong order.
  bool IsMinMaxInverted() const;

  /// The number of decimals as it was given.
  int GetPrecision() const;

  /// The format of the C library for one floating-point value: "%.0f", "%.1f" and "%.2f" for the
  /// precisions 0, 1 and 2, "%.3f" for every other. A constant text.
  const char* GetPrecisionStr() const;

  /// The trigger's threshold, and whether it has been set.
  std::pair<float, bool> GetTriggerVal() const;
  void SetTriggerVal(float threshold);  ///< Sets the threshold, in `GetUnits()`.

  /// Empties the comparison operation and takes the threshold back to 0, not set. Active status and
  /// summary stay.
  void ClearTriggerVals();

  /// How the value is compared with the threshold; empty until it is set. Any text is kept.
  std::string GetComparisonOperation() const;
  void SetComparisonOperation(const std::string& operation);  ///< Replaces it.

  void SetTriggerActiveStatus(bool active);  ///< Keeps whether the trigger is active.
  bool GetTriggerActiveStatus() const;       ///< As it was set; false until then.

  /// Keeps a text that sums the trigger up.
  void SetTriggerSummary(const std::string& summary);

 private:
  [[maybe_unused]] int index;
  std::string title;
  std::string triggerSummary;
  bool triggerActiveStatus = false;
  std::string name;
  std::string units;
  float min;
  float max;
  float value = 0;
  bool minMaxInverted = false;
  int precision;
  std::pair<float, bool> triggerVal;
  std::string comparisonOperation;
};

}  // namespace units
