#pragma once

#include <map>
#include <string>

#include "../util/Export.h"
#include "../vehicle/BaseVehicleDefObj.h"
#include "../vehicle/ConversionTypes.h"

namespace vehicle {

/// How a value is converted into one target unit: the record that
/// `units::UnitConverter::UnitsToFunctionsDefObj` fills. Like its base it is declared here and
/// defined by the host's framework.
///
/// Of kind `CONVERSION_SLOPE_INT` it means y = scalar x + offset, with both constants from
/// `conversionConstants`; of any other kind, `toFloatExpression` over the variable "val".
class VEHICLE_UNITS_EXPORT DataType : public BaseVehicleDefObj {
 public:
  /// A record of kind `CONVERSION_INVALID` without constants and expression.
  DataType();
  ~DataType() override;

  /// 0: the record is filled and judged by its owner.
  int Validate() override;
  int DoRead(TiXmlElement* element, std::string& error, bool flag) override;

  /// The kind.
  VehicleV2::ConversionTypes_e conversionType = VehicleV2::CONVERSION_INVALID;
  /// The constants of a "slope-int" conversion.
  std::map<VehicleV2::ConversionConstants_e, double> conversionConstants;
  /// The expression of any other, as written in the file; empty where there was none.
  std::string toFloatExpression;
};

}  // namespace vehicle
