#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace logs {

/// How a log is written.
struct Dialect {
  char separator = ',';
  char decimal = '.';
  char lineEnd = '\n';  // '\r' where no line ends otherwise; one before '\n' belongs to the line
  char comment = '#';   // what a line begins with that is no row; '\0' where every line is one
  bool utf8 = true;     // else ISO 8859-1
};

/// Whether a line that begins with `first` is a comment.
inline bool IsComment(char first, const Dialect& dialect) {
  return first == dialect.comment && dialect.comment != '\0';
}

/// What is known of a log before it is read; the rest is found.
struct DialectOptions {
  std::optional<char> separator;
  std::optional<char> decimal;
  std::optional<bool> utf8;
  std::optional<std::size_t> preamble;  // the lines before the heading
};

/// A dialect, and where in the beginning of the log its heading begins.
struct Found {
  Dialect dialect;
  std::size_t heading = 0;  // offset
};

/// Finds the dialect of a log that begins with `beginning`, which ends behind a row or with the
/// log.
///
/// The heading is the first line of several cells, most of them neither blank nor numbers, that
/// has as many cells as each of the rows behind it; if there is none, the first of several such
/// cells; else the first. Blank lines are none, nor are comments, which begin with `#`, as long as
/// there is another. Of several separators the one with the earliest heading counts, then the one
/// that makes most cells of it. A comma is the decimal sign where the separator is `;`, unless the
/// rows hold numbers with points and none with commas.
Found FindDialect(std::string_view beginning, const DialectOptions& options);

/// The length of the byte order mark at the begin of `bytes`: 0 or 3.
std::size_t ByteOrderMark(std::string_view bytes);

}  // namespace logs
