#include "log/Rows.h"

#include <cstring>

namespace logs {

namespace {

const char* Find(const char* at, const char* end, char sought) {
  const void* found = std::memchr(at, sought, static_cast<std::size_t>(end - at));
  return found == nullptr ? end : static_cast<const char*>(found);
}

// Behind the quote that closes the one before `at`; null where none does.
const char* BehindQuotes(const char* at, const char* end) {
  for (;;) {
    at = Find(at, end, '"');
    if (at == end) {
      return nullptr;
    }
    if (at + 1 == end || at[1] != '"') {
      return at + 1;
    }
    at += 2;
  }
}

}  // namespace

const char* EndOfCell(const char* at, const char* end, const Dialect& dialect) {
  if (at != end && *at == '"') {
    at = BehindQuotes(at + 1, end);
    if (at == nullptr) {
      return end;
    }
  }
  while (at != end && *at != dialect.separator && *at != dialect.lineEnd) {
    ++at;
  }
  return at;
}

const char* EndOfLine(const char* at, const char* end, const Dialect& dialect) {
  at = Find(at, end, dialect.lineEnd);
  return at == end ? end : at + 1;
}

const char* EndOfRow(const char* at, const char* end, const Dialect& dialect) {
  if (at != end && IsComment(*at, dialect)) {
    at = Find(at, end, dialect.lineEnd);
    return at == end ? nullptr : at + 1;
  }
  for (;; ++at) {
    at = EndOfCell(at, end, dialect);
    if (at == end) {
      return nullptr;
    }
    if (*at == dialect.lineEnd) {
      return at + 1;
    }
  }
}

std::size_t WholeRows(std::string_view bytes, const Dialect& dialect) {
  if (bytes.find('"') == std::string_view::npos) {
    return bytes.rfind(dialect.lineEnd) + 1;
  }
  const char* const begin = bytes.data();
  const char* whole = begin;
  for (const char* at = begin; at != nullptr; at = EndOfRow(at, begin + bytes.size(), dialect)) {
    whole = at;
  }
  return static_cast<std::size_t>(whole - begin);
}

std::string_view WithoutLineEnd(std::string_view row, const Dialect& dialect) {
  if (!row.empty() && row.back() == dialect.lineEnd) {
    row.remove_suffix(1);
  }
  if (dialect.lineEnd == '\n' && !row.empty() && row.back() == '\r') {
    row.remove_suffix(1);
  }
  return row;
}

std::vector<std::string_view> CellsOf(std::string_view row, const Dialect& dialect) {
  row = WithoutLineEnd(row, dialect);
  std::vector<std::string_view> cells;
  const char* const end = row.data() + row.size();
  for (const char* at = row.data();; ++at) {
    const char* const begin = at;
    at = EndOfCell(at, end, dialect);
    cells.emplace_back(begin, static_cast<std::size_t>(at - begin));
    if (at == end) {
      return cells;
    }
  }
}

bool IsOpen(std::string_view cell) {
  return !cell.empty() && cell.front() == '"' &&
         BehindQuotes(cell.data() + 1, cell.data() + cell.size()) == nullptr;
}

bool IsQuoted(std::string_view cell) {
  return !cell.empty() && cell.front() == '"' &&
         BehindQuotes(cell.data() + 1, cell.data() + cell.size()) == cell.data() + cell.size();
}

std::string TextOf(std::string_view cell) {
  if (!IsQuoted(cell)) {
    return std::string(cell);
  }
  std::string text;
  for (std::size_t i = 1; i + 1 < cell.size(); ++i) {
    text += cell[i];
    if (cell[i] == '"') {
      ++i;
    }
  }
  return text;
}

std::string CellOf(const std::string& text, bool quoted, const Dialect& dialect) {
  const char special[] = {dialect.separator, '"', '\r', '\n'};
  const bool must = text.find_first_of(special, 0, sizeof(special)) != std::string::npos;
  if (!quoted && !must) {
    return text;
  }
  std::string cell(1, '"');
  for (const char c : text) {
    cell.append(c == '"' ? 2 : 1, c);
  }
  return cell + '"';
}

}  // namespace logs
