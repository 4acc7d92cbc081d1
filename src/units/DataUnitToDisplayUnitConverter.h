#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "../units/Conversion.h"
#include "../units/UnitConverter.h"
#include "../util/DataHash.h"
#include "../util/Export.h"
#include "../vehicle/BaseVehicleDefObj.h"
#include "../vehicle/ReadHashData.h"

namespace units {

/// The unit systems that a driver can choose.
enum unitTypes_e : std::int32_t {
  UNIT_TYPE_STD = 0,
  UNIT_TYPE_METRIC = 1,
  UNIT_TYPE_STD_UK = 2,
  UNIT_TYPE_GREEK = 3,
};

/// Decides for the chosen unit system in which unit a value is shown, converts it there and back,
/// and names the label.
///
///     units::DataUnitToDisplayUnitConverter display;
///     display.SetXMLFilePath("/usr/share/vehicle-units/");           // first: the conversions
///     std::string error;
///     if (!display.ReadAndParseXMLAssociations("VEHICLE", error)) {  // then: all four systems
///       // error says why; a file that is missing leaves it empty
///     }
///     double value = 100;
///     display.ConvertUnit("TEMP_CEL", value);      // value == 212
///     display.GetActiveLabelForUnit("TEMP_CEL");   // "\xB0" "F"
///     display.UnConvertUnit("TEMP_CEL", value);    // value == 100
///     display.SetUnitType(units::UNIT_TYPE_METRIC);
///     display.GetActiveLabelForUnit("TEMP_CEL");   // "\xB0" "C"
///     display.GetActiveLabelForUnit("anything");   // "anything": it has no association
///
/// (Unit names are bytes of ISO 8859-1: the degree sign is the one byte 0xB0, whatever the encoding
/// of the source.)
///
/// A value is never refused: a data unit without association, or one whose conversion the engine
/// does not have, keeps its value. Whether the data has a conversion and its way back for every
/// association is the data author's care.
///
/// Threads: any number may convert and ask for labels at the same time. Loading, `SetXMLFilePath`
/// and the choice of the unit system take no lock and must not overlap any other use.
class VEHICLE_UNITS_EXPORT DataUnitToDisplayUnitConverter {
 public:
  /// In which unit one data unit is shown, read from "unitassoc" elements; the identifier is the
  /// data unit.
  class VEHICLE_UNITS_EXPORT UnitAssociation : public vehicle::BaseVehicleDefObj {
   public:
    /// An association without units.
    UnitAssociation();
    ~UnitAssociation() override;

    /// 0.
    int Validate() override;

    /// Reads the fields "fromunit" and "tounit" of a "unitassoc" element; one that is absent leaves
    /// its member as it was. Returns 0, or 1 when there is no element to read. `error` is left
    /// alone.
    int DoRead(TiXmlElement* element, std::string& error, bool flag) override;

    std::string toUnit;    ///< The display unit, which is also the label.
    std::string fromUnit;  ///< Kept with the association; conversions start from the data unit.
  };

  /// How one data unit is shown in one unit system.
  struct Display {
    std::string label;     ///< What `GetActiveLabelForUnit` gives.
    Conversion toDisplay;  ///< What `ConvertUnit` does; empty where that does nothing for lack of
                           ///< an association or of a conversion.
    Conversion toData;     ///< The same of `UnConvertUnit`.
  };

  static const std::string ASSOCIATION_FILENAME;  ///< "_UNIT_ASSOCIATIONS"
  static const std::string STD_SUFFIX;            ///< "_STD.xml"
  static const std::string STD_UK_SUFFIX;         ///< "_STD_UK.xml"
  static const std::string METRIC_SUFFIX;         ///< "_METRIC.xml"
  static const std::string METRIC_TUNER_SUFFIX;   ///< "_METRIC_TUNER.xml", which nothing opens
  static const std::string GREEK_SUFFIX;          ///< "_GREEK.xml"

  /// A converter without associations and conversions, with an empty file path, in the system
  /// `UNIT_TYPE_STD`.
  DataUnitToDisplayUnitConverter();
  DataUnitToDisplayUnitConverter(const DataUnitToDisplayUnitConverter&) = delete;
  DataUnitToDisplayUnitConverter& operator=(const DataUnitToDisplayUnitConverter&) = delete;
  ~DataUnitToDisplayUnitConverter();

  /// Sets the file path, to which file names are appended as it stands (so a directory ends in a
  /// slash), and loads the conversion file from it, silently. Associations are not loaded. Load
  /// while the global C++ locale is the classic one, as `UnitConverter::LoadFromXML` says.
  void SetXMLFilePath(const std::string& path);

  /// Loads the association files of all four systems, named file path + `name` +
  /// `ASSOCIATION_FILENAME` + suffix, in the order standard, UK standard, metric, Greek. Returns
  /// false at the first system that fails; the later ones are then not touched.
  ///
  /// Messages are appended to `error`, each a line `FILE:LINE:COLUMN: …`, and are never cleared. A
  /// file that is missing, unreadable, no regular file or empty leaves no message. A "unitassoc"
  /// without identifier leaves one but fails nothing. Throws only `std::bad_alloc`; what was loaded
  /// by then stays.
  bool ReadAndParseXMLAssociations(const std::string& name, std::string& error);

