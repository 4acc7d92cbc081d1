#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "../units/Conversion.h"
#include "../util/DataHash.h"
#include "../util/Export.h"
#include "../vehicle/BaseVehicleDefObj.h"
#include "../vehicle/DataType.h"
#include "../vehicle/ReadHashData.h"
#include "host/Parser.h"

namespace units {

/// The conversion engine: loads a conversion file and converts values by the names of their units.
///
///     units::UnitConverter converter;
///     converter.SetXMLFilePathAndLoad("/usr/share/vehicle-units/");
///     double value = 100;
///     converter.ConvertUnit("TEMP_CEL", "\xB0" "F", value);  // value == 212
///     converter.ConvertUnit("TEMP_CEL", "psi", value);       // no such conversion: still 212
///
/// Who converts by the same units again and again asks once, and learns whether there is a
/// conversion (see `Conversion`):
///
///     std::string why;
///     const units::Conversion toPsi = converter.FindConversion("TEMP_CEL", "psi", why);
///     // false; why == "\"TEMP_CEL\" does not convert into \"psi\"; it converts into: ..."
///
/// (Names are bytes of ISO 8859-1: the degree sign is the one byte 0xB0, whatever the encoding of
/// the source.)
///
/// Threads: any number may convert on one converter at the same time; only evaluations of
/// expressions wait for each other. Loading takes no lock and must not overlap any other use.
class VEHICLE_UNITS_EXPORT UnitConverter {
 public:
  /// The conversions of one source unit, read from one "fromunit" element or several of the same
  /// identifier.
  class VEHICLE_UNITS_EXPORT UnitsToFunctionsDefObj : public vehicle::BaseVehicleDefObj {
   public:
    /// A definition without conversions.
    UnitsToFunctionsDefObj();
    ~UnitsToFunctionsDefObj() override;

    /// 0.
    int Validate() override;

    /// Reads the "tounit" children of a "fromunit" element into `toUnitFunctions`: the first
    /// "tounit" and every later sibling of whatever name. A "tounit" without the attribute "id" or
    /// without a child "conv" is skipped. In a record that is filled again, constants keep
    /// their first value, kind and expression take the last.
    ///
    /// Returns 0 when all were read, and 1 when there is no element to read or where a "conv" ends
    /// the reading: by a kind that is unknown (kept as `CONVERSION_INVALID`) or not "slope-int", or
    /// by neither kind nor expression. What was read by then stays. `error` is left alone.
    int DoRead(TiXmlElement* element, std::string& error, bool flag) override;

    /// The conversion record of each target unit; no record is null.
    std::map<std::string, std::shared_ptr<vehicle::DataType>> toUnitFunctions;
  };

  /// "UNIT_CONVERSIONS.xml".
  static const std::string CONVERSION_FILENAME;

  /// A converter without definitions, with an empty file path.
  UnitConverter();
  UnitConverter(const UnitConverter&) = delete;
  UnitConverter& operator=(const UnitConverter&) = delete;
  ~UnitConverter();

  /// Adds the definitions of the conversion file at the file path set before directly followed by
  /// `fileName`. A source unit that is there already is read into its definition.
  ///
  /// Returns false, with nothing changed, when the file is missing, unreadable, no regular file or
  /// empty, and, with one line in `error`, when it is larger than 64 MiB or has elements more than
  /// 64 deep or with more than 64 attributes. Otherwise returns true, and the definitions that the
  /// parser could deliver are loaded: of a file that is no conversion file, none. A definition
  /// without identifier is skipped with one line in `error`.
  ///
  /// Constants are read by the rules of the global C++ locale: where that has a decimal comma,
  /// "0.5" is 0 and "1.8" may be 18. Load while it is the classic one.
  ///
  /// Lines are `FILE:LINE:COLUMN: …`, appended to `error`, which is never cleared. Throws only
  /// `std::bad_alloc`; what was loaded by then stays.
  bool LoadFromXML(const std::string& fileName, std::string& error);

  /// Sets the file path, to which file names are appended as it stands (so a directory ends in a
  /// slash), and loads `CONVERSION_FILENAME` from it, as `LoadFromXML` does. Whether that succeeded
  /// is not told.
  void SetXMLFilePathAndLoad(const std::string& path);

  /// Converts `value` from `fromUnit` to `toUnit`, names compared byte for byte. `value` is left as
  /// it was when the units are the same, when there is no such conversion, and when its expression
  /// cannot be evaluated.
  ///
  /// A "slope-int" conversion is value = scalar * value + offset in double precision; for `float`,
  /// both constants are rounded to `float` and value = offset + scalar * value in single precision.
  /// The product comes first and is rounded by itself. Any other conversion is its expression over
  /// "val" in double precision, its result rounded to the value's type.
  ///
  /// Throws `std::out_of_range` when a "slope-int" conversion lacks a constant,
  /// `std::system_error` when the lock cannot be taken, and whatever the evaluator throws that is
  /// not a `std::runtime_error`; `value` is then as it was.
  void ConvertUnit(const std::string& fromUnit, const std::string& toUnit, double& value) const;
  /// The same for a `float`, as said above.
  void ConvertUnit(const std::string& fromUnit, const std::string& toUnit, float& value) const;

  /// The conversion from `fromUnit` to `toUnit` as the definitions say now; `why` is emptied. For
  /// what `ConvertUnit` leaves unchanged, or throws at, an empty one, and `why` says in one
  /// sentence what is missing: an unknown source unit, a target that it does not have (and which it
  /// has), a constant, an expression, or what the evaluator says of the expression with 1 as its
  /// value. Units of the same name have a conversion that changes nothing, known or not.
  ///
  /// Takes no lock. Throws `std::bad_alloc`, and what the evaluator throws that is not a
  /// `std::runtime_error`.
  Conversion FindConversion(const std::string& fromUnit, const std::string& toUnit,
                            std::string& why) const;

  /// The units that there are definitions of, ascending byte by byte.
  std::vector<std::string> GetSourceUnits() const;

  /// The units that the definition of `fromUnit` names as targets, ascending byte by byte, also
  /// those that lack what converting needs; none for an unknown unit.
  std::vector<std::string> GetTargetUnits(const std::string& fromUnit) const;

 private:
  template <typename Value>
  VEHICLE_UNITS_LOCAL void Convert(const std::string& fromUnit, const std::string& toUnit,
                                   Value& value) const;
  VEHICLE_UNITS_LOCAL static Conversion MakeConversion(const vehicle::DataType& record,
                                                       const std::string& name, std::string& why);

  // `parserMutex` is held from before "val" is written until its expression has been evaluated, so
  // that every expression reads its own caller's value. Definitions are only added to, by loads.
  mutable Parser parser;
  mutable std::mutex parserMutex;
  util::DataHash<std::string, std::shared_ptr<UnitsToFunctionsDefObj>> conversions;
  std::string xmlFilePath;
};

}  // namespace units

extern template class util::DataHash<std::string,
                                     std::shared_ptr<units::UnitConverter::UnitsToFunctionsDefObj>>;
extern template bool vehicle::ReadHashData<units::UnitConverter::UnitsToFunctionsDefObj>(
    TiXmlElement*,
    util::DataHash<std::string, std::shared_ptr<units::UnitConverter::UnitsToFunctionsDefObj>>&,
    std::string&);
