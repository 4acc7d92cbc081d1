#pragma once

#include <string>
#include <utility>
#include <vector>

class Charset;

/// What is told to a person. Words and names of units are ISO 8859-1; a path is bytes of no known
/// character set. A message keeps the two apart until it is written.
class Message {
 public:
  /// Text in ISO 8859-1.
  Message(const char* latin1) : Message(std::string(latin1)) {}
  Message(const std::string& latin1) : Message(false, latin1) {}

  /// Bytes that are written as they are: a path, or what the command line had.
  static Message Verbatim(const std::string& bytes) { return {true, bytes}; }

  Message& operator+=(const Message& other);

  /// The text for a document in the character set `charset`.
  std::string In(const Charset& charset) const;

  /// One line for a terminal: the same with control characters written as `\x1B`.
  std::string For(const Charset& terminal) const;

  /// The text with the bytes of both kinds as they are.
  std::string Bytes() const;

  bool operator==(const Message& other) const { return pieces == other.pieces; }
  bool operator<(const Message& other) const { return pieces < other.pieces; }

 private:
  using Piece = std::pair<bool, std::string>;  // whether it is verbatim

  Message(bool verbatim, const std::string& bytes) : pieces(1, {verbatim, bytes}) {}

  std::vector<Piece> pieces;
};

Message operator+(Message left, const Message& right);