  /// Loads the standard system's file at `base` + `STD_SUFFIX`, as `RecursiveLoad` does.
  bool LoadSTDUnits(const std::string& base, std::string& error);
  /// The same for the UK standard system, with `STD_UK_SUFFIX`.
  bool LoadSTDUKUnits(const std::string& base, std::string& error);
  /// The same for the metric system, with `METRIC_SUFFIX`.
  bool LoadMetricUnits(const std::string& base, std::string& error);
  /// The same for the Greek system, with `GREEK_SUFFIX`.
  bool LoadGreekUnits(const std::string& base, std::string& error);

  /// Loads nothing and returns true: there is no tuner metric system.
  bool LoadTunerMetricUnits(const std::string& base, std::string& error);

  /// Adds the associations of the file at `path` to the system `type`: first, in their order, those
  /// of the files that it includes (each named file path + text of the "include"), then its own, so
  /// that its own override. A repeated association replaces the fields that it gives.
  ///
  /// Returns false when the file or one that it includes cannot be read or is empty, with no
  /// message; with one line in `error`, when an "include" names no file or a file of the chain that
  /// leads to it, when a file is larger than 64 MiB or has elements more than 64 deep or with more
  /// than 64 attributes, and before a file is read that would be the 1,001st of this load; and when
  /// `type` is none of the four systems. The associations of the includes read before stay. A file
  /// that is no association file loads nothing and returns true. A load that failed may be repeated
  /// once the file is fixed.
  bool RecursiveLoad(const std::string& path, unitTypes_e type, std::string& error);

  /// Chooses the unit system, which counts from the next call on; nothing is loaded. A value that
  /// is none of the four is refused: the system stays.
  void SetUnitType(unitTypes_e type);

  /// Chooses `UNIT_TYPE_STD` or `UNIT_TYPE_METRIC`.
  void SetStdUnits(bool std);

  /// True for `UNIT_TYPE_STD` and `UNIT_TYPE_STD_UK`.
  bool IsStdUnits() const;

  /// True for `UNIT_TYPE_METRIC` and `UNIT_TYPE_GREEK`.
  bool IsMetricUnits() const;

  /// The display unit of the data unit `unit` in the chosen system; `unit` itself if it has no
  /// association there.
  std::string GetActiveLabelForUnit(const std::string& unit) const;

  /// Converts `value` from the data unit `unit` into its display unit in the chosen system, as
  /// `UnitConverter::ConvertUnit` does; throws what that throws. `value` stays as it was when
  /// `unit` has no association, is its own display unit, or has no such conversion.
  void ConvertUnit(const std::string& unit, double& value) const;
  /// The same in single precision.
  void ConvertUnit(const std::string& unit, float& value) const;

  /// Converts `value` from the display unit of the data unit `unit` back into `unit`; otherwise as
  /// `ConvertUnit`.
  void UnConvertUnit(const std::string& unit, double& value) const;

  /// How the data unit `unit` is shown in the chosen system: one question after a change of the
  /// system in place of two for every value. A data unit that is its own display unit has
  /// conversions that change nothing. One without association has none, and its own name as label:
  ///
  ///     const auto gauge = display.FindDisplay("TEMP_CEL");   // gauge.label is "\xB0" "F"
  ///     if (!gauge.toDisplay) {
  ///       // GetConverter().FindConversion("TEMP_CEL", gauge.label, why) says why
  ///     }
  ///     gauge.toDisplay.Convert(value);
  ///
  /// Throws as `UnitConverter::FindConversion` does.
  Display FindDisplay(const std::string& unit) const;

  /// The data units that have an association in the chosen system, ascending byte by byte.
  std::vector<std::string> GetDataUnits() const;

  /// The engine, with the conversions loaded so far. The reference holds while this object lives.
  const UnitConverter& GetConverter() const;

 private:
  using AssociationStore = util::DataHash<std::string, std::shared_ptr<UnitAssociation>>;

  VEHICLE_UNITS_LOCAL const std::string* FindDisplayUnit(const std::string& unit) const;
  VEHICLE_UNITS_LOCAL const std::string* FindOtherDisplayUnit(const std::string& unit) const;

  // `unitType` is always one of the four systems: it is the index of its store.
  std::string xmlFilePath;
  std::array<AssociationStore, 4> associations;
  unitTypes_e unitType = UNIT_TYPE_STD;
  UnitConverter converter;
};

}  // namespace units

extern template class util::DataHash<
    std::string, std::shared_ptr<units::DataUnitToDisplayUnitConverter::UnitAssociation>>;
extern template bool vehicle::ReadHashData<units::DataUnitToDisplayUnitConverter::UnitAssociation>(
    TiXmlElement*,
    util::DataHash<std::string,
                   std::shared_ptr<units::DataUnitToDisplayUnitConverter::UnitAssociation>>&,
    std::string&);
