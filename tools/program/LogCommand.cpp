#include "program/LogCommand.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <set>

#include "log/ConvertLog.h"
#include "program/Complaints.h"
#include "program/LogProgress.h"
#include "program/Table.h"
#include "text/Charset.h"
#include "text/Failure.h"
#include "text/NearestNames.h"
#include "util/Text.h"

namespace {

namespace fs = std::filesystem;

std::string Separator(const std::string& name) {
  if (name == "tab" || name == "\\t") {
    return "\t";
  }
  const bool single = name.size() == 1 && static_cast<unsigned char>(name[0]) < 0x80;
  if (!single || std::string("\"\r\n.+-0123456789").find(name) != std::string::npos) {
    throw Failure("no delimiter: " + Message::Verbatim(util::Quoted(name)) +
                  "; it is one character or tab");
  }
  return name;
}

logs::LogOptions Options(const LogCommandOptions& given) {
  logs::LogOptions options;
  if (!given.delimiter.empty()) {
    options.dialect.separator = Separator(given.delimiter).front();
  }
  if (given.decimalComma || given.decimalPoint) {
    options.dialect.decimal = given.decimalComma ? ',' : '.';
  }
  if (!given.encoding.empty()) {
    options.dialect.utf8 = given.encoding == "utf-8";
  }
  options.dialect.preamble = given.preamble;
  options.unitsRow = given.unitsRow;
  options.onError = given.onError == "keep"    ? logs::OnError::kKeep
                    : given.onError == "blank" ? logs::OnError::kBlank
                                               : logs::OnError::kFail;
  options.jobs = given.jobs;
  return options;
}

std::string Describe(const logs::Opening& opening) {
  const logs::Dialect& dialect = opening.dialect;
  const std::string separator =
      dialect.separator == '\t' ? "tab" : util::Quoted(std::string(1, dialect.separator));
  return "heading in line " + std::to_string(opening.headingLine) + ", separator " + separator +
         ", decimal " + (dialect.decimal == ',' ? "comma" : "point") + ", " +
         (dialect.utf8 ? "UTF-8" : "ISO 8859-1");
}

std::string Describe(const logs::Column& column) {
  if (!column.meant.empty()) {
    return "no unit; nearest: " + column.meant;
  }
  return column.way.steps.empty() ? column.unit : column.unit + " -> " + column.way.label;
}

bool IsProgressShown(const LogCommandOptions& given) {
  const bool toTerminal = given.output == "-" && given.outDir.empty() && isatty(STDOUT_FILENO) != 0;
  return isatty(STDERR_FILENO) != 0 && !toTerminal && !given.list;
}

class Logs {
 public:
  Logs(const LogCommandOptions& given, const Charset& terminal)
      : given(given),
        terminal(terminal),
        systems(given.systems, terminal),
        units(systems.In(systems.Chosen().front())),
        conversions{units, {}, given.precision},
        options(Options(given)),
        progress(given.files, IsProgressShown(given)),
        complaints(terminal) {
    for (const std::string& path : given.mapFiles) {
      const std::vector<logs::MapEntry> entries = logs::ReadMapFile(path, units);
      conversions.map.insert(conversions.map.end(), entries.begin(), entries.end());
    }
    for (const std::string& text : given.map) {
      conversions.map.push_back(logs::ParseMapEntry(text, units));
    }
  }

  void Take(const std::string& file) {
    try {
      given.list ? List(file) : Convert(file);
    } catch (const Failure& failure) {
      Complain("vehicle-units: " + failure.Told());
    }
  }

  int Finish() {
    if (const auto entry = Unmatched(); entry != conversions.map.end() && given.files.size() > 1) {
      Complain("vehicle-units: " + NoSuchColumn(*entry));
    }
    return complaints.Status();
  }

 private:
  void Complain(const Message& message) {
    progress.Interrupt([&] { complaints.Tell(message); });
  }

  std::vector<logs::MapEntry>::const_iterator Unmatched() const {
    return std::find_if(conversions.map.begin(), conversions.map.end(),
                        [this](const logs::MapEntry& entry) {
                          return entry.mustMatch && matched.count(entry.name) == 0;
                        });
  }

  Message NoSuchColumn(const logs::MapEntry& entry) const {
    const std::vector<std::string> known(names.begin(), names.end());
    return "no column is named " +
           Message::Verbatim(util::Quoted(entry.name) + NearestNames(entry.name, known));
  }

  logs::Opening Open(logs::Input& input) {
    logs::Opening opening = logs::ReadOpening(input, options, conversions, matched);
    for (const logs::Column& column : opening.plan.columns) {
      names.insert(column.name);
    }
    if (const auto entry = Unmatched(); entry != conversions.map.end() && given.files.size() < 2) {
      throw Failure(input.Name() + ": " + NoSuchColumn(*entry));
    }
    return opening;
  }

