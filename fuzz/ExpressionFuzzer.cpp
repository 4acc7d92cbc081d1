// The input is an expression. It is evaluated twice: compiled, then as kept.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <variant>

#include "Require.h"
#include "host/Parser.h"

namespace {

using Outcome = std::variant<double, std::string>;  // a value, or why there is none

Outcome Evaluate(Parser& parser, const std::string& expression) {
  try {
    return parser.Evaluate(expression);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

bool Same(const Outcome& a, const Outcome& b) {
  const auto* x = std::get_if<double>(&a);
  const auto* y = std::get_if<double>(&b);
  if (x == nullptr || y == nullptr) {
    return a == b;
  }
  return (*x == *y && std::signbit(*x) == std::signbit(*y)) || (std::isnan(*x) && std::isnan(*y));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string expression(reinterpret_cast<const char*>(data), size);
  Parser parser;
  parser.variables["val"] = 21.5;
  const auto first = Evaluate(parser, expression);
  Require(Same(first, Evaluate(parser, expression)), "the second evaluation is as the first");
  Require(parser.variables.size() == 3 && parser.variables["val"] == 21.5,
          "the table is as it was");
  Require(Evaluate(parser, "val * 2") == Outcome(43.0), "the parser stays usable");
  return 0;
}
