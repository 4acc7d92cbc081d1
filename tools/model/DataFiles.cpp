#include "model/DataFiles.h"

#include <system_error>

namespace model {

namespace fs = std::filesystem;

namespace {

bool IsHidden(const fs::path& path) {
  const std::string name = path.filename().string();
  return name.front() == '.' || name.front() == '~';
}

}  // namespace

std::string IdentityOf(const std::string& path) {
  std::error_code unknown;
  const fs::path identity = fs::weakly_canonical(path, unknown);
  return (unknown ? fs::path(path).lexically_normal() : identity).string();
}

bool IsData(const fs::directory_entry& entry) {
  std::error_code unknown;
  return entry.is_regular_file(unknown) && !IsHidden(entry.path());
}

std::vector<std::string> FindXmlFiles(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code unknown;
  fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied,
                                         unknown);
  for (; entry != fs::recursive_directory_iterator(); entry.increment(unknown)) {
    if (IsHidden(entry->path())) {
      entry.disable_recursion_pending();
    } else if (IsData(*entry) && entry->path().extension() == ".xml") {
      files.push_back(entry->path().string());
    }
  }
  return files;
}

}  // namespace model
