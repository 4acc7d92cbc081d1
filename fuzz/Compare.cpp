#include "Compare.h"

#include <cstring>
#include <stdexcept>
#include <string>

#include "Require.h"

namespace {

template <typename Value>
bool SameBits(Value a, Value b) {
  return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}

// Calls `convert` with each of some values and requires what `plain` makes of it.
template <typename Value, typename Convert>
void Compare(const PlainUnits& plain, const std::string& from, const std::string& to,
             const Convert& convert) {
  for (const double sample : {0.0, 100.1, -40.0, 1e300}) {
    auto expected = static_cast<Value>(sample);
    auto actual = expected;
    const bool converts = plain.Convert(from, to, expected);
    bool converted = true;
    try {
      convert(actual);
    } catch (const std::out_of_range&) {
      converted = false;
    }
    Require(converted == converts, "a missing constant throws");
    Require(SameBits(actual, expected), "the same value bit for bit");
  }
}

void CompareConversion(const PlainUnits& plain, const units::UnitConverter& converter,
                       const std::string& from, const std::string& to) {
  const auto convert = [&](auto& value) { converter.ConvertUnit(from, to, value); };
  Compare<double>(plain, from, to, convert);
  Compare<float>(plain, from, to, convert);
}

}  // namespace

void CompareConversions(const PlainUnits& plain, const units::UnitConverter& converter) {
  for (const auto& [from, targets] : plain.conversions) {
    for (const auto& [to, conversion] : targets) {
      CompareConversion(plain, converter, from, to);
      CompareConversion(plain, converter, to, from);
    }
    CompareConversion(plain, converter, from, "nowhere");
  }
  CompareConversion(plain, converter, "", "A");
}

void CompareAssociations(const PlainUnits& plain,
                         const units::DataUnitToDisplayUnitConverter& display) {
  for (const auto& [unit, association] : plain.associations) {
    const std::string& from = unit;
    const std::string& to = association.toUnit;
    Require(display.GetActiveLabelForUnit(from) == to, "the same label");
    Compare<double>(plain, from, to, [&](double& value) { display.ConvertUnit(from, value); });
    Compare<float>(plain, from, to, [&](float& value) { display.ConvertUnit(from, value); });
    Compare<double>(plain, to, from, [&](double& value) { display.UnConvertUnit(from, value); });
  }
  Require(display.GetActiveLabelForUnit("nowhere") == "nowhere" ||
              plain.associations.count("nowhere") != 0,
          "a unit without association is its own label");
}
