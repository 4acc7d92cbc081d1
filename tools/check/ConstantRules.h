#pragma once

#include <tinyxml.h>

#include "check/DataFile.h"
#include "check/Findings.h"
#include "vehicle/ConversionTypes.h"

namespace check {

/// Judges the constants of "slope-int" conversions.
class ConstantRules {
 public:
  ConstantRules(const DataFile& file, Findings& findings) : file(file), findings(findings) {}

  /// Returns whether `constant` of the <conv> of `toUnit` is there and makes sense.
  bool Check(const TiXmlElement& toUnit, VehicleV2::ConversionConstants_e constant,
             const Subject& subject) const;

 private:
  void ReportBadNumber(const TiXmlElement& toUnit, VehicleV2::ConversionConstants_e constant,
                       const Subject& subject) const;

  const DataFile& file;
  Findings& findings;
};

}  // namespace check
