#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

/// The folder into which a fuzz target writes its files: in memory, gone when the program ends.
class ScratchFolder {
 public:
  ScratchFolder() {
    const std::filesystem::path memory = "/dev/shm";
    std::string pattern =
        (std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path()) /
        "vehicle-units-XXXXXX";
    path = std::string(mkdtemp(pattern.data())) + '/';
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() { std::filesystem::remove_all(path); }

  /// The folder with its trailing slash.
  const std::string& Path() const { return path; }

  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(path + name, std::ios::binary) << text;
  }

 private:
  std::string path;
};
