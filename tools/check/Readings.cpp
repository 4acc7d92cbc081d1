#include "check/Readings.h"

#include <algorithm>
#include <cmath>

namespace check {

namespace {

// Factors of ten digits agree within this, factors of six do not.
constexpr double kTolerance = 1e-9;

}  // namespace

Readings SampleReadings() {
  Readings readings;
  for (const double value : SampleValues()) {
    readings.push_back({value, std::abs(value)});
  }
  readings.push_back({0, 0});
  return readings;
}

Reading Follow(const model::Conversion& conversion, const Reading& reading, Evaluator& evaluator) {
  const double value = evaluator.Apply(*conversion.record, reading.value);
  const double moved =
      evaluator.Apply(*conversion.record, reading.value + kTolerance * reading.scale);
  const double scale = std::abs(moved - value) / kTolerance;
  return {value, std::isfinite(scale) ? std::max(std::abs(value), scale) : std::abs(value)};
}

Reading Follow(const Way& way, Reading reading, Evaluator& evaluator) {
  for (const model::Conversion* conversion : way) {
    reading = Follow(*conversion, reading, evaluator);
  }
  return reading;
}

Readings Follow(const model::Conversion& conversion, const Readings& readings,
                Evaluator& evaluator) {
  Readings followed;
  followed.reserve(readings.size());
  for (const Reading& reading : readings) {
    followed.push_back(Follow(conversion, reading, evaluator));
  }
  return followed;
}

Readings Follow(const Way& way, Readings readings, Evaluator& evaluator) {
  for (const model::Conversion* conversion : way) {
    readings = Follow(*conversion, readings, evaluator);
  }
  return readings;
}

bool LeadsBack(const Way& way, Evaluator& evaluator) {
  const auto& values = SampleValues();
  return std::all_of(values.begin(), values.end(), [&](double value) {
    double result = value;
    for (const model::Conversion* conversion : way) {
      result = evaluator.Apply(*conversion->record, result);
    }
    return std::abs(result - value) <= kTolerance * std::abs(value);
  });
}

double DifferenceOf(const Reading& one, const Reading& other) {
  const double error = std::abs(one.value - other.value);
  const double scale = std::max(one.scale, other.scale);
  return std::isfinite(error) && error > kTolerance * scale ? error / scale : 0;
}

bool Agree(const Readings& one, const Readings& other) {
  return FindGreatestDifference(one, other) == one.size();
}

std::size_t FindGreatestDifference(const Readings& one, const Readings& other) {
  double greatest = 0;
  std::size_t at = one.size();
  for (std::size_t i = 0; i < one.size(); ++i) {
    const double difference = DifferenceOf(one[i], other[i]);
    if (difference > greatest) {
      greatest = difference;
      at = i;
    }
  }
  return at;
}

}  // namespace check
