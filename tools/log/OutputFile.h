#pragma once

#include <string>
#include <string_view>

namespace logs {

/// Where a log is written to: a file that is complete or not there, written beside its place under
/// another name and renamed at its end. What is no regular file is written to as it stands. There
/// is one at a time.
class OutputFile {
 public:
  /// Opens the file at `path`, or takes standard output where it is `-`. Throws `Failure`.
  explicit OutputFile(const std::string& path);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Removes what was written, unless it has been finished.
  ~OutputFile();

  /// Throws `Failure`.
  void Write(std::string_view bytes);

  /// Puts the file in its place. Throws `Failure`.
  void Finish();

 private:
  [[noreturn]] void Fail() const;
  void OpenBeside();

  std::string path;
  std::string beside;  // empty where it is written to in its place
  int file = -1;
};

/// From here on, a signal that ends the program removes first what an `OutputFile` has not
/// finished.
void RemoveUnfinishedOnSignals();

}  // namespace logs
