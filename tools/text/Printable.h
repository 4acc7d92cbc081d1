#pragma once

#include <string>

/// `text`, in ISO 8859-1, with its control characters written as `\x1B`, so that a terminal shows
/// them and obeys none.
std::string Printable(const std::string& text);

/// The same for bytes of any character set, UTF-8 among them.
std::string PrintableBytes(const std::string& bytes);
