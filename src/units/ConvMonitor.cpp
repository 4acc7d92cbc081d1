#include "units/ConvMonitor.h"

namespace units {

const std::string ConvMonitor::COMPARISON_GT = "GT";
const std::string ConvMonitor::COMPARISON_LT = "LT";
const std::string ConvMonitor::COMPARISON_EQ = "EQ";

ConvMonitor::ConvMonitor(int index, const std::string& title, const std::string& units, float min,
                         float max, int precision)
    : index(index),
      title(title),
      units(units),
      min(min),
      max(max),
      precision(precision),
      triggerVal(min, false) {
  if (min > max) {
    std::swap(this->min, this->max);
    minMaxInverted = true;
  }
}

ConvMonitor::ConvMonitor(const ConvMonitor&) = default;

ConvMonitor::ConvMonitor(ConvMonitor&&) noexcept = default;

ConvMonitor& ConvMonitor::operator=(const ConvMonitor& other) { return *this = ConvMonitor(other); }

ConvMonitor& ConvMonitor::operator=(ConvMonitor&&) noexcept = default;

ConvMonitor::~ConvMonitor() = default;

const char* ConvMonitor::GetName() const { return name.c_str(); }

void ConvMonitor::SetName(const std::string& newName) { name = newName; }

const char* ConvMonitor::GetUnits() const { return units.c_str(); }

float ConvMonitor::GetMin() const { return min; }

float ConvMonitor::GetMax() const { return max; }

float ConvMonitor::GetValue() const { return value; }

void ConvMonitor::SetValue(float newValue) { value = newValue; }

bool ConvMonitor::IsMinMaxInverted() const { return minMaxInverted; }

int ConvMonitor::GetPrecision() const { return precision; }

const char* ConvMonitor::GetPrecisionStr() const {
  switch (precision) {
    case 0:
      return "%.0f";
    case 1:
      return "%.1f";
    case 2:
      return "%.2f";
    default:
      return "%.3f";
  }
}

std::pair<float, bool> ConvMonitor::GetTriggerVal() const { return triggerVal; }

void ConvMonitor::SetTriggerVal(float threshold) { triggerVal = {threshold, true}; }

void ConvMonitor::ClearTriggerVals() {
  comparisonOperation.clear();
  triggerVal = {0.0F, false};
}

std::string ConvMonitor::GetComparisonOperation() const { return comparisonOperation; }

void ConvMonitor::SetComparisonOperation(const std::string& operation) {
  comparisonOperation = operation;
}

void ConvMonitor::SetTriggerActiveStatus(bool active) { triggerActiveStatus = active; }

bool ConvMonitor::GetTriggerActiveStatus() const { return triggerActiveStatus; }

void ConvMonitor::SetTriggerSummary(const std::string& summary) { triggerSummary = summary; }

}  // namespace units
