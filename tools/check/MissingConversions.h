#pragma once

#include <string>

#include "model/Conversions.h"

namespace check {

/// Says of conversions that something asks for and that are not there what there is instead.
class MissingConversions {
 public:
  /// `conversions` must stay.
  explicit MissingConversions(const model::Conversions& conversions) : conversions(conversions) {}

  /// Whether `from` converts into anything.
  bool Converts(const std::string& from) const;

  /// That `from` does not convert into `to`, and the nearest names. They are sought for the first
  /// hundred only: to seek takes long where there are very many names.
  std::string Describe(const std::string& from, const std::string& to);

 private:
  const model::Conversions& conversions;
  int sought = 0;
};

}  // namespace check
