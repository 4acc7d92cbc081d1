#pragma once

#include <ostream>
#include <string>

#include "Charset.h"
#include "check/Checker.h"

namespace check {

/// Write what `checker` has found: one line `FILE:LINE:COLUMN: error|warning: text [rule-name]`
/// each and a summary, in the terminal's character set; the same as JSON; and as SARIF 2.1.0.
void WriteText(std::ostream& stream, const Checker& checker, const Charset& terminal);
void WriteJson(std::ostream& stream, const Checker& checker);
void WriteSarif(std::ostream& stream, const Checker& checker);

}  // namespace check