  void Convert(const std::string& file) {
    logs::Input input(file, progress.BytesRead());
    const logs::Opening opening = Open(input);
    if (TellProblems(input.Name(), opening)) {
      return;
    }
    logs::OutputFile output(OutputFor(file));
    const logs::Outcome outcome = logs::ConvertRows(input, opening, options, output);
    Tell(input.Name(), opening, outcome);
    if (!outcome.failed) {
      output.Finish();
    }
  }

  // Tells which columns cannot be converted, and returns whether there are any.
  bool TellProblems(const Message& file, const logs::Opening& opening) {
    bool any = false;
    for (std::size_t i = 0; i < opening.plan.columns.size(); ++i) {
      if (const auto& problem = opening.plan.columns[i].problem) {
        Tell(file, {1, opening.headingLine}, NameOf(opening, i) + *problem, "");
        any = true;
      }
    }
    return any;
  }

  static Message NameOf(const logs::Opening& opening, std::size_t column) {
    return "column " + std::to_string(column + 1) + " (" +
           Message::Verbatim(opening.plan.columns[column].heading) + "): ";
  }

  std::string OutputFor(const std::string& file) const {
    return given.outDir.empty() ? given.output
                                : (fs::path(given.outDir) / fs::path(file).filename()).string();
  }

  void Tell(const Message& file, const logs::Opening& opening, const logs::Outcome& outcome) {
    for (std::size_t i = 0; i < outcome.bad.size(); ++i) {
      const logs::BadCells& bad = outcome.bad[i];
      Tell(file, bad,
           NameOf(opening, i) + "not a number: " + Message::Verbatim(util::Quoted(bad.first)),
           "such cells");
    }
    Tell(file, outcome.longRows, "more cells than the heading has", "such rows");
    if (outcome.openLine != 0) {
      Tell(file, {1, outcome.openLine}, "a quote opens here that nothing closes", "");
    }
  }

  void Tell(const Message& file, const logs::LineCount& found, const Message& what,
            const std::string& such) {
    if (found.count != 0) {
      const std::string all =
          found.count == 1 ? "" : "; " + std::to_string(found.count) + ' ' + such;
      Complain(file + ":" + std::to_string(found.line) + ": " + what + all);
    }
  }

  void List(const std::string& file) {
    logs::Input input(file, progress.BytesRead());
    const logs::Opening opening = Open(input);
    const Charset utf8("UTF-8");
    Table table({Table::kRight, Table::kLeft, Table::kLeft, Table::kLeft});
    table.AddRow({"", "heading", "becomes", "conversion"});
    std::size_t number = 0;
    for (const logs::Column& column : opening.plan.columns) {
      table.AddRow({std::to_string(++number), utf8.ToLatin1(column.heading),
                    column.problem ? "" : utf8.ToLatin1(column.becomes), Describe(column)});
    }
    std::cout << (input.Name() + ": " + Describe(opening)).For(terminal) << '\n';
    table.Print(terminal);
    TellProblems(input.Name(), opening);
  }

  const LogCommandOptions& given;
  const Charset& terminal;
  UnitSystems systems;
  logs::Units units;
  logs::Conversions conversions;
  logs::LogOptions options;
  LogProgress progress;
  Complaints complaints;
  std::set<std::string> matched;  // names in the map
  std::set<std::string> names;    // of columns
};

// Throws where two logs would become one file, or one would be replaced.
void CheckOutDir(const LogCommandOptions& options) {
  if (options.files.empty() || std::count(options.files.begin(), options.files.end(), "-") != 0) {
    throw Failure("standard input has no name to be written under: -o");
  }
  std::set<std::string> names;
  for (const std::string& file : options.files) {
    const fs::path path(file);
    if (!names.insert(path.filename().string()).second) {
      throw Failure("two of the logs are named " + Message::Verbatim(path.filename().string()));
    }
    std::error_code ignored;
    if (fs::equivalent(path, fs::path(options.outDir) / path.filename(), ignored)) {
      throw Failure("the log in the folder " + Message::Verbatim(options.outDir) +
                    " would be replaced: " + Message::Verbatim(file));
    }
  }
  std::error_code error;
  fs::create_directories(options.outDir, error);
  if (error) {
    throw Failure("cannot make the folder " + Message::Verbatim(options.outDir) + ": " +
                  error.message());
  }
}

}  // namespace

int RunLog(const LogCommandOptions& options, const Charset& terminal) {
  const std::vector<std::string> files =
      options.files.empty() ? std::vector<std::string>{"-"} : options.files;
  if (files.size() > 1 && options.outDir.empty() && !options.list) {
    throw Failure("several logs need a folder to be written to: --out-dir");
  }
  Logs logs(options, terminal);
  if (!options.outDir.empty() && !options.list) {
    CheckOutDir(options);
  }
  logs::RemoveUnfinishedOnSignals();
  for (const std::string& file : files) {
    logs.Take(file);
  }
  return logs.Finish();
}
