#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "check/Rule.h"

namespace check {

/// Where something stands; line and column count from 1.
struct Place {
  std::string file;
  int line = 1;
  int column = 1;
};

/// `FILE:LINE:COLUMN`.
std::string ToString(const Place& place);

/// The unit or the conversion that a finding is about, for the graph; empty for any other.
struct Subject {
  std::string from;
  std::string to;
};

struct Finding {
  Place place;
  Rule rule;
  std::string text;  ///< ISO 8859-1, as the names in it
  Subject subject;
};

/// What the rules have found.
class Findings {
 public:
  void Add(const Place& place, Rule rule, const std::string& text, const Subject& subject = {});

  /// All findings in the order of their places, without repetitions.
  std::vector<Finding> Sorted() const;

 private:
  std::vector<Finding> findings;
};

std::size_t Count(const std::vector<Finding>& findings, Severity severity);

}  // namespace check
