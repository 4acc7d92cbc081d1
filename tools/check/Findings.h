#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "check/Rule.h"
#include "model/Place.h"
#include "text/Message.h"

namespace check {

using model::Place;

/// The unit or the conversion that a finding is about, for the graph; empty for any other.
struct Subject {
  std::string from;
  std::string to;
};

struct Finding {
  Place place;
  const Rule* rule;
  Message text;
  Subject subject;
};

/// What the rules have found.
class Findings {
 public:
  void Add(const Place& place, const Rule& rule, const Message& text, const Subject& subject = {});

  /// All findings in the order of their places, without repetitions.
  std::vector<Finding> Sorted() const;

 private:
  std::vector<Finding> findings;
};

std::size_t Count(const std::vector<Finding>& findings, Severity severity);

}  // namespace check
