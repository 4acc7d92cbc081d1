#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/Accept.h"
#include "model/Model.h"

struct CheckedFolder {
  model::Model model;
  std::vector<check::Finding> findings;
};

/// Reads and judges a data folder by `check::Check`, with the association files of one base name or
/// of all, and the known values of the file `samples` or, if none is named, of the folder. What
/// `allowed` names is accepted. Where that takes longer than a second, a line on standard error
/// says meanwhile how far it is, if that is a terminal.
CheckedFolder CheckFolder(const std::string& folder, const std::optional<std::string>& base,
                          const std::optional<std::string>& samples,
                          const std::vector<check::Allowed>& allowed);
