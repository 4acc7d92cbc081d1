#include "program/InstalledPath.h"

#include <filesystem>

std::string InstalledPath(const std::string& fromProgram) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  const fs::path program = fs::read_symlink("/proc/self/exe", ignored);
  return (program.parent_path() / fromProgram).lexically_normal().string();
}
