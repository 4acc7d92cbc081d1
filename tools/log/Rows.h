#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "log/Dialect.h"

namespace logs {

// The rows of RFC 4180, where they stand in the bytes. A CSV reader hands out what the cells say;
// here it counts how they are written, for they are written again so.

/// The end of the cell that begins at `at`: where its separator or line end stands, or `end`. A
/// cell that begins with a quote goes on behind the next quote that is not doubled, whatever lies
/// between.
const char* EndOfCell(const char* at, const char* end, const Dialect& dialect);

/// Behind the line end that the line at `at` has, or `end`.
const char* EndOfLine(const char* at, const char* end, const Dialect& dialect);

/// Behind the line end of the row or comment that begins at `at`; null where that is not before
/// `end`.
const char* EndOfRow(const char* at, const char* end, const Dialect& dialect);

/// How many of `bytes`, which begin a row, are whole rows.
std::size_t WholeRows(std::string_view bytes, const Dialect& dialect);

/// The cells of the one row `row` as they stand there, without its line end.
std::vector<std::string_view> CellsOf(std::string_view row, const Dialect& dialect);

/// `row` without its line end.
std::string_view WithoutLineEnd(std::string_view row, const Dialect& dialect);

/// Whether `cell` stands in quotes; whether it opens some that nothing closes.
bool IsQuoted(std::string_view cell);
bool IsOpen(std::string_view cell);

/// What `cell` says: without the quotes around it, each doubled one within once.
std::string TextOf(std::string_view cell);

/// `text` as a cell: in quotes if it must be or `quoted` says so.
std::string CellOf(const std::string& text, bool quoted, const Dialect& dialect);

}  // namespace logs
