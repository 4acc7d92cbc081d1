#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "check/Associations.h"
#include "check/Conversions.h"
#include "check/DataFile.h"
#include "check/Findings.h"
#include "check/Progress.h"

namespace check {

/// Reads a data folder and judges it by every rule.
class Checker {
 public:
  /// Checks the conversion file of `folder`, which ends in a slash, and the association files of
  /// the base name `base` or, without one, of every base name that there are files of. Throws
  /// `Failure` if there are none of `base`, and if there is nothing to check at all.
  Checker(const std::string& folder, const std::optional<std::string>& base);

  const std::vector<Finding>& GetFindings() const { return sorted; }
  const Conversions& GetConversions() const { return conversions; }
  std::size_t FileCount() const { return fileCount; }

 private:
  void CheckConversions();
  void CheckAssociations(const std::set<std::string>& bases);
  void ReportUnreadFiles();
  void CountFiles();

  const std::string& folder;
  Progress progress;
  Findings findings;
  DataFile conversionFile;
  Conversions conversions;
  Associations associations;
  std::vector<Finding> sorted;
  std::size_t fileCount = 0;
};

}  // namespace check
