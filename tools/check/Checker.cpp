#include "check/Checker.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "Failure.h"
#include "check/AssociationRules.h"
#include "check/ConversionRules.h"
#include "check/UnitRules.h"
#include "check/WaysRules.h"
#include "units/UnitConverter.h"
#include "util/FileHandler.h"

namespace check {

namespace {

bool EndsWith(const std::string& text, const std::string& ending) {
  return text.size() >= ending.size() &&
         text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

// The base names of the association files that there are in `folder`.
std::set<std::string> BaseNames(const std::string& folder) {
  std::set<std::string> bases;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    for (const std::string& ending : Associations::FileEndings()) {
      if (EndsWith(name, ending)) {
        bases.insert(name.substr(0, name.size() - ending.size()));
      }
    }
  }
  return bases;
}

bool HoldsAssociations(const std::string& path) {
  std::string text;
  util::FileHandler(path.c_str(), "rb").read(text);
  return text.find("<unit_associations") != std::string::npos;
}

}  // namespace

Checker::Checker(const std::string& folder, const std::optional<std::string>& base)
    : folder(folder),
      conversionFile(folder + units::UnitConverter::CONVERSION_FILENAME, "unit_conversions",
                     findings),
      associations(folder, findings) {
  std::set<std::string> bases = BaseNames(folder);
  if (base && bases.count(*base) == 0) {
    throw Failure("no association files " + folder + *base + "*");
  }
  if (bases.empty() && conversionFile.GetState() == DataFile::State::kUnreadable) {
    throw Failure("no data files in " + folder);
  }
  CheckConversions();
  if (base) {
    bases.clear();
    bases.insert(*base);
  }
  CheckAssociations(bases);
  if (!base) {
    associations.ReportThoseWithoutEffect();
    ReportUnreadFiles();
  }
  CountFiles();
  sorted = findings.Sorted();
  progress.End();
}

void Checker::CheckConversions() {
  if (conversionFile.GetState() == DataFile::State::kUnreadable) {
    findings.Add({conversionFile.Path()}, Rule::kMissingFile,
                 "the conversion file is missing or empty");
  }
  if (conversionFile.Root() != nullptr) {
    ConversionRules(conversionFile, findings).Check(conversions, progress);
    WaysRules(conversionFile, conversions, findings).Check(progress);
  }
}

void Checker::CheckAssociations(const std::set<std::string>& bases) {
  progress.Begin("checking the associations", 0);
  for (const std::string& base : bases) {
    associations.Read(base);
  }
  const bool known = conversionFile.Root() != nullptr;
  AssociationRules(associations, known ? &conversions : nullptr, findings).Check();
  UnitRules(conversionFile, conversions, associations, findings).Check();
}

void Checker::ReportUnreadFiles() {
  namespace fs = std::filesystem;
  const auto options = fs::directory_options::skip_permission_denied;
  for (const auto& entry : fs::recursive_directory_iterator(folder, options)) {
    const std::string path = entry.path().string();
    const std::string extension = entry.path().extension().string();
    if (entry.is_regular_file() && extension == ".xml" && associations.Files().count(path) == 0 &&
        HoldsAssociations(path)) {
      findings.Add({path}, Rule::kUnreadFile, "no unit system reads this file");
    }
  }
}

void Checker::CountFiles() {
  const auto& files = associations.Files();
  const auto readable = [](const DataFile& file) {
    return file.GetState() != DataFile::State::kUnreadable;
  };
  fileCount = static_cast<std::size_t>(std::count_if(
      files.begin(), files.end(), [&](const auto& entry) { return readable(*entry.second); }));
  fileCount += readable(conversionFile) ? 1 : 0;
}

}  // namespace check
