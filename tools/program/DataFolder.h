#pragma once

#include <optional>
#include <string>

/// The folder of the data files that a command reads: the one that the program's users name, else
/// the current folder if it holds data files, else `share/vehicle-units` beside the folder that the
/// program stands in.
struct DataFolder {
  std::optional<std::string> named;

  /// The folder with its trailing slash, as the library wants it. Throws `Failure` if there is no
  /// such folder.
  std::string Path() const;

  /// Where the folder really is, from the root.
  std::string RealPath() const;

  /// The same for the folder that is read where none is named; it need not be there.
  static std::string RealDefault();
};
