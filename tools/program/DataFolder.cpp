#include "program/DataFolder.h"

#include <filesystem>

#include "model/Associations.h"
#include "program/InstalledPath.h"
#include "text/Failure.h"
#include "units/UnitConverter.h"

namespace {

namespace fs = std::filesystem;

bool HoldsDataFiles(const std::string& folder) {
  try {
    return fs::exists(folder + units::UnitConverter::CONVERSION_FILENAME) ||
           !model::BaseNames(folder).empty();
  } catch (const fs::filesystem_error&) {  // it cannot be read
    return false;
  }
}

std::string DefaultFolder() {
  const std::string current = "./";
  return HoldsDataFiles(current) ? current : InstalledPath(VEHICLE_UNITS_DATA);
}

std::string RealPathOf(const std::string& folder) {
  std::error_code unknown;
  const fs::path path = fs::canonical(folder, unknown);
  return unknown ? folder : path.string();
}

}  // namespace

std::string DataFolder::Path() const {
  const std::string folder = named ? *named : DefaultFolder();
  if (!fs::is_directory(folder)) {
    throw Failure("no such data folder: " + Message::Verbatim(folder));
  }
  return folder.back() == '/' ? folder : folder + '/';
}

std::string DataFolder::RealPath() const { return RealPathOf(Path()); }

std::string DataFolder::RealDefault() { return RealPathOf(DefaultFolder()); }
