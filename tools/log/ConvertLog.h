#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "log/Columns.h"
#include "log/ConvertBlock.h"
#include "log/Dialect.h"
#include "log/Input.h"
#include "log/OutputFile.h"

namespace logs {

struct LogOptions {
  DialectOptions dialect;
  bool unitsRow = false;
  OnError onError = OnError::kKeep;
  std::size_t jobs = 1;
};

/// The beginning of a log, up to its first row, and what becomes of it.
struct Opening {
  Dialect dialect;
  std::string preamble;  // as it stands before the heading
  Plan plan;
  std::size_t headingLine = 1;
  std::size_t lines = 0;  // up to the first row
};

/// What was found in a log; lines count from 1.
struct Outcome {
  std::vector<BadCells> bad;  // by column
  LineCount longRows;         // that have more cells than the heading
  std::size_t openLine = 0;   // of the quotes inside which the log ends; 0 if it does not
  bool failed = false;        // whether it was given up
};

/// Reads the beginning of `input`. Throws `Failure`.
Opening ReadOpening(Input& input, const LogOptions& options, const Conversions& conversions,
                    std::set<std::string>& matched);

/// Converts what is left of `input` behind its `opening` and writes both, up to the block with a
/// cell that is no number if `options` say so. Throws `Failure`.
Outcome ConvertRows(Input& input, const Opening& opening, const LogOptions& options,
                    OutputFile& output);

}  // namespace logs
