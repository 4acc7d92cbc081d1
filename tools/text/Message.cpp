#include "text/Message.h"

#include "text/Charset.h"
#include "text/Printable.h"

Message& Message::operator+=(const Message& other) {
  for (const auto& [verbatim, bytes] : other.pieces) {
    if (pieces.back().first == verbatim) {
      pieces.back().second += bytes;
    } else {
      pieces.emplace_back(verbatim, bytes);
    }
  }
  return *this;
}

std::string Message::In(const Charset& charset) const {
  std::string text;
  for (const auto& [verbatim, bytes] : pieces) {
    text += verbatim ? bytes : charset.FromLatin1(bytes);
  }
  return text;
}

std::string Message::For(const Charset& terminal) const {
  std::string text;
  for (const auto& [verbatim, bytes] : pieces) {
    text += verbatim ? PrintableBytes(bytes) : terminal.FromLatin1(Printable(bytes));
  }
  return text;
}

std::string Message::Bytes() const {
  std::string text;
  for (const auto& [verbatim, bytes] : pieces) {
    text += bytes;
  }
  return text;
}

Message operator+(Message left, const Message& right) { return left += right; }
