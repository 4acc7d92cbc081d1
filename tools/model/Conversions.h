#pragma once

#include <tinyxml.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "vehicle/DataType.h"

namespace model {

/// One conversion that the library holds.
struct Conversion {
  int from;
  int to;
  const TiXmlElement* element;                ///< the <tounit> that defines it first
  std::vector<const TiXmlElement*> again;     ///< those that define it once more
  std::shared_ptr<vehicle::DataType> record;  ///< as merged by the library
};

/// The conversions of a conversion file as a graph of units, numbered in the order in which the
/// file names them.
class Conversions {
 public:
  /// The number of `unit`, given at its first mention.
  int NumberOf(const std::string& unit);

  /// The number of `unit`, or nothing for one that no conversion names.
  std::optional<int> Find(const std::string& unit) const;

  const std::string& NameOf(int unit) const { return *names[static_cast<std::size_t>(unit)]; }
  int UnitCount() const { return static_cast<int>(names.size()); }

  /// Adds a conversion of two units that have none yet.
  void Add(const Conversion& conversion);

  /// The conversion between two units, or null.
  Conversion* Find(int from, int to);
  const Conversion* Find(int from, int to) const;
  const Conversion* Find(const std::string& from, const std::string& to) const;

  /// The conversions in the order of the file.
  const std::vector<Conversion>& All() const { return all; }

  /// The units that `unit` converts into.
  const std::vector<int>& TargetsOf(int unit) const {
    return targets[static_cast<std::size_t>(unit)];
  }

  /// The units that `unit` converts into or that convert into it, each possibly twice.
  const std::vector<int>& NeighboursOf(int unit) const {
    return neighbours[static_cast<std::size_t>(unit)];
  }

 private:
  std::unordered_map<std::string, int> numbers;
  std::vector<const std::string*> names;  // the keys of `numbers`, which stay where they are
  std::vector<Conversion> all;
  std::unordered_map<std::uint64_t, std::size_t> positions;  // in `all`, by both units
  std::vector<std::vector<int>> targets;
  std::vector<std::vector<int>> neighbours;
};

}  // namespace model
