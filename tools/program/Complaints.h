#pragma once

#include <set>

#include "text/Message.h"

class Charset;

/// What is wrong and yet does not keep a command from going on.
class Complaints {
 public:
  explicit Complaints(const Charset& terminal) : terminal(terminal) {}

  /// Writes `message` to standard error, as one line, unless that has been done.
  void Tell(const Message& message);

  /// The exit status of a command that has come to its end.
  int Status() const { return told.empty() ? 0 : 1; }

 private:
  const Charset& terminal;
  std::set<Message> told;
};
