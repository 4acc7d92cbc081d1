#pragma once

#include <memory>
#include <string>

#include "check/ConstantRules.h"
#include "check/Conversions.h"
#include "check/DataFile.h"
#include "check/ExpressionRules.h"
#include "check/Findings.h"
#include "check/NameRules.h"
#include "check/Progress.h"
#include "units/UnitConverter.h"

namespace check {

/// Reads a conversion file as the library does and judges each of its elements by itself.
class ConversionRules {
 public:
  ConversionRules(const DataFile& file, Findings& findings);

  /// Adds the conversions that the library holds to `conversions`.
  void Check(Conversions& conversions, Progress& progress);

 private:
  using Definition = units::UnitConverter::UnitsToFunctionsDefObj;

  void CheckFromUnit(TiXmlElement& element, Conversions& conversions);
  void CheckChildNames(const TiXmlElement& fromUnit) const;
  void CheckToUnit(const TiXmlElement& element, const Definition& definition,
                   Conversions& conversions);
  void CheckToUnitNames(const TiXmlElement& element, const std::string& from) const;
  bool CheckConv(const TiXmlElement& toUnit, const TiXmlElement& conv, const Subject& subject,
                 const vehicle::DataType& record);
  void ReportEnd(const TiXmlElement& toUnit, const Subject& subject) const;
  void Add(const TiXmlElement& toUnit, const Subject& subject, bool usable,
           Conversions& conversions);

  const DataFile& file;
  Findings& findings;
  NameRules names;
  ConstantRules constants;
  ExpressionRules expressions;
  util::DataHash<std::string, std::shared_ptr<Definition>> store;
};

}  // namespace check
