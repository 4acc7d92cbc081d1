#include "log/ConvertLog.h"

#include <algorithm>
#include <functional>
#include <memory>

#include "log/Jobs.h"
#include "log/Rows.h"
#include "text/Failure.h"

namespace logs {

namespace {

constexpr std::size_t kMostColumns = 16384;

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

void CheckHeading(const std::vector<std::string_view>& cells, const Message& place) {
  if (IsOpen(cells.back())) {
    throw Failure(place + ": a quote opens in the heading that nothing closes");
  }
  if (cells.size() > kMostColumns) {
    throw Failure(place + ": more than " + std::to_string(kMostColumns) + " columns");
  }
}

// Counts what the blocks have found, in their order, and writes them.
class Writer {
 public:
  Writer(const Opening& opening, OnError onError, OutputFile& output)
      : onError(onError), output(output), lines(opening.lines) {
    output.Write(opening.preamble);
    output.Write(opening.plan.heading);
    found.bad.resize(opening.plan.columns.size());
  }

  // Whether the log is to be gone on with.
  bool Take(const BlockConverter& block) {
    for (std::size_t column = 0; column < found.bad.size(); ++column) {
      const BadCells& more = block.Bad()[column];
      if (found.bad[column].count == 0) {
        found.bad[column].first = more.first;
      }
      Add(more, found.bad[column]);
      found.failed = found.failed || (more.count != 0 && onError == OnError::kFail);
    }
    if (found.failed) {
      KeepFirst();
      return false;
    }
    Add(block.LongRows(), found.longRows);
    found.openLine = block.OpenLine() ? lines + *block.OpenLine() + 1 : 0;
    output.Write(block.Converted());
    lines += block.Lines();
    return true;
  }

  const Outcome& Found() const { return found; }

 private:
  // Of what is no number, the first one alone: all behind it was not looked at as a whole.
  void KeepFirst() {
    BadCells* first = nullptr;
    for (BadCells& each : found.bad) {
      if (each.count != 0 && (first == nullptr || each.line < first->line)) {
        first = &each;
      }
    }
    for (BadCells& each : found.bad) {
      each.count = &each == first ? 1 : 0;
    }
  }

  void Add(const LineCount& more, LineCount& all) const {
    if (more.count != 0 && all.count == 0) {
      all.line = lines + more.line + 1;
    }
    all.count += more.count;
  }

  const OnError onError;
  OutputFile& output;
  std::size_t lines;
  Outcome found;
};

}  // namespace

Opening ReadOpening(Input& input, const LogOptions& options, const Conversions& conversions,
                    std::set<std::string>& matched) {
  const std::size_t preamble = options.dialect.preamble.value_or(0);
  const std::string_view beginning = input.Beginning(preamble);
  CheckEncoding(beginning, input.Name());
  const Found found = FindDialect(beginning, options.dialect);
  if (preamble != 0 && found.heading == beginning.size()) {
    throw Failure(input.Name() + ": no heading behind the first " + std::to_string(preamble) +
                  " lines");
  }
  Opening opening;
  opening.dialect = found.dialect;
  opening.preamble = input.TakeBytes(found.heading);
  const std::string heading = input.TakeRow(found.dialect);
  const std::string unitsRow = options.unitsRow ? input.TakeRow(found.dialect) : "";
  const std::size_t before = CountLines(opening.preamble, found.dialect);
  opening.headingLine = before + 1;
  CheckHeading(CellsOf(heading, found.dialect), input.Name() + ":" + std::to_string(before + 1));
  opening.plan = PlanColumns(heading, unitsRow, found.dialect, conversions, matched);
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
  return writer.Found();
}

}  // namespace logs
