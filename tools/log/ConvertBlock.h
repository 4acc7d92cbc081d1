#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "log/Columns.h"
#include "log/Dialect.h"

namespace logs {

/// What is done with a cell of a converted column that is no number and no text either.
enum class OnError { kKeep, kBlank, kFail };

/// How often something is there, and the line of the first one.
struct LineCount {
  std::size_t count = 0;
  std::size_t line = 0;  // from 0 at the begin of the block
};

/// Such cells of one column.
struct BadCells : LineCount {
  std::string first;
};

/// Converts blocks of rows, one after the other. Several threads may each have one of a plan.
class BlockConverter {
 public:
  BlockConverter(const Dialect& dialect, const Plan& plan, OnError onError);

  /// Converts `rows`, which begin a row and must stay until the next call. What it says is good
  /// until then.
  void Convert(std::string_view rows);

  std::string_view Converted() const { return {output.data(), size}; }
  const std::vector<BadCells>& Bad() const { return bad; }
  /// The line ends among the rows.
  std::size_t Lines() const { return lines; }
  /// The rows that have more cells than there are columns, blank ones aside.
  const LineCount& LongRows() const { return longRows; }
  /// Where the rows end inside quotes, the line of the cell that opens them.
  std::optional<std::size_t> OpenLine() const { return openLine; }

 private:
  struct Values {
    std::size_t column;
    std::vector<double> from;
    std::vector<double> to;
  };
  // What stands in a cell in place of what it has.
  struct Edit {
    const char* begin;
    const char* end;
    std::uint32_t values;  // which
    std::uint32_t index;   // among them; kNone for a blank
    bool quote;            // whether it needs quotes around it
  };

  void Split(std::string_view rows);
  std::size_t LineOf(const char* at) const;
  const char* TakeUnconverted(const char* at, const char* end, std::size_t column);
  const char* TakeCell(const char* at, const char* end, std::size_t column);
  const char* TakeOther(const char* at, const char* end, std::size_t column);
  void TakeNumber(const char* at, const char* stop, double value, std::size_t column, bool quote);
  void TakeBad(std::string_view cell, std::size_t column);
  void ConvertValues();
  void Write(std::string_view rows);
  char* WriteNumber(char* at, const Edit& edit) const;
  char* Reserve(char* at, std::size_t more);

  const Dialect dialect;
  const OnError onError;
  const Plan& plan;
  std::vector<int> valuesOf;  // by column; -1 where it is not converted
  std::vector<Values> values;
  std::vector<Edit> edits;
  std::vector<BadCells> bad;
  std::vector<char> output;
  std::size_t size = 0;
  const char* begin = nullptr;  // of the rows
  std::size_t lines = 0;
  LineCount longRows;
  std::optional<std::size_t> openLine;
};

}  // namespace logs
