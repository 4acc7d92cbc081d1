#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace logs {

/// The heading of a column, in UTF-8, and the unit that it ends in: in brackets, in parentheses, or
/// alone.
class Heading {
 public:
  /// `isUnit` says of a text in UTF-8 whether it is one.
  Heading(const std::string& text, const std::function<bool(const std::string&)>& isUnit);

  /// The unit in UTF-8; empty where there is none.
  std::string Unit() const { return text.substr(begin, length); }

  /// The heading with another unit in the place of its own; behind it, in brackets, if it
  /// has none.
  std::string With(const std::string& unit) const;

  const std::string& Text() const { return text; }
  /// What stands before its brackets; all of it where there are none.
  const std::string& Bare() const { return bare; }
  /// What stands in its brackets, if there are any.
  const std::string& InBrackets() const { return inBrackets; }

 private:
  void FindUnit(const std::function<bool(const std::string&)>& isUnit);
  bool Take(std::size_t first, std::size_t last,
            const std::function<bool(const std::string&)>& isUnit);

  std::string text;
  std::string bare;
  std::string inBrackets;
  std::size_t begin = 0;
  std::size_t length = 0;  // 0 where there is no unit
};

}  // namespace logs
