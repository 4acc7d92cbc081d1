#pragma once

#include <iterator>

namespace util {

/// What `map.find(key)` gives, found by one comparison where `key` is the last: "val" mostly is
/// among the few names of an evaluator's table.
template <typename Map>
auto FindLastFirst(Map& map, const typename Map::key_type& key) {
  if (!map.empty()) {
    const auto last = std::prev(map.end());
    if (last->first == key) {
      return last;
    }
  }
  return map.find(key);
}

}  // namespace util
