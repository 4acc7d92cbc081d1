#include "check/Comparison.h"

#include <algorithm>
#include <cmath>

namespace check {

namespace {

// Factors of ten digits agree within this, factors of six do not.
constexpr double kTolerance = 1e-9;

}  // namespace

Difference Comparison::Compare(const Way& one, const Way& other) {
  Difference worst;
  for (const double value : SampleValues()) {
    CompareAt(one, other, value, worst);
  }
  CompareAt(one, other, 0, worst);
  return worst;
}

void Comparison::CompareAt(const Way& one, const Way& other, double value, Difference& worst) {
  const double first = Follow(one, 0, value);
  const double second = Follow(other, 0, value);
  const double error = std::abs(first - second);
  if (!std::isfinite(error) || error <= kTolerance * std::abs(second)) {
    return;
  }
  const double scale =
      std::max({std::abs(second), Scale(one, value, first), Scale(other, value, second)});
  if (error > kTolerance * scale && error > worst.error * scale) {
    worst = {error / scale, value};
  }
}

double Comparison::Follow(const Way& way, std::size_t first, double value) {
  for (std::size_t i = first; i < way.size(); ++i) {
    value = evaluator.Apply(*way[i]->record, value);
  }
  return value;
}

// How great the values are that `result` comes from: how much more than their relative error the
// result moves with them.
double Comparison::Scale(const Way& way, double value, double result) {
  double scale = 0;
  for (std::size_t i = 0; i < way.size(); ++i) {
    const double moved = Follow(way, i, value * (1 + kTolerance));
    if (std::isfinite(moved)) {
      scale = std::max(scale, std::abs(moved - result) / kTolerance);
    }
    value = evaluator.Apply(*way[i]->record, value);
  }
  return scale;
}

}  // namespace check
