#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "check/Rule.h"
#include "model/Place.h"
#include "text/Message.h"

namespace check {

using model::Place;

/// The unit or the conversion that a finding is about; empty for any other.
struct Subject {
  std::string from;
  std::string to;
};

/// That the author of the data, or the one who checks them, means what was found.
struct Acceptance {
  enum class Kind { kInSource, kExternal };

  Kind kind;
  std::string why;
};

struct Finding {
  Place place;
  const Rule* rule;
  Message text;
  Subject subject;
  bool follows = false;  ///< it only follows from another one
  std::optional<Acceptance> accepted = std::nullopt;

  /// Whether it is something to mend.
  bool IsOpen() const { return !follows && !accepted; }
};

/// What the rules have found.
class Findings {
 public:
  using Predicate = std::function<bool(const Finding&)>;

  void Add(const Place& place, const Rule& rule, const Message& text, const Subject& subject = {});

  /// Whether there is one like that.
  bool Has(const Predicate& isMeant) const;

  /// Marks those like that as following from another one.
  void HoldBack(const Predicate& isMeant);

  /// Marks those like that as accepted; says whether there were any.
  bool Accept(const Predicate& isMeant, const Acceptance& acceptance);

  /// Brings them into the order of their places, without repetitions.
  void Sort();

  const std::vector<Finding>& All() const { return findings; }

 private:
  std::vector<Finding> findings;
};

/// How many are something to mend.
std::size_t Count(const std::vector<Finding>& findings, Severity severity);

}  // namespace check
