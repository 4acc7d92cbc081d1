#include "log/ConvertLog.h"

#include <algorithm>
#include <functional>
#include <memory>

#include "log/Jobs.h"
#include "text/Failure.h"

namespace logs {

namespace {

// A block on its way: read, converted, written.
struct Block {
  Block(const Dialect& dialect, const Plan& plan, OnError onError)
      : converter(dialect, plan, onError) {}

  std::string rows;
  BlockConverter converter;
};

std::size_t CountLines(const std::string& text, const Dialect& dialect) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), dialect.lineEnd));
}

void CheckEncoding(std::string_view beginning, const Message& name) {
  const std::string_view mark = beginning.substr(0, 2);
  if (mark == "\xFF\xFE" || mark == "\xFE\xFF") {
    throw Failure(name + " is UTF-16; convert it into UTF-8 first, by iconv -f UTF-16 -t UTF-8");
  }
}

// Counts what the blocks have found, in their order, and writes them.
class Writer {
 public:
  Writer(const Opening& opening, OnError onError, OutputFile& output)
      : onError(onError), output(output), lines(opening.lines) {
    output.Write(opening.preamble);
    output.Write(opening.plan.heading);
    for (std::size_t column = 0; column < opening.plan.columns.size(); ++column) {
      all.push_back({column, 0, "", 0});
    }
  }

  // Whether the log is to be gone on with.
  bool Take(const BlockConverter& block) {
    for (std::size_t column = 0; column < all.size(); ++column) {
      Add(block.Bad()[column], all[column]);
    }
    const bool failed = onError == OnError::kFail && HasBad();
    if (!failed) {
      output.Write(block.Converted());
      openLine = block.IsOpen() ? lines + block.Lines() + 1 : 0;
    }
    lines += block.Lines();
    return !failed;
  }

  Outcome Result() const {
    Outcome outcome{all, openLine};
    const auto none = [](const Bad& bad) { return bad.count == 0; };
    outcome.bad.erase(std::remove_if(outcome.bad.begin(), outcome.bad.end(), none),
                      outcome.bad.end());
    return outcome;
  }

 private:
  void Add(const BadCells& found, Bad& bad) const {
    if (found.count != 0 && bad.count == 0) {
      bad.line = lines + found.line + 1;
      bad.first = found.first;
    }
    bad.count += found.count;
  }

  bool HasBad() const {
    return std::any_of(all.begin(), all.end(), [](const Bad& bad) { return bad.count != 0; });
  }

  const OnError onError;
  OutputFile& output;
  std::vector<Bad> all;
  std::size_t lines;
  std::size_t openLine = 0;
};

}  // namespace

Opening ReadOpening(Input& input, const LogOptions& options, const Conversions& conversions,
                    std::set<std::string>& matched) {
  const std::string_view beginning = input.Beginning();
  CheckEncoding(beginning, input.Name());
  const Found found = FindDialect(beginning, options.dialect);
  Opening opening;
  opening.dialect = found.dialect;
  opening.preamble = input.TakeBytes(found.heading);
  const std::string heading = input.TakeRow(found.dialect);
  const std::string unitsRow = options.unitsRow ? input.TakeRow(found.dialect) : "";
  const std::size_t before = CountLines(opening.preamble, found.dialect);
  opening.headingLine = before + 1;
  try {
    opening.plan = PlanColumns(heading, unitsRow, found.dialect, conversions, matched);
  } catch (const Failure& failure) {
    throw Failure(input.Name() + ":" + std::to_string(before + 1) + ": " + failure.Told());
  }
  opening.lines = before + CountLines(heading + unitsRow, found.dialect);
  return opening;
}

Outcome ConvertRows(Input& input, const Opening& opening, const LogOptions& options,
                    OutputFile& output) {
  Writer writer(opening, options.onError, output);
  RunInOrder<Block>(
      options.jobs,
      [&] { return std::make_unique<Block>(opening.dialect, opening.plan, options.onError); },
      [&](Block& block) { return input.NextRows(opening.dialect, block.rows); },
      [](Block& block) { block.converter.Convert(block.rows); },
      [&](Block& block) { return writer.Take(block.converter); });
  return writer.Result();
}

}  // namespace logs
