#pragma once

#include <string>
#include <vector>

#include "model/File.h"

namespace model {

/// A comment `<!-- check: allow RULE, RULE: why -->`: its author knows what these rules find, and
/// means it.
struct Allowance {
  /// The names of the rules, as they are written.
  std::vector<std::string> rules;
  std::string why;
  Place place;

  /// Where it holds: from `begin` up to but not including `end`: the element behind the comment
  /// or, where that is the root, the whole file. Nowhere if nothing follows in the same element.
  Place begin;
  Place end;

  bool HoldsAt(const Place& where) const;
};

/// The allowances of a file, in their order.
std::vector<Allowance> ReadAllowances(const File& file);

}  // namespace model
