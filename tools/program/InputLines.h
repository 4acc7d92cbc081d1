#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "text/Failure.h"

/// The lines of standard input, as soon as they are there: a read takes what a person or another
/// program has written so far.
///
///     InputLines input;
///     for (std::string_view line; input.Next(line);) {
///       ...
///       if (!input.HasNext()) {
///         // the next call may wait: time to show what there is
///       }
///     }
class InputLines {
 public:
  /// Sets `line` to the next line, without its line feed, which the last one may lack. It holds
  /// until the next call. False at the end. Throws `Failure` where standard input cannot be read,
  /// and for a line of more than 1 MiB.
  bool Next(std::string_view& line);

  /// Whether the next line has been read.
  bool HasNext() const { return lineEnd < end; }

  /// `failure` with the number of the line that `Next` gave last.
  Failure Here(const Failure& failure) const;

 private:
  bool Read();
  void MakeRoom();
  void FindLineEnd(std::size_t from);

  // What is read and not yet given: from `begin` to `end`, its first line to `lineEnd`, which is
  // `end` while that line is not whole.
  std::string buffer;
  std::size_t begin = 0;
  std::size_t lineEnd = 0;
  std::size_t end = 0;
  std::size_t number = 0;
  bool atEnd = false;
};

/// Hands the lines of standard input to `take`, one after the other. A `Failure` of `take` is
/// thrown on with the number of its line.
void ForEachInputLine(const std::function<void(const std::string&)>& take);
