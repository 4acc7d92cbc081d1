#pragma once

#include <string>

namespace CLI {
class App;
}

/// A folder of data files, as the program's users name it with `--data`.
class DataFolder {
 public:
  /// The folder that this program takes when none is named: `share/vehicle-units` beside the
  /// folder that the program stands in.
  DataFolder();

  /// Adds the option `--data DIR` to `command`.
  void AddOption(CLI::App& command);

  /// The folder with its trailing slash, as the library wants it. Throws `Failure` if there is no
  /// such folder.
  std::string Path() const;

 private:
  std::string folder;
};
