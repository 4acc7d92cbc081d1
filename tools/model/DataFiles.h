#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace model {

/// A text that is the same for all paths of a file, there or not.
std::string IdentityOf(const std::string& path);

/// Whether a folder's entry may be a file of the data: one that is there, and neither hidden nor
/// the copy or lock of a program that has another file open.
bool IsData(const std::filesystem::directory_entry& entry);

/// The paths of the XML files in `folder` and the folders in it, but for hidden ones. No link to a
/// folder is followed.
std::vector<std::string> FindXmlFiles(const std::string& folder);

}  // namespace model
