// The input is an expression. It is evaluated twice: compiled, then as kept.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>

#include "Require.h"
#include "host/Parser.h"

namespace {

std::optional<double> Evaluate(Parser& parser, const std::string& expression) {
  try {
    return parser.Evaluate(expression);
  } catch (const std::runtime_error&) {
    return {};
  }
}

bool Same(std::optional<double> a, std::optional<double> b) {
  return a.has_value() == b.has_value() &&
         (!a || std::memcmp(&*a, &*b, sizeof *a) == 0 || (*a != *a && *b != *b));
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
  Require(Evaluate(parser, "val * 2") == 43.0, "the parser stays usable");
  return 0;
}
