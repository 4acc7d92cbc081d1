#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <utility>

namespace util {

/// The names of an enumeration's values, in ascending order of the values.
///
///     const util::enum_map<Colour, std::string> names{{RED, "red"}, {BLUE, "blue"}};
///     names.find("blue");   // BLUE
///     names.find("Blue");   // nothing: names are compared byte for byte
///
/// Threads: read-only once constructed, so any number may use it at once.
template <typename E, typename Name>
class enum_map {
 public:
  /// A value with its name.
  using value_type = typename std::map<E, Name>::value_type;
  /// Goes over the pairs.
  using const_iterator = typename std::map<E, Name>::const_iterator;

  /// The names of `rows`, in any order; of several for one value the first counts.
  enum_map(std::initializer_list<value_type> rows) : names(rows) {}

  /// The lowest value that bears `name`, or nothing.
  std::optional<E> find(const Name& name) const {
    for (const auto& [value, candidate] : names) {
      if (candidate == name) {
        return value;
      }
    }
    return std::nullopt;
  }

  /// The first of the pairs of value and name, in ascending order of the values.
  const_iterator begin() const { return names.begin(); }
  /// Behind the last pair.
  const_iterator end() const { return names.end(); }

 private:
  std::map<E, Name> names;
};

}  // namespace util
