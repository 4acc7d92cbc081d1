#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "program/UnitSystems.h"

class Charset;

struct LogCommandOptions {
  UnitSystemOptions systems;
  std::vector<std::string> files;  // standard input if there are none
  std::string output = "-";
  std::string outDir;
  std::vector<std::string> map;
  std::vector<std::string> mapFiles;
  bool list = false;
  std::string delimiter;  // found if empty
  bool decimalComma = false;
  bool decimalPoint = false;
  bool unitsRow = false;
  std::optional<std::size_t> preamble;
  std::string encoding;  // found if empty; else "utf-8" or "iso-8859-1"
  std::optional<int> precision;
  std::string onError = "keep";  // or "blank", "fail"
  std::size_t jobs = 1;
};

/// Converts recorded logs. Returns the exit status: 1 where a log could not be converted, or not
/// all of it, told on standard error; throws `Failure`.
int RunLog(const LogCommandOptions& options, const Charset& terminal);
