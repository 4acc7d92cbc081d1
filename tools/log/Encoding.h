#pragma once

#include <optional>
#include <string>

namespace logs {

/// Whether all of `bytes` are characters of UTF-8.
bool IsUtf8(const std::string& bytes);

/// `bytes`, which are UTF-8 or else ISO 8859-1, in UTF-8.
std::string Utf8Of(const std::string& bytes);
std::string Utf8OfLatin1(const std::string& latin1);

/// The name of a unit as the library has it; nothing where it holds a character that ISO 8859-1
/// lacks.
std::optional<std::string> Latin1OfUtf8(const std::string& utf8);

}  // namespace logs
