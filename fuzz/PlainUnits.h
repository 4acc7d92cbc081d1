#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

class TiXmlDocument;
class TiXmlElement;

/// A second reading of conversion and association files by the same rules, as plain as can be, for
/// the library's own to be compared with.
class PlainUnits {
 public:
  struct Conversion {
    std::string kind;  ///< as it stands in the file, in lower case
    std::string expression;
    std::optional<double> scalar;
    std::optional<double> offset;
  };
  struct Association {
    std::string fromUnit;
    std::string toUnit;
  };

  /// Reads the conversion file at `path`; false when there is nothing to read.
  bool ReadConversions(const std::string& path);

  /// Reads the association file at `path`, and before it what it includes from below `prefix`;
  /// false when that fails. What was read by then stays.
  bool ReadAssociations(const std::string& path, const std::string& prefix);

  /// Converts as `units::UnitConverter` does. False: it throws `std::out_of_range`.
  template <typename Value>
  bool Convert(const std::string& from, const std::string& to, Value& value) const;

  std::map<std::string, std::map<std::string, Conversion>> conversions;
  std::map<std::string, Association> associations;

 private:
  void ReadTargets(const TiXmlElement& source, std::map<std::string, Conversion>& targets);

  std::vector<std::string> chain;
  int files = 0;
};
