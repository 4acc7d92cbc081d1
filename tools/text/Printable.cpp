#include "text/Printable.h"

#include <cstddef>

namespace {

bool IsC1(char c) { return (static_cast<unsigned char>(c) & 0xE0) == 0x80; }

bool IsAsciiControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

std::string Escape(char c) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  return std::string("\\x") + kDigits[byte / 16] + kDigits[byte % 16];
}

}  // namespace

std::string Printable(const std::string& text) {
  std::string printable;
  for (const char c : text) {
    printable += IsAsciiControl(c) || IsC1(c) ? Escape(c) : std::string(1, c);
  }
  return printable;
}

std::string PrintableBytes(const std::string& bytes) {
  std::string printable;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\xC2' && i + 1 < bytes.size() && IsC1(bytes[i + 1])) {  // a C1 in UTF-8
      printable += Escape(bytes[i]) + Escape(bytes[i + 1]);
      ++i;
    } else {
      printable += IsAsciiControl(bytes[i]) ? Escape(bytes[i]) : std::string(1, bytes[i]);
    }
  }
  return printable;
}
