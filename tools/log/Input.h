#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "log/Dialect.h"
#include "text/Message.h"

namespace logs {

/// The bytes of a log, read block by block.
class Input {
 public:
  /// Opens the file at `path`, or takes standard input where it is `-`. What is read counts in
  /// `bytesRead`. Throws `Failure`.
  Input(const std::string& path, std::atomic<std::uint64_t>& bytesRead);
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;
  ~Input();

  /// How messages name it.
  Message Name() const;

  /// The first lines of the log behind so many of a preamble, with them: all that is needed to find
  /// its dialect.
  std::string_view Beginning(std::size_t preamble);

  /// Takes the next `count` bytes of the beginning, or the row behind what was taken.
  std::string TakeBytes(std::size_t count);
  std::string TakeRow(const Dialect& dialect);

  /// Makes `rows` the next whole rows, as many as there are at once, and returns whether there are
  /// any. Throws `Failure` for a row that is too long.
  bool NextRows(const Dialect& dialect, std::string& rows);

 private:
  bool Read();
  void CheckRow() const;

  std::string path;
  std::atomic<std::uint64_t>& bytesRead;
  int file;
  bool atEnd = false;
  std::string left;  // read and not taken
};

}  // namespace logs
