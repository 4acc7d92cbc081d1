#pragma once

#include <array>
#include <cctype>
#include <cstddef>

namespace xml {

// What the parser takes bytes for, and steps over those of a kind. A NUL is of none.

constexpr bool IsNameStart(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || byte > '~';
}

// For each byte whether it is one of those that `Is` says.
template <typename Is>
constexpr std::array<bool, 256> TableOf(Is is) {
  std::array<bool, 256> table{};
  for (std::size_t byte = 0; byte < table.size(); ++byte) {
    table[byte] = is(static_cast<char>(byte));
  }
  return table;
}

inline constexpr auto kSpaces =
    TableOf([](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); });
inline constexpr auto kNameBytes = TableOf([](char c) {
  return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
});

inline constexpr auto kPlainInTag =
    TableOf([](char c) { return c != '\0' && c != '"' && c != '\'' && c != '/' && c != '>'; });

// Characters of one byte that stand for themselves in a text that `end` ends.
template <char end>
constexpr auto kPlain = TableOf([](char c) {
  return c > '\0' && c <= '~' && c != '&' && c != end;
});

inline const std::array<bool, 256>& PlainUpTo(char end) {
  return end == '<' ? kPlain<'<'> : end == '"' ? kPlain<'"'> : kPlain<'\''>;
}

inline bool IsSpace(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return kSpaces[byte] || (byte > '~' && std::isspace(byte) != 0);
}

inline bool IsQuote(char c) { return c == '"' || c == '\''; }

inline bool IsPlainInTag(char c) { return kPlainInTag[static_cast<unsigned char>(c)]; }

inline bool IsInName(char c) { return kNameBytes[static_cast<unsigned char>(c)]; }

template <typename Is>
const char* SkipAll(const char* text, Is is) {
  while (is(*text)) {
    ++text;
  }
  return text;
}

}  // namespace xml
