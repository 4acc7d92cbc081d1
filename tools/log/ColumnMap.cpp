#include "log/ColumnMap.h"

#include <algorithm>
#include <fstream>

#include "log/Dialect.h"
#include "log/Encoding.h"
#include "text/Failure.h"
#include "util/Text.h"

namespace logs {

namespace {

constexpr std::size_t kMostDigits = 2;

std::vector<std::string> Split(const std::string& text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == ':') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

bool IsCount(const std::string& text) {
  return !text.empty() && text.size() <= kMostDigits &&
         std::all_of(text.begin(), text.end(), [](char c) { return '0' <= c && c <= '9'; });
}

std::string UnitOf(const std::string& utf8, const Units& units) {
  if (utf8.empty()) {
    return utf8;
  }
  const auto unit = Latin1OfUtf8(utf8);
  if (!unit) {
    throw Failure("unknown unit " + Message::Verbatim(util::Quoted(utf8)));
  }
  units.CheckUnit(*unit);
  return *unit;
}

}  // namespace

MapEntry ParseMapEntry(const std::string& bytes, const Units& units) {
  const std::string text = Utf8Of(bytes);
  const std::size_t equals = text.rfind('=');
  if (equals == std::string::npos || equals == 0) {
    throw Failure("not NAME=UNIT[:TARGET][:DECIMALS]: " + Message::Verbatim(util::Quoted(bytes)));
  }
  MapEntry entry;
  entry.name = text.substr(0, equals);
  std::vector<std::string> parts = Split(text.substr(equals + 1));
  entry.hasNoUnit = parts == std::vector<std::string>{""};
  if (parts.size() > 1 && IsCount(parts.back())) {
    entry.decimals = std::stoi(parts.back());
    parts.pop_back();
  }
  if (parts.size() > 2) {
    throw Failure("not NAME=UNIT[:TARGET][:DECIMALS]: " + Message::Verbatim(util::Quoted(bytes)));
  }
  entry.unit = UnitOf(parts.front(), units);
  entry.target = parts.size() > 1 ? UnitOf(parts.back(), units) : "";
  return entry;
}

std::vector<MapEntry> ReadMapFile(const std::string& path, const Units& units) {
  std::ifstream file(path, std::ios::binary);
  std::vector<MapEntry> entries;
  std::size_t number = 0;
  for (std::string line; std::getline(file, line);) {
    if (++number == 1) {
      line.erase(0, ByteOrderMark(line));
    }
    if (!line.empty() && line.back() == '\r') {
      line.pop_back();
    }
    if (line.empty() || line.front() == '#') {
      continue;
    }
    try {
      entries.push_back(ParseMapEntry(line, units));
      entries.back().mustMatch = false;
    } catch (const Failure& failure) {
      throw Failure(Message::Verbatim(path) + ":" + std::to_string(number) + ": " + failure.Told());
    }
  }
  if (!file.eof()) {
    throw Failure("cannot read " + Message::Verbatim(path));
  }
  return entries;
}

}  // namespace logs
