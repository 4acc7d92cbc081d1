#include "DataFolder.h"

#include <CLI/CLI.hpp>
#include <filesystem>

#include "Failure.h"

namespace {

std::filesystem::path InstalledFolder() {
  std::error_code ignored;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  return program.parent_path().parent_path() / "share" / "vehicle-units";
}

}  // namespace

DataFolder::DataFolder() {
  const std::filesystem::path installed = InstalledFolder();
  folder = std::filesystem::is_directory(installed) ? installed.string()
                                                    : std::string(VEHICLE_UNITS_SOURCE_DATA);
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
