#include "DataFolder.h"

#include <CLI/CLI.hpp>
#include <filesystem>

#include "Failure.h"

DataFolder::DataFolder() {
  std::error_code ignored;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  folder = (program.parent_path() / VEHICLE_UNITS_DATA).lexically_normal().string();
}

void DataFolder::AddOption(CLI::App& command) {
  command.add_option("--data", folder, "Folder of the data files")->type_name("DIR");
}

std::string DataFolder::Path() const {
  if (!std::filesystem::is_directory(folder)) {
    throw Failure("no such data folder: " + folder);
  }
  return folder.back() == '/' ? folder : folder + '/';
}
