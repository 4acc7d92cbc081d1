#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "check/Findings.h"
#include "text/Charset.h"

namespace report {

/// What a check of a data folder gave.
struct Result {
  std::vector<check::Finding> findings;
  std::size_t fileCount;
  bool all;  ///< whether to tell what only follows and what is accepted, too
};

/// Write a result: one line `FILE:LINE:COLUMN: error|warning: text [rule-name]` each and a summary
/// that names `folder`, in the terminal's character set; the same as JSON, always with what is
/// accepted, marked as suppressed, with a link to the
/// rule's entry in the document at the path `rules`; and as SARIF 2.1.0, which holds the entries.
void WriteText(std::ostream& stream, const Result& result, const std::string& folder,
               const Charset& terminal);
void WriteJson(std::ostream& stream, const Result& result, const std::string& rules);
void WriteSarif(std::ostream& stream, const Result& result);

}  // namespace report
