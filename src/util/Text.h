#pragma once

#include <string>
#include <vector>

namespace util {

/// `text` in double quotes.
inline std::string Quoted(const std::string& text) { return '"' + text + '"'; }

/// The texts in their order, with ", " between them.
inline std::string Join(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) {
    joined += (joined.empty() ? "" : ", ") + text;
  }
  return joined;
}

}  // namespace util
