#pragma once

#include <string>
#include <vector>

class Charset;

/// A table of text in ISO 8859-1 for standard output: every column as wide as its widest cell.
class Table {
 public:
  enum Alignment { kLeft, kRight };

  /// A table without rows, of as many columns as there are `alignments`.
  explicit Table(std::vector<Alignment> alignments);

  /// Adds a row; cells that are not given are empty, control characters are written as `\x1B`.
  void AddRow(std::vector<std::string> cells);

  /// Prints the rows in the terminal's character set, two blanks between the columns.
  void Print(const Charset& terminal) const;

 private:
  std::vector<Alignment> alignments;
  std::vector<std::size_t> widths;
  std::vector<std::vector<std::string>> rows;
};
