#include "program/Table.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "text/Charset.h"
#include "text/Printable.h"

Table::Table(std::vector<Alignment> alignments)
    : alignments(std::move(alignments)), widths(this->alignments.size()) {}

void Table::AddRow(std::vector<std::string> cells) {
  cells.resize(widths.size());
  for (std::size_t i = 0; i < cells.size(); ++i) {
    cells[i] = Printable(cells[i]);
    widths[i] = std::max(widths[i], cells[i].size());
  }
  rows.push_back(std::move(cells));
}

void Table::Print(const Charset& terminal) const {
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string padding(widths[i] - row[i].size(), ' ');
      line += (i == 0 ? "" : "  ");
      line += alignments[i] == kRight ? padding + row[i] : row[i] + padding;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    std::cout << terminal.FromLatin1(line) << '\n';
  }
}
