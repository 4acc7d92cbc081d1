#pragma once

#include <string>

/// `text` in double quotes.
std::string Quoted(const std::string& text);
