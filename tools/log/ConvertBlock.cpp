#include "log/ConvertBlock.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "log/Cell.h"
#include "log/Rows.h"

namespace logs {

namespace {

constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
constexpr std::size_t kLongestTold = 80;
constexpr std::size_t kShortestNumber = 32;
constexpr std::size_t kFixedNumber = 512;  // 309 digits, 99 decimals

// Reads the number that begins at `at` and returns its end; `at` where there is none.
const char* Parse(const char* at, const char* end, double& value) {
  const auto [stop, status] = std::from_chars(at, end, value);
  return status == std::errc() ? stop : at;
}

// The same for a short number with a decimal comma that ends with its cell, none that needs quotes.
const char* ParseWithComma(const char* at, const char* end, const Dialect& dialect, double& value) {
  char copy[32];
  std::size_t size = 0;
  const char* stop = at;
  for (; stop != end && *stop != dialect.separator && *stop != dialect.lineEnd; ++stop) {
    if (size == sizeof(copy) || *stop == '.') {
      return at;
    }
    copy[size++] = *stop == ',' ? '.' : *stop;
  }
  const bool quoted = dialect.separator == ',';
  return !quoted && Parse(copy, copy + size, value) == copy + size ? stop : at;
}

// Whether a finite number has stayed as it was, its sign included.
bool AreSame(double from, double to) {
  return from == to && std::signbit(from) == std::signbit(to);
}

// The end of `cell`, a carriage return behind it aside.
const char* WithoutReturn(std::string_view cell) {
  return cell.data() + cell.size() - (!cell.empty() && cell.back() == '\r' ? 1 : 0);
}

}  // namespace

BlockConverter::BlockConverter(const Dialect& dialect, const Plan& plan, OnError onError)
    : dialect(dialect), onError(onError), plan(plan), bad(plan.columns.size()) {
  for (std::size_t column = 0; column < plan.columns.size(); ++column) {
    const bool converted = !plan.columns[column].way.steps.empty();
    valuesOf.push_back(converted ? static_cast<int>(values.size()) : -1);
    if (converted) {
      values.push_back({column, {}, {}});
    }
  }
}

void BlockConverter::Convert(std::string_view rows) {
  for (Values& each : values) {
    each.from.clear();
  }
  edits.clear();
  bad.assign(plan.columns.size(), {});
  begin = rows.data();
  longRows = {};
  openLine.reset();
  Split(rows);
  ConvertValues();
  Write(rows);
  lines = static_cast<std::size_t>(std::count(rows.begin(), rows.end(), dialect.lineEnd));
}

void BlockConverter::Split(std::string_view rows) {
  const char* at = rows.data();
  const char* const end = at + rows.size();
  while (at != end) {
    if (IsComment(*at, dialect)) {
      at = EndOfLine(at, end, dialect);
      continue;
    }
    for (std::size_t column = 0;; ++column) {
      at = TakeCell(at, end, column);
      if (at == end || *at++ == dialect.lineEnd) {
        break;
      }
    }
  }
}

std::size_t BlockConverter::LineOf(const char* at) const {
  return static_cast<std::size_t>(std::count(begin, at, dialect.lineEnd));
}

const char* BlockConverter::TakeUnconverted(const char* at, const char* end, std::size_t column) {
  const char* const stop = EndOfCell(at, end, dialect);
  const std::string_view cell(at, static_cast<std::size_t>(stop - at));
  if (stop == end && IsOpen(cell)) {
    openLine = LineOf(at);
  }
  if (column == valuesOf.size() && cell.find_first_not_of(" \t\r") != std::string_view::npos) {
    longRows.line = longRows.count++ == 0 ? LineOf(at) : longRows.line;
  }
  return stop;
}

const char* BlockConverter::TakeCell(const char* at, const char* end, std::size_t column) {
  if (column >= valuesOf.size() || valuesOf[column] < 0) {
    return TakeUnconverted(at, end, column);
  }
  double value = 0;
  const char* const stop =
      dialect.decimal == '.' ? Parse(at, end, value) : ParseWithComma(at, end, dialect, value);
  const bool hasReturn = stop != end && *stop == '\r' && dialect.lineEnd != '\r';
  const char* const behind = stop + (hasReturn ? 1 : 0);
  const bool whole = behind == end || *behind == dialect.lineEnd ||
                     (behind == stop && *behind == dialect.separator);
  if (whole && stop != at && std::isfinite(value)) {
    TakeNumber(at, stop, value, column, false);
    return behind;
  }
  return TakeOther(at, end, column);
}

const char* BlockConverter::TakeOther(const char* at, const char* end, std::size_t column) {
  const char* const stop = EndOfCell(at, end, dialect);
  const std::string_view cell(at, static_cast<std::size_t>(stop - at));
  if (stop == end && IsOpen(cell)) {
    openLine = LineOf(at);
  }
  if (const auto number = ReadNumber(cell, dialect.decimal)) {
    const bool quote = dialect.decimal == dialect.separator && *at != '"';
    const char* const first = number->place.data();
    TakeNumber(quote ? at : first, quote ? WithoutReturn(cell) : first + number->place.size(),
               number->value, column, quote);
  } else if (!IsText(cell)) {
    TakeBad(cell, column);
  }
  return stop;
}

void BlockConverter::TakeNumber(const char* at, const char* stop, double value, std::size_t column,
                                bool quote) {
  const auto which = static_cast<std::uint32_t>(valuesOf[column]);
  std::vector<double>& from = values[which].from;
  edits.push_back({at, stop, which, static_cast<std::uint32_t>(from.size()), quote});
  from.push_back(value);
}

void BlockConverter::TakeBad(std::string_view cell, std::size_t column) {
  cell = {cell.data(), static_cast<std::size_t>(WithoutReturn(cell) - cell.data())};
  BadCells& found = bad[column];
  if (found.count++ == 0) {
    found.line = LineOf(cell.data());
    found.first = cell.substr(0, kLongestTold);
  }
  if (onError == OnError::kBlank) {
    edits.push_back({cell.data(), cell.data() + cell.size(), 0, kNone, false});
  }
}

void BlockConverter::ConvertValues() {
  for (Values& each : values) {
    each.to = each.from;
    for (const units::Conversion& step : plan.columns[each.column].way.steps) {
      step.Convert(each.to.data(), each.to.data(), each.to.size());
    }
  }
}

char* BlockConverter::Reserve(char* at, std::size_t more) {
  const std::size_t used = static_cast<std::size_t>(at - output.data());
  if (output.size() - used < more) {
    output.resize(std::max(2 * output.size(), used + more));
  }
  return output.data() + used;
}

char* BlockConverter::WriteNumber(char* at, const Edit& edit) const {
  const Values& each = values[edit.values];
  const double value = each.to[edit.index];
  const auto decimals = plan.columns[each.column].decimals;
  char* const stop =
      decimals
          ? std::to_chars(at, at + kFixedNumber, value, std::chars_format::fixed, *decimals).ptr
          : std::to_chars(at, at + kShortestNumber, value).ptr;
  if (dialect.decimal == ',') {
    std::replace(at, stop, '.', ',');
  }
  return stop;
}

void BlockConverter::Write(std::string_view rows) {
  const char* from = rows.data();
  char* at = Reserve(output.data(), rows.size() + kFixedNumber);
  for (const Edit& edit : edits) {
    if (edit.index != kNone) {
      const Values& each = values[edit.values];
      if (AreSame(each.from[edit.index], each.to[edit.index])) {
        continue;
      }
    }
    const std::size_t kept = static_cast<std::size_t>(edit.begin - from);
    at = Reserve(at, kept + kFixedNumber);
    std::memcpy(at, from, kept);
    at += kept;
    if (edit.index != kNone) {
      *at = '"';
      at = WriteNumber(at + (edit.quote ? 1 : 0), edit);
      *at = '"';
      at += edit.quote ? 1 : 0;
    }
    from = edit.end;
  }
  const std::size_t rest = static_cast<std::size_t>(rows.data() + rows.size() - from);
  at = Reserve(at, rest);
  std::memcpy(at, from, rest);
  size = static_cast<std::size_t>(at + rest - output.data());
}

}  // namespace logs
