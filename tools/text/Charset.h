#pragma once

#include <cstddef>
#include <optional>
#include <string>

/// Converts between ISO 8859-1, in which the library keeps all names, and another character set.
/// Characters that the target set lacks become look-alikes or question marks.
class Charset {
 public:
  /// Throws `Failure` for a character set that iconv does not know.
  explicit Charset(const std::string& name);

  /// The terminal's character set, as the environment's locale says; UTF-8 where the locale is the
  /// C locale, which names no set of its own beyond ASCII.
  static Charset OfTerminal();

  std::string FromLatin1(const std::string& text) const;
  std::string ToLatin1(const std::string& text) const;

 private:
  std::string name;
};

/// The offset of the first byte of `text` that is no character of the set `charset`; nothing where
/// all are, 0 for a set that iconv does not know.
std::optional<std::size_t> FirstInvalid(const std::string& text, const std::string& charset);
