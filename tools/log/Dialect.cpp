#include "log/Dialect.h"

#include <algorithm>
#include <string>
#include <vector>

#include "log/Cell.h"
#include "log/Encoding.h"
#include "log/Rows.h"

namespace logs {

namespace {

constexpr std::size_t kRowsLookedAt = 8;  // behind a heading

struct Line {
  std::size_t begin;
  std::vector<std::string_view> cells;
};

bool IsTitle(std::string_view cell) {
  return cell.find_first_not_of(" \t\r\"") != std::string_view::npos && !ReadNumber(cell, '.') &&
         !ReadNumber(cell, ',');
}

std::vector<Line> LinesOf(std::string_view beginning, const Dialect& dialect) {
  std::vector<Line> lines;
  const char* const end = beginning.data() + beginning.size();
  for (const char* at = beginning.data() + ByteOrderMark(beginning); at != end;) {
    const char* const next = EndOfRow(at, end, dialect);
    const char* const stop = next == nullptr ? end : next;
    const std::string_view row(at, static_cast<std::size_t>(stop - at));
    if (!IsComment(row.front(), dialect) && !WithoutLineEnd(row, dialect).empty()) {
      lines.push_back({static_cast<std::size_t>(at - beginning.data()), CellsOf(row, dialect)});
    }
    at = stop;
  }
  return lines;
}

bool MayBeHeading(const Line& line) {
  const auto titles = std::count_if(line.cells.begin(), line.cells.end(), IsTitle);
  return line.cells.size() > 1 && 2 * static_cast<std::size_t>(titles) > line.cells.size();
}

bool HasRowsAlike(const std::vector<Line>& lines, std::size_t heading) {
  const std::size_t last = std::min(lines.size(), heading + 1 + kRowsLookedAt);
  return std::all_of(lines.begin() + static_cast<std::ptrdiff_t>(heading),
                     lines.begin() + static_cast<std::ptrdiff_t>(last), [&](const Line& line) {
                       return line.cells.size() == lines[heading].cells.size();
                     });
}

constexpr int kWithRowsAlike = 0;
constexpr int kAlone = 1;
constexpr int kAnyLine = 2;

// What may be the heading: the better, the smaller.
struct Candidate {
  int rank = kAnyLine + 1;
  std::size_t heading = 0;
  std::size_t cells = 0;
  char separator = ',';

  bool operator<(const Candidate& other) const {
    if (rank != other.rank || heading != other.heading) {
      return rank != other.rank ? rank < other.rank : heading < other.heading;
    }
    return cells > other.cells;
  }
};

Candidate BestHeading(const std::vector<Line>& lines, char separator) {
  Candidate best;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const int rank = !MayBeHeading(lines[i])  ? kAnyLine
                     : HasRowsAlike(lines, i) ? kWithRowsAlike
                                              : kAlone;
    best = std::min(best, Candidate{rank, lines[i].begin, lines[i].cells.size(), separator});
  }
  return best;
}

Candidate FindHeading(std::string_view beginning, Dialect dialect, const DialectOptions& options) {
  const std::string separators =
      options.separator ? std::string(1, *options.separator) : std::string("\t;,");
  Candidate best;
  for (const char separator : separators) {
    dialect.separator = separator;
    best = std::min(best, BestHeading(LinesOf(beginning, dialect), separator));
  }
  return best;
}

bool HasPointsAlone(std::string_view rows, const Dialect& dialect) {
  bool points = false;
  for (const Line& line : LinesOf(rows, dialect)) {
    for (const std::string_view cell : line.cells) {
      const bool number = ReadNumber(cell, '.').has_value();
      if (!number && ReadNumber(cell, ',')) {
        return false;
      }
      points = points || (number && cell.find('.') != std::string_view::npos);
    }
  }
  return points;
}

std::size_t BehindLines(std::string_view text, std::size_t count, const Dialect& dialect) {
  const char* const end = text.data() + text.size();
  const char* at = text.data() + ByteOrderMark(text);
  for (; count > 0 && at != end; --count) {
    at = EndOfLine(at, end, dialect);
  }
  return static_cast<std::size_t>(at - text.data());
}

}  // namespace

std::size_t ByteOrderMark(std::string_view bytes) {
  return bytes.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
}

Found FindDialect(std::string_view beginning, const DialectOptions& options) {
  Dialect dialect;
  if (beginning.find('\n') == std::string_view::npos &&
      beginning.find('\r') != std::string_view::npos) {
    dialect.lineEnd = '\r';
  }
  Found found;
  if (options.preamble) {
    const std::size_t skipped = BehindLines(beginning, *options.preamble, dialect);
    const std::string_view rest = beginning.substr(skipped);
    const std::size_t length =
        EndOfLine(rest.data(), rest.data() + rest.size(), dialect) - rest.data();
    dialect.comment = rest.empty() || rest.front() != '#' ? '#' : '\0';
    dialect.separator = FindHeading(rest.substr(0, length), dialect, options).separator;
    found.heading = skipped;
  } else {
    Candidate heading = FindHeading(beginning, dialect, options);
    if (heading.rank == kAnyLine) {  // or is it one of the comments?
      Dialect plain = dialect;
      plain.comment = '\0';
      const Candidate commented = FindHeading(beginning, plain, options);
      if (commented.rank < heading.rank) {
        heading = commented;
        dialect.comment = '\0';
      }
    }
    dialect.separator = heading.separator;
    found.heading = std::max(heading.heading, ByteOrderMark(beginning));
  }
  const std::string_view rows = beginning.substr(found.heading);
  const bool comma = dialect.separator == ';' && !HasPointsAlone(rows, dialect);
  dialect.decimal = options.decimal.value_or(comma ? ',' : '.');
  dialect.utf8 = options.utf8.value_or(IsUtf8(std::string(beginning)));
  found.dialect = dialect;
  return found;
}

}  // namespace logs
