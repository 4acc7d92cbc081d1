#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/// The bytes of the file at `path`, which must be there.
inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// An empty folder that is gone with its object.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "vehicle-units-XXXXXX";
    folder = mkdtemp(pattern.data());
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() { std::filesystem::remove_all(folder); }

  /// The path of `name` in the folder; of the folder itself, with its trailing slash, for "".
  std::string Path(const std::string& name = "") const { return folder + '/' + name; }

  /// Writes a file, with the folders that it stands in, and returns its path.
  std::string Write(const std::string& name, const std::string& text) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream file(Path(name), std::ios::binary);
    file << text;
    file.close();
    EXPECT_TRUE(file) << Path(name);
    return Path(name);
  }

 private:
  std::string folder;
};
